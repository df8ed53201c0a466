// Starting with the desktop: the options over a real folder of programs that do.
#include "platform/DesktopRegistry.h"
#include "session/Autorun.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
const QString chave = u"Software\\Microsoft\\Windows\\CurrentVersion\\Run"_s;

struct ComPasta {
    QStringList Entradas() const { return QDir(pasta.path()).entryList(QDir::Files, QDir::Name); }
    QString Alvo(const QString &nome) { return registo.readString(Registry::Root::CurrentUser, chave, nome); }

    QTemporaryDir pasta;
    DesktopRegistry registo{pasta.path()};
};
} // namespace

class TestAutorun : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ligar_escreve_o_programa_sob_o_nome_com_a_versao()
    {
        ComPasta p;
        autorun::Ligar(p.registo, u"4.2"_s);
        QCOMPARE(p.Entradas(), QStringList{u"Morvex 4.2.desktop"_s});
        QCOMPARE(p.Alvo(u"Morvex 4.2"_s), QCoreApplication::applicationFilePath());
    }

    void ligar_duas_vezes_deixa_uma_entrada()
    {
        ComPasta p;
        autorun::Ligar(p.registo, u"4.2"_s);
        autorun::Ligar(p.registo, u"4.2"_s);
        QCOMPARE(p.Entradas().size(), 1);
    }

    void desligar_apaga_o_mesmo_valor()
    {
        ComPasta p;
        autorun::Ligar(p.registo, u"4.2"_s);
        autorun::Desligar(p.registo, u"4.2"_s);
        QVERIFY(p.Entradas().isEmpty());
    }

    void o_valor_de_uma_versao_anterior_fica_para_tras()
    {
        ComPasta p;
        autorun::Ligar(p.registo, u"4.1"_s);
        autorun::Ligar(p.registo, u"4.2"_s);
        autorun::Desligar(p.registo, u"4.2"_s);
        QCOMPARE(p.Entradas(), QStringList{u"Morvex 4.1.desktop"_s});
    }

    void desligar_o_que_nao_esta_ligado_nao_faz_nada()
    {
        ComPasta p;
        autorun::Desligar(p.registo, u"4.2"_s);
        QVERIFY(p.Entradas().isEmpty());
    }
};

MORVEX_TESTE(TestAutorun)
#include "test_autorun.moc"
