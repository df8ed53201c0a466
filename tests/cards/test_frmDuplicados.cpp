// The form that goes through the duplicates of the book, and the undoing of what it does.
#include "cards/frmDuplicados.h"

#include "controls/ComboBox.h"
#include "data/CartoesGuardados.h"
#include "platform/Caption.h"
#include "testlib/Accoes.h"
#include "testlib/ComJanela.h"
#include "testlib/TempoGasto.h"
#include "testlib/Teste.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;
using accoes::Quando_Abrir;

namespace
{
const auto contactos = u"SELECT Nome, Telemovel1, Telemovel2, Obs FROM TblLista ORDER BY ID"_s;

struct Mesa : ComJanela {
    Mesa()
    {
        s.Novo_Utilizador(u"Eva"_s, u"x"_s);
        s.Entrar(u"Eva"_s);
    }

    int Contacto(const QString &nome, const QString &telemovel, const QString &obs = {}, int em = 0)
    {
        return s.Novo_Contacto({{u"Nome"_s, Value(nome)},
                                {u"Telemovel1"_s, Value(telemovel)},
                                {u"Obs"_s, Value(obs)},
                                {u"Grupo"_s, Value(em > 0 ? em : grupo)}});
    }
    std::unique_ptr<frmDuplicados> Abrir()
    {
        auto form = std::make_unique<frmDuplicados>(s.geral, s.plataforma, desfazer);
        form->show();
        return form;
    }
    void Desfazer() { janela.DesfazerEliminar->trigger(); }

    int grupo = s.Novo_Grupo(u"Amigos"_s);
};

// Two that are one, with a remark each.
struct UmPar : Mesa {
    int um = Contacto(u"Ana Silva"_s, u"912345678"_s, u"uma"_s);
    int outro = Contacto(u"ANA SILVA"_s, u"+351 912345678"_s, u"outra"_s);
};

QTreeWidgetItem *Linha_De(const frmDuplicados &form, const QString &rotulo)
{
    return form.lvPar->findItems(rotulo, Qt::MatchExactly).value(0);
}

ComboBox *Escolha_De(const frmDuplicados &form, const QString &rotulo)
{
    QTreeWidgetItem *linha = Linha_De(form, rotulo);
    return linha == nullptr ? nullptr : qobject_cast<ComboBox *>(form.lvPar->itemWidget(linha, 3));
}
} // namespace

class TestFrmDuplicados : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mostra_os_dois_lado_a_lado_e_a_escolha_onde_diferem()
    {
        UmPar m;
        const auto form = m.Abrir();
        QCOMPARE(form->Label1->text(), u"Par 1 de 1"_s);
        QCOMPARE(form->Label2->text(), m.s.Texto(386));
        QCOMPARE(Linha_De(*form, u"Nome"_s)->text(1), u"Ana Silva"_s);
        QCOMPARE(Linha_De(*form, u"Nome"_s)->text(2), u"ANA SILVA"_s);
        QCOMPARE(Escolha_De(*form, u"Observações"_s)->currentText(), m.s.Texto(379));
        QVERIFY(Escolha_De(*form, u"Telemóvel"_s) == nullptr); // one number in two spellings
        QCOMPARE(Linha_De(*form, u"Grupo"_s)->text(2), u"Amigos"_s);
        QVERIFY(Linha_De(*form, u"Fax"_s) == nullptr);
    }

    void o_que_so_um_dos_dois_diz_ve_se_ao_lado_de_nada_data()
    {
        QTest::addColumn<QString>("do_primeiro");
        QTest::addColumn<QString>("do_segundo");
        QTest::newRow("o primeiro") << u"uma"_s << QString();
        QTest::newRow("o segundo") << QString() << u"outra"_s;
    }
    void o_que_so_um_dos_dois_diz_ve_se_ao_lado_de_nada()
    {
        QFETCH(const QString, do_primeiro);
        QFETCH(const QString, do_segundo);
        Mesa m;
        m.Contacto(u"Ana Silva"_s, u"912345678"_s, do_primeiro);
        m.Contacto(u"Ana Silva"_s, u"912345678"_s, do_segundo);
        const auto form = m.Abrir();
        const QTreeWidgetItem *linha = Linha_De(*form, u"Observações"_s);
        QVERIFY(linha != nullptr);
        QCOMPARE(linha->text(1), do_primeiro);
        QCOMPARE(linha->text(2), do_segundo);
        QVERIFY(Escolha_De(*form, u"Observações"_s) == nullptr); // there is nothing to choose
    }

    void as_legendas_vem_dos_textos()
    {
        UmPar m;
        m.s.geral.IdiomaActual = u"AlemaoDE"_s; // the form's file has the Portuguese ones
        const auto form = m.Abrir();
        const QTreeWidgetItem &titulos = *form->lvPar->headerItem();
        const std::pair<QString, int> legendas[]{{form->windowTitle(), 276},      {form->cmdJuntar->text(), 374},
                                                 {form->cmdDiferentes->text(), 375}, {form->cmdSaltar->text(), 376},
                                                 {form->cmdFechar->text(), 135},  {titulos.text(0), 383},
                                                 {titulos.text(1), 380},          {titulos.text(2), 381},
                                                 {titulos.text(3), 382},          {form->Label2->text(), 386}};
        for (const auto &[legenda, texto] : legendas)
            QCOMPARE(legenda, texto == 276 ? withoutMnemonic(m.s.Texto(texto)) : m.s.Texto(texto));
        QCOMPARE(form->lvPar->accessibleName(), form->windowTitle());
        QCOMPARE(form->Label1->text(), m.s.Texto(377).arg(1).arg(1));
        const ComboBox *escolha = form->lvPar->findChildren<ComboBox *>().constLast();
        QCOMPARE((QStringList{escolha->itemText(0), escolha->itemText(1), escolha->itemText(2)}),
                 (QStringList{m.s.Texto(379), m.s.Texto(380), m.s.Texto(381)}));
        form->cmdSaltar->click();
        QCOMPARE(form->lvPar->accessibleDescription(), m.s.Texto(385));
        QVERIFY(form->Label1->text().isEmpty() && form->Label2->text().isEmpty());
    }

    void cada_indicio_tem_a_sua_frase()
    {
        Mesa m;
        m.Contacto(u"Ana Silva"_s, u"912345678"_s);
        m.Contacto(u"Ana Silva"_s, u"961234567"_s);
        QCOMPARE(m.Abrir()->Label2->text(), m.s.Texto(387));
        m.s.Escrever(u"UPDATE TblLista SET Nome='Rui', Telemovel1='912345678' WHERE Telemovel1='961234567'"_s);
        QCOMPARE(m.Abrir()->Label2->text(), m.s.Texto(388));
    }

    void os_dois_tem_a_mesma_largura_entre_o_campo_e_a_escolha()
    {
        UmPar m;
        const auto form = m.Abrir();
        const QHeaderView &colunas = *form->lvPar->header();
        QCOMPARE(colunas.sectionSize(0), 90);
        QCOMPARE(colunas.sectionSize(3), 150);
        QVERIFY(std::abs(colunas.sectionSize(1) - colunas.sectionSize(2)) <= 1);
        QCOMPARE(colunas.length(), form->lvPar->viewport()->width());
        QCOMPARE(form->lvPar->topLevelItem(0)->sizeHint(0).height(), 22);
    }

    void as_escolhas_ficam_a_vista_numa_janela_estreita()
    {
        UmPar m;
        const auto form = m.Abrir();
        form->resize(600, 400);
        QCoreApplication::processEvents();
        QCOMPARE(form->width(), 600);
        QCOMPARE(form->lvPar->header()->length(), form->lvPar->viewport()->width());
        QVERIFY(form->lvPar->viewport()->rect().contains(Escolha_De(*form, u"Observações"_s)->geometry()));
    }

    void juntar_deixa_um_contacto_com_tudo_o_que_os_dois_diziam()
    {
        UmPar m;
        const auto form = m.Abrir();
        form->cmdJuntar->click();
        QVERIFY(form->Juntou());
        QCOMPARE(m.s.Linhas(contactos),
                 QStringList{u"Ana Silva|912345678||uma\r\noutra\r\n--- Outros dados do contacto ---\r\n"
                             "Nome completo: ANA SILVA"_s});
        QCOMPARE(m.s.Linhas(u"SELECT ID FROM TblLista"_s), QStringList{QString::number(m.um)});
        QVERIFY(!form->cmdJuntar->isEnabled());
        QVERIFY(form->lvPar->topLevelItemCount() == 0);
    }

    void as_escolhas_valem()
    {
        UmPar m;
        const auto form = m.Abrir();
        Escolha_De(*form, u"Observações"_s)->setCurrentIndex(1);
        Escolha_De(*form, u"Nome"_s)->setCurrentIndex(2);
        form->cmdJuntar->click();
        QCOMPARE(m.s.Linhas(contactos), QStringList{u"ANA SILVA|912345678||uma"_s});
    }

    void desfazer_traz_os_dois_como_eram()
    {
        UmPar m;
        const QStringList antes = m.s.Linhas(u"SELECT * FROM TblLista ORDER BY ID"_s);
        m.Abrir()->cmdJuntar->click();
        QVERIFY(m.s.Linhas(u"SELECT * FROM TblLista ORDER BY ID"_s) != antes);
        m.Desfazer();
        QCOMPARE(m.s.Linhas(u"SELECT * FROM TblLista ORDER BY ID"_s), antes);
        QCOMPARE(m.Abrir()->Label1->text(), u"Par 1 de 1"_s); // nothing was decided
    }

    void desfazer_deixa_como_esta_o_que_alguem_mudou_depois()
    {
        UmPar m;
        m.Abrir()->cmdJuntar->click();
        m.s.Escrever(u"UPDATE TblLista SET Nome='Ana Costa'"_s);
        m.s.caixas.Espera_Qualquer(64, m.janela.windowTitle());
        m.Desfazer();
        QCOMPARE(m.s.Linhas(u"SELECT Nome FROM TblLista ORDER BY ID"_s),
                 (QStringList{u"Ana Costa"_s, u"ANA SILVA"_s}));
        QVERIFY(m.s.caixas.vistas.constFirst().contains(u"fica como está"_s));
    }

    void desfazer_deixa_o_contacto_no_grupo_para_onde_foi_depois()
    {
        UmPar m;
        m.Abrir()->cmdJuntar->click();
        const int novo = m.s.Novo_Grupo(u"Outros amigos"_s);
        m.s.Escrever(u"UPDATE TblLista SET Grupo=%1"_s.arg(novo));
        m.Desfazer();
        QCOMPARE(m.s.Linhas(u"SELECT Nome, Obs, Grupo FROM TblLista ORDER BY ID"_s),
                 (QStringList{u"Ana Silva|uma|%1"_s.arg(novo), u"ANA SILVA|outra|%1"_s.arg(m.grupo)}));
    }

    void o_cartao_guardado_vai_com_o_contacto_e_volta_com_ele()
    {
        UmPar m;
        CartoesGuardados cartoes(m.s.geral.de);
        cartoes.Guardar({QString::number(m.outro), u"uid-2"_s, "cartao 2"});
        m.Abrir()->cmdJuntar->click();
        QCOMPARE(cartoes.Ler(QString::number(m.um))->cartao, QByteArray("cartao 2"));
        QVERIFY(!cartoes.Ler(QString::number(m.outro)).has_value());
        m.Desfazer();
        QVERIFY(!cartoes.Ler(QString::number(m.um)).has_value());
        QCOMPARE(cartoes.Ler(QString::number(m.outro))->cartao, QByteArray("cartao 2"));
    }

    void o_cartao_de_quem_fica_nao_da_lugar_ao_outro()
    {
        UmPar m;
        CartoesGuardados cartoes(m.s.geral.de);
        cartoes.Guardar({QString::number(m.um), u"uid-1"_s, "cartao 1"});
        cartoes.Guardar({QString::number(m.outro), u"uid-2"_s, "cartao 2"});
        m.Abrir()->cmdJuntar->click();
        QCOMPARE(cartoes.Ler(QString::number(m.um))->cartao, QByteArray("cartao 1"));
        m.Desfazer();
        QCOMPARE(cartoes.Ler(QString::number(m.um))->cartao, QByteArray("cartao 1"));
        QCOMPARE(cartoes.Ler(QString::number(m.outro))->cartao, QByteArray("cartao 2"));
    }

    void diferentes_nao_voltam_a_ser_perguntados_nem_a_outro_utilizador()
    {
        UmPar m;
        m.Abrir()->cmdDiferentes->click();
        QCOMPARE(m.s.Linhas(u"SELECT count(*) FROM TblLista"_s), QStringList{u"2"_s});
        QVERIFY(m.Abrir()->lvPar->topLevelItemCount() == 0);
        m.s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        m.s.Entrar(u"Rui"_s);
        QVERIFY(m.Abrir()->lvPar->topLevelItemCount() == 0);
    }

    void saltar_passa_ao_par_seguinte_e_pergunta_outra_vez_da_proxima()
    {
        UmPar m;
        m.Contacto(u"Rui"_s, u"961111111"_s);
        m.Contacto(u"Rui"_s, u"961111111"_s);
        {
            const auto form = m.Abrir();
            form->cmdSaltar->click();
            QCOMPARE(form->Label1->text(), u"Par 2 de 2"_s);
            QCOMPARE(Linha_De(*form, u"Nome"_s)->text(1), u"Rui"_s);
            form->cmdSaltar->click();
            QVERIFY(!form->cmdSaltar->isEnabled());
        }
        QCOMPARE(m.Abrir()->Label1->text(), u"Par 1 de 2"_s);
    }

    void quem_foi_juntado_ja_nao_e_de_nenhum_par()
    {
        Mesa m;
        for (int i = 0; i < 3; ++i)
            m.Contacto(u"Ana"_s, u"912345678"_s, u"nota %1"_s.arg(i));
        const auto form = m.Abrir();
        form->cmdJuntar->click();
        form->cmdJuntar->click();
        QVERIFY(!form->cmdJuntar->isEnabled()); // the pair of the second and third is no more
        QCOMPARE(m.s.Linhas(contactos), QStringList{u"Ana|912345678||nota 0\r\nnota 1\r\nnota 2"_s});
        m.Desfazer();
        m.Desfazer();
        QCOMPARE(m.s.Linhas(u"SELECT Obs FROM TblLista ORDER BY ID"_s),
                 (QStringList{u"nota 0"_s, u"nota 1"_s, u"nota 2"_s}));
    }

    void um_livro_sem_duplicados_di_lo()
    {
        Mesa m;
        m.Contacto(u"Ana"_s, u"912345678"_s);
        m.Contacto(u"Rui"_s, u"961234567"_s);
        const auto form = m.Abrir();
        QCOMPARE(form->lvPar->accessibleDescription(), m.s.Texto(378));
        for (const QPushButton *botao : {form->cmdJuntar, form->cmdDiferentes, form->cmdSaltar})
            QVERIFY(!botao->isEnabled());
    }

    void contactos_de_grupos_que_o_utilizador_nao_ve_nao_se_comparam()
    {
        Mesa m;
        const int alheio = m.s.Novo_Grupo(u"Da Rita"_s, m.s.Novo_Utilizador(u"Rita"_s, u"x"_s));
        m.Contacto(u"Ana"_s, u"912345678"_s);
        m.Contacto(u"Ana"_s, u"912345678"_s, {}, alheio);
        QVERIFY(m.Abrir()->lvPar->topLevelItemCount() == 0);
    }

    void um_contacto_que_foi_para_um_grupo_alheio_ja_nao_se_mostra()
    {
        UmPar m;
        m.Contacto(u"Rui"_s, u"961111111"_s);
        const int rui = m.Contacto(u"Rui"_s, u"961111111"_s);
        const auto form = m.Abrir();
        const int alheio = m.s.Novo_Grupo(u"Da Rita"_s, m.s.Novo_Utilizador(u"Rita"_s, u"x"_s));
        m.s.Escrever(u"UPDATE TblLista SET Grupo=%1 WHERE ID=%2"_s.arg(alheio).arg(rui));
        form->cmdSaltar->click();
        QVERIFY(form->lvPar->topLevelItemCount() == 0);
    }

    void o_que_outra_copia_do_programa_mudou_nao_se_junta_sem_ser_visto()
    {
        UmPar m;
        const auto form = m.Abrir();
        m.s.Escrever(u"UPDATE TblLista SET Obs='nova' WHERE ID=%1"_s.arg(m.outro));
        m.s.caixas.Espera(m.s.Texto(384), 48, form->windowTitle());
        form->cmdJuntar->click();
        QCOMPARE(m.s.Linhas(u"SELECT count(*) FROM TblLista"_s), QStringList{u"2"_s});
        QCOMPARE(Linha_De(*form, u"Observações"_s)->text(2), u"nova"_s);
        form->cmdJuntar->click();
        QCOMPARE(m.s.Linhas(u"SELECT count(*) FROM TblLista"_s), QStringList{u"1"_s});
    }

    void a_presenca_que_muda_por_si_nao_impede_de_juntar()
    {
        UmPar m;
        const auto form = m.Abrir();
        m.s.Escrever(u"UPDATE TblLista SET MSNMessenger='2'"_s);
        form->cmdJuntar->click();
        QCOMPARE(m.s.Linhas(u"SELECT count(*) FROM TblLista"_s), QStringList{u"1"_s});
    }

    void uma_falha_a_meio_deixa_os_dois()
    {
        UmPar m;
        const QStringList antes = m.s.Linhas(u"SELECT * FROM TblLista ORDER BY ID"_s);
        const auto form = m.Abrir();
        m.s.Escrever(u"CREATE TRIGGER nao BEFORE DELETE ON TblLista BEGIN SELECT RAISE(ABORT, 'no'); END"_s);
        m.s.caixas.Espera_Erro(Failure::StoreError);
        QTest::mouseClick(form->cmdJuntar, Qt::LeftButton);
        QCOMPARE(m.s.Linhas(u"SELECT * FROM TblLista ORDER BY ID"_s), antes);
        QVERIFY(!m.janela.DesfazerEliminar->isEnabled());
    }

    void juntar_precisa_dos_direitos_de_editar_e_de_eliminar_data()
    {
        QTest::addColumn<bool>("editar");
        QTest::addColumn<bool>("eliminar");
        QTest::newRow("neither") << false << false;
        QTest::newRow("edit alone") << true << false;
        QTest::newRow("delete alone") << false << true;
    }
    void juntar_precisa_dos_direitos_de_editar_e_de_eliminar()
    {
        QFETCH(bool, editar);
        QFETCH(bool, eliminar);
        UmPar m;
        const auto form = m.Abrir();
        m.s.geral.SessaoActual.Editar = editar;
        m.s.geral.SessaoActual.Eliminar = eliminar;
        m.s.caixas.Espera(m.s.Texto(102), 16, u"Morvex"_s);
        form->cmdJuntar->click();
        QCOMPARE(m.s.Linhas(u"SELECT count(*) FROM TblLista"_s), QStringList{u"2"_s});
    }

    void a_entrada_do_menu_abre_o_e_le_a_lista_de_novo()
    {
        UmPar m;
        m.lista.Carregar_Tabela();
        QCOMPARE(m.janela.ListaNomes->ListCount(), 2);
        Quando_Abrir<frmDuplicados>([](frmDuplicados &form) {
            form.cmdJuntar->click();
            form.cmdFechar->click();
        });
        m.janela.Duplicados->trigger();
        QCOMPARE(m.janela.ListaNomes->ListCount(), 1);
        QVERIFY(m.janela.isEnabled());
    }

    void a_tecla_tab_passa_pelas_escolhas_antes_dos_botoes()
    {
        UmPar m;
        const auto form = m.Abrir();
        QApplication::setActiveWindow(form.get());
        form->lvPar->setFocus();
        const QList<QWidget *> todos{Escolha_De(*form, u"Nome"_s),
                                     Escolha_De(*form, u"Observações"_s),
                                     form->cmdJuntar,
                                     form->cmdDiferentes,
                                     form->cmdSaltar,
                                     form->cmdFechar};
        for (const QWidget *seguinte : todos) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), seguinte);
        }
    }

    void observacoes_enormes_mostram_se_cortadas_e_juntam_se_inteiras()
    {
        Mesa m;
        const QString enorme(200'000, u'x');
        m.Contacto(u"Ana"_s, u"912345678"_s, enorme);
        m.Contacto(u"Ana"_s, u"912345678"_s, u"fim"_s);
        const auto form = m.Abrir();
        QCOMPARE(Linha_De(*form, u"Observações"_s)->text(1), enorme.first(300) + u'…');
        QCOMPARE(Linha_De(*form, u"Observações"_s)->toolTip(1), enorme);
        form->cmdJuntar->click();
        QCOMPARE(m.s.Linhas(u"SELECT Obs FROM TblLista"_s).constFirst(), enorme + u"\r\nfim"_s);
    }

    void trezentas_letras_ainda_se_mostram_todas()
    {
        Mesa m;
        m.Contacto(u"Ana"_s, u"912345678"_s, QString(300, u'x'));
        m.Contacto(u"Ana"_s, u"912345678"_s, QString(301, u'x'));
        const auto form = m.Abrir();
        const QTreeWidgetItem &obs = *Linha_De(*form, u"Observações"_s);
        QCOMPARE(obs.text(1), QString(300, u'x'));
        QCOMPARE(obs.text(2), QString(300, u'x') + u'…');
    }

    void de_dois_grupos_fica_um_e_o_segundo_pode_ser()
    {
        UmPar m;
        const int colegas = m.s.Novo_Grupo(u"Colegas"_s);
        m.s.Escrever(u"UPDATE TblLista SET Grupo=%1 WHERE ID=%2"_s.arg(colegas).arg(m.outro));
        const auto form = m.Abrir();
        const QTreeWidgetItem &grupo = *Linha_De(*form, u"Grupo"_s);
        QCOMPARE((QStringList{grupo.text(1), grupo.text(2)}), (QStringList{u"Amigos"_s, u"Colegas"_s}));
        ComboBox &escolha = *Escolha_De(*form, u"Grupo"_s);
        QCOMPARE((QStringList{escolha.itemText(0), escolha.itemText(1), escolha.itemText(2)}),
                 (QStringList{m.s.Texto(380), m.s.Texto(381), QString()}));
        QCOMPARE(escolha.accessibleName(), u"Grupo"_s);
        escolha.setCurrentIndex(1);
        form->cmdJuntar->click();
        QCOMPARE(m.s.Linhas(u"SELECT Grupo FROM TblLista"_s), QStringList{QString::number(colegas)});
    }

    void o_primeiro_contacto_do_livro_tambem_se_compara()
    {
        UmPar m;
        m.s.Escrever(u"UPDATE TblLista SET ID=1 WHERE ID=%1"_s.arg(m.um));
        QCOMPARE(m.Abrir()->Label1->text(), u"Par 1 de 1"_s);
    }

    void so_quem_juntou_alguem_le_a_lista_de_novo()
    {
        UmPar m;
        const auto form = m.Abrir();
        form->cmdSaltar->click();
        QVERIFY(!form->Juntou());
    }

    void comeca_na_primeira_linha_e_acaba_no_botao_que_fecha()
    {
        UmPar m;
        const auto form = m.Abrir();
        QCOMPARE(form->lvPar->currentItem(), form->lvPar->topLevelItem(0));
        form->lvPar->setFocus();
        form->cmdSaltar->click(); // by its letter: the keyboard stays where it was
        QCOMPARE(form->focusWidget(), form->cmdFechar);
        form->cmdFechar->click();
        QVERIFY(!form->isVisible());
    }

    void os_temporizadores_param_ate_o_formulario_se_fechar()
    {
        UmPar m;
        const auto &tarefas = m.s.geral.temporizadores.timerTarefas;
        m.s.geral.temporizadores.Gerir_Temporizadores(u"start"_s);
        const auto form = m.Abrir();
        QVERIFY(!tarefas.Enabled());
        form->close();
        QVERIFY(tarefas.Enabled());
    }

    // The choices of a pair go with it.
    void as_escolhas_de_um_par_nao_valem_no_seguinte()
    {
        UmPar m;
        m.Contacto(u"Rui"_s, u"961111111"_s);
        m.Contacto(u"Rui"_s, u"961111111"_s, u"nota"_s);
        const auto form = m.Abrir();
        Escolha_De(*form, u"Observações"_s)->setCurrentIndex(1);
        form->cmdSaltar->click();
        form->cmdJuntar->click();
        QCOMPARE(m.s.Linhas(u"SELECT Obs FROM TblLista WHERE Nome='Rui'"_s), QStringList{u"nota"_s});
    }

    void oito_linhas_de_observacoes_mostram_se_todas_e_de_nove_as_primeiras_oito()
    {
        Mesa m;
        QStringList linhas;
        for (int i = 1; i <= 9; ++i)
            linhas << u"linha %1"_s.arg(i);
        m.Contacto(u"Ana"_s, u"912345678"_s, linhas.first(8).join(u"\r\n"_s));
        m.Contacto(u"Ana"_s, u"912345678"_s, linhas.join(u"\r\n"_s));
        const auto form = m.Abrir();
        const QTreeWidgetItem &obs = *Linha_De(*form, u"Observações"_s);
        QCOMPARE(obs.text(1), linhas.first(8).join(u'\n'));
        QCOMPARE(obs.text(2), linhas.first(8).join(u'\n') + u'…');
        QCOMPARE(obs.toolTip(2), linhas.join(u'\n'));
    }

    void um_livro_de_trinta_e_dois_mil_abre_em_cerca_de_um_segundo()
    {
        Mesa m;
        m.s.Escrever(
            u"WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<31999) "
            "INSERT INTO TblLista (Nome, Telefone1, Telefone2, Fax, Telemovel1, Telemovel2, Telemovel3, "
            "Email1, Email2, Morada, Obs, Grupo) SELECT 'Pessoa ' || (i/2), '', '', '', "
            "'91' || (1000000 + i/2), '', '', 'p' || i || '@x.example', '', 'Rua', 'nota', %1 FROM n"_s.arg(
                m.grupo));
        const double chao = Tempo_Gasto([&] { QCOMPARE(m.s.Linhas(contactos).size(), 32'000); }, 1);
        const double abertura =
            Tempo_Gasto([&] { QCOMPARE(m.Abrir()->Label1->text(), u"Par 1 de 16000"_s); }, 1);
        qInfo("%.0f ms to read four columns, %.0f ms to open", chao / 1000, abertura / 1000);
        constexpr double quatro_segundos = 4e6;
        QVERIFY2(abertura < quatro_segundos, qPrintable(QString::number(abertura)));
    }
};

MORVEX_TESTE(TestFrmDuplicados)
#include "test_frmDuplicados.moc"
