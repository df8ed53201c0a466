// A picture of one colour in the database of an installation, without a file.
#pragma once

#include "data/Fotografias.h"
#include "testlib/Sistema.h"

#include <QBuffer>
#include <QImage>

inline QByteArray Bytes_De_Imagem(QSize pontos, QRgb cor = qRgb(200, 0, 0))
{
    QImage imagem(pontos, QImage::Format_RGB32);
    imagem.fill(cor);
    QByteArray bytes;
    QBuffer ficheiro(&bytes);
    ficheiro.open(QIODevice::WriteOnly);
    imagem.save(&ficheiro, "PNG");
    return bytes;
}

// What the contact's column says of it.
inline QString Por_Na_Base(Sistema &s, QSize pontos, QRgb cor = qRgb(200, 0, 0))
{
    const auto nome = QStringLiteral("bd:%1x%2.png").arg(pontos.width()).arg(pontos.height());
    FotografiasDaBase(s.geral.de).Guardar(nome, Bytes_De_Imagem(pontos, cor));
    return nome;
}
