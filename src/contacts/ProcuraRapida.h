// The quick search: as text is typed into txtProcura, the first name of the list that begins with it is
// chosen and its card shown. While the box has the keyboard it answers the keys that are the window's
// otherwise.
#pragma once

#include <QObject>

class Geral;
class Janela;
class ListaContactos;
class ListBox;
class QAbstractButton;
class QKeyEvent;
class QLineEdit;
struct Platform;

class ProcuraRapida final : public QObject
{
    Q_OBJECT
public:
    ProcuraRapida(Janela &janela, Geral &geral, Platform &platform, ListaContactos &lista);

    bool eventFilter(QObject *alvo, QEvent *event) override;

    // Something was deleted: the keys that undo bring it back, until text is typed again.
    void Tomar_Eliminacao() { escrito_ = false; }

Q_SIGNALS:
    // Whether the window's own keys are to work: not while the box has the keyboard.
    void KeyPreview(bool ligada);
    // Escape was pressed.
    void Minimizar_Tray();

private:
    void txtProcura_Change();
    void txtProcura_GotFocus(Qt::FocusReason razao);
    bool Deixa_Desfazer(QKeyEvent &tecla) const;
    bool txtProcura_KeyDown(const QKeyEvent &tecla); // true when the box itself has nothing left to do

    Geral &geral_;
    Platform &platform_;
    ListaContactos &lista_;
    Janela &janela_;
    QLineEdit &txtProcura;
    ListBox &ListaNomes;
    QAbstractButton &cmdEditar, &cmdEliminar;
    bool escrito_ = false; // since the last deletion
};
