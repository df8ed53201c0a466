// Deleting a group, with its contacts or without them.
#include "ComGrupos.h"
#include "contacts/frmDeleteGroup.h"
#include "session/Diario.h"

using namespace Qt::StringLiterals;

class TestFrmDeleteGroup : public QObject
{
    Q_OBJECT

    static void As_Duas_Opcoes()
    {
        QTest::addColumn<QString>("opcao");
        QTest::newRow("mover") << u"OptionMover"_s;
        QTest::newRow("eliminar") << u"OptionEliminar"_s;
    }

    static void Escolher_Opcao(frmDeleteGroup &form)
    {
        QFETCH(QString, opcao);
        form.findChild<QRadioButton *>(opcao)->click();
    }

    // The group chosen for deletion, its contacts going to Familia where they are moved.
    static void Preencher(frmDeleteGroup &form, int grupo)
    {
        ComGrupos::Escolher(*form.ComboGrupos, grupo);
        ComGrupos::Escolher(*form.ComboGrupos2, ComGrupos::Familia);
    }

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        ComGrupos g;
        g.s.geral.IdiomaActual = u"AlemaoDE"_s; // the form is drawn in Portuguese
        const frmDeleteGroup form(g.s.geral, g.s.plataforma, g.lista, g.desfazer);
        QCOMPARE(form.windowTitle(), g.s.Texto(121));
        QCOMPARE(form.Label1->text(), g.s.Texto(115));
        QCOMPARE(form.OptionMover->text(), g.s.Texto(116));
        QCOMPARE(form.OptionEliminar->text(), g.s.Texto(117));
        QCOMPARE(form.cmdOk->text(), u"&Ok"_s);
        QCOMPARE(form.cmdCancelar->text(), g.s.Texto(43));
        for (const ComboBox *combo : {form.ComboGrupos, form.ComboGrupos2}) {
            QCOMPARE(combo->ListCount(), 6);
            QCOMPARE(combo->ItemData(1), int{ComGrupos::Clientes});
        }
    }

    void o_destino_so_se_escolhe_quando_se_move()
    {
        ComGrupos g;
        frmDeleteGroup form(g.s.geral, g.s.plataforma, g.lista, g.desfazer);
        form.OptionEliminar->click();
        QVERIFY(!form.ComboGrupos2->isEnabled());
        form.OptionMover->click();
        QVERIFY(form.ComboGrupos2->isEnabled());
    }

    void movendo_os_contactos_ficam_e_o_grupo_vai()
    {
        ComGrupos g;
        const int abel = g.Contacto(u"Abel"_s, ComGrupos::Amigos);
        const int berta = g.Contacto(u"Berta"_s, ComGrupos::Outros);
        frmDeleteGroup form(g.s.geral, g.s.plataforma, g.lista, g.desfazer);
        Preencher(form, ComGrupos::Amigos);
        form.OptionMover->click();
        g.Confirmar(form);
        QCOMPARE(g.Grupo_Do_Contacto(abel), u"3"_s);
        QCOMPARE(g.Grupo_Do_Contacto(berta), u"6"_s);
        QCOMPARE(g.Grupos().constFirst(), u"2|Colegas|0"_s);
        QCOMPARE(g.Grupos().size(), 5);
    }

    void eliminando_os_contactos_vao_com_o_grupo_sem_pergunta()
    {
        ComGrupos g;
        const int abel = g.Contacto(u"Abel"_s, ComGrupos::Amigos);
        const int berta = g.Contacto(u"Berta"_s, ComGrupos::Outros);
        frmDeleteGroup form(g.s.geral, g.s.plataforma, g.lista, g.desfazer);
        Preencher(form, ComGrupos::Amigos);
        form.OptionEliminar->click();
        g.Confirmar(form);
        QCOMPARE(g.Grupo_Do_Contacto(abel), QString());
        QCOMPARE(g.Grupo_Do_Contacto(berta), u"6"_s);
        QCOMPARE(g.Grupos().size(), 5);
    }

    void os_contactos_sao_tratados_antes_de_o_grupo_ir_data()
    {
        QTest::addColumn<bool>("move");
        QTest::addColumn<QString>("primeiro");
        QTest::newRow("mover") << true << u"UPDATE TblLista"_s;
        QTest::newRow("eliminar") << false << u"DELETE TblLista"_s;
    }
    void os_contactos_sao_tratados_antes_de_o_grupo_ir()
    {
        QFETCH(bool, move);
        QFETCH(QString, primeiro);
        ComGrupos g;
        g.Contacto(u"Abel"_s, ComGrupos::Amigos);
        Diario diario(g.s, {u"TblLista"_s, u"TblGrupos"_s});
        frmDeleteGroup form(g.s.geral, g.s.plataforma, g.lista, g.desfazer);
        Preencher(form, ComGrupos::Amigos);
        (move ? form.OptionMover : form.OptionEliminar)->click();
        g.Confirmar(form);
        QCOMPARE(diario.Escritas(), (QStringList{primeiro, u"DELETE TblGrupos"_s}));
    }

    void o_filtro_recomeca_em_todos_e_a_lista_e_lida_de_novo()
    {
        ComGrupos g;
        g.Contacto(u"Abel"_s, ComGrupos::Amigos);
        g.Contacto(u"Berta"_s, ComGrupos::Outros);
        g.Contacto(u"Carla"_s, ComGrupos::Outros);
        g.lista.Carregar_Grupos();
        ComGrupos::Escolher(*g.janela.ComboGrupos, ComGrupos::Amigos);
        QVERIFY(g.janela.cmdEditar->isEnabled()); // the only one is shown at once
        frmDeleteGroup form(g.s.geral, g.s.plataforma, g.lista, g.desfazer);
        Preencher(form, ComGrupos::Amigos);
        form.OptionEliminar->click();
        g.Confirmar(form);
        QCOMPARE(g.janela.ComboGrupos->ListIndex(), 0);
        QCOMPARE(g.s.geral.GrupoActual, u"0"_s);
        QVERIFY(!g.Filtro().contains(u"Amigos"_s));
        QCOMPARE(g.Nomes(), (QStringList{u"Berta"_s, u"Carla"_s}));
        QVERIFY(!g.janela.cmdEditar->isEnabled());
    }

    void mover_para_o_proprio_grupo_e_recusado_e_o_grupo_fica()
    {
        ComGrupos g;
        g.Contacto(u"Abel"_s, ComGrupos::Familia);
        const ComGrupos::Intactos intactos(g);
        frmDeleteGroup form(g.s.geral, g.s.plataforma, g.lista, g.desfazer);
        Preencher(form, ComGrupos::Familia);
        form.OptionMover->click();
        g.Ouvir(form, 120, 121);
    }

    void o_ultimo_grupo_a_vista_fica_seja_qual_for_a_opcao_data() { As_Duas_Opcoes(); }
    void o_ultimo_grupo_a_vista_fica_seja_qual_for_a_opcao()
    {
        ComGrupos g;
        g.s.Escrever(u"UPDATE TblGrupos SET IdUtilizador=99 WHERE ID<>3"_s); // somebody else's
        const ComGrupos::Intactos intactos(g);
        frmDeleteGroup form(g.s.geral, g.s.plataforma, g.lista, g.desfazer);
        QCOMPARE(form.ComboGrupos->ListCount(), 1);
        Escolher_Opcao(form);
        g.Ouvir(form, 118, 121);
    }

    void um_grupo_vazio_elimina_se_com_qualquer_opcao_data() { As_Duas_Opcoes(); }
    void um_grupo_vazio_elimina_se_com_qualquer_opcao()
    {
        ComGrupos g;
        const int abel = g.Contacto(u"Abel"_s, ComGrupos::Familia);
        frmDeleteGroup form(g.s.geral, g.s.plataforma, g.lista, g.desfazer);
        Preencher(form, ComGrupos::Colegas);
        Escolher_Opcao(form);
        g.Confirmar(form);
        QCOMPARE(g.Grupos().size(), 5);
        QVERIFY(!g.Grupos().contains(u"2|Colegas|0"_s));
        QCOMPARE(g.Grupo_Do_Contacto(abel), u"3"_s);
    }

    void uma_falha_da_base_diz_que_nao_se_eliminou_data() { As_Duas_Opcoes(); }
    void uma_falha_da_base_diz_que_nao_se_eliminou()
    {
        ComGrupos g;
        g.Contacto(u"Abel"_s, ComGrupos::Amigos);
        g.s.Recusar(u"DELETE"_s, u"TblGrupos"_s);
        frmDeleteGroup form(g.s.geral, g.s.plataforma, g.lista, g.desfazer);
        Preencher(form, ComGrupos::Amigos);
        Escolher_Opcao(form);
        g.Ouvir(form, 119, 121);
        QCOMPARE(g.Grupos().size(), 6);

        g.s.Deixar_De_Recusar(); // another try from the same form
        g.Confirmar(form);
        QCOMPARE(g.Grupos().size(), 5);
    }

    void um_grupo_que_nao_se_elimina_fica_com_os_contactos_data() { As_Duas_Opcoes(); }
    void um_grupo_que_nao_se_elimina_fica_com_os_contactos()
    {
        ComGrupos g;
        g.Contacto(u"Abel"_s, ComGrupos::Amigos);
        g.s.Recusar(u"DELETE"_s, u"TblGrupos"_s);
        const ComGrupos::Intactos intactos(g);
        frmDeleteGroup form(g.s.geral, g.s.plataforma, g.lista, g.desfazer);
        Preencher(form, ComGrupos::Amigos);
        Escolher_Opcao(form);
        g.Ouvir(form, 119, 121);
        QVERIFY(!g.janela.DesfazerEliminar->isEnabled());
    }

    void quem_nao_ve_grupo_nenhum_ouve_que_nao_se_eliminou()
    {
        ComGrupos g;
        g.s.Escrever(u"UPDATE TblGrupos SET IdUtilizador=99"_s);
        const ComGrupos::Intactos intactos(g);
        frmDeleteGroup form(g.s.geral, g.s.plataforma, g.lista, g.desfazer);
        g.Ouvir(form, 119, 121);
    }

    void cancelar_nao_elimina_nada()
    {
        ComGrupos g;
        const ComGrupos::Intactos intactos(g);
        frmDeleteGroup form(g.s.geral, g.s.plataforma, g.lista, g.desfazer);
        form.show();
        form.cmdCancelar->click();
        QVERIFY(!form.isVisible());
    }

    void os_temporizadores_param_e_voltam_a_andar()
    {
        ComGrupos g;
        frmDeleteGroup form(g.s.geral, g.s.plataforma, g.lista, g.desfazer);
        g.Verificar_Temporizadores(form);
    }

    void a_entrada_do_menu_pede_o_direito()
    {
        ComGrupos g;
        g.Verificar_Entrada<frmDeleteGroup>(*g.janela.EliminarGrupos);
    }

    void um_carregamento_que_falha_nao_deixa_o_alarme_parado()
    {
        ComGrupos g;
        g.s.Perder_Texto(43);
        VERIFICAR_FALHA(frmDeleteGroup(g.s.geral, g.s.plataforma, g.lista, g.desfazer),
                        Failure::InvalidUseOfNull);
        QVERIFY(g.Temporizadores_Ligados());
    }
};

MORVEX_TESTE(TestFrmDeleteGroup)
#include "test_frmDeleteGroup.moc"
