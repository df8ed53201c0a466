// The presence of contacts in the desktop's messenger: of the one on the card, every few seconds, and of all
// of them at the start. Whatever the messenger does not answer is skipped without a word.
#pragma once

#include <QObject>

class Geral;
class IconLabel;
class QLineEdit;
class QMainWindow;
struct Platform;

class Presenca final : public QObject
{
    Q_OBJECT
public:
    // The window must hold txtEmail1 and txtEmail2 with their pictures, the button "messenger" and its two
    // menu entries.
    Presenca(QMainWindow &janela, Geral &geral, Platform &platform);

    // Writes the presence of every contact that the messenger knows to all rows that carry the address.
    void SincronizarMessenger();

Q_SIGNALS:
    void Progresso(int percentagem); // of the synchronisation; 100 is never told

private:
    void ActualizarEstadoMessenger();
    void Ler_Estado(const QString &morada);
    void Mostrar_Estado(IconLabel &imagem);
    void Guardar_Estado(const QString &morada);
    void Conversar(const QString &morada);

    QMainWindow &janela_;
    Geral &geral_;
    Platform &platform_;
    QLineEdit &txtEmail1, &txtEmail2;
    IconLabel &imgEmail1, &imgEmail2;
    QString EmailMessenger;  // "1" or "2": the address of the card that the presence belongs to
    QString EstadoMessenger; // the last status as text; empty if the contact wasn't found
};
