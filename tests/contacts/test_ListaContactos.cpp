// The contact list: what it reads, its hidden twin, the group filter, the counter, and the moves round its
// ends.
#include "contacts/CartaoContacto.h"
#include "contacts/Preencher_Grupos.h"
#include "controls/Controls.h"
#include "controls/Units.h"
#include "testlib/ComJanela.h"
#include "testlib/Teste.h"

#include <QScrollBar>

using namespace Qt::StringLiterals;

class TestListaContactos : public QObject
{
    Q_OBJECT

    // "name:ItemData" of every row.
    template<class Caixa> static QStringList Linhas(const Caixa &caixa)
    {
        QStringList linhas;
        for (int i = 0; i < caixa.ListCount(); ++i)
            linhas << caixa.List(i) + u':' + QString::number(caixa.ItemData(i));
        return linhas;
    }

    static QString Linha(const QString &nome, int id) { return nome + u':' + QString::number(id); }

    static int Novo(ComJanela &c, const QString &nome, int grupo = 6)
    {
        return c.s.Novo_Contacto(
            {{u"Nome"_s, nome}, {u"Telefone1"_s, u"tel "_s + nome}, {u"Grupo"_s, grupo}});
    }

    static void Escolher_Grupo(ComJanela &c, const QString &nome)
    {
        c.janela.ComboGrupos->setListIndex(c.janela.ComboGrupos->findText(nome));
    }

    static void Encher(ComJanela &c, const QStringList &nomes)
    {
        for (const QString &nome : nomes)
            Novo(c, nome);
        c.lista.Carregar_Tabela();
    }

    // The list in view, with the names 10 to 59: a row chosen, or none, and one at the top.
    static ListBox &Com_Cinquenta(ComJanela &c, int escolhida, int topo)
    {
        for (int i = 10; i < 60; ++i)
            Novo(c, u"Nome %1"_s.arg(i));
        c.lista.Carregar_Tabela();
        c.janela.show();
        ListBox &lista = *c.janela.ListaNomes;
        lista.setListIndex(escolhida);
        lista.verticalScrollBar()->setValue(topo);
        return lista;
    }

    static QString No_Cartao(const ComJanela &c)
    {
        return c.janela.txtTelefone1->isHidden() ? QString() : c.janela.txtTelefone1->text();
    }

private Q_SLOTS:
    void os_controlos_estao_no_seu_lugar()
    {
        Sistema s;
        const Main janela(s.geral, s.plataforma);
        QCOMPARE(janela.ListaNomes->geometry(), pixelRect(120, 750, 4815, 1980));
        QCOMPARE(janela.ListaNomes2->geometry(), pixelRect(2760, 5280, 2175, 1005));
        QCOMPARE(janela.ComboGrupos->pos(), QPoint(pixels(3660), pixels(400)));
        QCOMPARE(janela.ComboGrupos->width(), pixels(1290));
        QCOMPARE(janela.txtProcura->pos(), QPoint(pixels(1500), pixels(405)));
        QCOMPARE(janela.txtProcura->width(), pixels(1395));
        QCOMPARE(janela.lblContador->pos(), QPoint(pixels(7770), pixels(375)));
        QVERIFY(!janela.ListaNomes->Sorted());
        QVERIFY(janela.ListaNomes2->Sorted());
    }

    // Loading

    void base_vazia_da_listas_vazias_contador_zero_e_a_foto_por_omissao()
    {
        ComJanela c;
        QCOMPARE(c.janela.ListaNomes->ListCount(), 0);
        QCOMPARE(c.janela.ListaNomes2->ListCount(), 0);
        QCOMPARE(c.janela.lblContador->text(), c.s.Texto(49) + u" 0"_s);
        QCOMPARE(c.janela.Thumb->geometry(), pixelRect(5280, 400, 2415, 2325));
        QVERIFY(!c.janela.Thumb->pixmap().isNull());
        QCOMPARE(c.janela.findChild<CartaoContacto *>()->Image1().path(),
                 c.s.geral.Ficheiro(u"semfoto_big.jpg"_s));
    }

    void grupo_com_um_contacto_escolhe_o_e_mostra_o()
    {
        ComJanela c;
        const int id = Novo(c, u"Rui"_s, 1);
        Novo(c, u"Ana"_s, 2);
        Escolher_Grupo(c, u"Amigos"_s);
        QCOMPARE(c.janela.ListaNomes->ListIndex(), 0);
        QCOMPARE(No_Cartao(c), u"tel Rui"_s);
        QCOMPARE(c.s.geral.IDContacto, id);
        QCOMPARE(c.janela.lblContador->text(), c.s.Texto(49) + u" 1"_s);
    }

    void grupo_com_dois_contactos_nao_mostra_nenhum()
    {
        ComJanela c;
        Novo(c, u"Rui"_s, 1);
        Novo(c, u"Ana"_s, 1);
        Escolher_Grupo(c, u"Amigos"_s);
        QCOMPARE(c.janela.ListaNomes->ListIndex(), -1);
        QCOMPARE(No_Cartao(c), QString());
        QCOMPARE(c.janela.lblContador->text(), c.s.Texto(49) + u" 2"_s);
        QVERIFY(!c.janela.cmdEditar->isEnabled());
    }

    void dois_do_mesmo_nome_ficam_pela_ordem_dos_ID()
    {
        ComJanela c;
        const int primeira = Novo(c, u"Ana"_s);
        const int rui = Novo(c, u"Rui"_s);
        const int segunda = Novo(c, u"Ana"_s);
        c.lista.Carregar_Tabela();
        const QStringList esperada{Linha(u"Ana"_s, primeira), Linha(u"Ana"_s, segunda), Linha(u"Rui"_s, rui)};
        QCOMPARE(Linhas(*c.janela.ListaNomes), esperada);
        QCOMPARE(Linhas(*c.janela.ListaNomes2), esperada);
    }

    void todos_sao_os_dos_grupos_partilhados_e_dos_proprios()
    {
        ComJanela c;
        const int eu = c.s.Novo_Utilizador(u"Eu"_s, u"x"_s);
        const int outro = c.s.Novo_Utilizador(u"Outro"_s, u"x"_s);
        c.s.Entrar(u"Eu"_s);
        const int partilhado = Novo(c, u"Partilhado"_s, 6);
        const int proprio = Novo(c, u"Proprio"_s, c.s.Novo_Grupo(u"Meu"_s, eu));
        Novo(c, u"Alheio"_s, c.s.Novo_Grupo(u"Dele"_s, outro));
        Novo(c, u"Sem grupo"_s, 999);
        c.lista.Carregar_Grupos();
        QCOMPARE(Linhas(*c.janela.ListaNomes),
                 (QStringList{Linha(u"Partilhado"_s, partilhado), Linha(u"Proprio"_s, proprio)}));
        QVERIFY(c.janela.ComboGrupos->findText(u"Meu"_s) > 0);
        QCOMPARE(c.janela.ComboGrupos->findText(u"Dele"_s), -1);
    }

    void o_grupo_1_nao_traz_os_do_grupo_11()
    {
        ComJanela c;
        c.s.Escrever(u"INSERT INTO TblGrupos (ID, NomeGrupo) VALUES (11, 'Onze')"_s);
        Novo(c, u"De onze"_s, 11);
        const int de_um = Novo(c, u"De um"_s, 1);
        c.lista.Carregar_Grupos();
        Escolher_Grupo(c, u"Amigos"_s);
        QCOMPARE(c.s.geral.GrupoActual, u"1"_s);
        QCOMPARE(Linhas(*c.janela.ListaNomes), QStringList{Linha(u"De um"_s, de_um)});
        Escolher_Grupo(c, u"Onze"_s);
        QCOMPARE(c.s.geral.GrupoActual, u"11"_s);
    }

    void a_gemea_escondida_ordena_os_nomes_como_a_base()
    {
        ComJanela c;
        Encher(c,
               {u"Zé"_s, u"álvaro"_s, u"Alvaro"_s, u"Éva"_s, u"ana"_s, u"Bruno"_s, u"ÁLVARO"_s, u"zebra"_s});
        QCOMPARE(c.janela.ListaNomes->ListCount(), 8);
        QCOMPARE(Linhas(*c.janela.ListaNomes2), Linhas(*c.janela.ListaNomes));
        c.janela.show();
        QVERIFY(!c.janela.ListaNomes2->isVisible());
    }

    void um_nome_nulo_da_uma_linha_vazia()
    {
        ComJanela c;
        const int id = c.s.Novo_Contacto({{u"Nome"_s, nullptr}});
        c.lista.Carregar_Tabela();
        QCOMPARE(Linhas(*c.janela.ListaNomes), QStringList{Linha(u""_s, id)});
    }

    void recarregar_perde_a_escolha_e_esvazia_o_cartao()
    {
        ComJanela c;
        Encher(c, {u"Ana"_s, u"Rui"_s});
        c.janela.ListaNomes->setListIndex(1);
        QCOMPARE(No_Cartao(c), u"tel Rui"_s);
        const qint16 id = c.s.geral.IDContacto;
        c.lista.Carregar_Tabela();
        QCOMPARE(c.janela.ListaNomes->ListIndex(), -1);
        QCOMPARE(No_Cartao(c), QString());
        QCOMPARE(c.s.geral.IDContacto, id); // what stops it being used is that the commands are off
        QCOMPARE(c.s.geral.IndiceContacto, 1);
        QVERIFY(!c.janela.EditarContacto->isEnabled());
    }

    void os_direitos_nao_mudam_a_lista()
    {
        ComJanela c;
        Encher(c, {u"Ana"_s, u"Rui"_s});
        const QStringList com = Linhas(*c.janela.ListaNomes);
        c.s.geral.SessaoActual = {};
        c.lista.Carregar_Grupos();
        QCOMPARE(Linhas(*c.janela.ListaNomes), com);
    }

    // Emptying

    void Limpar_Dados_esvazia_e_esconde_o_cartao_e_desliga_os_comandos()
    {
        ComJanela c;
        c.s.Novo_Contacto({{u"Nome"_s, u"Ana"_s},
                           {u"Telefone1"_s, u"1"_s},
                           {u"Email1"_s, u"a@b"_s},
                           {u"Website"_s, u"w"_s},
                           {u"Morada"_s, u"m"_s},
                           {u"Obs"_s, u"o"_s},
                           {u"Dia"_s, u"1"_s},
                           {u"Mes"_s, u"1"_s},
                           {u"Ano"_s, u"1980"_s}});
        c.lista.Carregar_Tabela();
        const QStringList comandos{u"EditarContacto"_s,
                                   u"EliminarContacto"_s,
                                   u"Email"_s,
                                   u"Website"_s,
                                   u"Anterior"_s,
                                   u"Seguinte"_s,
                                   u"editar_contacto"_s,
                                   u"eliminar_contacto"_s,
                                   u"enviar_email"_s,
                                   u"visitar_website"_s,
                                   u"cima"_s,
                                   u"baixo"_s};
        for (const QString &nome : comandos)
            QVERIFY2(control<QAction>(c.janela, nome).isEnabled(), qPrintable(nome));
        c.janela.txtProcura->setText(u"procura"_s);
        const bool novo = c.janela.cmdNovo->isEnabled();
        const QPixmap foto = c.janela.Thumb->pixmap();
        c.lista.Limpar_Dados();

        QCOMPARE(c.janela.ListaNomes->ListCount(), 0);
        QCOMPARE(c.janela.ListaNomes2->ListCount(), 0);
        for (const QLineEdit *caixa :
             {c.janela.txtTelefone1, c.janela.txtTelefone2, c.janela.txtFax, c.janela.txtTelemovel1,
              c.janela.txtTelemovel2, c.janela.txtTelemovel3, c.janela.txtAniversario, c.janela.txtIdade,
              c.janela.txtEmail1, c.janela.txtEmail2, c.janela.txtWebsite, c.janela.txtGrupo})
            QVERIFY2(caixa->text().isEmpty() && caixa->isHidden(), qPrintable(caixa->objectName()));
        for (const QPlainTextEdit *caixa : {c.janela.txtMorada, c.janela.txtObs})
            QVERIFY2(caixa->toPlainText().isEmpty() && caixa->isHidden(), qPrintable(caixa->objectName()));
        for (const QWidget *imagem : c.janela.findChildren<QWidget *>(QRegularExpression(u"^img"_s)))
            QVERIFY2(imagem->isHidden(), qPrintable(imagem->objectName()));
        for (const QString &nome : comandos)
            QVERIFY2(!control<QAction>(c.janela, nome).isEnabled(), qPrintable(nome));
        QVERIFY(!c.janela.cmdEditar->isEnabled() && !c.janela.cmdEliminar->isEnabled());

        QCOMPARE(c.janela.cmdNovo->isEnabled(), novo);
        QCOMPARE(c.janela.ComboGrupos->ListIndex(), 0);
        QCOMPARE(c.janela.txtProcura->text(), u"procura"_s);
        QCOMPARE(c.janela.Thumb->pixmap().cacheKey(), foto.cacheKey());
    }

    // Failures

    void sem_semfoto_big_a_lista_falha()
    {
        ComJanela c;
        QVERIFY(QFile::remove(c.s.Ficheiro(u"semfoto_big.jpg"_s)));
        VERIFICAR_FALHA(c.lista.Carregar_Tabela(), Failure::InvalidPicture);
    }

    void um_comando_que_falha_acaba_o_acontecimento_na_caixa_de_erro()
    {
        ComJanela c;
        Encher(c, {u"Ana"_s, u"Rui"_s});
        c.s.Escrever(u"DROP TABLE TblLista"_s);
        VERIFICAR_FALHA(c.lista.Carregar_Tabela(), Failure::StoreError);
        // The emptying came first; what a server's list shows stays until there is something else to show.
        QCOMPARE(c.janela.ListaNomes->ListCount(), Sistema::Num_Servidor() ? 2 : 0);

        c.janela.show();
        c.s.caixas.Espera_Erro(Failure::StoreError);
        QTest::keyClick(c.janela.ComboGrupos, Qt::Key_Down);
        QVERIFY(c.s.caixas.Todas_Vistas());
    }

    // The group filter

    void o_filtro_comeca_por_todos_e_segue_pelos_grupos_por_nome()
    {
        ComJanela c;
        QCOMPARE(Linhas(*c.janela.ComboGrupos),
                 (QStringList{Linha(c.s.Texto(48), 0), u"Amigos:1"_s, u"Clientes:4"_s, u"Colegas:2"_s,
                              u"Familia:3"_s, u"Fornecedores:5"_s, u"Outros:6"_s}));
        QCOMPARE(c.janela.ComboGrupos->ListIndex(), 0);
        QCOMPARE(c.s.geral.GrupoActual, u"0"_s);
    }

    void encher_o_filtro_outra_vez_volta_a_todos_e_carrega_a_lista()
    {
        ComJanela c;
        Novo(c, u"Rui"_s, 1);
        Novo(c, u"Ana"_s, 2);
        Escolher_Grupo(c, u"Amigos"_s);
        c.lista.Carregar_Grupos();
        QCOMPARE(c.janela.ComboGrupos->ListCount(), 7);
        QCOMPARE(c.s.geral.GrupoActual, u"0"_s);
        QCOMPARE(c.janela.ListaNomes->ListCount(), 2);
    }

    void outras_caixas_de_grupos_enchem_se_sem_ItemData()
    {
        ComJanela c;
        ComboBox com;
        ComboBox sem;
        Preencher_Grupos(c.s.geral, com, DadosDoItem::Com);
        Preencher_Grupos(c.s.geral, sem, DadosDoItem::Sem);
        QCOMPARE(com.ListCount(), 6);
        QCOMPARE(com.ItemData(5), 6);
        QCOMPARE(sem.List(5), u"Outros"_s);
        QCOMPARE(sem.ItemData(5), 0);
        QCOMPARE(sem.ListIndex(), -1);
        QCOMPARE(c.s.geral.de.Rs("cmdListarGrupos").State(), Recordset::Closed);
    }

    void escrever_no_ComboGrupos_nada_faz()
    {
        ComJanela c;
        Encher(c, {u"Ana"_s, u"Rui"_s});
        c.janela.ListaNomes->setListIndex(1);
        c.janela.show();
        c.janela.ComboGrupos->setFocus();
        QTest::keyClicks(c.janela.ComboGrupos, u"ofc4"_s);
        QCOMPARE(c.janela.ComboGrupos->ListIndex(), 0);
        QCOMPARE(c.janela.ListaNomes->ListIndex(), 1);
    }

    void o_ComboGrupos_fica_amarelo_enquanto_tem_o_foco()
    {
        ComJanela c;
        c.janela.show();
        QVERIFY(QTest::qWaitForWindowActive(&c.janela));
        const auto fundo = [&] { return c.janela.ComboGrupos->palette().color(QPalette::Base); };
        c.janela.ComboGrupos->setFocus();
        QCOMPARE(fundo(), QColor(0xFF, 0xFF, 0xC0));
        c.janela.ListaNomes->setFocus();
        QCOMPARE(fundo(), QColor(Qt::white));
    }

    // Moves

    void mover_para_la_de_uma_ponta_da_a_volta_data()
    {
        QTest::addColumn<QStringList>("comandos"); // menu entry, then toolbar button
        QTest::addColumn<int>("inicio");
        QTest::addColumn<QStringList>("mostrados");
        QTest::newRow("anterior na primeira vai para a ultima")
            << QStringList{u"Anterior"_s, u"cima"_s} << 0 << QStringList{u"tel Rui"_s, u"tel Eva"_s};
        QTest::newRow("seguinte na ultima vai para a primeira")
            << QStringList{u"Seguinte"_s, u"baixo"_s} << 2 << QStringList{u"tel Ana"_s, u"tel Eva"_s};
    }
    void mover_para_la_de_uma_ponta_da_a_volta()
    {
        QFETCH(QStringList, comandos);
        QFETCH(int, inicio);
        ComJanela c;
        Encher(c, {u"Ana"_s, u"Eva"_s, u"Rui"_s});
        c.janela.ListaNomes->setListIndex(inicio);
        QStringList vistos;
        for (const QString &comando : comandos) {
            control<QAction>(c.janela, comando).trigger();
            vistos << No_Cartao(c);
        }
        QTEST(vistos, "mostrados");
    }

    void com_um_so_contacto_anterior_e_seguinte_enchem_o_cartao_outra_vez()
    {
        ComJanela c;
        Encher(c, {u"Ana"_s});
        for (QAction *comando : {c.janela.Anterior, c.janela.Seguinte, c.janela.cima, c.janela.baixo}) {
            const QString novo = u"novo "_s + comando->objectName();
            c.s.Escrever(u"UPDATE TblLista SET Telefone1='%1'"_s.arg(novo));
            comando->trigger();
            QCOMPARE(c.janela.ListaNomes->ListIndex(), 0);
            QCOMPARE(No_Cartao(c), novo);
        }
    }

    void sem_escolha_os_comandos_de_mover_estao_desligados()
    {
        ComJanela c;
        Encher(c, {u"Ana"_s, u"Rui"_s});
        for (QAction *comando : {c.janela.Anterior, c.janela.Seguinte, c.janela.cima, c.janela.baixo}) {
            QVERIFY(!comando->isEnabled());
            comando->trigger();
        }
        QCOMPARE(c.janela.ListaNomes->ListIndex(), -1);
    }

    // Mouse

    void um_clique_mostra_o_contacto_e_outro_na_mesma_linha_le_o_outra_vez()
    {
        ComJanela c;
        Encher(c, {u"Ana"_s, u"Rui"_s});
        c.janela.show();
        c.Carregar_Na_Linha(1);
        QCOMPARE(No_Cartao(c), u"tel Rui"_s);
        c.s.Escrever(u"UPDATE TblLista SET Telefone1='outro'"_s);
        c.Carregar_Na_Linha(1);
        QCOMPARE(No_Cartao(c), u"outro"_s);
    }

    void nem_Ctrl_nem_o_espaco_tiram_a_escolha()
    {
        ComJanela c;
        Encher(c, {u"Ana"_s, u"Rui"_s});
        c.janela.show();
        c.Carregar_Na_Linha(1);
        QListView &vista = *c.janela.ListaNomes;
        QTest::mouseClick(vista.viewport(), Qt::LeftButton, Qt::ControlModifier,
                          vista.visualRect(vista.model()->index(1, 0)).center());
        QCOMPARE(c.janela.ListaNomes->ListIndex(), 1);
        QTest::keyClick(&vista, Qt::Key_Space, Qt::ControlModifier);
        QCOMPARE(c.janela.ListaNomes->ListIndex(), 1);
        QTest::mouseClick(vista.viewport(), Qt::LeftButton, {},
                          vista.viewport()->rect().bottomLeft() - QPoint(-5, 5));
        QCOMPARE(c.janela.ListaNomes->ListIndex(), 1);
    }

    void o_botao_direito_abre_o_menu_do_contacto_escolhido()
    {
        ComJanela c;
        Encher(c, {u"Ana"_s, u"Rui"_s});
        c.janela.show();
        c.Carregar_Na_Linha(1);
        c.Carregar_Na_Linha(0, Qt::RightButton);
        QVERIFY(c.janela.RightClick->isVisible());
        c.janela.RightClick->hide();
        QCOMPARE(c.janela.ListaNomes->ListIndex(), 1); // the right button chooses nothing
    }

    void o_botao_direito_sem_escolha_nao_abre_menu()
    {
        ComJanela c;
        Encher(c, {u"Ana"_s, u"Rui"_s});
        c.janela.show();
        c.Carregar_Na_Linha(0, Qt::RightButton);
        QVERIFY(!c.janela.RightClick->isVisible());
        QCOMPARE(c.janela.ListaNomes->ListIndex(), -1);
    }

    void o_duplo_clique_edita()
    {
        ComJanela c;
        Encher(c, {u"Ana"_s, u"Rui"_s});
        c.janela.show();
        c.janela.cmdEditar->disconnect(SIGNAL(clicked(bool))); // the command itself is another's matter
        const QSignalSpy cliques(c.janela.cmdEditar, &QAbstractButton::clicked);
        c.Carregar_Na_Linha(1);
        QCOMPARE(cliques.size(), 0);
        QListView &vista = *c.janela.ListaNomes;
        QTest::mouseDClick(vista.viewport(), Qt::LeftButton, {},
                           vista.visualRect(vista.model()->index(1, 0)).center());
        QCOMPARE(No_Cartao(c), u"tel Rui"_s);
        QCOMPARE(cliques.size(), 1);
    }

    // What other desks have done meanwhile

    void ao_seguir_os_outros_fica_a_escolha_e_o_que_se_via_data()
    {
        QTest::addColumn<int>("escolhida"); // -1: none
        QTest::addColumn<int>("topo");
        QTest::newRow("a primeira linha") << 0 << 0;
        QTest::newRow("uma do meio") << 30 << 27;
        QTest::newRow("a ultima") << 49 << 41;
        QTest::newRow("fora de vista fica a linha de cima") << 0 << 27;
        QTest::newRow("sem escolha fica a linha de cima") << -1 << 10;
    }
    void ao_seguir_os_outros_fica_a_escolha_e_o_que_se_via()
    {
        QFETCH(int, escolhida);
        QFETCH(int, topo);
        ComJanela c;
        ListBox &lista = Com_Cinquenta(c, escolhida, topo);
        const int acima = lista.verticalScrollBar()->value();
        const QString nome = escolhida < 0 ? QString() : lista.List(escolhida);
        const QString cartao = No_Cartao(c);
        QSignalSpy cliques(&lista, &ListBox::Click);
        Novo(c, u"Aaa"_s);
        c.lista.Seguir_Contactos({}, true);
        QCOMPARE(lista.List(0), u"Aaa"_s);
        QCOMPARE(lista.ListIndex(), escolhida < 0 ? -1 : escolhida + 1);
        if (escolhida >= 0) QCOMPARE(lista.List(lista.ListIndex()), nome);
        if (escolhida >= 0) QCOMPARE(c.s.geral.IndiceContacto, escolhida + 1);
        QCOMPARE(lista.verticalScrollBar()->value(), acima + 1);
        QCOMPARE(No_Cartao(c), cartao);
        QCOMPARE(cliques.size(), 0); // nobody has chosen anything
        QVERIFY(c.janela.lblContador->text().endsWith(u" 51"_s));
    }

    void um_nome_novo_nao_muda_a_altura_do_escolhido_ou_senao_da_linha_de_cima_data()
    {
        QTest::addColumn<int>("escolhida");
        QTest::addColumn<int>("topo");
        QTest::addColumn<QString>("novo");
        QTest::addColumn<int>("depois"); // the row at the top
        QTest::newRow("entre o topo e o escolhido") << 30 << 27 << u"Nome 38 A"_s << 28;
        QTest::newRow("entre o escolhido, mais acima, e o topo") << 0 << 27 << u"Nome 20 A"_s << 28;
        QTest::newRow("entre o topo e o escolhido, mais abaixo") << 49 << 10 << u"Nome 30 A"_s << 10;
    }
    void um_nome_novo_nao_muda_a_altura_do_escolhido_ou_senao_da_linha_de_cima()
    {
        QFETCH(int, escolhida);
        QFETCH(int, topo);
        QFETCH(QString, novo);
        ComJanela c;
        ListBox &lista = Com_Cinquenta(c, escolhida, topo);
        Novo(c, novo);
        c.lista.Seguir_Contactos({}, true);
        QCOMPARE(lista.ListCount(), 51);
        QTEST(lista.verticalScrollBar()->value(), "depois");
    }

    void o_primeiro_de_outro_posto_entra_numa_lista_vazia()
    {
        ComJanela c;
        c.lista.Carregar_Tabela();
        Novo(c, u"Ana"_s);
        c.lista.Seguir_Contactos({}, true);
        QCOMPARE(c.janela.ListaNomes->ListCount(), 1);
        QCOMPARE(c.janela.ListaNomes->ListIndex(), -1);
    }

    void o_escolhido_que_desaparece_noutro_posto_larga_o_cartao()
    {
        ComJanela c;
        Encher(c, {u"Ana"_s, u"Rui"_s});
        c.janela.ListaNomes->setListIndex(0);
        QCOMPARE(No_Cartao(c), u"tel Ana"_s);
        const int ana = c.janela.ListaNomes->ItemData(0);
        c.s.Escrever(u"DELETE FROM TblLista WHERE ID=%1"_s.arg(ana));
        c.lista.Seguir_Contactos({ana}, false);
        QCOMPARE(c.janela.ListaNomes->ListCount(), 1);
        QCOMPARE(c.janela.ListaNomes->ListIndex(), -1);
        QCOMPARE(No_Cartao(c), QString());
        QCOMPARE(c.s.geral.de.Rs("cmdEditarNome").State(), Recordset::Closed);
        QVERIFY(c.janela.lblContador->text().endsWith(u" 1"_s));
    }

    void com_a_mesma_lista_nada_se_enche_de_novo_e_o_cartao_le_se_so_se_pode_ter_mudado_data()
    {
        QTest::addColumn<int>("qual"); // of the two contacts, the first on the card
        QTest::addColumn<bool>("talvez_outros");
        QTest::addColumn<QString>("cartao");
        QTest::newRow("o do cartao") << 0 << false << u"novo"_s;
        QTest::newRow("o outro") << 1 << false << u"tel Ana"_s;
        QTest::newRow("talvez todos") << 1 << true << u"novo"_s;
    }
    void com_a_mesma_lista_nada_se_enche_de_novo_e_o_cartao_le_se_so_se_pode_ter_mudado()
    {
        QFETCH(int, qual);
        QFETCH(bool, talvez_outros);
        QFETCH(QString, cartao);
        ComJanela c;
        Encher(c, {u"Ana"_s, u"Rui"_s});
        c.janela.ListaNomes->setListIndex(0);
        c.s.Escrever(u"UPDATE TblLista SET Telefone1='novo'"_s);
        const QSignalSpy cheia(c.janela.ListaNomes->model(), &QAbstractItemModel::modelReset);
        c.lista.Seguir_Contactos({c.janela.ListaNomes->ItemData(qual)}, talvez_outros);
        QCOMPARE(cheia.size(), 0);
        QCOMPARE(No_Cartao(c), cartao);
    }

    void o_escolhido_que_passa_a_primeira_linha_continua_escolhido()
    {
        ComJanela c;
        Encher(c, {u"Ana"_s, u"Rui"_s});
        c.janela.ListaNomes->setListIndex(1);
        const int ana = c.janela.ListaNomes->ItemData(0);
        c.s.Escrever(u"DELETE FROM TblLista WHERE ID=%1"_s.arg(ana));
        c.lista.Seguir_Contactos({ana}, false);
        QCOMPARE(c.janela.ListaNomes->ListIndex(), 0);
        QCOMPARE(c.s.geral.IndiceContacto, 0);
        QCOMPARE(No_Cartao(c), u"tel Rui"_s);
    }

    void o_do_cartao_com_outro_nome_muda_de_linha()
    {
        ComJanela c;
        Encher(c, {u"Ana"_s, u"Rui"_s});
        c.janela.ListaNomes->setListIndex(0);
        const int ana = c.janela.ListaNomes->ItemData(0);
        c.s.Escrever(u"UPDATE TblLista SET Nome='Zita' WHERE ID=%1"_s.arg(ana));
        c.lista.Seguir_Contactos({ana}, false);
        QCOMPARE(c.janela.ListaNomes->List(1), u"Zita"_s);
        QCOMPARE(c.janela.ListaNomes->ListIndex(), 1);
        QCOMPARE(No_Cartao(c), u"tel Ana"_s);
    }

    void ao_seguir_os_grupos_o_escolhido_fica_e_o_que_desaparece_da_lugar_a_todos()
    {
        ComJanela c;
        Encher(c, {u"Ana"_s});
        Novo(c, u"Rui"_s, 4);
        c.lista.Carregar_Grupos();
        ComboBox &grupos = *c.janela.ComboGrupos;
        Escolher_Grupo(c, u"Clientes"_s);
        const QSignalSpy cliques(&grupos, &ComboBox::Click);
        const QSignalSpy enchida(grupos.model(), &QAbstractItemModel::rowsInserted);
        c.s.Escrever(u"UPDATE TblLista SET Telefone1='novo'"_s);
        c.lista.Seguir_Grupos(); // nothing is different, and nothing is read anew
        QCOMPARE(grupos.ListCount(), 7);
        QCOMPARE(enchida.size(), 0);
        QCOMPARE(No_Cartao(c), u"tel Rui"_s);
        QCOMPARE(c.s.geral.de.Rs("cmdListarGrupos").State(), Recordset::Closed);
        c.s.Novo_Grupo(u"Aaa"_s);
        c.lista.Seguir_Grupos();
        QCOMPARE(grupos.List(0), c.s.Texto(48));
        QCOMPARE(grupos.List(1), u"Aaa"_s);
        QCOMPARE(grupos.currentText(), u"Clientes"_s);
        QCOMPARE(c.janela.ListaNomes->ListCount(), 1);
        c.s.Escrever(u"DELETE FROM TblGrupos WHERE NomeGrupo='Clientes'"_s);
        c.lista.Seguir_Grupos();
        QCOMPARE(grupos.ListIndex(), 0);
        QCOMPARE(c.s.geral.GrupoActual, u"0"_s);
        QCOMPARE(grupos.ListCount(), 7);
        QCOMPARE(c.janela.ListaNomes->List(0), u"Ana"_s);
        QCOMPARE(cliques.size(), 0);
    }

    void sem_grupo_escolhido_ficam_todos()
    {
        ComJanela c;
        Encher(c, {u"Ana"_s, u"Rui"_s});
        {
            const QSignalBlocker sem_clique(c.janela.ComboGrupos);
            c.janela.ComboGrupos->setListIndex(-1);
        }
        c.s.Novo_Grupo(u"Aaa"_s);
        c.lista.Seguir_Grupos();
        QCOMPARE(c.janela.ComboGrupos->ListIndex(), 0);
        QCOMPARE(c.janela.ListaNomes->ListCount(), 2);
    }
};

MORVEX_TESTE(TestListaContactos)
#include "test_ListaContactos.moc"
