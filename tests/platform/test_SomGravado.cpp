// What is really heard: a sound server without a device of its own records what the program plays. Needs
// pulseaudio, parec and paplay (packages pulseaudio, pulseaudio-utils), and is skipped where they are
// missing.
#include "data/Tocar_Som.h"
#include "platform/DesktopSound.h"
#include "testlib/Teste.h"

#include <cmath>
#include <cstring>
#include <numbers>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{
constexpr int taxa = 44100;
constexpr int grave = 440;  // hertz
constexpr int agudo = 1320; // no overtone's neighbour

// A sound server on a socket of its own, whose only output is recorded.
class ServidorDeSom
{
public:
    static bool Ha()
    {
        for (const char *programa : {"pulseaudio", "parec", "paplay"})
            if (QStandardPaths::findExecutable(QString::fromLatin1(programa)).isEmpty()) return false;
        return true;
    }

    ServidorDeSom() : path_(qgetenv("PATH"))
    {
        const QString tomada = pasta_.filePath(u"som"_s);
        QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
        for (const char *lugar : {"HOME", "XDG_RUNTIME_DIR"})
            ambiente.insert(QString::fromLatin1(lugar), pasta_.path());
        servidor_.setProcessEnvironment(ambiente);
        servidor_.setStandardErrorFile(QProcess::nullDevice());
        // Without listeners it ends by itself, so that a test that was killed leaves nothing running.
        servidor_.start(u"pulseaudio"_s, {u"-n"_s, u"--daemonize=no"_s, u"--exit-idle-time=10"_s,
                                          u"--use-pid-file=no"_s, u"--system=no"_s, u"-L"_s,
                                          u"module-native-protocol-unix auth-anonymous=1 socket="_s + tomada,
                                          u"-L"_s, u"module-null-sink sink_name=nulo rate=%1"_s.arg(taxa)});
        qputenv("PULSE_SERVER", ("unix:" + tomada).toLocal8Bit());
        esta_ = QTest::qWaitFor([&] { return QFile::exists(tomada); }, 5000) && Comecar_Gravacao();
        // No other player of the machine: it would speak to the machine's own sound.
        QFile::link(QStandardPaths::findExecutable(u"paplay"_s), pasta_.filePath(u"paplay"_s));
        qputenv("PATH", pasta_.path().toLocal8Bit());
    }
    ~ServidorDeSom()
    {
        qputenv("PATH", path_);
        qunsetenv("PULSE_SERVER");
        for (QProcess *processo : {&gravador_, &servidor_}) {
            processo->terminate(); // it takes its shared memory along
            if (processo->waitForFinished(3000)) continue;
            processo->kill();
            processo->waitForFinished();
        }
    }

    bool Esta() const { return esta_; }

    // A wave of one tone.
    QString Onda(int hertz, double segundos) const
    {
        const auto amostras = static_cast<quint32>(segundos * taxa);
        QByteArray dados;
        QDataStream onda(&dados, QIODevice::WriteOnly);
        onda.setByteOrder(QDataStream::LittleEndian);
        onda.writeRawData("RIFF", 4);
        onda << quint32(36 + amostras * 2);
        onda.writeRawData("WAVEfmt ", 8);
        onda << quint32(16) << quint16(1) << quint16(1) << quint32(taxa) << quint32(taxa * 2) << quint16(2)
             << quint16(16);
        onda.writeRawData("data", 4);
        onda << quint32(amostras * 2);
        for (quint32 i = 0; i < amostras; ++i)
            onda << static_cast<qint16>(12000 * std::sin(2 * std::numbers::pi * hertz * i / taxa));
        QFile ficheiro(pasta_.filePath(QString::number(hertz) + u".wav"_s));
        if (ficheiro.open(QIODevice::WriteOnly)) ficheiro.write(dados);
        return ficheiro.fileName();
    }

    // How strong a tone is, 0 to 1, in what is heard during the next tenth of a second.
    double Forca(int hertz)
    {
        const std::vector<qint16> ouvido = Ouvir();
        double seno = 0;
        double cosseno = 0;
        for (std::size_t i = 0; i < ouvido.size(); ++i) {
            const double fase = 2 * std::numbers::pi * hertz * static_cast<double>(i) / taxa;
            seno += ouvido[i] * std::sin(fase);
            cosseno += ouvido[i] * std::cos(fase);
        }
        return ouvido.empty() ? 0
                              : 2 * std::hypot(seno, cosseno) / static_cast<double>(ouvido.size()) / inteiro;
    }

    // How loud it is meanwhile, 0 to 1: the farthest that the wave swings.
    double Volume()
    {
        double volume = 0;
        for (const qint16 amostra : Ouvir())
            volume = std::max(volume, std::abs(amostra) / inteiro);
        return volume;
    }

private:
    static constexpr double inteiro = 32768;

    std::vector<qint16> Ouvir()
    {
        gravador_.readAllStandardOutput();
        constexpr qsizetype precisas = taxa / 10 * 2; // bytes
        QByteArray ouvido;
        const bool chega = QTest::qWaitFor(
            [&] {
                ouvido += gravador_.readAllStandardOutput();
                return ouvido.size() >= precisas;
            },
            3000);
        if (!chega) QTest::qFail("nothing is recorded", __FILE__, __LINE__);
        ouvido.truncate(precisas);
        std::vector<qint16> amostras(static_cast<std::size_t>(ouvido.size() / 2));
        std::memcpy(amostras.data(), ouvido.constData(), amostras.size() * 2);
        return amostras;
    }

    bool Comecar_Gravacao()
    {
        gravador_.setStandardErrorFile(QProcess::nullDevice());
        gravador_.start(u"parec"_s, {u"--latency-msec=20"_s, u"-d"_s, u"nulo.monitor"_s, u"--format=s16le"_s,
                                     u"--channels=1"_s, u"--rate=%1"_s.arg(taxa), u"--raw"_s});
        return QTest::qWaitFor([&] { return gravador_.bytesAvailable() > 0; }, 5000);
    }

    QTemporaryDir pasta_;
    QByteArray path_;
    QProcess servidor_;
    QProcess gravador_;
    bool esta_ = false;
};

constexpr double audivel = 0.1;
constexpr double calado = 0.01;

// Listens until it is so. A short sound is over before one can ask twice.
bool Vem(const std::function<bool()> &assim) { return QTest::qWaitFor(assim, 10000); }
} // namespace

class TestSomGravado : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (!ServidorDeSom::Ha()) QSKIP("no sound server on this machine");
    }

    void o_que_se_toca_ouve_se_ate_ao_fim()
    {
        ServidorDeSom servidor;
        QVERIFY(servidor.Esta());
        QVERIFY(servidor.Forca(grave) < calado);
        DesktopSound som;
        som.play(servidor.Onda(grave, 1.5));
        QVERIFY(Vem([&] { return servidor.Forca(grave) > audivel; }));
        QVERIFY(Vem([&] { return servidor.Forca(grave) < calado; }));
    }

    // The waves that are shipped, through the routine that the alarm and the mail call.
    void os_sons_do_programa_ouvem_se_e_acabam_data()
    {
        QTest::addColumn<QString>("nome");
        for (const char *nome : {"tarefa.wav", "newemail.wav", "memo.wav"})
            QTest::newRow(nome) << QString::fromLatin1(nome);
    }
    void os_sons_do_programa_ouvem_se_e_acabam()
    {
        QFETCH(QString, nome);
        ServidorDeSom servidor;
        QVERIFY(servidor.Esta());
        QVERIFY(servidor.Volume() < calado);
        DesktopSound som;
        Tocar_Som(som, qEnvironmentVariable("MORVEX_ENVIADOS") + u'/' + nome);
        QVERIFY(Vem([&] { return servidor.Volume() > audivel; }));
        QVERIFY(Vem([&] { return servidor.Volume() < calado; }));
    }

    void um_som_novo_cala_o_anterior()
    {
        ServidorDeSom servidor;
        QVERIFY(servidor.Esta());
        DesktopSound som;
        som.play(servidor.Onda(grave, 30));
        QVERIFY(Vem([&] { return servidor.Forca(grave) > audivel; }));
        som.play(servidor.Onda(agudo, 30));
        QVERIFY(Vem([&] { return servidor.Forca(agudo) > audivel; }));
        QVERIFY(servidor.Forca(grave) < calado);
    }

    void um_ficheiro_que_falta_nao_se_ouve()
    {
        ServidorDeSom servidor;
        QVERIFY(servidor.Esta());
        DesktopSound som;
        som.play(u"/nao/ha/tal.wav"_s);
        for (int vez = 0; vez < 5; ++vez)
            for (const int hertz : {grave, agudo})
                QVERIFY(servidor.Forca(hertz) < calado);
    }
};

MORVEX_TESTE(TestSomGravado)
#include "test_SomGravado.moc"
