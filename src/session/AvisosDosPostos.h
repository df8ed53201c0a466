// What the other desks of a server change, told to the window in the order of its shares, together and when it
// disturbs nobody: what comes within 0.3 seconds is told at once, not in front of a modal form or an open menu, and the
// list not while its quick search is being typed. What came meanwhile is told afterwards. On a file nothing ever
// comes.
#pragma once

#include "platform/Timer.h"
#include "store/Store.h"

#include <QObject>
#include <QSet>

class Geral;
class QLineEdit;

class AvisosDosPostos final : public QObject
{
    Q_OBJECT
public:
    // Hears from now on, and says nothing before Comecar(): the start reads everything itself.
    AvisosDosPostos(Geral &geral, QLineEdit &txtProcura, QObject *dono);
    ~AvisosDosPostos() override;

    void Comecar();

    Timer TimerRecolha{300, false};  // from the first that came, and again while it disturbs
    Timer TimerEscrita{1500, false}; // since the last letter of the quick search

Q_SIGNALS:
    // Those contacts, and perhaps others as well.
    void Contactos(const QSet<int> &mudados, bool talvez_outros);
    void Grupos();
    void Tarefas(); // told even in front of a form, which may be the list of them
    void Memos();
    void Utilizadores();
    void Configuracao();

    // Contacts that somebody may be editing here: told even in front of a form. Those, and perhaps others as well.
    void ContactosMudadosAgora(const QSet<int> &mudados, bool talvez_outros);
    void ContactosEliminadosAgora(const QSet<int> &eliminados);

    // The server is away, or it is back. Everything is told as changed once it is.
    void Perdido();
    void DeVolta();

private:
    void Mudou(const StoreChange &mudanca);
    void Alcance(Reach alcance);
    void Tudo_Mudou();
    void TimerRecolha_Timer();
    void Dizer_Ja();
    void Dizer_Quando_Livre();
    bool Tirar(const QString &tabela);
    void Recolher();

    Geral &geral_;
    QSet<QString> tabelas_; // what changed and was not told yet
    QSet<int> contactos_;
    QSet<int> mudados_, eliminados_; // for an editor
    bool talvez_outros_ = false;
    bool talvez_mudados_ = false; // others, for an editor
    bool comecou_ = false;
};
