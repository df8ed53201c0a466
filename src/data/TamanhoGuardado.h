// The size that a person gave a window: kept in config.ini in twips, as that of the control which takes the
// window's room, and given back at the next start.
#pragma once

#include <QObject>
#include <QSize>
#include <QTimer>
#include <QWidget>

class ReadWriteINI;

class TamanhoGuardado final : public QObject
{
    Q_OBJECT
public:
    // The keys "largura" and "altura" of that section. The control owns this object.
    TamanhoGuardado(QWidget &controlo, ReadWriteINI &ini, QString seccao);

    // How much larger than its least the control was when it was last sized, in pixels; from now on what it
    // becomes is kept. Nothing but zeros where no size is kept, or none that can be read.
    QSize Folga();

protected:
    bool eventFilter(QObject *alvo, QEvent *event) override;

private:
    void Guardar();

    QWidget &controlo_;
    ReadWriteINI &ini_;
    QString seccao_;
    QSize guardado_; // pixels
    QTimer depois_;  // of a drag of the edge only the end is written
};
