// The starter set of an empty database: what stands in the tables after each flag.
#include "data/Sementes.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace
{
const QStringList repeticoes_pt{u"Não"_s, u"Diariamente"_s, u"Semanalmente"_s, u"Mensalmente"_s,
                                u"Anualmente"_s};
const QStringList grupos_pt{u"Amigos"_s,   u"Colegas"_s,      u"Familia"_s,
                            u"Clientes"_s, u"Fornecedores"_s, u"Outros"_s};

// "1|first", "2|second" and so on, with the same end behind each.
QStringList Numeradas(const QStringList &nomes, const QString &fim = {})
{
    QStringList linhas;
    for (qsizetype i = 0; i < nomes.size(); ++i)
        linhas << QString::number(i + 1) + u'|' + nomes[i] + fim;
    return linhas;
}

// Which columns of a contact are filled.
QString Forma(const Recordset &rs)
{
    QStringList cheias;
    for (const char *coluna :
         {"Nome", "Telefone1", "Telefone2", "Fax", "Telemovel1", "Telemovel2", "Telemovel3", "Dia", "Mes",
          "Ano", "Email1", "Email2", "Website", "Fotografia"}) {
        const QString texto = rs.Fields(coluna).text(); // none is Null
        if (!texto.isEmpty()) cheias << QLatin1String(coluna);
    }
    for (const char *coluna : {"Morada", "Obs"})
        if (const QString texto = rs.Fields(coluna).text(); !texto.isEmpty())
            cheias << QLatin1String(coluna) + u':' + QString::number(texto.split(u"\r\n"_s).size());
    return cheias.join(u' ');
}
} // namespace

Q_DECLARE_METATYPE(Sementes)

class TestSementes : public QObject
{
    Q_OBJECT

    static void Linguas()
    {
        QTest::addColumn<Sementes>("sementes");
        QTest::newRow("PortuguesPT") << sementes::PT();
        QTest::newRow("PortuguesBR") << sementes::BR();
        QTest::newRow("InglesUK") << sementes::UK();
        QTest::newRow("FrancesFR") << sementes::FR();
    }

private Q_SLOTS:
    void config_repeticoes_e_grupos_na_lingua_da_bandeira_data()
    {
        QTest::addColumn<Sementes>("sementes");
        QTest::addColumn<QString>("config");
        QTest::addColumn<QStringList>("repeticoes");
        QTest::addColumn<QStringList>("grupos");
        QTest::addColumn<QString>("memo");
        const QString envelope_pt = u"Escreva aqui o seu endereço (remetente)|Exmo(s) Senhores(s)"_s;
        const QString memo_pt = u"Memo|Escreva aqui os seus memos !"_s;
        QTest::newRow("PortuguesPT") << sementes::PT() << u"PortuguesPT|"_s + envelope_pt << repeticoes_pt
                                     << grupos_pt << memo_pt;
        QTest::newRow("PortuguesBR") << sementes::BR() << u"PortuguesBR|"_s + envelope_pt << repeticoes_pt
                                     << grupos_pt << memo_pt;
        QTest::newRow("InglesUK") << sementes::UK()
                                  << u"InglesUK|Write your address here (sender)|Your Excellency(s)"_s
                                  << QStringList{u"No"_s, u"Daily"_s, u"Weekly"_s, u"Monthly"_s,
                                                 u"Annually"_s}
                                  << QStringList{u"Friends"_s,   u"Colleagues"_s, u"Family"_s,
                                                 u"Customers"_s, u"Suppliers"_s,  u"Others"_s}
                                  << u"Memo|Write here your memos !"_s;
        QTest::newRow("FrancesFR") << sementes::FR()
                                   << u"FrancesFR|Écrivez votre adresse ici (expéditeur)|Votre Excellence"_s
                                   << QStringList{u"Non"_s, u"Quotidienne"_s, u"Hebdomadaire"_s,
                                                  u"Mensuelle"_s, u"Annuelle"_s}
                                   << QStringList{u"Amis"_s,    u"Collègues"_s,    u"Famille"_s,
                                                  u"Clients"_s, u"Fournisseurs"_s, u"D'autres"_s}
                                   << u"Memo|Écrivez ici vos notes !"_s;
    }
    void config_repeticoes_e_grupos_na_lingua_da_bandeira()
    {
        QFETCH(Sementes, sementes);
        QFETCH(QString, config);
        QFETCH(QStringList, repeticoes);
        QFETCH(QStringList, grupos);
        QFETCH(QString, memo);
        Sistema s(Sistema::Estado::Vazio);
        sementes::Semear(s.geral.de, sementes);
        QCOMPARE(s.Linhas(u"SELECT Idioma, Remetente, Destinatario FROM TblConfig"_s), QStringList{config});
        QCOMPARE(s.Linhas(u"SELECT * FROM TblRepeticao ORDER BY ID"_s), Numeradas(repeticoes));
        QCOMPARE(s.Linhas(u"SELECT * FROM TblGrupos ORDER BY ID"_s), Numeradas(grupos, u"|0"_s));
        QCOMPARE(s.Linhas(u"SELECT * FROM TblMemos"_s),
                 QStringList{u"1|"_s + memo + u"|495|645|2775|1185|Tahoma|8.25|0|0|65535|0"_s});
    }

    void os_contactos_de_amostra_tem_a_forma_que_mostra_a_ficha_data() { Linguas(); }
    void os_contactos_de_amostra_tem_a_forma_que_mostra_a_ficha()
    {
        QFETCH(Sementes, sementes);
        const bool portugal = sementes.Idioma == u"PortuguesPT"_s;
        Sistema s(Sistema::Estado::Vazio);
        sementes::Semear(s.geral.de, sementes);
        QStringList formas;
        for (Recordset rs = s.Ler(u"SELECT * FROM TblLista ORDER BY ID"_s); !rs.Eof(); rs.MoveNext()) {
            formas << Forma(rs);
            QCOMPARE(rs.Fields("Grupo").number(), 6);
            QVERIFY(rs.Fields("MSNMessenger").isNull());
        }
        QStringList esperadas{
            u"Nome Telefone1 Telemovel1 Telemovel2 Telemovel3 Email1 Website Fotografia Morada:4 Obs:2"_s};
        if (portugal) esperadas << u"Nome Email1 Website Fotografia Obs:2"_s;
        esperadas << u"Nome Email1 Website Fotografia Obs:1"_s;
        QCOMPARE(formas, esperadas);
        QCOMPARE(s.Linhas(u"SELECT Fotografia FROM TblLista WHERE ID=1"_s),
                 QStringList{u"kelmarin_sample.jpg"_s});
    }

    void os_contactos_de_amostra_dizem_isto_data()
    {
        QTest::addColumn<Sementes>("sementes");
        QTest::addColumn<QStringList>("contactos");
        const auto empresa =
            u"KELMARIN|210 000 140|910 000 141|930 000 142|960 000 143|geral@kelmarin.example|"
            "www.kelmarin.example|kelmarin_sample.jpg|"
            "Kelmarin, Lda.\r\nRua do Cais, 14\r\n1000-014 Lisboa\r\nPortugal|"_s;
        const auto portal = u"Praça Central|||||ola@pracacentral.example|www.pracacentral.example|"
                            "praca_sample.jpg||"_s;
        QTest::newRow("PortuguesPT")
            << sementes::PT()
            << QStringList{
                   empresa + u"Contacto de exemplo: clique em EDITAR CONTACTO para o alterar.\r\n"
                             "A ficha fecha-se à volta dos campos vazios."_s,
                   u"Faroleiro|||||tempo@faroleiro.example|www.faroleiro.example|faroleiro_sample.jpg||"
                   "O estado do mar e do tempo, todas as manhãs.\r\n"
                   "Contacto de exemplo: pode eliminá-lo."_s,
                   portal + u"Tudo o que acontece na cidade, numa só página."_s};
        QTest::newRow("PortuguesBR")
            << sementes::BR()
            << QStringList{empresa + u"Contato de exemplo: clique em Editar contato para alterá-lo.\r\n"
                                     "A ficha se fecha em volta dos campos vazios."_s,
                           portal + u"Tudo o que acontece na cidade, em uma só página."_s};
        QTest::newRow("InglesUK") << sementes::UK()
                                  << QStringList{empresa +
                                                     u"A sample contact: click Edit contact to change it.\r\n"
                                                     "The card closes up round empty fields."_s,
                                                 portal + u"All that goes on in town, on a single page."_s};
        QTest::newRow("FrancesFR") << sementes::FR()
                                   << QStringList{
                                          empresa +
                                              u"Un contact d’exemple\u00a0: modifiez-le à votre gré.\r\n"
                                              "La fiche se resserre autour des champs vides."_s,
                                          portal + u"Tout ce qui se passe en ville, sur une seule page."_s};
    }
    void os_contactos_de_amostra_dizem_isto()
    {
        QFETCH(Sementes, sementes);
        Sistema s(Sistema::Estado::Vazio);
        sementes::Semear(s.geral.de, sementes);
        QTEST(s.Linhas(
                  u"SELECT Nome, Telefone1, Telemovel1, Telemovel2, Telemovel3, Email1, Website, Fotografia, "
                  "Morada, Obs FROM TblLista ORDER BY ID"_s),
              "contactos");
    }

    void as_fotografias_de_amostra_sao_enviadas_data() { Linguas(); }
    void as_fotografias_de_amostra_sao_enviadas()
    {
        QFETCH(Sementes, sementes);
        Sistema s(Sistema::Estado::Vazio);
        QSet<QString> fotografias;
        for (const ContactoDeAmostra &contacto : sementes.Contactos) {
            QVERIFY(!contacto.Fotografia.contains(u'/'));
            QVERIFY(QFile::exists(s.Ficheiro(contacto.Fotografia)));
            fotografias << contacto.Fotografia;
        }
        QCOMPARE(fotografias.size(), static_cast<qsizetype>(sementes.Contactos.size()));
    }

    void o_nome_da_empresa_esta_em_maiusculas()
    {
        const QString nome = sementes::PT().Contactos.front().Nome;
        QCOMPARE(nome, nome.toUpper());
    }

    // Nothing marks a first run as done before the options were confirmed.
    void uma_segunda_vez_insere_tudo_de_novo_e_as_amostras_ficam_no_grupo_6()
    {
        Sistema s(Sistema::Estado::Vazio);
        for (int vez = 1; vez <= 2; ++vez)
            sementes::Semear(s.geral.de, sementes::UK());
        QCOMPARE(s.Linhas(u"SELECT min(ID), max(ID), count(*) FROM TblRepeticao WHERE ID>5"_s),
                 QStringList{u"6|10|5"_s});
        QCOMPARE(s.Linhas(u"SELECT min(ID), max(ID), count(*) FROM TblGrupos WHERE ID>6"_s),
                 QStringList{u"7|12|6"_s});
        QCOMPARE(s.Linhas(u"SELECT Grupo, count(*) FROM TblLista GROUP BY Grupo"_s), QStringList{u"6|4"_s});
        QCOMPARE(s.Linhas(u"SELECT count(*) FROM TblConfig"_s), QStringList{u"1"_s});
    }

    void uma_falha_a_meio_deixa_o_que_ja_estava_escrito()
    {
        Sistema s(Sistema::Estado::Vazio);
        s.Escrever(u"DROP TABLE TblMemos"_s);
        VERIFICAR_FALHA(sementes::Semear(s.geral.de, sementes::UK()), Failure::StoreError);
        QCOMPARE(s.Linhas(u"SELECT count(*) FROM TblGrupos"_s), QStringList{u"6"_s});
        QCOMPARE(s.Linhas(u"SELECT count(*) FROM TblLista"_s), QStringList{u"0"_s});
    }
};

MORVEX_TESTE(TestSementes)
#include "test_Sementes.moc"
