#include "cards/FotografiaDoCartao.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImageReader>

using namespace Qt::StringLiterals;

namespace
{
struct Descodificada {
    QImage imagem;
    QByteArray formato; // "jpeg", "png"…
};

// A drawing is none: it is a program of sorts, which nothing here shows.
Descodificada Descodificar(const QByteArray &bytes)
{
    QBuffer ficheiro;
    ficheiro.setData(bytes);
    ficheiro.open(QIODevice::ReadOnly);
    QImageReader leitor(&ficheiro);
    leitor.setDecideFormatFromContent(true);
    leitor.setAutoTransform(true);
    const QByteArray formato = leitor.format();
    if (formato.startsWith("svg")) return {};
    return {leitor.read(), formato};
}
} // namespace

QString fotografia_do_cartao::Nome(const QByteArray &bytes)
{
    const Descodificada fotografia = Descodificar(bytes);
    if (fotografia.imagem.isNull()) return {};
    const QByteArray soma = QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
    const QByteArray terminacao = fotografia.formato == "jpeg" ? "jpg" : fotografia.formato;
    return u"bd:"_s + QString::fromLatin1(soma) + u'.' + QString::fromLatin1(terminacao);
}

QByteArray fotografia_do_cartao::Para_Cartao(const QByteArray &bytes)
{
    const Descodificada fotografia = Descodificar(bytes);
    if (fotografia.imagem.isNull()) return {};
    if (fotografia.formato == "jpeg" || fotografia.formato == "png" || fotografia.formato == "gif")
        return bytes;
    QByteArray jpeg;
    QBuffer ficheiro(&jpeg);
    ficheiro.open(QIODevice::WriteOnly);
    return fotografia.imagem.save(&ficheiro, "JPEG") ? jpeg : QByteArray();
}
