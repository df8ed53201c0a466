// Prints what the readers of foreign contact files make of them, a JSON object a file and line: to look at a
// file that somebody sends in, and to compare the readers with others. Usage: ler_cartoes json FILE…    cards
//        ler_cartoes csv FILE…     tables
#include "cards/ContactoDoCartao.h"
#include "csv/CsvReader.h"
#include "vcard/CardContent.h"
#include "vcard/CardReader.h"

#include <cstdio>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace
{
QJsonArray Entradas(const std::vector<CardEntry> &entradas, bool com_tipos)
{
    QJsonArray json;
    for (const CardEntry &entrada : entradas) {
        QJsonObject objecto{{u"value"_s, entrada.value}};
        if (com_tipos) objecto[u"types"_s] = QJsonArray::fromStringList(entrada.types);
        json << objecto;
    }
    return json;
}

QJsonArray Moradas(const std::vector<CardAddress> &moradas)
{
    QJsonArray json;
    for (const CardAddress &morada : moradas)
        json << QJsonArray{morada.box,    morada.extended, morada.street, morada.city,
                           morada.region, morada.code,     morada.country};
    return json;
}

QJsonArray Fotografias(const std::vector<CardPhoto> &fotografias)
{
    QJsonArray json;
    for (const CardPhoto &fotografia : fotografias) {
        if (fotografia.bytes.isEmpty()) {
            json << QJsonObject{{u"uri"_s, fotografia.uri}};
            continue;
        }
        const QByteArray soma = QCryptographicHash::hash(fotografia.bytes, QCryptographicHash::Sha1).toHex();
        json << QJsonObject{{u"bytes"_s, fotografia.bytes.size()}, {u"sha1"_s, QString::fromLatin1(soma)}};
    }
    return json;
}

// All columns of the contact that the card becomes. Labels are in English.
QJsonObject Colunas(const Card &cartao)
{
    const ColunasDoContacto colunas = ContactoDoCartao(u"InglesUK"_s).Ler(cartao).colunas;
    QJsonObject json;
    for (std::size_t i = 0; i < ColunasDoContacto::quantas; ++i)
        json[QString::fromLatin1(ColunasDoContacto::na_tabela[i])] = colunas.valores[i];
    return json;
}

QJsonObject Cartao(const Card &cartao)
{
    const CardContent conteudo = contentOf(cartao);
    QJsonObject json{{u"tel"_s, Entradas(conteudo.phones, true)},
                     {u"email"_s, Entradas(conteudo.emails, true)},
                     {u"url"_s, Entradas(conteudo.websites, false)},
                     {u"note"_s, Entradas(conteudo.notes, false)},
                     {u"adr"_s, Moradas(conteudo.addresses)},
                     {u"categories"_s, QJsonArray::fromStringList(conteudo.categories)},
                     {u"photo"_s, Fotografias(conteudo.photos)},
                     {u"columns"_s, Colunas(cartao)}};
    if (conteudo.formattedName) json[u"fn"_s] = *conteudo.formattedName;
    if (conteudo.uid) json[u"uid"_s] = *conteudo.uid;
    if (const auto &nome = conteudo.name)
        json[u"n"_s] = QJsonArray{nome->family, nome->given, nome->middle, nome->prefix, nome->suffix};
    return json;
}

QJsonObject Ficheiro_De_Cartoes(const QByteArray &bytes)
{
    const CardFile ficheiro = CardReader().read(bytes);
    QJsonArray cartoes;
    for (const Card &cartao : ficheiro.cards)
        cartoes << Cartao(cartao);
    QJsonArray faltas;
    for (const CardFault &falta : ficheiro.faults)
        faltas << QJsonObject{{u"line"_s, falta.line}, {u"kind"_s, static_cast<int>(falta.kind)}};
    return {{u"cards"_s, cartoes}, {u"faults"_s, faltas}};
}

QJsonObject Ficheiro_De_Tabela(const QByteArray &bytes)
{
    const CsvTable tabela = readCsv(bytes);
    QJsonArray linhas;
    for (const QStringList &linha : tabela.rows)
        linhas << QJsonArray::fromStringList(linha);
    return {{u"encoding"_s, QString::fromLatin1(tabela.encoding)},
            {u"delimiter"_s, QString(tabela.delimiter)},
            {u"header"_s, tabela.hasHeader},
            {u"cells"_s, linhas}};
}

void Imprimir(const QString &caminho, QJsonObject json)
{
    json[u"file"_s] = caminho;
    const QByteArray linha = QJsonDocument(json).toJson(QJsonDocument::Compact) + '\n';
    std::fwrite(linha.constData(), 1, static_cast<std::size_t>(linha.size()), stdout);
}
} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList argumentos = QCoreApplication::arguments();
    const QString que = argumentos.value(1);
    if (argumentos.size() < 3 || (que != u"json"_s && que != u"csv"_s)) {
        std::fputs("usage: ler_cartoes json|csv FILE...\n", stderr);
        return 2;
    }
    for (const QString &caminho : argumentos.sliced(2)) {
        QFile ficheiro(caminho);
        if (!ficheiro.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "ler_cartoes: %s cannot be read\n", qPrintable(caminho));
            return 1;
        }
        const QByteArray bytes = ficheiro.readAll();
        Imprimir(caminho, que == u"csv"_s ? Ficheiro_De_Tabela(bytes) : Ficheiro_De_Cartoes(bytes));
    }
}
