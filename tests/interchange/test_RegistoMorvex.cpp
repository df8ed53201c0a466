// The lines and fields of the text file of an earlier release.
#include "interchange/RegistoMorvex.h"
#include "testlib/SemPrivilegios.h"
#include "testlib/Teste.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{
// The sixteen separators in their order.
constexpr QStringView separadores = u"¥¦¶æÞ¢§Æ¿¡ÿ±ßøµ¤";

// A record whose field n reads "cn", with the first so many separators.
QString Registo(int quantos)
{
    QString registo;
    for (int i = 0; i < quantos; ++i)
        registo += u'c' + QString::number(i + 1) + separadores[i];
    return registo;
}
} // namespace

class TestRegistoMorvex : public QObject
{
    Q_OBJECT

    QTemporaryDir pasta_;

    QString Ficheiro(const QByteArray &conteudo)
    {
        QFile ficheiro(pasta_.filePath(u"um.dat"_s));
        const bool aberto = ficheiro.open(QIODevice::WriteOnly);
        Q_ASSERT(aberto);
        ficheiro.write(conteudo);
        return ficheiro.fileName();
    }

private Q_SLOTS:
    void os_dezasseis_campos_vem_entre_os_seus_separadores()
    {
        const auto campos = registo_morvex::Separar(Registo(16) + u"ignorado"_s);
        for (std::size_t i = 0; i < campos.size(); ++i)
            QCOMPARE(campos[i], u'c' + QString::number(i + 1));
    }

    void sem_o_ultimo_separador_a_fotografia_fica_vazia()
    {
        const auto campos = registo_morvex::Separar(Registo(15) + u"foto.jpg"_s);
        QCOMPARE(campos[14], u"c15"_s);
        QCOMPARE(campos[15], QString());
    }

    void a_falta_de_um_dos_quinze_primeiros_e_uma_falha_data()
    {
        QTest::addColumn<int>("quantos");
        for (int quantos = 0; quantos < 15; ++quantos)
            QTest::addRow("%d separadores", quantos) << quantos;
    }
    void a_falta_de_um_dos_quinze_primeiros_e_uma_falha()
    {
        QFETCH(int, quantos);
        VERIFICAR_FALHA(registo_morvex::Separar(Registo(quantos)), 5);
    }

    void um_separador_dentro_do_seu_campo_corta_cedo()
    {
        const auto campos = registo_morvex::Separar(u"Casa ¥ Mar"_s + Registo(16).mid(2));
        QCOMPARE(campos[0], u"Casa "_s);
        QCOMPARE(campos[1], u" Mar¥c2"_s);
    }

    void os_meses_em_letra_pequena_tornam_se_numeros_sem_zero_data()
    {
        QTest::addColumn<QString>("mes");
        QTest::addColumn<QString>("numero");
        QTest::newRow("janeiro") << u"janeiro"_s << u"1"_s;
        QTest::newRow("março com cedilha") << u"março"_s << u"3"_s;
        QTest::newRow("dezembro") << u"dezembro"_s << u"12"_s;
        QTest::newRow("com maiúscula") << u"Janeiro"_s << u"Janeiro"_s;
        QTest::newRow("sem cedilha") << u"marco"_s << u"marco"_s;
        QTest::newRow("número") << u"05"_s << u"05"_s;
        QTest::newRow("vazio") << QString() << QString();
    }
    void os_meses_em_letra_pequena_tornam_se_numeros_sem_zero()
    {
        QFETCH(QString, mes);
        QFETCH(QString, numero);
        QCOMPARE(registo_morvex::Numero_Do_Mes(mes), numero);
    }

    void uma_linha_acaba_em_CR_ou_CR_LF_e_um_LF_pertence_lhe()
    {
        const QStringList linhas =
            registo_morvex::Ler_Linhas(Ficheiro("um\r\ndois\rtres\nquatro\r\n\r\ncinco"));
        QCOMPARE(linhas, (QStringList{u"um"_s, u"dois"_s, u"tres\nquatro"_s, QString(), u"cinco"_s}));
        QCOMPARE(registo_morvex::Registos(linhas), (QStringList{u"dois"_s, u"tres\nquatro"_s, u"cinco"_s}));
    }

    void a_pagina_de_codigo_e_a_1252()
    {
        QCOMPARE(registo_morvex::Ler_Linhas(Ficheiro("\x80 \xE7\xE3o \x93s\x94")),
                 QStringList{u"€ ção “s”"_s});
    }

    void quatro_mil_novecentas_e_noventa_e_nove_linhas_passam_e_cinco_mil_nao()
    {
        QByteArray linhas;
        for (int i = 0; i < 4999; ++i)
            linhas += "x\r\n";
        QCOMPARE(registo_morvex::Ler_Linhas(Ficheiro(linhas)).size(), 4999);
        VERIFICAR_FALHA(registo_morvex::Ler_Linhas(Ficheiro(linhas + "x\r\n")), Failure::SubscriptOutOfRange);
        VERIFICAR_FALHA(registo_morvex::Ler_Linhas(Ficheiro(linhas + "x\r\nx\r\n")),
                        Failure::SubscriptOutOfRange);
    }

    void um_ficheiro_vazio_nao_tem_registos()
    {
        QVERIFY(registo_morvex::Registos(registo_morvex::Ler_Linhas(Ficheiro(""))).isEmpty());
        VERIFICAR_FALHA(registo_morvex::Ler_Linhas(pasta_.filePath(u"nenhum.dat"_s)), Failure::FileNotFound);
    }
};

MORVEX_TESTE(TestRegistoMorvex)
#include "test_RegistoMorvex.moc"
