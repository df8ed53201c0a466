// What stands in a table's pages, byte by byte: each way in which a value may lie there, and each harm by its name.
#include "jet/JetFile.h"
#include "testlib/CopiaEstragada.h"
#include "testlib/FalhaDita.h"
#include "testlib/Teste.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
constexpr int tamanho = 4096; // of a page
constexpr int catalogo = 2;   // the page of its definition

// A copy of a sound database whose bytes a test changes.
class Copia
{
public:
    Copia()
    {
        QFile ficheiro(QFINDTESTDATA("fixtures/jet/pequena.mdb"));
        if (!ficheiro.open(QIODevice::ReadOnly)) qFatal("the sample cannot be read");
        bytes_ = ficheiro.readAll();
    }

    template<class Numero> Numero Ler(int pagina, int onde) const
    {
        return qFromLittleEndian<Numero>(bytes_.constData() + qsizetype{pagina} * tamanho + onde);
    }
    template<class Numero> void Por(int pagina, int onde, Numero valor)
    {
        qToLittleEndian<Numero>(valor, bytes_.data() + qsizetype{pagina} * tamanho + onde);
    }
    void Por_Bytes(int pagina, int onde, const QByteArray &novos)
    {
        bytes_.replace(qsizetype{pagina} * tamanho + onde, novos.size(), novos);
    }
    QByteArray Ler_Bytes(int pagina, int onde, int quantos) const
    {
        return bytes_.mid(qsizetype{pagina} * tamanho + onde, quantos);
    }

    int Paginas() const { return static_cast<int>(bytes_.size() / tamanho); }
    qint64 Tamanho() const { return bytes_.size(); }
    // One more at the end, of which nothing but the beginning is said. Returns its number.
    int Nova_Pagina(const QByteArray &inicio)
    {
        bytes_ += inicio.leftJustified(tamanho, '\0');
        return Paginas() - 1;
    }
    // So many more, of which nothing is said.
    void Crescer(int paginas) { bytes_.resize(qsizetype{paginas} * tamanho, '\0'); }

    // What is said of that table; nothing where it reads.
    QString Dito(const QString &tabela) const
    {
        return teste::Falha_Dita([&] { Abrir().read(tabela); }).value(1);
    }
    JetFile::Table Tabela(const QString &nome) const { return Abrir().read(nome); }
    JetFile Abrir() const { return JetFile(ficheiro_->Guardar(bytes_)); }

private:
    std::shared_ptr<CopiaEstragada> ficheiro_ = std::make_shared<CopiaEstragada>(u"copia.mdb"_s);
    QByteArray bytes_;
};

// A row of a page, or the map of a table, which is one as well.
struct Linha {
    int pagina;
    int inicio;
    int fim;

    int Mascara() const { return fim - 1; } // that of a table of eight columns or less
};

Linha Linha_Em(const Copia &copia, int pagina, int linha)
{
    const auto lugar = [&](int i) { return copia.Ler<quint16>(pagina, 14 + 2 * i) & 0x1fff; };
    return {pagina, lugar(linha), linha == 0 ? tamanho : lugar(linha - 1)};
}

int Definicao(const QString &tabela)
{
    static const QHash<QString, int> paginas{{u"TblLista"_s, 24}, {u"TblGrupos"_s, 27}, {u"TblMemos"_s, 33},
                                             {u"TblTarefas"_s, 36}, {u"TblConfig"_s, 42}};
    return paginas.value(tabela);
}

Linha Mapa(const Copia &copia, int definicao)
{
    const auto onde = copia.Ler<quint32>(definicao, 55);
    return Linha_Em(copia, static_cast<int>(onde >> 8), static_cast<int>(onde & 0xff));
}

// The first of its pages that holds rows.
int Pagina_De(const Copia &copia, int definicao)
{
    for (int i = 1; i < copia.Paginas(); ++i)
        if (copia.Ler<quint8>(i, 0) == 1 && copia.Ler<quint32>(i, 4) == static_cast<quint32>(definicao) &&
            (copia.Ler<quint16>(i, 14) & 0xc000) == 0)
            return i;
    qFatal("the table has no page");
}

// The first row of a table whose rows all stand where they were written.
Linha Primeira(const Copia &copia, const QString &tabela)
{
    return Linha_Em(copia, Pagina_De(copia, Definicao(tabela)), 0);
}

// A page of rows, the first at its end; those that are only pointers are marked as moved.
QByteArray Pagina_De_Linhas(const QByteArrayList &linhas, qsizetype mudadas = 0)
{
    QByteArray pagina(tamanho, '\0');
    pagina[0] = 1;
    qToLittleEndian<quint16>(static_cast<quint16>(linhas.size()), pagina.data() + 12);
    qsizetype fim = tamanho;
    for (qsizetype i = 0; i < linhas.size(); ++i) {
        fim -= linhas[i].size();
        pagina.replace(fim, linhas[i].size(), linhas[i]);
        qToLittleEndian<quint16>(static_cast<quint16>(fim | (i < mudadas ? 0x4000 : 0)), pagina.data() + 14 + 2 * i);
    }
    return pagina;
}

template<class Numero> QByteArray Escrito(Numero valor)
{
    QByteArray bytes(sizeof valor, '\0');
    qToLittleEndian<Numero>(valor, bytes.data());
    return bytes;
}

QByteArray Apontar(int pagina, int linha) { return Escrito(static_cast<quint32>(pagina << 8 | linha)); }

QByteArray Em_Duas(const QString &texto) { return {reinterpret_cast<const char *>(texto.utf16()), 2 * texto.size()}; }

const auto fora = u"a value reaches out of its place"_s;
} // namespace

class TestJetTable : public QObject
{
    Q_OBJECT

    // The text of the one column of texts of the first group, of which these bytes are all.
    static Copia Com_Texto(const QByteArray &bytes)
    {
        Copia copia;
        const Linha linha = Primeira(copia, u"TblGrupos"_s);
        const int inicio = copia.Ler<quint16>(linha.pagina, linha.Mascara() - 4);
        copia.Por_Bytes(linha.pagina, linha.inicio + inicio, bytes);
        copia.Por(linha.pagina, linha.Mascara() - 6, static_cast<quint16>(inicio + bytes.size()));
        return copia;
    }
    // The last long text of the one row of TblConfig has that head and, behind it, these bytes.
    static Copia Com_Memo(quint32 cabeca, const QByteArray &resto, Copia copia = {})
    {
        const Linha linha = Primeira(copia, u"TblConfig"_s);
        const int inicio = linha.inicio + copia.Ler<quint16>(linha.pagina, linha.Mascara() - 10);
        copia.Por_Bytes(linha.pagina, inicio, Escrito(cabeca) + resto);
        return copia;
    }
    static QString Destinatario(const Copia &copia)
    {
        return std::get<QString>(copia.Tabela(u"TblConfig"_s).rows.at(0).at(4));
    }
    static Copia Com_Tarefa(int coluna_fixa, double valor)
    {
        Copia copia;
        const Linha linha = Primeira(copia, u"TblTarefas"_s);
        copia.Por(linha.pagina, linha.inicio + 2 + coluna_fixa, valor);
        return copia;
    }
    // The first row of the groups was moved so often before it is reached.
    static Copia Mudada(int vezes)
    {
        Copia copia;
        const Linha linha = Primeira(copia, u"TblGrupos"_s);
        const QByteArray ela = copia.Ler_Bytes(linha.pagina, linha.inicio, linha.fim - linha.inicio);
        QByteArrayList linhas;
        for (int i = 1; i < vezes; ++i)
            linhas << Apontar(copia.Paginas(), i);
        const int outra = copia.Nova_Pagina(Pagina_De_Linhas(linhas + QByteArrayList{ela}, vezes - 1));
        copia.Por_Bytes(linha.pagina, linha.inicio, Apontar(outra, 0));
        copia.Por(linha.pagina, 14, static_cast<quint16>(linha.inicio | 0x4000));
        return copia;
    }
    // The definition with so many indexes, whose places come before the columns, over as many pages as it takes.
    static Copia Com_Indices(quint32 indices)
    {
        constexpr int inicio = 63;
        Copia copia;
        const int definicao = Definicao(u"TblTarefas"_s);
        const int colunas = inicio + 12 * copia.Ler<int>(definicao, 51);
        QByteArray toda = copia.Ler_Bytes(definicao, 0, inicio) + QByteArray(12 * static_cast<qsizetype>(indices), '\0') +
                          copia.Ler_Bytes(definicao, colunas, tamanho - colunas);
        qToLittleEndian<quint32>(indices, toda.data() + 51);
        int pagina = definicao;
        copia.Por_Bytes(pagina, 0, toda.first(tamanho));
        for (qsizetype feito = tamanho; feito < toda.size(); feito += tamanho - 8) {
            const int seguinte = copia.Nova_Pagina(QByteArray("\x02\0\0\0\0\0\0\0", 8) + toda.sliced(feito).first(
                std::min<qsizetype>(tamanho - 8, toda.size() - feito)));
            copia.Por(pagina, 4, static_cast<quint32>(seguinte));
            pagina = seguinte;
        }
        return copia;
    }

    // The table's entry in the catalogue.
    static Linha Entrada_De(const Copia &copia, const QString &tabela)
    {
        const int pagina = Pagina_De(copia, catalogo);
        for (int i = 0; i < copia.Ler<quint16>(pagina, 12); ++i) {
            const Linha linha = Linha_Em(copia, pagina, i);
            if (copia.Ler<int>(linha.pagina, linha.inicio + 2) == Definicao(tabela)) return linha;
        }
        qFatal("the catalogue lacks the table");
    }

private Q_SLOTS:
    void uma_definicao_de_varias_paginas_le_se_como_a_de_uma_data()
    {
        QTest::addColumn<int>("indices");
        for (const int indices : {1, 2, 336, 700, 1024})
            QTest::addRow("%d indexes", indices) << indices;
    }
    void uma_definicao_de_varias_paginas_le_se_como_a_de_uma()
    {
        QFETCH(int, indices);
        const JetFile::Table certa = Copia().Tabela(u"TblTarefas"_s);
        const JetFile::Table lida = Com_Indices(static_cast<quint32>(indices)).Tabela(u"TblTarefas"_s);
        QCOMPARE(lida.columns, certa.columns);
        QVERIFY(lida.rows == certa.rows);
    }

    void uma_definicao_estragada_diz_o_que_lhe_falta()
    {
        const QString tabela = u"TblTarefas"_s;
        const int definicao = Definicao(tabela);
        const auto dito = [&](int onde, auto valor) {
            Copia copia;
            copia.Por(definicao, onde, valor);
            return copia.Dito(tabela);
        };
        QCOMPARE(dito(0, quint8{1}), u"a table without a definition"_s);
        QCOMPARE(dito(4, static_cast<quint32>(definicao)), u"a table without a definition"_s); // it has no end
        QCOMPARE(dito(4, static_cast<quint32>(Copia().Paginas())), u"a page lies beyond the end of the file"_s);
        QCOMPARE(dito(45, quint16{1025}), u"a definition out of all measure"_s);
        QCOMPARE(dito(45, quint16{1024}), fora);
        QCOMPARE(dito(51, quint32{1025}), u"a definition out of all measure"_s);
        QCOMPARE(dito(51, quint32{1024}), fora);
        QCOMPARE(dito(16, quint32{25}), u"rows of the table are missing"_s);
        QCOMPARE(dito(16, quint32{24}), QString());
        QCOMPARE(dito(16, quint32{23}), QString()); // whoever counts too few loses none
        QCOMPARE(dito(55, static_cast<quint32>(36 << 8)), u"there is no such row"_s);
    }

    void um_mapa_na_propria_linha_ou_em_paginas_leva_as_mesmas_paginas()
    {
        const QString tabela = u"TblTarefas"_s;
        const Copia sa;
        const Linha mapa = Mapa(sa, Definicao(tabela));
        const int pagina = Pagina_De(sa, Definicao(tabela));
        QCOMPARE(sa.Ler<quint8>(mapa.pagina, mapa.inicio), 1);
        for (const int antes : {0, 1, 7, 8, 15, 100}) {
            Copia copia;
            copia.Por_Bytes(mapa.pagina, mapa.inicio, QByteArray(mapa.fim - mapa.inicio, '\0'));
            copia.Por(mapa.pagina, mapa.inicio + 1, static_cast<quint32>(pagina - antes));
            copia.Por(mapa.pagina, mapa.inicio + 5 + antes / 8, static_cast<quint8>(1U << (antes % 8)));
            copia.Por(Definicao(tabela), 16, quint32{0});
            std::size_t linhas = sa.Ler<quint16>(pagina, 12);
            for (int i = 0; i < sa.Ler<quint16>(pagina, 12); ++i)
                linhas -= (sa.Ler<quint16>(pagina, 14 + 2 * i) & 0x8000) != 0 ? 1U : 0U;
            QCOMPARE(copia.Tabela(tabela).rows.size(), linhas);
        }
    }

    void um_mapa_estragado_diz_o_que_lhe_falta()
    {
        const QString tabela = u"TblGrupos"_s;
        const Copia sa;
        const Linha mapa = Mapa(sa, Definicao(tabela));
        const auto dito = [&](int pagina, int onde, auto valor) {
            Copia copia;
            copia.Por(pagina, onde, valor);
            return copia.Dito(tabela);
        };
        const auto bits = static_cast<int>(sa.Ler<quint32>(mapa.pagina, mapa.inicio + 1));
        QCOMPARE(dito(mapa.pagina, mapa.inicio, quint8{2}), u"a map of pages of no known kind"_s);
        QCOMPARE(dito(bits, 0, quint8{1}), u"a map of pages that is none"_s);
        const auto com = [&](int pagina) { // beside those that are there
            const int byte = 4 + pagina / 8;
            return dito(bits, byte, static_cast<quint8>(sa.Ler<quint8>(bits, byte) | 1U << (pagina % 8)));
        };
        QCOMPARE(com(sa.Paginas() - 1), QString()); // the last page, which is another's
        QCOMPARE(com(sa.Paginas()), u"a page of the table lies beyond the end of the file"_s);
    }

    void um_mapa_conta_as_suas_paginas_ate_ao_seu_fim()
    {
        const QString tabela = u"TblGrupos"_s;
        Copia copia;
        const Linha mapa = Mapa(copia, Definicao(tabela));
        QCOMPARE(mapa.fim - mapa.inicio, 1 + 17 * 4);
        Copia cheia = copia; // its last place is taken too
        cheia.Por(mapa.pagina, mapa.inicio + 65, copia.Ler<quint32>(mapa.pagina, mapa.inicio + 1));
        QCOMPARE(cheia.Dito(tabela), u"a page of the table lies beyond the end of the file"_s);
        // Two bytes less, and half a place remains, of which nothing is read.
        const QByteArray menor = copia.Ler_Bytes(mapa.pagina, mapa.inicio, 67);
        copia.Por_Bytes(mapa.pagina, mapa.inicio + 2, menor);
        const int lugar = 14 + 2 * static_cast<int>(copia.Ler<quint32>(Definicao(tabela), 55) & 0xff);
        copia.Por(mapa.pagina, lugar, static_cast<quint16>(copia.Ler<quint16>(mapa.pagina, lugar) + 2));
        QCOMPARE(copia.Dito(tabela), QString());
    }

    void uma_pagina_de_outra_especie_entre_as_da_tabela_passa_se_a_frente()
    {
        const QString tabela = u"TblGrupos"_s;
        const int definicao = Definicao(tabela);
        Copia copia;
        const JetFile::Table certa = copia.Tabela(tabela);
        const Linha mapa = Mapa(copia, definicao);
        QByteArray outra = Pagina_De_Linhas({"index"});
        outra.replace(0, 2, "\x03\x01");
        qToLittleEndian<quint32>(static_cast<quint32>(definicao), outra.data() + 4);
        const int nova = copia.Nova_Pagina(outra);
        const auto bits = static_cast<int>(copia.Ler<quint32>(mapa.pagina, mapa.inicio + 1));
        copia.Por(bits, 4 + nova / 8, static_cast<quint8>(copia.Ler<quint8>(bits, 4 + nova / 8) | 1U << (nova % 8)));
        QVERIFY(copia.Tabela(tabela).rows == certa.rows);
        copia.Por(definicao, 16, static_cast<quint32>(certa.rows.size() + 1));
        QCOMPARE(copia.Dito(tabela), u"rows of the table are missing"_s); // it holds none of them
    }

    // Of the second page of a map the first bit stands for what is behind all bits of the first one.
    void a_segunda_pagina_de_um_mapa_conta_a_partir_do_fim_da_primeira()
    {
        constexpr int primeira = (tamanho - 4) * 8;
        const QString tabela = u"TblGrupos"_s;
        Copia copia;
        const JetFile::Table certa = copia.Tabela(tabela);
        const Linha mapa = Mapa(copia, Definicao(tabela));
        const int bits = copia.Nova_Pagina(QByteArray("\x05\0\0\0\x02", 5));
        copia.Por(mapa.pagina, mapa.inicio + 5, static_cast<quint32>(bits));
        QCOMPARE(copia.Dito(tabela), u"a page of the table lies beyond the end of the file"_s);
        copia.Crescer(primeira + 2);
        const int pagina = Pagina_De(copia, Definicao(tabela));
        copia.Por_Bytes(primeira + 1, 0, copia.Ler_Bytes(pagina, 0, tamanho));
        copia.Por(pagina, 4, quint32{0}); // it is nobody's any more
        QVERIFY(copia.Tabela(tabela).rows.size() == certa.rows.size());
    }

    void uma_linha_mudada_segue_se_ate_oito_vezes()
    {
        const JetFile::Table certa = Copia().Tabela(u"TblGrupos"_s);
        QVERIFY(Mudada(1).Tabela(u"TblGrupos"_s).rows == certa.rows);
        QVERIFY(Mudada(8).Tabela(u"TblGrupos"_s).rows == certa.rows);
        QCOMPARE(Mudada(9).Dito(u"TblGrupos"_s), u"a row that was moved for ever"_s);
    }

    void uma_linha_que_nao_ha_ou_sai_da_pagina_e_um_estrago()
    {
        Copia copia;
        const Linha linha = Primeira(copia, u"TblGrupos"_s);
        const int outra = copia.Nova_Pagina(
            Pagina_De_Linhas({copia.Ler_Bytes(linha.pagina, linha.inicio, linha.fim - linha.inicio)}));
        copia.Por(linha.pagina, 14, static_cast<quint16>(linha.inicio | 0x4000));
        const auto dito = [&](const QByteArray &para) {
            copia.Por_Bytes(linha.pagina, linha.inicio, para);
            return copia.Dito(u"TblGrupos"_s);
        };
        QCOMPARE(dito(Apontar(outra, 0)), QString());
        QCOMPARE(dito(Apontar(outra, 1)), u"there is no such row"_s);
        QCOMPARE(dito(Apontar(Definicao(u"TblGrupos"_s), 0)), u"there is no such row"_s);
        QCOMPARE(dito(Apontar(copia.Paginas(), 0)), u"a page lies beyond the end of the file"_s);
        copia.Por(outra, 14, quint16{4097});
        QCOMPARE(dito(Apontar(outra, 0)), fora);
        copia.Por(outra, 14, quint16{4094}); // no more than the count of its columns
        QCOMPARE(dito(Apontar(outra, 0)), fora);
        copia.Por(outra, 12, quint16{2});
        copia.Por(outra, 16, quint16{4095}); // behind the one before it
        QCOMPARE(dito(Apontar(outra, 1)), fora);
    }

    // A row from before the last columns were added knows nothing of them.
    void o_que_uma_linha_mais_antiga_nao_tem_e_nulo()
    {
        Copia copia;
        const Linha linha = Primeira(copia, u"TblMemos"_s);
        const int quantas = copia.Ler<quint16>(linha.pagina, linha.inicio);
        QCOMPARE(quantas, 13);
        const auto celulas = [&] { return copia.Tabela(u"TblMemos"_s).rows.at(0); };
        const std::vector<JetFile::Cell> antes = celulas();
        copia.Por(linha.pagina, linha.inicio, quint16{9}); // two bytes of bits, as before
        const std::vector<JetFile::Cell> depois = celulas();
        for (std::size_t i = 0; i < 9; ++i)
            QVERIFY(depois.at(i) == antes.at(i));
        for (std::size_t i = 9; i < 13; ++i)
            QVERIFY(std::holds_alternative<std::monostate>(depois.at(i)));
    }

    void um_texto_alem_dos_que_a_linha_conta_e_nulo()
    {
        Copia copia;
        const Linha linha = Primeira(copia, u"TblConfig"_s);
        const auto nulo = [&](std::size_t coluna) {
            return std::holds_alternative<std::monostate>(copia.Tabela(u"TblConfig"_s).rows.at(0).at(coluna));
        };
        QCOMPARE(copia.Ler<quint16>(linha.pagina, linha.Mascara() - 2), 4);
        QVERIFY(!nulo(3) && !nulo(4));
        copia.Por(linha.pagina, linha.Mascara() - 2, quint16{3});
        QVERIFY(!nulo(3) && nulo(4));
    }

    void um_texto_le_se_com_um_ou_dois_bytes_por_letra_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("texto");
        QTest::newRow("two") << Em_Duas(u"Aж"_s) << u"Aж"_s;
        QTest::newRow("one") << QByteArray("\xff\xfe" "Abc") << u"Abc"_s;
        QTest::newRow("one, beyond the first half") << QByteArray("\xff\xfe\xe9") << u"é"_s;
        QTest::newRow("one, two, one")
            << "\xff\xfe" "A" + QByteArray(1, '\0') + Em_Duas(u"ж"_s) + QByteArray("\0b", 2) << u"Aжb"_s;
        QTest::newRow("none") << QByteArray() << u""_s;
        QTest::newRow("the mark alone") << QByteArray("\xff\xfe") << u""_s;
    }
    void um_texto_le_se_com_um_ou_dois_bytes_por_letra()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, texto);
        QCOMPARE(std::get<QString>(Com_Texto(bytes).Tabela(u"TblGrupos"_s).rows.at(0).at(1)), texto);
    }

    void um_texto_que_acaba_a_meio_de_uma_letra_e_um_estrago()
    {
        const auto dito = [](const QByteArray &bytes) { return Com_Texto(bytes).Dito(u"TblGrupos"_s); };
        QCOMPARE(dito("A"), u"a text ends within a character"_s);
        QCOMPARE(dito("abc"), u"a text ends within a character"_s);
        QCOMPARE(dito(QByteArray("\xff\xfe\0a", 4)), fora); // the second half of it is missing
        Copia copia;
        const Linha linha = Primeira(copia, u"TblGrupos"_s);
        const int fim = linha.Mascara() - 6; // of all texts
        copia.Por(linha.pagina, fim, static_cast<quint16>(copia.Ler<quint16>(linha.pagina, fim + 2) - 2));
        QCOMPARE(copia.Dito(u"TblGrupos"_s), fora); // it ends before it begins
    }

    void um_texto_longo_esta_na_linha_noutra_ou_numa_cadeia()
    {
        const quint32 aqui = 0x80000000;
        const quint32 noutra = 0x40000000;
        const QByteArray texto = Em_Duas(u"ABC"_s);
        Copia copia;
        const int pagina = copia.Nova_Pagina(
            Pagina_De_Linhas({texto + Em_Duas(u"D"_s), Apontar(copia.Paginas(), 2) + texto.first(4),
                              QByteArray(4, '\0') + texto.sliced(4) + Em_Duas(u"E"_s)}));
        const auto memo = [&](quint32 cabeca, const QByteArray &resto) {
            return Destinatario(Com_Memo(cabeca, resto, copia));
        };
        QCOMPARE(memo(aqui | 6, QByteArray(8, '\0') + texto), u"ABC"_s);
        QCOMPARE(memo(noutra | 6, Apontar(pagina, 0)), u"ABC"_s);
        QCOMPARE(memo(noutra | 8, Apontar(pagina, 0)), u"ABCD"_s);
        QCOMPARE(memo(6, Apontar(pagina, 1)), u"ABC"_s);
        QCOMPARE(memo(4, Apontar(pagina, 1)), u"AB"_s);
        QCOMPARE(memo(8, Apontar(pagina, 1)), u"ABCE"_s);
        QCOMPARE(memo(0, QByteArray(4, '\0')), QString());
        const auto dito = [&](quint32 cabeca, const QByteArray &resto) {
            return Com_Memo(cabeca, resto, copia).Dito(u"TblConfig"_s);
        };
        QCOMPARE(dito(10, Apontar(pagina, 1)), u"a long text ends too early"_s);
        QCOMPARE(dito(noutra | 10, Apontar(pagina, 0)), fora);
        const int vazia = copia.Nova_Pagina(Pagina_De_Linhas({Apontar(pagina, 1)}));
        QCOMPARE(dito(6, Apontar(vazia, 0)), u"a long text with an empty piece"_s);
    }

    // All texts and rows together take three bytes for each of the file at most.
    void uma_tabela_maior_do_que_o_ficheiro_pode_ter_e_um_estrago()
    {
        const Copia sa;
        const Linha linha = Primeira(sa, u"TblConfig"_s);
        const auto lugar = [&](int i) { return sa.Ler<quint16>(linha.pagina, linha.Mascara() - 4 - 2 * i); };
        constexpr int colunas = 5;
        const int outro = sa.Ler<int>(linha.pagina, linha.inicio + lugar(2)) & 0x3fffffff; // the long text before it
        const qint64 resto =
            3 * sa.Tamanho() - (linha.fim - linha.inicio) - colunas - (lugar(2) - lugar(0)) - outro;
        const auto dito = [](qint64 comprimento) {
            return Com_Memo(0x80000000 | static_cast<quint32>(comprimento), {}).Dito(u"TblConfig"_s);
        };
        QCOMPARE(dito(resto), fora);
        QCOMPARE(dito(resto + 1), u"a table beyond all measure"_s);
    }

    void um_dia_vai_do_ano_100_ao_9999_data()
    {
        QTest::addColumn<double>("valor");
        QTest::addColumn<QString>("dia"); // empty: there is none
        const auto linha = [](const char *nome, double valor, const QString &dia) {
            QTest::newRow(nome) << valor << dia;
        };
        linha("the first", -657434, u"0100-01-01T00:00:00"_s);
        linha("the first, in the evening", -657434.75, u"0100-01-01T18:00:00"_s);
        linha("the day before it", -657435, {});
        linha("the first of all", 0, u"1899-12-30T00:00:00"_s);
        linha("before it, in the morning", -1.25, u"1899-12-29T06:00:00"_s);
        linha("the evening of the first of all", 0.75, u"1899-12-30T18:00:00"_s);
        linha("a second, rounded", 1 + 1.6 / 86400, u"1899-12-31T00:00:02"_s);
        linha("the last", 2958465.75, u"9999-12-31T18:00:00"_s);
        linha("the day behind it", 2958466, {});
        linha("no number", std::nan(""), {});
    }
    void um_dia_vai_do_ano_100_ao_9999()
    {
        QFETCH(double, valor);
        QFETCH(QString, dia);
        const Copia copia = Com_Tarefa(4, valor);
        QCOMPARE(copia.Dito(u"TblTarefas"_s), dia.isEmpty() ? u"a date that no calendar has"_s : QString());
        if (dia.isEmpty()) return;
        const auto lido = std::get<QDateTime>(copia.Tabela(u"TblTarefas"_s).rows.at(0).at(2));
        QCOMPARE(lido.toString(u"yyyy-MM-ddTHH:mm:ss"_s), dia);
    }

    void um_numero_que_nenhum_e_e_um_estrago_e_os_outros_ficam_como_estao()
    {
        Copia copia;
        const Linha linha = Primeira(copia, u"TblMemos"_s);
        const auto por = [&](float valor) { copia.Por(linha.pagina, linha.inicio + 2 + 4, valor); };
        por(-8.25F);
        QCOMPARE(std::get<double>(copia.Tabela(u"TblMemos"_s).rows.at(0).at(3)), -8.25);
        for (const float nenhum : {std::numeric_limits<float>::infinity(), std::nanf("")}) {
            por(nenhum);
            QCOMPARE(copia.Dito(u"TblMemos"_s), u"a number that is none"_s);
        }
    }

    void o_catalogo_diz_o_que_lhe_falta()
    {
        const auto dito = [](const Copia &copia) { return teste::Falha_Dita([&] { copia.Abrir(); }); };
        Copia sem_coluna;
        const qsizetype nome = sem_coluna.Ler_Bytes(catalogo, 0, tamanho).indexOf(Em_Duas(u"Type"_s));
        QVERIFY(nome > 0);
        sem_coluna.Por_Bytes(catalogo, static_cast<int>(nome), Em_Duas(u"Tipo"_s));
        QCOMPARE(dito(sem_coluna), QStringList({u"JetFile"_s, u"the catalogue lacks a column"_s}));
        Copia sem_valor;
        const Linha linha = Linha_Em(sem_valor, Pagina_De(sem_valor, catalogo), 0);
        sem_valor.Por(linha.pagina, linha.fim - 3, quint8{0}); // the bits of the first eight columns
        QCOMPARE(dito(sem_valor), QStringList({u"JetFile"_s, u"the catalogue lacks a value"_s}));
    }

    void do_catalogo_so_se_mostram_as_tabelas_da_pessoa()
    {
        const QString tabela = u"TblGrupos"_s;
        const Copia sa;
        const int pagina = Entrada_De(sa, tabela).pagina;
        const int entrada = Entrada_De(sa, tabela).inicio + 2; // its ID, then its parent's, type and flags
        const auto mostrada = [&](int onde, auto valor) {
            Copia copia;
            copia.Por(pagina, entrada + onde, valor);
            return copia.Abrir().tables().contains(tabela) && copia.Dito(tabela).isEmpty();
        };
        QCOMPARE(sa.Abrir().tables().size(), 9);
        QVERIFY(mostrada(8, quint16{1}));
        QVERIFY(!mostrada(8, quint16{2})); // a stored query or the like
        QVERIFY(mostrada(26, quint32{1}));
        QVERIFY(!mostrada(26, quint32{2}));
        QVERIFY(!mostrada(26, quint32{0x80000000}));
        QVERIFY(mostrada(0, static_cast<quint32>(0x01000000 | Definicao(tabela)))); // only three bytes are a page
    }

    void a_ordem_das_colunas_do_catalogo_nao_conta()
    {
        constexpr int coluna = 25;
        Copia copia;
        const int quantas = copia.Ler<quint16>(catalogo, 45);
        const int inicio = 63 + 12 * copia.Ler<int>(catalogo, 51);
        const int nomes = inicio + coluna * quantas;
        int ultimo = nomes;
        for (int i = 1; i < quantas; ++i)
            ultimo += 2 + copia.Ler<quint16>(catalogo, ultimo);
        const int fim = ultimo + 2 + copia.Ler<quint16>(catalogo, ultimo);
        const QByteArray colunas = copia.Ler_Bytes(catalogo, inicio, nomes - inicio);
        copia.Por_Bytes(catalogo, inicio, colunas.last(coluna) + colunas.chopped(coluna));
        copia.Por_Bytes(catalogo, nomes,
                        copia.Ler_Bytes(catalogo, ultimo, fim - ultimo) + copia.Ler_Bytes(catalogo, nomes, ultimo - nomes));
        QCOMPARE(copia.Abrir().tables(), Copia().Abrir().tables());
    }
};

MORVEX_TESTE(TestJetTable)
#include "test_JetTable.moc"
