// Creating a group, and making its owner on the way.
#include "contacts/frmNovoGrupo.h"
#include "CriacaoDeUtilizador.h"

using namespace Qt::StringLiterals;

class TestFrmNovoGrupo : public QObject
{
    Q_OBJECT

    static void Criar(ComGrupos &g, const QString &nome, int dono = 0)
    {
        frmNovoGrupo form(g.s.geral, g.lista);
        form.show();
        form.txtGrupo->setText(nome);
        ComGrupos::Escolher(*form.ComboUsers, dono);
        form.cmdOk->click();
        QVERIFY(!form.isVisible());
    }

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        ComGrupos g;
        g.s.geral.IdiomaActual = u"AlemaoDE"_s; // the form is drawn in Portuguese
        frmNovoGrupo form(g.s.geral, g.lista);
        QCOMPARE(form.windowTitle(), g.s.Texto(113));
        QCOMPARE(form.Label1->text(), g.s.Texto(112));
        QCOMPARE(form.Label2->text(), g.s.Texto(271));
        QCOMPARE(form.cmdCriarUtilizador->text(), g.s.Texto(130).remove(u'&'));
        QCOMPARE(form.cmdOk->text(), g.s.Texto(228));
        QCOMPARE(form.cmdCancelar->text(), g.s.Texto(43));
    }

    void os_donos_possiveis_sao_todos_e_cada_utilizador_na_ordem_da_tabela()
    {
        ComGrupos g;
        const int rui = g.s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        const int ana = g.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        frmNovoGrupo form(g.s.geral, g.lista);
        form.show();
        const ComboBox &combo = *form.ComboUsers;
        QCOMPARE(combo.ListCount(), 3);
        QCOMPARE(combo.List(0), g.s.Texto(272));
        QCOMPARE(combo.ItemData(0), 0);
        QCOMPARE(combo.List(1), u"Rui"_s);
        QCOMPARE(combo.ItemData(1), rui);
        QCOMPARE(combo.List(2), u"Ana"_s);
        QCOMPARE(combo.ItemData(2), ana);
        QCOMPARE(combo.ListIndex(), 0);
        QCOMPARE(g.s.geral.de.Rs("cmdVerUsers").State(), Recordset::Closed);
    }

    void ok_so_com_um_nome_escrito()
    {
        ComGrupos g;
        frmNovoGrupo form(g.s.geral, g.lista);
        QVERIFY(!form.cmdOk->isEnabled());
        form.txtGrupo->setText(u"N"_s);
        QVERIFY(form.cmdOk->isEnabled());
        form.txtGrupo->clear();
        QVERIFY(!form.cmdOk->isEnabled());
    }

    void com_a_primeira_linha_dos_utilizadores_o_grupo_e_partilhado()
    {
        ComGrupos g;
        g.s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        Criar(g, u"Vizinhos"_s);
        QCOMPARE(g.Grupos().constLast(), u"7|Vizinhos|0"_s);
    }

    void o_grupo_de_um_utilizador_e_so_dele()
    {
        ComGrupos g;
        g.s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        const int ana = g.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        Criar(g, u"Vizinhos"_s, ana);
        QCOMPARE(g.Grupos().constLast(), u"7|Vizinhos|%1"_s.arg(ana));
        QVERIFY(!g.Filtro().contains(u"Vizinhos"_s)); // the session is nobody's
        g.s.Entrar(u"Ana"_s);
        g.lista.Carregar_Grupos();
        QVERIFY(g.Filtro().contains(u"Vizinhos"_s));
    }

    void um_nome_de_grupo_que_ja_existe_e_aceite()
    {
        ComGrupos g;
        Criar(g, u"Amigos"_s);
        QCOMPARE(g.Filtro().count(u"Amigos"_s), 2);
    }

    void o_filtro_recomeca_em_todos_e_a_lista_e_lida_de_novo()
    {
        ComGrupos g;
        g.Contacto(u"Berta"_s, ComGrupos::Amigos);
        g.Contacto(u"Abel"_s, ComGrupos::Outros);
        g.lista.Carregar_Grupos();
        ComGrupos::Escolher(*g.janela.ComboGrupos, ComGrupos::Amigos);
        QCOMPARE(g.Nomes(), QStringList{u"Berta"_s});
        Criar(g, u"Vizinhos"_s);
        QCOMPARE(g.janela.ComboGrupos->ListIndex(), 0);
        QCOMPARE(g.janela.ComboGrupos->List(0), g.s.Texto(48));
        QCOMPARE(g.s.geral.GrupoActual, u"0"_s);
        QCOMPARE(g.Filtro().constLast(), u"Vizinhos"_s);
        QCOMPARE(g.Nomes(), (QStringList{u"Abel"_s, u"Berta"_s}));
    }

    void cancelar_nao_cria_nada()
    {
        ComGrupos g;
        const ComGrupos::Intactos intactos(g);
        frmNovoGrupo form(g.s.geral, g.lista);
        form.txtGrupo->setText(u"Vizinhos"_s);
        form.show();
        form.cmdCancelar->click();
        QVERIFY(!form.isVisible());
    }

    void os_temporizadores_param_e_voltam_a_andar()
    {
        ComGrupos g;
        frmNovoGrupo form(g.s.geral, g.lista);
        g.Verificar_Temporizadores(form);
    }

    void a_entrada_do_menu_pede_o_direito()
    {
        ComGrupos g;
        g.Verificar_Entrada<frmNovoGrupo>(*g.janela.CriarGrupos);
    }

    void sem_direito_a_utilizadores_o_botao_de_criar_um_recusa()
    {
        ComGrupos g;
        criacao_de_utilizador::Verificar_Recusa<frmNovoGrupo>(g, *g.janela.CriarGrupos);
    }

    void criar_primeiro_o_dono_e_voltar_com_o_que_estava_escrito()
    {
        ComGrupos g;
        g.s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        criacao_de_utilizador::Criar_E_Voltar<frmNovoGrupo>(
            g, *g.janela.CriarGrupos, u"Ana"_s,
            [](frmNovoGrupo &form) { form.txtGrupo->setText(u"Vizinhos"_s); },
            [](frmNovoGrupo &form) {
                QCOMPARE(form.txtGrupo->text(), u"Vizinhos"_s);
                QCOMPARE(form.ComboUsers->ListIndex(), 0);
                form.ComboUsers->ChooseText(u"Ana"_s);
                form.cmdOk->click();
            });
        QCOMPARE(g.Grupos().constLast(), u"7|Vizinhos|2"_s);
    }

    void um_erro_no_formulario_do_utilizador_nao_perde_o_do_grupo()
    {
        ComGrupos g;
        bool voltou = false;
        accoes::Quando_Abrir<frmNovoGrupo>([&](frmNovoGrupo &form) {
            g.s.Escrever(u"ALTER TABLE TblUsers RENAME TO Fora"_s);
            g.s.caixas.Espera_Erro(Failure::StoreError); // its users can't be read either, on coming back
            g.s.caixas.Espera_Erro(Failure::StoreError);
            QTest::mouseClick(form.cmdCriarUtilizador, Qt::LeftButton);
            voltou = g.s.caixas.Todas_Vistas() && form.isVisible();
            form.cmdCancelar->click();
        });
        g.janela.CriarGrupos->trigger();
        QVERIFY(voltou);
        QVERIFY(g.janela.isEnabled());
    }

    void um_carregamento_que_falha_nao_deixa_o_alarme_parado()
    {
        ComGrupos g;
        g.s.Perder_Texto(43);
        VERIFICAR_FALHA(frmNovoGrupo(g.s.geral, g.lista), Failure::InvalidUseOfNull);
        QVERIFY(g.Temporizadores_Ligados());
    }
};

MORVEX_TESTE(TestFrmNovoGrupo)
#include "test_frmNovoGrupo.moc"
