// The config.ini that is shipped: what the options convert without protection must be there.
#include "data/ReadWriteINI.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class Test_config_enviado : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void as_chaves_tem_os_seus_valores_data()
    {
        QTest::addColumn<QString>("valor");
        QTest::newRow("basedados caminhobd") << u""_s; // empty: the first start
        QTest::newRow("aniversarios dias") << u"7"_s;
        QTest::newRow("aniversarios aviso") << u"0"_s;
        QTest::newRow("arranque autorun") << u"nao"_s;
        QTest::newRow("arranque minimizar") << u"nao"_s;
        QTest::newRow("memos fontname") << u"Tahoma"_s;
        QTest::newRow("memos fontsize") << u"8,25"_s;
        QTest::newRow("memos fontbold") << u"False"_s;
        QTest::newRow("memos fontitalic") << u"False"_s;
        QTest::newRow("memos corfundo") << u"65535"_s;
        QTest::newRow("envelopes alimentacao") << u"envelope_center"_s;
        QTest::newRow("fotografias lastpathpic") << u""_s;
    }
    void as_chaves_tem_os_seus_valores()
    {
        QFETCH(QString, valor);
        const QStringList onde = QString::fromLatin1(QTest::currentDataTag()).split(u' ');
        ReadWriteINI ini(qEnvironmentVariable("MORVEX_ENVIADOS"));
        QCOMPARE(ini.Ler_Ini(onde[0], onde[1]), valor);
    }

    void nada_do_que_esta_nele_e_de_um_utilizador()
    {
        ReadWriteINI ini(qEnvironmentVariable("MORVEX_ENVIADOS"));
        for (const QString &seccao : {u"emailnotify0"_s, u"messenger0"_s, u"som0"_s, u"emailnotify1"_s})
            for (const QString &chave : {u"activo"_s, u"minutos"_s, u"email"_s, u"tarefa"_s})
                QCOMPARE(ini.Ler_Ini(seccao, chave), u""_s);
    }
};

MORVEX_TESTE(Test_config_enviado)
#include "test_config_enviado.moc"
