// Measures what a mail check costs the interface: the longest time for which it was kept from its events, and
// the memory, with good servers and with servers that misbehave. Each server runs in a process of its own,
// and so does each check. Waits are a tenth of the product's, so that a run takes minutes and not half an
// hour. Usage: bench_correio
#include "mail/MailTexts.h"
#include "mail/PopMailNotification.h"
#include "testlib/Pausas.h"
#include "testlib/ServidorPop.h"

#include <cstdio>
#include <QApplication>
#include <QTemporaryDir>
#include <sys/resource.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{
constexpr PopMailNotification::Pace ritmo{600s, 0ms, {400, 1500, 6000}};

double Memoria_Maior_MB()
{
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    return static_cast<double>(uso.ru_maxrss) / 1e3;
}

QList<Fala> Caixa(int mensagens, int largura = 16)
{
    QByteArray nomes;
    for (int i = 1; i <= mensagens; ++i)
        nomes += QByteArray::number(i) + ' ' + QByteArray::number(i).rightJustified(largura, 'u') + "\r\n";
    return Conversa_Boa("+OK " + QByteArray::number(mensagens) + " 300\r\n", nomes);
}

QList<Fala> Ate(int passo, const QByteArray &ultima)
{
    QList<Fala> falas = Conversa_Boa("+OK 2000000000 1\r\n").mid(0, passo + 1);
    falas.last().resposta = ultima;
    return falas;
}

struct Caso {
    QByteArray nome;
    std::function<QList<Fala>()> falas;
    ServidorPop::Fim fim = ServidorPop::Fim::Serve;
};

QList<Caso> Casos()
{
    using Fim = ServidorPop::Fim;
    QList<Caso> casos{
        {"1 message", [] { return Caixa(1); }},
        {"500 messages", [] { return Caixa(500); }},
        {"10,000 messages", [] { return Caixa(10000); }},
        {"100,000 messages", [] { return Caixa(100000); }},
        {"encrypted, unknown certificate", [] { return Conversa_Cifrada(); }},
        {"turns away",
         [] {
             return QList<Fala>{{"", "-ERR no\r\n"}};
         },
         Fim::Fecha},
        {"refuses the password", [] { return Ate(3, "-ERR no\r\n"); }},
        {"drips a byte each 300 ms", [] { return Conversa_Boa(); }, Fim::Pinga},
        {"garbage",
         [] {
             return QList<Fala>{{"", QByteArray(4000, '\xfe') + "\r\n"}};
         }},
        {"endless line",
         [] {
             return QList<Fala>{{"", QByteArray(4000, 'x')}};
         },
         Fim::Sem_Fim},
        {"endless greeting",
         [] {
             return QList<Fala>{{"", "+OK again\r\n"}};
         },
         Fim::Sem_Fim},
        {"endless CAPA", [] { return Ate(1, "+OK\r\nX-Y\r\n"); }, Fim::Sem_Fim},
        {"endless UIDL", [] { return Ate(5, "+OK\r\n1 0123456789abcdef\r\n"); }, Fim::Sem_Fim},
        {"endless UIDL, long names", [] { return Ate(5, "+OK\r\n1 " + QByteArray(8000, 'u') + "\r\n"); },
         Fim::Sem_Fim},
        {"greeting with a timestamp", [] { return Conversa_Boa(); }},
        {"words behind the STLS answer",
         [] {
             return QList<Fala>{
                 {"", "+OK\r\n"}, {"CAPA", "+OK\r\nSTLS\r\n.\r\n"}, {"STLS", "+OK\r\n+OK\r\n"}};
         }},
    };
    static const QList<QByteArray> passos{"greeting", "CAPA", "USER", "PASS", "STAT", "UIDL", "QUIT"};
    for (int passo = 0; passo < passos.size(); ++passo) {
        const auto falas = [passo] { return Conversa_Boa().mid(0, passo); };
        casos << Caso{"hangs at " + passos[passo], falas, Fim::Cala}
              << Caso{"closes at " + passos[passo], falas, Fim::Fecha};
    }
    return casos;
}

int Servir(int argc, char **argv, int caso)
{
    QCoreApplication aplicacao(argc, argv);
    const Caso escolhido = Casos().at(caso);
    ServidorPop servidor(escolhido.falas(), escolhido.fim);
    servidor.gota = 300;
    if (servidor.falas.value(2).comando == "STLS") servidor.Identificar({});
    std::printf("%d\n", int(servidor.serverPort()));
    std::fflush(stdout);
    return QCoreApplication::exec();
}

int Verificar(int argc, char **argv, const QString &porta)
{
    const QApplication aplicacao(argc, argv);
    const QTemporaryDir pasta;
    PopMailNotification correio(
        pasta.filePath(u"correio.json"_s), [] { return u"InglesUK"_s; }, ritmo);
    correio.setServidor(u"127.0.0.1:"_s + porta);
    correio.setConta(u"ana"_s);
    correio.setSenha(u"segredo9"_s);
    const double antes = Memoria_Maior_MB();
    Pausas pausas;
    QElapsedTimer relogio;
    relogio.start();
    correio.setActivo(true);
    while (!correio.Falhou() && correio.NumeroMensagens() == 0 && relogio.elapsed() < 20000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const qint64 tempo = relogio.elapsed();
    [[maybe_unused]] const bool ha_correio = correio.TemCorreio();
    QCoreApplication::processEvents(); // what the announcing took counts too
    std::printf("%6lld ms   longest pause %4lld ms   memory + %5.1f MB   %s\n", static_cast<long long>(tempo),
                static_cast<long long>(pausas.maior), Memoria_Maior_MB() - antes,
                correio.Falhou() ? qPrintable(correio.TextoErro())
                                 : qPrintable(QString::number(correio.NumeroMensagens()) + u" new"_s));
    std::fflush(stdout);
    return 0;
}

void Medir(int numero, const Caso &caso)
{
    QProcess servidor;
    servidor.start(QCoreApplication::applicationFilePath(), {u"--servidor"_s, QString::number(numero)});
    servidor.waitForReadyRead();
    const QString porta = QString::fromUtf8(servidor.readAllStandardOutput()).trimmed();
    QProcess verificacao;
    verificacao.start(QCoreApplication::applicationFilePath(), {u"--verificar"_s, porta});
    verificacao.waitForFinished(-1);
    std::printf("%-32s %s", caso.nome.constData(), verificacao.readAllStandardOutput().constData());
    std::fflush(stdout);
    servidor.kill();
    servidor.waitForFinished();
}
} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc >= 3 && qstrcmp(argv[1], "--servidor") == 0)
        return Servir(argc, argv, QByteArray(argv[2]).toInt());
    if (argc >= 3 && qstrcmp(argv[1], "--verificar") == 0)
        return Verificar(argc, argv, QString::fromLatin1(argv[2]));

    const QCoreApplication aplicacao(argc, argv);
    const QList<Caso> casos = Casos();
    for (int i = 0; i < casos.size(); ++i)
        Medir(i, casos[i]);
}
