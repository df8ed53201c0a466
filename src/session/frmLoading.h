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
    // It stands in front of its owner, which may be null and may come into view later.
    explicit frmLoading(Geral &geral, QWidget *dono = nullptr);

    bool eventFilter(QObject *watched, QEvent *event) override;

    int Valor() const; // of the bar, 0 to 100
    void setValor(int valor);

    Timer Timer1{100, false};

protected:
    void showEvent(QShowEvent *event) override; // the first showing begins the ticks

private:
    void Timer1_Timer();
};
