// The real sound, with a player of the test's own in the machine's place: a script that notes how it was
// started and plays until it is ended.
#include "platform/DesktopSound.h"
#include "testlib/Teste.h"

#include <csignal>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QThread>

using namespace Qt::StringLiterals;

namespace
{
// A machine whose PATH holds these players and nothing else.
class Maquina
{
public:
    // The players do that as well, as soon as they start.
    explicit Maquina(const QStringList &players, const QByteArray &ainda = {}) : path_(qgetenv("PATH"))
    {
        for (const QString &player : players)
            Escrever_Player(player, ainda);
        qputenv("PATH", pasta_.path().toLocal8Bit());
    }
    ~Maquina() { qputenv("PATH", path_); }

    QString Onda(const QString &nome) const
    {
        QFile ficheiro(pasta_.filePath(nome));
        if (!ficheiro.open(QIODevice::WriteOnly)) return {};
        ficheiro.write("RIFF");
        return ficheiro.fileName();
    }

    // One line a start: player, process number and arguments.
    QStringList Partidas() const
    {
        QFile notas(pasta_.filePath(u"notas"_s));
        if (!notas.open(QIODevice::ReadOnly)) return {};
        return QString::fromLocal8Bit(notas.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }
    QString Comando(int partida) const
    {
        QStringList partes = Partidas().value(partida).split(u' ');
        partes.removeAt(1);
        return partes.join(u' ');
    }
    bool Vive(int partida) const
    {
        const int pid = Partidas().value(partida).section(u' ', 1, 1).toInt();
        return pid > 0 && ::kill(pid, 0) == 0;
    }

private:
    void Escrever_Player(const QString &nome, const QByteArray &ainda) const
    {
        QFile script(pasta_.filePath(nome));
        if (!script.open(QIODevice::WriteOnly)) return;
        script.write("#!/bin/sh\n" + ainda + "echo \"${0##*/} $$ $*\" >>\"${0%/*}/notas\"\nexec /bin/sleep 60\n");
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QTemporaryDir pasta_;
    QByteArray path_;
};
} // namespace

class TestDesktopSound : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toca_com_o_primeiro_que_a_maquina_tem_data()
    {
        QTest::addColumn<QStringList>("players");
        QTest::addColumn<QString>("comando");
        QTest::newRow("todos") << QStringList{u"aplay"_s, u"paplay"_s, u"pw-play"_s} << u"pw-play "_s;
        QTest::newRow("sem o primeiro") << QStringList{u"aplay"_s, u"paplay"_s} << u"paplay "_s;
        QTest::newRow("so o ultimo") << QStringList{u"aplay"_s} << u"aplay -q "_s;
    }
    void toca_com_o_primeiro_que_a_maquina_tem()
    {
        QFETCH(QStringList, players);
        QFETCH(QString, comando);
        const Maquina m(players);
        const QString onda = m.Onda(u"um.wav"_s);
        DesktopSound som;
        som.play(onda);
        QTRY_COMPARE(m.Partidas().size(), 1);
        QCOMPARE(m.Comando(0), comando + onda);
    }

    // More than waits unread between two processes, while no event of this one runs.
    void um_player_que_diz_muito_toca_a_mesma()
    {
        const Maquina m({u"aplay"_s}, "/usr/bin/head -c 200000 /dev/zero\n"
                                      "/usr/bin/head -c 200000 /dev/zero >&2\n");
        DesktopSound som;
        som.play(m.Onda(u"um.wav"_s));
        for (int vez = 0; vez < 300 && m.Partidas().isEmpty(); ++vez)
            QThread::msleep(10);
        QCOMPARE(m.Partidas().size(), 1);
    }

    void nao_espera_pelo_fim_do_som()
    {
        const Maquina m({u"paplay"_s});
        DesktopSound som;
        QElapsedTimer tempo;
        tempo.start();
        som.play(m.Onda(u"um.wav"_s));
        QVERIFY2(tempo.elapsed() < 1000, "the player plays for a minute");
        QTRY_VERIFY(m.Vive(0));
    }

    void um_som_novo_acaba_o_que_toca()
    {
        const Maquina m({u"paplay"_s});
        DesktopSound som;
        som.play(m.Onda(u"um.wav"_s));
        QTRY_VERIFY(m.Vive(0));
        const QString segundo = m.Onda(u"dois.wav"_s);
        som.play(segundo);
        QTRY_COMPARE(m.Partidas().size(), 2);
        QVERIFY(!m.Vive(0));
        QVERIFY(m.Vive(1));
        QCOMPARE(m.Comando(1), u"paplay "_s + segundo);
    }

    void um_ficheiro_que_falta_nao_toca_e_nao_interrompe()
    {
        const Maquina m({u"paplay"_s});
        DesktopSound som;
        som.play(m.Onda(u"um.wav"_s));
        QTRY_VERIFY(m.Vive(0));
        som.play(u"/nao/ha/tal.wav"_s);
        som.play(QString());
        QTest::qWait(100);
        QCOMPARE(m.Partidas().size(), 1);
        QVERIFY(m.Vive(0));
    }

    void sem_nenhum_player_fica_calado()
    {
        const Maquina m({});
        DesktopSound som;
        som.play(m.Onda(u"um.wav"_s)); // no box and no failure
        QVERIFY(m.Partidas().isEmpty());
    }

    void um_caminho_com_brancos_chega_inteiro()
    {
        const Maquina m({u"paplay"_s});
        const QString onda = m.Onda(u"um som \"bom\".wav"_s);
        DesktopSound som;
        som.play(onda);
        QTRY_COMPARE(m.Partidas().size(), 1);
        QCOMPARE(m.Comando(0), u"paplay "_s + onda);
    }

    void o_fim_do_programa_acaba_o_som()
    {
        const Maquina m({u"paplay"_s});
        {
            DesktopSound som;
            som.play(m.Onda(u"um.wav"_s));
            QTRY_VERIFY(m.Vive(0));
        }
        QVERIFY(!m.Vive(0));
    }

    // The waves that are shipped: what every player reads.
    void os_tres_sons_do_programa_sao_ondas_de_16_bits_data()
    {
        QTest::addColumn<QString>("nome");
        for (const char *nome : {"tarefa.wav", "newemail.wav", "memo.wav"})
            QTest::newRow(nome) << QString::fromLatin1(nome);
    }
    void os_tres_sons_do_programa_sao_ondas_de_16_bits()
    {
        QFETCH(QString, nome);
        QFile onda(qEnvironmentVariable("MORVEX_ENVIADOS") + u'/' + nome);
        QVERIFY2(onda.open(QIODevice::ReadOnly), qPrintable(onda.fileName()));
        const QByteArray bytes = onda.readAll();
        QCOMPARE(bytes.left(4), QByteArray("RIFF"));
        QCOMPARE(bytes.mid(8, 8), QByteArray("WAVEfmt "));
        QCOMPARE(bytes.at(20), '\1');  // PCM
        QCOMPARE(bytes.at(34), '\20'); // bits a sample
        const auto samples = bytes.mid(44);
        const auto *inicio = reinterpret_cast<const qint16 *>(samples.constData());
        qint16 maior = 0;
        for (qsizetype i = 0; i < samples.size() / 2; ++i)
            maior = std::max(maior, inicio[i]);
        QVERIFY2(maior > 10000 && maior < 20000, "audible, and not loud");
    }
};

MORVEX_TESTE(TestDesktopSound)
#include "test_DesktopSound.moc"
