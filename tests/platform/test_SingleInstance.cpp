// One program a folder: who is first, who is called and with what words, and what a crash leaves behind.
#include "platform/InstancePlace.h"
#include "platform/SingleInstance.h"
#include "testlib/OutrosNomes.h"
#include "testlib/Teste.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{
constexpr char papel[] =
    "MORVEX_TESTE_PAPEL"; // set in a process of this test's own that plays the other program

struct Lugar {
    QTemporaryDir programa;
    QTemporaryDir corrida;

    std::unique_ptr<SingleInstance> Instancia() const
    {
        return std::make_unique<SingleInstance>(programa.path(), corrida.path());
    }
    QStringList Restos() const
    {
        return QDir(corrida.path()).entryList(QDir::Files | QDir::System | QDir::Hidden, QDir::Name);
    }

    // The one socket that the first listens on, beside its lock.
    QString Morada() const
    {
        for (const QString &resto : Restos())
            if (resto.endsWith(u".lock"_s)) return instance_place::socketName(corrida.filePath(resto.chopped(5)));
        return {};
    }

    // Another process on the same folder, whose output is "first" or "later" once it knows. It calls with
    // those files.
    std::unique_ptr<QProcess> Outro_Processo(const QStringList &ficheiros = {}) const
    {
        auto outro = std::make_unique<QProcess>();
        QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
        ambiente.insert(QString::fromLatin1(papel), programa.path() + u'|' + corrida.path());
        outro->setProcessEnvironment(ambiente);
        outro->start(QCoreApplication::applicationFilePath(), ficheiros);
        return outro;
    }
};

QByteArray Resposta(QProcess &processo)
{
    for (int i = 0; i < 500 && processo.bytesAvailable() == 0; ++i)
        QTest::qWait(10);
    return processo.readAllStandardOutput();
}
} // namespace

class TestSingleInstance : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_primeira_fica()
    {
        const Lugar l;
        QVERIFY(l.Instancia()->claim({}));
    }

    // The folder is shared by all programs of the desktop, and a socket's path must stay short.
    void o_que_deixa_na_pasta_de_todos_tem_o_nome_do_programa()
    {
        const Lugar l;
        const auto primeira = l.Instancia();
        QVERIFY(primeira->claim({}));
        static const QRegularExpression nome(u"^morvex-[0-9a-f]{16}(\\.lock)?$"_s);
        QVERIFY(!l.Restos().isEmpty());
        for (const QString &resto : l.Restos())
            QVERIFY2(nome.match(resto).hasMatch(), qPrintable(resto));
    }

    void a_segunda_chama_a_primeira_e_vai_se()
    {
        const Lugar l;
        const auto primeira = l.Instancia();
        QVERIFY(primeira->claim({}));
        QSignalSpy chamada(primeira.get(), &SingleInstance::startedAgain);
        for (int vez = 1; vez <= 3; ++vez) {
            QVERIFY(!l.Instancia()->claim({}));
            QTRY_COMPARE(chamada.count(), vez);
        }
    }

    void outro_processo_na_mesma_pasta_chama_este()
    {
        const Lugar l;
        const auto primeira = l.Instancia();
        QVERIFY(primeira->claim({}));
        QSignalSpy chamada(primeira.get(), &SingleInstance::startedAgain);
        const auto outro = l.Outro_Processo();
        QTRY_COMPARE(chamada.count(), 1);
        QCOMPARE(Resposta(*outro), QByteArray("later"));
        QTRY_COMPARE(outro->state(), QProcess::NotRunning);
    }

    void os_ficheiros_da_segunda_chegam_inteiros_e_na_sua_ordem()
    {
        const Lugar l;
        const auto primeira = l.Instancia();
        QVERIFY(primeira->claim({}));
        QSignalSpy chamada(primeira.get(), &SingleInstance::startedAgain);
        const QStringList ficheiros{u"/casa/Ângela/a b.mdb"_s, u"/casa/\"duas\nlinhas\".dat"_s,
                                    u"/casa/日本.vcf"_s};
        QVERIFY(!l.Instancia()->claim({ficheiros}));
        QTRY_COMPARE(chamada.count(), 1);
        QCOMPARE(chamada.constFirst().constFirst().toStringList(), ficheiros);
    }

    void os_ficheiros_de_outro_processo_chegam_tambem_aos_milhares()
    {
        const Lugar l;
        const auto primeira = l.Instancia();
        QVERIFY(primeira->claim({}));
        QSignalSpy chamada(primeira.get(), &SingleInstance::startedAgain);
        QStringList ficheiros;
        for (int i = 0; i < outros_nomes::muitos_ficheiros; ++i)
            ficheiros << u"/uma/pasta/com/um/nome/bastante/comprido/contacto %1.vcf"_s.arg(i);
        const auto outro = l.Outro_Processo(ficheiros);
        QTRY_COMPARE(chamada.count(), 1);
        QCOMPARE(chamada.constFirst().constFirst().toStringList(), ficheiros);
        QTRY_COMPARE(outro->state(), QProcess::NotRunning);
    }

    void quem_espera_por_uma_primeira_ocupada_nao_perde_ficheiros()
    {
        const Lugar l;
        const auto primeira = l.Instancia();
        QVERIFY(primeira->claim({}));
        QSignalSpy chamada(primeira.get(), &SingleInstance::startedAgain);
        const auto outro = l.Outro_Processo({u"/a.mdb"_s});
        QVERIFY(outro->waitForFinished()); // no event of this process runs meanwhile
        QCOMPARE(chamada.count(), 0);
        QTRY_COMPARE(chamada.count(), 1);
        QCOMPARE(chamada.constFirst().constFirst().toStringList(), QStringList{u"/a.mdb"_s});
    }

    void uma_segunda_sem_janela_so_se_faz_ouvir_com_ficheiros()
    {
        const Lugar l;
        const auto primeira = l.Instancia();
        QVERIFY(primeira->claim({}));
        QSignalSpy chamada(primeira.get(), &SingleInstance::startedAgain);
        QVERIFY(!l.Instancia()->claim({.files = {}, .forward = false}));
        QVERIFY(!l.Instancia()->claim({.files = {u"/a.mdb"_s}, .forward = false}));
        QTRY_COMPARE(chamada.count(), 1);
        QTest::qWait(50);
        QCOMPARE(chamada.count(), 1);
        QCOMPARE(chamada.constFirst().constFirst().toStringList(), QStringList{u"/a.mdb"_s});
    }

    void uma_chamada_que_nao_se_percebe_traz_a_janela_sem_ficheiros_data()
    {
        QTest::addColumn<QByteArray>("dito");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("rubbish") << QByteArray("GET / HTTP/1.1\r\n\r\n");
        QTest::newRow("a length that never comes") << QByteArray("\0\0\1\0\1", 5);
        QTest::newRow("half a list") << QByteArray("\0\0\0\11\1\0\0\0\5\0\0\0\2", 13);
        QTest::newRow("half a list, and no window") << QByteArray("\0\0\0\11\0\0\0\0\5\0\0\0\2", 13);
    }
    void uma_chamada_que_nao_se_percebe_traz_a_janela_sem_ficheiros()
    {
        QFETCH(QByteArray, dito);
        const Lugar l;
        const auto primeira = l.Instancia();
        QVERIFY(primeira->claim({}));
        QSignalSpy chamada(primeira.get(), &SingleInstance::startedAgain);
        {
            QLocalSocket outro;
            outro.connectToServer(l.Morada());
            QVERIFY(outro.waitForConnected());
            outro.write(dito);
            outro.flush();
        }
        QTRY_COMPARE(chamada.count(), 1);
        QCOMPARE(chamada.constFirst().constFirst().toStringList(), QStringList());
    }

    void outra_pasta_e_outro_programa()
    {
        const Lugar l;
        const QTemporaryDir outra;
        const auto primeira = l.Instancia();
        QVERIFY(primeira->claim({}));
        QVERIFY(SingleInstance(outra.path(), l.corrida.path()).claim({}));
    }

    void a_mesma_pasta_por_outro_caminho_e_a_mesma()
    {
        const Lugar l;
        QStringList caminhos{l.programa.path() + u"/."_s};
        if (outros_nomes::ha_atalhos) {
            caminhos << l.corrida.filePath(u"atalho"_s);
            QVERIFY(outros_nomes::Fazer_Atalho(l.programa.path(), caminhos.constLast()));
        }
        const auto primeira = l.Instancia();
        QVERIFY(primeira->claim({}));
        for (const QString &caminho : caminhos)
            QVERIFY(!SingleInstance(caminho, l.corrida.path()).claim({}));
    }

    void depois_de_acabar_a_primeira_vem_outra()
    {
        const Lugar l;
        QVERIFY(l.Instancia()->claim({}));
        QVERIFY(l.Instancia()->claim({}));
        QVERIFY2(l.Restos().isEmpty(), qPrintable(l.Restos().join(u' ')));
    }

    void o_que_uma_queda_deixou_e_tomado()
    {
        const Lugar l;
        const auto outro = l.Outro_Processo();
        QCOMPARE(Resposta(*outro), QByteArray("first"));
        outro->kill();
        QVERIFY(outro->waitForFinished());
        QCOMPARE(l.Restos().size(), outros_nomes::ha_sockets ? 2 : 1); // its lock and its socket

        const auto seguinte = l.Instancia();
        QVERIFY(seguinte->claim({}));
        QSignalSpy chamada(seguinte.get(), &SingleInstance::startedAgain);
        QVERIFY(!l.Instancia()->claim({}));
        QTRY_COMPARE(chamada.count(), 1);
    }

    void sem_lugar_onde_escrever_o_programa_corre_a_mesma()
    {
        const Lugar l;
        QVERIFY(SingleInstance(l.programa.path(), u"/nao/ha/tal/pasta"_s).claim({}));
    }

    void quem_nao_atende_nao_impede_outro_de_correr()
    {
        if (!outros_nomes::ha_sockets) QSKIP("nobody takes a socket away here");
        const Lugar l;
        const auto primeira = l.Instancia();
        QVERIFY(primeira->claim({}));
        for (const QString &resto : l.Restos())
            if (!resto.endsWith(u".lock"_s)) QVERIFY(QFile::remove(l.corrida.filePath(resto)));
        QVERIFY(l.Instancia()->claim({}));
    }
};

// The other program: says which it is, and lives until it is ended if it is the first.
static int Outro_Programa(const QString &lugar)
{
    SingleInstance instancia(lugar.section(u'|', 0, 0), lugar.section(u'|', 1, 1));
    const bool primeira = instancia.claim({QCoreApplication::arguments().mid(1)});
    std::fputs(primeira ? "first" : "later", stdout);
    std::fflush(stdout);
    return primeira ? QCoreApplication::exec() : 0;
}

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (const QString lugar = qEnvironmentVariable(papel); !lugar.isEmpty()) return Outro_Programa(lugar);
    TestSingleInstance testes;
    return QTest::qExec(&testes, argc, argv);
}
#include "test_SingleInstance.moc"
