// The rows of a query: how they are walked, how their cells are read, and what is refused.
#include "store/Recordset.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestRecordset : public QObject
{
    Q_OBJECT

    static Recordset Duas_Linhas()
    {
        return Recordset({"ID", "Nome", "Nome"},
                         {qint64{1}, u"Ana"_s, u"segundo"_s, qint64{2}, u""_s, StoreValue{}});
    }
    static Recordset Sem_Linhas() { return Recordset({"ID"}, {}); }

private Q_SLOTS:
    void abre_na_primeira_linha_e_anda_ate_ao_fim()
    {
        Recordset rs = Duas_Linhas();
        QCOMPARE(rs.State(), Recordset::Open);
        QCOMPARE(rs.RecordCount(), 2);
        QVERIFY(!rs.Bof() && !rs.Eof());
        QStringList names;
        for (; !rs.Eof(); rs.MoveNext())
            names << rs.Fields("Nome").text();
        QCOMPARE(names, (QStringList{u"Ana"_s, u""_s}));
        QCOMPARE(rs.RecordCount(), 2);
        VERIFICAR_FALHA(rs.MoveNext(), Failure::NoCurrentRecord);
        VERIFICAR_FALHA(rs.Fields("ID"), Failure::NoCurrentRecord);
    }

    void sem_linhas_esta_no_fim_e_nada_se_le()
    {
        Recordset rs = Sem_Linhas();
        QCOMPARE(rs.State(), Recordset::Open);
        QCOMPARE(rs.RecordCount(), 0);
        QVERIFY(rs.Bof() && rs.Eof());
        VERIFICAR_FALHA(rs.Fields("ID"), Failure::NoCurrentRecord);
        VERIFICAR_FALHA(rs.MoveNext(), Failure::NoCurrentRecord);
        VERIFICAR_FALHA(rs.Row(), Failure::NoCurrentRecord);
    }

    void fechado_recusa_tudo_menos_fechar_outra_vez()
    {
        Recordset rs = Duas_Linhas();
        rs.Close();
        rs.Close();
        QCOMPARE(rs.State(), Recordset::Closed);
        VERIFICAR_FALHA(rs.RecordCount(), Failure::StoreError);
        VERIFICAR_FALHA(rs.Eof(), Failure::StoreError);
        VERIFICAR_FALHA(rs.Bof(), Failure::StoreError);
        VERIFICAR_FALHA(rs.MoveNext(), Failure::StoreError);
        VERIFICAR_FALHA(rs.Fields("ID"), Failure::StoreError);
    }

    void o_nome_da_coluna_nao_distingue_a_caixa_e_vale_a_primeira()
    {
        const Recordset rs = Duas_Linhas();
        QCOMPARE(rs.Fields("id").text(), u"1"_s);
        QCOMPARE(rs.Fields("NOME").text(), u"Ana"_s);
        VERIFICAR_FALHA(rs.Fields("Apelido"), Failure::ItemNotFound);
        VERIFICAR_FALHA(rs.Fields(""), Failure::ItemNotFound); // the second one of a name has none
    }

    void um_numero_cabe_ate_ao_ultimo_de_32_bits_e_so_zero_e_nao()
    {
        const Recordset rs({"maior", "menor", "acima", "abaixo", "um", "zero"},
                           {qint64{2147483647}, qint64{-2147483648LL}, qint64{2147483648LL},
                            qint64{-2147483649LL}, qint64{1}, qint64{0}});
        QCOMPARE(rs.Fields("maior").number(), 2147483647);
        QCOMPARE(rs.Fields("menor").number(), -2147483647 - 1);
        VERIFICAR_FALHA(rs.Fields("acima").number(), Failure::OutOfMemoryOrRange);
        VERIFICAR_FALHA(rs.Fields("abaixo").number(), Failure::OutOfMemoryOrRange);
        QVERIFY(rs.Fields("um").yes());
        QVERIFY(!rs.Fields("zero").yes());
    }

    void o_que_nao_tem_colunas_nao_tem_linhas() { QCOMPARE(Recordset({}, {}).RecordCount(), 0); }

    void cada_recusa_diz_o_que_falta_data()
    {
        QTest::addColumn<std::function<void()>>("pergunta");
        QTest::addColumn<QString>("dito");
        const auto linha = [](const char *nome, const std::function<void()> &pergunta, const QString &dito) {
            QTest::newRow(nome) << pergunta << dito;
        };
        const Field nulo{StoreValue()};
        const Field texto{StoreValue(u"x"_s)};
        linha("nulo", [=] { nulo.text(); }, u"Invalid use of Null"_s);
        linha("numero", [=] { texto.real(); }, u"\"x\" is no number"_s);
        linha("grande", [] { Field(qint64{3000000000}).number(); }, u"3e+09 does not fit 32 bits"_s);
        linha("dia", [=] { texto.date(); }, u"\"x\" is no date"_s);
        linha("hora", [=] { texto.time(); }, u"\"x\" is no time"_s);
        linha("andar", [] { Sem_Linhas().MoveNext(); }, u"No current record"_s);
        linha("ler", [] { Sem_Linhas().Fields("ID"); }, u"No current record"_s);
        linha("ler tudo", [] { Sem_Linhas().Row(); }, u"No current record"_s);
        linha("coluna", [] { Duas_Linhas().Fields("Apelido"); }, u"No column named Apelido"_s);
        linha("fechado", [] { Recordset().RecordCount(); }, u"The recordset is closed"_s);
    }
    void cada_recusa_diz_o_que_falta()
    {
        QFETCH(std::function<void()>, pergunta);
        QFETCH(QString, dito);
        QString visto;
        onFailure(pergunta, [&visto](const Failure &falha) { visto = falha.source() + u": "_s + falha.description(); });
        QCOMPARE(visto, u"Recordset: "_s + dito);
    }

    void nulo_e_vazio_distinguem_se()
    {
        const Recordset rs({"nulo", "vazio"}, {StoreValue{}, u""_s});
        const Field nulo = rs.Fields("nulo");
        QVERIFY(nulo.isNull());
        QCOMPARE(nulo.textOrEmpty(), u""_s);
        VERIFICAR_FALHA(nulo.text(), Failure::InvalidUseOfNull);
        VERIFICAR_FALHA(nulo.number(), Failure::InvalidUseOfNull);
        VERIFICAR_FALHA(nulo.date(), Failure::InvalidUseOfNull);
        VERIFICAR_FALHA(nulo.yes(), Failure::InvalidUseOfNull);
        QVERIFY(!rs.Fields("vazio").isNull());
        QCOMPARE(rs.Fields("vazio").text(), u""_s);
        QCOMPARE(rs.Row(), (QStringList{u"<Null>"_s, u""_s}));
    }

    void cada_celula_le_se_no_tipo_que_se_pede()
    {
        const Recordset rs({"n", "r", "t", "d", "h", "grande"},
                           {qint64{-1}, 8.25, u"12"_s, u"2004-05-17"_s, u"08:30:00"_s, qint64{3000000000}});
        QCOMPARE(rs.Fields("n").number(), -1);
        QVERIFY(rs.Fields("n").yes());
        QCOMPARE(rs.Fields("r").real(), 8.25);
        QCOMPARE(rs.Fields("r").text(), u"8.25"_s);
        QCOMPARE(rs.Fields("t").number(), 12);
        QCOMPARE(rs.Fields("d").date(), QDate(2004, 5, 17));
        QCOMPARE(rs.Fields("h").time(), QTime(8, 30));
        VERIFICAR_FALHA(rs.Fields("grande").number(), Failure::OutOfMemoryOrRange);
        VERIFICAR_FALHA(rs.Fields("d").number(), Failure::TypeMismatch);
        VERIFICAR_FALHA(rs.Fields("t").date(), Failure::TypeMismatch);
        VERIFICAR_FALHA(rs.Fields("d").time(), Failure::TypeMismatch);
    }

    void bytes_ficam_bytes_e_leem_se_tambem_como_texto()
    {
        const QByteArray bytes("a\0\xff", 3);
        const Recordset rs({"b", "t", "n", "outros"},
                           {StoreValue(bytes), StoreValue(u"é"_s), StoreValue(), StoreValue(QByteArray("\0b", 2))});
        QCOMPARE(rs.Fields("b").bytes(), bytes);
        QCOMPARE(rs.Fields("b").text(), QString::fromUtf8(bytes));
        QCOMPARE(rs.Fields("t").bytes(), QByteArray("é"));
        QCOMPARE(rs.Fields("n").bytes(), QByteArray());
        QCOMPARE(rs.Fields("outros").bytes(), QByteArray("\0b", 2));
    }
};

MORVEX_TESTE(TestRecordset)
#include "test_Recordset.moc"
