#include "ferramentas/Manual.h"

#include "data/Idiomas.h"
#include "data/Textos.h"
#include "platform/Failure.h"
#include "platform/Translations.h"

#include <array>
#include <cmark.h>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace
{
// The pages in the order of the source. The first one greets and lists the others.
constexpr std::array nomes{"index",
                           "primeiros-passos",
                           "contactos",
                           "grupos-e-utilizadores",
                           "lembretes",
                           "memos",
                           "correio-e-messenger",
                           "impressao",
                           "importar-e-exportar",
                           "copia-de-seguranca",
                           "varios-postos",
                           "perguntas",
                           "sugerir"};

constexpr Translations indice{u"Índice", u"Índice",   u"Contents", u"Índice",
                              u"Indice", u"Sommaire", u"Inhalt"};

// As browsers and screen readers name the languages, in the order of idiomas::todos.
constexpr std::array linguas{"pt-PT", "pt-BR", "en-GB", "es", "it", "fr", "de"};

struct Pagina {
    QString nome;
    QString titulo;
    QString texto; // Markdown
};

struct Manual {
    QString fonte;
    QString codigo; // of the language: its file and folder
    QString lingua;
    QString indice;
    QHash<QString, QString> legendas; // by number
    QList<Pagina> paginas;
};

[[noreturn]] void Falhar(const Manual &manual, const QString &que)
{
    throw Failure(Failure::StoreError, manual.codigo, u"%1.md: %2"_s.arg(manual.codigo, que));
}

QByteArray Ler(const QString &caminho)
{
    QFile ficheiro(caminho);
    if (!ficheiro.open(QIODevice::ReadOnly))
        throw Failure(Failure::FileNotFound, caminho, u"No such file: %1"_s.arg(caminho));
    return ficheiro.readAll();
}

void Escrever(const QString &caminho, const QString &texto)
{
    QFile ficheiro(caminho);
    const QByteArray bytes = texto.toUtf8();
    if (!ficheiro.open(QIODevice::WriteOnly) || ficheiro.write(bytes) != bytes.size() || !ficheiro.flush())
        throw Failure(Failure::StoreError, caminho, u"Cannot write %1"_s.arg(caminho));
}

// The name by which a person knows a control: without the mark of its key and the colon of a label.
QString Nome_Da_Legenda(QString texto)
{
    texto.remove(u'&');
    return texto.remove(QRegularExpression(u"[\\s\u00a0\u202f]*:?\\s*$"_s));
}

QHash<QString, QString> Legendas(const QList<QStringList> &textos, const QString &coluna)
{
    const auto lugar = textos.constFirst().indexOf(coluna);
    if (lugar < 0) throw Failure(Failure::StoreError, coluna, u"The texts have no column %1"_s.arg(coluna));
    QHash<QString, QString> legendas;
    for (const QStringList &linha : textos)
        legendas[linha[0]] = Nome_Da_Legenda(linha.value(lugar));
    return legendas;
}

// No sign of a caption means anything to Markdown.
QString Inofensivo(QString texto)
{
    return texto.replace(QRegularExpression(u"([!-/:-@[-`{-~])"_s), u"\\\\1"_s);
}

QString Referencia(const Manual &manual, const QString &nome)
{
    for (const Pagina &pagina : manual.paginas)
        if (pagina.nome == nome) return u"[%1](%2.html)"_s.arg(Inofensivo(pagina.titulo), nome);
    if (!manual.legendas.contains(nome)) Falhar(manual, u"there is no text or page {%1}"_s.arg(nome));
    return u"**%1**"_s.arg(Inofensivo(manual.legendas[nome]));
}

QString Sem_Referencias(const Manual &manual, const QString &texto)
{
    static const QRegularExpression referencia(u"\\{([^}]*)\\}"_s);
    QString resultado;
    qsizetype fim = 0;
    for (auto partes = referencia.globalMatch(texto); partes.hasNext();) {
        const auto parte = partes.next();
        resultado += texto.mid(fim, parte.capturedStart() - fim) + Referencia(manual, parte.captured(1));
        fim = parte.capturedEnd();
    }
    return resultado + texto.mid(fim);
}

// The source stands beside the pictures, its pages one folder below them.
void Ligar_Imagem(const Manual &manual, cmark_node *imagem)
{
    const QString caminho = QString::fromUtf8(cmark_node_get_url(imagem));
    if (!QFile::exists(manual.fonte + u'/' + caminho)) Falhar(manual, u"there is no picture "_s + caminho);
    cmark_node_set_url(imagem, ("../" + caminho.toUtf8()).constData());
}

QString Html(const Manual &manual, const QString &texto)
{
    const QByteArray bytes = Sem_Referencias(manual, texto).toUtf8();
    const std::unique_ptr<cmark_node, decltype(&cmark_node_free)> documento(
        cmark_parse_document(bytes.constData(), static_cast<std::size_t>(bytes.size()), CMARK_OPT_DEFAULT),
        cmark_node_free);
    const std::unique_ptr<cmark_iter, decltype(&cmark_iter_free)> partes(cmark_iter_new(documento.get()),
                                                                         cmark_iter_free);
    for (auto passo = cmark_iter_next(partes.get()); passo != CMARK_EVENT_DONE;
         passo = cmark_iter_next(partes.get())) {
        cmark_node *parte = cmark_iter_get_node(partes.get());
        if (passo == CMARK_EVENT_ENTER && cmark_node_get_type(parte) == CMARK_NODE_IMAGE)
            Ligar_Imagem(manual, parte);
    }
    const std::unique_ptr<char, decltype(&std::free)> html(
        cmark_render_html(documento.get(), CMARK_OPT_DEFAULT), std::free);
    return QString::fromUtf8(html.get());
}

QString Lista(const Manual &manual, const QString &aberta)
{
    QString lista;
    for (qsizetype i = 1; i < manual.paginas.size(); ++i) {
        const Pagina &pagina = manual.paginas[i];
        lista += u"<li><a href=\"%1.html\"%2>%3</a></li>\n"_s.arg(
            pagina.nome, pagina.nome == aberta ? u" aria-current=\"page\""_s : QString(),
            pagina.titulo.toHtmlEscaped());
    }
    return u"<nav aria-label=\"%1\">\n<ol>\n%2</ol>\n</nav>\n"_s.arg(manual.indice, lista);
}

QString Vizinha(const Manual &manual, qsizetype numero, const QString &relacao, const QString &forma)
{
    if (numero < 0 || numero >= manual.paginas.size()) return {};
    const Pagina &pagina = manual.paginas[numero];
    return u"<a rel=\"%1\" href=\"%2.html\">%3</a>\n"_s.arg(relacao, pagina.nome,
                                                            forma.arg(pagina.titulo.toHtmlEscaped()));
}

QString Folha(const Manual &manual, qsizetype numero)
{
    const Pagina &pagina = manual.paginas[numero];
    const QString nome = manual.paginas.constFirst().titulo.toHtmlEscaped();
    const QString titulo = pagina.titulo.toHtmlEscaped();
    return u"<!DOCTYPE html>\n<html lang=\"%1\">\n<head>\n<meta charset=\"utf-8\" />\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\" />\n"
           "<meta name=\"color-scheme\" content=\"light dark\" />\n<title>%2</title>\n"
           "<link rel=\"stylesheet\" href=\"../manual.css\" />\n</head>\n<body>\n"
           "<header><a href=\"index.html\">%3</a></header>\n<main>\n%4</main>\n%5<footer>\n%6%7</footer>\n"
           "</body>\n</html>\n"_s.arg(manual.lingua, numero == 0 ? titulo : titulo + u" – "_s + nome, nome,
                                      Html(manual, pagina.texto), Lista(manual, pagina.nome),
                                      Vizinha(manual, numero - 1, u"prev"_s, u"← %1"_s),
                                      Vizinha(manual, numero + 1, u"next"_s, u"%1 →"_s));
}

// A page begins at each heading of the first rank.
QList<Pagina> Paginas(const Manual &manual, const QString &texto)
{
    const QStringList partes = (u'\n' + texto).split(u"\n# "_s).mid(1);
    if (partes.size() != static_cast<qsizetype>(nomes.size()))
        Falhar(manual, u"%1 pages instead of %2"_s.arg(partes.size()).arg(nomes.size()));
    QList<Pagina> paginas;
    for (qsizetype i = 0; i < partes.size(); ++i)
        paginas << Pagina{QLatin1StringView(nomes[static_cast<std::size_t>(i)]),
                          partes[i].section(u'\n', 0, 0).trimmed(), u"# "_s + partes[i]};
    return paginas;
}

void Criar_Lingua(const Manual &manual, const QString &destino)
{
    QDir().mkpath(destino);
    for (qsizetype i = 0; i < manual.paginas.size(); ++i)
        Escrever(destino + u'/' + manual.paginas[i].nome + u".html"_s, Folha(manual, i));
}

void Criar_Tudo(const QString &fonte, const QString &caminhoDosTextos, const QString &destino)
{
    const QList<QStringList> textos = Ler_Textos(caminhoDosTextos);
    for (std::size_t i = 0; i < idiomas::todos.size(); ++i) {
        const QString coluna = QLatin1StringView(idiomas::todos[i].coluna);
        Manual manual{fonte,
                      QString::fromUtf16(idiomas::todos[i].ajuda),
                      QLatin1StringView(linguas[i]),
                      translated(indice, coluna),
                      Legendas(textos, coluna),
                      {}};
        manual.paginas = Paginas(manual, QString::fromUtf8(Ler(fonte + u'/' + manual.codigo + u".md"_s)));
        Criar_Lingua(manual, destino + u'/' + manual.codigo);
    }
    namespace fs = std::filesystem;
    const fs::path origem = fonte.toStdString();
    fs::copy(origem / "imagens", fs::path(destino.toStdString()) / "imagens", fs::copy_options::recursive);
    Escrever(destino + u"/manual.css"_s, QString::fromUtf8(Ler(fonte + u"/manual.css"_s)));
}
} // namespace

void manual::Criar(const QString &fonte, const QString &textos, const QString &destino)
{
    const QString novo = destino + u".novo"_s;
    QDir(novo).removeRecursively();
    try {
        Criar_Tudo(fonte, textos, novo);
        QDir(destino).removeRecursively();
        std::filesystem::rename(novo.toStdString(), destino.toStdString());
    } catch (...) {
        QDir(novo).removeRecursively();
        throw;
    }
}
