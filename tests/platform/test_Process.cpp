// The end of the process: what was asked before it still goes out, and what stands in memory is left as it lies.
#include "platform/Process.h"

#include "platform/Failure.h"
#include "testlib/Falsos.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
constexpr auto papel = "MORVEX_TESTE_DO_FIM"; // how the other program is to end

// As the whole program has them: one that writes as the process takes it down.
class Testemunha
{
public:
    ~Testemunha()
    {
        if (!ficheiro_.empty()) std::ofstream(ficheiro_) << "destruida";
    }
    void Escrever_Em(const QString &ficheiro) { ficheiro_ = ficheiro.toStdString(); }

private:
    std::string ficheiro_;
} testemunha;

void Dizer(const char *palavra) { std::fputs(palavra, stdout); }

// What the other program does: it leaves three words behind, one a way, and ends.
int Outro_Programa(const QString &fim, const QString &ficheiro)
{
    testemunha.Escrever_Em(ficheiro);
    Dizer("dita ");
    static auto *de_partida = new QObject;
    QObject::connect(de_partida, &QObject::destroyed, [] { Dizer("apagada "); });
    de_partida->deleteLater();
    QMetaObject::invokeMethod(QCoreApplication::instance(), [] { Dizer("enviada "); }, Qt::QueuedConnection);
    if (fim == "OwnProcess"_L1) OwnProcess().end();
    return 0;
}
} // namespace

class TestProcess : public QObject
{
    Q_OBJECT

    struct Fim {
        QStringList palavras;
        bool destruida; // whether the process took down what it had
    };

    static Fim Correr(const QString &como)
    {
        const QTemporaryDir pasta;
        QProcess outro;
        QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
        ambiente.insert(QString::fromLatin1(papel), como);
        outro.setProcessEnvironment(ambiente);
        const QString ficheiro = pasta.filePath(u"destruida"_s);
        outro.start(QCoreApplication::applicationFilePath(), {ficheiro});
        if (!outro.waitForFinished() || outro.exitStatus() != QProcess::NormalExit || outro.exitCode() != 0)
            QTest::qFail(outro.readAllStandardError().constData(), __FILE__, __LINE__);
        const QString dito = QString::fromLatin1(outro.readAllStandardOutput());
        return {dito.split(u' ', Qt::SkipEmptyParts), QFileInfo::exists(ficheiro)};
    }

private Q_SLOTS:
    void o_processo_acaba_sem_desfazer_o_que_tem()
    {
        QVERIFY(Correr(u"return"_s).destruida); // any other end does
        QVERIFY(!Correr(u"OwnProcess"_s).destruida);
    }

    void uma_falha_que_acaba_com_o_processo_diz_se_primeiro()
    {
        CaixasFalsas caixas;
        ProcessoFalso processo;
        endOnFailure(caixas, processo, [] {});
        QCOMPARE(processo.fins, 0);
        caixas.Espera_Erro(Failure::ItemNotFound);
        endOnFailure(caixas, processo, [] { throw Failure(Failure::ItemNotFound, u"x"_s, u"y"_s); });
        QVERIFY(caixas.Todas_Vistas());
        QCOMPARE(processo.fins, 1);
    }

    void um_servidor_que_se_foi_nao_acaba_com_o_processo()
    {
        CaixasFalsas caixas;
        ProcessoFalso processo;
        const Failure foi_se(Failure::StoreError, u"x"_s, u"y"_s, Failure::Kind::ServerLost);
        QVERIFY_THROWS_EXCEPTION(Failure, endOnFailure(caixas, processo, [&foi_se] { throw foi_se; }));
        QCOMPARE(processo.fins, 0);
    }

    void o_que_se_pediu_antes_do_fim_ainda_sai()
    {
        QCOMPARE(Correr(u"OwnProcess"_s).palavras, (QStringList{u"dita"_s, u"apagada"_s, u"enviada"_s}));
        QCOMPARE(Correr(u"return"_s).palavras, QStringList{u"dita"_s});
    }
};

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (const QString como = qEnvironmentVariable(papel); !como.isEmpty())
        return Outro_Programa(como, application.arguments().constLast());
    TestProcess testes;
    return QTest::qExec(&testes, argc, argv);
}
#include "test_Process.moc"
