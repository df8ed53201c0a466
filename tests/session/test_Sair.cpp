// The way out: the question about pending tasks, and the order in which the program goes.
#include "session/Main.h"
#include "session/Sair.h"
#include "testlib/ServidorFalso.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestSair : public QObject
{
    Q_OBJECT

    struct Saida {
        Saida() { janela.setWindowTitle(u"Morvex 1.0 "_s); }

        void Nova_Tarefa(int Utilizador = 0)
        {
            s.geral.de.Executar("cmdAdicionarTarefa",
                                {u"Ligar"_s, u"01-03-2027"_s, u"10:00"_s, Utilizador, 1});
        }
        void Esperar_Pergunta(int resposta)
        {
            const QString texto = s.Texto(225) + u"\r\n"_s + s.Texto(226) + u"\r\n"_s + s.Texto(227);
            s.caixas.Espera(texto, 52, u"Morvex 1.0 "_s, resposta);
        }
        bool Foi_Se() const
        {
            return s.processo.fins == 1 && s.tabuleiro.historia == QStringList{u"-1"_s, u"-2"_s};
        }

        Sistema s;
        Main janela{s.geral, s.plataforma};
    };

private Q_SLOTS:
    void sem_tarefas_sai_logo_depois_de_tirar_os_dois_icones()
    {
        Saida saida;
        saida.janela.Sair->trigger();
        QVERIFY(saida.Foi_Se());
        QCOMPARE(saida.s.geral.de.Rs("cmdListarTarefas").State(), Recordset::Closed);
    }

    void com_tarefas_pergunta_e_sai_ao_Sim()
    {
        Saida saida;
        saida.Nova_Tarefa();
        saida.Esperar_Pergunta(answer::yes);
        saida.janela.Sair->trigger();
        QVERIFY(saida.s.caixas.Todas_Vistas());
        QVERIFY(saida.Foi_Se());
    }

    void ao_Nao_o_programa_fica_com_todos_os_temporizadores_a_andar()
    {
        Saida saida;
        saida.Nova_Tarefa();
        saida.Esperar_Pergunta(answer::no);
        saida.janela.Sair->trigger();
        QVERIFY(saida.s.caixas.Todas_Vistas());
        QVERIFY(!saida.s.processo.Terminou());
        QVERIFY(saida.s.tabuleiro.historia.isEmpty());
        QCOMPARE(saida.s.geral.de.Rs("cmdListarTarefas").State(), Recordset::Closed);
        const Temporizadores &t = saida.s.geral.temporizadores;
        QVERIFY(t.timerTarefas.Enabled() && t.timerPonto.Enabled() && t.timerAniversarios.Enabled());
        QVERIFY(t.TimerDownload.Enabled());
    }

    void as_tarefas_de_outro_utilizador_nao_contam()
    {
        Saida saida;
        saida.Nova_Tarefa(saida.s.Novo_Utilizador(u"Outro"_s, u"x"_s));
        saida.janela.Sair->trigger();
        QVERIFY(saida.Foi_Se());
    }

    void a_entrada_do_tabuleiro_faz_o_mesmo()
    {
        Saida saida;
        saida.Nova_Tarefa();
        saida.Esperar_Pergunta(answer::yes);
        saida.janela.SystemTraySair->trigger();
        QVERIFY(saida.s.caixas.Todas_Vistas());
        QVERIFY(saida.Foi_Se());
    }

    // Nobody knows of tasks then.
    void sem_o_servidor_sai_sem_uma_palavra()
    {
        SO_NUM_FICHEIRO("it plays the server");
        Saida saida;
        saida.Nova_Tarefa();
        ServidorFalso servidor(saida.s.Base());
        servidor.Servir(saida.s.geral);
        saida.s.geral.de.Abrir("cmdVerConfig").Close();
        servidor.Perder();
        saida.janela.Sair->trigger();
        QVERIFY(saida.Foi_Se());
    }

    void base_estragada_mostra_o_erro_e_termina()
    {
        Saida saida;
        saida.s.Escrever(u"DROP TABLE TblTarefas"_s);
        saida.s.caixas.Espera_Erro(Failure::StoreError);
        saida.janela.Sair->trigger();
        QVERIFY(saida.s.caixas.Todas_Vistas());
        QVERIFY(saida.s.processo.Terminou());
    }
};

MORVEX_TESTE(TestSair)
#include "test_Sair.moc"
