// Texts of settings as 16-bit integers.
#include "data/Inteiro.h"
#include "testlib/FalhaDita.h"
#include "testlib/Teste.h"

#include <limits>

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
        QCOMPARE(Inteiro(u"-32768"_s), std::numeric_limits<qint16>::min());
    }

    void o_que_nao_e_numero_nao_se_converte()
    {
        for (const QString &texto : {QString(), u"muitos"_s, u"1,5"_s, u"0x10"_s})
            VERIFICAR_FALHA(Inteiro(texto), Failure::TypeMismatch);
    }

    void a_falha_diz_que_texto_era()
    {
        QCOMPARE(teste::Falha_Dita([] { Inteiro(u"muitos"_s); }),
                 (QStringList{u"muitos"_s, u"\"muitos\" is no whole number"_s}));
        QCOMPARE(teste::Falha_Dita([] { Inteiro(u"32768"_s); }),
                 (QStringList{u"32768"_s, u"32768 does not fit 16 bits"_s}));
    }

    void o_que_nao_cabe_em_16_bits_transborda()
    {
        VERIFICAR_FALHA(Inteiro(u"32768"_s), Failure::OutOfMemoryOrRange);
        VERIFICAR_FALHA(Inteiro(u"-32769"_s), Failure::OutOfMemoryOrRange);
    }
};

MORVEX_TESTE(TestInteiro)
#include "test_Inteiro.moc"
