#include "cards/FotografiaDoCartao.h"

#include "data/Fotografias.h"

#include <QBuffer>
#include <QImageReader>

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
    QImageReader leitor(&ficheiro); // opens it
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
    return Nome_Na_Base(bytes, fotografia.formato);
}

QByteArray fotografia_do_cartao::Para_Cartao(const QByteArray &bytes)
{
    const Descodificada fotografia = Descodificar(bytes);
    if (fotografia.imagem.isNull()) return {};
    if (fotografia.formato == "jpeg" || fotografia.formato == "png" || fotografia.formato == "gif")
        return bytes;
    QByteArray jpeg;
    QBuffer ficheiro(&jpeg); // is opened by who writes
    return fotografia.imagem.save(&ficheiro, "JPEG") ? jpeg : QByteArray();
}
