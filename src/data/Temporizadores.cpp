#include "data/Temporizadores.h"

#include "platform/Failure.h"

#include <utility>

using namespace Qt::StringLiterals;

void Temporizadores::Gerir_Temporizadores(const QString &accao)
{
    if (accao == QLatin1String("stop")) {
        parados_ = true;
        timerTarefas.setEnabled(false);
        timerPonto.setEnabled(false);
        TimerMailNotification.setEnabled(false);
        TimerMailNotification3.setEnabled(false);
    } else if (accao == QLatin1String("start")) {
        parados_ = false;
        timerTarefas.setEnabled(true);
        timerPonto.setEnabled(true);
        Q_EMIT Retomados();
        Q_EMIT IniciarMail();
    }
}

PausaDosTemporizadores::PausaDosTemporizadores(Temporizadores &temporizadores)
    : temporizadores_(&temporizadores)
{
    temporizadores_->Gerir_Temporizadores(u"stop"_s);
}

PausaDosTemporizadores::~PausaDosTemporizadores()
{
    skipFailure([this] { Retomar(); });
}

void PausaDosTemporizadores::Retomar()
{
    if (auto *temporizadores = std::exchange(temporizadores_, nullptr).data())
        temporizadores->Gerir_Temporizadores(u"start"_s);
}

void PausaDosTemporizadores::Largar() { temporizadores_.clear(); }
