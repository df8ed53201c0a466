// The password of a mail account: it goes to the server, and stands nowhere else.
#include "online/CicloCorreio.h"
#include "data/Codificar_Email.h"
#include "online/frmPopupEmail.h"
#include "mail/PopMailNotification.h"
#include "session/Main.h"
#include "testlib/Disparar.h"
#include "testlib/ServidorPop.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QDirIterator>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{
const QString segredo = u"Segredo9xyz"_s;
constexpr PopMailNotification::Pace depressa{500ms, 0ms, {500, 600, 3000}};

QString diario; // all that the program and its libraries write to the log

void Tomar_Nota(QtMsgType, const QMessageLogContext &contexto, const QString &texto)
{
    diario += QString::fromUtf8(contexto.category) + u' ' + texto + u'\n';
}

// The program with the real mail checker.
struct Programa {
    Programa()
    {
        main.Carregar();
        s.geral.EmailNotifyActivo = 1;
        s.geral.EmailNotifyMinutos = 5;
    }

    void Nova_Conta(const ServidorPop &servidor)
    {
        QString saida;
        s.geral.de.Executar("cmdInserirEmail",
                            {u"ana@x.example"_s, u"127.0.0.1:"_s + QString::number(servidor.serverPort()),
                             u"ana"_s, Codificar_Email(segredo, saida), u"0"});
    }

    // A whole check of the one account, to what the card says of it.
    QString Verificar()
    {
        if (Popup() != nullptr) Popup()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const QString procura = u"ana@x.example ("_s + s.Texto(261) + u')';
        main.mnuMailNotification->trigger();
        QString cartao = procura;
        [[maybe_unused]] const bool a_tempo = QTest::qWaitFor(
            [&] {
                if (correio.Falhou() || correio.NumeroMensagens() > 0)
                    Disparar(s.geral.temporizadores.TimerMailNotification3);
                return (cartao = Cartao()) != procura;
            },
            5000);
        return cartao;
    }

    frmPopupEmail *Popup()
    {
        for (QWidget *janela : QApplication::topLevelWidgets())
            if (auto *popup = qobject_cast<frmPopupEmail *>(janela)) return popup;
        return nullptr;
    }
    QString Cartao() { return Popup() != nullptr ? Popup()->StatusLabel->text() : QString(); }

    Sistema s;
    PopMailNotification correio{s.Ficheiro(u"correio.json"_s), [this] { return s.geral.IdiomaActual; },
                                depressa};
    Platform plataforma{s.relogio, s.caixas, s.dialogos,   s.shell,    s.som,
                        s.registo, correio,  s.mensageiro, s.processo, s.tabuleiro, s.segredos};
    Main main{s.geral, plataforma};
};

bool Contem_Segredo(const QByteArray &bytes)
{
    const QByteArray largo(reinterpret_cast<const char *>(segredo.utf16()), segredo.size() * 2);
    return bytes.contains(segredo.toUtf8()) || bytes.contains(largo) ||
           bytes.contains(segredo.toUtf8().toBase64().first(12));
}

QByteArray Ler(const QString &caminho)
{
    QFile ficheiro(caminho);
    return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.readAll() : QByteArray();
}
} // namespace

class TestSegredos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_palavra_passe_nao_fica_em_lado_nenhum()
    {
        QLoggingCategory::setFilterRules(u"*=true"_s);
        const auto antes = qInstallMessageHandler(Tomar_Nota);
        QStringList cartoes;
        int entregas = 0;
        Programa p;
        ServidorPop servidor(Conversa_Boa());
        p.Nova_Conta(servidor);
        cartoes << p.Verificar();
        for (const QByteArray &resposta :
             {"-ERR wrong password " + segredo.toUtf8() + "\r\n", segredo.toUtf8() + "\r\n"}) {
            servidor.falas = Conversa_Boa().mid(0, 4);
            servidor.falas.last().resposta = resposta;
            cartoes << p.Verificar();
        }
        entregas = static_cast<int>(servidor.ouvido.count("PASS " + segredo.toUtf8()));
        qInstallMessageHandler(antes);

        QCOMPARE(cartoes.size(), 3);
        QCOMPARE(cartoes.first(), u"2 "_s + p.s.Texto(259) + u" (ana@x.example)"_s);
        QVERIFY2(entregas >= 3, qPrintable(QString::number(entregas))); // it did go to the server
        for (const QString &cartao : cartoes)
            QVERIFY2(!Contem_Segredo(cartao.toUtf8()), qPrintable(cartao));
        QVERIFY(!Contem_Segredo(p.main.txtMessages->toPlainText().toUtf8()));
        QVERIFY(!Contem_Segredo(diario.toUtf8()));
        QVERIFY(!Contem_Segredo(Ler(u"/proc/self/cmdline"_s)));
        QVERIFY(!Contem_Segredo(Ler(u"/proc/self/environ"_s)));

        QStringList vistos;
        for (QDirIterator ficheiros(p.s.Pasta(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
             ficheiros.hasNext();) {
            const QString caminho = ficheiros.next();
            vistos << ficheiros.fileName();
            QVERIFY2(!Contem_Segredo(Ler(caminho)), qPrintable(caminho));
        }
        for (const char *nome : {"config.ini", "correio.json", "morvex.mdb"})
            QVERIFY2(vistos.contains(QLatin1StringView(nome)), nome);
    }
};

MORVEX_TESTE(TestSegredos)
#include "test_Segredos.moc"
