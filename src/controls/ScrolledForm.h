// Keeps a window on its screen: one whose least size is larger than the screen scrolls in a window that fits,
// and one that would stand partly beside the screen because its letters are large is moved onto it. A window
// without a frame is nobody's form and is left alone.
#pragma once

#include <QObject>
#include <QPointer>
#include <QSize>

class QScrollArea;
class QWidget;

class ScrolledForm final : public QObject
{
    Q_OBJECT
public:
    // From now on; the window owns what watches over it.
    static void keepOnScreen(QWidget &form);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit ScrolledForm(QWidget &form);

    QSize room() const;
    void fit();
    void wrap();
    void wrapCentre();
    void wrapChildren();
    void followFixedHeight();
    void shrinkToRoom(QSize least);
    void moveOntoScreen();

    QWidget &form_;
    QPointer<QScrollArea> area_; // null while the form fits
};
