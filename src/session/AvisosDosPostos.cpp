#include "session/AvisosDosPostos.h"

#include "data/Geral.h"
#include "platform/Failure.h"

#include <QApplication>
#include <QLineEdit>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
const QString tabela_dos_contactos = u"tbllista"_s;

bool Livre()
{
    return QApplication::activeModalWidget() == nullptr && QApplication::activePopupWidget() == nullptr;
}
} // namespace

AvisosDosPostos::AvisosDosPostos(Geral &geral, QLineEdit &txtProcura, QObject *dono)
    : QObject(dono), geral_(geral)
{
    connect(&TimerRecolha, &QTimer::timeout, this, &AvisosDosPostos::TimerRecolha_Timer);
    connect(&TimerEscrita, &QTimer::timeout, this, [this] { TimerEscrita.setEnabled(false); });
    connect(&txtProcura, &QLineEdit::textEdited, this, [this] {
        TimerEscrita.setEnabled(false);
        TimerEscrita.setEnabled(true);
    });
    geral_.de.Ouvir({.changed = [this](const StoreChange &mudanca) { Mudou(mudanca); },
                     .reached = [this](Reach alcance) { Alcance(alcance); }});
}

AvisosDosPostos::~AvisosDosPostos() { geral_.de.Ouvir({}); }

void AvisosDosPostos::Comecar()
{
    comecou_ = true;
    Recolher();
}

void AvisosDosPostos::Recolher()
{
    TimerRecolha.setEnabled(comecou_ && !(tabelas_.isEmpty() && mudados_.isEmpty() && eliminados_.isEmpty()));
}

void AvisosDosPostos::Mudou(const StoreChange &mudanca)
{
    if (mudanca.table.isEmpty()) return Tudo_Mudou();
    tabelas_ << mudanca.table;
    if (mudanca.table == tabela_dos_contactos) {
        const QSet<int> ids(mudanca.ids.begin(), mudanca.ids.end());
        contactos_ += ids;
        talvez_outros_ |= mudanca.all;
        talvez_mudados_ |= mudanca.all;
        if (mudanca.what == StoreChange::What::Changed) mudados_ += ids;
        if (mudanca.what == StoreChange::What::Removed) eliminados_ += ids;
    }
    Recolher();
}

void AvisosDosPostos::Alcance(Reach alcance)
{
    if (alcance == Reach::Lost) return Q_EMIT Perdido();
    Q_EMIT DeVolta();
    Tudo_Mudou();
}

// What was told meanwhile is lost.
void AvisosDosPostos::Tudo_Mudou()
{
    tabelas_ += {tabela_dos_contactos, u"tblgrupos"_s, u"tbltarefas"_s,
                 u"tblmemos"_s,        u"tblusers"_s,  u"tblconfig"_s};
    talvez_outros_ = true;
    talvez_mudados_ = true;
    Recolher();
}

void AvisosDosPostos::TimerRecolha_Timer()
{
    TimerRecolha.setEnabled(false);
    Dizer_Ja();
    if (Livre()) Dizer_Quando_Livre();
    Recolher(); // what disturbed waits for the next time
}

bool AvisosDosPostos::Tirar(const QString &tabela) { return tabelas_.remove(tabela); }

// What one of them can't do now is no reason for the others: a server that is away tells all of it anew.
void AvisosDosPostos::Dizer_Ja()
{
    if (!mudados_.isEmpty() || talvez_mudados_) {
        const bool talvez_outros = std::exchange(talvez_mudados_, false);
        Q_EMIT ContactosMudadosAgora(std::exchange(mudados_, {}), talvez_outros);
    }
    if (!eliminados_.isEmpty()) Q_EMIT ContactosEliminadosAgora(std::exchange(eliminados_, {}));
    if (Tirar(u"tbltarefas"_s)) skipFailure([this] { Q_EMIT Tarefas(); });
}

// The users first: whoever was taken away must not see the rest.
void AvisosDosPostos::Dizer_Quando_Livre()
{
    if (Tirar(u"tblusers"_s)) skipFailure([this] { Q_EMIT Utilizadores(); });
    if (Tirar(u"tblconfig"_s)) skipFailure([this] { Q_EMIT Configuracao(); });
    if (Tirar(u"tblmemos"_s)) skipFailure([this] { Q_EMIT Memos(); });
    if (TimerEscrita.Enabled()) {
        tabelas_ &= {tabela_dos_contactos, u"tblgrupos"_s};
        return;
    }
    if (Tirar(u"tblgrupos"_s)) skipFailure([this] { Q_EMIT Grupos(); });
    if (Tirar(tabela_dos_contactos))
        skipFailure([this] {
            const bool talvez_outros = std::exchange(talvez_outros_, false);
            Q_EMIT Contactos(std::exchange(contactos_, {}), talvez_outros);
        });
    tabelas_.clear(); // of the rest nothing is shown
}
