// The lines and fields of the text file of an earlier release.
#include "interchange/RegistoMorvex.h"
#include "testlib/FalhaDita.h"
#include "testlib/OutrosNomes.h"
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

QStringList Falha_Ao_Ler(const QString &caminho)
{
    return teste::Falha_Dita([&] { registo_morvex::Ler_Linhas(caminho); });
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

    void campos_vazios_sao_campos()
    {
        QString registo = Registo(16);
        for (int i = 16; i >= 1; --i)
            registo.remove(u'c' + QString::number(i));
        const auto campos = registo_morvex::Separar(registo);
        for (const QString &campo : campos)
            QCOMPARE(campo, QString());
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
        const QStringList meses{u"janeiro"_s,  u"fevereiro"_s, u"março"_s,    u"abril"_s,
                                u"maio"_s,     u"junho"_s,     u"julho"_s,    u"agosto"_s,
                                u"setembro"_s, u"outubro"_s,   u"novembro"_s, u"dezembro"_s};
        for (qsizetype i = 0; i < meses.size(); ++i)
            QTest::newRow(qUtf8Printable(meses[i])) << meses[i] << QString::number(i + 1);
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

    void linhas_vazias_contam_se_e_o_fim_da_ultima_nao_faz_outra_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("linhas");
        QTest::newRow("nada") << QByteArray() << QStringList();
        QTest::newRow("um CR") << QByteArray("\r") << QStringList{QString()};
        QTest::newRow("um CR LF") << QByteArray("\r\n") << QStringList{QString()};
        QTest::newRow("dois CR LF") << QByteArray("\r\n\r\n") << QStringList{QString(), QString()};
        QTest::newRow("CR CR LF") << QByteArray("a\r\r\nb") << QStringList{u"a"_s, QString(), u"b"_s};
        QTest::newRow("LF CR") << QByteArray("a\n\rb") << QStringList{u"a\n"_s, u"b"_s};
        QTest::newRow("um LF") << QByteArray("\n") << QStringList{u"\n"_s};
        QTest::newRow("sem fim") << QByteArray("a\rb") << QStringList{u"a"_s, u"b"_s};
    }
    void linhas_vazias_contam_se_e_o_fim_da_ultima_nao_faz_outra()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QStringList, linhas);
        QCOMPARE(registo_morvex::Ler_Linhas(Ficheiro(bytes)), linhas);
    }

    void uma_linha_de_espacos_e_um_registo()
    {
        QCOMPARE(registo_morvex::Registos({u"cabecalho"_s, QString(), u"  "_s}), QStringList{u"  "_s});
    }

    void a_pagina_de_codigo_e_a_1252()
    {
        QCOMPARE(registo_morvex::Ler_Linhas(Ficheiro("\x80 \xE7\xE3o \x93s\x94")),
                 QStringList{u"€ ção “s”"_s});
        QCOMPARE(registo_morvex::Ler_Linhas(Ficheiro("\x81\x8D\x8F\x90\x9D")),
                 QStringList{u"\u0081\u008D\u008F\u0090\u009D"_s}); // bytes that the page leaves open
        QCOMPARE(registo_morvex::Ler_Linhas(Ficheiro("\xFF\xFE\x41")),
                 QStringList{u"ÿþA"_s}); // no mark of order
    }

    // In the code page each separator is one byte of its own.
    void os_separadores_sao_os_dezasseis_bytes_da_pagina()
    {
        const QByteArray bytes("\xA5\xA6\xB6\xE6\xDE\xA2\xA7\xC6\xBF\xA1\xFF\xB1\xDF\xF8\xB5\xA4");
        QByteArray registo;
        for (int i = 0; i < bytes.size(); ++i)
            registo += QByteArray::number(i + 1) + bytes[i];
        const auto campos =
            registo_morvex::Separar(registo_morvex::Ler_Linhas(Ficheiro(registo)).constFirst());
        for (std::size_t i = 0; i < campos.size(); ++i)
            QCOMPARE(campos[i], QString::number(i + 1));
    }

    void maiuscula_e_minuscula_sao_separadores_diferentes()
    {
        QString registo = Registo(16);
        registo.replace(u'æ', u'Æ'); // the fourth as the eighth
        VERIFICAR_FALHA(registo_morvex::Separar(registo), 5);
    }

    void um_separador_posto_antes_do_seu_lugar_nao_conta()
    {
        VERIFICAR_FALHA(registo_morvex::Separar(u"a¦b¥c"_s + Registo(16).mid(Registo(2).size())), 5);
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

    void um_ficheiro_que_so_se_pode_ler_e_uma_falha()
    {
        const QString caminho = pasta_.filePath(u"protegido.dat"_s);
        QVERIFY(QFile::copy(Ficheiro("cabecalho\r\n"), caminho));
        QFile::setPermissions(pasta_.path(), QFile::Permissions(0x7755));
        QFile::setPermissions(caminho, QFile::Permissions(0x4444));
        const SemPrivilegios ninguem;
        if (!ninguem.Possivel()) QSKIP("the rights of an administrator cannot be put off here");
        QVERIFY(QFile(caminho).open(QIODevice::ReadOnly));
        VERIFICAR_FALHA(registo_morvex::Ler_Linhas(caminho), Failure::PathFileAccess);
        QCOMPARE(Falha_Ao_Ler(caminho),
                 (QStringList{caminho, u"The file could not be opened for writing: "_s + caminho}));
    }

    void uma_leitura_que_para_a_meio_e_uma_falha_e_nao_um_ficheiro_curto()
    {
        if (!outros_nomes::ha_atalhos) QSKIP("nothing opens here and cannot be read at its beginning");
        const QString caminho = pasta_.filePath(u"memoria.dat"_s);
        QVERIFY(outros_nomes::Fazer_Atalho(u"/proc/self/mem"_s, caminho)); // opens, and can't be read at its beginning
        VERIFICAR_FALHA(registo_morvex::Ler_Linhas(caminho), Failure::PathFileAccess);
        QCOMPARE(Falha_Ao_Ler(caminho),
                 (QStringList{caminho, u"The file could not be read to its end: "_s + caminho}));
    }

    void um_ficheiro_vazio_nao_tem_registos()
    {
        QVERIFY(registo_morvex::Registos(registo_morvex::Ler_Linhas(Ficheiro(""))).isEmpty());
        VERIFICAR_FALHA(registo_morvex::Ler_Linhas(pasta_.filePath(u"nenhum.dat"_s)), Failure::FileNotFound);
    }

    void cada_falha_diz_de_que_ficheiro_ou_registo_e_o_que_foi()
    {
        const QString nenhum = pasta_.filePath(u"nenhum.dat"_s);
        QCOMPARE(Falha_Ao_Ler(nenhum), (QStringList{nenhum, u"The file could not be read: "_s + nenhum}));
        QCOMPARE(Falha_Ao_Ler(pasta_.path()),
                 (QStringList{pasta_.path(), u"This is no ordinary file: "_s + pasta_.path()}));
        const QString comprido = Ficheiro(QByteArray("x\r").repeated(5001));
        QCOMPARE(Falha_Ao_Ler(comprido), (QStringList{comprido, u"5001 lines are too many"_s}));
        QCOMPARE(teste::Falha_Dita([] { registo_morvex::Separar(Registo(3)); }),
                 (QStringList{u"RegistoMorvex"_s, u"A separator is missing: "_s + Registo(3)}));
    }
};

MORVEX_TESTE(TestRegistoMorvex)
#include "test_RegistoMorvex.moc"
