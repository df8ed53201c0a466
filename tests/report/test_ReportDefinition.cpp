// Definitions of reports: what is read from the file, and where a broken one says that it is broken.
#include "report/ReportDefinition.h"
#include "testlib/Teste.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class TestReportDefinition : public QObject
{
    Q_OBJECT

    QTemporaryDir folder_;

    ReportDefinition Ler(const QString &xml)
    {
        const QString path = folder_.filePath(u"r.rpt"_s);
        QFile file(path);
        if (file.open(QIODevice::WriteOnly)) file.write(xml.toUtf8());
        file.close();
        return readReportDefinition(path);
    }
    // A report with this between its beginning and its end; line 2 is the first of it.
    ReportDefinition Ler_Com(const QString &dentro)
    {
        return Ler(u"<report table='T'>\n"_s + dentro + u"\n</report>"_s);
    }

private Q_SLOTS:
    void le_papel_e_margens()
    {
        const ReportDefinition d = Ler_Com(
            u"<paper size='A4' orientation='landscape' left='100' top='200' right='300' bottom='400'/>"_s);
        QCOMPARE(d.paper(), QSizeF(16840, 11900));
        QCOMPARE(d.margins, QMarginsF(100, 200, 300, 400));
        QCOMPARE(d.bodyHeight(), 11300.0);
    }
    void um_envelope_deitado_e_mais_largo_do_que_alto()
    {
        const QSizeF paper = Ler_Com(u"<paper size='DL' orientation='landscape'/>"_s).paper();
        QCOMPARE(paper, QSizeF(12480, 6240));
    }
    // In twips, twenty to each whole point.
    void cada_papel_tem_o_seu_tamanho_data()
    {
        QTest::addColumn<QSizeF>("papel");
        QTest::newRow("A4") << QSizeF(11900, 16840);
        QTest::newRow("A5") << QSizeF(8400, 11900);
        QTest::newRow("A6") << QSizeF(5940, 8400);
        QTest::newRow("Letter") << QSizeF(12240, 15840);
        QTest::newRow("Legal") << QSizeF(12240, 20160);
        QTest::newRow("DL") << QSizeF(6240, 12480);
        QTest::newRow("C5") << QSizeF(9180, 12980);
        QTest::newRow("C6") << QSizeF(6460, 9180);
    }
    void cada_papel_tem_o_seu_tamanho()
    {
        const ReportDefinition d = Ler_Com(
            u"<paper size='%1' orientation='portrait'/>"_s.arg(QString::fromLatin1(QTest::currentDataTag())));
        QTEST(d.paper(), "papel");
        QVERIFY(!d.landscape);
    }
    void sem_mais_nada_dito_e_um_A4_de_pe_sem_margens_e_letra_de_dez_pontos()
    {
        const ReportDefinition d =
            Ler(u"<report table='T'><font name='f'/><detail><row><text>a</text><text font='f'>b</text>"
                "<line/></row></detail></report>"_s);
        QCOMPARE(d.paper(), QSizeF(11900, 16840));
        QCOMPARE(d.margins, QMarginsF());
        QVERIFY(!d.landscape && !d.detail.newPage && !d.detail.together);
        QCOMPARE(d.detail.columns, 1);
        QCOMPARE(d.title, QString());
        QCOMPARE(d.pageOfPages, u"%1 / %2"_s);
        QCOMPARE(d.dayFormat, u"dd-MM-yyyy"_s);
        for (const std::size_t i : {0U, 1U}) {
            const ReportElement &texto = d.detail.rows.at(0).elements.at(i);
            QCOMPARE(texto.kind, ReportElement::Text);
            QCOMPARE(texto.font.pixelSize(), 200);
            QCOMPARE(texto.font.family(), u"Sans Serif"_s);
            QCOMPARE(texto.font.styleHint(), QFont::SansSerif);
            QCOMPARE(texto.font.hintingPreference(), QFont::PreferNoHinting);
            QVERIFY(!texto.font.bold() && !texto.font.italic());
            QVERIFY(!texto.grows && !texto.dropsLines && !texto.screenOnly);
            QCOMPARE(texto.align, Qt::AlignLeft);
            QCOMPARE(texto.colour, 0U);
            QCOMPARE(texto.least, 0.0);
        }
        const ReportElement &traco = d.detail.rows.at(0).elements.at(2);
        QCOMPARE(traco.kind, ReportElement::Line);
        QCOMPARE(traco.thickness, 10.0);
        QVERIFY(!traco.grows && !traco.dropsLines && !traco.screenOnly);
        QCOMPARE(traco.least, 0.0);
        QCOMPARE(d.detail.rows.at(0).from, 0.0);
        QVERIFY(!d.detail.rows.at(0).closesUp);
    }
    void uma_faixa_que_falta_nao_toma_lugar_nem_muda_de_pagina()
    {
        const ReportDefinition d = Ler_Com({});
        for (const ReportBand *faixa :
             {&d.reportHeader, &d.pageHeader, &d.continued, &d.detail, &d.pageFooter, &d.reportFooter}) {
            QVERIFY(faixa->rows.empty() && faixa->first.isEmpty());
            QVERIFY(!faixa->newPage && !faixa->together);
            QCOMPARE(faixa->height, 0.0);
            QCOMPARE(faixa->width, 0.0);
            QCOMPARE(faixa->columns, 1);
        }
        QCOMPARE(d.bodyHeight(), 16840.0);
    }
    // Twips, up to seventy inches.
    void um_comprimento_vai_de_nada_a_cem_mil()
    {
        QCOMPARE(Ler_Com(u"<detail height='100000'/>"_s).detail.height, 100'000.0);
        QCOMPARE(Ler_Com(u"<detail height='0'/>"_s).detail.height, 0.0);
        VERIFICAR_FALHA(Ler_Com(u"<detail height='100000.5'/>"_s), Failure::InvalidPropertyValue);
        VERIFICAR_FALHA(Ler_Com(u"<detail height='-0.5'/>"_s), Failure::InvalidPropertyValue);
    }
    void o_que_nao_e_cor_e_recusado_data()
    {
        QTest::addColumn<QString>("cor");
        for (const char *cor : {"#12345g", "#12345", "x123456", "1234567", "#1234567", "#"})
            QTest::newRow(cor) << QString::fromLatin1(cor);
    }
    void o_que_nao_e_cor_e_recusado()
    {
        QFETCH(QString, cor);
        try {
            Ler_Com(u"<font name='f' colour='%1'/>"_s.arg(cor));
            QFAIL("the colour was taken");
        } catch (const Failure &failure) {
            QVERIFY(failure.description().endsWith(u": A colour is written #rrggbb, not "_s + cor));
        }
    }
    void um_atributo_que_o_elemento_nao_tem_e_recusado_data()
    {
        QTest::addColumn<QString>("xml");
        const auto caso = [](const char *elemento, const QString &dentro) {
            QTest::newRow(elemento) << u"<report table='T'>"_s + dentro + u"</report>"_s;
        };
        QTest::newRow("report") << u"<report table='T' cor='1'/>"_s;
        caso("paper", u"<paper cor='1'/>"_s);
        caso("font", u"<font name='f' cor='1'/>"_s);
        caso("parameter", u"<parameter name='p' cor='1'/>"_s);
        caso("texts", u"<texts table='T' key='ID' cor='1'/>"_s);
        caso("lookup", u"<lookup table='G' key='ID' equals='1' cor='1'/>"_s);
        caso("detail", u"<detail cor='1'/>"_s);
        caso("pageheader", u"<pageheader cor='1'/>"_s);
        caso("row", u"<detail><row cor='1'/></detail>"_s);
        caso("text", u"<detail><row><text cor='1'>a</text></row></detail>"_s);
        caso("picture", u"<detail><row><picture cor='1'>a</picture></row></detail>"_s);
        caso("line", u"<detail><row><line cor='1'/></row></detail>"_s);
        caso("box", u"<detail><row><box cor='1'/></row></detail>"_s);
    }
    void um_atributo_que_o_elemento_nao_tem_e_recusado()
    {
        QFETCH(QString, xml);
        try {
            Ler(xml);
            QFAIL("the attribute was taken");
        } catch (const Failure &failure) {
            QVERIFY2(failure.description().endsWith(
                         u": <%1> takes no attribute \"cor\""_s.arg(QString::fromLatin1(QTest::currentDataTag()))),
                     qPrintable(failure.description()));
        }
    }
    // Once each, however deep the fault lay.
    void uma_falha_diz_o_ficheiro_a_linha_a_coluna_e_o_que_esta_mal()
    {
        const QString antes = folder_.filePath(u"r.rpt"_s) + u", line 2, column "_s;
        const QString dentro = u"<detail><row><text>{?x}</text></row></detail>"_s;
        const QString tabela = u"<detail><row><text>{G.A}</text></row></detail>"_s;
        for (const auto &[xml, coluna, dito] :
             {std::tuple{dentro, dentro.indexOf(u"</row>"_s), u"There is no parameter x"_s},
              std::tuple{tabela, tabela.indexOf(u"</row>"_s),
                         u"G is neither the report's table nor looked up"_s}}) {
            try {
                Ler_Com(xml);
                QFAIL("the file was taken");
            } catch (const Failure &failure) {
                QCOMPARE(failure.source(), u"ReportDefinition"_s);
                QCOMPARE(failure.description(), antes + QString::number(coluna) + u": "_s + dito);
            }
        }
    }
    void o_que_nao_e_XML_diz_se_antes_de_tudo_o_mais()
    {
        const auto dito = [this](const QString &xml) {
            try {
                Ler(xml);
            } catch (const Failure &failure) {
                return failure.description();
            }
            return QString();
        };
        const QString lista = dito(u"lista"_s);
        QVERIFY2(!lista.isEmpty() && !lista.contains(u"no report"_s), qPrintable(lista));
        const QString meio = dito(u"<report table='T'><detail><row><text>{T.<b/></text></row></detail></report>"_s);
        QVERIFY2(!meio.isEmpty() && !meio.contains(u"brace"_s), qPrintable(meio));
    }
    void um_ficheiro_vazio_e_como_se_faltasse()
    {
        VERIFICAR_FALHA(Ler({}), Failure::FileNotFound);
        VERIFICAR_FALHA(Ler(u"x"_s), Failure::InvalidPropertyValue);
    }
    void o_que_se_diz_da_letra_e_do_texto_vale()
    {
        const ReportDefinition d = Ler_Com(
            u"<font name='f' family='Serif' size='12' italic='yes'/><detail together='yes'><row>"
            "<text font='f' align='centre' closelines='yes' colour='#000001'>a</text></row></detail>"_s);
        QVERIFY(d.detail.together);
        const ReportElement &texto = d.detail.rows.at(0).elements.at(0);
        QCOMPARE(texto.font.family(), u"Serif"_s);
        QCOMPARE(texto.font.pixelSize(), 240);
        QVERIFY(texto.font.italic() && !texto.font.bold());
        QCOMPARE(texto.align, Qt::AlignHCenter);
        QVERIFY(texto.dropsLines);
        QCOMPARE(texto.colour, 1U);
    }
    void vinte_colunas_ainda_se_leem_e_uma_letra_de_um_ponto_tambem()
    {
        const ReportDefinition d = Ler_Com(u"<parameter name='p'/><font name='f' size='1'/>"
                                           "<detail columns='20' width='30' height='40' first='p'><row>"
                                           "<text least='1'>a</text></row></detail>"_s);
        QCOMPARE(d.detail.columns, 20);
        QCOMPARE(d.detail.width, 30.0);
        QCOMPARE(d.detail.first, u"p"_s);
    }
    // A line of text, 200 twips, must have room between what stands on every page.
    void tem_de_haver_lugar_para_uma_linha()
    {
        QCOMPARE(Ler_Com(u"<paper top='16640'/>"_s).bodyHeight(), 200.0);
        VERIFICAR_FALHA(Ler_Com(u"<paper top='16641'/>"_s), Failure::InvalidPropertyValue);
        QCOMPARE(Ler_Com(u"<paper top='100' bottom='200'/><pageheader height='300'/>"
                         "<pagefooter height='400'/>"_s)
                     .bodyHeight(),
                 15840.0);
    }
    // Page header and footer are at least as high as their rows; what flows is as high as it says.
    void as_faixas_de_cada_pagina_sao_tao_altas_como_as_suas_linhas()
    {
        const ReportDefinition d =
            Ler_Com(u"<pageheader height='100'><row height='300'/><row height='200'/></pageheader>"
                    "<pagefooter height='900'><row height='300'/></pagefooter>"
                    "<reportheader height='100'><row height='300'/></reportheader>"_s);
        QCOMPARE(d.pageHeader.height, 500.0);
        QCOMPARE(d.pageFooter.height, 900.0);
        QCOMPARE(d.reportHeader.height, 100.0);
    }
    // Only a text of fixed height that has room for two lines, or that shrinks, can lose some.
    void que_textos_podem_perder_linhas_data()
    {
        QTest::addColumn<QString>("dentro");
        QTest::addColumn<bool>("pode");
        QTest::newRow("two lines") << u"<text height='400'>a</text>"_s << true;
        QTest::newRow("just not two") << u"<text height='399'>a</text>"_s << false;
        QTest::newRow("two lines that grow") << u"<text height='400' grow='yes'>a</text>"_s << false;
        QTest::newRow("one that shrinks") << u"<text height='200' least='6'>a</text>"_s << true;
        QTest::newRow("one that shrinks to the least of all") << u"<text height='200' least='1'>a</text>"_s << true;
        QTest::newRow("a picture") << u"<picture height='400'>a</picture>"_s << false;
        QTest::newRow("a line") << u"<line height='400'/>"_s << false;
    }
    void que_textos_podem_perder_linhas()
    {
        QFETCH(QString, dentro);
        QFETCH(bool, pode);
        QCOMPARE(Ler_Com(u"<detail><row>"_s + dentro + u"</row></detail>"_s).canLose(), pode);
        if (dentro.contains(u"grow"_s)) return;
        for (const QString &faixa :
             {u"pageheader"_s, u"pagefooter"_s, u"continued"_s, u"reportheader"_s, u"reportfooter"_s})
            QCOMPARE(Ler_Com(u"<%1><row>%2</row></%1>"_s.arg(faixa, dentro)).canLose(), pode);
    }
    void so_o_que_e_so_tracos_e_so_desenhado()
    {
        const auto desenhada = [&](const QString &dentro) {
            return Ler_Com(u"<detail><row>"_s + dentro + u"</row></detail>"_s).detail.rows.at(0).onlyDrawn();
        };
        QVERIFY(desenhada(u"<line/>"_s) && desenhada(u"<box/>"_s) && desenhada(u"<line/><box/>"_s));
        QVERIFY(!desenhada(QString()) && !desenhada(u"<line/><text>a</text>"_s));
        QVERIFY(!desenhada(u"<picture>a</picture>"_s));
    }
    void le_as_faixas_as_linhas_e_os_elementos()
    {
        const ReportDefinition d = Ler_Com(
            u"<font name='f' size='8.25' bold='yes' colour='#102030'/><parameter name='p' default='Tel'/>"
            "<detail height='500' newpage='yes'><row height='300' from='20' closeup='yes'>"
            "<text left='1' top='2' width='3' height='4' font='f' align='right' grow='yes' "
            "head='{?p}'>{T.A}</text>"
            "<line width='9' thickness='20' colour='#ff0000'/><box on='screen'/>"
            "<picture fallback='x.jpg'>{T.B}</picture></row></detail>"_s);
        QCOMPARE(d.detail.height, 500.0);
        QVERIFY(d.detail.newPage);
        const ReportRow &row = d.detail.rows.at(0);
        QVERIFY(row.closesUp && row.grows());
        QCOMPARE(row.from, 20.0);
        QCOMPARE(row.elements.size(), 4U);
        const ReportElement &text = row.elements[0];
        QCOMPARE(text.area, QRectF(1, 2, 3, 4));
        QCOMPARE(text.font.pixelSize(), 165);
        QVERIFY(text.font.bold() && !text.font.italic());
        QCOMPARE(text.colour, 0x102030U);
        QCOMPARE(text.align, Qt::AlignRight);
        QCOMPARE(text.head.parameters(), QStringList{u"p"_s});
        QCOMPARE(row.elements[1].kind, ReportElement::Line);
        QCOMPARE(row.elements[1].thickness, 20.0);
        QCOMPARE(row.elements[2].kind, ReportElement::Box);
        QVERIFY(row.elements[2].screenOnly);
        QCOMPARE(row.elements[3].kind, ReportElement::Picture);
        QCOMPARE(row.elements[3].fallback, u"x.jpg"_s);
        QCOMPARE(d.fields, (std::vector<ReportField>{{u"T"_s, u"A"_s}, {u"T"_s, u"B"_s}}));
        QCOMPARE(d.parameters.value(u"p"_s), u"Tel"_s);
    }
    void le_a_letra_mais_pequena_e_a_cabeca_da_continuacao()
    {
        const ReportDefinition d =
            Ler_Com(u"<continued height='100'><row height='600'/></continued>"
                    "<detail><row><text least='7.5'>a</text><text>b</text></row></detail>"_s);
        QCOMPARE(d.continued.height, 600.0);
        QCOMPARE(d.detail.rows.at(0).elements.at(0).least, 7.5);
        QCOMPARE(d.detail.rows.at(0).elements.at(1).least, 0.0);
    }
    void um_campo_usado_duas_vezes_e_lido_uma_vez()
    {
        QCOMPARE(Ler_Com(u"<detail><row><text>{T.A}{T.B}{T.A}</text></row></detail>"_s).fields.size(), 2U);
    }
    void o_formato_de_um_campo_nao_e_do_seu_nome()
    {
        QCOMPARE(Ler_Com(u"<parameter name='p'/><detail><row><text>{T.A:date}{T.B|C:00}{?m{T.D:time}}{?p}</text></row>"
                         "</detail>"_s)
                     .fields,
                 (std::vector<ReportField>{
                     {u"T"_s, u"A"_s}, {u"T"_s, u"B"_s}, {u"T"_s, u"C"_s}, {u"T"_s, u"D"_s}}));
    }
    void uma_consulta_segue_um_campo_ou_um_valor()
    {
        const ReportDefinition d = Ler_Com(u"<lookup table='G' key='ID' equals='{T.Grupo}'/>"
                                           "<lookup table='C' key='ID' equals='1'/>"_s);
        QCOMPARE(d.lookups[0].field, u"Grupo"_s);
        QCOMPARE(d.lookups[1].value, u"1"_s);
        QVERIFY(d.lookups[1].field.isEmpty());
    }

    void le_os_numeros_dos_textos_do_programa()
    {
        const ReportDefinition d =
            Ler(u"<report title='Lista' text='79' table='T'><texts table='Textos' key='ID'/>"
                "<parameter name='p' default='Tel' text='28'/><parameter name='q'/></report>"_s);
        QCOMPARE(d.texts.table, u"Textos"_s);
        QCOMPARE(d.texts.key, u"ID"_s);
        QCOMPARE(d.texts.title, 79);
        QCOMPARE(d.texts.parameters, (QHash<QString, int>{{u"p"_s, 28}}));
        QCOMPARE(d.parameters.value(u"p"_s), u"Tel"_s);
    }

    void um_ficheiro_partido_diz_linha_e_coluna_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("where");
        QTest::addColumn<QString>("what");
        const auto caso = [](const char *nome, const QString &dentro, const QString &where,
                             const QString &what) {
            QTest::newRow(nome) << u"<report table='T'>\n"_s + dentro + u"\n</report>"_s << where << what;
        };
        caso("elemento desconhecido", u"<detalhe/>"_s, u"line 2, column 10"_s, u"<detalhe>"_s);
        caso("elemento desconhecido na linha", u"<detail><row><circle/></row></detail>"_s, u"line 2"_s,
             u"circle"_s);
        caso("elemento fora da linha", u"<detail><text/></detail>"_s, u"line 2"_s, u"<text>"_s);
        caso("atributo desconhecido", u"<detail>\n<row hieght='3'/></detail>"_s, u"line 3"_s, u"hieght"_s);
        caso("comprimento que nao e numero", u"<detail height='3cm'/>"_s, u"line 2"_s, u"3cm"_s);
        caso("comprimento negativo", u"<detail height='-3'/>"_s, u"line 2"_s, u"-3"_s);
        caso("comprimento sem fim", u"<detail height='1e99'/>"_s, u"line 2"_s, u"1e99"_s);
        caso("comprimento nan", u"<detail height='nan'/>"_s, u"line 2"_s, u"nan"_s);
        caso("papel desconhecido", u"<paper size='A99'/>"_s, u"line 2"_s, u"A99"_s);
        caso("orientacao desconhecida", u"<paper orientation='oblique'/>"_s, u"line 2"_s, u"oblique"_s);
        caso("cor desconhecida", u"<font name='f' colour='red'/>"_s, u"line 2"_s, u"red"_s);
        caso("letra por definir", u"<detail><row><text font='g'>a</text></row></detail>"_s, u"line 2"_s,
             u"font"_s);
        caso("sim ou nao", u"<detail newpage='1'/>"_s, u"line 2"_s, u"newpage"_s);
        caso("tabela por consultar", u"<detail><row><text>{G.A}</text></row></detail>"_s, u"line 2"_s,
             u"G"_s);
        caso("parametro por declarar", u"<detail><row>\n<text>{?x}</text></row></detail>"_s, u"line 3"_s,
             u"x"_s);
        caso("chaveta por fechar", u"<detail><row><text>{T.A</text></row></detail>"_s, u"line 2"_s,
             u"brace"_s);
        caso("chaveta a mais", u"<detail><row><text>T.A}</text></row></detail>"_s, u"line 2"_s, u"brace"_s);
        caso("lugar desconhecido", u"<detail><row><text>{time}</text></row></detail>"_s, u"line 2"_s,
             u"{time}"_s);
        caso("lugar sem tabela", u"<detail><row><text>{.A}</text></row></detail>"_s, u"line 2"_s,
             u"{.A} is no place"_s);
        caso("lugar sem coluna", u"<detail><row><text>{T.}</text></row></detail>"_s, u"line 2"_s,
             u"{T.} is no place"_s);
        caso("formato desconhecido", u"<detail><row><text>{T.A:euro}</text></row></detail>"_s, u"line 2"_s,
             u"euro"_s);
        caso("texto solto", u"<detail>ola</detail>"_s, u"line 2"_s, u"text"_s);
        caso("rodape que cresce", u"<pagefooter><row><text grow='yes'>a</text></row></pagefooter>"_s,
             u"line 2"_s, u"grow"_s);
        caso("continuacao que cresce", u"<continued><row><text grow='yes'>a</text></row></continued>"_s,
             u"line 2"_s, u"grow"_s);
        caso("sem lugar sob a continuacao", u"<continued height='16700'/>"_s, u"line 3"_s, u"no room"_s);
        caso("letra menor do que nada", u"<detail><row><text least='0.5'>a</text></row></detail>"_s,
             u"line 2"_s, u"0.5"_s);
        caso("cresce e encolhe", u"<detail><row><text least='6' grow='yes'>a</text></row></detail>"_s,
             u"line 2"_s, u"least"_s);
        caso("cresce e encolhe ate ao minimo",
             u"<detail><row><text least='1' grow='yes'>a</text></row></detail>"_s, u"line 2"_s,
             u"A text that grows has no need of \"least\""_s);
        caso("papel com outra coisa dentro", u"<paper><row/></paper>"_s, u"line 2"_s,
             u": <row> doesn't belong here"_s);
        caso("sem lugar na folha", u"<paper top='9000' bottom='9000'/>"_s, u"line 3"_s, u"no room"_s);
        caso("consulta sem chave", u"<lookup table='G' equals='1'/>"_s, u"line 2"_s, u"key"_s);
        caso("texto sem numero", u"<parameter name='p' text='Nome'/>"_s, u"line 2"_s, u"Nome"_s);
        caso("texto de numero negativo", u"<parameter name='p' text='-1'/>"_s, u"line 2"_s, u"-1"_s);
        caso("texto sem tabela", u"<parameter name='p' text='28'/>"_s, u"line 3"_s, u"<texts>"_s);
        caso("textos sem chave", u"<texts table='T'/>"_s, u"line 2"_s, u"key"_s);
        caso("etiqueta por fechar", u"<detail>"_s, u"line 3"_s, u"tag"_s);
        caso("letra pequena de mais", u"<font name='f' size='0.9'/>"_s, u"line 2"_s,
             u"A font of 0.9 points can't be read"_s);
        caso("letra por definir pelo nome", u"<detail><row><text font='g'>a</text></row></detail>"_s,
             u"line 2"_s, u"There is no font of the name g"_s);
        caso("papel pelo nome", u"<paper size='A99'/>"_s, u"line 2"_s, u"There is no paper A99"_s);
        caso("orientacao pelo nome", u"<paper orientation='oblique'/>"_s, u"line 2"_s,
             u"The orientation is portrait or landscape, not oblique"_s);
        caso("cabeca que fecha linhas", u"<pageheader><row closeup='yes'/></pageheader>"_s, u"line 2"_s,
             u"The rows of page header and footer stay where they are"_s);
        caso("rodape que comeca mais abaixo", u"<pagefooter><row from='1'/></pagefooter>"_s, u"line 2"_s,
             u"The rows of page header and footer stay where they are"_s);
        caso("rodape que cresce pelo nome",
             u"<pagefooter><row><text grow='yes'>a</text></row></pagefooter>"_s, u"line 2"_s,
             u"Nothing can grow in page header and footer"_s);
        caso("so na impressora", u"<detail><row><box on='paper'/></row></detail>"_s, u"line 2"_s,
             u"\"on\" is all or screen, not paper"_s);
        caso("elemento pelo nome", u"<detail><row><circle/></row></detail>"_s, u"line 2"_s,
             u"A row holds text, line, box and picture, not <circle>"_s);
        caso("faixa com outra coisa", u"<detail><text/></detail>"_s, u"line 2"_s,
             u"A band holds rows, not <text>"_s);
        caso("texto justificado", u"<detail><row><text align='both'>a</text></row></detail>"_s, u"line 2"_s,
             u"Text is aligned left, centre or right, not both"_s);
        caso("cresce e encolhe pelo nome",
             u"<detail><row><text least='6' grow='yes'>a</text></row></detail>"_s, u"line 2"_s,
             u"A text that grows has no need of \"least\""_s);
        caso("parametro por declarar pelo nome", u"<detail><row><text>{?x}</text></row></detail>"_s,
             u"line 2"_s, u"There is no parameter x"_s);
        caso("tabela por consultar pelo nome", u"<detail><row><text>{G.A}</text></row></detail>"_s,
             u"line 2"_s, u"G is neither the report's table nor looked up"_s);
        caso("consulta por campo de outra tabela", u"<lookup table='G' key='ID' equals='{U.A}'/>"_s,
             u"line 2"_s, u"A look-up follows a field of T or a fixed value, not {U.A}"_s);
        caso("consulta por campo sem fim", u"<lookup table='G' key='ID' equals='{T.A'/>"_s, u"line 2"_s,
             u"A look-up follows a field of T or a fixed value, not {T.A"_s);
        caso("textos por numero e sem tabela", u"<parameter name='p' text='28'/>"_s, u"line 3"_s,
             u"Texts are named by number, but no <texts> says where they are"_s);
        caso("sem lugar na folha pelo nome", u"<paper top='9000' bottom='9000'/>"_s, u"line 3"_s,
             u"Margins, page header and page footer leave no room"_s);
        caso("chaveta por fechar pelo nome", u"<detail><row><text>a {T.A</text></row></detail>"_s,
             u"line 2"_s, u"A brace is not closed: {T.A"_s);
        caso("chaveta a mais pelo nome", u"<detail><row><text>T.A}</text></row></detail>"_s, u"line 2"_s,
             u"A brace is closed that was never opened: T.A}"_s);
        caso("lugar desconhecido pelo nome", u"<detail><row><text>{time}</text></row></detail>"_s,
             u"line 2"_s, u"{time} is no place that a text may hold"_s);
        caso("atras do campo de um parametro", u"<detail><row><text>{?p{T.A}x}</text></row></detail>"_s,
             u"line 2"_s, u"Nothing may follow the field in {?p{T.A}x}"_s);
        caso("formato pelo nome", u"<detail><row><text>{T.A:euro}</text></row></detail>"_s, u"line 2"_s,
             u"Fields are shown as date, time or 00, not as euro"_s);
        caso("colunas nenhumas", u"<detail columns='0' width='3' height='3'/>"_s, u"line 2"_s,
             u"\"columns\" is a number from 1 to 20, not 0"_s);
        caso("colunas a mais", u"<detail columns='21' width='3' height='3'/>"_s, u"line 2"_s,
             u"\"columns\" is a number from 1 to 20, not 21"_s);
        caso("colunas que nao sao numero", u"<detail columns='tres' width='3' height='3'/>"_s, u"line 2"_s,
             u"\"columns\" is a number from 1 to 20, not tres"_s);
        caso("colunas sem largura", u"<detail columns='2' height='3'/>"_s, u"line 2"_s,
             u"Columns need the attribute \"width\""_s);
        caso("colunas sem altura", u"<detail columns='2' width='3'/>"_s, u"line 3"_s,
             u"Columns need the attribute \"height\""_s);
        caso("colunas em paginas", u"<detail columns='2' width='3' height='3' newpage='yes'/>"_s, u"line 3"_s,
             u"What stands in columns can't begin a page each"_s);
        caso("colunas que crescem",
             u"<detail columns='2' width='3' height='3'><row><text grow='yes'>a</text></row></detail>"_s,
             u"line 3"_s, u"Nothing can grow in columns"_s);
        caso("primeira coluna de um parametro que falta", u"<detail first='p'/>"_s, u"line 2"_s,
             u"There is no parameter p"_s);
        QTest::newRow("sem tabela") << u"<report/>"_s << u"line 1"_s << u"table"_s;
        QTest::newRow("outro xml") << u"<html/>"_s << u"line 1"_s << u"<report>"_s;
        QTest::newRow("nao e xml") << u"lista"_s << u"line 1"_s << u""_s;
        QTest::newRow("cortado") << u"<report table='T'>"_s << u"line 1"_s << u""_s;
        QTest::newRow("lixo atras") << u"<report table='T'/><report/>"_s << u"line 1"_s << u""_s;
    }
    void um_ficheiro_partido_diz_linha_e_coluna()
    {
        QFETCH(QString, xml);
        QFETCH(QString, where);
        QFETCH(QString, what);
        try {
            Ler(xml);
            QFAIL("the file was taken");
        } catch (const Failure &failure) {
            QCOMPARE(failure.number(), int{Failure::InvalidPropertyValue});
            QVERIFY2(failure.description().contains(where), qPrintable(failure.description()));
            QVERIFY2(failure.description().contains(what), qPrintable(failure.description()));
            QVERIFY2(failure.description().contains(u"column"_s), qPrintable(failure.description()));
        }
    }
    void um_ficheiro_que_falta_diz_o_seu_nome()
    {
        try {
            readReportDefinition(folder_.filePath(u"nada.rpt"_s));
            QFAIL("there was a definition");
        } catch (const Failure &failure) {
            QCOMPARE(failure.number(), int{Failure::FileNotFound});
            QCOMPARE(failure.description(),
                     u"The report was not found: "_s + folder_.filePath(u"nada.rpt"_s));
        }
    }
    void uma_pasta_nao_e_um_relatorio()
    {
        VERIFICAR_FALHA(readReportDefinition(folder_.path()), Failure::FileNotFound);
    }

    void os_seis_relatorios_enviados_sao_lidos_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name :
             {"lista", "memo", "tarefa", "envelope_left", "envelope_center", "envelope_right"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void os_seis_relatorios_enviados_sao_lidos()
    {
        QFETCH(QString, name);
        const QString path = qEnvironmentVariable("MORVEX_ENVIADOS") + u'/' + name + u".rpt"_s;
        QVERIFY(!readReportDefinition(path).fields.empty());
    }
};

MORVEX_TESTE(TestReportDefinition)
#include "test_ReportDefinition.moc"
