// A run that ends in the middle, wherever that is: the next one goes on from there.
#include "sincronizacao/MesDeGente.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
// Lets a run live for so many turns of the event loop; all of it for -1. Returns how many it had.
int Viver(MesaDaSincronizacao &m, int voltas)
{
    bool acabou = false;
    int quantas = 0;
    {
        auto corrida = m.Nova();
        QObject::connect(corrida.get(), &Sincronizacao::Terminada, [&] { acabou = true; });
        corrida->Comecar();
        while (!acabou && quantas != voltas) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            ++quantas;
        }
    }
    return quantas;
}
} // namespace

class TestMortesDaSincronizacao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cem_mortes_ao_acaso_com_quinhentos_cartoes()
    {
        MesaDaSincronizacao m;
        QRandomGenerator acaso(2027);
        MesDeGente gente(m, 7);
        gente.Povoar(500);
        int no_meio = 0;
        for (int morte = 0; morte < 100; ++morte) {
            const int voltas = static_cast<int>(acaso.bounded(25));
            if (Viver(m, voltas) == voltas) ++no_meio;
            for (int i = 0; i < 8; ++i)
                gente.Alguma_Coisa();
        }
        QVERIFY2(no_meio > 50, qPrintable(QString::number(no_meio)));
        Viver(m, -1);
        Viver(m, -1);
        Viver(m, -1);
        const auto fim = m.Correr();
        QCOMPARE(fim.fim, ResultadoDaSincronizacao::Fim::Feita);
        QVERIFY(!fim.Mudou_Aqui() && !fim.Mudou_La());
        const QStringList faltas = gente.Faltas();
        QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join(u'\n')));
        qInfo("%d of 100 ended in the middle; %zu cards in the end", no_meio, m.servidor.cartoes.size());
    }

    // Without any edits in between: the first upload, cut at every single turn.
    void o_primeiro_envio_cortado_a_cada_volta_nao_poe_nada_duas_vezes()
    {
        MesaDaSincronizacao modelo;
        for (int i = 0; i < 30; ++i)
            modelo.Contacto(u"Pessoa %1"_s.arg(i), u"91%1"_s.arg(1000000 + i));
        const int todas = Viver(modelo, -1);
        for (int volta = 0; volta < todas; ++volta) {
            MesaDaSincronizacao m;
            for (int i = 0; i < 30; ++i)
                m.Contacto(u"Pessoa %1"_s.arg(i), u"91%1"_s.arg(1000000 + i));
            Viver(m, volta);
            Viver(m, -1);
            QCOMPARE(m.servidor.cartoes.size(), 30U);
            QCOMPARE(m.Nomes().size(), 30);
            QCOMPARE(m.Aqui(), m.La());
        }
        QVERIFY(todas > 5);
    }
};

MORVEX_TESTE(TestMortesDaSincronizacao)
#include "test_MortesDaSincronizacao.moc"
