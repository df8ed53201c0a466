// The frames that the system draws round the program's windows, in dark where dark windows are asked for:
// those that are there, and each one that comes.
#pragma once

#include <functional>
#include <QWindow>

class DarkFrames final : public QObject
{
    Q_OBJECT
public:
    // Tells the system of one window's frame.
    using Draw = std::function<void(WId window, bool dark)>;

    // Without a function of another's, the system's own is told.
    explicit DarkFrames(Draw draw = systemDraw(), QObject *parent = nullptr);

    void setDark(bool dark);

private:
    static Draw systemDraw();
    bool eventFilter(QObject *watched, QEvent *event) override;

    Draw draw_;
    bool dark_ = false;
};
