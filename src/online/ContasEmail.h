// The mail accounts of the session's user on the mail pane of the options: the list and the three buttons
// under it. What they change is in the database at once, whatever becomes of the options.
#pragma once

#include <QObject>

class Geral;
class QDialog;
class QPushButton;
class QTreeWidget;

class ContasEmail final : public QObject
{
    Q_OBJECT
public:
    // The controls of the pane, which the form owns.
    struct Controlos {
        QTreeWidget &lvEmails;
        QPushButton &cmdAdicionar, &cmdEditar, &cmdEliminar;
    };

    ContasEmail(QDialog &opcoes, const Controlos &controlos, Geral &geral);

    // Reads the accounts anew. None is selected then, so editing and deleting wait for a choice.
    void Preencher();

private:
    void lvEmails_ItemClick();
    void cmdAdicionar_Click();
    void cmdEditar_Click();
    void cmdEliminar_Click();

    void Abrir_Editor(const QString &ModoEmail);
    void Permitir(bool permitido);

    QDialog &opcoes_;
    Geral &geral_;
    QTreeWidget &lvEmails;
    QPushButton &cmdEditar;
    QPushButton &cmdEliminar;
};
