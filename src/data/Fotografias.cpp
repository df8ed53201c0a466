#include "data/Fotografias.h"

#include "data/DE.h"
#include "platform/Picture.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImageReader>
#include <QPainter>

namespace
{
constexpr qsizetype mais_bytes = qsizetype{2} << 20;
constexpr int mais_pontos = 1600; // of the longer side
constexpr int qualidade = 85;     // of 100: nothing to be seen at this size
constexpr QSize prova(75, 72);    // pixels: to read all of it costs least where it is shown small

QByteArray Formato(const QByteArray &bytes)
{
    QBuffer ficheiro;
    ficheiro.setData(bytes);
    ficheiro.open(QIODevice::ReadOnly);
    return QImageReader::imageFormat(&ficheiro);
}

// A JPEG has no ground to be seen through it.
QImage Sobre_Branco(const QImage &imagem)
{
    QImage opaca(imagem.size(), QImage::Format_RGB32);
    opaca.fill(Qt::white);
    QPainter(&opaca).drawImage(0, 0, imagem);
    return opaca;
}

QByteArray Reduzida(const Picture &imagem)
{
    const QSize natural = imagem.naturalSize();
    const bool cabe = natural.width() <= mais_pontos && natural.height() <= mais_pontos;
    const QSize tamanho =
        cabe ? natural : natural.scaled(mais_pontos, mais_pontos, Qt::KeepAspectRatio).expandedTo({1, 1});
    QByteArray jpeg;
    QBuffer ficheiro(&jpeg);
    ficheiro.open(QIODevice::WriteOnly);
    Sobre_Branco(imagem.image(tamanho)).save(&ficheiro, "JPEG", qualidade);
    return jpeg;
}
} // namespace

bool E_Da_Base(const QString &Fotografia) { return Fotografia.startsWith(QLatin1StringView("bd:")); }

QString Nome_Na_Base(const QByteArray &bytes, const QByteArray &formato)
{
    const QByteArray soma = QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
    const QByteArray terminacao = formato == "jpeg" ? QByteArray("jpg") : formato;
    return QStringLiteral("bd:") + QString::fromLatin1(soma) + u'.' + QString::fromLatin1(terminacao);
}

FotografiaParaABase Preparar_Para_A_Base(const QByteArray &bytes)
{
    const Picture imagem(bytes, {});
    if (bytes.size() > mais_bytes) {
        QByteArray jpeg = Reduzida(imagem);
        return {Nome_Na_Base(jpeg, "jpeg"), jpeg};
    }
    imagem.image(prova); // a file that is cut off shows itself only at its last point
    return {Nome_Na_Base(bytes, Formato(bytes)), bytes};
}

void FotografiasDaBase::Guardar(const QString &Fotografia, const QByteArray &bytes)
{
    de_.Executar("cmdGuardarFotografia", {Fotografia, bytes});
}

QByteArray FotografiasDaBase::Ler(const QString &Fotografia)
{
    if (!E_Da_Base(Fotografia) || !de_.Em_Dia()) return {};
    Recordset &rs = de_.Abrir("cmdLerFotografia", {Fotografia});
    QByteArray bytes = rs.Eof() ? QByteArray() : rs.Fields("Imagem").bytes();
    rs.Close();
    return bytes;
}
