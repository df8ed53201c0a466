// The interface texts: which there are, and what each must hold in all seven languages.
#include "data/Idiomas.h"
#include "data/Textos.h"
#include "store/Connection.h"
#include "testlib/FalhaDita.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QFile>
#include <QMap>

using namespace Qt::StringLiterals;

namespace
{
// A table in a file of tab-separated cells, its head row taken off.
QList<QStringList> Ler_Tabela(const QString &caminho, QStringList *cabecalho = nullptr)
{
    QFile ficheiro(caminho);
    if (!ficheiro.open(QIODevice::ReadOnly)) qFatal("%s is missing", qUtf8Printable(caminho));
    QList<QStringList> linhas;
    for (const QString &linha : QString::fromUtf8(ficheiro.readAll()).split(u'\n', Qt::SkipEmptyParts))
        linhas << linha.split(u'\t');
    const QStringList cabeca = linhas.takeFirst();
    if (cabecalho != nullptr) *cabecalho = cabeca;
    return linhas;
}

// The letter behind the mark, as a capital; none where there is no mark.
QChar Mnemonica(const QString &texto)
{
    const qsizetype marca = texto.indexOf(u'&');
    return marca >= 0 && marca + 1 < texto.size() ? texto[marca + 1].toUpper() : QChar();
}

// The text that the forms make of others: {n} is text n.
QString Juntar(QString juncao, const QMap<int, QString> &textos)
{
    static const QRegularExpression lugar(u"\\{([0-9]+)\\}"_s);
    for (auto match = lugar.match(juncao); match.hasMatch(); match = lugar.match(juncao))
        juncao.replace(match.captured(0), textos.value(match.captured(1).toInt()));
    return juncao;
}

bool Iguais_Em_Numero(const QString &texto, const QString &abre, const QString &fecha)
{
    return texto.count(abre) == texto.count(fecha);
}
} // namespace

class TestTextos : public QObject
{
    Q_OBJECT

    QStringList cabecalho_;
    QList<QStringList> linhas_;
    QMap<QString, QMap<int, QString>> textos_; // by language and number
    QMap<int, QString> usos_;

    static void Linguas()
    {
        QTest::addColumn<QString>("lingua");
        for (const Idioma &idioma : idiomas::todos)
            QTest::newRow(idioma.coluna) << QString::fromLatin1(idioma.coluna);
    }

private Q_SLOTS:
    void initTestCase()
    {
        linhas_ = Ler_Tabela(QFINDTESTDATA("../resources/textos/TblIdiomas.tsv"), &cabecalho_);
        for (const QStringList &linha : linhas_) {
            QCOMPARE(linha.size(), cabecalho_.size());
            usos_[linha[0].toInt()] = linha[1];
            for (qsizetype c = 2; c < linha.size(); ++c)
                textos_[cabecalho_[c]][linha[0].toInt()] = linha[c];
        }
    }

    void um_ficheiro_que_falta_e_uma_linha_de_outra_medida_dizem_se()
    {
        const QString nenhum = u"/nenhum/TblIdiomas.tsv"_s;
        QCOMPARE(teste::Falha_Dita([&] { Ler_Textos(nenhum); }),
                 QStringList({nenhum, u"The texts were not found: "_s + nenhum}));
        Connection base;
        base.OpenInMemory(1 << 20);
        base.execute(u"CREATE TABLE TblIdiomas (ID INTEGER, PortuguesPT TEXT)"_s, {});
        const QStringList cabeca{u"ID"_s, u"Uso"_s, u"PortuguesPT"_s};
        const auto dito = [&](const QStringList &linha) {
            return teste::Falha_Dita([&] { Inserir_Textos(base, {cabeca, linha}, [](int) { return true; }); });
        };
        QCOMPARE(dito({u"7"_s, u"menu"_s, u"Sair"_s}), QStringList());
        QCOMPARE(dito({u"8"_s, u"menu"_s}), QStringList({u"8"_s, u"A row with 1 cells"_s}));
        QCOMPARE(dito({u"9"_s, u"menu"_s, u"Sair"_s, u"Exit"_s}),
                 QStringList({u"9\tSair\tExit"_s, u"A row with 3 cells"_s}));
        Recordset rs = base.query(u"SELECT * FROM TblIdiomas"_s, {});
        QCOMPARE(rs.RecordCount(), 1);
        QCOMPARE(rs.Row(), QStringList({u"7"_s, u"Sair"_s}));
    }

    void os_numeros_sao_exactamente_os_que_os_formularios_pedem()
    {
        QList<int> numeros;
        for (const auto &[de, ate] : {std::pair{1, 3},
                                      {11, 11},
                                      {14, 32},
                                      {34, 48},
                                      {50, 50},
                                      {53, 55},
                                      {58, 71},
                                      {73, 86},
                                      {88, 109},
                                      {111, 113},
                                      {115, 159},
                                      {161, 208},
                                      {217, 221},
                                      {223, 255},
                                      {257, 278},
                                      {285, 335},
                                      {340, 353},
                                      {355, 414},
                                      {420, 431},
                                      {450, 454},
                                      {500, 561}})
            for (int numero = de; numero <= ate; ++numero)
                numeros << numero;
        QCOMPARE(numeros.size(), 452);
        numeros << QList{49, 56, 72, 87, 256};
        std::sort(numeros.begin(), numeros.end());
        QCOMPARE(usos_.keys(), numeros);
        QCOMPARE(linhas_.size(), numeros.size());
    }

    void a_base_enviada_tem_os_mesmos_textos()
    {
        Sistema s(Sistema::Estado::Vazio);
        QStringList enviados =
            s.Linhas(u"SELECT ID, PortuguesPT, PortuguesBR, InglesUK, EspanholES, ItalianoIT, "
                     "FrancesFR, AlemaoDE FROM TblIdiomas ORDER BY ID"_s);
        QStringList origem;
        for (const auto &[numero, uso] : usos_.asKeyValueRange()) {
            QStringList linha{QString::number(numero)};
            for (const Idioma &idioma : idiomas::todos)
                linha << textos_[QString::fromLatin1(idioma.coluna)][numero];
            origem << linha.join(u'|');
        }
        QCOMPARE(enviados, origem);
    }

    void ha_sete_linguas_e_nenhuma_outra()
    {
        QStringList colunas{u"ID"_s, u"Uso"_s};
        for (const Idioma &idioma : idiomas::todos)
            colunas << QString::fromLatin1(idioma.coluna);
        QCOMPARE(cabecalho_, colunas);
    }

    void nenhum_texto_esta_vazio_nem_tem_brancos_a_mais_data() { Linguas(); }
    void nenhum_texto_esta_vazio_nem_tem_brancos_a_mais()
    {
        QFETCH(QString, lingua);
        for (const auto &[numero, texto] : textos_[lingua].asKeyValueRange()) {
            QVERIFY2(!texto.isEmpty(), qPrintable(QString::number(numero)));
            // A no-break space is wanted: before the marks of French, and at the end where the code adds one.
            QString rijo = texto;
            rijo.replace(u'\u00a0', u'_');
            QVERIFY2(rijo == rijo.simplified(), qPrintable(QString::number(numero)));
        }
    }

    void no_frances_um_espaco_rijo_precede_cada_sinal_duplo()
    {
        int sinais = 0;
        int finais = 0;
        for (const auto &[numero, texto] : textos_[u"FrancesFR"_s].asKeyValueRange()) {
            for (qsizetype i = 0; i < texto.size(); ++i) {
                if (!u":?!;"_s.contains(texto[i])) continue;
                ++sinais;
                QVERIFY2(i > 0 && texto[i - 1] == u'\u00a0', qUtf8Printable(texto));
            }
            const bool junta = usos_[numero].contains(u"code adds a colon"_s);
            finais += junta ? 1 : 0;
            QVERIFY2(texto.endsWith(u'\u00a0') == junta, qUtf8Printable(texto));
        }
        QVERIFY(sinais > 30);
        QCOMPARE(finais, 5);
    }

    void so_o_frances_pede_espacos_rijos()
    {
        for (const Idioma &idioma : idiomas::todos) {
            const QString lingua = QString::fromLatin1(idioma.coluna);
            if (lingua == u"FrancesFR"_s) continue;
            for (const QString &texto : textos_[lingua])
                QVERIFY2(!texto.contains(u'\u00a0'), qUtf8Printable(texto));
        }
    }

    void uma_mnemonica_exactamente_onde_o_uso_a_pede_data() { Linguas(); }
    void uma_mnemonica_exactamente_onde_o_uso_a_pede()
    {
        QFETCH(QString, lingua);
        int pedidas = 0;
        for (const auto &[numero, texto] : textos_[lingua].asKeyValueRange()) {
            const bool pede = usos_[numero].contains(u"needs one & mnemonic"_s);
            pedidas += pede ? 1 : 0;
            QVERIFY2(texto.count(u'&') == (pede ? 1 : 0), qUtf8Printable(texto));
            QVERIFY2(!pede || Mnemonica(texto).isLetterOrNumber(), qUtf8Printable(texto));
        }
        QVERIFY(pedidas > 90);
    }

    void nao_ha_mnemonicas_iguais_no_mesmo_ambito_data() { Linguas(); }
    void nao_ha_mnemonicas_iguais_no_mesmo_ambito()
    {
        QFETCH(QString, lingua);
        const auto ambitos = Ler_Tabela(QFINDTESTDATA("data/mnemonicas.tsv"));
        QVERIFY(ambitos.size() > 30);
        for (const QStringList &ambito : ambitos) {
            QString vistas = ambito[0].contains(u"+&Ok"_s) ? u"O"_s : u""_s;
            for (const QString &numero : ambito[1].split(u' ')) {
                QVERIFY2(textos_[lingua].contains(numero.toInt()), qPrintable(numero));
                const QChar letra = Mnemonica(textos_[lingua][numero.toInt()]);
                if (letra.isNull()) continue;
                QVERIFY2(!vistas.contains(letra), qUtf8Printable(ambito[0] + u": "_s + numero));
                vistas += letra;
            }
        }
    }

    void os_textos_juntos_ficam_bem_data() { Linguas(); }
    void os_textos_juntos_ficam_bem()
    {
        QFETCH(QString, lingua);
        const auto juncoes = Ler_Tabela(QFINDTESTDATA("data/textos_juntos.tsv"));
        QVERIFY(juncoes.size() > 40);
        for (const QStringList &juncao : juncoes) {
            const QString junto = Juntar(juncao[1], textos_[lingua]);
            const QByteArray nota = (juncao[0] + u": "_s + junto).toUtf8();
            for (const QString &linha : junto.split(u'|'))
                QVERIFY2(linha == linha.trimmed(), nota);
            static const QRegularExpression maus(
                u" {2}|:[ \u00a0]?:|\\? ?\\?|\\. \\.|(?<!\\.)\\.\\.(?!\\.)|[:.,]\\?|\\(\\(|\\)\\)|\\{|\\}"_s);
            QVERIFY2(!maus.match(junto).hasMatch(), nota);
            QVERIFY2(Iguais_Em_Numero(junto, u"("_s, u")"_s) && Iguais_Em_Numero(junto, u"«"_s, u"»"_s),
                     nota);
            QVERIFY2(junto.count(u'"') % 2 == 0, nota);
            if (lingua == u"EspanholES"_s)
                QVERIFY2(Iguais_Em_Numero(junto, u"¿"_s, u"?"_s) && Iguais_Em_Numero(junto, u"¡"_s, u"!"_s),
                         nota);
        }
    }

    // A report's text field is cut at semicolons.
    void os_textos_dos_relatorios_nao_tem_ponto_e_virgula_data() { Linguas(); }
    void os_textos_dos_relatorios_nao_tem_ponto_e_virgula()
    {
        QFETCH(QString, lingua);
        int vistos = 0;
        for (const QStringList &juncao : Ler_Tabela(QFINDTESTDATA("data/textos_juntos.tsv"))) {
            if (!juncao[0].startsWith(u"relatorio_"_s)) continue;
            ++vistos;
            QCOMPARE(Juntar(juncao[1], textos_[lingua]).count(u';'), 2);
        }
        QVERIFY(vistos > 20);
    }

    // The design of the program writes these captions in capitals; elsewhere capitals shout.
    void as_maiusculas_ficam_em_portugues_de_portugal_data() { Linguas(); }
    void as_maiusculas_ficam_em_portugues_de_portugal()
    {
        QFETCH(QString, lingua);
        QList<int> gritados;
        for (auto it = textos_[lingua].cbegin(); it != textos_[lingua].cend(); ++it) {
            const QString letras = QString(it.value()).remove(QRegularExpression(u"[^\\p{L}]"_s));
            if (letras.size() > 4 && letras == letras.toUpper()) gritados << it.key();
        }
        const bool gritam = lingua == "PortuguesPT"_L1;
        QCOMPARE(gritados,
                 gritam ? QList<int>({45, 46, 47, 243, 244, 248, 249, 250, 253, 254, 257}) : QList<int>());
    }
};

MORVEX_TESTE(TestTextos)
#include "test_Textos.moc"
