// Measures synchronising with a real server beside another client, vdirsyncer: the first run, a run without
// changes, twenty changes each way, and an empty book that receives everything, in time, in requests, and in
// the time that our thread and the server compute. Each client has a server of its own with the same cards.
// Usage: bench_sincronizar [radicale|xandikos [CARDS]]   (radicale and 1000 unless told otherwise) With
// "pausas" instead of a server: how long the interface is held up at the worst, and what memory a run takes.
#include "sincronizacao/MesaComServidor.h"
#include "testlib/MemoriaPedida.h"
#include "testlib/Teste.h"

#include <cstdio>
#include <QSemaphore>
#include <QThread>
#include <sys/resource.h>
#include <unistd.h>

namespace
{
constexpr int mudancas = 20;
constexpr int primeiro_mudado = 200; // here; those that begin with 1 are changed there

// What counts works beside, so that it costs neither client anything.
class ContadorAoLado final : public QThread
{
public:
    explicit ContadorAoLado(quint16 porta) : porta_(porta)
    {
        start();
        pronto_.acquire();
    }
    ~ContadorAoLado() override
    {
        quit();
        wait();
    }
    quint16 Porta() const { return contador_->serverPort(); }
    // What was counted since the last time.
    Contador::Contagem Tirar()
    {
        Contador::Contagem conta;
        QMetaObject::invokeMethod(
            contador_, [&] { conta = std::exchange(contador_->conta, {}); }, Qt::BlockingQueuedConnection);
        return conta;
    }

protected:
    void run() override
    {
        Contador contador(porta_);
        contador_ = &contador;
        pronto_.release();
        exec();
    }

private:
    quint16 porta_;
    QSemaphore pronto_;
    Contador *contador_ = nullptr;
};

double Segundos(const timeval &tempo)
{
    return static_cast<double>(tempo.tv_sec) + static_cast<double>(tempo.tv_usec) / 1e6;
}

// Of this thread, that is, without what counts.
double Calculado()
{
    rusage gasto{};
    getrusage(RUSAGE_THREAD, &gasto);
    return Segundos(gasto.ru_utime) + Segundos(gasto.ru_stime);
}

double Calculado_Por(int processo)
{
    QFile ficheiro(u"/proc/%1/stat"_s.arg(processo));
    if (!ficheiro.open(QIODevice::ReadOnly)) return 0;
    const QList<QByteArray> campos = ficheiro.readAll().split(')').constLast().split(' ');
    return static_cast<double>(campos.value(12).toLongLong() + campos.value(13).toLongLong()) /
           static_cast<double>(sysconf(_SC_CLK_TCK));
}

// One client and its server.
struct Cliente {
    Cliente(const char *n, const QString &especie)
        : nome(n), livro(std::make_shared<LivroNoServidor>(especie))
    {
    }

    void Medir(const char *que, const std::function<void()> &trabalho)
    {
        contador.Tirar();
        const double nosso = Calculado();
        const double dele = Calculado_Por(livro->Processo());
        QElapsedTimer tempo;
        tempo.start();
        trabalho();
        const auto ms = static_cast<double>(tempo.elapsed());
        const Contador::Contagem conta = contador.Tirar();
        std::printf("%-20s %-11s %8.1f s %6d requests %6d refused   thread %6.1f s   server %6.1f s  ", que,
                    nome, ms / 1000, conta.pedidos, conta.recusados, Calculado() - nosso,
                    Calculado_Por(livro->Processo()) - dele);
        for (auto um = conta.verbos.cbegin(); um != conta.verbos.cend(); ++um)
            std::printf(" %s %d", um.key().constData(), um.value());
        std::printf("\n");
        std::fflush(stdout);
    }

    // What somebody else does to twenty cards there.
    void Mudar_La()
    {
        AddressBook remoto(livro->Endereco(), livro->Conta());
        QList<RemoteCard> cartoes;
        bool feito = false;
        const auto esperar = [&] {
            while (!std::exchange(feito, false))
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        };
        remoto.changesSince({}, [&](const RemoteError &, const RemoteChanges &mudancas_la) {
            QStringList hrefs;
            for (const RemoteMember &membro : mudancas_la.changed)
                hrefs << membro.href;
            remoto.fetch(
                hrefs, [&](const QList<RemoteCard> &porcao) { cartoes += porcao; },
                [&](const RemoteError &) { feito = true; });
        });
        esperar();
        // Others than those that are changed here.
        cartoes.removeIf([](const RemoteCard &cartao) { return !cartao.text.contains("Pessoa 1"); });
        for (const RemoteCard &cartao : cartoes.mid(std::max<qsizetype>(0, cartoes.size() - mudancas))) {
            const QByteArray texto =
                QByteArray(cartao.text).replace("END:VCARD", "TEL;TYPE=FAX:215550000\r\nEND:VCARD");
            remoto.replace(cartao.href, cartao.etag, texto,
                           [&](const RemoteError &erro, const RemoteWritten &) {
                               if (erro) std::printf("   not changed there: %s\n", qPrintable(erro.detail));
                               feito = true;
                           });
            esperar();
        }
    }

    const char *nome;
    std::shared_ptr<LivroNoServidor> livro;
    ContadorAoLado contador{livro->porta};
};

void Nosso(Cliente &c, int quantos)
{
    MesaComServidor m(c.livro);
    m.Povoar(quantos);
    const quint16 por = c.contador.Porta();
    ResultadoDaSincronizacao fim;
    c.Medir("first run", [&] { m.Correr_De_Verdade(&fim, por); });
    if (fim.adicionados_la != quantos) std::puts("   not all were sent");
    m.Correr_De_Verdade(); // sees what the server has made of it
    c.Medir("unchanged", [&] { m.Correr_De_Verdade(&fim, por); });
    if (fim.Mudou_Aqui() || fim.Mudou_La()) std::puts("   something was changed");
    c.Mudar_La();
    for (int i = 0; i < mudancas; ++i)
        m.Mudar(m.ID_De(u"Pessoa %1"_s.arg(primeiro_mudado + i)), u"Telefone1"_s, u"21%1"_s.arg(1000000 + i));
    c.Medir("20 changes each way", [&] { m.Correr_De_Verdade(&fim, por); });
    std::printf("   %d sent, %d received, %d conflicts\n", fim.alterados_la, fim.alterados, fim.conflitos);
    MesaComServidor vazia(c.livro);
    c.Medir("empty receives all", [&] { vazia.Correr_De_Verdade(&fim, por); });
    if (fim.adicionados != quantos) std::puts("   not all were received");
}

void Outro(Cliente &c, int quantos)
{
    const quint16 por = c.contador.Porta();
    PastaSincronizada pasta(*c.livro, por);
    for (int i = 0; i < quantos; ++i)
        pasta.Por(u"p%1.vcf"_s.arg(i),
                  MesaDaSincronizacao::Cartao(u"p%1"_s.arg(i), u"Pessoa %1"_s.arg(i),
                                              "TEL;TYPE=CELL:91" + QByteArray::number(1000000 + i) + "\r\n"));
    c.Medir("first run", [&] { pasta.Correr(); });
    c.Medir("unchanged", [&] { pasta.Correr(); });
    c.Mudar_La();
    for (int i = 0; i < mudancas; ++i) {
        const QString ficheiro = u"p%1.vcf"_s.arg(primeiro_mudado + i);
        pasta.Por(ficheiro,
                  pasta.Ler(ficheiro).replace(
                      "END:VCARD", "TEL;TYPE=HOME:21" + QByteArray::number(1000000 + i) + "\r\nEND:VCARD"));
    }
    c.Medir("20 changes each way", [&] { pasta.Correr(); });
    PastaSincronizada vazia(*c.livro, por);
    c.Medir("empty receives all", [&] { vazia.Correr(); });
    if (vazia.Ficheiros().size() != quantos) std::puts("   not all were received");
}

// What of it is ours alone: a server that answers at once, and keeps nothing on a disk.
void Sem_Servidor(int quantos)
{
    MesaDaSincronizacao m;
    for (int i = 0; i < quantos; ++i)
        m.Contacto(u"Pessoa %1"_s.arg(i), u"91%1"_s.arg(1000000 + i));
    const double antes = Calculado();
    QElapsedTimer tempo;
    tempo.start();
    m.Correr();
    std::printf("first run            no server   %8.1f s   thread %6.1f s\n",
                static_cast<double>(tempo.elapsed()) / 1000, Calculado() - antes);
}

// The longest time for which the interface is held up, and the memory.
void Pausa(const char *que, MesaDaSincronizacao &m)
{
    const memoria::Medida medida;
    QElapsedTimer tempo;
    tempo.start();
    std::optional<ResultadoDaSincronizacao> fim;
    auto corrida = m.Nova();
    QObject::connect(corrida.get(), &Sincronizacao::Terminada, [&](const auto &r) { fim = r; });
    corrida->Comecar();
    QElapsedTimer volta;
    qint64 maior = 0;
    double mais_calculado = 0;
    while (!fim) {
        const double antes = Calculado();
        volta.start();
        QCoreApplication::processEvents();
        maior = std::max(maior, volta.elapsed());
        mais_calculado = std::max(mais_calculado, Calculado() - antes);
    }
    std::printf("%-20s %8lld ms   longest pause %5lld ms, of which computing %4.0f ms at the most   %6.1f MB "
                "at a time   "
                "%d and %d added\n",
                que, tempo.elapsed(), maior, mais_calculado * 1000,
                static_cast<double>(medida.Maximo()) / 1e6, fim->adicionados, fim->adicionados_la);
    std::fflush(stdout);
}

void Pausas_Com(int quantos)
{
    MesaDaSincronizacao m;
    m.s.geral.de.Juntar([&] {
        for (int i = 0; i < quantos; ++i)
            m.s.geral.de.Executar("cmdAdicionarNome",
                                  {u"Pessoa %1"_s.arg(i), u""_s, u""_s, u""_s, u"91%1"_s.arg(1000000 + i),
                                   u""_s, u""_s, u"7"_s, u"5"_s, u""_s, u"p%1@x.example"_s.arg(i), u""_s,
                                   u""_s, u"Rua do Cais, %1\r\n1200-000 Lisboa"_s.arg(i), u"Uma nota."_s,
                                   u""_s, m.grupo});
    });
    std::printf("%d contacts, a server in memory\n", quantos);
    Pausa("first run", m);
    Pausa("unchanged", m);
    m.servidor.epoca = "b";
    Pausa("listed anew", m);
    m.s.Escrever(u"DELETE FROM TblSincronizados"_s);
    m.servidor.epoca = "c";
    Pausa("paired again", m);
}
} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    teste::CaixasDaAplicacao caixas;
    const Application application(argc, argv, caixas);
    const QString especie = argc > 1 ? QString::fromLocal8Bit(argv[1]) : u"radicale"_s;
    const int quantos = argc > 2 ? QByteArray(argv[2]).toInt() : 1000;
    if (especie == u"pausas"_s) {
        Pausas_Com(quantos);
        return 0;
    }
    for (const QString &falta : {LivroNoServidor::Falta(especie), PastaSincronizada::Falta()})
        if (!falta.isEmpty()) {
            std::printf("%s\n", qPrintable(falta));
            return 1;
        }
    std::printf("%d cards on %s\n", quantos, qPrintable(especie));
    Sem_Servidor(quantos);
    Cliente um("morvex", especie);
    Nosso(um, quantos);
    Cliente outro("vdirsyncer", especie);
    Outro(outro, quantos);
    return 0;
}
