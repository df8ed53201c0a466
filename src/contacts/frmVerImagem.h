// The contact's picture, large: fitted to the window where it is tall or wide enough for that, and in its
// middle. Any key or click closes it.
#pragma once

#include "ui_frmVerImagem.h"

#include "platform/Picture.h"

#include <QDialog>
#include <QRectF>

class Geral;

class frmVerImagem final : public QDialog, public Ui::frmVerImagem
{
    Q_OBJECT
public:
    frmVerImagem(Geral &geral, Picture imagem, QWidget *dono = nullptr);

    // Where a picture of that natural size stands in a window of that inner size. A tall picture fills the
    // window's height if it reaches it, a wide one its width; a square one is never fitted.
    static QRectF Lugar(QSizeF natural, QSizeF janela);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    Picture imagem_;
};
