// The share of the main window by which contacts come into the book, as cards or as a table, and by which
// those that are there twice become one. Nothing is written before a form has shown it.
#pragma once

#include <functional>
#include <QObject>

class DesfazerEliminacao;
class frmImportarContactos;
class Geral;
class Janela;
struct Platform;

class EntradaDeContactos final : public QObject
{
    Q_OBJECT
public:
    EntradaDeContactos(Janela &janela, Geral &geral, Platform &platform, DesfazerEliminacao &desfazer);

    // Show the form that imports and return when it was closed. Without the right to add contacts there is
    // the refusal. The first takes a path, which may be empty.
    void ImportarContactos(const QString &caminho);
    void ImportarCartoes(const QByteArray &bytes);

Q_SIGNALS:
    void ContactosMudados(); // the list must be read anew

private:
    void Mostrar_frmImportarContactos(const std::function<void(frmImportarContactos &)> &abrir);
    void Duplicados_Click();

    Janela &janela_;
    Geral &geral_;
    Platform &platform_;
    DesfazerEliminacao &desfazer_;
};
