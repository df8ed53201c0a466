// The background timers of the main window, the switch over them, and a form's hold on that switch.
#pragma once

#include "platform/Timer.h"

#include <QObject>
#include <QPointer>

class Temporizadores final : public QObject
{
    Q_OBJECT
public:
    // "stop" disables the alarm, the dot and the two timers of the mail check. "start" enables the alarm and
    // the dot and asks the mail cycle to begin anew, which decides by itself about its timer. Anything else
    // does nothing. A form that reads or changes what the timers use says "stop" when it loads and "start"
    // when it unloads.
    void Gerir_Temporizadores(const QString &accao);

    // Whether "stop" was said last: nothing may be changed behind a form's back.
    bool Parados() const { return parados_; }

    // Intervals in milliseconds, and whether the timer runs from the start.
    Timer timerTarefas{1000, true};
    Timer timerPonto{1000, true};
    Timer timerAniversarios{59000, true};
    Timer TimerMailNotification{60000, false};
    Timer TimerMailNotification3{5000, false};
    Timer TimerVerificacaoEmail{11000, false};
    Timer TimerStatusOfContact{5000, false};
    Timer TimerDownload{60000, true};

Q_SIGNALS:
    void IniciarMail();        // a new wait for the next mail check
    void ReiniciarMail();      // the mail check goes on at once, after a form that held it up
    void RecolherPopupEmail(); // a mail popup that is in view slides away
    void Retomados();          // "start" was said

private:
    bool parados_ = false;
};

// A form's hold on the switch: "stop" as long as the form is loaded. A form that goes without having been
// unloaded, as one does whose load fails half way, leaves the timers running too.
class PausaDosTemporizadores final
{
public:
    explicit PausaDosTemporizadores(Temporizadores &temporizadores);
    ~PausaDosTemporizadores(); // as Retomar(), but a failure to begin the mail cycle is passed over
    PausaDosTemporizadores(const PausaDosTemporizadores &) = delete;
    PausaDosTemporizadores &operator=(const PausaDosTemporizadores &) = delete;

    // Says "start", once.
    void Retomar();

    // The timers stay as they are: whoever opened the form brings them back.
    void Largar();

private:
    QPointer<Temporizadores> temporizadores_; // null when there is nothing more to do
};
