// A small picture that is drawn from its icon at whatever density the screen has.
#pragma once

#include <QIcon>
#include <QWidget>

class IconLabel : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QIcon icon READ icon WRITE setIcon)
public:
    using QWidget::QWidget;

    const QIcon &icon() const { return icon_; }
    void setIcon(const QIcon &icon);

Q_SIGNALS:
    void Click();

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QIcon icon_;
};
