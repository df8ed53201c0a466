// A value that config.ini would not give back whole: how long one may be, and what is said of a longer one.
#include "data/ValorLongo.h"
#include "testlib/SeteLinguas.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestValorLongo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cabe_o_que_se_le_de_volta_inteiro()
    {
        Sistema s;
        for (const auto &[tamanho, cabe] : {std::pair(254, true), std::pair(255, false)}) {
            const QString valor(tamanho, u'x');
            QCOMPARE(Cabe_No_Ini(valor), cabe);
            s.geral.ini.Escrever_Ini(u"som"_s, u"email"_s, valor);
            QCOMPARE(s.geral.ini.Ler_Ini(u"som"_s, u"email"_s) == valor, cabe);
        }
    }

    void o_aviso_diz_os_dois_tamanhos_e_o_valor_data()
    {
        Nas_Sete_Linguas(
            {u"Este valor tem 300 caracteres, e o programa só guarda até 254. Escolha um mais curto. Nada foi gravado."_s,
             u"Este valor tem 300 caracteres, e o programa só guarda até 254. Escolha um mais curto. Nada foi gravado."_s,
             u"This value has 300 characters, and the program keeps 254 at most. Choose a shorter one. "
             u"Nothing was "
             "stored."_s,
             u"Este valor tiene 300 caracteres, y el programa solo guarda hasta 254. Elija uno más corto. No "
             u"se ha "
             "guardado nada."_s,
             u"Questo valore ha 300 caratteri, e il programma ne conserva al massimo 254. Sceglierne uno più "
             u"corto. "
             "Non è stato salvato nulla."_s,
             u"Cette valeur a 300 caractères, et le programme n’en conserve que 254. Choisissez-en une plus "
             u"courte. "
             "Rien n’a été enregistré."_s,
             u"Dieser Wert hat 300 Zeichen, das Programm merkt sich höchstens 254. Wählen Sie einen "
             u"kürzeren. Es "
             "wurde nichts gespeichert."_s});
    }
    void o_aviso_diz_os_dois_tamanhos_e_o_valor()
    {
        QFETCH(QString, lingua);
        QFETCH(QString, legenda);
        Sistema s;
        s.geral.IdiomaActual = lingua;
        const QString valor(300, u'v');
        s.caixas.Espera(legenda + u"\r\n\r\n"_s + valor, box::stop, QApplication::applicationName());
        Recusar_Valor_Longo(valor, s.geral, s.plataforma, nullptr);
        QVERIFY(s.caixas.Todas_Vistas());
    }
};

MORVEX_TESTE(TestValorLongo)
#include "test_ValorLongo.moc"
