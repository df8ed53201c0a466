// Where the main window stands: the same place when it comes back from the tray and after a restart, as long
// as a screen is there to show it; otherwise the nearest one. A place that a missing screen forced upon it is
// not kept, so it goes back when the screen does. A maximised window comes back maximised, over the place and
// the size that it had before.
#pragma once

#include <optional>
#include <QObject>
#include <QPoint>
#include <QTimer>

class ReadWriteINI;
class QMainWindow;

class LugarDaJanela final : public QObject
{
    Q_OBJECT
public:
    // The window owns this object.
    LugarDaJanela(QMainWindow &janela, ReadWriteINI &ini);

    // Gives the window, before it is first shown, the place and the size that config.ini keeps. From now on
    // they are kept.
    void Repor();

protected:
    bool eventFilter(QObject *alvo, QEvent *event) override;

private:
    void Ler();
    void Ir_Para_O_Lugar();
    void Guardar();
    void Guardar_Estado();

    QMainWindow &janela_;
    ReadWriteINI &ini_;
    std::optional<QPoint> lugar_; // of its inside, in pixels of the desktop
    std::optional<QPoint> posta_; // where it was put for want of that
    bool maximizada_ = false;     // as config.ini has it
    QTimer depois_;               // of a drag only the end is written
};
