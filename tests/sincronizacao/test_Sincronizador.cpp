// The runs of the main window: when they begin by themselves, what they tell, and to whom.
#include "data/Geral.h"
#include "sincronizacao/MesaDoFormulario.h"
#include "sincronizacao/PalavraPasseDoServidor.h"
#include "testlib/Disparar.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
using Mesa = MesaDoFormulario;
using Kind = RemoteError::Kind;
using Modo = Sincronizacao::Modo;

// An account that needs nothing but the server.
struct ComConta : Mesa {
    ComConta()
    {
        conta.Endereco = u"dav.example"_s;
        conta.Livro = u"https://dav.example/eva/amigos/"_s;
        conta.NomeDoLivro = u"Amigos"_s;
        conta.IDGrupo = s.Novo_Grupo(u"Telemóvel"_s, s.geral.SessaoActual.IdUtilizador.toInt());
        conta.Ligada = true;
        conta.Minutos = 30;
        s.segredos.ha = true;
        PalavraPasseDoServidor(s.geral, s.segredos).Guardar(conta, u"x"_s);
        Guardar();
    }
    void Guardar() { MemoriaDaSincronizacao(s.geral.de, s.geral.SessaoActual.IdUtilizador).Guardar(conta); }
    void Por_Si()
    {
        Disparar(Relogio());
        Esperar();
    }
    void Cartoes_La(int quantos)
    {
        for (int i = 0; i < quantos; ++i)
            servidor.Por(u"/eva/%1.vcf"_s.arg(i), QByteArray("BEGIN:VCARD\r\nVERSION:3.0\r\nUID:") +
                                                      QByteArray::number(i) + "\r\nFN:P" +
                                                      QByteArray::number(i) + "\r\nEND:VCARD\r\n");
    }
    void Falhar(Kind especie)
    {
        servidor.falha = [especie](const QString &) { return RemoteError{especie, 0, {}}; };
    }

    ContaSincronizada conta;
};
} // namespace

class TestSincronizador : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void so_o_que_se_ligou_corre_por_si_data()
    {
        QTest::addColumn<bool>("ligada");
        QTest::addColumn<bool>("ao_arrancar");
        QTest::addColumn<int>("minutos");
        QTest::addColumn<bool>("anda");    // the clock
        QTest::addColumn<int>("corridas"); // at the start
        QTest::newRow("clock") << true << false << 30 << true << 0;
        QTest::newRow("clock and start") << true << true << 30 << true << 1;
        QTest::newRow("start alone") << true << true << 0 << false << 1;
        QTest::newRow("neither") << true << false << 0 << false << 0;
        QTest::newRow("turned off") << false << true << 30 << false << 0;
    }
    void so_o_que_se_ligou_corre_por_si()
    {
        QFETCH(bool, ligada);
        QFETCH(bool, ao_arrancar);
        QFETCH(int, minutos);
        QFETCH(bool, anda);
        QFETCH(int, corridas);
        ComConta m;
        m.conta.Ligada = ligada;
        m.conta.AoArrancar = ao_arrancar;
        m.conta.Minutos = minutos;
        m.Guardar();
        m.sincronizador->Iniciar();
        QCOMPARE(m.Relogio().isActive(), anda);
        if (anda) QCOMPARE(m.Relogio().interval(), minutos * 60 * 1000);
        QTest::qWait(20);
        m.Esperar();
        QCOMPARE(m.abertos.size(), corridas);
    }

    void sem_livro_sem_grupo_ou_sem_palavra_passe_nada_comeca_data()
    {
        QTest::addColumn<QString>("falta");
        QTest::newRow("nothing") << QString();
        QTest::newRow("book") << u"livro"_s;
        QTest::newRow("group") << u"grupo"_s;
        QTest::newRow("password") << u"senha"_s;
        QTest::newRow("account") << u"conta"_s;
    }
    void sem_livro_sem_grupo_ou_sem_palavra_passe_nada_comeca()
    {
        QFETCH(QString, falta);
        ComConta m;
        if (falta == u"livro"_s) m.conta.Livro.clear();
        if (falta == u"grupo"_s) m.conta.IDGrupo = 0;
        m.Guardar();
        if (falta == u"senha"_s) m.s.segredos.guardados.clear();
        if (falta == u"conta"_s)
            MemoriaDaSincronizacao(m.s.geral.de, m.s.geral.SessaoActual.IdUtilizador).Esquecer();
        QCOMPARE(m.sincronizador->Comecar(Modo::Normal), falta.isEmpty());
        QCOMPARE(m.sincronizador->A_Correr(), falta.isEmpty());
        m.Esperar();
        QCOMPARE(m.abertos.size(), falta.isEmpty() ? 1 : 0);
    }

    void enquanto_uma_corre_nao_comeca_outra()
    {
        ComConta m;
        QVERIFY(m.sincronizador->Comecar(Modo::Normal));
        QVERIFY(!m.sincronizador->Comecar(Modo::Normal));
        m.Esperar();
        QCOMPARE(m.abertos.size(), 1);
        QVERIFY(m.sincronizador->Comecar(Modo::Normal));
        m.Esperar();
    }

    void a_lista_so_se_le_de_novo_onde_aqui_mudou_alguma_coisa()
    {
        ComConta m;
        QSignalSpy mudados(m.sincronizador, &Sincronizador::ContactosMudados);
        QSignalSpy acabou(m.sincronizador, &Sincronizador::Acabou);
        m.s.Novo_Contacto({{u"Nome"_s, Value(u"Ana"_s)}, {u"Grupo"_s, Value(m.conta.IDGrupo)}});
        m.Por_Si(); // to the server
        QCOMPARE(m.servidor.cartoes.size(), 1U);
        QCOMPARE(mudados.size(), 0);
        QCOMPARE(acabou.size(), 1);
        m.Cartoes_La(1);
        m.Por_Si();
        QCOMPARE(mudados.size(), 1);
    }

    void muitas_eliminacoes_por_si_dizem_se_no_cartao_sem_perguntar()
    {
        ComConta m;
        m.Cartoes_La(12);
        m.Por_Si();
        for (int i = 0; i < 12; ++i)
            m.servidor.Tirar(u"/eva/%1.vcf"_s.arg(i));
        const auto form = m.Abrir();
        m.Por_Si();
        QVERIFY(m.Cartao() != nullptr);
        QCOMPARE(m.Cartao()->StatusLabel->text(), m.s.Texto(552)); // alone: nothing has failed
        QCOMPARE(m.Cartao()->accessibleName(), m.s.Texto(552));
        QCOMPARE(m.s.Linhas(u"SELECT count(*) FROM TblLista WHERE Grupo=%1"_s.arg(m.conta.IDGrupo)),
                 QStringList{u"12"_s});
        QCOMPARE(form->lblResultado->text(), m.s.Texto(552));
    }

    void um_cartao_novo_toma_o_lugar_do_antigo_e_fica_quinze_segundos()
    {
        ComConta m;
        m.Falhar(Kind::Password);
        m.Por_Si();
        const QPointer<frmPopupSincronizacao> antigo = m.Cartao();
        QVERIFY(antigo && antigo->isVisible());
        QCOMPARE(antigo->TimerTimeout.interval(), 15'000);
        QVERIFY(antigo->TimerTimeout.Enabled());
        m.servidor.falha = [](const QString &) { return RemoteError(); };
        m.Por_Si();
        m.Falhar(Kind::NoNetwork);
        m.Por_Si();
        QVERIFY(!antigo);
        QCOMPARE(m.Cartao()->StatusLabel->text(), m.s.Texto(551) + u'\n' + m.s.Texto(532));
    }

    void uma_corrida_que_se_cancela_ou_falha_outra_vez_nao_se_diz()
    {
        ComConta m;
        m.servidor.falha = [&](const QString &) {
            m.sincronizador->Cancelar();
            return RemoteError();
        };
        m.Por_Si();
        QVERIFY(m.Cartao() == nullptr);
        m.Falhar(Kind::NoNetwork);
        m.Por_Si();
        QVERIFY(m.Cartao() != nullptr);
        m.Cartao()->close();
        m.servidor.falha = [&](const QString &) {
            m.sincronizador->Cancelar();
            return RemoteError();
        };
        m.Por_Si(); // which is no success either
        m.Falhar(Kind::NoNetwork);
        m.Por_Si();
        QVERIFY(m.Cartao() == nullptr);
    }

    void a_tecla_que_responde_ao_cartao_abre_o_formulario()
    {
        ComConta m;
        QVERIFY(!m.sincronizador->Responder());
        m.Falhar(Kind::Refused);
        m.Por_Si();
        frmPopupSincronizacao *cartao = m.Cartao();
        QTRY_VERIFY(!cartao->TimerUp.Enabled()); // up
        QSignalSpy abrir(m.sincronizador, &Sincronizador::Abrir_Sincronizar);
        QVERIFY(m.sincronizador->Responder());
        QCOMPARE(abrir.size(), 1);
        QVERIFY(m.Cartao() == nullptr);
    }

    void cancelar_sem_corrida_nao_faz_nada()
    {
        ComConta m;
        QSignalSpy acabou(m.sincronizador, &Sincronizador::Acabou);
        m.sincronizador->Cancelar();
        QCOMPARE(acabou.size(), 0);
    }

    void o_relogio_que_ficou_a_espera_so_corre_uma_vez()
    {
        ComConta m;
        m.s.geral.temporizadores.Gerir_Temporizadores(u"stop"_s);
        Disparar(m.Relogio());
        m.s.geral.temporizadores.Gerir_Temporizadores(u"start"_s);
        QTRY_COMPARE(m.abertos.size(), 1);
        m.Esperar();
        m.s.geral.temporizadores.Gerir_Temporizadores(u"stop"_s);
        m.s.geral.temporizadores.Gerir_Temporizadores(u"start"_s);
        QTest::qWait(20);
        QCOMPARE(m.abertos.size(), 1);
    }

    // Two books of one person have passwords of their own, and so have two people.
    void a_palavra_passe_guarda_se_por_pessoa_e_por_livro_e_esquece_se_com_ela()
    {
        ComConta m;
        const QString chave =
            u"sincronizacao %1 %2"_s.arg(m.s.geral.SessaoActual.IdUtilizador, m.s.geral.de.Ficheiro());
        QCOMPARE(m.s.segredos.guardados, (QMap<QString, QString>{{chave, u"x"_s}}));
        m.s.segredos.guardados[u"outra"_s] = u"y"_s;
        m.sincronizador->Esquecer_Palavra_Passe();
        QCOMPARE(m.s.segredos.guardados, (QMap<QString, QString>{{u"outra"_s, u"y"_s}}));
    }
};

MORVEX_TESTE(TestSincronizador)
#include "test_Sincronizador.moc"
