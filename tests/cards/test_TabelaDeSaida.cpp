// The head of a table for other programs: for a spreadsheet in the language of the program, for address books
// in the words that they know.
#include "cards/TabelaDeSaida.h"

#include "cards/CartaoDoContacto.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
ContactoParaCartao Cheio()
{
    ContactoParaCartao contacto;
    contacto.colunas.valores = {u"Ana Maria Sá"_s, u"211"_s, u"212"_s,    u"213"_s,          u"911"_s,
                                u"912"_s,          u"913"_s, u"4"_s,      u"3"_s,            u"1975"_s,
                                u"a@b"_s,          u"c@d"_s, u"ana.pt"_s, u"Rua A\r\nPorto"_s, u"um\r\ndois"_s,
                                u"ana.jpg"_s,      u"7"_s};
    contacto.Grupo = u"Família"_s;
    return contacto;
}
} // namespace

class TestTabelaDeSaida : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_cabeca_da_folha_esta_escrita_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("cabeca");
        QTest::newRow("PortuguesPT")
            << u"Nome|Telefone 1|Telefone 2|Fax|Telemóvel 1|Telemóvel 2|Telemóvel 3|"
               "Dia de nascimento|Mês de nascimento|Ano de nascimento|E-mail 1|E-mail 2|"
               "Website|Morada|Observações|Grupo"_s;
        QTest::newRow("PortuguesBR")
            << u"Nome|Telefone 1|Telefone 2|Fax|Celular 1|Celular 2|Celular 3|"
               "Dia de nascimento|Mês de nascimento|Ano de nascimento|E-mail 1|E-mail 2|Site|"
               "Endereço|Observações|Grupo"_s;
        QTest::newRow("InglesUK") << u"Name|Telephone 1|Telephone 2|Fax|Mobile 1|Mobile 2|Mobile 3|Birth day|"
                                     "Birth month|Birth year|E-mail 1|E-mail 2|Website|Address|Notes|Group"_s;
        QTest::newRow("EspanholES")
            << u"Nombre completo|Teléfono 1|Teléfono 2|Fax|Móvil 1|Móvil 2|Móvil 3|"
               "Día de nacimiento|Mes de nacimiento|Año de nacimiento|E-mail 1|E-mail 2|"
               "Sitio web|Dirección|Notas|Grupo"_s;
        QTest::newRow("ItalianoIT")
            << u"Nome|Telefono 1|Telefono 2|Fax|Cellulare 1|Cellulare 2|Cellulare 3|"
               "Giorno di nascita|Mese di nascita|Anno di nascita|E-mail 1|E-mail 2|Sito web|"
               "Indirizzo|Note|Gruppo"_s;
        QTest::newRow("FrancesFR")
            << u"Nom complet|Téléphone 1|Téléphone 2|Fax|Mobile 1|Mobile 2|Mobile 3|"
               "Jour de naissance|Mois de naissance|Année de naissance|E-mail 1|E-mail 2|"
               "Site web|Adresse|Notes|Groupe"_s;
        QTest::newRow("AlemaoDE")
            << u"Name|Telefon 1|Telefon 2|Fax|Mobil 1|Mobil 2|Mobil 3|Geburtstag|Geburtsmonat|"
               "Geburtsjahr|E-Mail 1|E-Mail 2|Website|Adresse|Notizen|Gruppe"_s;
    }
    void a_cabeca_da_folha_esta_escrita_em_cada_lingua()
    {
        QFETCH(QString, cabeca);
        const TabelaDeSaida tabela(CsvDialect::Excel, QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(tabela.Inicio(),
                 csvBeginning(CsvDialect::Excel) + writtenCsvRow(cabeca.split(u'|'), CsvDialect::Excel));
    }

    void a_cabeca_para_outros_programas_e_a_mesma_em_todas_as_linguas()
    {
        const QByteArray inglesa = TabelaDeSaida(CsvDialect::Plain, u"InglesUK"_s).Inicio();
        QVERIFY(inglesa.contains(R"("First Name","Last Name","Phone 1 - Label","Phone 1 - Value",)"));
        QStringList nomes{u"First Name"_s, u"Last Name"_s};
        for (const char *numero : {"1", "2", "3", "4", "5", "6"})
            nomes << u"Phone %1 - Label"_s.arg(QLatin1StringView(numero))
                  << u"Phone %1 - Value"_s.arg(QLatin1StringView(numero));
        nomes << u"E-mail 1 - Value"_s << u"E-mail 2 - Value"_s << u"Website 1 - Value"_s << u"Address 1 - Formatted"_s
              << u"Birthday"_s << u"Notes"_s << u"Labels"_s;
        QCOMPARE(inglesa, csvBeginning(CsvDialect::Plain) + writtenCsvRow(nomes, CsvDialect::Plain));
        QCOMPARE(TabelaDeSaida(CsvDialect::Plain, u"AlemaoDE"_s).Inicio(), inglesa);
    }

    void uma_linha_da_folha_tem_cada_coluna_debaixo_do_seu_nome()
    {
        QCOMPARE(TabelaDeSaida(CsvDialect::Excel, u"InglesUK"_s).Linha(Cheio()),
                 QByteArray("\"Ana Maria Sá\";\"211\";\"212\";\"213\";\"911\";\"912\";\"913\";\"4\";\"3\";\"1975\";"
                            "\"a@b\";\"c@d\";\"ana.pt\";\"Rua A\nPorto\";\"um\ndois\";\"Família\"\r\n"));
    }

    void uma_linha_para_outros_programas_tem_os_rotulos_dos_numeros_e_a_data_por_extenso()
    {
        const TabelaDeSaida tabela(CsvDialect::Plain, u"InglesUK"_s);
        QCOMPARE(tabela.Linha(Cheio()),
                 QByteArray("\"Ana Maria\",\"Sá\",\"Home\",\"211\",\"Work\",\"212\",\"Home Fax\",\"213\","
                            "\"Mobile\",\"911\",\"Mobile\",\"912\",\"Mobile\",\"913\",\"a@b\",\"c@d\",\"ana.pt\","
                            "\"Rua A\nPorto\",\"1975-03-04\",\"um\ndois\",\"Família\"\r\n"));
        QCOMPARE(tabela.Linha({}), QByteArray("\"\"" + QByteArray(",\"\"").repeated(20) + "\r\n"));
    }

    void o_nome_parte_se_antes_da_ultima_palavra_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QByteArray>("celulas");
        QTest::newRow("uma palavra") << u" Ana "_s << QByteArray("\"Ana\",\"\",");
        QTest::newRow("duas") << u"A B"_s << QByteArray("\"A\",\"B\",");
        QTest::newRow("quatro com brancos a mais") << u"Ana  da\tCosta Sá"_s << QByteArray("\"Ana da Costa\",\"Sá\",");
    }
    void o_nome_parte_se_antes_da_ultima_palavra()
    {
        QFETCH(QString, nome);
        QFETCH(QByteArray, celulas);
        ContactoParaCartao contacto;
        contacto.colunas[Coluna::Nome] = nome;
        const QByteArray linha = TabelaDeSaida(CsvDialect::Plain, u"InglesUK"_s).Linha(contacto);
        QCOMPARE(linha.first(celulas.size()), celulas);
    }

    void um_aniversario_diz_se_por_extenso_e_sem_dia_ou_sem_mes_nao_se_diz_data()
    {
        QTest::addColumn<QString>("dia");
        QTest::addColumn<QString>("mes");
        QTest::addColumn<QString>("ano");
        QTest::addColumn<QByteArray>("data");
        QTest::newRow("inteiro") << u"14"_s << u"12"_s << u"1975"_s << QByteArray("\"1975-12-14\"");
        QTest::newRow("com zeros") << u"4"_s << u"3"_s << u"975"_s << QByteArray("\"0975-03-04\"");
        QTest::newRow("sem ano") << u"4"_s << u"3"_s << QString() << QByteArray("\"--03-04\"");
        QTest::newRow("sem mês") << u"4"_s << QString() << u"1975"_s << QByteArray("\"\"");
        QTest::newRow("sem dia") << QString() << u"3"_s << u"1975"_s << QByteArray("\"\"");
    }
    void um_aniversario_diz_se_por_extenso_e_sem_dia_ou_sem_mes_nao_se_diz()
    {
        QFETCH(QString, dia);
        QFETCH(QString, mes);
        QFETCH(QString, ano);
        ContactoParaCartao contacto;
        contacto.colunas[Coluna::Dia] = dia;
        contacto.colunas[Coluna::Mes] = mes;
        contacto.colunas[Coluna::Ano] = ano;
        const QByteArray linha = TabelaDeSaida(CsvDialect::Plain, u"InglesUK"_s).Linha(contacto);
        constexpr qsizetype lugar = 18; // behind the names, the numbers and what else there is one of
        QTEST(linha.split(',').value(lugar), "data");
    }
};

QTEST_GUILESS_MAIN(TestTabelaDeSaida)
#include "test_TabelaDeSaida.moc"
