// The quick search: as text is typed into txtProcura, the first name of the list that begins with it is
// chosen and its card shown; without such a name the line over the buttons says so in the place of the count,
// until a name is chosen. While the box has the keyboard it answers the keys that are the window's
// otherwise.
#pragma once

#include <QObject>

class Geral;
class Janela;
class ListaContactos;
class ListBox;
class QAbstractButton;
class QKeyEvent;
class QLabel;
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
    void Marcar_Tudo();
    bool Deixa_Desfazer(QKeyEvent &tecla) const;
    void Dizer_Que_Nao_Ha();
    void Calar();
    bool txtProcura_KeyDown(const QKeyEvent &tecla); // true when the box itself has nothing left to do

    Geral &geral_;
    Platform &platform_;
    ListaContactos &lista_;
    Janela &janela_;
    QLineEdit &txtProcura;
    ListBox &ListaNomes;
    QLabel &lblContador;
    QAbstractButton &cmdEditar, &cmdEliminar;
    bool por_marcar_ = false; // the mouse has brought the keyboard, and the text is not selected yet
    bool escrito_ = false; // since the last deletion
    bool sem_resultados_ = false; // and the window says so
};
