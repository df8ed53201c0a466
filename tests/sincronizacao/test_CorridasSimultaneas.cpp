// Two copies of the program, at two desks or at one, that synchronise the same group at the same time: the
// one that began last goes on, the other one ends, and nothing is done twice.
#include "sincronizacao/MesaDaSincronizacao.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
using Fim = ResultadoDaSincronizacao::Fim;

// One copy of the program over the desk's file, and its run.
class Copia
{
public:
    Copia(MesaDaSincronizacao &m, const QString &pasta) : geral_(pasta)
    {
        geral_.CaminhoBD = m.s.Base();
        geral_.IdiomaActual = m.s.geral.IdiomaActual;
        geral_.SessaoActual = m.s.geral.SessaoActual;
        corrida_ = std::make_unique<Sincronizacao>(
            geral_, m.s.relogio, std::make_unique<LivroEmMemoria>(m.servidor), Sincronizacao::Modo::Normal);
        QObject::connect(corrida_.get(), &Sincronizacao::Terminada, [this](const auto &r) { fim = r; });
    }
    void Comecar() { corrida_->Comecar(); }
    // A form that edits is open there, and is closed.
    void Suster() { geral_.temporizadores.Gerir_Temporizadores(u"stop"_s); }
    void Retomar() { geral_.temporizadores.Gerir_Temporizadores(u"start"_s); }

    std::optional<ResultadoDaSincronizacao> fim;

private:
    Geral geral_;
    std::unique_ptr<Sincronizacao> corrida_;
};

struct Dois : MesaDaSincronizacao {
    Dois()
    {
        for (int i = 0; i < 25; ++i) {
            Contacto(u"Daqui %1"_s.arg(i), u"91%1"_s.arg(1000000 + i));
            Por_La(u"la%1"_s.arg(i), u"De la %1"_s.arg(i),
                   "TEL;TYPE=CELL:93" + QByteArray::number(1000000 + i) + "\r\n");
        }
    }
    // The first one has had so many turns of the event loop when the second one begins. How many there were.
    int Correr_As_Duas(int voltas, bool noutra_pasta = true)
    {
        primeira.emplace(*this, s.Pasta());
        segunda.emplace(*this, noutra_pasta ? pasta.path() : s.Pasta());
        primeira->Comecar();
        int quantas = 0;
        for (; !primeira->fim && quantas < voltas; ++quantas)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        a_meio = !primeira->fim;
        segunda->Comecar();
        while (!primeira->fim || !segunda->fim)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return quantas;
    }

    QTemporaryDir pasta; // of the other desk, with a config.ini of its own
    std::optional<Copia> primeira, segunda;
    bool a_meio = false;
};
} // namespace

class TestCorridasSimultaneas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void quando_quer_que_a_segunda_comece_nada_se_faz_duas_vezes()
    {
        int cedidas = 0;
        for (int voltas = 0; voltas >= 0; ++voltas) {
            Dois m;
            m.Correr_As_Duas(voltas);
            QCOMPARE(m.segunda->fim->fim, Fim::Feita);
            // Whose last write was done by then may come to its end.
            QVERIFY(m.primeira->fim->fim == Fim::Feita || m.primeira->fim->fim == Fim::Noutro);
            if (m.primeira->fim->fim == Fim::Noutro) ++cedidas;
            QCOMPARE(m.Nomes().size(), 50);
            QCOMPARE(m.servidor.cartoes.size(), 50U);
            QCOMPARE(m.Aqui(), m.La());
            QCOMPARE(m.Ocorrencias(), QStringList{});
            const auto depois = m.Correr();
            QVERIFY(!depois.Mudou_Aqui() && !depois.Mudou_La());
            QCOMPARE(m.servidor.cartoes.size(), 50U);
            if (!m.a_meio) break;
        }
        QVERIFY2(cedidas > 5, qPrintable(QString::number(cedidas)));
    }

    void a_que_foi_ultrapassada_nao_muda_o_que_se_lembra_da_outra()
    {
        Dois m;
        m.Correr_As_Duas(3);
        QCOMPARE(m.primeira->fim->fim, Fim::Noutro);
        QCOMPARE(ResultadoDaSincronizacao::Do_Texto(m.Memoria().Estado().Resultado).fim, Fim::Feita);
    }

    void a_que_so_da_por_isso_depois_da_outra_acabar_tambem_nao()
    {
        Dois m;
        m.primeira.emplace(m, m.s.Pasta());
        m.segunda.emplace(m, m.pasta.path());
        m.primeira->Comecar();
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        m.primeira->Suster();
        m.segunda->Comecar();
        QTRY_VERIFY(m.segunda->fim);
        QVERIFY(!m.primeira->fim);
        const QString dito = m.Memoria().Estado().Resultado;
        m.primeira->Retomar();
        QTRY_VERIFY(m.primeira->fim);
        QCOMPARE(m.primeira->fim->fim, Fim::Noutro);
        QCOMPARE(m.Memoria().Estado().Resultado, dito);
    }

    void duas_copias_da_mesma_pasta_tambem_nao()
    {
        Dois m;
        m.Correr_As_Duas(4, false);
        QCOMPARE(m.Aqui(), m.La());
        QCOMPARE(m.Nomes().size(), 50);
        QVERIFY(!m.Correr().com_cautela); // the marks of the one that ended are no sign of an old database
    }

    void quem_escolhe_outro_livro_acaba_a_corrida_que_vai_com_o_antigo()
    {
        Dois m;
        m.primeira.emplace(m, m.s.Pasta());
        m.primeira->Comecar();
        for (int i = 0; i < 4; ++i)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        auto conta = *m.Memoria().Conta();
        conta.Livro = u"https://dav.example/outro/"_s;
        m.Memoria().Guardar(conta);
        QTRY_VERIFY(m.primeira->fim);
        QCOMPARE(m.primeira->fim->fim, Fim::OutraEscolha);
        QCOMPARE(m.s.Linhas(u"SELECT * FROM TblSincronizados"_s), QStringList{});
        QCOMPARE(m.Memoria().Estado().Testemunho, QByteArray());
    }

    void uma_base_reposta_continua_a_ser_antiga_para_quem_toma_a_corrida()
    {
        Dois m;
        m.Correr();
        m.Correr();
        m.s.Escrever(u"UPDATE TblSincronizacao SET Corrida=1"_s); // as it was when the copy was made
        m.s.Escrever(u"DELETE FROM TblLista WHERE Nome='Daqui 1'"_s);
        m.Correr_As_Duas(2, false);
        QCOMPARE(m.primeira->fim->fim, Fim::Noutro);
        QVERIFY(m.segunda->fim->com_cautela);
        QCOMPARE(m.segunda->fim->eliminados_la, 0);
        QVERIFY(!m.Correr().com_cautela);
    }

    void uma_base_reposta_cuja_corrida_morreu_continua_a_ser_antiga_noutro_posto()
    {
        Dois m;
        m.Correr();
        m.Correr();
        m.s.Escrever(u"UPDATE TblSincronizacao SET Corrida=1"_s);
        m.primeira.emplace(m, m.s.Pasta());
        m.primeira->Comecar();
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        m.primeira.reset();
        QVERIFY(m.Memoria().Estado().Corrida < 0);
        m.segunda.emplace(m, m.pasta.path()); // which knows of no earlier runs
        m.segunda->Comecar();
        QTRY_VERIFY(m.segunda->fim);
        QVERIFY(m.segunda->fim->com_cautela);
    }
};

MORVEX_TESTE(TestCorridasSimultaneas)
#include "test_CorridasSimultaneas.moc"
