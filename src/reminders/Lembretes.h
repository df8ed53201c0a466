// The reminders' share of the main window: the entries of its menus, toolbar and tray menu that open the
// forms of tasks and birthdays, and the two cycles that raise their notices by themselves.
#pragma once

#include <QObject>

class Alarme;
class Aniversarios;
class Geral;
class Janela;
class ReportControl;
struct Platform;

class Lembretes final : public QObject
{
    Q_OBJECT
public:
    // The report control prints the task of an alert card, and nothing else.
    Lembretes(Janela &janela, Geral &geral, Platform &platform, ReportControl &relatorio);

    // The start's own notice of birthdays. Waits until it is closed; nothing is shown when there is none.
    void Mostrar_Aniversarios_Ao_Iniciar();

    // The click on the notice of due tasks, by another way than the mouse. Whether there was one to take it.
    bool Responder();

    // Another desk has changed tasks: the alarm, its notice and an open list of tasks follow.
    void Tarefas_Mudaram();

private:
    void NovaTarefa_Click();
    void ListaTarefas_Click();

    Janela &janela_;
    Geral &geral_;
    Platform &platform_;
    Alarme *alarme_; // children of the window
    Aniversarios *aniversarios_;
};
