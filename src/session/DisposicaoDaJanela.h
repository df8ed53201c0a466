// What the main window does with room beyond its design: half of the width goes to the list and the left
// column of the card, half to its right column and the picture; half of the height to list and picture, half
// to the notes. At the size of the design everything stands where it was drawn.
#pragma once

#include <functional>
#include <QObject>
#include <QRect>
#include <vector>

class CartaoContacto;
class Janela;
class QWidget;

class DisposicaoDaJanela final : public QObject
{
    Q_OBJECT
public:
    // Takes the places of now for those of the design. The centre of the window owns this object.
    DisposicaoDaJanela(Janela &janela, CartaoContacto &cartao);

protected:
    bool eventFilter(QObject *alvo, QEvent *event) override;

private:
    // How a control follows: percents of the room to the right and below, for its place and its size.
    struct Parte {
        QWidget *controlo;
        QRect desenho;
        QPoint desloca;
        QPoint cresce;
    };

    void Dispor();

    QWidget &centro_;
    CartaoContacto &cartao_;
    std::vector<Parte> partes_;
};
