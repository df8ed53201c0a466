// The cycle of alarms: once a second it looks for tasks that are due and raises the notice of them. It keeps
// no schedule and no mark of having rung: a task is due by its row alone, until the row is moved or deleted.
#pragma once

#include "data/Comandos.h"

#include <initializer_list>
#include <memory>
#include <QObject>

class frmPopup;
class Geral;
class QWidget;
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

private:
    void timerTarefas_Timer();
    void Mostrar_Vencidas(ComandoComLinhas comando, std::initializer_list<Value> parametros);
    frmPopup &Popup(); // loads it at its first use
    void Mostrar_Popup();
    void Popup_Unload();

    QWidget &janela_;
    Geral &geral_;
    Platform &platform_;
    ReportControl &relatorio_;
    std::unique_ptr<frmPopup> popup_;
};
