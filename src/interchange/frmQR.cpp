#include "interchange/frmQR.h"

#include "controls/Controls.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "interchange/CodigoQR.h"
#include "interchange/ColunasDoContacto.h"
#include "interchange/NumeroDoCartao.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_titulo = 278;
constexpr qint16 texto_dica = 414;

constexpr double menor_modulo = 4; // pixels: below, a camera has to come too near
constexpr double menor_codigo = 280;
} // namespace

frmQR::frmQR(Geral &geral, const QByteArray &conteudo, const QString &nome, QWidget *dono) : QDialog(dono)
{
    setupUi(this);
    scale::apply(*this);
    connect(cmdFechar, &QPushButton::clicked, this, &QDialog::accept);

    setWindowTitle(withoutMnemonic(geral.Ler_Idioma(texto_titulo)));
    lblNome->setText(Cortado(nome.simplified(), ColunasDoContacto::maior_nome));
    lblDica->setText(geral.Ler_Idioma(texto_dica));
    cmdFechar->setText(geral.Ler_Idioma(135));
    imgCodigo->setAccessibleName(windowTitle() + u": "_s + lblNome->text());
    Desenhar(conteudo);
}

// In the screen's own points, a whole number of them a module: a blended edge is hard to read.
void frmQR::Desenhar(const QByteArray &conteudo)
{
    const CodigoQR codigo(conteudo);
    const double modulo =
        std::max(menor_modulo, menor_codigo / (codigo.Lado() + 2 * CodigoQR::margem)) * scale::factor();
    const qreal densidade = devicePixelRatioF();
    QImage imagem = codigo.Imagem(static_cast<int>(std::ceil(modulo * densidade)));
    imagem.setDevicePixelRatio(densidade);
    imgCodigo->setPixmap(QPixmap::fromImage(imagem));
}
