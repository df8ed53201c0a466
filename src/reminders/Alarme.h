// The cycle of alarms: once a second it looks for tasks that are due and raises the notice of them. It keeps
// no schedule and no mark of having rung: a task is due by its row alone, until the row is moved or deleted. The
// rows of a server are those that were read last, within the minute while it answers.
#pragma once

#include "data/Comandos.h"
#include "reminders/TarefasLidas.h"

#include <array>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <QDateTime>
#include <QObject>

class frmPopup;
class Geral;
class QWidget;
class Recordset;
class ReportControl;
class Value;
struct Platform;

class Alarme final : public QObject
{
    Q_OBJECT
public:
    // The window is disabled as long as a notice waits for its click. The report control is the alert card's
    // own.
    Alarme(QWidget &janela, Geral &geral, Platform &platform, ReportControl &relatorio);
    ~Alarme() override;

    // Closes the alert card without acknowledging, if it is open.
    void Fechar_Cartao();

    // The click on the notice, by another way than the mouse. Whether there was one to take it.
    bool Responder();

    // Tasks of a server are others now: the next tick asks, and a notice sinks once nothing is due any more.
    void Tarefas_Mudaram();

private:
    using Conta = std::function<bool(const Recordset &)>; // whether the row counts
    struct UltimaVencida;
    void timerTarefas_Timer();
    void Mostrar_Vencidas(ComandoComLinhas comando, std::initializer_list<Value> parametros);
    void Mostrar_Das_Lidas(const QDateTime &agora);
    void Mostrar(const UltimaVencida &ultima);
    bool Ha_Vencidas();
    UltimaVencida Ler(Recordset &rs, const Conta &conta = {}) const;
    bool Silenciada(const Recordset &rs) const;
    void Adiar(const QString &ID, const QString &Data, const QString &Hora, int minutos);
    frmPopup &Popup(); // loads it at its first use
    void Mostrar_Popup();
    void Popup_Unload();

    QWidget &janela_;
    Geral &geral_;
    Platform &platform_;
    ReportControl &relatorio_;
    TarefasLidas lidas_;
    std::unique_ptr<frmPopup> popup_;
    // Until when a task is silent, by its ID and moment: one that was moved meanwhile is another appointment.
    // Kept nowhere else, so the end of the program forgets it.
    std::map<std::array<QString, 3>, QDateTime> adiadas_;
};
