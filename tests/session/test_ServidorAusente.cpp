// A start and a way out while the server is away, or does not let this desk in.
#include "data/frmSeleccionarIdioma.h"
#include "data/PassosDoEsquema.h"
#include "platform/ErrorText.h"
#include "session/Arranque.h"
#include "session/frmLogin.h"
#include "session/Main.h"
#include "session/Sair.h"
#include "session/ServidorAusente.h"
#include "testlib/Accoes.h"
#include "testlib/ServidorFalso.h"
#include "testlib/SeteLinguas.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;
using enum Failure::Kind;

namespace
{
constexpr int recusa_ou_insiste = 21; // stop, with a button to try again and one to leave

struct Posto {
    Posto() { servidor.Servir(s.geral); }

    bool Passo(const char *nome)
    {
        Arranque inicio = janela.Inicio();
        for (const Arranque::Passo &passo : inicio.Passos())
            if (QByteArray(passo.nome) == nome) return skipFailure(passo.executar);
        QTest::qFail("no such step", __FILE__, __LINE__);
        return false;
    }
    // The next boxes to try again are answered so.
    void Responde(std::initializer_list<int> respostas)
    {
        for (const int resposta : respostas)
            s.caixas.Espera_Qualquer(recusa_ou_insiste, u"Morvex"_s, resposta);
    }

    Sistema s;
    ServidorFalso servidor{s.Base()};
    Main janela{s.geral, s.plataforma};
};
} // namespace

class TestServidorAusente : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_razao_diz_se_e_espera_ate_que_o_servidor_responda_data()
    {
        QTest::addColumn<int>("razao");
        QTest::newRow("AddressBroken") << int(AddressBroken);
        QTest::newRow("PasswordInAddress") << int(PasswordInAddress);
        QTest::newRow("ServerUnknown") << int(ServerUnknown);
        QTest::newRow("ServerRefused") << int(ServerRefused);
        QTest::newRow("ServerCertificate") << int(ServerCertificate);
        QTest::newRow("ServerForbidden") << int(ServerForbidden);
        QTest::newRow("ServerPassword") << int(ServerPassword);
        QTest::newRow("ServerNoPassword") << int(ServerNoPassword);
        QTest::newRow("ServerPasswordFile") << int(ServerPasswordFile);
        QTest::newRow("ServerNoDatabase") << int(ServerNoDatabase);
        QTest::newRow("ServerLibraryMissing") << int(ServerLibraryMissing);
        QTest::newRow("ServersNotReached") << int(ServersNotReached);
    }
    void cada_razao_diz_se_e_espera_ate_que_o_servidor_responda()
    {
        QFETCH(int, razao);
        const auto kind = static_cast<Failure::Kind>(razao);
        Posto p;
        p.s.geral.IdiomaActual.clear();
        p.servidor.recusa = kind;
        const ErrorText texto = errorText(
            Failure(Failure::StoreError, ServidorFalso::Endereco(), u"refused"_s, kind), u"InglesUK"_s);
        const QString caixa = texto.words + u"\r\n\r\n"_s + texto.details;
        p.s.caixas.Espera(caixa, recusa_ou_insiste, u"Morvex"_s, answer::retry);
        p.s.caixas.Espera(caixa, recusa_ou_insiste, u"Morvex"_s, answer::retry);
        p.s.caixas.Ao_Mostrar([&p, vezes = 0]() mutable {
            if (++vezes == 2) p.servidor.recusa.reset();
        });
        QVERIFY(p.Passo("Ler_TblConfig"));
        QVERIFY(p.s.caixas.Todas_Vistas());
        QCOMPARE(p.servidor.enderecos.size(), 3);
        QCOMPARE(p.s.geral.IdiomaActual, u"PortuguesPT"_s);
        QVERIFY(!p.s.processo.Terminou());
    }

    void um_servidor_calado_diz_se_em_cada_lingua_data()
    {
        Nas_Sete_Linguas(
            {u"O servidor não respondeu a tempo. Verifique a ligação à rede, ou espere que o servidor volte."_s,
             u"O servidor não respondeu a tempo. Verifique a conexão com a rede, ou espere o servidor voltar."_s,
             u"The server did not answer in time. Check the network, or wait for the server to come back."_s,
             u"El servidor no ha respondido a tiempo. Compruebe la conexión a la red, o espere a que el "
             u"servidor "
             "vuelva."_s,
             u"Il server non ha risposto in tempo. Verificare la rete, o attendere che il server torni."_s,
             u"Le serveur n’a pas répondu à temps. Vérifiez la connexion au réseau, ou attendez le retour du "
             "serveur."_s,
             u"Der Server hat nicht rechtzeitig geantwortet. Prüfen Sie das Netz, oder warten Sie, bis der "
             u"Server "
             "zurück ist."_s});
    }
    void um_servidor_calado_diz_se_em_cada_lingua()
    {
        QFETCH(QString, lingua);
        QFETCH(QString, legenda);
        Sistema s;
        s.geral.IdiomaActual = lingua;
        const Failure calado(Failure::StoreError, u"posto"_s, u"no answer"_s, ServerLost);
        const QString pormenores = errorText(calado, lingua).details;
        QCOMPARE(servidor_ausente::Palavras(calado, s.geral), legenda + u"\r\n\r\n"_s + pormenores);
    }

    void quem_sai_termina_o_processo_sem_passar_pelo_login()
    {
        Posto p;
        p.servidor.recusa = ServerRefused;
        p.Responde({answer::leave});
        QVERIFY(!p.Passo("Ler_TblConfig"));
        QCOMPARE(p.s.processo.fins, 1);
        QVERIFY(p.s.dialogos.perguntas.isEmpty()); // nobody was asked for a file either
    }

    void uma_base_mais_antiga_diz_quem_a_actualiza()
    {
        Posto p;
        p.servidor.passos = esquema::versao - 1;
        p.Responde({answer::leave});
        QVERIFY(!p.Passo("Ler_TblConfig"));
        QVERIFY(p.s.caixas.vistas.constFirst().contains(u"morvex-servidor atualizar"_s));
    }

    void uma_base_mais_nova_termina_como_num_ficheiro()
    {
        Posto p;
        p.servidor.passos = esquema::versao + 1;
        p.s.caixas.Espera_Erro(Failure::StoreError);
        QVERIFY(!p.Passo("Ler_TblConfig"));
        QCOMPARE(p.s.processo.fins, 1);
    }

    void uma_base_sem_linhas_recebe_as_do_primeiro_posto()
    {
        Sistema s(Sistema::Estado::Vazio);
        ServidorFalso servidor(s.Base());
        servidor.Servir(s.geral);
        Main janela(s.geral, s.plataforma);
        accoes::Quando_Abrir<frmSeleccionarIdioma>(
            [](frmSeleccionarIdioma &bandeiras) { bandeiras.cmdUK->click(); });
        Arranque inicio = janela.Inicio();
        for (const Arranque::Passo &passo : inicio.Passos())
            if (QByteArray(passo.nome) == "Escolher_Idioma" || QByteArray(passo.nome) == "Ler_TblConfig")
                passo.executar();
        QCOMPARE(s.geral.IdiomaActual, u"InglesUK"_s);
        QCOMPARE(s.Linhas(u"SELECT count(*) FROM TblRepeticao"_s), QStringList{u"5"_s});
    }

    void uma_base_semeada_nao_pergunta_por_nada()
    {
        Posto p;
        p.s.geral.IdiomaActual.clear();
        QVERIFY(p.Passo("Escolher_Idioma"));
        QVERIFY(p.Passo("Ler_TblConfig"));
        QVERIFY(p.Passo("Confirmar_Opcoes")); // none of these opens a form, which would never end
        QCOMPARE(p.s.geral.IdiomaActual, u"PortuguesPT"_s);
    }

    void um_endereco_corrigido_no_config_ini_serve_na_tentativa_seguinte()
    {
        Posto p;
        p.servidor.recusa = AddressBroken;
        p.Responde({answer::retry});
        p.s.caixas.Ao_Mostrar([&p] {
            p.s.geral.ini.Escrever_Ini(u"basedados"_s, u"caminhobd"_s, u"postgresql://outro/morvex"_s);
            p.servidor.recusa.reset();
        });
        QVERIFY(p.Passo("Ler_TblConfig"));
        QCOMPARE(p.servidor.enderecos.constLast(), u"postgresql://outro/morvex"_s);
    }

    void o_servidor_que_se_perde_antes_do_login_espera_se_por_ele()
    {
        Posto p;
        QVERIFY(p.Passo("Ler_TblConfig"));
        p.servidor.Perder();
        p.Responde({answer::retry, answer::retry});
        p.s.caixas.Ao_Mostrar([&p, vezes = 0]() mutable {
            if (++vezes == 2) p.servidor.Voltar();
        });
        QVERIFY(p.Passo("Iniciar_Sessao")); // without users nobody logs in
        QCOMPARE(p.s.geral.SessaoActual.IdUtilizador, u"0"_s);
        QVERIFY(p.s.caixas.Todas_Vistas());
    }

    // What has been typed stays, and so does the process.
    void o_login_que_perde_o_servidor_fica_aberto()
    {
        Posto p;
        p.s.Novo_Utilizador(u"Ana"_s, u"segredo"_s);
        p.s.geral.SessaoActual = {};
        p.s.caixas.Espera_Erro(Failure::StoreError);
        accoes::Quando_Abrir<frmLogin>([&](frmLogin &login) {
            login.txtUser->setText(u"Ana"_s);
            login.txtPass->setText(u"segredo"_s);
            p.servidor.Perder();
            QTest::mouseClick(login.cmdOk, Qt::LeftButton);
            QVERIFY(login.isVisible());
            QCOMPARE(login.txtPass->text(), u"segredo"_s);
            QVERIFY(!p.s.processo.Terminou());
            p.servidor.Voltar();
            QTest::mouseClick(login.cmdOk, Qt::LeftButton);
        });
        frmLogin(p.s.geral, p.s.plataforma).exec();
        QCOMPARE(p.s.geral.SessaoActual.Utilizador, u"Ana"_s);
        QVERIFY(!p.s.processo.Terminou());
    }

    void quem_sai_com_o_servidor_longe_nao_fica_preso()
    {
        Posto p;
        QVERIFY(p.Passo("Ler_TblConfig"));
        p.servidor.Perder();
        Sair(p.s.geral, p.s.plataforma, &p.janela);
        QCOMPARE(p.s.processo.fins, 1);
    }

    void num_ficheiro_nada_se_espera()
    {
        Sistema s;
        int vezes = 0;
        QVERIFY(!skipFailure([&] {
            servidor_ausente::Insistir(s.geral, s.plataforma, [&] {
                ++vezes;
                throw Failure(Failure::StoreError, {}, {}, ServerLost);
            });
        }));
        QCOMPARE(vezes, 1);
    }
};

MORVEX_TESTE(TestServidorAusente)
#include "test_ServidorAusente.moc"
