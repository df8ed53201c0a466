// The sounds of the program: which file an event sounds with, and silence about whatever goes wrong.
#include "data/Tocar_Som.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
class SomAvariado final : public Sound
{
public:
    void play(const QString &file) override { throw Failure(Failure::FileNotFound, file, file); }
};
} // namespace

class TestTocarSom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toca_o_ficheiro_pedido()
    {
        SomFalso som;
        Tocar_Som(som, u"/um.wav"_s);
        QCOMPARE(som.tocados, QStringList{u"/um.wav"_s});
    }

    void uma_falha_do_som_nao_chega_a_quem_pede()
    {
        SomAvariado som;
        bool chegou = false;
        try {
            Tocar_Som(som, u"/um.wav"_s);
        } catch (const Failure &) {
            chegou = true;
        }
        QVERIFY(!chegou);
    }

    void sem_escolha_do_utilizador_toca_o_do_programa()
    {
        Sistema s;
        QCOMPARE(Som_Do_Email(s.geral), s.Ficheiro(u"newemail.wav"_s));
        QCOMPARE(Som_Da_Tarefa(s.geral), s.Ficheiro(u"tarefa.wav"_s));
        s.geral.SomEmail = u"/e.wav"_s;
        s.geral.SomTarefa = u"/t.wav"_s;
        QCOMPARE(Som_Do_Email(s.geral), u"/e.wav"_s);
        QCOMPARE(Som_Da_Tarefa(s.geral), u"/t.wav"_s);
    }
};

MORVEX_TESTE(TestTocarSom)
#include "test_Tocar_Som.moc"
