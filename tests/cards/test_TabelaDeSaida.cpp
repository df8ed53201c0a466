// The head of a table for other programs: for a spreadsheet in the language of the program, for address books
// in the words that they know.
#include "cards/TabelaDeSaida.h"

#include <QtTest>

using namespace Qt::StringLiterals;

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
};

QTEST_GUILESS_MAIN(TestTabelaDeSaida)
#include "test_TabelaDeSaida.moc"
