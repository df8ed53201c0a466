// The photograph in the editor of contacts: chosen with the button, dropped or pasted, shown in its place,
// and kept or cleared away when the editor closes.
#pragma once

#include "contacts/FotografiaNova.h"

#include <QObject>

class EntradaDeFotografia;
class QDialog;
class QLabel;
class QLineEdit;
class QPushButton;
struct Platform;

class FotografiaNoEditor final : public QObject
{
    Q_OBJECT
public:
    // Of the form, which owns them.
    struct Controlos {
        QLineEdit &txtFotografia; // what the contact keeps: a path, or the name of a picture in the database
        QLabel &Thumb;
        QPushButton &cmd_foto;
    };

    FotografiaNoEditor(QDialog &form, const Controlos &controlos, Geral &geral, Platform &platform);

    // In the active language; what is shown is spoken of by that name.
    void Legendar(const QString &nome);
    // No photograph yet.
    void Carregar();
    // The field has been filled with the contact's own, which is shown.
    void Comecar();
    // A draft has filled the field. It keeps the name of a picture, and no picture: one that never reached
    // the database is not taken up.
    void Retomar();

    // The picture of what a contact keeps, written or not. Raises Failure.
    Picture Imagem(const QString &Fotografia) const;

    // Whether what the field names goes into the database with the contact.
    bool Por_Guardar() const;
    // To be called with the writing of the contact that keeps it. Raises Failure.
    void Guardar(const QString &Fotografia);
    // Another desk's, which the person has seen and decided about.
    void Vencida(const QString &Fotografia);
    // The contact is written and keeps that one.
    void Ficou(const QString &Fotografia);
    // The contact that was changed keeps none of those any more: what was made here for it goes.
    void Abandonar_As_De_Antes();
    // The editor closes: of the files made here only the one that the contact keeps stays.
    void Arrumar();

Q_SIGNALS:
    // The person has chosen another, and it could be shown.
    void Escolhida();

private:
    void cmd_foto_Click();
    void Veio(const QMimeData &dados);
    void Tomar(const QString &FileName);
    void Por(const QString &Fotografia);
    void Recusar(const FotografiaRecusada &recusa);
    void Mostrar(const Picture &imagem);
    void Mostrar_A_Do_Contacto();

    QDialog &form_;
    QLineEdit &txtFotografia;
    QLabel &Thumb;
    QPushButton &cmd_foto;
    Geral &geral_;
    Platform &platform_;
    EntradaDeFotografia *entrada_; // a child of the form
    FotografiaNova nova_;
    QStringList antes_; // what the contact has kept until now
    QString ficou_;     // what it keeps since it was written; empty before
};
