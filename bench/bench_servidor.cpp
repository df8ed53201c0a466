// Measures what a desk waits for over a slow network: the round trips of each action and its time, with
// encryption and a password, beside the same action on a file that holds the same book. Starts a server of its
// own. Usage: bench_servidor [MILLISECONDS [CONTACTS]]   (a round trip of 20 ms and 1000 contacts unless told
// otherwise)
#include "controls/ListBox.h"
#include "servidor/MudancaParaServidor.h"
#include "session/frmOpcoes.h"
#include "session/Main.h"
#include "store/Certificados.h"
#include "store/Intermediario.h"
#include "store/postgres/ServerSession.h"
#include "testlib/Disparar.h"
#include "testlib/Servidor.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <algorithm>
#include <cstdio>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{
constexpr int repeticoes = 9;

struct Medida {
    double ms = 0;
    int viagens = 0;
};

// The middle one of a few times, and the trips of the last.
class Medidor
{
public:
    explicit Medidor(Intermediario &rede) : rede_(rede) {}

    template<class Trabalho> Medida Uma(const Trabalho &trabalho)
    {
        const int antes = rede_.viagens;
        QElapsedTimer relogio;
        relogio.start();
        trabalho();
        return {static_cast<double>(relogio.nsecsElapsed()) / 1e6, rede_.viagens - antes};
    }
    template<class Trabalho> Medida Mediana(const Trabalho &trabalho)
    {
        std::vector<Medida> medidas;
        medidas.reserve(repeticoes);
        for (int i = 0; i < repeticoes; ++i)
            medidas.push_back(Uma(trabalho));
        const int viagens = medidas.back().viagens;
        std::sort(medidas.begin(), medidas.end(),
                  [](const Medida &a, const Medida &b) { return a.ms < b.ms; });
        return {medidas[medidas.size() / 2].ms, viagens};
    }

private:
    Intermediario &rede_;
};

// What is waited for: on a server, where it must not take longer than that.
struct Accao {
    const char *nome;
    double limite;
    Medida medida;
};

void Mostrar(const std::vector<Accao> &servidor, const std::vector<Accao> &ficheiro)
{
    std::printf("%-14s %6s %11s %11s %11s\n", "", "trips", "server, ms", "limit, ms", "file, ms");
    for (const Accao &accao : servidor) {
        const auto igual = [&](const Accao &outra) { return qstrcmp(outra.nome, accao.nome) == 0; };
        const auto la = std::find_if(ficheiro.begin(), ficheiro.end(), igual);
        const QByteArray no_ficheiro = la == ficheiro.end() ? "-" : QByteArray::number(la->medida.ms, 'f', 1);
        std::printf("%-14s %6d %11.1f %11.0f %11s%s\n", accao.nome, accao.medida.viagens, accao.medida.ms,
                    accao.limite, no_ficheiro.constData(), accao.medida.ms > accao.limite ? "   ABOVE IT" : "");
    }
}

void Encher(Sistema &s, int quantos)
{
    const Value nulo(nullptr);
    s.geral.de.Juntar([&] {
        for (int i = 0; i < quantos; ++i)
            s.geral.de.Executar("cmdAdicionarNome",
                                {u"Álvaro Brandão %1"_s.arg(i), nulo, nulo, nulo, nulo, nulo, nulo, u"7"_s,
                                 u"05"_s, nulo, u"a%1@b.example"_s.arg(i), nulo, nulo, nulo,
                                 QString(300, u'n'), nulo, i % 6 + 1});
    });
}

// A server as an office has it: its certificate signed by the office, the password in a file.
struct Escritorio {
    Servidor servidor{"postgres"};
    QTemporaryDir pasta;
    QUrl morada;

    QString Abrir(const QString &ficheiro)
    {
        if (!servidor.Correr("start")) return u"the server does not start"_s;
        qputenv("PGPASSFILE", (servidor.Pasta() + u"/senhas"_s).toUtf8());
        morada = QUrl(servidor.Perguntar("address"));
        const QString oficio = pasta.filePath(u"office"_s);
        const QString dele = pasta.filePath(u"server"_s);
        if (QString falha = certificados::Fazer(oficio, oficio.section(u'/', -1)); !falha.isEmpty())
            return falha;
        if (QString falha = certificados::Fazer(dele, u"localhost"_s, oficio); !falha.isEmpty()) return falha;
        if (QString falha = certificados::Dar_Ao_Servidor(morada, dele); !falha.isEmpty()) return falha;
        TabelaNoServidor::Correr_Em(morada,
                                    u"CREATE DATABASE escritorio OWNER morvex_dono TEMPLATE template0"_s);
        ServerSession dona(De(u"morvex_dono"_s, static_cast<quint16>(morada.port())));
        dona.together([&] { mudanca::Mudar(ficheiro, dona, u"morvex"_s); });
        dona.run(u"VACUUM ANALYZE"_s);
        return {};
    }
    QString De(const QString &quem, quint16 porta) const
    {
        return u"postgresql://%1@localhost:%2/escritorio?sslmode=verify-full&sslrootcert=%3"_s.arg(quem)
            .arg(porta)
            .arg(pasta.filePath(u"office.crt"_s));
    }
};

// From the click to the open form, which is closed again.
Medida Editor(Medidor &medidor, Main &janela)
{
    return medidor.Mediana([&] {
        QTimer::singleShot(0, &janela, [] {
            if (QWidget *form = QApplication::activeModalWidget()) form->close();
        });
        janela.cmdEditar->click();
    });
}

std::vector<Accao> Medir(Sistema &s, Medidor &medidor)
{
    std::unique_ptr<Main> janela;
    std::vector<Accao> accoes{{"start", 500, medidor.Uma([&] {
                                   janela = std::make_unique<Main>(s.geral, s.plataforma);
                                   janela->Carregar();
                                   janela->show();
                                   janela->repaint();
                               })}};
    if (janela->ListaNomes->ListCount() == 0) {
        std::puts("the list is empty: nothing measured");
        return {};
    }
    int linha = 0;
    accoes.push_back({"card", 50, medidor.Mediana([&] {
                          linha = (linha + 97) % static_cast<int>(janela->ListaNomes->ListCount());
                          janela->ListaNomes->setListIndex(linha);
                          janela->repaint();
                      })});
    accoes.push_back({"list", 60, medidor.Mediana([&] { janela->ComboGrupos->setListIndex(0); })});
    janela->ListaNomes->setListIndex(5);
    accoes.push_back({"editor", 100, Editor(medidor, *janela)});
    accoes.push_back({"options", 60, medidor.Mediana([&] { frmOpcoes form(s.geral, s.plataforma, *janela); })});
    accoes.push_back(
        {"alarm's tick", 25, medidor.Mediana([&] { Disparar(s.geral.temporizadores.timerTarefas); })});
    return accoes;
}

// The same book in the file, before anything of it goes to the server.
std::vector<Accao> Medir_No_Ficheiro(int contactos)
{
    Sistema s;
    Encher(s, contactos);
    s.geral.de.Fechar_Ligacao();
    Intermediario ninguem(0);
    Medidor medidor(ninguem);
    return Medir(s, medidor);
}
} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("MORVEX_ENVIADOS", MORVEX_ENVIADOS);
    teste::CaixasDaAplicacao caixas;
    const Application application(argc, argv, caixas);
    const int ida_e_volta = argc > 1 ? QByteArray(argv[1]).toInt() : 20;
    const int contactos = argc > 2 ? QByteArray(argv[2]).toInt() : 1000;

    const std::vector<Accao> no_ficheiro = Medir_No_Ficheiro(contactos);
    Sistema s;
    Encher(s, contactos);
    Escritorio escritorio;
    if (const QString falha = escritorio.Abrir(s.Base()); !falha.isEmpty()) {
        std::printf("%s\n", qPrintable(falha));
        return 1;
    }
    Intermediario rede(static_cast<quint16>(escritorio.morada.port()));
    constexpr int meio = 500; // of a millisecond, in microseconds
    rede.atraso = ida_e_volta * meio;
    const QString morada = escritorio.De(u"morvex"_s, rede.Porta());
    Medidor medidor(rede);
    std::printf("%d contacts, a round trip of %d ms, TLS and a password\n", contactos, ida_e_volta);
    std::vector<Accao> accoes{{"connecting", 250, medidor.Mediana([&] {
                                   Connection ligacao;
                                   ligacao.setDataSource(morada);
                                   ligacao.Open();
                               })}};
    s.geral.de.Fechar_Ligacao();
    s.geral.ini.Escrever_Ini(u"basedados"_s, u"caminhobd"_s, morada);
    s.geral.de.Base().Trocar(morada);
    const std::vector<Accao> no_servidor = Medir(s, medidor);
    accoes.insert(accoes.end(), no_servidor.begin(), no_servidor.end());
    Mostrar(accoes, no_ficheiro);
    return 0;
}
