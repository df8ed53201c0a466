// Texts of settings as 16-bit integers.
#include "data/Inteiro.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestInteiro : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void um_numero_inteiro_converte_se()
    {
        QCOMPARE(Inteiro(u"60"_s), qint16{60});
        QCOMPARE(Inteiro(u"-1"_s), qint16{-1});
        QCOMPARE(Inteiro(u"32767"_s), qint16{32767});
    }

    void o_que_nao_e_numero_nao_se_converte()
    {
        for (const QString &texto : {QString(), u"muitos"_s, u"1,5"_s, u"0x10"_s})
            VERIFICAR_FALHA(Inteiro(texto), Failure::TypeMismatch);
    }

    void o_que_nao_cabe_em_16_bits_transborda()
    {
        VERIFICAR_FALHA(Inteiro(u"32768"_s), Failure::OutOfMemoryOrRange);
        VERIFICAR_FALHA(Inteiro(u"-32769"_s), Failure::OutOfMemoryOrRange);
    }
};

MORVEX_TESTE(TestInteiro)
#include "test_Inteiro.moc"
