// Measures what the cycle of alarms costs the interface each second, with 10,000 tasks in the table and up to
// 500 of them due at once, beside its floor in the same run: the same rows read by the bare store. Then the
// longest pause of the interface while the notice is up, and the filling of the list of tasks. Usage:
// bench_lembretes [tasks [due]]
#include "data/Comandos.h"
#include "controls/Application.h"
#include "store/sqlite/TextRules.h"
#include "reminders/frmListaTarefas.h"
#include "session/Main.h"
#include "testlib/Disparar.h"
#include "testlib/Pausas.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <SQLiteCpp/SQLiteCpp.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr int repeticoes = 101;
constexpr int repeticoes_da_lista = 5;

// In milliseconds. The processor's own time tells the cost on a machine that is busy with something else too.
struct Tempos {
    double mediana;
    double pior;
    double processador;
};

double Agora_ms(clockid_t relogio)
{
    timespec agora{};
    clock_gettime(relogio, &agora);
    return static_cast<double>(agora.tv_sec) * 1e3 + static_cast<double>(agora.tv_nsec) / 1e6;
}

Tempos Medir(int vezes, const std::function<void()> &trabalho)
{
    std::vector<double> tempos, processador;
    for (int i = 0; i < vezes; ++i) {
        const double inicio = Agora_ms(CLOCK_MONOTONIC);
        const double inicio_do_processador = Agora_ms(CLOCK_THREAD_CPUTIME_ID);
        trabalho();
        tempos.push_back(Agora_ms(CLOCK_MONOTONIC) - inicio);
        processador.push_back(Agora_ms(CLOCK_THREAD_CPUTIME_ID) - inicio_do_processador);
    }
    std::sort(tempos.begin(), tempos.end());
    std::sort(processador.begin(), processador.end());
    return {tempos[tempos.size() / 2], tempos.back(), processador[processador.size() / 2]};
}

void Dizer(const char *o_que, const Tempos &tempos)
{
    std::printf("   %-22s %7.2f ms, at worst %7.2f, processor %6.2f\n", o_que, tempos.mediana, tempos.pior,
                tempos.processador);
    std::fflush(stdout);
}

// The main window over an installation whose clock stands at nine o'clock of 1 February 2027.
struct Programa {
    Programa() : main(s.geral, s.plataforma) { main.Carregar(); }

    // So many tasks of the session's user, of which some are due since that moment; the others lie ahead.
    void Encher(int tarefas, int devidas, const QString &Data, const QString &Hora)
    {
        s.Escrever(u"DELETE FROM TblTarefas"_s);
        s.Escrever(
            u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
            "INSERT INTO TblTarefas (Tarefa, Data, Hora, Utilizador, IDRepeticao) "
            "SELECT 'Telefonar a Conceição Magalhães por causa da encomenda n.º ' || i, "
            "CASE WHEN i <= %2 THEN '%3' ELSE date('2027-02-02', '+' || (i % 700) || ' days') END, "
            "CASE WHEN i <= %2 THEN '%4' ELSE '0' || (i % 10) || ':30:00' END, "
            "0, i % 5 + 1 FROM n"_s.arg(QString::number(tarefas), QString::number(devidas), Data, Hora));
    }
    void Tique() { Disparar(s.geral.temporizadores.timerTarefas); }

    Sistema s;
    Main main;
};

// The two questions of a tick, row by row into strings, with nothing in between.
Tempos Leitura_Nua(const QString &base,
                   const std::vector<std::pair<ComandoComLinhas, QStringList>> &perguntas)
{
    SQLite::Database ligacao(base.toStdString());
    registerTextRules(ligacao.getHandle());
    std::vector<std::pair<SQLite::Statement, QStringList>> consultas;
    consultas.reserve(perguntas.size());
    for (const auto &[comando, parametros] : perguntas)
        consultas.emplace_back(SQLite::Statement(ligacao, std::string(comando.Entrada().sql)), parametros);
    return Medir(repeticoes, [&] {
        for (auto &[consulta, parametros] : consultas) {
            for (int i = 0; i < parametros.size(); ++i)
                consulta.bind(i + 1, parametros[i].toStdString());
            consulta.bind(static_cast<int>(parametros.size()) + 1, 0);
            std::vector<std::string> celulas;
            while (consulta.executeStep())
                for (int i = 0; i < consulta.getColumnCount(); ++i)
                    celulas.push_back(consulta.getColumn(i).getString());
            consulta.reset();
        }
    });
}

void Medir_Tique(int tarefas, int devidas, const char *quais, const QString &Data, const QString &Hora)
{
    Programa p;
    p.Encher(tarefas, devidas, Data, Hora);
    std::printf("%d tasks, %d of them due %s\n", tarefas, devidas, quais);
    Dizer("first tick", Medir(1, [&] { p.Tique(); }));
    Dizer("tick", Medir(repeticoes, [&] { p.Tique(); }));
    Dizer("bare read", Leitura_Nua(p.s.Base(), {{"cmdVerificarTarefas", {u"2027-02-01"_s, u"09:00:00"_s}},
                                                {"cmdVerificarTarefas2", {u"2027-02-01"_s}}}));
    if (devidas == 0) return;

    // With the timers' own ticks, from the rise on.
    const Pausas pausas;
    QTest::qWait(5000);
    std::printf("   the interface paused for at most %lld ms in five seconds under the notice\n",
                pausas.maior);
}

void Medir_Lista(int tarefas)
{
    Programa p;
    p.Encher(tarefas, 0, {}, {});
    std::printf("%d tasks in their list\n", tarefas);
    Dizer("filling and painting", Medir(repeticoes_da_lista, [&] {
              frmListaTarefas lista(p.s.geral, p.s.plataforma, p.main);
              lista.show();
              QCoreApplication::processEvents();
          }));
    Dizer("bare read", Leitura_Nua(p.s.Base(), {{"cmdListarTarefas", {}}}));
}
} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("MORVEX_ENVIADOS", MORVEX_ENVIADOS);
    teste::CaixasDaAplicacao caixas;
    const Application application(argc, argv, caixas);
    const int tarefas = argc > 1 ? QByteArray(argv[1]).toInt() : 10000;
    const int devidas = argc > 2 ? QByteArray(argv[2]).toInt() : 500;
    Medir_Tique(tarefas, 0, "", {}, {});
    Medir_Tique(tarefas, devidas, "today", u"2027-02-01"_s, u"08:00:00"_s);
    Medir_Tique(tarefas, devidas, "yesterday", u"2027-01-31"_s, u"08:00:00"_s); // by both questions
    Medir_Lista(tarefas);
}
