// A row in an editor while another copy of the program writes to the same file.
#include "data/LinhaEditada.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
using Fim = LinhaEditada::Fim;
using Lugares = EncontroDeLinhas::Lugares;

// A group in an editor of one copy, and the other copy.
struct DoisPostos {
    DoisPostos() : ID(QString::number(s.Novo_Grupo(u"Coral"_s))), caminho(s.Base()), outro(caminho, s.Pasta())
    {
        linha.Comecar(ID, {u"Coral"_s, u"0"_s});
    }

    Fim Gravar(const QStringList &aqui, const LinhaEditada::Perguntar &perguntar)
    {
        return linha.Gravar(aqui, perguntar, [&](const QStringList &valores) {
            s.geral.de.Executar("cmdRenameGroup", {valores[0], ID});
            s.geral.de.Executar("cmdUpdateGrupoUser", {valores[1], ID});
        });
    }
    // Where nobody is to be asked.
    Fim Gravar(const QStringList &aqui)
    {
        return Gravar(aqui, [](const LinhaEditada::Disputa &) -> std::optional<Lugares> {
            QTest::qFail("somebody was asked", __FILE__, __LINE__);
            return {};
        });
    }
    // It arrives, and nobody hears of that.
    void Gravar_Sem_Resposta(const QStringList &aqui)
    {
        QStringList escritos;
        VERIFICAR_FALHA(linha.Gravar(aqui, {},
                                     [&](const QStringList &valores) {
                                         escritos = valores;
                                         throw Failure(Failure::StoreError, {}, {}, Failure::Kind::ServerLost);
                                     }),
                        Failure::StoreError);
        s.geral.de.Executar("cmdRenameGroup", {escritos[0], ID});
        s.geral.de.Executar("cmdUpdateGrupoUser", {escritos[1], ID});
    }
    QString Na_Base()
    {
        return s.Linhas(u"SELECT NomeGrupo, IdUtilizador FROM TblGrupos WHERE ID="_s + ID).join(u';');
    }

    Sistema s;
    QString ID;
    QString caminho;
    DE outro;
    LinhaEditada linha{s.geral.de, {"TblGrupos", {"NomeGrupo", "IdUtilizador"}, {{0}, {1}}}};
};
} // namespace

class TestLinhaEditada : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sem_mudancas_la_grava_se_o_que_esta_no_editor()
    {
        DoisPostos p;
        QCOMPARE(p.Gravar({u"Teatro"_s, u"0"_s}), Fim::Gravada);
        QCOMPARE(p.Na_Base(), u"Teatro|0"_s);
    }

    void o_que_so_um_mudou_junta_se_sem_perguntar()
    {
        DoisPostos p;
        p.outro.Executar("cmdUpdateGrupoUser", {7, p.ID});
        QCOMPARE(p.Gravar({u"Teatro"_s, u"0"_s}), Fim::Gravada);
        QCOMPARE(p.Na_Base(), u"Teatro|7"_s);
    }

    void na_disputa_nada_se_grava_sem_resposta()
    {
        DoisPostos p;
        p.outro.Executar("cmdRenameGroup", {u"Orfeão"_s, p.ID});
        LinhaEditada::Disputa vista;
        const auto fim = p.Gravar({u"Teatro"_s, u"3"_s}, [&](const LinhaEditada::Disputa &disputa) {
            vista = disputa;
            return std::optional<Lugares>();
        });
        QCOMPARE(fim, Fim::Deixada);
        QCOMPARE(vista.campos, Lugares{0});
        QCOMPARE(vista.aqui, QStringList({u"Teatro"_s, u"3"_s}));
        QCOMPARE(vista.la, QStringList({u"Orfeão"_s, u"0"_s}));
        QCOMPARE(p.Na_Base(), u"Orfeão|0"_s);
    }

    void na_disputa_fica_o_que_se_escolheu_data()
    {
        QTest::addColumn<bool>("deles");
        QTest::addColumn<QString>("gravada");
        QTest::newRow("o meu") << false << u"Teatro|3"_s;
        QTest::newRow("o do outro") << true << u"Orfeão|3"_s;
    }
    void na_disputa_fica_o_que_se_escolheu()
    {
        QFETCH(bool, deles);
        QFETCH(QString, gravada);
        DoisPostos p;
        p.outro.Executar("cmdRenameGroup", {u"Orfeão"_s, p.ID});
        QCOMPARE(p.Gravar({u"Teatro"_s, u"3"_s},
                          [&](const LinhaEditada::Disputa &) {
                              return std::optional(deles ? Lugares{0} : Lugares());
                          }),
                 Fim::Gravada);
        QCOMPARE(p.Na_Base(), gravada);
    }

    void enquanto_se_pergunta_o_outro_pode_gravar_e_pergunta_se_outra_vez()
    {
        DoisPostos p;
        p.outro.Executar("cmdRenameGroup", {u"Orfeão"_s, p.ID});
        QStringList deles;
        const auto fim = p.Gravar({u"Teatro"_s, u"0"_s}, [&](const LinhaEditada::Disputa &disputa) {
            deles << disputa.la[0];
            if (deles.size() == 1) p.outro.Executar("cmdRenameGroup", {u"Tuna"_s, p.ID});
            return std::optional(Lugares());
        });
        QCOMPARE(fim, Fim::Gravada);
        QCOMPARE(deles, QStringList({u"Orfeão"_s, u"Tuna"_s}));
        QCOMPARE(p.Na_Base(), u"Teatro|0"_s);
    }

    // Theirs, once chosen, are no change of ours: what they change again stays theirs.
    void o_que_se_deixou_ao_outro_fica_dele_ainda_que_mude_outra_vez()
    {
        DoisPostos p;
        p.outro.Executar("cmdRenameGroup", {u"Orfeão"_s, p.ID});
        int perguntas = 0;
        QCOMPARE(p.Gravar({u"Teatro"_s, u"3"_s},
                          [&](const LinhaEditada::Disputa &) {
                              ++perguntas;
                              p.outro.Executar("cmdRenameGroup", {u"Tuna"_s, p.ID});
                              return std::optional(Lugares{0});
                          }),
                 Fim::Gravada);
        QCOMPARE(perguntas, 1);
        QCOMPARE(p.Na_Base(), u"Tuna|3"_s);
    }

    void eliminada_la_nada_se_grava()
    {
        DoisPostos p;
        p.outro.Executar("cmdDeleteGroup", {p.ID});
        QCOMPARE(p.Gravar({u"Teatro"_s, u"0"_s}), Fim::Eliminada);
        QCOMPARE(p.Na_Base(), QString());
        QVERIFY(p.linha.Mudou({u"Teatro"_s, u"0"_s}));
        QVERIFY(!p.linha.Mudou({u"Coral"_s, u"0"_s}));
    }

    void eliminada_enquanto_se_pergunta_nada_se_grava()
    {
        DoisPostos p;
        p.outro.Executar("cmdRenameGroup", {u"Orfeão"_s, p.ID});
        QCOMPARE(p.Gravar({u"Teatro"_s, u"0"_s},
                          [&](const LinhaEditada::Disputa &) {
                              p.outro.Executar("cmdDeleteGroup", {p.ID});
                              return std::optional(Lugares());
                          }),
                 Fim::Eliminada);
        QCOMPARE(p.Na_Base(), QString());
    }

    // What was settled before it must not count as told a second time.
    void uma_escrita_recusada_depois_da_pergunta_deixa_tudo_como_no_principio()
    {
        DoisPostos p;
        p.outro.Executar("cmdRenameGroup", {u"Orfeão"_s, p.ID});
        p.outro.Executar("cmdUpdateGrupoUser", {7, p.ID});
        p.s.Recusar(u"UPDATE"_s, u"TblGrupos"_s);
        int perguntas = 0;
        const auto o_meu = [&](const LinhaEditada::Disputa &) {
            ++perguntas;
            return std::optional(Lugares());
        };
        VERIFICAR_FALHA(p.Gravar({u"Teatro"_s, u"0"_s}, o_meu), Failure::StoreError);
        QCOMPARE(p.Na_Base(), u"Orfeão|7"_s);
        p.s.Deixar_De_Recusar();
        QCOMPARE(p.Gravar({u"Teatro"_s, u"0"_s}, o_meu), Fim::Gravada);
        QCOMPARE(perguntas, 2);
        QCOMPARE(p.Na_Base(), u"Teatro|7"_s); // theirs, which nobody here has touched
    }

    // The commit's answer was lost: what stands there is no change of anybody else.
    void o_que_se_escreveu_sem_resposta_e_nosso_quando_se_escreve_mais()
    {
        DoisPostos p;
        p.Gravar_Sem_Resposta({u"Teatro"_s, u"0"_s});
        QCOMPARE(p.Na_Base(), u"Teatro|0"_s);
        QCOMPARE(p.linha.La(), LinhaEditada::Estado::Igual);
        QCOMPARE(p.Gravar({u"Tuna"_s, u"3"_s}), Fim::Gravada);
        QCOMPARE(p.Na_Base(), u"Tuna|3"_s);
    }

    void o_que_se_escreveu_sem_resposta_e_nao_chegou_grava_se()
    {
        DoisPostos p;
        VERIFICAR_FALHA(p.linha.Gravar({u"Teatro"_s, u"0"_s}, {},
                                       [](const QStringList &) { throw Failure(7, {}, {}); }),
                        7);
        QCOMPARE(p.linha.La(), LinhaEditada::Estado::Igual);
        QCOMPARE(p.Gravar({u"Tuna"_s, u"0"_s}), Fim::Gravada);
        QCOMPARE(p.Na_Base(), u"Tuna|0"_s);
    }

    void o_que_o_outro_mudou_depois_da_escrita_sem_resposta_e_disputa()
    {
        DoisPostos p;
        p.Gravar_Sem_Resposta({u"Teatro"_s, u"0"_s});
        p.outro.Executar("cmdRenameGroup", {u"Orfeão"_s, p.ID});
        QCOMPARE(p.linha.La(), LinhaEditada::Estado::Mudada);
        int perguntas = 0;
        p.Gravar({u"Tuna"_s, u"0"_s}, [&](const LinhaEditada::Disputa &) {
            ++perguntas;
            return std::optional(Lugares());
        });
        QCOMPARE(perguntas, 1);
        QCOMPARE(p.Na_Base(), u"Tuna|0"_s);
    }

    // What was joined without a question stands in the row and not in the editor.
    void o_que_se_juntou_sem_resposta_fica_do_outro()
    {
        DoisPostos p;
        p.outro.Executar("cmdUpdateGrupoUser", {7, p.ID});
        p.Gravar_Sem_Resposta({u"Teatro"_s, u"0"_s});
        QCOMPARE(p.Na_Base(), u"Teatro|7"_s);
        QCOMPARE(p.Gravar({u"Tuna"_s, u"0"_s}), Fim::Gravada);
        QCOMPARE(p.Na_Base(), u"Tuna|7"_s);
    }

    void o_que_e_feito_da_linha_diz_se_a_quem_pergunta()
    {
        DoisPostos p;
        QCOMPARE(p.linha.La(), LinhaEditada::Estado::Igual);
        p.outro.Executar("cmdRenameGroup", {u"Orfeão"_s, p.ID});
        QCOMPARE(p.linha.La(), LinhaEditada::Estado::Mudada);
        p.outro.Executar("cmdRenameGroup", {u"Coral"_s, p.ID});
        QCOMPARE(p.linha.La(), LinhaEditada::Estado::Igual);
        p.outro.Executar("cmdDeleteGroup", {p.ID});
        QCOMPARE(p.linha.La(), LinhaEditada::Estado::Eliminada);
    }

    void entre_a_leitura_e_a_escrita_ninguem_mais_escreve()
    {
        DoisPostos p;
        bool entrou = false;
        p.linha.Gravar({u"Teatro"_s, u"0"_s}, {}, [&](const QStringList &valores) {
            // Somebody who does not wait.
            p.s.Ler(Sistema::Num_Servidor() ? u"SET lock_timeout=1"_s : u"PRAGMA busy_timeout=0"_s);
            entrou = skipFailure(
                [&] { p.s.Escrever(u"UPDATE TblGrupos SET NomeGrupo='Tuna' WHERE ID="_s + p.ID); });
            p.s.geral.de.Executar("cmdRenameGroup", {valores[0], p.ID});
        });
        QVERIFY(!entrou);
        QCOMPARE(p.Na_Base(), u"Teatro|0"_s);
    }

    // Whoever opened the editor had read the row a while ago.
    void o_que_ja_era_outro_ao_abrir_e_mudanca_la()
    {
        DoisPostos p;
        p.outro.Executar("cmdRenameGroup", {u"Orfeão"_s, p.ID});
        p.linha.Comecar(p.ID, {u"Coral"_s, u"0"_s});
        QCOMPARE(p.Gravar({u"Coral"_s, u"3"_s}), Fim::Gravada);
        QCOMPARE(p.Na_Base(), u"Orfeão|3"_s);
    }

    void a_linha_do_conjunto_e_a_que_se_compara()
    {
        DoisPostos p;
        Recordset &rs = p.s.geral.de.Abrir("cmdVerGrupo", {p.ID});
        p.linha.Comecar(p.ID, rs, {u"Cor"_s, u"0"_s}); // as a short box shows it
        rs.Close();
        QCOMPARE(p.Gravar({u"Cor"_s, u"3"_s}), Fim::Gravada);
        QCOMPARE(p.Na_Base(), u"Cor|3"_s); // unchanged there: as the editor has it
    }
};

MORVEX_TESTE(TestLinhaEditada)
#include "test_LinhaEditada.moc"
