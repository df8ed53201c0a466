// The files that reports are written to: workbooks as a library that is not ours reads them, texts and
// documents by what they say.
#include "platform/Failure.h"
#include "report/ReportControl.h"
#include "report/ReportExport.h"
#include "report/writers/ColumnWidths.h"
#include "report/writers/OfficeFont.h"
#include "report/writers/TextWidth.h"
#include "testlib/FalhaDita.h"
#include "testlib/SemPrivilegios.h"
#include "testlib/Teste.h"

#include <cmath>
#include <freexl.h>
#include <QFontMetricsF>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtMath>

using namespace Qt::StringLiterals;

namespace
{
struct Pasta {
    QString Escrever(int tipo, const ReportRows &rows)
    {
        const QString ficheiro = pasta.filePath(u"saida"_s);
        exportReport(tipo, rows, ficheiro);
        return ficheiro;
    }
    QByteArray Bytes(int tipo, const ReportRows &rows)
    {
        QFile ficheiro(Escrever(tipo, rows));
        return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.readAll() : QByteArray();
    }
    QTemporaryDir pasta;
};

// A workbook as freexl sees it.
class Livro
{
public:
    explicit Livro(const ReportRows &rows)
    {
        const QByteArray ficheiro = pasta_.Escrever(ReportControl::Spreadsheet, rows).toLocal8Bit();
        Certo(freexl_open(ficheiro.constData(), &livro_));
        Folha(0);
    }
    ~Livro() { freexl_close(livro_); }
    Livro(const Livro &) = delete;
    Livro &operator=(const Livro &) = delete;

    void Folha(unsigned short numero)
    {
        Certo(freexl_select_active_worksheet(livro_, numero));
        Certo(freexl_worksheet_dimensions(livro_, &linhas, &colunas));
    }

    // The text of a cell; "<nada>" for an empty one, "<outro>" for a number or a date.
    QString Celula(unsigned linha, unsigned short coluna) const
    {
        FreeXL_CellValue celula;
        Certo(freexl_get_cell_value(livro_, linha, coluna, &celula));
        switch (celula.type) {
        case FREEXL_CELL_NULL:
            return u"<nada>"_s;
        case FREEXL_CELL_TEXT:
        case FREEXL_CELL_SST_TEXT:
            return QString::fromUtf8(celula.value.text_value);
        default:
            return u"<outro>"_s;
        }
    }

    unsigned Informacao(unsigned short qual) const
    {
        unsigned valor = 0;
        Certo(freexl_get_info(livro_, qual, &valor));
        return valor;
    }

    QString Nome(unsigned short folha) const
    {
        const char *nome = nullptr;
        Certo(freexl_get_worksheet_name(livro_, folha, &nome));
        return QString::fromUtf8(nome);
    }

    // Heads and records, cell by cell.
    void Comparar(const ReportRows &rows) const
    {
        QCOMPARE(linhas, static_cast<unsigned>(rows.records.size() + 1));
        QCOMPARE(colunas, static_cast<unsigned short>(rows.heads.size()));
        for (unsigned short c = 0; c < colunas; ++c)
            QCOMPARE(Celula(0, c), rows.heads[c]);
        for (unsigned l = 1; l < linhas; ++l)
            for (unsigned short c = 0; c < colunas; ++c) {
                const QString &dado = rows.records[l - 1][c];
                QCOMPARE(Celula(l, c), dado.isEmpty() ? u"<nada>"_s : dado);
            }
    }

    unsigned linhas = 0;
    unsigned short colunas = 0;

private:
    static void Certo(int resultado)
    {
        if (resultado != FREEXL_OK)
            QTest::qFail(qPrintable(u"freexl says %1"_s.arg(resultado)), __FILE__, __LINE__);
    }

    Pasta pasta_;
    const void *livro_ = nullptr;
};

// The same by xlrd, for texts over three records and more, where freexl loses its way: the rows below the
// heads.
QStringList Primeira_Coluna_Pelo_Xlrd(const ReportRows &rows)
{
    Pasta pasta;
    const QString programa = u"import json, sys, xlrd\n"
                             "folha = xlrd.open_workbook(sys.argv[1]).sheet_by_index(0)\n"
                             "print(json.dumps(folha.col_values(0, 1)))"_s;
    QProcess python;
    python.start(u"/usr/bin/python3"_s,
                 {u"-c"_s, programa, pasta.Escrever(ReportControl::Spreadsheet, rows)});
    if (!python.waitForFinished() || python.exitCode() != 0)
        return {QString::fromUtf8(python.readAllStandardError())};
    QStringList celulas;
    for (const QJsonValue &celula : QJsonDocument::fromJson(python.readAllStandardOutput()).array())
        celulas << celula.toString();
    return celulas;
}

// The records of a workbook's stream, which begins behind the file's first sector and lies in one piece.
struct Registo {
    int numero = 0;
    QByteArray corpo;
    int Palavra(int lugar) const { return qFromLittleEndian<quint16>(corpo.constData() + 2 * lugar); }
};
QList<Registo> Registos(const QByteArray &livro)
{
    QList<Registo> registos;
    for (qsizetype i = 512; i + 4 <= livro.size();) {
        const int numero = qFromLittleEndian<quint16>(livro.constData() + i);
        const int tamanho = qFromLittleEndian<quint16>(livro.constData() + i + 2);
        if (numero == 0) break;
        registos << Registo{numero, livro.mid(i + 4, tamanho)};
        i += 4 + tamanho;
    }
    return registos;
}
QList<Registo> Registos(const QByteArray &livro, int so_estes)
{
    QList<Registo> registos = Registos(livro);
    registos.removeIf([so_estes](const Registo &registo) { return registo.numero != so_estes; });
    return registos;
}
// Of each row of the first sheet, heads first, in twips.
QList<int> Alturas(const ReportRows &rows)
{
    QList<int> alturas;
    for (const Registo &linha : Registos(Pasta().Bytes(ReportControl::Spreadsheet, rows), 0x208))
        if (linha.Palavra(0) == alturas.size()) alturas << linha.Palavra(3);
    return alturas;
}
// Of each column, in noughts.
QList<double> Colunas(const ReportRows &rows)
{
    QList<double> larguras;
    for (const Registo &coluna : Registos(Pasta().Bytes(ReportControl::Spreadsheet, rows), 0x7D))
        larguras << coluna.Palavra(2) / 256.0;
    return larguras;
}

QByteArray Hex(const char *bytes) { return QByteArray::fromHex(bytes); }

QStringList Primeira_Coluna(const ReportRows &rows)
{
    QStringList celulas;
    for (const auto &registo : rows.records)
        celulas << registo.front();
    return celulas;
}

// What a document says: paragraphs by line feeds, lines within them and tabs as they are. Groups of the page
// (fonts, header, footer) only where they are asked for by name.
class Leitor
{
public:
    explicit Leitor(QByteArray documento, QByteArray grupo = {})
        : documento_(std::move(documento)), grupo_(std::move(grupo))
    {
        Grupo(grupo_.isEmpty());
    }
    QString texto;
    int profundidade = 0; // zero for a document whose braces match

private:
    void Grupo(bool ouvir)
    {
        while (i_ < documento_.size()) {
            const char c = documento_[i_++];
            if (c == '{') {
                ++profundidade;
                const bool da_pagina = Comeca("\\fonttbl") || Comeca("\\header") || Comeca("\\footer");
                Grupo(da_pagina ? !grupo_.isEmpty() && Comeca(grupo_) : ouvir);
            } else if (c == '}') {
                --profundidade;
                return;
            } else if (c == '\\') {
                Palavra(ouvir);
            } else if (c != '\n' && ouvir) {
                texto += QLatin1Char(c);
            }
        }
    }
    bool Comeca(const QByteArray &palavra) const { return documento_.sliced(i_).startsWith(palavra); }

    void Palavra(bool ouvir)
    {
        static const QRegularExpression palavra(u"\\G(?:'([0-9a-f]{2})|([a-z]+)(-?[0-9]+)? ?|(.))"_s);
        const auto achada = palavra.match(QString::fromLatin1(documento_.mid(i_, 40)));
        i_ += achada.capturedLength();
        const QString nome = achada.captured(2);
        QString dito = achada.captured(4);
        if (!achada.captured(1).isEmpty()) dito = QChar(achada.captured(1).toInt(nullptr, 16));
        if (nome == u"par") dito = u"\n"_s;
        if (nome == u"line") dito = u"\n"_s;
        if (nome == u"tab") dito = u"\t"_s;
        if (nome == u"u") {
            dito = QChar(static_cast<char16_t>(achada.captured(3).toInt()));
            ++i_; // the letter for those who do not know it
        }
        if (ouvir) texto += dito;
    }

    QByteArray documento_, grupo_;
    qsizetype i_ = 0;
};

// The stops of all paragraphs of a document, in twips.
QList<int> Tabuladores(const QByteArray &documento)
{
    static const QRegularExpression lugar(u"\\\\tx([0-9]+)"_s);
    QList<int> lugares;
    for (const auto &achado : lugar.globalMatch(QString::fromLatin1(documento)))
        lugares << achado.captured(1).toInt();
    return lugares;
}

// What a document of upright pages begins with.
const QByteArray de_pe("{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0{\\fonttbl{\\f0\\fswiss Arial;}}\n"
                       "\\paperw11906\\paperh16838\\margl1134\\margr1134\\margt1134\\margb1134\n"
                       "{\\footer\\pard\\plain\\f0\\fs16\\qc\\chpgn\\par}\n");

// In twips, of a text in the document's font.
double Largura(const QString &texto, bool gorda)
{
    QFont letra = officeFont(9, gorda ? QFont::Bold : QFont::Normal);
    letra.setKerning(false); // the document has none either
    return QFontMetricsF(letra).horizontalAdvance(texto);
}

// A word as wide as that, or as little less as its letters can be put together.
QString Palavra_De(const TextMeasure &medida, double largura)
{
    const auto cabem = [&](double resta, QStringView letra) { return qFloor(resta / medida.width(letra)); };
    QString melhor;
    for (int n = cabem(largura, u"n"); n >= 0; --n) {
        const double sem_n = largura - n * medida.width(u"n");
        for (int mais = cabem(sem_n, u"+"); mais >= 0; --mais) {
            const double sem_mais = sem_n - mais * medida.width(u"+");
            for (int barras = cabem(sem_mais, u"|"); barras >= 0; --barras) {
                const int i = cabem(sem_mais - barras * medida.width(u"|"), u"i");
                const QString outra =
                    QString(n, u'n') + QString(mais, u'+') + QString(barras, u'|') + QString(i, u'i');
                if (medida.width(outra) > medida.width(melhor)) melhor = outra;
            }
        }
    }
    return melhor;
}

const QStringList escritas{u"Άννα Παπαδοπούλου"_s, u"Дмитрий Ёлкин"_s, u"王小明"_s,
                           u"Zoë Ångström"_s,      u"יעל"_s,           u"😀 Abel"_s};

ReportRows Nomes()
{
    ReportRows rows{u"Lista telefónica"_s, {u"Nome"_s, u"Telefone 1"_s}, {}, {}};
    for (const QString &nome : escritas)
        rows.records.push_back({nome, u"00351 219"_s});
    rows.records.push_back({u"Sem telefone"_s, {}});
    return rows;
}

// A text of that many letters without two equal neighbours, so that a slip of one place shows.
QString Letras(qsizetype quantas, bool largas, int semente = 0)
{
    QString texto;
    for (qsizetype i = 0; i < quantas; ++i)
        texto += QChar(static_cast<char16_t>((largas ? 0x410 : u'a') + (i * 7 + i / 26 + semente) % 26));
    return texto;
}

QString Nota(qsizetype letras)
{
    QString nota;
    for (int i = 0; nota.size() < letras; ++i)
        nota += u"palavra%1 "_s.arg(i);
    return nota.left(letras);
}

QStringList Linhas_Do_Texto(QByteArray bytes)
{
    if (!bytes.startsWith("\xEF\xBB\xBF")) return {u"no mark"_s};
    const QString texto = QString::fromUtf8(bytes.sliced(3));
    QString sem_fins = texto;
    if (sem_fins.remove(u"\r\n"_s).contains(u'\n')) return {u"lone line feed"_s};
    QStringList linhas = texto.split(u"\r\n"_s);
    linhas.removeLast();
    return linhas;
}
} // namespace

class TestReportExport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_folha_tem_cada_celula_em_todas_as_escritas_e_os_telefones_como_texto()
    {
        const Livro livro(Nomes());
        livro.Comparar(Nomes());
        QCOMPARE(livro.Informacao(FREEXL_BIFF_VERSION), unsigned{FREEXL_BIFF_VER_8});
        QCOMPARE(livro.Informacao(FREEXL_BIFF_SHEET_COUNT), 1u);
    }

    void a_folha_tem_o_nome_do_relatorio_sem_o_que_um_nome_nao_pode_ter()
    {
        ReportRows rows = Nomes();
        QCOMPARE(Livro(rows).Nome(0), u"Lista telefónica"_s);
        rows.title = u"A/B: [lista]? "_s + QString(40, u'x');
        QCOMPARE(Livro(rows).Nome(0), u"A B lista "_s + QString(21, u'x'));
        rows.title.clear();
        QCOMPARE(Livro(rows).Nome(0), u"1"_s);
    }

    void sem_registos_ficam_os_titulos_das_colunas()
    {
        ReportRows rows = Nomes();
        rows.records.clear();
        Livro(rows).Comparar(rows);
    }

    void um_texto_repetido_guarda_se_uma_vez()
    {
        ReportRows rows{u"x"_s, {u"A"_s}, {}, {}};
        for (int i = 0; i < 50; ++i)
            rows.records.push_back({i % 2 == 0 ? u"par"_s : u"impar"_s});
        const Livro livro(rows);
        QCOMPARE(livro.Informacao(FREEXL_BIFF_STRING_COUNT), 3u);
        livro.Comparar(rows);
    }

    // The first text moves the border of the record over the whole of the one that follows it.
    void textos_sobre_o_limite_dos_registos_voltam_inteiros_data()
    {
        QTest::addColumn<bool>("primeiro_largo");
        QTest::addColumn<bool>("segundo_largo");
        QTest::newRow("estreito, estreito") << false << false;
        QTest::newRow("estreito, largo") << false << true;
        QTest::newRow("largo, estreito") << true << false;
        QTest::newRow("largo, largo") << true << true;
    }
    void textos_sobre_o_limite_dos_registos_voltam_inteiros()
    {
        QFETCH(bool, primeiro_largo);
        QFETCH(bool, segundo_largo);
        constexpr int registo = 8224;
        const int letras = primeiro_largo ? registo / 2 : registo;
        for (int a_menos = -1; a_menos < 8; ++a_menos) {
            const ReportRows rows{u"x"_s,
                                  {u"A"_s},
                                  {},
                                  {{Letras(letras - a_menos, primeiro_largo)},
                                   {Letras(9, segundo_largo, 3)},
                                   {Letras(20000, segundo_largo, 5)},
                                   {u"fim"_s}}};
            QCOMPARE(Primeira_Coluna_Pelo_Xlrd(rows), Primeira_Coluna(rows));
        }
    }

    void muitos_textos_longos_misturados_voltam_inteiros()
    {
        ReportRows rows{u"x"_s, {u"A"_s}, {}, {}};
        for (int i = 0; i < 300; ++i)
            rows.records.push_back({Letras(1 + i * 97 % 20011, i % 3 == 0, i)});
        QCOMPARE(Primeira_Coluna_Pelo_Xlrd(rows), Primeira_Coluna(rows));
    }

    void muitos_textos_curtos_misturados_enchem_muitos_registos()
    {
        ReportRows rows{u"x"_s, {u"A"_s, u"B"_s}, {}, {}};
        for (int i = 0; i < 3000; ++i)
            rows.records.push_back(
                {Letras(1 + i % 991, i % 3 == 0, i), Letras(1 + i * 31 % 777, i % 2 == 0, i)});
        Livro(rows).Comparar(rows);
    }

    void uma_nota_de_100_KB_acaba_em_reticencias_onde_a_celula_acaba()
    {
        const QString nota = Nota(100'000);
        const ReportRows rows{u"x"_s, {u"Nota"_s}, {}, {{nota}, {nota.left(32767)}, {u"fim"_s}}};
        QCOMPARE(Primeira_Coluna_Pelo_Xlrd(rows),
                 (QStringList{nota.left(32766) + u'…', nota.left(32767), u"fim"_s}));
    }

    void o_corte_de_uma_nota_nao_parte_uma_letra_ao_meio()
    {
        const QString inicio = Nota(32765);
        const ReportRows rows{u"x"_s, {u"Nota"_s}, {}, {{inicio + u"😀😀😀"_s}}};
        QCOMPARE(Primeira_Coluna_Pelo_Xlrd(rows), QStringList{inicio + u'…'});
    }

    void uma_morada_mantem_as_suas_linhas()
    {
        const ReportRows rows{u"x"_s, {u"Morada"_s}, {}, {{u"Rua Direita 5\n1000-001 Lisboa"_s}}};
        Livro(rows).Comparar(rows);
    }

    // Above 7 MB the file needs an overflow list of its allocation table.
    void com_32767_registos_de_17_colunas_cada_celula_esta_no_seu_lugar()
    {
        ReportRows rows{u"x"_s, {}, {}, {}};
        for (int c = 0; c < 17; ++c)
            rows.heads << u"Coluna %1"_s.arg(c);
        for (int i = 0; i < 32767; ++i) {
            std::vector<QString> registo;
            for (int c = 0; c < 17; ++c)
                registo.push_back(u"%1.%2 телефон"_s.arg(i).arg(c));
            rows.records.push_back(std::move(registo));
        }
        Livro(rows).Comparar(rows);
    }

    void os_registos_que_nao_cabem_numa_folha_seguem_noutra()
    {
        ReportRows rows{QString(40, u'x'), {u"Nome"_s}, {}, {}};
        for (int i = 0; i < 65536; ++i)
            rows.records.push_back({QString::number(i)});
        Livro livro(rows);
        QCOMPARE(livro.linhas, 65536u);
        QCOMPARE(livro.Celula(65535, 0), u"65534"_s);
        livro.Folha(1);
        QCOMPARE(livro.linhas, 2u);
        QCOMPARE(livro.Celula(0, 0), u"Nome"_s);
        QCOMPARE(livro.Celula(1, 0), u"65535"_s);
        QCOMPARE(livro.Nome(0), QString(31, u'x'));
        QCOMPARE(livro.Nome(1), QString(27, u'x') + u" (2)"_s);
    }

    // Of a workbook so small that its stream has the least length that a stream may have: eight sectors, then
    // the directory, then the allocation table.
    void o_livro_comeca_pelos_bytes_do_formato()
    {
        const QByteArray livro = Pasta().Bytes(ReportControl::Spreadsheet, {u"x"_s, {u"A"_s}, {}, {}});
        QByteArray cabeca =
            Hex("d0cf11e0a1b11ae1") + QByteArray(16, '\0') + Hex("3e00 0300 feff 0900 0600") +
            QByteArray(10, '\0') +
            Hex("01000000 08000000 00000000 00100000 feffffff 00000000 feffffff 00000000 09000000");
        cabeca.append(512 - cabeca.size(), '\xff');
        QCOMPARE(livro.first(512).toHex(' '), cabeca.toHex(' '));

        const QByteArray inicio = Hex("0908 1000 0006 0500 bb0d cc07 41000000 06000000"
                                      "4200 0200 b004"
                                      "3d00 1200 0000 0000 5c3a be23 3800 0000 0000 0100 5802");
        const QByteArray letra =
            Hex("3100 1a00 c800 0000 ff7f 9001 0000 00 00 00 00 05 01 4100 7200 6900 6100 6c00");
        const QByteArray gorda =
            Hex("3100 1a00 c800 0000 ff7f bc02 0000 00 00 00 00 05 01 4100 7200 6900 6100 6c00");
        const auto formato = [](const char *inicio_dele) {
            return Hex("e000 1400") + Hex(inicio_dele) + QByteArray(8, '\0') + Hex("c020");
        };
        const QByteArray formatos =
            formato("0000 0000 f5ff 20 00 00 00") + formato("0000 0000 f5ff 20 00 00 f4").repeated(14) +
            formato("0000 0000 0100 20 00 00 00") + formato("0000 3100 0100 00 00 00 14") +
            formato("0000 3100 0100 08 00 00 14") + formato("0500 3100 0100 00 00 00 1c") +
            Hex("9302 0400 0080 00ff");
        const QByteArray todos = inicio + letra.repeated(4) + gorda + formatos;
        QCOMPARE(livro.mid(512, todos.size()).toHex(' '), todos.toHex(' '));

        const QByteArray folha = livro.mid(512 + todos.size());
        QVERIFY(folha.startsWith(Hex("8500 0a00")));
        const auto lugar = qFromLittleEndian<quint32>(folha.constData() + 4);
        QCOMPARE(folha.mid(8, 6).toHex(' '), Hex("0000 01 01 7800").toHex(' '));
        QCOMPARE(livro.mid(512 + lugar, 20).toHex(' '),
                 Hex("0908 1000 0006 1000 bb0d cc07 41000000 06000000").toHex(' '));
    }

    void o_livro_tem_a_sua_pasta_e_a_sua_tabela_onde_o_inicio_diz()
    {
        const QByteArray livro = Pasta().Bytes(ReportControl::Spreadsheet, {u"x"_s, {u"A"_s}, {}, {}});
        QCOMPARE(livro.size(), 11 * 512);
        const auto nome = [](const char *letras) {
            QByteArray largo;
            for (const char *letra = letras; *letra; ++letra)
                largo.append(*letra).append('\0');
            return largo.append(64 - largo.size(), '\0');
        };
        const QByteArray nada(36, '\0');
        const QByteArray pasta = nome("Root Entry") + Hex("1600 05 01 ffffffff ffffffff 01000000") + nada +
                                 Hex("feffffff 00000000 00000000") + nome("Workbook") +
                                 Hex("1200 02 01 ffffffff ffffffff ffffffff") + nada +
                                 Hex("00000000 00100000 00000000");
        const QByteArray vazia =
            nome("") + Hex("0000 00 01 ffffffff ffffffff ffffffff") + nada + Hex("00000000 00000000 00000000");
        QCOMPARE(livro.mid(9 * 512, 512).toHex(' '), (pasta + vazia + vazia).toHex(' '));
        QByteArray tabela =
            Hex("01000000 02000000 03000000 04000000 05000000 06000000 07000000 feffffff feffffff fdffffff");
        tabela.append(512 - tabela.size(), '\xff');
        QCOMPARE(livro.last(512).toHex(' '), tabela.toHex(' '));
    }

    void cada_linha_e_tao_alta_como_a_sua_celula_de_mais_linhas()
    {
        const ReportRows rows{u"x"_s,
                              {u"Nome"_s, u"Morada"_s, u"Nota"_s},
                              {},
                              {{u"Abel"_s, u"Rua 5\n1000-001 Lisboa\nPortugal"_s, u"curta"_s},
                               {u"Berta"_s, {}, u"curta"_s},
                               {u"Carlos"_s, {}, Nota(200)},
                               {u"Dora"_s, {}, Nota(5'000)}}};
        const QList<int> alturas = Alturas(rows);
        QCOMPARE(alturas.size(), 5);
        QCOMPARE(alturas.first(3), (QList<int>{255, 3 * 255, 255}));
        QVERIFY(alturas[3] >= 2 * 255 && alturas[3] <= 3 * 255); // 200 letters at some 78 noughts
        QCOMPARE(alturas[4], 8190);                              // the format knows no higher one
        const auto linhas = Registos(Pasta().Bytes(ReportControl::Spreadsheet, rows), 0x208);
        QCOMPARE(linhas[1].Palavra(6), 0x140); // its own height
        QCOMPARE(linhas[2].Palavra(6), 0x100); // the usual one
        Livro(rows).Comparar(rows);
    }

    void a_folha_diz_quantas_linhas_e_colunas_tem_a_contar_da_primeira()
    {
        const ReportRows rows{u"x"_s, {u"A"_s, u"B"_s}, {}, {{u"a"_s, u"b"_s}, {u"c"_s, u"d"_s}}};
        QCOMPARE(Registos(Pasta().Bytes(ReportControl::Spreadsheet, rows), 0x200).value(0).corpo.toHex(),
                 "0000000003000000000002000000");
    }

    void com_muitas_linhas_cada_uma_tem_a_sua_altura_antes_das_suas_celulas()
    {
        ReportRows rows{u"x"_s, {u"A"_s}, {}, {}};
        QList<int> esperadas{255};
        for (int i = 0; i < 100; ++i) {
            rows.records.push_back({i % 3 == 0 ? u"a\nb"_s : u"a"_s});
            esperadas << (i % 3 == 0 ? 510 : 255);
        }
        QCOMPARE(Alturas(rows), esperadas);
        Livro(rows).Comparar(rows);
    }

    void cada_coluna_e_tao_larga_como_o_que_tem_ate_uma_medida_em_que_o_texto_muda_de_linha()
    {
        const QString largo = u"WANDA MUMMENDEY-WINKELMANN"_s;
        const ReportRows rows{
            u"x"_s,
            {u"Nome"_s, u"Fax"_s, QString(36, u'n'), u"Nota"_s},
            {},
            {{largo, u"1"_s, {}, Nota(200)}, {u"iiiiiiiiiiiiiiiiiiiiiiiiii"_s, {}, {}, {}}}};
        const QFontMetricsF letra(officeFont(10, QFont::Normal)), gorda(officeFont(10, QFont::Bold));
        const double nada = letra.horizontalAdvance(u'0');
        const QList<double> colunas = Colunas(rows);
        QCOMPARE(colunas.size(), 4);
        QVERIFY(colunas[0] >
                letra.horizontalAdvance(largo) / nada + 0.7); // five of seven dots lie around a text
        QVERIFY(colunas[0] < letra.horizontalAdvance(largo) / nada + 3);
        QCOMPARE(colunas[1], 9.5);
        QVERIFY(colunas[2] > gorda.horizontalAdvance(rows.heads[2]) / nada + 0.7);
        QCOMPARE(colunas[3], 40.0);
        QCOMPARE(Colunas({u"x"_s, {u"Nota"_s}, {}, {{Nota(10'000)}}}), QList<double>{80});
        const QList<double> media = Colunas({u"x"_s, {u"Nota"_s}, {}, {{Nota(600)}}});
        QVERIFY(media.value(0) > 45 && media.value(0) < 75);
    }

    void impressas_todas_as_colunas_ficam_numa_pagina_de_largo()
    {
        ReportRows rows{u"x"_s, {u"A"_s}, {}, {{u"a"_s}}};
        QByteArray livro = Pasta().Bytes(ReportControl::Spreadsheet, rows);
        QCOMPARE(Registos(livro, 0x81).value(0).corpo.toHex(' '), "c1 05");
        QCOMPARE(
            Registos(livro, 0xA1).value(0).corpo.toHex(' '),
            Hex("0900 6400 0100 0100 0000 0200 5802 5802 333333333333d33f 333333333333d33f 0100").toHex(' '));
        QCOMPARE(Registos(livro, 0x15).value(0).corpo, Hex("090000") + "&C&P / &N");
        for (const int margem : {0x26, 0x27})
            QCOMPARE(Registos(livro, margem).value(0).corpo.toHex(), "000000000000e03f");
        for (const int margem : {0x28, 0x29})
            QCOMPARE(Registos(livro, margem).value(0).corpo.toHex(), "000000000000e83f");
        for (int i = 0; i < 12; ++i) {
            rows.heads << u"B"_s;
            rows.records.front().push_back(u"+351 912 345 678"_s);
        }
        livro = Pasta().Bytes(ReportControl::Spreadsheet, rows);
        QCOMPARE(Registos(livro, 0xA1).value(0).Palavra(5), 0); // lengthwise
    }

    void as_cabecas_ficam_onde_estao_quando_os_registos_andam()
    {
        const ReportRows rows{u"x"_s, {u"A"_s}, {}, {{u"a"_s}}};
        const QByteArray livro = Pasta().Bytes(ReportControl::Spreadsheet, rows);
        QCOMPARE(Registos(livro, 0x23E).value(0).corpo.toHex(' '),
                 Hex("be07 0000 0000 4000 0000 0000 0000 0000 0000").toHex(' '));
        QCOMPARE(Registos(livro, 0x41).value(0).corpo.toHex(' '),
                 Hex("0000 0100 0100 0000 02 00").toHex(' '));
        QCOMPARE(Registos(livro, 0x1D).value(0).corpo.toHex(' '),
                 Hex("02 0100 0000 0000 0100 0100 0100 00 00").toHex(' '));
    }

    void a_largura_de_uma_coluna_e_so_dela_e_nada_mais_muda_nela()
    {
        const ReportRows rows{u"x"_s, {u"A"_s, u"B"_s}, {}, {{u"a"_s, u"b"_s}}};
        const auto colunas = Registos(Pasta().Bytes(ReportControl::Spreadsheet, rows), 0x7D);
        QCOMPARE(colunas.size(), 2);
        QCOMPARE(colunas[0].corpo.first(4).toHex(' '), Hex("0000 0000").toHex(' '));
        QCOMPARE(colunas[1].corpo.first(4).toHex(' '), Hex("0100 0100").toHex(' '));
        for (const Registo &coluna : colunas) // the format of its cells; nothing hidden; the end
            QCOMPARE(coluna.corpo.mid(6).toHex(' '), Hex("0f00 0000 0000").toHex(' '));
    }

    void impressas_as_cabecas_voltam_em_cada_pagina()
    {
        ReportRows rows{u"Lista"_s, {u"Nome"_s}, {}, {}};
        for (int i = 0; i < 65536; ++i)
            rows.records.push_back({u"a"_s});
        const QByteArray livro = Pasta().Bytes(ReportControl::Spreadsheet, rows);
        QCOMPARE(Registos(livro, 0x1AE).value(0).corpo.toHex(), "02000104");
        QCOMPARE(Registos(livro, 0x17).value(0).corpo.toHex(), "0200000000000000000001000100");
        const auto janelas = Registos(livro, 0x23E);
        QCOMPARE(janelas.value(0).Palavra(0), 0x7BE); // in front
        QCOMPARE(janelas.value(1).Palavra(0), 0x1BE);
        const auto nomes = Registos(livro, 0x18);
        QCOMPARE(nomes.size(), 2);
        QCOMPARE(nomes[0].corpo.toHex(' '),
                 Hex("2000 00 01 0b00 0000 0100 00000000 00 07 3b 0000 0000 0000 0000 ff00").toHex(' '));
        QCOMPARE(nomes[1].corpo.toHex(' '),
                 Hex("2000 00 01 0b00 0000 0200 00000000 00 07 3b 0100 0000 0000 0000 ff00").toHex(' '));
    }

    void o_texto_tem_titulo_cabecas_e_colunas_alinhadas()
    {
        const ReportRows rows{
            u"Lista"_s, {u"Nome"_s, u"Telefone"_s}, {}, {{u"Abel Antunes"_s, u"219"_s}, {u"Berta"_s, {}}}};
        QCOMPARE(Linhas_Do_Texto(Pasta().Bytes(ReportControl::Text, rows)),
                 (QStringList{u"Lista"_s,
                              {},
                              u"Nome          Telefone"_s,
                              u"------------  --------"_s,
                              u"Abel Antunes  219"_s,
                              u"Berta"_s}));
    }

    void no_texto_a_segunda_coluna_alinha_em_todas_as_escritas()
    {
        const QStringList linhas = Linhas_Do_Texto(Pasta().Bytes(ReportControl::Text, Nomes()));
        QCOMPARE(linhas.size(), 4 + escritas.size() + 1);
        for (qsizetype i = 0; i < escritas.size(); ++i) {
            const qsizetype telefone = linhas[4 + i].indexOf(u"00351");
            QVERIFY(linhas[4 + i].startsWith(escritas[i]));
            QCOMPARE(textWidth(linhas[4 + i].left(telefone)), 19); // the Greek name and a gap of two
        }
    }

    void no_texto_sem_registos_ficam_as_cabecas()
    {
        const ReportRows rows{{}, {u"Nome"_s}, {}, {}};
        QCOMPARE(Linhas_Do_Texto(Pasta().Bytes(ReportControl::Text, rows)),
                 (QStringList{u"Nome"_s, u"----"_s}));
    }

    void no_texto_uma_nota_de_100_KB_continua_na_sua_coluna_e_nada_se_perde()
    {
        const QString nota = Nota(100'000);
        const QStringList linhas = Linhas_Do_Texto(Pasta().Bytes(
            ReportControl::Text, {{}, {u"Nome"_s, u"Nota"_s, u"Fax"_s}, {}, {{u"Abel"_s, nota, u"7"_s}}}));
        QStringList coluna;
        for (const QString &linha : linhas.sliced(2)) {
            QVERIFY(linha.startsWith(coluna.isEmpty() ? u"Abel  "_s : u"      "_s));
            coluna << linha.sliced(6);
        }
        QCOMPARE(coluna.first().last(1), u"7"_s);
        coluna.first().chop(1);
        QCOMPARE(coluna.join(u' ').simplified(), nota.simplified());
    }

    void no_texto_as_linhas_de_uma_morada_ficam_uma_sob_a_outra()
    {
        const ReportRows rows{{}, {u"Nome"_s, u"Morada"_s}, {}, {{u"Abel"_s, u"Rua Direita 5\nLisboa"_s}}};
        QCOMPARE(Linhas_Do_Texto(Pasta().Bytes(ReportControl::Text, rows)).sliced(2),
                 (QStringList{u"Abel  Rua Direita 5"_s, u"      Lisboa"_s}));
    }

    void no_texto_uma_celula_que_continua_nao_empurra_as_colunas_seguintes()
    {
        const QString nome =
            QString(58, u'n') + u" e mais alguns  apelidos "_s + QString(50, u'm') + u"   fim"_s;
        const QStringList linhas = Linhas_Do_Texto(Pasta().Bytes(
            ReportControl::Text, {{}, {u"Nome"_s, u"Telefone"_s}, {}, {{nome, u"219\n220\n221\n222"_s}}}));
        QCOMPARE(linhas.size(), 6);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(linhas[2 + i].indexOf(QString::number(219 + i)), 62);
        QString palavras;
        for (const QString &linha : linhas.sliced(2))
            palavras += linha.left(60).trimmed() + u' ';
        QCOMPARE(palavras.simplified(), nome.simplified());
    }

    void no_texto_a_coluna_mais_larga_cede_ate_a_lista_caber_num_ecra()
    {
        ReportRows rows{
            {}, {u"Nome"_s}, {}, {{u"Maria da Conceição de Albuquerque e Vasconcelos Pereira"_s}}};
        for (int i = 0; i < 7; ++i) {
            rows.heads << u"Telefone"_s;
            rows.records.front().push_back(u"+351 912 345 67%1"_s.arg(i));
        }
        const QStringList linhas = Linhas_Do_Texto(Pasta().Bytes(ReportControl::Text, rows));
        QCOMPARE(linhas.size(), 4);
        QCOMPARE(linhas[1].size(), 160);
        QStringList colunas{u"Maria da Conceição de Albuquerque "_s};
        for (int i = 0; i < 7; ++i)
            colunas << u"+351 912 345 67%1"_s.arg(i);
        QCOMPARE(linhas[2], colunas.join(u"  "_s));
        QCOMPARE(linhas[3], u"e Vasconcelos Pereira"_s);
    }

    void no_texto_uma_lista_que_nem_assim_cabe_e_fichas_ficam_em_blocos_com_rotulos()
    {
        ReportRows rows{u"Fichas"_s, {u"Nome"_s, u"Morada"_s, u"Nota"_s}, {}, {}};
        rows.records = {{u"Abel"_s, u"Rua 5\n1000-001 Lisboa"_s, {}}, {u"Berta"_s, {}, Nota(150)}};
        rows.sheets = true;
        const QStringList esperadas{
            u"Fichas"_s,
            {},
            u"Nome    Abel"_s,
            u"Morada  Rua 5"_s,
            u"        1000-001 Lisboa"_s,
            {},
            u"Nome    Berta"_s,
            u"Nota    palavra0 palavra1 palavra2 palavra3 palavra4 palavra5 palavra6 palavra7"_s,
            u"        palavra8 palavra9 palavra10 palavra11 palavra12 palavra13 palavra14"_s,
            u"        palavra15"_s};
        QCOMPARE(Linhas_Do_Texto(Pasta().Bytes(ReportControl::Text, rows)), esperadas);

        const QString palavra(81, u'x');
        const ReportRows larga{{}, {u"A"_s, u"B"_s, u"C"_s}, {}, {{palavra, palavra, palavra}}};
        QCOMPARE(Linhas_Do_Texto(Pasta().Bytes(ReportControl::Text, larga)).size(), 6);
    }

    void no_texto_fichas_sem_registos_tem_as_cabecas()
    {
        ReportRows rows{{}, {u"Nome"_s, u"Nota"_s}, {}, {}};
        rows.sheets = true;
        QCOMPARE(Linhas_Do_Texto(Pasta().Bytes(ReportControl::Text, rows)).value(0), u"Nome  Nota"_s);
    }

    void no_texto_uma_ficha_com_uma_nota_de_100_KB_nao_e_feita_de_espacos()
    {
        ReportRows rows{u"Fichas"_s, {}, {}, {{}}};
        for (int i = 0; i < 14; ++i) {
            rows.heads << u"Campo %1"_s.arg(i);
            rows.records.front().push_back(QString(30, u'x'));
        }
        const QString nota = Nota(100'000);
        rows.records.front().back() = nota;
        rows.sheets = true;
        const QByteArray ficheiro = Pasta().Bytes(ReportControl::Text, rows);
        QVERIFY(ficheiro.size() < 125'000);
        const QStringList linhas = Linhas_Do_Texto(ficheiro);
        for (const QString &linha : linhas) {
            QVERIFY(linha.size() <= 80);
            QVERIFY(!linha.endsWith(u' '));
        }
        QVERIFY(linhas.join(u' ').simplified().endsWith(nota.simplified()));
    }

    void uma_letra_do_extremo_oriente_toma_dois_lugares_e_um_acento_nenhum_data()
    {
        QTest::addColumn<uint>("letra");
        QTest::addColumn<int>("lugares");
        const auto linha = [](uint letra, int lugares) {
            QTest::addRow("%x", letra) << letra << lugares;
        };
        for (const auto &[primeira, ultima] : {std::pair{0x1100u, 0x115Fu}, {0x2E80u, 0x303Eu}, {0x3041u, 0xA4CFu},
                                               {0xAC00u, 0xD7A3u}, {0xF900u, 0xFAFFu}, {0xFE30u, 0xFE6Fu},
                                               {0xFF00u, 0xFF60u}, {0xFFE0u, 0xFFE6u}, {0x1F300u, 0x1FAFFu},
                                               {0x20000u, 0x3FFFDu}}) {
            const bool atras_de_nenhuma = primeira == 0xFE30u || primeira == 0xFF00u; // half an accent, a mark
            linha(primeira - 1, atras_de_nenhuma ? 0 : 1);
            linha(primeira, 2);
            linha(ultima, 2);
            linha(ultima + 1, 1);
        }
        for (const uint marca : {0x300u, 0x301u, 0x20DDu, 0x200Du}) // within, around, and a joiner
            linha(marca, 0);
        for (const uint letra : {0x20u, 0x61u, 0xADu, 0x2FFu, 0x3A9u})
            linha(letra, 1);
    }
    void uma_letra_do_extremo_oriente_toma_dois_lugares_e_um_acento_nenhum()
    {
        QFETCH(uint, letra);
        const char32_t so_ela = letra;
        QTEST(textWidth(QString::fromUcs4(&so_ela, 1)), "lugares");
    }

    void metade_de_uma_letra_vale_por_uma()
    {
        const QChar primeira(0xD83D);
        const QChar segunda(0xDE00);
        QCOMPARE(textWidth(QString(primeira) + segunda), 2);
        QCOMPARE(textWidth(QString(primeira)), 1);
        QCOMPARE(textWidth(QString(primeira) + u'a'), 2);
        QCOMPARE(textWidth(QString(u'a') + segunda), 2);
        QCOMPARE(textWidth(QString(primeira) + primeira + segunda), 3);
        QCOMPARE(wrappedLines(QString(u'a') + segunda + u"bc"_s, 3),
                 (QStringList{QString(u'a') + segunda + u'b', u"c"_s}));
    }

    void a_palavra_mais_larga_mede_se_da_primeira_a_ultima_letra()
    {
        const TextMeasure medida;
        QCOMPARE(medida.widestWord(u"abcd ef"), 4.0);
        QCOMPARE(medida.widestWord(u"ab cdefg"), 5.0);
        QCOMPARE(medida.widestWord(u"a\n😀王 b"), 4.0);
        QCOMPARE(medida.widestWord(u""), 0.0);
        QCOMPARE(medida.width(u"ab\nabc"), 3.0);
        QCOMPARE(medida.width(u""), 0.0);
    }

    void uma_palavra_mais_larga_do_que_a_coluna_parte_se_sem_partir_letras()
    {
        QCOMPARE(wrappedLines(u"😀😀😀"_s, 5), (QStringList{u"😀😀"_s, u"😀"_s}));
        QCOMPARE(wrappedLines(u"王"_s, 1), QStringList{u"王"_s});
        QCOMPARE(wrappedLines({}, 5), QStringList{QString()});
        QCOMPARE(wrappedLines(u"aaaaaa"_s, 5), (QStringList{u"aaaaa"_s, u"a"_s}));
    }

    // Behind the last blank that fits, be it the first letter; one at the end takes no room.
    void uma_linha_parte_se_atras_do_ultimo_espaco_que_cabe()
    {
        QCOMPARE(wrappedLines(u"um dois"_s, 5), (QStringList{u"um"_s, u"dois"_s}));
        QCOMPARE(wrappedLines(u"um dois"_s, 7), QStringList{u"um dois"_s});
        QCOMPARE(wrappedLines(u"um do "_s, 5), QStringList{u"um do"_s});
        QCOMPARE(wrappedLines(u"a bbbb"_s, 5), (QStringList{u"a"_s, u"bbbb"_s}));
        QCOMPARE(wrappedLines(u" bbbb"_s, 3), (QStringList{QString(), u"bbb"_s, u"b"_s}));
        QCOMPARE(wrappedLines(u"a b c d"_s, 3), (QStringList{u"a b"_s, u"c d"_s}));
        QCOMPARE(wrappedLines(u"um\n\ndois"_s, 5), (QStringList{u"um"_s, QString(), u"dois"_s}));
    }

    void o_documento_tem_uma_linha_por_registo_com_as_cabecas_em_cada_pagina()
    {
        const QByteArray documento = Pasta().Bytes(ReportControl::Document, Nomes());
        QString linhas = u"Lista telefónica\n"_s;
        for (const QString &nome : escritas)
            linhas += nome + u"\t00351 219\n"_s;
        const Leitor leitor(documento);
        QCOMPARE(leitor.texto, linhas + u"Sem telefone\t\n"_s);
        QCOMPARE(leitor.profundidade, 0);
        QCOMPARE(Leitor(documento, "\\header").texto, u"Nome\tTelefone 1\n"_s);
        QVERIFY(documento.startsWith("{\\rtf1"));
        QVERIFY(!documento.contains("\\trowd")); // tables take a word processor too long
    }

    // A word processor takes the font of the text over into neither of the two.
    void no_documento_cabecas_e_numero_da_pagina_tem_a_letra_do_texto()
    {
        const QByteArray documento = Pasta().Bytes(ReportControl::Document, Nomes());
        QVERIFY(documento.contains("{\\header\\pard\\plain\\f0\\fs18"));
        QVERIFY(documento.contains("{\\footer\\pard\\plain\\f0\\fs16"));
        QCOMPARE(documento.count("\\plain\\f0\\fs"), 4); // with the title and the records
    }

    void no_documento_os_sinais_do_formato_ficam_letras()
    {
        const ReportRows rows{{}, {u"A"_s}, {}, {{u"{a}\\b\\par"_s}}};
        QCOMPARE(Leitor(Pasta().Bytes(ReportControl::Document, rows)).texto, u"{a}\\b\\par\n"_s);
    }

    void no_documento_um_tabulador_na_celula_nao_a_parte_em_duas()
    {
        const ReportRows rows{{}, {u"A"_s, u"B"_s}, {}, {{u"219\t220"_s, u"fim"_s}}};
        QCOMPARE(Leitor(Pasta().Bytes(ReportControl::Document, rows)).texto, u"219 220\tfim\n"_s);
    }

    void um_documento_largo_deita_a_pagina()
    {
        ReportRows rows{{}, {u"A"_s, u"B"_s}, {}, {{QString(40, u'a'), QString(40, u'b')}}};
        const QByteArray margens("\\margl1134\\margr1134\\margt1134\\margb1134");
        QVERIFY(Pasta().Bytes(ReportControl::Document, rows).contains("\n\\paperw11906\\paperh16838" + margens + '\n'));
        rows.records.front()[1] = QString(80, u'b');
        QVERIFY(Pasta()
                    .Bytes(ReportControl::Document, rows)
                    .contains("\n\\paperw16838\\paperh11906" + margens + "\\landscape\n"));
    }

    void no_documento_cada_coluna_tem_lugar_para_o_que_tem_na_letra_do_documento()
    {
        const QString largo = u"WANDA MUMMENDEY-WINKELMANN"_s;
        ReportRows rows{{}, {u"Name"_s, QString(36, u'n'), u"Fax"_s}, {}, {}};
        rows.records = {{largo, u"219 000 000"_s, u"1"_s}, {u"Ana"_s, u"王小明 Παπαδοπούλου"_s, u"2"_s}};
        const QByteArray documento = Pasta().Bytes(ReportControl::Document, rows);
        const QList<int> lugares = Tabuladores(documento);
        QCOMPARE(lugares.size(), 4); // two in the heads and the same in the records
        QCOMPARE(lugares.first(2), lugares.last(2));
        QVERIFY(lugares[0] > Largura(largo, false));
        QVERIFY(lugares[1] - lugares[0] > Largura(rows.heads[1], true));
        QVERIFY(lugares[1] - lugares[0] > Largura(u"王小明 Παπαδοπούλου"_s, false));
        QVERIFY(lugares[0] < Largura(largo, false) + 300);
    }

    void no_documento_uma_celula_larga_de_mais_continua_na_sua_coluna()
    {
        const QString nome =
            u"Maria da Conceição de Albuquerque e Vasconcelos Pereira de Souza e Holstein Beck "
            "de Saxe-Coburgo-Gotha e Bragança"_s;
        ReportRows rows{{}, {u"Nome"_s}, {}, {{nome}, {u"Abel"_s}}};
        for (int i = 0; i < 6; ++i) {
            rows.heads << u"Telefone"_s;
            for (auto &registo : rows.records)
                registo.push_back(u"+351 912 345 67%1"_s.arg(i));
        }
        const QByteArray documento = Pasta().Bytes(ReportControl::Document, rows);
        QVERIFY(documento.contains("\\landscape"));
        const QList<int> lugares = Tabuladores(documento);
        QCOMPARE(lugares.size(), 12);
        QVERIFY(lugares.last() + Largura(u"+351 912 345 675"_s, false) <= 16838 - 2 * 1134);
        const QStringList linhas = Leitor(documento).texto.split(u'\n', Qt::SkipEmptyParts);
        QVERIFY(linhas.size() >= 3 && linhas.size() <= 4);
        QString inteiro;
        for (const QString &linha : linhas.first(linhas.size() - 1)) {
            inteiro += linha.section(u'\t', 0, 0) + u' ';
            QVERIFY(Largura(linha.section(u'\t', 0, 0), false) <= lugares[0]);
            QCOMPARE(linha.count(u'\t'), linha == linhas.first() ? 6 : 0);
        }
        QCOMPARE(inteiro.trimmed(), nome);
        QCOMPARE(linhas.last().section(u'\t', 0, 1), u"Abel\t+351 912 345 670"_s);
    }

    void no_documento_uma_nota_de_muitas_linhas_nao_fica_em_coluna()
    {
        const ReportRows rows{{}, {u"Nome"_s, u"Nota"_s}, {}, {{u"Abel"_s, Nota(1000)}}};
        QCOMPARE(Leitor(Pasta().Bytes(ReportControl::Document, rows)).texto,
                 u"Nome\tAbel\nNota\t"_s + Nota(1000) + u'\n');
    }

    void no_documento_fichas_sao_blocos_por_estreitas_que_sejam()
    {
        ReportRows rows{{}, {u"Nome"_s, QString(40, u'n')}, {}, {{u"Abel"_s, u"219"_s}}};
        rows.sheets = true;
        const QByteArray documento = Pasta().Bytes(ReportControl::Document, rows);
        QCOMPARE(Leitor(documento).texto, u"Nome\tAbel\n"_s + QString(40, u'n') + u"\t219\n"_s);
        QVERIFY(Tabuladores(documento).first() > Largura(rows.heads[1], true));
        rows.records.clear();
        QCOMPARE(Leitor(Pasta().Bytes(ReportControl::Document, rows), "\\header").texto,
                 u"Nome\t"_s + QString(40, u'n') + u'\n');
    }

    void no_documento_fichas_sao_blocos_com_rotulos_e_uma_nota_de_100_KB_inteira()
    {
        const QString nota = Nota(100'000);
        const ReportRows rows{u"Fichas"_s,
                              {u"Nome"_s, u"Morada"_s, u"Nota"_s},
                              {},
                              {{u"Abel"_s, u"Rua 5\nLisboa"_s, {}}, {u"Berta"_s, {}, nota}}};
        const QByteArray documento = Pasta().Bytes(ReportControl::Document, rows);
        QCOMPARE(Leitor(documento).texto,
                 u"Fichas\nNome\tAbel\nMorada\tRua 5\nLisboa\nNome\tBerta\nNota\t"_s + nota + u'\n');
        QVERIFY(Leitor(documento, "\\header").texto.isEmpty());
    }

    void o_documento_sem_registos_tem_titulo_e_cabecas()
    {
        ReportRows rows = Nomes();
        rows.records.clear();
        const QByteArray documento = Pasta().Bytes(ReportControl::Document, rows);
        QCOMPARE(Leitor(documento).texto, u"Lista telefónica\n"_s);
        QCOMPARE(Leitor(documento, "\\header").texto, u"Nome\tTelefone 1\n"_s);
    }

    void as_colunas_mais_largas_cedem_ate_caberem_e_nao_mais()
    {
        using Larguras = std::vector<double>;
        const std::vector<ColumnNeed> tres{{10, 2}, {6, 2}, {3, 1}}; // whole, least
        QCOMPARE(columnWidths(tres, 19), (Larguras{10, 6, 3}));
        QCOMPARE(columnWidths(tres, 100), (Larguras{10, 6, 3}));
        QCOMPARE(columnWidths(tres, 17), (Larguras{8, 6, 3}));
        QCOMPARE(columnWidths(tres, 13), (Larguras{5, 5, 3}));
        QCOMPARE(columnWidths(tres, 7.5), (Larguras{2.5, 2.5, 2.5}));
        QCOMPARE(columnWidths(tres, 5), (Larguras{2, 2, 1}));
        QCOMPARE(columnWidths(tres, 4.99), std::nullopt);
        QCOMPARE(columnWidths({{5, 0}, {5, 0}}, 1), (Larguras{0.5, 0.5}));
        QCOMPARE(columnWidths({{5, 0}, {5, 0}}, 0), (Larguras{0, 0}));
        QCOMPARE(columnWidths({{4, 4}, {9, 1}}, 6), (Larguras{4, 2}));
        QCOMPARE(columnWidths({}, 0), Larguras());
    }

    void um_bloco_do_documento_prende_so_a_sua_primeira_linha_a_seguinte()
    {
        const ReportRows rows{{}, {u"Nome"_s, u"Nota"_s}, {}, {{u"Abel"_s, u"um\ndois"_s}, {{}, u"tres"_s}}};
        const QByteArray documento = Pasta().Bytes(ReportControl::Document, rows);
        QCOMPARE(documento.count("\\keepn\\sb240 {\\b "), 2);
        QCOMPARE(documento.count("\\keepn0\\sb0 {\\b Nota}"), 1);
        QCOMPARE(documento.count("\\keepn0"), 1);
    }

    void um_tipo_desconhecido_e_recusado_e_nada_se_escreve()
    {
        Pasta pasta;
        VERIFICAR_FALHA(pasta.Escrever(99, Nomes()), Failure::InvalidPropertyValue);
        QCOMPARE(teste::Falha_Dita([&] { pasta.Escrever(99, Nomes()); }),
                 (QStringList{u"PrintFileType"_s, u"There is no file type 99."_s}));
        QVERIFY(QDir(pasta.pasta.path()).isEmpty());
    }

    void um_ficheiro_que_ja_existe_e_substituido()
    {
        Pasta pasta;
        pasta.Escrever(ReportControl::Document, Nomes());
        QVERIFY(pasta.Bytes(ReportControl::Text, Nomes()).startsWith("\xEF\xBB\xBF"));
    }

    void um_ficheiro_que_nao_pode_ser_escrito_fica_como_estava()
    {
        Pasta pasta;
        const QByteArray antes = pasta.Bytes(ReportControl::Text, Nomes());
        QFile ficheiro(pasta.pasta.filePath(u"saida"_s));
        QVERIFY(ficheiro.setPermissions(QFile::ReadOwner | QFile::ReadOther));
        const SemPrivilegios sem;
        if (!sem.Possivel()) QSKIP("this machine keeps its rights");
        VERIFICAR_FALHA(exportReport(ReportControl::Spreadsheet, Nomes(), ficheiro.fileName()),
                        Failure::PathFileAccess);
        QFile::setPermissions(pasta.pasta.path(), QFile::ReadOwner);
    }

    void um_documento_de_uma_lista_do_principio_ao_fim()
    {
        const ReportRows rows{u"Lista"_s, {u"A"_s, u"B"_s}, {}, {{u"a"_s, u"b"_s}, {u"c"_s, {}}}};
        const QByteArray lista =
            "\\pard\\plain\\f0\\fs18\\tx" + QByteArray::number(qFloor(Largura(u"A"_s, true) + 240));
        QCOMPARE(Pasta().Bytes(ReportControl::Document, rows),
                 de_pe + "{\\header" + lista + "\\sa120\\brdrb\\brdrs\\brdrw10\\b A\\tab B\\b0\\par}\n"
                     "\\pard\\plain\\f0\\fs28\\sa240\\b Lista\\b0\\par\n" + lista +
                     " a\\tab b\\par\nc\\tab \\par\n}");
    }

    void um_documento_de_fichas_do_principio_ao_fim()
    {
        ReportRows rows{u"Fichas"_s, {u"Nome"_s, u"Nota"_s}, {}, {{u"Abel"_s, u"um\n\tdois"_s}, {{}, u"tres"_s}}};
        rows.sheets = true;
        const int rotulos = qCeil(std::max(Largura(u"Nome"_s, true), Largura(u"Nota"_s, true))) + 240;
        const QByteArray ficha =
            "\\pard\\plain\\f0\\fs18" + QByteArray("\\li%\\fi-%\\tx%").replace('%', QByteArray::number(rotulos)) +
            "\\keepn\\sb240 ";
        QCOMPARE(Pasta().Bytes(ReportControl::Document, rows),
                 de_pe + "\\pard\\plain\\f0\\fs28\\sa240\\b Fichas\\b0\\par\n" + ficha +
                     "{\\b Nome}\\tab Abel\\par\n\\keepn0\\sb0 {\\b Nota}\\tab um\\line \\tab dois\\par\n" + ficha +
                     "{\\b Nota}\\tab tres\\par\n}");
    }

    // A blank behind a blank by its number; what the document's alphabet has by two digits; all else by number.
    void no_documento_cada_sinal_tem_a_sua_escrita_data()
    {
        QTest::addColumn<QString>("celula");
        QTest::addColumn<QByteArray>("escrita");
        QTest::newRow("one blank") << u"a b"_s << QByteArray("a b");
        QTest::newRow("a blank before all") << u" a"_s << QByteArray(" a");
        QTest::newRow("blanks in a row") << u"a  b   c    d"_s
                                         << QByteArray("a \\u32?b \\u32? c \\u32? \\u32?d");
        QTest::newRow("the first and the last plain ones") << u"!~"_s << QByteArray("!~");
        QTest::newRow("signs of the format") << u"\\{}"_s << QByteArray("\\\\\\{\\}");
        QTest::newRow("none that nobody sees") << u"a\x1f\x7f\x01" "b"_s << QByteArray("ab");
        QTest::newRow("between the plain ones and the alphabet's") << u"\u0080\u009f"_s
                                                                   << QByteArray("\\u128?\\u159?");
        QTest::newRow("the alphabet's own") << u"\u00a0é\u00ff"_s << QByteArray("\\'a0\\'e9\\'ff");
        QTest::newRow("behind them") << u"\u0100王\ufffd"_s << QByteArray("\\u256?\\u29579?\\u-3?");
        QTest::newRow("of two halves") << u"😀"_s << QByteArray("\\u-10179?\\u-8704?");
    }
    void no_documento_cada_sinal_tem_a_sua_escrita()
    {
        QFETCH(QString, celula);
        QFETCH(QByteArray, escrita);
        const QByteArray documento = Pasta().Bytes(ReportControl::Document, {{}, {u"A"_s}, {}, {{celula}}});
        QVERIFY2(documento.endsWith("\\pard\\plain\\f0\\fs18 " + escrita + "\\par\n}"), documento.constData());
    }

    // Between the margins of an upright sheet there are 9,638 twips.
    void a_folha_deita_se_por_uma_letra_a_mais()
    {
        const auto deitada = [](qsizetype letras) {
            return Pasta().Bytes(ReportControl::Document, {{}, {u"A"_s}, {}, {{QString(letras, u'n')}}})
                .contains("\\landscape");
        };
        const auto cabem = static_cast<qsizetype>(9638 / Largura(u"n"_s, false));
        QVERIFY(!deitada(cabem));
        QVERIFY(deitada(cabem + 1));
    }

    // The long one takes what the others and two gaps leave of a landscape sheet's 14,570 twips.
    void no_documento_a_coluna_comprida_toma_o_que_as_outras_deixam()
    {
        const QString comprida = Nota(220);
        QVERIFY(Largura(comprida, false) > 14'570);
        const ReportRows rows{{}, {u"A"_s, u"B"_s, u"C"_s}, {}, {{comprida, u"b"_s, u"c"_s}}};
        const QByteArray documento = Pasta().Bytes(ReportControl::Document, rows);
        QVERIFY(documento.contains("\\landscape"));
        const double b = Largura(u"B"_s, true);
        const double primeiro = 14'570 - 240 - b - Largura(u"C"_s, true);
        const QList<int> lugares = Tabuladores(documento);
        QCOMPARE(lugares.size(), 4);
        QVERIFY2(qAbs(lugares[0] - primeiro) <= 1, qPrintable(QString::number(lugares[0])));
        QVERIFY2(qAbs(lugares[1] - (primeiro + b + 240)) <= 1, qPrintable(QString::number(lugares[1])));
    }

    // Squeezed as far as it goes, a column of words keeps 1,800 twips: six of them and their gaps leave 2,330.
    void no_documento_uma_coluna_de_palavras_nao_se_aperta_mais()
    {
        constexpr double resto = 14'570 - 6 * (1800 + 240);
        const TextMeasure medida(officeFont(9, QFont::Normal));
        const QString palavra = Palavra_De(medida, resto);
        QVERIFY(medida.width(palavra) > resto - 1);
        const auto e_lista = [](const QString &comprida) {
            ReportRows rows{{}, {u"F"_s}, {}, {{comprida}}};
            for (int i = 0; i < 6; ++i) {
                rows.heads << u"N"_s;
                rows.records.front().push_back(Nota(36));
            }
            return Pasta().Bytes(ReportControl::Document, rows).contains("{\\header");
        };
        QVERIFY(e_lista(palavra));
        QVERIFY(!e_lista(palavra + u'i'));
    }

    void no_documento_tres_linhas_de_uma_celula_ainda_sao_lista_e_quatro_nao()
    {
        const TextMeasure medida(officeFont(9, QFont::Normal));
        const double coluna = 14'570 - 240 - Largura(u"B"_s, true);
        QString nota = u"palavra"_s;
        const auto e_lista = [&] {
            return Pasta()
                .Bytes(ReportControl::Document, {{}, {u"Nota"_s, u"B"_s}, {}, {{nota, u"b"_s}}})
                .contains("{\\header");
        };
        while (medida.lines(nota + u" palavra"_s, coluna).size() < 4)
            nota += u" palavra"_s;
        QCOMPARE(medida.lines(nota, coluna).size(), 3);
        QVERIFY(e_lista());
        nota += u" palavra"_s;
        QVERIFY(!e_lista());
    }

    void cada_celula_tem_o_seu_formato()
    {
        const ReportRows rows{u"x"_s,
                              {u"Nome"_s, u"Nota"_s},
                              {},
                              {{u"Abelardo Antunes"_s, u"um\ndois"_s}, {u"Berta"_s, {}}, {u"Carla"_s, Nota(200)}}};
        QStringList formatos;
        for (const Registo &celula : Registos(Pasta().Bytes(ReportControl::Spreadsheet, rows), 0xFD))
            formatos << u"%1.%2: %3"_s.arg(celula.Palavra(0)).arg(celula.Palavra(1)).arg(celula.Palavra(2));
        QCOMPARE(formatos, (QStringList{u"0.0: 18"_s, u"0.1: 18"_s, u"1.0: 16"_s, u"1.1: 17"_s, u"2.0: 16"_s,
                                        u"3.0: 16"_s, u"3.1: 17"_s}));
    }

    void cada_linha_diz_o_seu_numero_as_suas_colunas_e_a_sua_altura()
    {
        const ReportRows rows{u"x"_s,
                              {u"A"_s, u"B"_s, u"C"_s},
                              {},
                              {{u"a\nb\nc"_s, u"d"_s, u"e\nf"_s}, {u"g"_s, u"h\ni"_s, {}}}};
        const auto linhas = Registos(Pasta().Bytes(ReportControl::Spreadsheet, rows), 0x208);
        QCOMPARE(linhas.size(), 3);
        QCOMPARE(linhas[0].corpo.toHex(' '), Hex("0000 0000 0300 ff00 0000 0000 0001 0f00").toHex(' '));
        QCOMPARE(linhas[1].corpo.toHex(' '), Hex("0100 0000 0300 fd02 0000 0000 4001 0f00").toHex(' '));
        QCOMPARE(linhas[2].corpo.toHex(' '), Hex("0200 0000 0300 fe01 0000 0000 4001 0f00").toHex(' '));
    }

    // Readers look for the cells of a row behind the heights of its thirty-two.
    void as_alturas_de_trinta_e_duas_linhas_estao_antes_das_suas_celulas()
    {
        ReportRows rows{u"x"_s, {u"A"_s}, {}, {}};
        for (int i = 0; i < 69; ++i)
            rows.records.push_back({u"a"_s});
        QList<int> seguidas;
        int antes = 0;
        for (const Registo &registo : Registos(Pasta().Bytes(ReportControl::Spreadsheet, rows))) {
            if (registo.numero != 0x208 && registo.numero != 0xFD) continue;
            if (registo.numero != antes) seguidas << 0;
            antes = registo.numero;
            ++seguidas.last();
        }
        QCOMPARE(seguidas, (QList<int>{32, 32, 32, 32, 6, 6}));
    }

    // Between margins of half an inch there are 10,466 twips; round each text goes one nought and a half.
    void a_folha_de_calculo_deita_se_por_um_twip_a_mais()
    {
        const TextMeasure medida(officeFont(10, QFont::Normal));
        const double nada = medida.width(u"0");
        const double resto = 10'466 - 8 * 9.5 * nada - 1.5 * nada;
        QVERIFY(resto > 8 * nada + 1);
        const auto como = [](const QString &palavra) {
            ReportRows rows{u"x"_s, {u"N"_s}, {}, {{palavra}}};
            for (int i = 0; i < 8; ++i) {
                rows.heads << u"A"_s;
                rows.records.front().push_back(u"a"_s);
            }
            return Registos(Pasta().Bytes(ReportControl::Spreadsheet, rows), 0xA1).value(0).Palavra(5);
        };
        const QString cabe = Palavra_De(medida, resto);
        QVERIFY(medida.width(cabe) > resto - 1);
        QCOMPARE(como(cabe), 2);
        const QString passa = Palavra_De(medida, resto + 1);
        QVERIFY(medida.width(passa) > resto);
        QCOMPARE(como(passa), 0);
    }

    // Ten lines of it are as wide as it then is.
    void a_coluna_de_uma_nota_tem_um_decimo_da_largura_dela()
    {
        const TextMeasure medida(officeFont(10, QFont::Normal));
        const double largura = medida.width(Nota(600)) / 10 / medida.width(u"0") + 1.5;
        QCOMPARE(Colunas({u"x"_s, {u"Nota"_s}, {}, {{Nota(600)}}}), QList<double>{std::floor(largura * 256) / 256});
    }

    void uma_folha_cheia_nao_abre_outra()
    {
        ReportRows rows{u"x"_s, {u"A"_s}, {}, {}};
        rows.records.resize(65'535, {u"a"_s});
        QCOMPARE(Registos(Pasta().Bytes(ReportControl::Spreadsheet, rows), 0x85).size(), 1);
    }

    void nenhum_sinal_proibido_fica_no_nome_da_folha()
    {
        for (const QChar sinal : u"[]:*?/\\'\n"_s)
            QCOMPARE(Livro({u"a"_s + sinal + u"b"_s, {u"A"_s}, {}, {}}).Nome(0), u"a b"_s);
        QCOMPARE(Livro({u"[]"_s, {u"A"_s}, {}, {}}).Nome(0), u"1"_s);
    }

    void os_textos_do_livro_contam_se_todos_e_os_diferentes()
    {
        ReportRows rows{u"x"_s, {u"A"_s}, {}, {}};
        for (int i = 0; i < 50; ++i)
            rows.records.push_back({i % 2 == 0 ? u"par"_s : u"impar"_s});
        const auto textos = Registos(Pasta().Bytes(ReportControl::Spreadsheet, rows), 0xFC);
        QCOMPARE(textos.size(), 1);
        QCOMPARE(textos[0].corpo.toHex(' '),
                 (Hex("33000000 03000000 0100 00") + 'A' + Hex("0300 00") + "par" + Hex("0500 00") + "impar")
                     .toHex(' '));
    }

    // A record holds 8,224 bytes: the mark of the letters, and these.
    void um_texto_comprido_enche_os_registos_em_que_esta()
    {
        const auto tamanhos = [](const QString &texto) {
            const QByteArray livro = Pasta().Bytes(ReportControl::Spreadsheet, {u"x"_s, {u"A"_s}, {}, {{texto}}});
            QList<qsizetype> todos{Registos(livro, 0xFC).value(0).corpo.size()};
            for (const Registo &registo : Registos(livro, 0x3C))
                todos << registo.corpo.size();
            return todos;
        };
        QCOMPARE(tamanhos(Letras(9000, true)), (QList<qsizetype>{12, 3 + 2 * 4110, 1 + 2 * 4111, 1 + 2 * 779}));
        QCOMPARE(tamanhos(Letras(8221, false)), (QList<qsizetype>{12, 8224}));
        QCOMPARE(tamanhos(Letras(8209, false)), QList<qsizetype>{8224});
        QCOMPARE(tamanhos(Letras(8210, false)), (QList<qsizetype>{12, 8213}));
        QCOMPARE(tamanhos(Letras(8222, false)), (QList<qsizetype>{12, 3 + 2 * 4110, 1 + 2 * 4111, 1 + 2}));
        QCOMPARE(tamanhos(Letras(4000, true)), QList<qsizetype>{12 + 3 + 2 * 4000});
        const QByteArray livro =
            Pasta().Bytes(ReportControl::Spreadsheet, {u"x"_s, {u"A"_s}, {}, {{Letras(8205, false)}, {u"z"_s}}});
        QCOMPARE(Registos(livro, 0xFC).value(0).corpo.size(), 8224);
        QVERIFY(Registos(livro, 0x3C).isEmpty());
    }

    // In two bytes each as soon as one of them needs two.
    void as_letras_de_um_texto_estao_em_um_byte_ou_em_dois()
    {
        const QByteArray livro =
            Pasta().Bytes(ReportControl::Spreadsheet, {u"x"_s, {u"A"_s}, {}, {{u"\u00ff"_s}, {u"a\u0100"_s}}});
        QCOMPARE(Registos(livro, 0xFC).value(0).corpo.toHex(' '),
                 Hex("03000000 03000000 0100 00 41 0100 00 ff 0200 01 6100 0001").toHex(' '));
    }

    void um_ficheiro_que_nao_se_escreve_e_dito_pelo_seu_nome()
    {
        const Pasta pasta;
        const QString ficheiro = pasta.pasta.filePath(u"nada/saida"_s);
        QCOMPARE(teste::Falha_Dita([&] { exportReport(ReportControl::Text, Nomes(), ficheiro); }),
                 (QStringList{ficheiro, ficheiro + u" can't be written."_s}));
    }

    void no_texto_uma_coluna_sem_letras_nao_toma_lugar()
    {
        QCOMPARE(Linhas_Do_Texto(Pasta().Bytes(ReportControl::Text,
                                               {{}, {u"A"_s, {}, u"B"_s}, {}, {{u"a"_s, {}, u"b"_s}}})),
                 (QStringList{u"A    B"_s, u"-    -"_s, u"a    b"_s}));
    }

    // Arial, or what has the same widths where there is none; measured, not fitted to the dots of a screen.
    void a_letra_dos_ficheiros_e_a_que_os_programas_do_escritorio_tem()
    {
        const QFont letra = officeFont(9, QFont::Bold);
        QCOMPARE(letra.families(),
                 (QStringList{u"Arial"_s, u"Liberation Sans"_s, u"Arimo"_s, u"Nimbus Sans"_s}));
        QCOMPARE(letra.pixelSize(), 180);
        QCOMPARE(letra.weight(), QFont::Bold);
        QCOMPARE(officeFont(9, QFont::Normal).weight(), QFont::Normal);
        QCOMPARE(letra.styleHint(), QFont::SansSerif);
        QCOMPARE(letra.hintingPreference(), QFont::PreferNoHinting);
    }

    // A list is at most 160 letters wide, and a column is never made narrower than 24.
    void no_texto_a_lista_acaba_onde_as_colunas_ja_nao_cedem()
    {
        const auto primeira_linha = [](int palavra) {
            ReportRows rows{{}, {u"F"_s}, {}, {{QString(palavra, u'x')}}};
            for (int i = 0; i < 5; ++i) {
                rows.heads << u"N"_s;
                rows.records.front().push_back(Nota(100));
            }
            return Linhas_Do_Texto(Pasta().Bytes(ReportControl::Text, rows)).value(1);
        };
        QCOMPARE(primeira_linha(30), QStringList(QStringList{QString(30, u'-')} + QStringList(5, QString(24, u'-')))
                                         .join(u"  "_s));
        QVERIFY(!primeira_linha(31).contains(u'-')); // blocks
    }

    void no_texto_uma_coluna_nao_passa_de_sessenta_letras()
    {
        const QStringList linhas =
            Linhas_Do_Texto(Pasta().Bytes(ReportControl::Text, {{}, {u"A"_s, u"B"_s}, {}, {{Nota(300), u"b"_s}}}));
        QCOMPARE(linhas.value(1), QString(60, u'-') + u"  -"_s);
    }

    // A block is eighty letters wide, of which its labels take half at most.
    void no_texto_um_rotulo_comprido_deixa_metade_ao_que_diz()
    {
        ReportRows rows{{}, {QString(39, u'n') + u" nome"_s, u"B"_s}, {}, {{QString(50, u'x'), u"b"_s}}};
        rows.sheets = true;
        QCOMPARE(Linhas_Do_Texto(Pasta().Bytes(ReportControl::Text, rows)),
                 (QStringList{QString(39, u'n') + u"   "_s + QString(38, u'x'),
                              u"nome"_s + QString(38, u' ') + QString(12, u'x'), u"B"_s + QString(41, u' ') + u'b'}));
    }
};

MORVEX_TESTE(TestReportExport)
#include "test_ReportExport.moc"
