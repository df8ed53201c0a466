// Editing a group: the owner that it shows, its three options, and what each writes.
#include "contacts/frmEditGroup.h"
#include "CriacaoDeUtilizador.h"

using namespace Qt::StringLiterals;

class TestFrmEditGroup : public QObject
{
    Q_OBJECT

    static QString Dono_Mostrado(frmEditGroup &form, int grupo)
    {
        ComGrupos::Escolher(*form.ComboGrupos, grupo);
        return form.ComboUsers->currentText();
    }

    static void Esperar_Aviso_De_Dono(ComGrupos &g, const QString &grupo, const QString &utilizador)
    {
        g.s.caixas.Espera(g.s.Texto(262) + u' ' + grupo + u' ' + g.s.Texto(263) + u' ' + utilizador, 48,
                          g.s.Texto(122));
    }

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        ComGrupos g;
        g.s.geral.IdiomaActual = u"AlemaoDE"_s; // the form is drawn in Portuguese
        frmEditGroup form(g.s.geral, g.s.plataforma, g.lista);
        QCOMPARE(form.windowTitle(), g.s.Texto(122));
        QCOMPARE(form.Label1->text(), g.s.Texto(123));
        QCOMPARE(form.OptionRenomear->text(), g.s.Texto(124));
        QCOMPARE(form.OptionMover->text(), g.s.Texto(116));
        QCOMPARE(form.OptionChangeUser->text(), g.s.Texto(273));
        QCOMPARE(form.cmdCriarUtilizador->text(), g.s.Texto(130).remove(u'&'));
        QCOMPARE(form.cmdOk->text(), u"&Ok"_s);
        QCOMPARE(form.cmdCancelar->text(), g.s.Texto(43));
    }

    void os_dois_combos_tem_os_grupos_e_comecam_no_primeiro()
    {
        ComGrupos g;
        frmEditGroup form(g.s.geral, g.s.plataforma, g.lista);
        for (const ComboBox *combo : {form.ComboGrupos, form.ComboGrupos2}) {
            QCOMPARE(combo->ListCount(), 6);
            QCOMPARE(combo->ListIndex(), 0);
            QCOMPARE(combo->List(1), u"Clientes"_s);
            QCOMPARE(combo->ItemData(1), int{ComGrupos::Clientes});
        }
    }

    void um_grupo_partilhado_mostra_a_primeira_linha_dos_utilizadores()
    {
        ComGrupos g;
        g.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        frmEditGroup form(g.s.geral, g.s.plataforma, g.lista);
        form.show();
        QCOMPARE(form.ComboUsers->ListCount(), 2);
        QCOMPARE(form.ComboUsers->ListIndex(), 0);
        QCOMPARE(form.ComboUsers->currentText(), g.s.Texto(272));
    }

    void o_combo_segue_o_dono_do_grupo_escolhido()
    {
        ComGrupos g;
        g.s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        const int ana = g.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        const int meu = g.s.Novo_Grupo(u"A meu"_s, ana);
        g.s.Entrar(u"Ana"_s);
        frmEditGroup form(g.s.geral, g.s.plataforma, g.lista);
        form.show();
        QCOMPARE(form.ComboGrupos->currentText(), u"A meu"_s);
        QCOMPARE(form.ComboUsers->currentText(), u"Ana"_s);
        QCOMPARE(Dono_Mostrado(form, ComGrupos::Amigos), g.s.Texto(272));
        QCOMPARE(Dono_Mostrado(form, meu), u"Ana"_s);
        QCOMPARE(g.s.geral.de.Rs("cmdSelectUtilizadorGrupo").State(), Recordset::Closed);
    }

    void dois_grupos_do_mesmo_nome_mostram_o_primeiro_dono_que_se_acha()
    {
        ComGrupos g;
        const int rui = g.s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        const int ana = g.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        g.s.Novo_Grupo(u"Vizinhos"_s, rui);
        const int dela = g.s.Novo_Grupo(u"Vizinhos"_s, ana);
        g.s.Entrar(u"Ana"_s);
        frmEditGroup form(g.s.geral, g.s.plataforma, g.lista);
        form.show();
        QCOMPARE(Dono_Mostrado(form, dela), u"Rui"_s);
    }

    void um_dono_que_ja_nao_existe_conta_como_todos()
    {
        ComGrupos g;
        const int ana = g.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        const int orfao = g.s.Novo_Grupo(u"Vizinhos"_s, ana);
        g.s.Entrar(u"Ana"_s);
        g.s.Escrever(u"DELETE FROM TblUsers"_s);
        frmEditGroup form(g.s.geral, g.s.plataforma, g.lista);
        form.show();
        QCOMPARE(Dono_Mostrado(form, orfao), g.s.Texto(272));
    }

    void cada_opcao_abre_a_sua_entrada_data()
    {
        QTest::addColumn<QString>("opcao");
        QTest::addColumn<QString>("aberta");
        QTest::addColumn<bool>("ok");
        QTest::newRow("mudar o nome") << u"OptionRenomear"_s << u"txtRenomearGrupo"_s << false;
        QTest::newRow("mover") << u"OptionMover"_s << u"ComboGrupos2"_s << true;
        QTest::newRow("mudar o dono") << u"OptionChangeUser"_s << u"ComboUsers"_s << true;
    }
    void cada_opcao_abre_a_sua_entrada()
    {
        QFETCH(QString, opcao);
        QFETCH(QString, aberta);
        QFETCH(bool, ok);
        ComGrupos g;
        frmEditGroup form(g.s.geral, g.s.plataforma, g.lista);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        (opcao == u"OptionMover" ? form.OptionRenomear : form.OptionMover)->click();
        form.findChild<QRadioButton *>(opcao)->click();
        for (const QString &entrada : {u"txtRenomearGrupo"_s, u"ComboGrupos2"_s, u"ComboUsers"_s})
            QCOMPARE(form.findChild<QWidget *>(entrada)->isEnabled(), entrada == aberta);
        QCOMPARE(form.cmdOk->isEnabled(), ok);
        if (aberta != u"ComboUsers") QVERIFY(form.findChild<QWidget *>(aberta)->hasFocus());
    }

    void o_nome_escrito_fica_ao_mudar_de_opcao_e_decide_o_ok()
    {
        ComGrupos g;
        frmEditGroup form(g.s.geral, g.s.plataforma, g.lista);
        form.show();
        QVERIFY(!form.cmdOk->isEnabled());
        form.txtRenomearGrupo->setText(u"Vizinhos"_s);
        QVERIFY(form.cmdOk->isEnabled());
        form.OptionMover->click();
        form.OptionRenomear->click();
        QCOMPARE(form.txtRenomearGrupo->text(), u"Vizinhos"_s);
        QVERIFY(form.cmdOk->isEnabled());
        form.txtRenomearGrupo->clear();
        QVERIFY(!form.cmdOk->isEnabled());
    }

    void mover_para_o_proprio_grupo_e_recusado()
    {
        ComGrupos g;
        g.Contacto(u"Abel"_s, ComGrupos::Amigos);
        const ComGrupos::Intactos intactos(g);
        frmEditGroup form(g.s.geral, g.s.plataforma, g.lista);
        form.OptionMover->click();
        g.Ouvir(form, 120, 122);
    }

    void mover_leva_os_contactos_e_deixa_o_grupo_vazio()
    {
        ComGrupos g;
        const int abel = g.Contacto(u"Abel"_s, ComGrupos::Colegas);
        const int berta = g.Contacto(u"Berta"_s, ComGrupos::Outros);
        frmEditGroup form(g.s.geral, g.s.plataforma, g.lista);
        form.show();
        ComGrupos::Escolher(*form.ComboGrupos, ComGrupos::Colegas);
        form.OptionMover->click();
        ComGrupos::Escolher(*form.ComboGrupos2, ComGrupos::Familia);
        g.Confirmar(form);
        QCOMPARE(g.Grupo_Do_Contacto(abel), u"3"_s);
        QCOMPARE(g.Grupo_Do_Contacto(berta), u"6"_s);
        QCOMPARE(g.Filtro().size(), 6);
        QCOMPARE(g.Nomes(), (QStringList{u"Abel"_s, u"Berta"_s}));
    }

    void mudar_o_nome_refresca_o_filtro_desde_o_principio()
    {
        ComGrupos g;
        g.Contacto(u"Abel"_s, ComGrupos::Amigos);
        g.Contacto(u"Berta"_s, ComGrupos::Outros);
        g.lista.Carregar_Grupos();
        ComGrupos::Escolher(*g.janela.ComboGrupos, ComGrupos::Outros);
        frmEditGroup form(g.s.geral, g.s.plataforma, g.lista);
        form.show();
        ComGrupos::Escolher(*form.ComboGrupos, ComGrupos::Amigos);
        form.txtRenomearGrupo->setText(u"Zeladores"_s);
        g.Confirmar(form);
        QCOMPARE(g.Grupos().constFirst(), u"1|Zeladores|0"_s);
        QCOMPARE(g.Filtro().constLast(), u"Zeladores"_s);
        QCOMPARE(g.janela.ComboGrupos->ListIndex(), 0);
        QCOMPARE(g.s.geral.GrupoActual, u"0"_s);
        QCOMPARE(g.Nomes(), (QStringList{u"Abel"_s, u"Berta"_s}));
        QVERIFY(!g.janela.cmdEditar->isEnabled());
    }

    void um_nome_que_ja_existe_e_aceite()
    {
        ComGrupos g;
        frmEditGroup form(g.s.geral, g.s.plataforma, g.lista);
        form.txtRenomearGrupo->setText(u"Outros"_s);
        g.Confirmar(form);
        QCOMPARE(g.Filtro().count(u"Outros"_s), 2);
    }

    void dar_o_grupo_a_outro_deixa_o_no_filtro_ate_a_proxima_leitura()
    {
        ComGrupos g;
        const int rui = g.s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        g.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        g.s.Entrar(u"Ana"_s);
        g.Contacto(u"Abel"_s, ComGrupos::Amigos);
        g.Contacto(u"Berta"_s, ComGrupos::Outros);
        g.lista.Carregar_Grupos();
        frmEditGroup form(g.s.geral, g.s.plataforma, g.lista);
        form.show();
        form.OptionChangeUser->click();
        ComGrupos::Escolher(*form.ComboUsers, rui);
        Esperar_Aviso_De_Dono(g, u"Amigos"_s, u"Rui"_s);
        g.Confirmar(form);
        QVERIFY(g.s.caixas.Todas_Vistas());
        QCOMPARE(g.Grupos().constFirst(), u"1|Amigos|%1"_s.arg(rui));
        QVERIFY(g.Filtro().contains(u"Amigos"_s));
        QCOMPARE(g.Nomes(), (QStringList{u"Abel"_s, u"Berta"_s}));
        g.lista.Carregar_Grupos();
        QVERIFY(!g.Filtro().contains(u"Amigos"_s));
        QCOMPARE(g.Nomes(), QStringList{u"Berta"_s});
    }

    void dar_o_grupo_a_todos_partilha_o()
    {
        ComGrupos g;
        const int ana = g.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        g.s.Entrar(u"Ana"_s);
        g.s.Escrever(u"UPDATE TblGrupos SET IdUtilizador=%1"_s.arg(ana));
        frmEditGroup form(g.s.geral, g.s.plataforma, g.lista);
        form.show();
        ComGrupos::Escolher(*form.ComboGrupos, ComGrupos::Familia);
        form.OptionChangeUser->click();
        ComGrupos::Escolher(*form.ComboUsers, 0);
        Esperar_Aviso_De_Dono(g, u"Familia"_s, g.s.Texto(272));
        g.Confirmar(form);
        QVERIFY(g.s.caixas.Todas_Vistas());
        QCOMPARE(g.s.Linhas(u"SELECT ID FROM TblGrupos WHERE IdUtilizador=0"_s), QStringList{u"3"_s});
    }

    void quem_nao_ve_grupo_nenhum_ouve_o_erro_e_nada_se_escreve()
    {
        ComGrupos g;
        g.s.Escrever(u"UPDATE TblGrupos SET IdUtilizador=99"_s);
        const ComGrupos::Intactos intactos(g);
        frmEditGroup form(g.s.geral, g.s.plataforma, g.lista);
        form.show();
        QCOMPARE(form.ComboGrupos->ListCount(), 0);
        form.txtRenomearGrupo->setText(u"Vizinhos"_s);
        g.s.caixas.Espera_Erro(Failure::InvalidPropertyValue);
        QTest::mouseClick(form.cmdOk, Qt::LeftButton);
        QVERIFY(g.s.caixas.Todas_Vistas());
        QVERIFY(form.isVisible());
    }

    void cancelar_nao_muda_nada()
    {
        ComGrupos g;
        const ComGrupos::Intactos intactos(g);
        frmEditGroup form(g.s.geral, g.s.plataforma, g.lista);
        form.txtRenomearGrupo->setText(u"Vizinhos"_s);
        form.show();
        form.cmdCancelar->click();
        QVERIFY(!form.isVisible());
    }

    void os_temporizadores_param_e_voltam_a_andar()
    {
        ComGrupos g;
        frmEditGroup form(g.s.geral, g.s.plataforma, g.lista);
        g.Verificar_Temporizadores(form);
    }

    void a_entrada_do_menu_pede_o_direito()
    {
        ComGrupos g;
        g.Verificar_Entrada<frmEditGroup>(*g.janela.EditarGrupos);
    }

    void sem_direito_a_utilizadores_o_botao_de_criar_um_recusa()
    {
        ComGrupos g;
        criacao_de_utilizador::Verificar_Recusa<frmEditGroup>(g, *g.janela.EditarGrupos);
    }

    void criar_primeiro_o_dono_e_voltar_a_opcao_que_estava()
    {
        ComGrupos g;
        g.s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        criacao_de_utilizador::Criar_E_Voltar<frmEditGroup>(
            g, *g.janela.EditarGrupos, u"Ana"_s,
            [](frmEditGroup &form) {
                ComGrupos::Escolher(*form.ComboGrupos, ComGrupos::Familia);
                form.OptionChangeUser->click();
            },
            [&](frmEditGroup &form) {
                QVERIFY(form.OptionChangeUser->isChecked());
                QCOMPARE(form.ComboGrupos->currentText(), u"Familia"_s);
                QCOMPARE(form.ComboUsers->ListIndex(), 0); // its owner, shown anew
                form.ComboUsers->ChooseText(u"Ana"_s);
                Esperar_Aviso_De_Dono(g, u"Familia"_s, u"Ana"_s);
                form.cmdOk->click();
            });
        QVERIFY(g.Grupos().contains(u"3|Familia|2"_s));
    }

    void um_carregamento_que_falha_nao_deixa_o_alarme_parado()
    {
        ComGrupos g;
        g.s.Perder_Texto(43);
        VERIFICAR_FALHA(frmEditGroup(g.s.geral, g.s.plataforma, g.lista), Failure::InvalidUseOfNull);
        QVERIFY(g.Temporizadores_Ligados());
    }
};

MORVEX_TESTE(TestFrmEditGroup)
#include "test_frmEditGroup.moc"
