// A start of the edition that reaches no servers, where config.ini has the address of one.
#include "platform/ErrorText.h"
#include "session/Arranque.h"
#include "session/Main.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestStartWithAddress : public QObject
{
    Q_OBJECT

    static constexpr int stopWithRetryAndLeave = 21;

    // Whether the start came past its first use of the database.
    static bool started(Main &window)
    {
        Arranque start = window.Inicio();
        for (const Arranque::Passo &step : start.Passos())
            if (QByteArray(step.nome) == "Ler_TblConfig") return skipFailure(step.executar);
        return false;
    }
    static void putAddress(Sistema &s)
    {
        const QString address = u"postgresql://ana@servidor/agenda"_s;
        s.geral.de.Fechar_Ligacao();
        s.geral.ini.Escrever_Ini(u"basedados"_s, u"caminhobd"_s, address);
        s.geral.de.Base().Tomar(address);
    }

private Q_SLOTS:
    void it_says_so_and_ends_where_nobody_wants_to_try_again()
    {
        Sistema s;
        Main window(s.geral, s.plataforma);
        putAddress(s);
        s.caixas.Espera_Qualquer(stopWithRetryAndLeave, u"Morvex"_s, answer::leave);
        QVERIFY(!started(window));
        QVERIFY(s.caixas.Todas_Vistas());
        const QString said = s.caixas.vistas.constFirst();
        QVERIFY2(said.contains(u"trabalha só com um ficheiro"_s), qPrintable(said));
        QVERIFY2(said.contains(u"postgresql://ana@servidor/agenda"_s), qPrintable(said));
        QCOMPARE(s.processo.fins, 1);
    }

    void a_file_in_its_place_is_opened_at_the_next_try()
    {
        Sistema s;
        Main window(s.geral, s.plataforma);
        putAddress(s);
        s.caixas.Espera_Qualquer(stopWithRetryAndLeave, u"Morvex"_s, answer::retry);
        s.caixas.Ao_Mostrar([&s] { s.geral.ini.Escrever_Ini(u"basedados"_s, u"caminhobd"_s, s.Base()); });
        QVERIFY(started(window));
        QVERIFY(!s.processo.Terminou());
        QCOMPARE(s.geral.CaminhoBD, s.Base());
    }
};

MORVEX_TESTE(TestStartWithAddress)
#include "test_StartWithAddress.moc"
