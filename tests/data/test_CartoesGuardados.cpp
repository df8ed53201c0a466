// The cards that contacts came as.
#include "data/CartoesGuardados.h"
#include "platform/Failure.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestCartoesGuardados : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void um_cartao_volta_byte_por_byte()
    {
        Sistema s;
        CartoesGuardados cartoes(s.geral.de);
        static constexpr char bytes[] = "BEGIN:VCARD\r\nFN:Zo\xe9\r\nNOTE:\0x\r\n";
        const QByteArray cartao(bytes, sizeof bytes - 1);
        cartoes.Guardar({u"7"_s, u"urn:uuid:1"_s, cartao});
        const auto lido = cartoes.Ler(u"7"_s);
        QVERIFY(lido.has_value());
        QCOMPARE(lido->IDContacto, u"7"_s);
        QCOMPARE(lido->UID, u"urn:uuid:1"_s);
        QCOMPARE(lido->cartao, cartao);
        QCOMPARE(s.geral.de.Rs("cmdLerCartao").State(), Recordset::Closed); // it does not stay in memory
    }

    void o_segundo_toma_o_lugar_do_primeiro_e_deixa_o_resto_da_linha()
    {
        Sistema s;
        CartoesGuardados cartoes(s.geral.de);
        cartoes.Guardar({u"7"_s, u"a"_s, "um"});
        s.Escrever(u"UPDATE TblCartoes SET href='/livro/7.vcf'"_s);
        cartoes.Guardar({u"7"_s, u"b"_s, "dois"});
        QCOMPARE(s.Linhas(u"SELECT IDContacto, UID, href, cartao FROM TblCartoes"_s),
                 QStringList{u"7|b|/livro/7.vcf|dois"_s});
    }

    void percorrem_se_pela_ordem_dos_contactos()
    {
        Sistema s;
        CartoesGuardados cartoes(s.geral.de);
        cartoes.Guardar({u"12"_s, u"doze"_s, "x"});
        cartoes.Guardar({u"3"_s, QString(), "x"});
        QStringList vistos;
        cartoes.Percorrer([&](const QString &ID, const QString &UID) { vistos << ID + u'|' + UID; });
        QCOMPARE(vistos, (QStringList{u"3|"_s, u"12|doze"_s}));
    }

    void so_o_eliminado_se_vai()
    {
        Sistema s;
        CartoesGuardados cartoes(s.geral.de);
        cartoes.Guardar({u"1"_s, u"a"_s, "x"});
        cartoes.Guardar({u"2"_s, u"b"_s, "y"});
        cartoes.Eliminar(u"1"_s);
        QVERIFY(!cartoes.Ler(u"1"_s));
        QVERIFY(cartoes.Ler(u"2"_s).has_value());
        cartoes.Eliminar(u"1"_s); // there is none any more: nothing happens
    }

    void com_um_grupo_vao_se_os_dos_seus_contactos()
    {
        Sistema s;
        CartoesGuardados cartoes(s.geral.de);
        QStringList IDs;
        for (const QString &grupo : {u"1"_s, u"1"_s, u"2"_s})
            IDs << QString::number(s.Novo_Contacto({{u"Nome"_s, u"Ana"_s}, {u"Grupo"_s, grupo}}));
        for (const QString &ID : IDs)
            cartoes.Guardar({ID, QString(), "x"});
        cartoes.Eliminar_Do_Grupo(u"1"_s);
        QVERIFY(!cartoes.Ler(IDs[0]) && !cartoes.Ler(IDs[1]));
        QVERIFY(cartoes.Ler(IDs[2]).has_value());
    }

    void um_contacto_que_nao_e_numero_e_um_erro()
    {
        Sistema s;
        CartoesGuardados cartoes(s.geral.de);
        VERIFICAR_FALHA(cartoes.Guardar({u"sete"_s, u"a"_s, "x"}), Failure::TypeMismatch);
    }
};

MORVEX_TESTE(TestCartoesGuardados)
#include "test_CartoesGuardados.moc"
