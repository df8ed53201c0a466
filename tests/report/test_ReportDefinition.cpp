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
        QCOMPARE(text.colour, 0x102030U);
        QCOMPARE(text.align, Qt::AlignRight);
        QCOMPARE(text.head.parameters(), QStringList{u"p"_s});
        QCOMPARE(row.elements[1].thickness, 20.0);
        QVERIFY(row.elements[2].screenOnly);
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
        caso("sem lugar na folha", u"<paper top='9000' bottom='9000'/>"_s, u"line 3"_s, u"no room"_s);
        caso("consulta sem chave", u"<lookup table='G' equals='1'/>"_s, u"line 2"_s, u"key"_s);
        caso("texto sem numero", u"<parameter name='p' text='Nome'/>"_s, u"line 2"_s, u"Nome"_s);
        caso("texto de numero negativo", u"<parameter name='p' text='-1'/>"_s, u"line 2"_s, u"-1"_s);
        caso("texto sem tabela", u"<parameter name='p' text='28'/>"_s, u"line 3"_s, u"<texts>"_s);
        caso("textos sem chave", u"<texts table='T'/>"_s, u"line 2"_s, u"key"_s);
        caso("etiqueta por fechar", u"<detail>"_s, u"line 3"_s, u"tag"_s);
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
            QVERIFY(failure.description().contains(u"nada.rpt"_s));
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
