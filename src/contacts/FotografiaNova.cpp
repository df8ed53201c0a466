#include "contacts/FotografiaNova.h"

#include "data/Geral.h"
#include "platform/Failure.h"
#include "platform/Picture.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QMimeData>
#include <QRegularExpression>
#include <QUrl>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint64 maior_ficheiro = qint64{100} * 1024 * 1024; // bytes; no camera makes larger ones
constexpr QSize prova(75, 72);                               // pixels: the editor's own place

// clang-format off
constexpr Translations nao_e_imagem{
    u"Isto não é uma imagem que o programa saiba mostrar. A fotografia fica como estava.",
    u"Isto não é uma imagem que o programa saiba mostrar. A foto fica como estava.",
    u"This is no picture that the program can show. The photograph stays as it was.",
    u"Esto no es una imagen que el programa sepa mostrar. La fotografía queda como estaba.",
    u"Questa non è un’immagine che il programma sappia mostrare. La fotografia resta com’era.",
    u"Ceci n’est pas une image que le programme sache afficher. La photo reste telle quelle.",
    u"Dies ist kein Bild, das das Programm anzeigen kann. Das Foto bleibt, wie es war."};
constexpr Translations nao_ha_ficheiro{
    u"Não há aqui nenhum ficheiro que se possa ler. A fotografia fica como estava.",
    u"Não há aqui nenhum arquivo que se possa ler. A foto fica como estava.",
    u"There is no file here that can be read. The photograph stays as it was.",
    u"Aquí no hay ningún archivo que se pueda leer. La fotografía queda como estaba.",
    u"Qui non c’è alcun file che si possa leggere. La fotografia resta com’era.",
    u"Il n’y a ici aucun fichier lisible. La photo reste telle quelle.",
    u"Hier ist keine Datei, die gelesen werden kann. Das Foto bleibt, wie es war."};
constexpr Translations grande_demais{
    u"Este ficheiro é demasiado grande para uma fotografia. A fotografia fica como estava.",
    u"Este arquivo é grande demais para uma foto. A foto fica como estava.",
    u"This file is too large for a photograph. The photograph stays as it was.",
    u"Este archivo es demasiado grande para una fotografía. La fotografía queda como estaba.",
    u"Questo file è troppo grande per una fotografia. La fotografia resta com’era.",
    u"Ce fichier est trop volumineux pour une photo. La photo reste telle quelle.",
    u"Diese Datei ist zu groß für ein Foto. Das Foto bleibt, wie es war."};
constexpr Translations na_rede{
    u"O programa não vai buscar imagens à rede. Guarde a imagem num ficheiro e use esse. A fotografia fica como estava.",
    u"O programa não busca imagens na rede. Salve a imagem em um arquivo e use-o. A foto fica como estava.",
    u"The program fetches no pictures from the network. Save the picture to a file and use that one. The photograph stays as it was.",
    u"El programa no descarga imágenes de la red. Guarde la imagen en un archivo y use este. La fotografía queda como estaba.",
    u"Il programma non scarica immagini dalla rete. Salvare l’immagine in un file e usare quello. La fotografia resta com’era.",
    u"Le programme ne télécharge pas d’images. Enregistrez l’image dans un fichier et utilisez celui-ci. La photo reste telle quelle.",
    u"Das Programm lädt keine Bilder aus dem Netz. Speichern Sie das Bild in einer Datei und nehmen Sie diese. Das Foto bleibt, wie es war."};
constexpr Translations nao_guardada{
    u"Não foi possível guardar a imagem nesta pasta. A fotografia fica como estava.",
    u"Não foi possível salvar a imagem nesta pasta. A foto fica como estava.",
    u"The picture could not be saved in this folder. The photograph stays as it was.",
    u"No se pudo guardar la imagen en esta carpeta. La fotografía queda como estaba.",
    u"Non è stato possibile salvare l’immagine in questa cartella. La fotografia resta com’era.",
    u"L’image n’a pas pu être enregistrée dans ce dossier. La photo reste telle quelle.",
    u"Das Bild konnte in diesem Ordner nicht gespeichert werden. Das Foto bleibt, wie es war."};
// clang-format on

// To its last point: a file that is cut off shows itself only then.
void Provar(const QString &caminho)
{
    onFailure([&] { Picture(caminho).image(prova); },
              [&](const Failure &) { throw FotografiaRecusada(nao_e_imagem, caminho); });
}

QString Ficheiro_Provado(const QUrl &url)
{
    if (!url.isLocalFile()) throw FotografiaRecusada(na_rede, url.toDisplayString());
    QString caminho = url.toLocalFile();
    const QFileInfo ficheiro(caminho);
    if (!ficheiro.isFile() || !ficheiro.isReadable()) throw FotografiaRecusada(nao_ha_ficheiro, caminho);
    if (ficheiro.size() > maior_ficheiro) throw FotografiaRecusada(grande_demais, caminho);
    Provar(caminho);
    return caminho;
}

// Where pictures without a file of their own go: beside the database, with which they are kept.
QString Pasta_Das_Fotografias(Geral &geral)
{
    return QFileInfo(geral.de.Ficheiro()).absoluteDir().filePath(u"fotografias"_s);
}

// The names that are given here, and no other.
bool E_Nome_Dado(const QString &nome)
{
    static const QRegularExpression dados(u"^fotografia[1-9][0-9]*\\.png$"_s);
    return dados.match(nome).hasMatch();
}

// A new file, which nobody else can have made at the same time.
bool Abrir_Livre(QFile &ficheiro, const QDir &pasta)
{
    for (int i = 1; i < 1000000; ++i) {
        ficheiro.setFileName(pasta.filePath(u"fotografia%1.png"_s.arg(i)));
        if (ficheiro.open(QIODevice::WriteOnly | QIODevice::NewOnly)) return true;
        if (!ficheiro.exists()) return false;
    }
    return false;
}
} // namespace

QString FotografiaRecusada::Texto(const QString &lingua) const
{
    return translated(*palavras_, lingua) + u"\r\n\r\n"_s + sobre_;
}

bool Pode_Ser_Fotografia(const QMimeData &dados) { return dados.hasUrls() || dados.hasImage(); }

// A browser gives address and points: these are at hand.
QString FotografiaNova::Caminho(const QMimeData &dados)
{
    const QList<QUrl> urls = dados.urls();
    const bool ficheiro = !urls.isEmpty() && urls.constFirst().isLocalFile();
    if (!ficheiro && dados.hasImage()) return Guardar(qvariant_cast<QImage>(dados.imageData()));
    if (urls.isEmpty()) throw FotografiaRecusada(nao_e_imagem, {});
    return Ficheiro_Provado(urls.constFirst());
}

bool FotografiaNova::Feita_Aqui(const QString &caminho) const
{
    return guardadas_.contains(caminho) || sem_ficheiro_.contains(caminho);
}

QString FotografiaNova::De_Ficheiro(const QString &caminho)
{
    if (onde_ == Onde::Ficheiro) return caminho;
    QFile ficheiro(caminho);
    if (!ficheiro.open(QIODevice::ReadOnly)) throw FotografiaRecusada(nao_ha_ficheiro, caminho);
    if (ficheiro.size() > maior_ficheiro) throw FotografiaRecusada(grande_demais, caminho);
    return Por_Na_Mao(ficheiro.readAll(), caminho);
}

QString FotografiaNova::Por_Na_Mao(const QByteArray &bytes, const QString &de_onde)
{
    FotografiaParaABase pronta;
    onFailure([&] { pronta = Preparar_Para_A_Base(bytes); },
              [&](const Failure &) { throw FotografiaRecusada(nao_e_imagem, de_onde); });
    por_guardar_[pronta.nome] = pronta.bytes;
    return pronta.nome;
}

Picture FotografiaNova::Imagem(const QString &Fotografia) const
{
    const auto na_mao = por_guardar_.find(Fotografia);
    return na_mao == por_guardar_.end() ? Picture(Fotografia) : Picture(na_mao->second, Fotografia);
}

void FotografiaNova::Guardar_Na_Base(const QString &Fotografia)
{
    const auto na_mao = por_guardar_.find(Fotografia);
    if (na_mao != por_guardar_.end()) FotografiasDaBase(geral_.de).Guardar(Fotografia, na_mao->second);
}

QString FotografiaNova::Guardar(const QImage &imagem)
{
    if (imagem.isNull()) throw FotografiaRecusada(nao_e_imagem, {});
    if (onde_ == Onde::Ficheiro) return Guardar_Em_Ficheiro(imagem);
    QByteArray bytes;
    QBuffer ficheiro(&bytes);
    ficheiro.open(QIODevice::WriteOnly);
    imagem.save(&ficheiro, "PNG");
    sem_ficheiro_ << Por_Na_Mao(bytes, {});
    return sem_ficheiro_.constLast();
}

QString FotografiaNova::Guardar_Em_Ficheiro(const QImage &imagem)
{
    const QDir pasta(Pasta_Das_Fotografias(geral_));
    QFile ficheiro;
    if (!pasta.mkpath(u"."_s) || !Abrir_Livre(ficheiro, pasta))
        throw FotografiaRecusada(nao_guardada, pasta.path());
    const bool escrita = imagem.save(&ficheiro, "PNG") && ficheiro.flush();
    ficheiro.close();
    try {
        if (!escrita) throw FotografiaRecusada(nao_guardada, pasta.path());
        Provar(ficheiro.fileName()); // one that is too large to be read is no use
    } catch (const FotografiaRecusada &) {
        ficheiro.remove();
        throw;
    }
    guardadas_ << ficheiro.fileName();
    return ficheiro.fileName();
}

void FotografiaNova::Arrumar(const QString &ficou)
{
    for (const QString &ficheiro : std::exchange(guardadas_, {}))
        if (ficheiro != ficou) QFile::remove(ficheiro);
}

void FotografiaNova::Abandonar(const QString &caminho)
{
    if (onde_ == Onde::Base) return; // another desk's folder may have that name too
    const QFileInfo ficheiro(caminho);
    if (!E_Nome_Dado(ficheiro.fileName()) || ficheiro.path() != Pasta_Das_Fotografias(geral_)) return;
    Recordset &rs = geral_.de.Abrir("cmdProcurarFotografia", {caminho});
    const bool de_ninguem = rs.Eof();
    rs.Close();
    if (de_ninguem) QFile::remove(caminho);
}
