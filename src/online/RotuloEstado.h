// A label for texts with long mail addresses: a word that is wider than the label goes on in the next line.
#pragma once

#include <QLabel>
#include <QPainter>
#include <QTextOption>

class RotuloEstado final : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QTextOption opcao(alignment());
        opcao.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        QPainter pintor(this);
        pintor.setPen(palette().color(foregroundRole()));
        pintor.drawText(contentsRect(), text(), opcao);
    }
};
