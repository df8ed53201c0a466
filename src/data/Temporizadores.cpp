#include "data/Temporizadores.h"

void Temporizadores::Gerir_Temporizadores(const QString &accao)
{
    if (accao == QLatin1String("stop")) {
        timerTarefas.setEnabled(false);
        timerPonto.setEnabled(false);
        TimerMailNotification.setEnabled(false);
        TimerMailNotification3.setEnabled(false);
    } else if (accao == QLatin1String("start")) {
        timerTarefas.setEnabled(true);
        timerPonto.setEnabled(true);
        Q_EMIT IniciarMail();
    }
}
