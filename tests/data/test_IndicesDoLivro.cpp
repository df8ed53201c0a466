// The index of a large book: when there is one, and that it changes nothing but the time.
#include "data/Comandos.h"
#include "data/IndicesDoLivro.h"
#include "platform/TextOrder.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestIndicesDoLivro : public QObject
{
    Q_OBJECT

    static constexpr int muitos = 4001;

    static QStringList Indices(Sistema &s)
    {
        return s.Linhas(u"SELECT name FROM sqlite_master WHERE type='index' AND name LIKE 'IdxNomes%'"_s);
    }
    static bool Tem_Datas(Sistema &s)
    {
        return s.Linhas(u"SELECT tbl_name FROM sqlite_master WHERE type='index' AND name='IdxDias'"_s) ==
               QStringList(u"TblLista"_s);
    }
    static QString Actual() { return u"IdxNomes_"_s + textOrderVersion(); }

    // Names that repeat, in both cases and with accents, in groups of every kind of owner.
    static void Encher(Sistema &s, int ultimo)
    {
        s.Escrever(u"INSERT INTO TblGrupos (NomeGrupo, IdUtilizador) VALUES ('alheio', 99)"_s);
        s.Escrever(
            u"WITH RECURSIVE n(i) AS (SELECT 100 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
            "INSERT INTO TblLista (ID, Nome, Dia, Mes, Grupo) "
            "SELECT i, substr('ÁlvaroalvaroZéanaANAínêszz', i %% 19, 1 + i %% 7), i %% 31, '05', 1 + i %% 7 "
            "FROM n"_s.replace(u"%%"_s, u"%"_s)
                .arg(ultimo));
    }

    // The program closes the database and opens it anew, as at its next start.
    static void Abrir_De_Novo(Sistema &s)
    {
        s.geral.de.Fechar_Ligacao();
        s.geral.de.Abrir("cmdVerConfig").Close();
    }

    static QStringList Ler(Recordset &rs)
    {
        QStringList linhas;
        for (; !rs.Eof(); rs.MoveNext())
            linhas << rs.Row().join(u'|');
        rs.Close();
        return linhas;
    }

    static QStringList Tudo(Sistema &s)
    {
        return Ler(s.geral.de.Abrir("cmdListarTodosContactos", {u"0"_s})) +
               Ler(s.geral.de.Abrir("cmdListarAniversarios", {u"0"_s})) +
               Ler(s.geral.de.Abrir("cmdListarNomes", {u"2"_s}));
    }

private Q_SLOTS:
    void um_livro_pequeno_fica_sem_indice()
    {
        Sistema s;
        Encher(s, muitos - 1);
        Abrir_De_Novo(s);
        QCOMPARE(Indices(s), QStringList{});
        QVERIFY(!Tem_Datas(s));
    }

    void um_livro_grande_tem_o_depois_de_aberto()
    {
        Sistema s;
        Encher(s, muitos);
        QCOMPARE(Indices(s), QStringList{});
        Abrir_De_Novo(s);
        QCOMPARE(Indices(s), QStringList{Actual()});
        QVERIFY(Tem_Datas(s));
        Abrir_De_Novo(s);
        QCOMPARE(Indices(s), QStringList{Actual()});
        QVERIFY(Tem_Datas(s));
    }

    void o_das_datas_vem_tambem_a_quem_ja_tinha_o_dos_nomes()
    {
        Sistema s;
        Encher(s, muitos);
        Abrir_De_Novo(s);
        s.Escrever(u"DROP INDEX IdxDias"_s);
        Abrir_De_Novo(s);
        QVERIFY(Tem_Datas(s));
        QCOMPARE(Indices(s), QStringList{Actual()});
    }

    void com_ele_os_aniversarios_perguntam_por_cada_data_e_nao_por_cada_contacto()
    {
        Sistema s;
        Encher(s, muitos);
        int perguntas = 0;
        QStringList linhas;
        const auto ler = [&] {
            perguntas = 0;
            linhas.clear();
            QVERIFY(s.geral.de.Percorrer_As_Que(
                "cmdListarAniversarios", u"0"_s, colunas_do_aniversario,
                [&](std::string_view Dia, std::string_view) { return ++perguntas > 0 && Dia == "7"; },
                [&](const Row &linha) { linhas << linha.field(linha.column("ID")).text(); }));
        };
        ler();
        QVERIFY(perguntas > 3000);
        const QStringList sem = linhas;
        QVERIFY(sem.size() > 50);
        Abrir_De_Novo(s);
        ler();
        QVERIFY2(perguntas < 100, qPrintable(QString::number(perguntas)));
        QCOMPARE(linhas, sem);
    }

    void com_ele_as_listas_nao_sao_ordenadas_nem_as_linhas_lidas()
    {
        Sistema s;
        Encher(s, muitos);
        Abrir_De_Novo(s);
        QCOMPARE(Indices(s).size(), 1); // and the statements below are planned with it
        for (const ComandoComLinhas comando :
             {ComandoComLinhas("cmdListarTodosContactos"), ComandoComLinhas("cmdListarAniversarios"),
              ComandoComLinhas("cmdListarNomes")}) {
            const QString sql =
                QString::fromStdString(std::string(comando.Entrada().sql)).replace(u'?', u"'0'"_s);
            const QString plano = s.Linhas(u"EXPLAIN QUERY PLAN "_s + sql).join(u'\n');
            QVERIFY2(plano.contains(u"USING COVERING INDEX "_s + Actual()), qPrintable(plano));
            QVERIFY2(!plano.contains(u"TEMP B-TREE"_s), qPrintable(plano));
        }
    }

    void as_linhas_e_a_sua_ordem_sao_as_mesmas()
    {
        Sistema s;
        Encher(s, muitos);
        const QStringList sem = Tudo(s);
        QVERIFY(sem.size() > muitos);
        Abrir_De_Novo(s);
        QCOMPARE(Indices(s).size(), 1);
        QCOMPARE(Tudo(s), sem);
    }

    void o_que_alguem_fez_para_si_fica()
    {
        Sistema s;
        s.Escrever(u"CREATE INDEX Meu ON TblLista (Email1)"_s);
        s.Escrever(u"CREATE INDEX Meu_IdxNomes_2 ON TblLista (Email2)"_s);
        Abrir_De_Novo(s);
        QCOMPARE(s.Linhas(u"SELECT name FROM sqlite_master WHERE type='index' AND name LIKE 'Meu%' ORDER BY name"_s),
                 (QStringList{u"Meu"_s, u"Meu_IdxNomes_2"_s}));
    }

    void o_de_outra_ordem_desaparece()
    {
        Sistema s;
        Encher(s, muitos);
        s.Escrever(u"CREATE INDEX IdxNomes_0badc0de ON TblLista (Nome)"_s);
        Abrir_De_Novo(s);
        QCOMPARE(Indices(s), QStringList{Actual()});
    }

    void o_de_outra_ordem_desaparece_tambem_de_um_livro_pequeno()
    {
        Sistema s;
        s.Escrever(u"CREATE INDEX IdxNomes_0badc0de ON TblLista (Nome)"_s);
        Abrir_De_Novo(s);
        QCOMPARE(Indices(s), QStringList{});
    }

    void onde_nao_se_pode_fazer_le_se_na_mesma()
    {
        Sistema s;
        Encher(s, muitos);
        const QStringList antes = Tudo(s);
        s.Escrever(u"CREATE VIEW %1 AS SELECT 1"_s.arg(Actual())); // the name is taken
        Abrir_De_Novo(s);
        QCOMPARE(Indices(s), QStringList{});
        QCOMPARE(Tudo(s), antes);
    }
};

MORVEX_TESTE(TestIndicesDoLivro)
#include "test_IndicesDoLivro.moc"
