#include "interchange/CodigoQR.h"

#include "platform/Failure.h"

#include <memory>
#include <qrencode.h>

using namespace Qt::StringLiterals;

CodigoQR::CodigoQR(const QByteArray &bytes)
{
    const std::unique_ptr<QRcode, decltype(&QRcode_free)> codigo(
        QRcode_encodeData(static_cast<int>(bytes.size()),
                          reinterpret_cast<const unsigned char *>(bytes.constData()), 0, QR_ECLEVEL_L),
        &QRcode_free);
    if (!codigo)
        throw Failure(Failure::OutOfMemoryOrRange, u"CodigoQR"_s,
                      u"A code cannot hold %1 bytes"_s.arg(bytes.size()));
    lado_ = codigo->width;
    const qsizetype quantos = qsizetype{lado_} * lado_;
    modulos_.reserve(quantos);
    for (qsizetype i = 0; i < quantos; ++i)
        modulos_ += static_cast<char>(codigo->data[i] & 1U); // the other bits tell what the module is for
}

bool CodigoQR::Escuro(int coluna, int linha) const
{
    return modulos_[qsizetype{linha} * lado_ + coluna] != 0;
}

QImage CodigoQR::Imagem(int pontos) const
{
    const int inteiro = lado_ + 2 * margem;
    QImage modulos(inteiro, inteiro, QImage::Format_RGB32);
    modulos.fill(Qt::white);
    for (int linha = 0; linha < lado_; ++linha)
        for (int coluna = 0; coluna < lado_; ++coluna)
            if (Escuro(coluna, linha)) modulos.setPixel(margem + coluna, margem + linha, qRgb(0, 0, 0));
    return modulos.scaled(inteiro * pontos, inteiro * pontos); // of whole modules: nothing is blended
}
