// The book on a database server that several desks share: one synchronises, and the others see what comes.
#include "servidor/MudancaParaServidor.h"
#include "session/Vida.h"
#include "sincronizacao/MesaDaSincronizacao.h"
#include "testlib/BaseDeEnsaio.h"

using namespace Qt::StringLiterals;

namespace
{
using Fim = ResultadoDaSincronizacao::Fim;

// The book of one user with an account, on the server, and the address book's server in memory.
struct Escritorio {
    Escritorio()
    {
        quem = feita.s.geral.SessaoActual;
        for (int i = 0; i < 12; ++i) {
            feita.Contacto(u"Daqui %1"_s.arg(i), u"91%1"_s.arg(1000000 + i));
            feita.Por_La(u"la%1"_s.arg(i), u"De la %1"_s.arg(i),
                         "TEL;TYPE=CELL:93" + QByteArray::number(1000000 + i) + "\r\n");
        }
        feita.s.geral.de.Fechar_Ligacao();
        ServerSession dona(base.Da_Dona());
        dona.together([&] { mudanca::Mudar(feita.s.Base(), dona, u"morvex"_s); });
    }

    MesaDaSincronizacao feita;
    Sessao quem;
    BaseDeEnsaio base;
};

// One copy of the program at a desk of its own.
struct PostoDoEscritorio {
    explicit PostoDoEscritorio(Escritorio &escritorio) : e(escritorio), geral(s.Pasta())
    {
        geral.CaminhoBD = e.base.Do_Posto();
        geral.ini.Escrever_Ini(u"basedados"_s, u"caminhobd"_s, geral.CaminhoBD);
        geral.IdiomaActual = u"PortuguesPT"_s;
        geral.SessaoActual = e.quem;
    }
    std::unique_ptr<Sincronizacao> Nova(std::optional<ResultadoDaSincronizacao> &fim)
    {
        auto corrida = std::make_unique<Sincronizacao>(geral, s.relogio,
                                                       std::make_unique<LivroEmMemoria>(e.feita.servidor),
                                                       Sincronizacao::Modo::Normal);
        QObject::connect(corrida.get(), &Sincronizacao::Terminada, [&fim](const auto &r) { fim = r; });
        return corrida;
    }
    ResultadoDaSincronizacao Correr()
    {
        std::optional<ResultadoDaSincronizacao> fim;
        const auto corrida = Nova(fim);
        corrida->Comecar();
        while (!fim)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return *fim;
    }
    QStringList Aqui()
    {
        QStringList todos;
        for (const auto &[ID, colunas] : GrupoLocal(geral, e.feita.grupo).Todos())
            todos << MesaDaSincronizacao::Lido(colunas);
        todos.sort();
        return todos;
    }

    Escritorio &e;
    Sistema s;
    Geral geral;
};
} // namespace

class TestSincronizacaoNoServidor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (const QString falta = BaseDeEnsaio::Falta(); !falta.isEmpty()) QSKIP(qPrintable(falta));
    }

    void um_posto_sincroniza_e_o_outro_tem_tudo_e_nada_por_fazer()
    {
        Escritorio e;
        PostoDoEscritorio um(e);
        const auto fim = um.Correr();
        QCOMPARE(fim.fim, Fim::Feita);
        QCOMPARE(fim.adicionados, 12);
        QCOMPARE(fim.adicionados_la, 12);
        QCOMPARE(um.Aqui(), e.feita.La());
        PostoDoEscritorio outro(e);
        QCOMPARE(outro.Aqui(), e.feita.La());
        e.feita.servidor.pedidos.clear();
        const auto depois = outro.Correr();
        QVERIFY(!depois.Mudou_Aqui() && !depois.Mudou_La() && !depois.com_cautela);
        QCOMPARE(e.feita.servidor.pedidos,
                 QStringList{u"changes"_s}); // what one desk remembers the other knows
    }

    void mudancas_eliminacoes_e_conflitos_sao_como_num_ficheiro()
    {
        Escritorio e;
        PostoDoEscritorio um(e);
        um.Correr();
        PostoDoEscritorio outro(e);
        const auto id_de = [&](const QString &nome) {
            for (const auto &[ID, colunas] : GrupoLocal(outro.geral, e.feita.grupo).Todos())
                if (colunas[Coluna::Nome] == nome) return ID;
            return 0;
        };
        const auto mudar = [&](const QString &nome, Coluna coluna, const QString &valor) {
            GrupoLocal grupo(outro.geral, e.feita.grupo);
            const int ID = id_de(nome);
            const auto linha = grupo.Ler(ID);
            ColunasDoContacto colunas = linha->colunas;
            colunas[coluna] = valor;
            grupo.Actualizar(ID, *linha, colunas, ContactoDaFonte());
        };
        mudar(u"Daqui 1"_s, Coluna::Fax, u"211"_s);
        mudar(u"De la 2"_s, Coluna::Telemovel1, u"922"_s);
        e.feita.Mudar_La(MesaDaSincronizacao::Href(u"la2"_s), Coluna::Telemovel1, u"933"_s);
        e.feita.servidor.Tirar(MesaDaSincronizacao::Href(u"la3"_s));
        GrupoLocal(outro.geral, e.feita.grupo).Eliminar(id_de(u"De la 4"_s));
        const auto fim = um.Correr();
        QCOMPARE(fim.fim, Fim::Feita);
        QCOMPARE(fim.conflitos, 1);
        QCOMPARE(fim.eliminados, 1);
        QCOMPARE(fim.eliminados_la, 1);
        QCOMPARE(outro.Aqui(), e.feita.La());
        QCOMPARE(id_de(u"De la 3"_s), 0);
        QVERIFY(e.feita.Href_Com("211").size() > 1);
    }

    void a_janela_de_outro_posto_mostra_o_que_chega_sem_que_ninguem_lhe_toque()
    {
        Escritorio e;
        Sistema s;
        s.geral.ini.Escrever_Ini(u"basedados"_s, u"caminhobd"_s, e.base.Do_Posto());
        Vida vida(s, u"Eva"_s, u"x"_s);
        QVERIFY(QTest::qWaitForWindowExposed(&vida.janela));
        vida.janela.ComboGrupos->setListIndex(vida.janela.ComboGrupos->findText(u"Telemóvel"_s));
        QCOMPARE(vida.janela.ListaNomes->ListCount(), 12);
        PostoDoEscritorio um(e);
        um.Correr();
        QTRY_COMPARE_WITH_TIMEOUT(vida.janela.ListaNomes->ListCount(), 24, 20'000);
        e.feita.servidor.Tirar(MesaDaSincronizacao::Href(u"la3"_s));
        um.Correr();
        QTRY_COMPARE_WITH_TIMEOUT(vida.janela.ListaNomes->ListCount(), 23, 20'000);
    }

    void dois_postos_ao_mesmo_tempo_nao_poem_nada_duas_vezes()
    {
        for (const int voltas : {0, 1, 2, 3, 5, 8}) {
            Escritorio e;
            PostoDoEscritorio um(e), outro(e);
            std::optional<ResultadoDaSincronizacao> dele, nosso;
            const auto primeira = um.Nova(dele);
            const auto segunda = outro.Nova(nosso);
            primeira->Comecar();
            for (int i = 0; i < voltas && !dele; ++i)
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            segunda->Comecar();
            while (!dele || !nosso)
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            QCOMPARE(nosso->fim, Fim::Feita);
            QVERIFY(dele->fim == Fim::Noutro || dele->fim == Fim::Feita);
            QCOMPARE(um.Aqui().size(), 24);
            QCOMPARE(e.feita.servidor.cartoes.size(), 24U);
            QCOMPARE(um.Aqui(), e.feita.La());
        }
    }

    void dois_utilizadores_do_mesmo_grupo_ao_mesmo_tempo_nao_poem_nada_duas_vezes()
    {
        int cedidas = 0;
        for (const int voltas : {1, 2, 3, 5, 8}) {
            Escritorio e;
            PostoDoEscritorio um(e), outro(e);
            MemoriaDaSincronizacao dele(um.geral.de, e.quem.IdUtilizador);
            um.geral.de.Executar("cmdUpdateGrupoUser", {0, e.feita.grupo}); // of all users
            outro.geral.SessaoActual.IdUtilizador = u"77"_s;
            MemoriaDaSincronizacao nossa(outro.geral.de, u"77"_s);
            nossa.Guardar(*dele.Conta());
            std::optional<ResultadoDaSincronizacao> fim_dele, fim_nosso;
            const auto primeira = um.Nova(fim_dele);
            const auto segunda = outro.Nova(fim_nosso);
            primeira->Comecar();
            for (int i = 0; i < voltas && !fim_dele; ++i)
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            segunda->Comecar();
            while (!fim_dele || !fim_nosso)
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            QCOMPARE(fim_nosso->fim, Fim::Feita);
            cedidas += static_cast<int>(fim_dele->fim == Fim::Noutro);
            um.Correr();
            QCOMPARE(um.Aqui().size(), 24);
            QCOMPARE(e.feita.servidor.cartoes.size(), 24U);
            QCOMPARE(um.Aqui(), e.feita.La());
        }
        QVERIFY(cedidas > 1);
    }

    void um_servidor_que_vai_a_baixo_a_meio_nao_deixa_metades()
    {
        Escritorio e;
        PostoDoEscritorio um(e);
        std::optional<ResultadoDaSincronizacao> fim;
        const auto corrida = um.Nova(fim);
        e.feita.servidor.falha = [&, uma_vez = true](const QString &pedido) mutable {
            if (pedido.startsWith(u"create"_s) && std::exchange(uma_vez, false))
                ServerSession(e.base.Do_Administrador())
                    .run(u"SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE usename='morvex' AND "
                         "datname=current_database()"_s);
            return RemoteError();
        };
        corrida->Comecar();
        while (!fim)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        PostoDoEscritorio outro(e);
        const auto depois = outro.Correr();
        QCOMPARE(depois.fim, Fim::Feita);
        QCOMPARE(outro.Aqui().size(), 24);
        QCOMPARE(e.feita.servidor.cartoes.size(), 24U);
        QCOMPARE(outro.Aqui(), e.feita.La());
    }
};

MORVEX_TESTE(TestSincronizacaoNoServidor)
#include "test_SincronizacaoNoServidor.moc"
