// The program itself as a terminal starts it: answers and refusals, without a display and without touching
// data.
#include "testlib/Teste.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{
struct Fim {
    int codigo;
    QString dito;
    QString queixa;
};
} // namespace

class TestLinhaDeComandos : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> pasta_;

    QString Casa() const { return pasta_->filePath(u"casa"_s); }

    // One run, in English, on a machine without a display, to its end.
    Fim Correr(const QStringList &palavras) const
    {
        QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
        for (const QString &nome : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"QT_QPA_PLATFORM"_s, u"LANGUAGE"_s})
            ambiente.remove(nome);
        ambiente.insert(u"MORVEX_HOME"_s, Casa());
        ambiente.insert(u"LC_ALL"_s, u"en_GB.UTF-8"_s);
        QProcess programa;
        programa.setProcessEnvironment(ambiente);
        programa.setWorkingDirectory(pasta_->path());
        programa.start(qEnvironmentVariable("MORVEX_ENVIADOS") + u"/morvex"_s, palavras);
        const bool acabou = programa.waitForFinished() && programa.exitStatus() == QProcess::NormalExit;
        return {acabou ? programa.exitCode() : -1, QString::fromUtf8(programa.readAllStandardOutput()),
                QString::fromUtf8(programa.readAllStandardError())};
    }

private Q_SLOTS:
    void init() { pasta_ = std::make_unique<QTemporaryDir>(); }

    // No run of this test leaves anything behind.
    void cleanup() { QVERIFY(!QFileInfo::exists(Casa())); }

    void a_versao_vai_para_a_saida()
    {
        const Fim fim = Correr({u"--version"_s});
        QCOMPARE(fim.codigo, 0);
        QCOMPARE(fim.dito, u"Morvex "_s + QStringLiteral(MORVEX_VERSION) + u'\n');
        QCOMPARE(fim.queixa, QString());
    }

    void a_ajuda_vai_para_a_saida()
    {
        const Fim fim = Correr({u"--help"_s});
        QCOMPARE(fim.codigo, 0);
        QVERIFY2(fim.dito.contains(u"--minimized"_s), qPrintable(fim.dito));
        QVERIFY(fim.dito.contains(u"morvex [options] [files...]"_s));
        QCOMPARE(fim.queixa, QString());
    }

    void uma_opcao_desconhecida_e_uma_queixa_e_o_codigo_dois()
    {
        const Fim fim = Correr({u"--nada"_s});
        QCOMPARE(fim.codigo, 2);
        QCOMPARE(fim.dito, QString());
        QCOMPARE(fim.queixa, u"Unknown option: nada\nThe options are shown by: morvex --help\n"_s);
    }

    void um_ficheiro_que_nao_serve_e_uma_queixa_e_o_codigo_dois()
    {
        QVERIFY(QFile(pasta_->filePath(u"carta.doc"_s)).open(QIODevice::WriteOnly));
        const Fim fim = Correr({u"carta.doc"_s});
        QCOMPARE(fim.codigo, 2);
        QVERIFY2(fim.queixa.startsWith(u"Files of this kind cannot be opened: carta.doc\n"_s),
                 qPrintable(fim.queixa));
        QCOMPARE(Correr({u"falta.vcf"_s}).codigo, 2);
    }
};

MORVEX_TESTE(TestLinhaDeComandos)
#include "test_linha_de_comandos.moc"
