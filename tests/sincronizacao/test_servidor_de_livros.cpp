// Synchronising with a real server: a thousand cards, how often it is asked, and processes that are killed.
#include "sincronizacao/MesaComServidor.h"
#include "testlib/Teste.h"

#include <csignal>
#include <QRandomGenerator>

namespace
{
constexpr char modo_de_filho[] = "--filho";

struct ComServidor : MesaComServidor {
    ComServidor() : MesaComServidor(std::make_shared<LivroNoServidor>()) {}
};

// The second process: one run, or as much of it as it lives to see.
int Filho(const QStringList &pedido)
{
    Geral geral(pedido.at(0));
    geral.IdiomaActual = u"PortuguesPT"_s;
    geral.SessaoActual = {u"Eva"_s, pedido.at(2), false, true, true, true, true, true};
    SystemClock relogio;
    Sincronizacao corrida(
        geral, relogio,
        std::make_unique<AddressBook>(QUrl(pedido.at(1)), RemoteAccount{pedido.at(3), pedido.at(4)}),
        Sincronizacao::Modo::Normal);
    QObject::connect(&corrida, &Sincronizacao::Terminada, qApp,
                     [](const auto &fim) { QCoreApplication::exit(static_cast<int>(fim.fim)); });
    corrida.Comecar();
    return QCoreApplication::exec();
}
} // namespace

class TestServidorDeLivros : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (QStandardPaths::findExecutable(u"radicale"_s).isEmpty()) QSKIP("radicale is not installed");
    }

    void mil_cartoes_vao_e_sem_mudancas_ha_no_maximo_cinco_pedidos()
    {
        ComServidor m;
        m.Povoar(1000);
        ResultadoDaSincronizacao fim;
        const qint64 envio = m.Correr_De_Verdade(&fim);
        QCOMPARE(fim.adicionados_la, 1000);
        m.Correr_De_Verdade(); // what the server has written anew is seen
        Contador contador(m.livro->porta);
        const qint64 nada = m.Correr_De_Verdade(&fim, contador.serverPort());
        QVERIFY(!fim.Mudou_Aqui() && !fim.Mudou_La());
        QVERIFY2(contador.conta.pedidos > 0 && contador.conta.pedidos <= 5,
                 qPrintable(QString::number(contador.conta.pedidos)));
        const int de_nada = contador.conta.pedidos;

        for (int i = 0; i < 20; ++i)
            m.Mudar(m.ID_De(u"Pessoa %1"_s.arg(i)), u"Fax"_s, u"21%1"_s.arg(1000000 + i));
        for (int i = 20; i < 30; ++i)
            m.Eliminar(m.ID_De(u"Pessoa %1"_s.arg(i)));
        contador.conta = {};
        const qint64 poucas = m.Correr_De_Verdade(&fim, contador.serverPort());
        QCOMPARE(fim.alterados_la, 20);
        QCOMPARE(fim.eliminados_la, 10);
        const int de_poucas = contador.conta.pedidos;
        QVERIFY2(de_poucas <= 90, qPrintable(QString::number(de_poucas)));
        QCOMPARE(m.Aqui(), m.Lidos_La());

        // Another book, empty, receives everything.
        m.s.Escrever(u"DELETE FROM TblLista"_s);
        m.s.Escrever(u"DELETE FROM TblCartoes"_s);
        m.s.Escrever(u"DELETE FROM TblSincronizados"_s);
        m.s.Escrever(u"UPDATE TblSincronizacao SET Testemunho=''"_s);
        contador.conta = {};
        const qint64 vinda = m.Correr_De_Verdade(&fim, contador.serverPort());
        QCOMPARE(fim.adicionados, 990);
        QCOMPARE(m.Aqui(), m.Lidos_La());
        qInfo("1000 sent: %lld ms; unchanged: %lld ms, %d requests; 20 changed and 10 deleted: %lld ms, %d "
              "requests; "
              "990 received: %lld ms, %d requests",
              envio, nada, de_nada, poucas, de_poucas, vinda, contador.conta.pedidos);
    }

    void mudancas_de_duas_secretarias_chegam_as_duas()
    {
        ComServidor um;
        um.Povoar(20);
        um.Correr_De_Verdade();
        MesaComServidor outro(um.livro);
        outro.Correr_De_Verdade();
        um.Mudar(um.ID_De(u"Pessoa 1"_s), u"Fax"_s, u"211111111"_s);
        outro.Mudar(outro.ID_De(u"Pessoa 1"_s), u"Morada"_s, u"Rua Nova"_s);
        outro.Eliminar(outro.ID_De(u"Pessoa 2"_s));
        um.Correr_De_Verdade();
        outro.Correr_De_Verdade();
        um.Correr_De_Verdade();
        QCOMPARE(um.Aqui(), outro.Aqui());
        QCOMPARE(um.Nomes().size(), 19);
        QCOMPARE(um.Valor(um.ID_De(u"Pessoa 1"_s), u"Fax || Morada"_s), u"211111111Rua Nova"_s);
        QCOMPARE(um.Aqui(), um.Lidos_La());
    }

    void processos_mortos_a_meio_nao_poem_nada_duas_vezes()
    {
        ComServidor m;
        m.Povoar(200);
        m.s.geral.de.Fechar_Ligacao();
        QRandomGenerator acaso(11);
        int mortos = 0;
        for (int i = 0; i < 12; ++i) {
            QProcess filho;
            filho.setProcessChannelMode(QProcess::ForwardedErrorChannel);
            filho.start(QCoreApplication::applicationFilePath(),
                        {QLatin1String(modo_de_filho), m.s.Pasta(), m.livro->Endereco().toString(),
                         m.s.geral.SessaoActual.IdUtilizador, m.livro->Conta().user,
                         m.livro->Conta().password});
            QVERIFY(filho.waitForStarted());
            if (filho.waitForFinished(150 + static_cast<int>(acaso.bounded(300)))) continue;
            ::kill(static_cast<pid_t>(filho.processId()), SIGKILL);
            filho.waitForFinished();
            ++mortos;
        }
        QVERIFY2(mortos > 2, qPrintable(QString::number(mortos)));
        m.s.geral.de.Reabrir_Ligacao();
        const auto antes =
            static_cast<int>(m.s.Linhas(u"SELECT Par FROM TblSincronizados WHERE estado=0"_s).size());
        m.Correr_De_Verdade();
        ResultadoDaSincronizacao fim;
        m.Correr_De_Verdade(&fim);
        QVERIFY(!fim.Mudou_Aqui() && !fim.Mudou_La());
        QCOMPARE(m.Nomes().size(), 200);
        QCOMPARE(static_cast<int>(m.Tudo_La().size()), 200);
        QCOMPARE(m.Aqui(), m.Lidos_La());
        qInfo("%d processes killed; %d of 200 were agreed on by then", mortos, antes);
    }
};

int main(int argc, char **argv)
{
    teste::CaixasDaAplicacao caixas;
    Application application(argc, argv, caixas);
    const QStringList pedido = QCoreApplication::arguments();
    if (pedido.value(1) == QLatin1String(modo_de_filho)) return Filho(pedido.mid(2));
    TestServidorDeLivros testes;
    return QTest::qExec(&testes, argc, argv);
}
#include "test_servidor_de_livros.moc"
