// The scrambling of user passwords.
#include "data/Codificar_Pass.h"
#include "testlib/Teste.h"

#include <QSet>

using namespace Qt::StringLiterals;

class TestCodificar_Pass : public QObject
{
    Q_OBJECT

    const QString simbolos_ = u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"_s;

private Q_SLOTS:
    void cada_um_dos_62_simbolos_vai_para_um_deles_e_nao_ha_dois_iguais()
    {
        const QString codificados = Codificar_Pass(simbolos_);
        QCOMPARE(codificados.size(), 62);
        QCOMPARE(QSet<QChar>(codificados.begin(), codificados.end()),
                 QSet<QChar>(simbolos_.begin(), simbolos_.end()));
    }

    void nenhum_simbolo_fica_como_estava()
    {
        const QString codificados = Codificar_Pass(simbolos_);
        for (qsizetype i = 0; i < simbolos_.size(); ++i)
            QVERIFY(codificados[i] != simbolos_[i]);
    }

    void duas_vezes_nao_volta_ao_texto_simples()
    {
        const QString duas_vezes = Codificar_Pass(Codificar_Pass(simbolos_));
        for (qsizetype i = 0; i < simbolos_.size(); ++i)
            QVERIFY(duas_vezes[i] != simbolos_[i]);
    }

    void os_outros_caracteres_ficam_como_estao()
    {
        const QString outros = u"çáéÀñß €-_.!\"'%& \t\r\nŁ漢😀"_s;
        QCOMPARE(Codificar_Pass(outros), outros);
        QCOMPARE(Codificar_Pass(u""_s), u""_s);
    }

    void iguais_dao_iguais_e_o_comprimento_fica()
    {
        QCOMPARE(Codificar_Pass(u"Maria 7"_s), Codificar_Pass(u"Maria 7"_s));
        QVERIFY(Codificar_Pass(u"Maria 7"_s) != Codificar_Pass(u"maria 7"_s));
        QCOMPARE(Codificar_Pass(QString(1000, u'a')).size(), 1000);
    }

    // Users of existing databases log in with this very table.
    void a_tabela_nunca_muda()
    {
        QCOMPARE(Codificar_Pass(simbolos_),
                 u"bTLORIdDmsC6oyFiJ9tBQnGqKZ4g1Ncju2E0AphSPVzW3UX5xk7aevfMYwrlH8"_s);
        QCOMPARE(Codificar_Pass(u"segredo7"_s), u"tRd9ROFl"_s);
    }
};

MORVEX_TESTE(TestCodificar_Pass)
#include "test_Codificar_Pass.moc"
