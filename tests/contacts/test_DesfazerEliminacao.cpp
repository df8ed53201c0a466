// Undoing deletions of contacts and of groups.
#include "ComGrupos.h"
#include "contacts/frmDeleteGroup.h"
#include "controls/Controls.h"
#include "data/CartoesGuardados.h"
#include "session/Legendas.h"
#include "testlib/FalhaDita.h"
#include "testlib/FicheiroAberto.h"
#include "testlib/FotografiaNaBase.h"
#include "testlib/SeteLinguas.h"

using namespace Qt::StringLiterals;

namespace
{
struct Apagador : ComGrupos {
    Apagador() { janela.setWindowTitle(u"Morvex 1.0"_s); }

    void Esperar(int resposta)
    {
        s.caixas.Espera(u"*"_s, box::question | box::yesNo, u"Morvex 1.0"_s, resposta);
    }
    void Esperar_Sim() { Esperar(answer::yes); }

    void Eliminar(int id)
    {
        lista.Carregar_Tabela();
        ComJanela::Escolher(id);
        Esperar_Sim();
        janela.cmdEliminar->click();
        QVERIFY(s.caixas.Todas_Vistas());
        QVERIFY(janela.DesfazerEliminar->isEnabled());
    }

    // The group with its contacts, or after moving them to that other one.
    void Eliminar_Grupo(int grupo, int destino = 0)
    {
        bool veio = false;
        accoes::Quando_Abrir<frmDeleteGroup>([&](frmDeleteGroup &form) {
            veio = true;
            ComGrupos::Escolher(*form.ComboGrupos, grupo);
            (destino == 0 ? form.OptionEliminar : form.OptionMover)->click();
            if (destino != 0) ComGrupos::Escolher(*form.ComboGrupos2, destino);
            form.cmdOk->click();
        });
        janela.EliminarGrupos->trigger();
        QVERIFY(veio);
        QVERIFY(!Grupos_Por_Id().contains(QString::number(grupo)));
    }

    // As the form of duplicates does it: the one that goes leaves a number, and its card where there is none.
    void Juntar(const QString &fica, const QString &vai, bool com_cartao)
    {
        desfazer.Juntar_Contactos(fica, vai, [&] {
            const QString grupo = QString::number(ComGrupos::Amigos);
            const QString vazio;
            s.geral.de.Executar("cmdUpdateNome",
                                {u"Rui"_s, vazio, vazio, u"2"_s, vazio, vazio, vazio, vazio, vazio, vazio, vazio, vazio,
                                 vazio, vazio, vazio, vazio, grupo, fica});
            s.geral.de.Executar("cmdEliminarNome", {vai});
            if (!com_cartao) CartoesGuardados(s.geral.de).Guardar({fica, u"u-1"_s, "o da Rita"});
        });
    }

    void Desfazer()
    {
        QVERIFY(janela.DesfazerEliminar->isEnabled());
        janela.DesfazerEliminar->trigger();
        QVERIFY(s.caixas.Todas_Vistas());
    }

    // As the keys reach it: a failure ends in the error box.
    void Desfazer_Com_Erro()
    {
        janela.show();
        QVERIFY(QTest::qWaitForWindowActive(&janela));
        s.caixas.Espera_Erro(Failure::StoreError);
        QTest::keyClick(janela.ListaNomes, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(s.caixas.Todas_Vistas());
        QVERIFY(janela.DesfazerEliminar->isEnabled());
    }

    QStringList Tudo() { return Grupos() + s.Linhas(u"SELECT * FROM TblLista ORDER BY ID"_s); }
    QStringList Contactos() { return s.Linhas(u"SELECT ID, Nome, Grupo FROM TblLista ORDER BY ID"_s); }
    QStringList Cartoes()
    {
        return s.Linhas(u"SELECT IDContacto, UID, conta, href, etag, %1, resumo FROM TblCartoes "
                        "ORDER BY IDContacto"_s.arg(s.Hex(u"cartao"_s)));
    }
    QStringList Grupos_Por_Id() { return s.Linhas(u"SELECT ID FROM TblGrupos"_s); }

    QString Escolhido() const
    {
        const int linha = janela.ListaNomes->ListIndex();
        return linha < 0 ? QString() : janela.ListaNomes->List(linha);
    }

    bool Pode_Desfazer() const { return janela.DesfazerEliminar->isEnabled(); }
};

QChar Mnemonica(const QString &legenda)
{
    const qsizetype sinal = legenda.indexOf(u'&');
    return sinal < 0 ? QChar() : legenda.at(sinal + 1).toLower();
}
} // namespace

class TestDesfazerEliminacao : public QObject
{
    Q_OBJECT

    using Gesto = std::function<void(Apagador &)>;

    static Gesto Tecla_Delete(const QString &caixa)
    {
        return [caixa](Apagador &a) {
            auto &com_foco = control<QWidget>(a.janela, caixa);
            com_foco.setFocus();
            QTest::keyClick(&com_foco, Qt::Key_Delete);
        };
    }

private Q_SLOTS:
    void ctrl_z_desfaz_a_eliminacao_por_qualquer_via_data()
    {
        QTest::addColumn<Gesto>("gesto");
        QTest::newRow("botao") << Gesto([](Apagador &a) { a.janela.cmdEliminar->click(); });
        QTest::newRow("menu") << Gesto([](Apagador &a) { a.janela.EliminarContacto->trigger(); });
        QTest::newRow("barra") << Gesto([](Apagador &a) { a.janela.eliminar_contacto->trigger(); });
        QTest::newRow("botao direito") << Gesto([](Apagador &a) { a.janela.RightClickEliminar->trigger(); });
        QTest::newRow("tecla na lista") << Tecla_Delete(u"ListaNomes"_s);
        QTest::newRow("tecla na procura") << Tecla_Delete(u"txtProcura"_s);
    }
    void ctrl_z_desfaz_a_eliminacao_por_qualquer_via()
    {
        QFETCH(Gesto, gesto);
        Apagador a;
        a.Contacto(u"Abel"_s, ComGrupos::Amigos);
        const int berta =
            a.s.Novo_Contacto({{u"Nome"_s, u"Berta"_s}, {u"Telefone1"_s, u"213"_s}, {u"Grupo"_s, 6}});
        const QStringList antes = a.Tudo();
        a.janela.show();
        QVERIFY(QTest::qWaitForWindowActive(&a.janela));
        a.lista.Carregar_Tabela();
        a.janela.txtProcura->setFocus();
        QTest::keyClicks(a.janela.txtProcura, u"Be"_s);
        QCOMPARE(a.Escolhido(), u"Berta"_s);
        a.Esperar_Sim();
        gesto(a);
        QVERIFY(a.Tudo() != antes);
        a.lista.Limpar_Dados(); // nothing on view, as after any reload of many
        QTest::keyClick(a.janela.focusWidget(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(a.Tudo(), antes);
        QCOMPARE(a.Escolhido(), u"Berta"_s);
        QCOMPARE(int{a.s.geral.IDContacto}, berta);
        QCOMPARE(a.janela.txtTelefone1->text(), u"213"_s);
        QVERIFY(!a.Pode_Desfazer());
    }

    void ctrl_z_vale_em_todo_o_cartao_data()
    {
        QTest::addColumn<QString>("controlo");
        for (const char *controlo : {"txtEmail1", "txtWebsite", "txtMorada", "txtObs", "Thumb", "ComboGrupos",
                                     "cmdNovo", "ListaNomes"})
            QTest::newRow(controlo) << controlo;
    }
    void ctrl_z_vale_em_todo_o_cartao()
    {
        QFETCH(QString, controlo);
        Apagador a;
        a.s.Novo_Contacto({{u"Nome"_s, u"Ana"_s},
                           {u"Email1"_s, u"a@x.example"_s},
                           {u"Website"_s, u"x.example"_s},
                           {u"Morada"_s, u"Rua 1"_s},
                           {u"Obs"_s, u"notas"_s}});
        a.Eliminar(a.Contacto(u"Berta"_s, ComGrupos::Outros)); // Ana alone is shown
        a.janela.show();
        QVERIFY(QTest::qWaitForWindowActive(&a.janela));
        auto &com_foco = control<QWidget>(a.janela, controlo);
        com_foco.setFocus();
        QVERIFY(com_foco.hasFocus());
        QTest::keyClick(&com_foco, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(a.Escolhido(), u"Berta"_s);
    }

    void texto_escrito_depois_da_eliminacao_desfaz_se_primeiro()
    {
        Apagador a;
        a.Contacto(u"Abel"_s, ComGrupos::Outros);
        a.Eliminar(a.Contacto(u"Berta"_s, ComGrupos::Outros));
        a.janela.show();
        QVERIFY(QTest::qWaitForWindowActive(&a.janela));
        a.janela.txtProcura->setFocus();
        QTest::keyClicks(a.janela.txtProcura, u"Ab"_s);
        QTest::keyClick(a.janela.txtProcura, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(a.janela.txtProcura->text(), QString());
        QCOMPARE(a.Contactos().size(), 1);
        QVERIFY(a.Pode_Desfazer());
    }

    void o_contacto_volta_com_todas_as_colunas_nulas_ou_vazias()
    {
        Apagador a;
        const int ana = a.s.Novo_Contacto({{u"Nome"_s, u"Ana «Ñandú» 😀"_s},
                                           {u"Dia"_s, u"07"_s},
                                           {u"Obs"_s, u"uma\r\nduas"_s},
                                           {u"Fotografia"_s, u"praca_sample.jpg"_s}});
        a.s.Escrever(u"UPDATE TblLista SET MSNMessenger='2', Telefone1=NULL, Website=NULL, Fax=''"_s);
        const QStringList antes = a.Tudo();
        QVERIFY(antes.constLast().contains(u"<Null>"_s));
        a.Eliminar(ana);
        a.Desfazer();
        QCOMPARE(a.Tudo(), antes);
    }

    void o_numero_volta_e_nao_se_da_a_mais_ninguem()
    {
        Apagador a;
        const int ana = a.Contacto(u"Ana"_s, ComGrupos::Outros);
        a.Eliminar(ana);
        const int berta = a.Contacto(u"Berta"_s, ComGrupos::Outros);
        a.Desfazer();
        const int carla = a.Contacto(u"Carla"_s, ComGrupos::Outros);
        QCOMPARE(a.Contactos(), (QStringList{u"%1|Ana|6"_s.arg(ana), u"%1|Berta|6"_s.arg(berta),
                                             u"%1|Carla|6"_s.arg(carla)}));
        QCOMPARE(carla, berta + 1);
    }

    void as_eliminacoes_desfazem_se_da_ultima_para_a_primeira()
    {
        Apagador a;
        const int ana = a.Contacto(u"Ana"_s, ComGrupos::Amigos);
        const int berta = a.Contacto(u"Berta"_s, ComGrupos::Amigos);
        const QStringList antes = a.Tudo();
        a.Eliminar(ana);
        a.Eliminar(berta);
        a.Eliminar_Grupo(ComGrupos::Amigos);
        a.Desfazer();
        QCOMPARE(a.Contactos(), QStringList());
        a.Desfazer();
        QCOMPARE(a.Escolhido(), u"Berta"_s);
        a.Desfazer();
        QCOMPARE(a.Escolhido(), u"Ana"_s);
        QCOMPARE(a.Tudo(), antes);
        QVERIFY(!a.Pode_Desfazer());
    }

    void sem_eliminacao_nao_ha_nada_para_desfazer()
    {
        Apagador a;
        QVERIFY(!a.Pode_Desfazer());
        a.Mostrar({{u"Nome"_s, u"Ana"_s}});
        a.Esperar(answer::no);
        a.janela.cmdEliminar->click();
        QVERIFY(!a.Pode_Desfazer());
    }

    void com_o_filtro_noutro_grupo_o_contacto_volta_a_vista()
    {
        Apagador a;
        a.Contacto(u"Abel"_s, ComGrupos::Amigos);
        a.Eliminar(a.Contacto(u"Berta"_s, ComGrupos::Outros));
        ComGrupos::Escolher(*a.janela.ComboGrupos, ComGrupos::Amigos);
        a.Desfazer();
        QCOMPARE(a.janela.ComboGrupos->ListIndex(), 0);
        QCOMPARE(a.Escolhido(), u"Berta"_s);
    }

    void um_grupo_eliminado_com_os_contactos_volta_com_eles()
    {
        Apagador a;
        a.Contacto(u"Abel"_s, ComGrupos::Amigos);
        a.Contacto(u"Berta"_s, ComGrupos::Outros);
        a.Contacto(u"Carla"_s, ComGrupos::Amigos);
        const QStringList antes = a.Tudo();
        a.Eliminar_Grupo(ComGrupos::Amigos);
        QCOMPARE(a.Contactos().size(), 1);
        a.Desfazer();
        QCOMPARE(a.Tudo(), antes);
        QCOMPARE(a.janela.ComboGrupos->ChosenItemData(), u"1"_s);
        QCOMPARE(a.Nomes(), (QStringList{u"Abel"_s, u"Carla"_s}));
        QCOMPARE(a.Escolhido(), u"Abel"_s);
    }

    void com_o_contacto_vai_se_o_seu_cartao_e_desfeito_volta_com_tudo_e_com_a_fotografia()
    {
        Apagador a;
        const QString nome = Por_Na_Base(a.s, {20, 20});
        const int id = a.s.Novo_Contacto({{u"Nome"_s, u"Ana"_s}, {u"Fotografia"_s, nome}});
        const int outro = a.s.Novo_Contacto({{u"Nome"_s, u"Rui"_s}});
        CartoesGuardados cartoes(a.s.geral.de);
        cartoes.Guardar({QString::number(id), u"u"_s, QByteArray("BEGIN\0\xff", 7)});
        cartoes.Guardar({QString::number(outro), u"v"_s, "x"});
        a.s.Escrever(u"UPDATE TblCartoes SET conta='c', href='h', etag='e' WHERE UID='u'"_s);
        const QStringList antes = a.Cartoes();
        a.Eliminar(id);
        QCOMPARE(a.s.Linhas(u"SELECT IDContacto FROM TblCartoes"_s), QStringList{QString::number(outro)});
        a.Desfazer();
        QCOMPARE(a.Cartoes(), antes);
        QCOMPARE(a.janela.Thumb->pixmap().toImage().pixel(10, 10), qRgb(200, 0, 0));
    }

    void com_um_grupo_vao_se_os_cartoes_dos_seus_contactos_e_voltam()
    {
        Apagador a;
        CartoesGuardados cartoes(a.s.geral.de);
        int quantos = 0;
        for (const auto &[nome, grupo] : {std::pair(u"Abel"_s, ComGrupos::Amigos),
                                          {u"Carla"_s, ComGrupos::Amigos},
                                          {u"Rui"_s, ComGrupos::Familia}})
            cartoes.Guardar({QString::number(a.Contacto(nome, grupo)), nome, QByteArray::number(++quantos)});
        const QStringList antes = a.Cartoes();
        a.Eliminar_Grupo(ComGrupos::Amigos);
        QCOMPARE(a.s.Linhas(u"SELECT UID FROM TblCartoes"_s), QStringList{u"Rui"_s});
        a.Desfazer();
        QCOMPARE(a.Cartoes(), antes);
        a.Eliminar_Grupo(ComGrupos::Amigos, ComGrupos::Familia); // moved, they keep them
        QCOMPARE(a.Cartoes(), antes);
        a.Desfazer();
        QCOMPARE(a.Cartoes(), antes);
    }

    void com_um_numero_novo_o_cartao_segue_o_contacto()
    {
        Apagador a;
        const int id = a.s.Novo_Contacto({{u"Nome"_s, u"Ana"_s}});
        CartoesGuardados cartoes(a.s.geral.de);
        cartoes.Guardar({QString::number(id), u"da Ana"_s, "x"});
        a.Eliminar(id);
        a.s.Escrever(u"INSERT INTO TblLista (ID, Nome, Grupo) VALUES (%1, 'Intruso', 6)"_s.arg(id));
        cartoes.Guardar({QString::number(id), u"do intruso"_s, "y"});
        a.Esperar_Sim();
        a.Desfazer();
        const QString novo = QString::number(a.s.Ultimo_Id(u"TblLista"_s));
        QCOMPARE(a.s.Linhas(u"SELECT IDContacto, UID FROM TblCartoes ORDER BY IDContacto"_s),
                 (QStringList{QString::number(id) + u"|do intruso"_s, novo + u"|da Ana"_s}));
    }

    void os_contactos_movidos_voltam_ao_seu_grupo()
    {
        Apagador a;
        a.Contacto(u"Abel"_s, ComGrupos::Amigos);
        a.Contacto(u"Berta"_s, ComGrupos::Familia); // was there before
        const QStringList antes = a.Tudo();
        a.Eliminar_Grupo(ComGrupos::Amigos, ComGrupos::Familia);
        a.Desfazer();
        QCOMPARE(a.Tudo(), antes);
    }

    void um_contacto_que_entretanto_mudou_de_grupo_fica_onde_esta()
    {
        Apagador a;
        const int abel = a.Contacto(u"Abel"_s, ComGrupos::Amigos);
        a.Eliminar_Grupo(ComGrupos::Amigos, ComGrupos::Familia);
        a.s.Escrever(u"UPDATE TblLista SET Grupo=6"_s);
        a.Desfazer();
        QCOMPARE(a.Grupo_Do_Contacto(abel), u"6"_s);
        QVERIFY(a.Filtro().contains(u"Amigos"_s));
    }

    void sem_o_direito_nada_volta_e_continua_a_poder_se_data()
    {
        QTest::addColumn<bool>("grupo");
        QTest::newRow("contacto") << false;
        QTest::newRow("grupo") << true;
    }
    void sem_o_direito_nada_volta_e_continua_a_poder_se()
    {
        QFETCH(bool, grupo);
        Apagador a;
        const int ana = a.Contacto(u"Ana"_s, ComGrupos::Amigos);
        if (grupo)
            a.Eliminar_Grupo(ComGrupos::Amigos);
        else
            a.Eliminar(ana);
        bool &direito = grupo ? a.s.geral.SessaoActual.Grupos : a.s.geral.SessaoActual.Eliminar;
        direito = false;
        a.s.caixas.Espera(a.s.Texto(102), box::stop, u"Morvex"_s);
        a.Desfazer();
        QCOMPARE(a.Contactos(), QStringList());
        direito = true;
        a.Desfazer();
        QCOMPARE(a.Contactos().size(), 1);
    }

    void ninguem_desfaz_o_que_outro_utilizador_eliminou()
    {
        Apagador a;
        a.Eliminar(a.Contacto(u"Ana"_s, ComGrupos::Outros));
        const QString dono = a.s.geral.SessaoActual.IdUtilizador;
        a.s.geral.SessaoActual.IdUtilizador = u"99"_s;
        a.janela.DesfazerEliminar->trigger();
        QCOMPARE(a.Contactos(), QStringList());
        QVERIFY(!a.Pode_Desfazer());
        a.Eliminar(a.Contacto(u"Berta"_s, ComGrupos::Outros)); // on top of the other's
        a.s.geral.SessaoActual.IdUtilizador = dono;
        a.Desfazer();
        QCOMPARE(a.Escolhido(), u"Ana"_s);
        Q_EMIT a.janela.Contactos->aboutToShow();
        QVERIFY(!a.Pode_Desfazer());
    }

    void sem_o_seu_grupo_o_contacto_volta_para_outro_e_ouve_se_qual_data()
    {
        QTest::addColumn<QString>("mudanca");
        QTest::addColumn<QString>("outro"); // the ID of the group into which the contact comes
        QTest::newRow("grupo do mesmo nome") << u"UPDATE TblGrupos SET NomeGrupo='aMIGOS' WHERE ID=5;UPDATE "
                                                u"TblGrupos SET NomeGrupo='AA' WHERE "
                                                "ID=4;DELETE FROM TblGrupos WHERE ID=1"_s
                                             << u"5"_s;
        QTest::newRow("o primeiro a vista") << u"DELETE FROM TblGrupos WHERE ID=1"_s << u"4"_s;
        QTest::newRow("passou a ser de outro")
            << u"UPDATE TblGrupos SET IdUtilizador=99 WHERE ID IN (1, 4)"_s << u"2"_s;
    }
    void sem_o_seu_grupo_o_contacto_volta_para_outro_e_ouve_se_qual()
    {
        QFETCH(QString, mudanca);
        QFETCH(QString, outro);
        Apagador a;
        const int ana = a.Contacto(u"Ana"_s, ComGrupos::Amigos);
        a.Eliminar(ana);
        for (const QString &instrucao : mudanca.split(u';'))
            a.s.Escrever(instrucao);
        const QString nome = a.s.Linhas(u"SELECT NomeGrupo FROM TblGrupos WHERE ID="_s + outro).constFirst();
        a.s.caixas.Espera(
            u"O grupo «Amigos» já não está disponível. O contacto voltou para o grupo «%1»."_s.arg(nome),
            box::information, u"Morvex 1.0"_s);
        a.Desfazer();
        QCOMPARE(a.Contactos(), QStringList(u"%1|Ana|%2"_s.arg(ana).arg(outro)));
        QCOMPARE(a.Escolhido(), u"Ana"_s);
    }

    void um_grupo_com_outro_nome_continua_a_ser_o_do_contacto()
    {
        Apagador a;
        const int ana = a.Contacto(u"Ana"_s, ComGrupos::Amigos);
        a.Eliminar(ana);
        a.s.Escrever(u"UPDATE TblGrupos SET NomeGrupo='Conhecidos' WHERE ID=1"_s);
        a.Desfazer();
        QCOMPARE(a.Grupo_Do_Contacto(ana), u"1"_s);
    }

    void sem_grupo_nenhum_ouve_se_e_depois_ainda_se_desfaz()
    {
        Apagador a;
        const int ana = a.Contacto(u"Ana"_s, ComGrupos::Amigos);
        a.Eliminar(ana);
        a.s.Escrever(u"UPDATE TblGrupos SET IdUtilizador=99"_s);
        a.s.caixas.Espera_Qualquer(box::stop, u"Morvex 1.0"_s);
        a.Desfazer();
        QCOMPARE(a.Contactos(), QStringList());
        QCOMPARE(a.s.geral.de.Rs("cmdListarGrupos").State(), Recordset::Closed);
        a.s.Escrever(u"UPDATE TblGrupos SET IdUtilizador=0"_s);
        a.Desfazer();
        QCOMPARE(a.Grupo_Do_Contacto(ana), u"1"_s);
    }

    void com_o_numero_ocupado_pergunta_se_por_um_novo_data()
    {
        QTest::addColumn<bool>("grupo");
        QTest::newRow("contacto") << false;
        QTest::newRow("grupo") << true;
    }
    void com_o_numero_ocupado_pergunta_se_por_um_novo()
    {
        QFETCH(bool, grupo);
        Apagador a;
        const int ana = a.Contacto(u"Ana"_s, ComGrupos::Amigos);
        if (grupo) {
            a.Eliminar_Grupo(ComGrupos::Amigos);
            a.s.Escrever(u"INSERT INTO TblGrupos (ID, NomeGrupo) VALUES (1, 'Intruso')"_s);
        } else {
            a.Eliminar(ana);
            a.s.Escrever(u"INSERT INTO TblLista (ID, Nome, Grupo) VALUES (%1, 'Intruso', 6)"_s.arg(ana));
        }
        const QStringList antes = a.Tudo();
        a.Esperar(answer::no);
        a.Desfazer();
        QCOMPARE(a.Tudo(), antes);
        a.Esperar_Sim();
        a.Desfazer();
        const QStringList novo = a.s.Linhas(
            u"SELECT TblLista.ID, Nome, NomeGrupo FROM TblLista JOIN TblGrupos ON Grupo=TblGrupos.ID WHERE Nome='Ana'"_s);
        QCOMPARE(novo, QStringList(u"%1|Ana|Amigos"_s.arg(grupo ? ana : ana + 1)));
        QVERIFY(a.Tudo().join(u';').contains(u"Intruso"_s));
        QCOMPARE(a.Escolhido(), u"Ana"_s);
    }

    // The group and the presence change by themselves: no other contact has taken the number.
    void o_que_outro_ja_trouxe_de_volta_fica_como_esta_data()
    {
        QTest::addColumn<QString>("entretanto");
        QTest::addColumn<int>("grupo");
        QTest::newRow("tal e qual") << QString() << int(ComGrupos::Amigos);
        QTest::newRow("com outra presenca") << u"MSNMessenger='2'"_s << int(ComGrupos::Amigos);
        QTest::newRow("noutro grupo") << u"Grupo=6"_s << int(ComGrupos::Outros);
    }
    void o_que_outro_ja_trouxe_de_volta_fica_como_esta()
    {
        QFETCH(QString, entretanto);
        QFETCH(int, grupo);
        Apagador a;
        const int ana = a.Contacto(u"Ana"_s, ComGrupos::Amigos);
        a.s.Escrever(u"CREATE TABLE Copia AS SELECT * FROM TblLista"_s);
        a.Eliminar(ana);
        a.s.Escrever(u"INSERT INTO TblLista SELECT * FROM Copia"_s);
        if (!entretanto.isEmpty()) a.s.Escrever(u"UPDATE TblLista SET "_s + entretanto);
        const QStringList antes = a.Tudo();
        a.Desfazer(); // no question is announced
        QCOMPARE(a.Tudo(), antes);
        QCOMPARE(a.Contactos(), QStringList(u"%1|Ana|%2"_s.arg(ana).arg(grupo)));
    }

    void um_grupo_volta_inteiro_ou_nada_dele_volta()
    {
        Apagador a;
        a.Contacto(u"Abel"_s, ComGrupos::Amigos);
        a.Contacto(u"Berta"_s, ComGrupos::Amigos);
        const QStringList antes = a.Tudo();
        a.Eliminar_Grupo(ComGrupos::Amigos);
        const QStringList sem = a.Tudo();
        a.s.Recusar(u"INSERT"_s, u"TblLista"_s, u"new.Nome='Berta'"_s);
        a.Desfazer_Com_Erro();
        QCOMPARE(a.Tudo(), sem);
        a.s.Deixar_De_Recusar();
        a.Desfazer();
        QCOMPARE(a.Tudo(), antes);
    }

    void numa_base_em_uso_ouve_se_e_depois_ainda_se_desfaz()
    {
        Apagador a;
        const int ana = a.Contacto(u"Ana"_s, ComGrupos::Amigos);
        a.Eliminar(ana);
        a.s.Trancar();
        a.Desfazer_Com_Erro();
        a.s.Destrancar();
        a.Desfazer();
        QCOMPARE(a.Grupo_Do_Contacto(ana), u"1"_s);
    }

    void com_a_base_fora_do_lugar_ouve_se_e_depois_ainda_se_desfaz()
    {
        SO_NUM_FICHEIRO("it is moved away");
        if (!um_aberto_troca_se) QSKIP("nobody moves a file away here that is open");
        Apagador a;
        const int ana = a.Contacto(u"Ana"_s, ComGrupos::Amigos);
        a.Eliminar(ana);
        QVERIFY(QFile::rename(a.s.Base(), a.s.Ficheiro(u"longe"_s)));
        a.Desfazer_Com_Erro();
        QVERIFY(QFile::rename(a.s.Ficheiro(u"longe"_s), a.s.Base()));
        a.Desfazer();
        QCOMPARE(a.Grupo_Do_Contacto(ana), u"1"_s);
    }

    void um_contacto_que_ja_nao_esta_la_nao_deixa_nada_para_desfazer()
    {
        Apagador a;
        a.Mostrar({{u"Nome"_s, u"Ana"_s}});
        a.s.Escrever(u"DELETE FROM TblLista"_s);
        a.Esperar_Sim();
        a.janela.cmdEliminar->click();
        QVERIFY(!a.Pode_Desfazer());
    }

    void a_entrada_tem_nome_e_letra_propria_em_cada_lingua_data()
    {
        Nas_Sete_Linguas({u"Desfa&zer eliminação"_s, u"Desfa&zer exclusão"_s, u"&Undo Deletion"_s,
                          u"Des&hacer eliminación"_s, u"Ann&ulla eliminazione"_s,
                          u"Ann&uler la suppression"_s, u"Löschen &rückgängig machen"_s});
    }
    void a_entrada_tem_nome_e_letra_propria_em_cada_lingua()
    {
        QFETCH(QString, lingua);
        QFETCH(QString, legenda);
        Apagador a;
        a.s.geral.IdiomaActual = lingua;
        legendas::Atribuir(a.janela, a.s.geral);
        QCOMPARE(a.janela.DesfazerEliminar->text(), legenda);
        const QList<QAction *> entradas = a.janela.Contactos->actions();
        QCOMPARE(entradas.indexOf(a.janela.DesfazerEliminar),
                 entradas.indexOf(a.janela.ImportarContactos) - 2);
        QSet<QChar> letras;
        for (const QAction *entrada : a.janela.Contactos->actions()) {
            if (entrada->isSeparator()) continue;
            const QChar letra = Mnemonica(entrada->text());
            QVERIFY2(!letra.isNull() && !letras.contains(letra), qPrintable(entrada->text()));
            letras << letra;
        }
    }

    void cada_frase_esta_escrita_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("noutro_grupo");
        QTest::addColumn<QString>("ficou_junto");
        QTest::addColumn<QString>("sem_grupo");
        QTest::addColumn<QString>("numero_ocupado");
        QTest::newRow("PortuguesPT")
            << u"O grupo «%1» já não está disponível. O contacto voltou para o grupo «%2»."_s
            << u"O contacto com que tinha sido juntado foi mudado depois, e fica como está."_s
            << u"Não há nenhum grupo para o qual o contacto possa voltar. Crie um grupo e tente outra vez."_s
            << u"O número do que foi eliminado pertence agora a outro registo. Repor com um número novo?"_s;
        QTest::newRow("PortuguesBR")
            << u"O grupo «%1» não está mais disponível. O contato voltou para o grupo «%2»."_s
            << u"O contato com que tinha sido juntado foi mudado depois, e fica como está."_s
            << u"Não há nenhum grupo para o qual o contato possa voltar. Crie um grupo e tente de novo."_s
            << u"O número do que foi excluído pertence agora a outro registro. Restaurar com um número novo?"_s;
        QTest::newRow("InglesUK")
            << u"The group “%1” is no longer available. The contact came back into the group “%2”."_s
            << u"The contact that it had been merged with was changed since, and stays as it is."_s
            << u"There is no group that the contact could come back into. Create a group and try again."_s
            << u"The number of what was deleted now belongs to another record. Bring it back with a new number?"_s;
        QTest::newRow("EspanholES")
            << u"El grupo «%1» ya no está disponible. El contacto ha vuelto al grupo «%2»."_s
            << u"El contacto con el que se había juntado ha cambiado después, y queda como está."_s
            << u"No hay ningún grupo al que pueda volver el contacto. Cree un grupo e inténtelo de nuevo."_s
            << u"El número de lo que se eliminó pertenece ahora a otro registro. ¿Recuperarlo con un número nuevo?"_s;
        QTest::newRow("ItalianoIT")
            << u"Il gruppo «%1» non è più disponibile. Il contatto è tornato nel gruppo «%2»."_s
            << u"Il contatto con cui era stato unito è cambiato in seguito, e resta com’è."_s
            << u"Non c’è alcun gruppo in cui il contatto possa tornare. Creare un gruppo e riprovare."_s
            << u"Il numero di ciò che è stato eliminato appartiene ora a un altro record. Ripristinarlo con un numero nuovo?"_s;
        QTest::newRow("FrancesFR")
            << u"Le groupe « %1 » n’est plus disponible. Le contact est revenu dans le groupe « %2 »."_s
            << u"Le contact avec lequel il avait été fusionné a changé depuis et reste tel quel."_s
            << u"Il n’y a aucun groupe dans lequel le contact puisse revenir. Créez un groupe, puis réessayez."_s
            << u"Le numéro de ce qui a été supprimé appartient maintenant à un autre enregistrement. Le rétablir avec un nouveau numéro ?"_s;
        QTest::newRow("AlemaoDE")
            << u"Die Gruppe „%1“ ist nicht mehr verfügbar. Der Kontakt ist jetzt in der Gruppe „%2“."_s
            << u"Der Kontakt, mit dem er zusammengeführt worden war, wurde seither geändert und bleibt, wie er ist."_s
            << u"Es gibt keine Gruppe, in die der Kontakt zurückkommen könnte. Legen Sie eine Gruppe an und versuchen Sie es noch einmal."_s
            << u"Die Nummer des Gelöschten gehört jetzt zu einem anderen Eintrag. Mit einer neuen Nummer wiederherstellen?"_s;
    }
    void cada_frase_esta_escrita_em_cada_lingua()
    {
        QFETCH(QString, noutro_grupo);
        QFETCH(QString, ficou_junto);
        QFETCH(QString, sem_grupo);
        QFETCH(QString, numero_ocupado);
        Apagador a;
        const int ana = a.Contacto(u"Ana"_s, ComGrupos::Amigos);
        a.Eliminar(ana);
        a.s.geral.IdiomaActual = QString::fromLatin1(QTest::currentDataTag());
        a.s.Escrever(u"UPDATE TblGrupos SET IdUtilizador=99"_s);
        a.s.caixas.Espera(sem_grupo, box::stop, u"Morvex 1.0"_s);
        a.Desfazer();
        a.s.Escrever(u"UPDATE TblGrupos SET IdUtilizador=0 WHERE ID=4"_s);
        a.s.Escrever(u"INSERT INTO TblLista (ID, Nome, Grupo) VALUES (%1, 'Intruso', 4)"_s.arg(ana));
        a.s.caixas.Espera(numero_ocupado, box::question | box::yesNo, u"Morvex 1.0"_s, answer::yes);
        const QString grupo = a.s.Linhas(u"SELECT NomeGrupo FROM TblGrupos WHERE ID=4"_s).constFirst();
        a.s.caixas.Espera(noutro_grupo.arg(u"Amigos"_s, grupo), box::information, u"Morvex 1.0"_s);
        a.Desfazer();
        QVERIFY(!a.janela.DesfazerEliminar->isEnabled());

        a.s.Escrever(u"UPDATE TblGrupos SET IdUtilizador=0"_s);
        const int rui = a.Contacto(u"Rui"_s, ComGrupos::Amigos);
        const int rita = a.Contacto(u"Rita"_s, ComGrupos::Amigos);
        a.desfazer.Juntar_Contactos(QString::number(rui), QString::number(rita), [&] {
            a.s.geral.de.Executar("cmdEliminarNome", {QString::number(rita)});
        });
        a.s.Escrever(u"UPDATE TblLista SET Fax='2' WHERE ID=%1"_s.arg(rui));
        a.s.caixas.Espera(ficou_junto, box::information, u"Morvex 1.0"_s);
        a.Desfazer();
    }

    void uma_juncao_desfeita_deixa_os_dois_como_eram_data()
    {
        QTest::addColumn<bool>("tinha_cartao");
        QTest::newRow("o cartão veio do outro") << false;
        QTest::newRow("o cartão era seu") << true;
    }
    void uma_juncao_desfeita_deixa_os_dois_como_eram()
    {
        QFETCH(bool, tinha_cartao);
        Apagador a;
        const QString rui = QString::number(a.Contacto(u"Rui"_s, ComGrupos::Amigos));
        const QString rita = QString::number(a.Contacto(u"Rita"_s, ComGrupos::Amigos));
        CartoesGuardados cartoes(a.s.geral.de);
        cartoes.Guardar({rita, u"u-1"_s, "o da Rita"});
        if (tinha_cartao) cartoes.Guardar({rui, u"u-2"_s, "o do Rui"});
        const QStringList antes = a.Tudo() + a.Cartoes();
        a.Juntar(rui, rita, tinha_cartao);
        QVERIFY(a.Tudo() + a.Cartoes() != antes);
        a.Desfazer();
        QCOMPARE(a.Tudo() + a.Cartoes(), antes);
    }

    // The presence changes by itself, and a group is where somebody has put the contact since.
    void uma_juncao_desfeita_guarda_a_presenca_e_o_grupo_de_agora()
    {
        Apagador a;
        const QString rui = QString::number(a.Contacto(u"Rui"_s, ComGrupos::Amigos));
        const QString rita = QString::number(a.Contacto(u"Rita"_s, ComGrupos::Amigos));
        a.Juntar(rui, rita, true);
        a.s.Escrever(u"UPDATE TblLista SET MSNMessenger='3', Grupo=%1 WHERE ID=%2"_s.arg(ComGrupos::Familia).arg(rui));
        a.Desfazer();
        QCOMPARE(a.s.Linhas(u"SELECT Nome, Fax, MSNMessenger, Grupo FROM TblLista WHERE ID=%1"_s.arg(rui)),
                 QStringList{u"Rui||3|%1"_s.arg(ComGrupos::Familia)});
        QCOMPARE(a.Grupo_Do_Contacto(rita.toInt()), QString::number(ComGrupos::Amigos));
    }

    // Another desk has deleted the one that was to stay.
    void com_quem_ja_la_nao_esta_ninguem_se_junta()
    {
        Apagador a;
        const int rita = a.Contacto(u"Rita"_s, ComGrupos::Amigos);
        const auto juntar = [&] {
            a.desfazer.Juntar_Contactos(u"99"_s, QString::number(rita), [] { QFAIL("there is nobody"); });
        };
        VERIFICAR_FALHA(juntar(), Failure::StoreError);
        QCOMPARE(teste::Falha_Dita(juntar), (QStringList{u"99"_s, u"No contact has the ID 99"_s}));
        QVERIFY(!a.janela.DesfazerEliminar->isEnabled());
    }
};

MORVEX_TESTE(TestDesfazerEliminacao)
#include "test_DesfazerEliminacao.moc"
