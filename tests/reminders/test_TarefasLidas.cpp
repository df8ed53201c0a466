// The tasks of a server as a desk keeps them: when they are read anew, and which of them are due.
#include "reminders/TarefasLidas.h"
#include "testlib/ServidorFalso.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
struct Posto {
    Posto()
    {
        Nova(u"Regar"_s, u"2027-02-01"_s, u"09:00:00"_s);
        servidor.Servir(s.geral);
        s.geral.Ler_Idioma(43); // the connection is there
        servidor.Esquecer();
    }

    // From another desk, of which nobody tells.
    void Nova(const QString &tarefa, const QString &data, const QString &hora,
              const QString &utilizador = u"0"_s)
    {
        s.Escrever(
            u"INSERT INTO TblTarefas (Tarefa, Data, Hora, IDRepeticao, Utilizador) VALUES ('%1', %2, %3, 1, %4)"_s
                .arg(tarefa, data.isEmpty() ? u"NULL"_s : u'\'' + data + u'\'',
                     hora.isEmpty() ? u"NULL"_s : u'\'' + hora + u'\'', utilizador));
    }
    // How often the server is asked for them now.
    int Perguntas()
    {
        servidor.Esquecer();
        lidas.Por_Em_Dia();
        return servidor.Comandos();
    }
    QStringList Tarefas() const
    {
        QStringList tarefas;
        Recordset rs = lidas.Linhas();
        if (rs.State() == Recordset::Open)
            for (; !rs.Eof(); rs.MoveNext())
                tarefas << rs.Fields("Tarefa").text();
        return tarefas;
    }

    Sistema s{Sistema::Estado::Semeado, u"PortuguesPT"_s, Sistema::Onde::Num_Ficheiro};
    ServidorFalso servidor{s.Base()};
    TarefasLidas lidas{s.geral, s.relogio};
};
} // namespace

class TestTarefasLidas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void antes_da_primeira_leitura_nao_ha_nenhuma()
    {
        const Posto p;
        QCOMPARE(p.lidas.Linhas().State(), Recordset::Closed);
    }

    void o_servidor_e_perguntado_uma_vez_por_minuto()
    {
        Posto p;
        QCOMPARE(p.Perguntas(), 1);
        QCOMPARE(p.Tarefas(), QStringList{u"Regar"_s});
        QCOMPARE(p.s.geral.de.Rs("cmdVerificarTarefas2").State(), Recordset::Closed);
        QCOMPARE(p.Perguntas(), 0);
        p.s.relogio.Avancar_Segundos(59);
        QCOMPARE(p.Perguntas(), 0);
        p.s.relogio.Avancar_Segundos(1);
        QCOMPARE(p.Perguntas(), 1);
        p.s.relogio.Avancar_Segundos(-60); // somebody has put the clock back
        QCOMPARE(p.Perguntas(), 1);
    }

    void vao_ate_ao_fim_do_dia_de_amanha()
    {
        Posto p;
        p.Nova(u"Amanha"_s, u"2027-02-02"_s, u"23:59:00"_s);
        p.Nova(u"Depois de amanha"_s, u"2027-02-03"_s, u"00:00:00"_s);
        p.lidas.Por_Em_Dia();
        QCOMPARE(p.Tarefas(), (QStringList{u"Regar"_s, u"Amanha"_s}));
    }

    void o_que_este_posto_escreve_le_se_logo()
    {
        Posto p;
        p.lidas.Por_Em_Dia();
        p.s.geral.de.Executar("cmdAdicionarGrupo", {u"Vizinhos"});
        QCOMPARE(p.Perguntas(), 1);
        QCOMPARE(p.Perguntas(), 0);
    }

    void uma_ligacao_nova_le_se_logo()
    {
        Posto p;
        p.lidas.Por_Em_Dia();
        p.s.geral.de.Fechar_Ligacao();
        p.Nova(u"Podar"_s, u"2027-02-01"_s, u"10:00:00"_s);
        p.lidas.Por_Em_Dia();
        QCOMPARE(p.Tarefas(), (QStringList{u"Regar"_s, u"Podar"_s}));
    }

    void largadas_leem_se_na_pergunta_seguinte()
    {
        Posto p;
        p.lidas.Por_Em_Dia();
        p.lidas.Largar();
        QCOMPARE(p.Tarefas(), QStringList{u"Regar"_s}); // until then they are what they were
        QCOMPARE(p.Perguntas(), 1);
    }

    void sem_servidor_ficam_como_estavam_e_so_se_pergunta_no_minuto_seguinte()
    {
        Posto p;
        p.lidas.Por_Em_Dia();
        p.servidor.Perder();
        p.s.relogio.Avancar_Minutos(1);
        p.lidas.Por_Em_Dia();
        QCOMPARE(p.Tarefas(), QStringList{u"Regar"_s});
        p.servidor.Voltar();
        QCOMPARE(p.Perguntas(), 0); // the failed try counts
        p.s.relogio.Avancar_Minutos(1);
        QCOMPARE(p.Perguntas(), 1);
    }

    void outro_utilizador_ve_as_suas_e_sem_servidor_nenhuma()
    {
        Posto p;
        p.Nova(u"De outro"_s, u"2027-02-01"_s, u"09:00:00"_s, u"3"_s);
        p.lidas.Por_Em_Dia();
        p.s.geral.SessaoActual.IdUtilizador = u"3"_s;
        QCOMPARE(p.Perguntas(), 1);
        QCOMPARE(p.Tarefas(), QStringList{u"De outro"_s});
        p.servidor.Perder();
        p.s.geral.SessaoActual.IdUtilizador = u"4"_s;
        p.lidas.Por_Em_Dia();
        QVERIFY(p.Tarefas().isEmpty());
    }

    void esta_vencida_no_seu_minuto_e_depois_em_cada_dia_a_partir_da_sua_hora_data()
    {
        QTest::addColumn<QString>("data");
        QTest::addColumn<QString>("hora");
        QTest::addColumn<bool>("vencida");
        QTest::addColumn<bool>("de_um_dia_anterior");
        QTest::newRow("hoje, um minuto antes") << u"2027-02-01"_s << u"08:59:00"_s << true << false;
        QTest::newRow("hoje, neste minuto") << u"2027-02-01"_s << u"09:00:00"_s << true << false;
        QTest::newRow("hoje, no minuto seguinte") << u"2027-02-01"_s << u"09:01:00"_s << false << false;
        QTest::newRow("ontem, a esta hora") << u"2027-01-31"_s << u"09:00:00"_s << true << true;
        QTest::newRow("ontem, mais tarde") << u"2027-01-31"_s << u"18:00:00"_s << false << true;
        QTest::newRow("amanha, mais cedo") << u"2027-02-02"_s << u"08:00:00"_s << false << false;
        QTest::newRow("ontem, sem hora") << u"2027-01-31"_s << QString() << false << true;
    }
    void esta_vencida_no_seu_minuto_e_depois_em_cada_dia_a_partir_da_sua_hora()
    {
        QFETCH(QString, data);
        QFETCH(QString, hora);
        Posto p;
        p.s.Escrever(u"DELETE FROM TblTarefas"_s);
        p.Nova(u"Uma"_s, data, hora);
        p.s.relogio.Avancar_Segundos(30); // in the middle of the minute of 09:00
        p.lidas.Por_Em_Dia();
        const Recordset linha = p.lidas.Linhas();
        QCOMPARE(linha.RecordCount(), 1);
        const QDateTime agora = p.s.relogio.now();
        QTEST(TarefasLidas::Vencida(linha, agora), "vencida");
        QTEST(TarefasLidas::De_Um_Dia_Anterior(linha, agora), "de_um_dia_anterior");
    }
};

MORVEX_TESTE(TestTarefasLidas)
#include "test_TarefasLidas.moc"
