// What is asked where the database has gone, before there are any texts but those of the code.
#include "session/BaseDesaparecida.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestBaseDesaparecida : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_pergunta_e_o_filtro_estao_na_lingua_activa_data()
    {
        QTest::addColumn<QString>("pergunta");
        QTest::addColumn<QString>("filtro");
        QTest::newRow("PortuguesPT")
            << u"A base de dados não foi encontrada:\r\n%1\r\n\r\nDeseja indicar onde está agora o ficheiro?"_s
            << u"Bases de dados"_s;
        QTest::newRow("PortuguesBR")
            << u"O banco de dados não foi encontrado:\r\n%1\r\n\r\nDeseja indicar onde o arquivo está agora?"_s
            << u"Bancos de dados"_s;
        QTest::newRow("InglesUK")
            << u"The database was not found:\r\n%1\r\n\r\nDo you want to choose the file where it is now?"_s
            << u"Databases"_s;
        QTest::newRow("EspanholES")
            << u"No se encontró la base de datos:\r\n%1\r\n\r\n¿Desea indicar dónde está ahora el archivo?"_s
            << u"Bases de datos"_s;
        QTest::newRow("ItalianoIT")
            << u"Il database non è stato trovato:\r\n%1\r\n\r\nIndicare dove si trova ora il file?"_s
            << u"Database"_s;
        QTest::newRow("FrancesFR")
            << u"La base de données est introuvable :\r\n%1\r\n\r\nVoulez-vous indiquer où se trouve le fichier maintenant ?"_s
            << u"Bases de données"_s;
        QTest::newRow("AlemaoDE")
            << u"Die Datenbank wurde nicht gefunden:\r\n%1\r\n\r\nMöchten Sie angeben, wo die Datei jetzt liegt?"_s
            << u"Datenbanken"_s;
    }
    void a_pergunta_e_o_filtro_estao_na_lingua_activa()
    {
        QFETCH(const QString, pergunta);
        QFETCH(const QString, filtro);
        Sistema s(Sistema::Estado::Sem_Base);
        s.geral.IdiomaActual = QString::fromLatin1(QTest::currentDataTag());
        const int pergunta_grave = 52; // yes or no, with the mark of exclamation
        // The first answer is yes, and nothing is chosen then; the second is no.
        s.caixas.Espera(pergunta.arg(s.Base()), pergunta_grave, u"Morvex"_s, answer::yes);
        s.caixas.Espera(pergunta.arg(s.Base()), pergunta_grave, u"Morvex"_s, answer::no);
        s.dialogos.textos << std::nullopt;
        base_desaparecida::Procurar(s.geral, s.plataforma);
        QVERIFY(s.caixas.Todas_Vistas());
        QCOMPARE(s.dialogos.perguntas, QStringList{u"openFile %1|*.mdb @ %2"_s.arg(filtro, s.Pasta())});
    }

    // The start has not read the language from the database that is missing.
    void os_dialogos_do_sistema_falam_logo_a_lingua_activa_data()
    {
        QTest::addColumn<QString>("guardar_como");
        QTest::newRow("PortuguesBR") << u"Salvar como"_s;
        QTest::newRow("PortuguesPT") << u"Guardar como"_s;
        QTest::newRow("FrancesFR") << u"Enregistrer sous"_s;
        QTest::newRow("InglesUK") << u"Save As"_s;
    }
    void os_dialogos_do_sistema_falam_logo_a_lingua_activa()
    {
        Sistema s(Sistema::Estado::Sem_Base);
        s.geral.IdiomaActual = QString::fromLatin1(QTest::currentDataTag());
        s.caixas.Espera_Qualquer(52, u"Morvex"_s, answer::no);
        base_desaparecida::Procurar(s.geral, s.plataforma);
        QTEST(QCoreApplication::translate("QFileDialog", "Save As"), "guardar_como");
    }

    void um_caminho_mais_longo_do_que_se_guarda_recusa_se_e_nao_se_escreve()
    {
        Sistema s(Sistema::Estado::Sem_Base);
        const auto guardado = [&] { return s.geral.ini.Ler_Ini(u"basedados"_s, u"caminhobd"_s); };
        const QString antes = guardado();
        s.caixas.Espera_Qualquer(52, u"Morvex"_s, answer::yes);
        s.caixas.Espera_Qualquer(box::stop, u"Morvex"_s);
        s.caixas.Espera_Qualquer(52, u"Morvex"_s, answer::no);
        s.dialogos.textos << s.Pasta() + QString(IniFile::longestValue, u'x') + u".mdb"_s;
        base_desaparecida::Procurar(s.geral, s.plataforma);
        QVERIFY(s.caixas.Todas_Vistas());
        QCOMPARE(guardado(), antes);
    }

    void uma_base_que_la_esta_nao_se_procura()
    {
        Sistema s;
        base_desaparecida::Procurar(s.geral, s.plataforma); // a box would fail the test
        QVERIFY(s.dialogos.perguntas.isEmpty());
    }
};

MORVEX_TESTE(TestBaseDesaparecida)
#include "test_BaseDesaparecida.moc"
