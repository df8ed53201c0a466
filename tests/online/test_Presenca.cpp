// The presence of contacts: on the card, in the toolbar, and in the column of every row with the address.
#include "online/Presenca.h"

#include "contacts/ListaContactos.h"
#include "session/frmLoading.h"
#include "session/Main.h"
#include "testlib/Disparar.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestPresenca : public QObject
{
    Q_OBJECT

    struct Programa {
        explicit Programa(const QString &Email1, const QString &Email2 = {}) : main(s.geral, s.plataforma)
        {
            s.Escrever(u"DELETE FROM TblLista"_s);
            s.Novo_Contacto(
                {{u"Nome"_s, Value(u"Ana"_s)}, {u"Email1"_s, Value(Email1)}, {u"Email2"_s, Value(Email2)}});
            main.Carregar(); // the one contact is on the card
            s.geral.MessengerActivo = 1;
        }
        // A second contact with that presence in the database, and its card, which nothing has polled.
        void Mostrar_Rui(const QString &Email1, const QString &Email2, const QString &guardado)
        {
            const int rui = s.Novo_Contacto(
                {{u"Nome"_s, Value(u"Rui"_s)}, {u"Email1"_s, Value(Email1)}, {u"Email2"_s, Value(Email2)}});
            s.Escrever(u"UPDATE TblLista SET MSNMessenger=%1 WHERE ID=%2"_s.arg(guardado).arg(rui));
            main.ListaNomes->AddItem(u"Rui"_s);
            main.ListaNomes->setItemData(1, rui);
            main.ListaNomes->setListIndex(1);
        }
        void Tique() { Disparar(s.geral.temporizadores.TimerStatusOfContact); }
        int Imagem() { return main.messenger->property("Image").toInt(); }
        QStringList Coluna() { return s.Linhas(u"SELECT MSNMessenger FROM TblLista ORDER BY ID"_s); }
        static bool Iguais(const QIcon &a, const QString &recurso)
        {
            return a.pixmap(16).toImage() == QIcon(recurso).pixmap(16).toImage();
        }

        Sistema s;
        Main main;
    };

private Q_SLOTS:
    void sem_enderecos_nao_ha_pergunta_nenhuma()
    {
        Programa p{QString()};
        p.Tique();
        QVERIFY(p.s.mensageiro.perguntas.isEmpty());
    }

    void o_segundo_endereco_fica_com_a_imagem_e_o_clique_se_so_ele_for_conhecido()
    {
        Programa p(u"a@x.example"_s, u"b@x.example"_s);
        p.s.mensageiro.contactos = {{u"b@x.example"_s, MessengerAPI::Busy}};
        p.Tique();
        QCOMPARE(p.s.mensageiro.perguntas, (QStringList{u"a@x.example"_s, u"b@x.example"_s}));
        QCOMPARE(p.Imagem(), 19);
        QVERIFY(Programa::Iguais(p.main.imgEmail2->icon(), u":/imagens/toolbar/messenger_19.svg"_s));
        QVERIFY(Programa::Iguais(p.main.imgEmail1->icon(), u":/imagens/card/email.svg"_s));
        QCOMPARE(p.Coluna(), QStringList{u"10"_s});
        p.main.mnuMessenger->trigger();
        QCOMPARE(p.s.mensageiro.conversas, QStringList{u"b@x.example"_s});
    }

    void um_codigo_desconhecido_parece_ligado()
    {
        Programa p(u"a@x.example"_s);
        p.s.mensageiro.contactos = {{u"a@x.example"_s, 50}};
        p.Tique();
        QCOMPARE(p.Imagem(), 18);
        QVERIFY(p.main.messenger->isEnabled());
        QCOMPARE(p.Coluna(), QStringList{u"50"_s});
    }

    void cada_estado_tem_a_sua_imagem_data()
    {
        QTest::addColumn<int>("estado");
        QTest::addColumn<int>("imagem");
        QTest::addColumn<bool>("ligado");
        QTest::newRow("desconhecido") << 0 << 8 << false;
        QTest::newRow("desligado") << 1 << 21 << true;
        QTest::newRow("ligado") << 2 << 18 << true;
        QTest::newRow("ocupado") << 10 << 19 << true;
        QTest::newRow("parado") << 18 << 20 << true;
        QTest::newRow("ausente") << 34 << 20 << true;
    }
    void cada_estado_tem_a_sua_imagem()
    {
        QFETCH(int, estado);
        QFETCH(int, imagem);
        QFETCH(bool, ligado);
        Programa p(u"a@x.example"_s, u"a@x.example"_s);
        p.s.mensageiro.contactos = {{u"a@x.example"_s, estado}};
        p.Tique();
        QCOMPARE(p.Imagem(), imagem);
        for (QAction *comando : {p.main.messenger, p.main.mnuMessenger, p.main.RightClickMessenger})
            QCOMPARE(comando->isEnabled(), ligado);
        QCOMPARE(p.Coluna(), QStringList{QString::number(estado)});
    }

    void o_primeiro_conhecido_basta_e_o_segundo_mostra_a_imagem_simples()
    {
        Programa p(u"a@x.example"_s, u"b@x.example"_s);
        p.s.mensageiro.contactos = {{u"a@x.example"_s, MessengerAPI::Online},
                                    {u"b@x.example"_s, MessengerAPI::Busy}};
        p.Tique();
        QCOMPARE(p.s.mensageiro.perguntas, QStringList{u"a@x.example"_s});
        QVERIFY(Programa::Iguais(p.main.imgEmail1->icon(), u":/imagens/toolbar/messenger_18.svg"_s));
        QVERIFY(Programa::Iguais(p.main.imgEmail2->icon(), u":/imagens/card/email.svg"_s));
        QTest::mouseClick(p.main.imgEmail1, Qt::LeftButton);
        QCOMPARE(p.s.mensageiro.conversas, QStringList{u"a@x.example"_s});
    }

    void a_imagem_do_primeiro_so_abre_a_conversa_com_ele_presente_data()
    {
        QTest::addColumn<QString>("conhecido");
        QTest::addColumn<int>("estado");
        QTest::addColumn<bool>("abre");
        QTest::newRow("ligado") << u"a@x.example"_s << 2 << true;
        QTest::newRow("ocupado") << u"a@x.example"_s << 10 << true;
        QTest::newRow("ausente") << u"a@x.example"_s << 34 << true;
        QTest::newRow("desligado") << u"a@x.example"_s << 1 << false;
        QTest::newRow("desconhecido") << u"a@x.example"_s << 0 << false;
        QTest::newRow("so o segundo") << u"b@x.example"_s << 2 << false;
    }
    void a_imagem_do_primeiro_so_abre_a_conversa_com_ele_presente()
    {
        QFETCH(QString, conhecido);
        QFETCH(int, estado);
        QFETCH(bool, abre);
        Programa p(u"a@x.example"_s, u"b@x.example"_s);
        p.s.mensageiro.contactos = {{conhecido, estado}};
        p.Tique();
        QTest::mouseClick(p.main.imgEmail1, Qt::LeftButton);
        QCOMPARE(p.s.mensageiro.conversas, abre ? QStringList{u"a@x.example"_s} : QStringList());
    }

    void todas_as_linhas_com_o_endereco_ficam_com_o_estado()
    {
        Programa p(u"a@x.example"_s);
        p.s.Novo_Contacto({{u"Nome"_s, Value(u"Rui"_s)}, {u"Email2"_s, Value(u"A@X.example"_s)}});
        p.s.Novo_Contacto({{u"Nome"_s, Value(u"Zé"_s)}, {u"Email1"_s, Value(u"z@x.example"_s)}});
        p.s.mensageiro.contactos = {{u"a@x.example"_s, MessengerAPI::Away}};
        p.Tique();
        QCOMPARE(p.Coluna(), (QStringList{u"34"_s, u"34"_s, u"<Null>"_s}));
    }

    void desconhecido_do_messenger_fica_com_zero_e_o_botao_desliga()
    {
        Programa p(u"a@x.example"_s);
        p.Tique();
        QCOMPARE(p.Coluna(), QStringList{u"0"_s});
        QCOMPARE(p.Imagem(), 8);
        QVERIFY(!p.main.messenger->isEnabled());
    }

    void com_a_opcao_desligada_ninguem_pergunta_ao_messenger()
    {
        Programa p(u"a@x.example"_s);
        p.s.geral.MessengerActivo = 0;
        p.s.mensageiro.contactos = {{u"a@x.example"_s, MessengerAPI::Online}};
        p.Tique();
        QVERIFY(p.s.mensageiro.perguntas.isEmpty());
        QVERIFY(!p.main.messenger->isEnabled());
    }

    void o_cartao_mostra_o_estado_guardado_logo_que_abre_data()
    {
        QTest::addColumn<QString>("Email1");
        QTest::addColumn<QString>("Email2");
        QTest::addColumn<QString>("guardado");
        QTest::addColumn<QString>("imagem1");
        QTest::addColumn<QString>("imagem2");
        QTest::addColumn<QString>("conversa"); // empty: there is nobody to talk to
        const QString simples = u":/imagens/card/email.svg"_s;
        const QString ocupado = u":/imagens/toolbar/messenger_19.svg"_s;
        const QString um = u"rui@x.example"_s;
        const QString dois = u"rui@y.example"_s;
        QTest::newRow("o primeiro") << um << QString() << u"'10'"_s << ocupado << simples << um;
        QTest::newRow("os dois") << um << dois << u"'10'"_s << ocupado << simples << um;
        QTest::newRow("so o segundo") << QString() << dois << u"'10'"_s << simples << ocupado << dois;
        QTest::newRow("nenhum estado") << um << dois << u"NULL"_s << simples << simples << QString();
        QTest::newRow("zero") << um << dois << u"'0'"_s << simples << simples << QString();
    }
    void o_cartao_mostra_o_estado_guardado_logo_que_abre()
    {
        QFETCH(QString, Email1);
        QFETCH(QString, Email2);
        QFETCH(QString, guardado);
        QFETCH(QString, imagem1);
        QFETCH(QString, imagem2);
        QFETCH(QString, conversa);
        Programa p(u"a@x.example"_s, u"b@x.example"_s);
        p.s.mensageiro.contactos = {{u"b@x.example"_s, MessengerAPI::Online}};
        p.Tique(); // Ana's second address is the one that is talked to
        p.Mostrar_Rui(Email1, Email2, guardado);
        QVERIFY(Programa::Iguais(p.main.imgEmail1->icon(), imagem1));
        QVERIFY(Programa::Iguais(p.main.imgEmail2->icon(), imagem2));
        QCOMPARE(p.main.messenger->isEnabled(), !conversa.isEmpty());
        p.main.mnuMessenger->trigger();
        QCOMPARE(p.s.mensageiro.conversas, conversa.isEmpty() ? QStringList() : QStringList{conversa});
    }

    void o_estado_do_contacto_anterior_nao_abre_conversa_com_o_novo()
    {
        Programa p(u"a@x.example"_s);
        p.s.mensageiro.contactos = {{u"a@x.example"_s, MessengerAPI::Online}};
        p.Tique();
        p.Mostrar_Rui(u"rui@x.example"_s, QString(), u"NULL"_s);
        QTest::mouseClick(p.main.imgEmail1, Qt::LeftButton);
        QVERIFY(p.s.mensageiro.conversas.isEmpty());
    }

    void o_estado_guardado_ja_se_deixa_clicar()
    {
        Programa p(u"a@x.example"_s);
        p.Mostrar_Rui(u"rui@x.example"_s, QString(), u"'2'"_s);
        QTest::mouseClick(p.main.imgEmail1, Qt::LeftButton);
        QCOMPARE(p.s.mensageiro.conversas, QStringList{u"rui@x.example"_s});
    }

    void um_cartao_que_se_esvazia_nao_deixa_ninguem_com_quem_conversar()
    {
        Programa p(u"a@x.example"_s, u"b@x.example"_s);
        p.s.mensageiro.contactos = {{u"b@x.example"_s, MessengerAPI::Online}};
        p.Tique();
        QVERIFY(p.main.messenger->isEnabled());
        p.main.findChild<ListaContactos *>()->Limpar_Dados();
        QCOMPARE(p.Imagem(), 8);
        for (QAction *comando : {p.main.messenger, p.main.mnuMessenger, p.main.RightClickMessenger})
            QVERIFY(!comando->isEnabled());
        p.main.mnuMessenger->trigger();
        QVERIFY(p.s.mensageiro.conversas.isEmpty());
    }

    void so_uma_das_duas_imagens_mostra_um_estado()
    {
        Programa p(u"a@x.example"_s);
        p.s.mensageiro.contactos = {{u"rui@y.example"_s, MessengerAPI::Busy}};
        p.Mostrar_Rui(u"rui@x.example"_s, u"rui@y.example"_s, u"'2'"_s);
        p.Tique();
        QVERIFY(Programa::Iguais(p.main.imgEmail1->icon(), u":/imagens/card/email.svg"_s));
        QVERIFY(Programa::Iguais(p.main.imgEmail2->icon(), u":/imagens/toolbar/messenger_19.svg"_s));
    }

    void sincronizar_escreve_todos_e_conta_o_progresso_sem_chegar_a_cem()
    {
        Programa p(u"a@x.example"_s);
        p.s.Novo_Contacto({{u"Nome"_s, Value(u"Rui"_s)}, {u"Email2"_s, Value(u"r@x.example"_s)}});
        p.s.mensageiro.contactos = {{u"a@x.example"_s, 2},
                                    {u"r@x.example"_s, 34},
                                    {u"ninguem@x.example"_s, 1},
                                    {u"outro@x.example"_s, 1}};
        auto &presenca = *p.main.findChild<Presenca *>();
        QSignalSpy progresso(&presenca, &Presenca::Progresso);
        presenca.SincronizarMessenger();
        QCOMPARE(p.Coluna(), (QStringList{u"2"_s, u"34"_s}));
        QCOMPARE(progresso.size(), 3);
        QCOMPARE(progresso.at(0).at(0).toInt(), 25);
        QCOMPARE(progresso.at(2).at(0).toInt(), 75);
    }

    void no_arranque_a_janela_de_carregar_vem_so_com_a_opcao_e_sem_minimizar_data()
    {
        QTest::addColumn<QString>("minimizar");
        QTest::addColumn<QString>("activo");
        QTest::addColumn<bool>("vem");
        QTest::newRow("ligado") << u"nao"_s << u"1"_s << true;
        QTest::newRow("minimizar sim com messenger 1") << u"sim"_s << u"1"_s << false;
        QTest::newRow("desligado") << u"nao"_s << u"0"_s << false;
    }
    void no_arranque_a_janela_de_carregar_vem_so_com_a_opcao_e_sem_minimizar()
    {
        QFETCH(QString, minimizar);
        QFETCH(QString, activo);
        QFETCH(bool, vem);
        Sistema s;
        s.geral.ini.Escrever_Ini(u"arranque"_s, u"minimizar"_s, minimizar);
        s.geral.ini.Escrever_Ini(u"messenger"_s, u"activo"_s, activo);
        s.Novo_Contacto({{u"Nome"_s, Value(u"Ana"_s)}, {u"Email1"_s, Value(u"a@x.example"_s)}});
        s.mensageiro.contactos = {{u"a@x.example"_s, 2}};
        Main main(s.geral, s.plataforma);
        main.Carregar();
        bool veio = false;
        for (QWidget *janela : QApplication::topLevelWidgets())
            if (auto *carregando = qobject_cast<frmLoading *>(janela)) {
                veio = true;
                carregando->close();
            }
        QCOMPARE(veio, vem);
        const QStringList coluna = s.Linhas(u"SELECT MSNMessenger FROM TblLista WHERE Nome='Ana'"_s);
        QCOMPARE(coluna, QStringList{activo == u"1"_s ? u"2"_s : u"<Null>"_s});
    }
};

MORVEX_TESTE(TestPresenca)
#include "test_Presenca.moc"
