// The daily question about a newer version, against a small web server of the test.
#include "online/VerificarVersao.h"

#include "session/Main.h"
#include "testlib/Disparar.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QTcpServer>

using namespace Qt::StringLiterals;

namespace
{
// Answers each request with what it was given, and may stop in the middle or never stop.
class ServidorWeb : public QTcpServer
{
public:
    enum class Fim { Fecha, Cala, Sem_Fim };

    explicit ServidorWeb(const QByteArray &resposta, Fim fim = Fim::Fecha) : resposta_(resposta), fim_(fim)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket *cliente = nextPendingConnection();
            connect(cliente, &QTcpSocket::readyRead, this, [this, cliente] { Responder(*cliente); });
        });
    }

    QList<QByteArray> pedidos;

private:
    void Responder(QTcpSocket &cliente)
    {
        pedidos << cliente.readAll();
        cliente.write(resposta_);
        if (fim_ == Fim::Fecha) cliente.disconnectFromHost();
        if (fim_ != Fim::Sem_Fim) return;
        auto *mais = new QTimer(&cliente);
        connect(mais, &QTimer::timeout, &cliente, [&cliente] { cliente.write(QByteArray(8192, 'x')); });
        mais->start(1);
    }

    QByteArray resposta_;
    Fim fim_;
};

QByteArray Pagina(const QByteArray &versao)
{
    return "HTTP/1.0 200 OK\r\nContent-Type: text/plain\r\n\r\n[morvex]\r\nversaoactual=" + versao + "\r\n";
}
} // namespace

class TestVerificarVersao : public QObject
{
    Q_OBJECT

    struct Programa {
        explicit Programa(quint16 porto)
            : main(s.geral, s.plataforma), verificar(main, s.geral, s.plataforma, u"127.0.0.1"_s, porto)
        {
            s.geral.ini.Escrever_Ini(u"morvex"_s, u"data"_s, QString());
            main.Carregar();
            // The window's own checker would ask the real host.
            s.geral.temporizadores.TimerDownload.disconnect(
                main.findChildren<VerificarVersao *>().constFirst());
        }

        void Tique() { Disparar(s.geral.temporizadores.TimerDownload); }
        bool Espera_Fim()
        {
            return QTest::qWaitFor([this] { return main.txtMessages->toPlainText().contains(u"Finished"_s); },
                                   20000);
        }
        void Espera_Pergunta(const QString &versao, int resposta)
        {
            s.caixas.Espera(s.Texto(223) + u' ' + versao + u"\r\n"_s + s.Texto(224), 52, main.windowTitle(),
                            resposta);
        }
        QString Guardada() { return s.geral.ini.Ler_Ini(u"morvex"_s, u"versaoactual"_s); }
        QString Data() { return s.geral.ini.Ler_Ini(u"morvex"_s, u"data"_s); }

        Sistema s;
        Main main;
        VerificarVersao verificar;
    };

private Q_SLOTS:
    void sem_versao_guardada_a_primeira_ja_da_a_pergunta()
    {
        ServidorWeb web(Pagina("5.1"));
        Programa p(web.serverPort());
        p.Espera_Pergunta(u"5.1"_s, answer::yes);
        p.Tique();
        QTRY_COMPARE(p.Guardada(), u"5.1"_s);
        QCOMPARE(p.Data(), u"01-02-2027"_s);
        QCOMPARE(p.s.shell.abertos, QStringList{u"http://127.0.0.1/morvex/downloadredirect.php"
                                                "?idioma=PortuguesPT&3=3&4=0&5=1&6=1.0.0"_s});
        QCOMPARE(p.main.txtMessages->toPlainText(),
                 u"Open Successfull\nConnect Succesfull\nHttp Open Request succesfull\nRequest successfull\n"
                 "Finished downloading 127.0.0.1/versao.ini"_s);
        QVERIFY(web.pedidos.constFirst().startsWith("GET /versao.ini HTTP/1.0\r\n"));
        QVERIFY(QFile::exists(p.s.Ficheiro(u"versao.ini"_s)));
        QCOMPARE(p.s.geral.de.Rs("cmdTotalEmails").State(), Recordset::Closed);
        QCOMPARE(p.s.geral.de.Rs("cmdTotalMemos").State(), Recordset::Closed);
    }

    void enquanto_a_pergunta_esta_no_ecra_um_tique_nada_comeca()
    {
        ServidorWeb web(Pagina("5.1"));
        Programa p(web.serverPort());
        p.Espera_Pergunta(u"5.1"_s, answer::no);
        p.s.caixas.Ao_Mostrar([&] { p.Tique(); });
        p.Tique();
        QTRY_COMPARE(p.Guardada(), u"5.1"_s);
        QTest::qWait(100);
        QCOMPARE(web.pedidos.size(), 1);
        QCOMPARE(p.main.txtMessages->toPlainText().count(u"Open Successfull"_s), 1);
    }

    void o_ficheiro_novo_nao_se_escreve_por_cima_de_outro()
    {
        ServidorWeb web(Pagina("5.1"));
        Programa p(web.serverPort());
        QFile outro(p.s.Ficheiro(u"outro.txt"_s));
        QVERIFY(outro.open(QIODevice::WriteOnly) && outro.write("meu") == 3);
        outro.close();
        QFile::remove(p.s.Ficheiro(u"versao.ini"_s));
        QVERIFY(QFile::link(outro.fileName(), p.s.Ficheiro(u"versao.ini"_s)));
        p.Espera_Pergunta(u"5.1"_s, answer::no);
        p.Tique();
        QTRY_COMPARE(p.Guardada(), u"5.1"_s);
        QVERIFY(outro.open(QIODevice::ReadOnly));
        QCOMPARE(outro.readAll(), QByteArray("meu"));
    }

    void uma_versao_menor_tambem_da_a_pergunta()
    {
        ServidorWeb web(Pagina("5.0"));
        Programa p(web.serverPort());
        p.s.geral.ini.Escrever_Ini(u"morvex"_s, u"versaoactual"_s, u"5.1"_s);
        p.Espera_Pergunta(u"5.0"_s, answer::no);
        p.Tique();
        QTRY_COMPARE(p.Guardada(), u"5.0"_s);
        QVERIFY(p.s.shell.abertos.isEmpty());
    }

    void depois_do_nao_a_mesma_versao_nao_volta_e_a_seguinte_sim()
    {
        ServidorWeb web(Pagina("5.1"));
        Programa p(web.serverPort());
        p.Espera_Pergunta(u"5.1"_s, answer::no);
        p.Tique();
        QTRY_COMPARE(p.Data(), u"01-02-2027"_s);

        p.s.relogio.Avancar_Dias(1);
        p.Tique(); // the same version: no box is announced
        QTRY_COMPARE(p.Data(), u"02-02-2027"_s);

        ServidorWeb nova(Pagina("5.2"));
        Programa q(nova.serverPort());
        q.s.geral.ini.Escrever_Ini(u"morvex"_s, u"versaoactual"_s, u"5.1"_s);
        q.Espera_Pergunta(u"5.2"_s, answer::no);
        q.Tique();
        QTRY_COMPARE(q.Guardada(), u"5.2"_s);
    }

    void novaversao_aviso_nao_muda_nada_data()
    {
        QTest::addColumn<QString>("aviso");
        for (const char *aviso : {"", "0", "1", "nao"})
            QTest::newRow(aviso) << QString::fromLatin1(aviso);
    }
    void novaversao_aviso_nao_muda_nada()
    {
        QFETCH(QString, aviso);
        ServidorWeb web(Pagina("5.1"));
        Programa p(web.serverPort());
        p.s.geral.ini.Escrever_Ini(u"novaversao"_s, u"aviso"_s, aviso);
        p.s.geral.AvisoNovaVersao = aviso;
        p.Espera_Pergunta(u"5.1"_s, answer::no);
        p.Tique();
        QTRY_COMPARE(p.Guardada(), u"5.1"_s);
    }

    void depois_de_uma_boa_resposta_o_dia_esta_feito()
    {
        ServidorWeb web(Pagina("5.1"));
        Programa p(web.serverPort());
        p.Espera_Pergunta(u"5.1"_s, answer::no);
        p.Tique();
        QTRY_COMPARE(p.Data(), u"01-02-2027"_s);
        p.Tique();
        QTest::qWait(100);
        QCOMPARE(web.pedidos.size(), 1);
    }

    void resposta_sem_versao_cala_se_e_tenta_de_novo_data()
    {
        QTest::addColumn<QByteArray>("resposta");
        QTest::newRow("vazia") << QByteArray();
        QTest::newRow("pagina 404") << QByteArray("HTTP/1.0 404 Not Found\r\n\r\n<html>versaoactual</html>");
        QTest::newRow("sem cabecalhos") << QByteArray("[morvex]\r\nversaoactual=9\r\n");
        QTest::newRow("cortada nos cabecalhos") << QByteArray("HTTP/1.0 200 OK\r\nContent-");
        QTest::newRow("versao vazia") << Pagina("");
        QTest::newRow("cortada na chave") << Pagina("9").chopped(13);
    }
    void resposta_sem_versao_cala_se_e_tenta_de_novo()
    {
        QFETCH(QByteArray, resposta);
        ServidorWeb web(resposta);
        Programa p(web.serverPort());
        p.Tique();
        QVERIFY(p.Espera_Fim());
        QCOMPARE(p.Guardada(), QString());
        QCOMPARE(p.Data(), QString());
        p.Tique();
        QTRY_COMPARE(web.pedidos.size(), 2);
    }

    void um_servidor_sem_fim_e_largado_ao_fim_de_64_KiB()
    {
        ServidorWeb web(Pagina("9"), ServidorWeb::Fim::Sem_Fim);
        Programa p(web.serverPort());
        p.Tique();
        QVERIFY(p.Espera_Fim());
        QCOMPARE(p.Guardada(), QString());
        QCOMPARE(QFileInfo(p.s.Ficheiro(u"versao.ini"_s)).size(), 0);
    }

    void um_servidor_que_se_cala_e_largado_e_os_tiques_entretanto_nada_comecam()
    {
        ServidorWeb web("HTTP/1.0 200 OK\r\n", ServidorWeb::Fim::Cala);
        Programa p(web.serverPort());
        p.Tique();
        QTRY_COMPARE(web.pedidos.size(), 1);
        p.Tique();
        QVERIFY(p.Espera_Fim());
        QCOMPARE(web.pedidos.size(), 1);
        QCOMPARE(p.Data(), QString());
    }

    void sem_servidor_durante_dez_minutos_nada_se_mostra()
    {
        quint16 porto = 0;
        {
            QTcpServer fechado;
            fechado.listen(QHostAddress::LocalHost);
            porto = fechado.serverPort();
        }
        Programa p(porto);
        for (int minuto = 1; minuto <= 10; ++minuto) {
            p.s.relogio.Avancar_Minutos(1);
            p.Tique();
            QTRY_COMPARE(p.main.txtMessages->toPlainText().count(u"Finished"_s), minuto);
        }
        QVERIFY(!p.main.txtMessages->toPlainText().contains(u"Request successfull"_s));
        QCOMPARE(p.Data(), QString());
        QCOMPARE(QFileInfo(p.s.Ficheiro(u"versao.ini"_s)).size(), 0);
    }
};

MORVEX_TESTE(TestVerificarVersao)
#include "test_VerificarVersao.moc"
