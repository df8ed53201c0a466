#include "contacts/frmVerImagem.h"

#include "contacts/Fotografia.h"
#include "controls/Controls.h"
#include "controls/Scale.h"
#include "controls/Units.h"
#include "data/Geral.h"

namespace
{
QSizeF Ajustar(QSizeF natural, QSizeF janela)
{
    const bool alta = natural.height() > natural.width();
    const bool larga = natural.height() < natural.width();
    if (alta && natural.height() >= janela.height())
        return {natural.width() * janela.height() / natural.height(), janela.height()};
    if (larga && natural.width() >= janela.width())
        return {janela.width(), natural.height() * janela.width() / natural.width()};
    return natural;
}
} // namespace

QRectF frmVerImagem::Lugar(QSizeF natural, QSizeF janela)
{
    const QSizeF tamanho = Ajustar(natural, janela);
    return {{janela.width() / 2 - tamanho.width() / 2, janela.height() / 2 - tamanho.height() / 2}, tamanho};
}

frmVerImagem::frmVerImagem(Geral &geral, Picture imagem, QWidget *dono)
    : QDialog(dono), imagem_(std::move(imagem))
{
    setupUi(this);
    scale::apply(*this);
    setWindowTitle(withoutMnemonic(geral.Ler_Idioma(11)));
    Image1->setAccessibleName(windowTitle());
}

void frmVerImagem::resizeEvent(QResizeEvent *)
{
    const QSizeF natural = QSizeF(imagem_.naturalSize()) * twipsPerPixel;
    Mostrar_Fotografia(*Image1, imagem_, Lugar(natural, QSizeF(twips(width()), twips(height()))));
}

void frmVerImagem::mouseReleaseEvent(QMouseEvent *) { close(); }

void frmVerImagem::keyPressEvent(QKeyEvent *) { close(); }
