// What is really heard: a sound server without a device of its own records what the program plays. Needs
// pulseaudio, parec and paplay (packages pulseaudio, pulseaudio-utils), and is skipped where they are
// missing.
#include "platform/DesktopSound.h"
#include "testlib/Teste.h"

#include <cmath>
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
        servidor_.start(u"pulseaudio"_s, {u"-n"_s, u"--daemonize=no"_s, u"--exit-idle-time=-1"_s,
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
        gravador_.readAllStandardOutput();
        constexpr int precisas = taxa / 10;
        QByteArray ouvido;
        const bool chega = QTest::qWaitFor(
            [&] {
                ouvido += gravador_.readAllStandardOutput();
                return ouvido.size() >= precisas * 2;
            },
            3000);
        if (!chega) QTest::qFail("nothing is recorded", __FILE__, __LINE__);
        const auto *amostras = reinterpret_cast<const qint16 *>(ouvido.constData());
        double seno = 0;
        double cosseno = 0;
        const int ouvidas = std::min(precisas, static_cast<int>(ouvido.size() / 2));
        for (int i = 0; i < ouvidas; ++i) {
            const double fase = 2 * std::numbers::pi * hertz * i / taxa;
            seno += amostras[i] * std::sin(fase);
            cosseno += amostras[i] * std::cos(fase);
        }
        return ouvidas == 0 ? 0 : 2 * std::hypot(seno, cosseno) / ouvidas / 32768;
    }

private:
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
        QTRY_VERIFY_WITH_TIMEOUT(servidor.Forca(grave) > audivel, 3000);
        QTRY_VERIFY_WITH_TIMEOUT(servidor.Forca(grave) < calado, 5000);
    }

    void um_som_novo_cala_o_anterior()
    {
        ServidorDeSom servidor;
        QVERIFY(servidor.Esta());
        DesktopSound som;
        som.play(servidor.Onda(grave, 30));
        QTRY_VERIFY_WITH_TIMEOUT(servidor.Forca(grave) > audivel, 3000);
        som.play(servidor.Onda(agudo, 30));
        QTRY_VERIFY_WITH_TIMEOUT(servidor.Forca(agudo) > audivel, 3000);
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
