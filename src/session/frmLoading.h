// A small window that tells that the program is still loading. It closes by itself: its bar grows by one each
// tenth of a second, and faster when the work that it stands for moves it.
#pragma once

#include "platform/Timer.h"
#include "ui_frmLoading.h"

#include <QWidget>

class Geral;

class frmLoading final : public QWidget, public Ui::frmLoading
{
    Q_OBJECT
public:
    explicit frmLoading(Geral &geral);

    int Valor() const; // of the bar, 0 to 100
    void setValor(int valor);

protected:
    void showEvent(QShowEvent *event) override; // the first showing begins the ticks

private:
    void Timer1_Timer();

    Timer Timer1{100, false};
};
