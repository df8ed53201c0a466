// What is handed to the desktop: the address as its programs understand it, and the settings of date and
// time.
#include "platform/Shell.h"
#include "testlib/SaidaDesviada.h"
#include "testlib/Teste.h"

#include <QDesktopServices>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class TestDesktopShell : public QObject
{
    Q_OBJECT

    QStringList abertos_;

    // A program of that name in the folder, which writes down what it was started with.
    static void Programa(const QTemporaryDir &pasta, const QString &nome)
    {
        QFile ficheiro(pasta.filePath(nome));
        QVERIFY(ficheiro.open(QIODevice::WriteOnly));
        ficheiro.write("#!/bin/sh\necho falou\necho falou >&2\nprintf '%s' \"${0##*/} $*\" > \"${0%/*}/visto.tmp\"\n"
                       "/bin/mv \"${0%/*}/visto.tmp\" \"${0%/*}/visto\"\n");
        ficheiro.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }

    static QString Visto(const QTemporaryDir &pasta)
    {
        QFile ficheiro(pasta.filePath(u"visto"_s));
        return ficheiro.open(QIODevice::ReadOnly) ? QString::fromUtf8(ficheiro.readAll()) : QString();
    }

public Q_SLOTS:
    void abrir(const QUrl &endereco) { abertos_ << endereco.toString(); }

private Q_SLOTS:
    void init()
    {
        abertos_.clear();
        for (const char *esquema : {"http", "https", "mailto", "file"})
            QDesktopServices::setUrlHandler(QLatin1StringView(esquema), this, "abrir");
    }

    void cleanup()
    {
        for (const char *esquema : {"http", "https", "mailto", "file"})
            QDesktopServices::unsetUrlHandler(QLatin1StringView(esquema));
    }

    void o_que_se_entrega_ao_ambiente_data()
    {
        QTest::addColumn<QString>("alvo");
        QTest::addColumn<QString>("endereco");
        QTest::newRow("sem esquema") << u"www.x.example"_s << u"http://www.x.example"_s;
        QTest::newRow("sem esquema, com porta")
            << u"www.x.example:8080/a"_s << u"http://www.x.example:8080/a"_s;
        QTest::newRow("com esquema") << u"https://x.example/a?b=c"_s << u"https://x.example/a?b=c"_s;
        QTest::newRow("correio") << u"mailto:ana@x.example"_s << u"mailto:ana@x.example"_s;
        QTest::newRow("sinais de uma linha de comandos")
            << u"mailto:ana@x.example;reboot"_s << u"mailto:ana@x.example;reboot"_s;
        QTest::newRow("ficheiro") << u"/pasta/leiame.txt"_s << u"file:///pasta/leiame.txt"_s;
    }
    void o_que_se_entrega_ao_ambiente()
    {
        QFETCH(QString, alvo);
        QFETCH(QString, endereco);
        DesktopShell().open(alvo);
        QCOMPARE(abertos_, QStringList{endereco});
    }

    void a_data_e_a_hora_abrem_no_programa_do_ambiente_data()
    {
        QTest::addColumn<QByteArray>("ambiente");
        QTest::addColumn<QString>("visto");
        QTest::newRow("GNOME") << QByteArray("ubuntu:GNOME") << u"gnome-control-center datetime"_s;
        QTest::newRow("KDE") << QByteArray("KDE") << u"systemsettings kcm_clock"_s;
        QTest::newRow("Cinnamon") << QByteArray("X-Cinnamon") << u"cinnamon-settings calendar"_s;
        QTest::newRow("MATE") << QByteArray("MATE") << u"mate-time-admin "_s;
        QTest::newRow("LXQt") << QByteArray("LXQt") << u"lxqt-admin-time "_s;
        QTest::newRow("outro") << QByteArray("XFCE") << u"time-admin "_s;
    }
    void a_data_e_a_hora_abrem_no_programa_do_ambiente()
    {
        QFETCH(QByteArray, ambiente);
        QFETCH(QString, visto);
        const QTemporaryDir pasta;
        for (const auto &nome : {u"gnome-control-center"_s, u"systemsettings"_s, u"cinnamon-settings"_s,
                                 u"mate-time-admin"_s, u"lxqt-admin-time"_s, u"time-admin"_s})
            Programa(pasta, nome);
        qputenv("PATH", pasta.path().toLocal8Bit());
        qputenv("XDG_CURRENT_DESKTOP", ambiente);
        DesktopShell().openDateAndTimeSettings();
        QTRY_COMPARE(Visto(pasta), visto);
    }

    void onde_falta_o_programa_mais_novo_serve_o_outro_que_la_houver()
    {
        for (const auto &[programa, argumentos] :
             {std::pair{u"systemsettings5"_s, u"kcm_clock"_s},
              {u"rundll32.exe"_s, u"shell32.dll,Control_RunDLL timedate.cpl"_s}}) {
            const QTemporaryDir pasta;
            Programa(pasta, programa);
            qputenv("PATH", pasta.path().toLocal8Bit());
            qputenv("XDG_CURRENT_DESKTOP", "KDE");
            DesktopShell().openDateAndTimeSettings();
            QTRY_COMPARE(Visto(pasta), programa + u' ' + argumentos);
        }
    }

    void o_que_o_programa_da_hora_diz_nao_sai_por_este()
    {
        const QTemporaryDir pasta;
        Programa(pasta, u"time-admin"_s);
        qputenv("PATH", pasta.path().toLocal8Bit());
        qputenv("XDG_CURRENT_DESKTOP", "XFCE");
        QByteArray dito;
        {
            const SaidaDesviada saida;
            DesktopShell().openDateAndTimeSettings();
            [[maybe_unused]] const bool a_tempo = QTest::qWaitFor([&] { return !Visto(pasta).isEmpty(); });
            dito = saida.Dito();
        }
        QCOMPARE(Visto(pasta), u"time-admin "_s);
        QCOMPARE(dito, QByteArray());
    }

    void sem_programa_para_a_hora_nada_acontece()
    {
        const QTemporaryDir pasta;
        Programa(pasta, u"systemsettings"_s);
        qputenv("PATH", pasta.path().toLocal8Bit());
        qputenv("XDG_CURRENT_DESKTOP", "XFCE");
        DesktopShell().openDateAndTimeSettings();
        QTest::qWait(100);
        QCOMPARE(Visto(pasta), QString());
    }
};

MORVEX_TESTE(TestDesktopShell)
#include "test_DesktopShell.moc"
