// What the database remembers of synchronising, and for whom.
#include "sincronizacao/MemoriaDaSincronizacao.h"

#include "data/Geral.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
struct Base {
    Sistema s;
    MemoriaDaSincronizacao eva{s.geral.de, u"7"_s};
    MemoriaDaSincronizacao rui{s.geral.de, u"8"_s};
};

const ContaSincronizada conta{
    u"dav.example"_s, u"eva"_s, u"xyz"_s, u"https://dav.example/eva/"_s, u"Amigos"_s, 3, true, true, 45};

ColunasDoContacto Pessoa(const QString &nome)
{
    ColunasDoContacto colunas;
    for (std::size_t i = 0; i < ColunasDoContacto::quantas; ++i)
        colunas.valores.at(i) = u"%1 \"%2\""_s.arg(nome).arg(i);
    return colunas;
}

QString Em_Palavras(const Par &par)
{
    const QStringList acordo(par.acordo.valores.begin(), par.acordo.valores.end());
    return QStringList{par.href,
                       QString::number(par.IDContacto),
                       QString::fromUtf8(par.etag),
                       QString::number(par.estado),
                       QString::fromUtf8(par.resumo),
                       acordo.join(u'|')}
        .join(u' ');
}
} // namespace

class TestMemoriaDaSincronizacao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_conta_le_se_como_se_guardou_e_e_so_de_quem_a_guardou()
    {
        Base b;
        QVERIFY(!b.eva.Conta());
        b.eva.Guardar(conta);
        QVERIFY(b.eva.Conta() == conta);
        QVERIFY(!b.rui.Conta());
        ContaSincronizada outra = conta;
        outra.Ligada = outra.AoArrancar = false;
        outra.Minutos = 0;
        b.eva.Guardar(outra);
        QVERIFY(b.eva.Conta() == outra);
    }

    void quem_nada_escolheu_nao_tem_grupo_nem_relogio()
    {
        const ContaSincronizada nenhuma;
        QVERIFY(nenhuma.IDGrupo == 0 && nenhuma.Minutos == 0 && !nenhuma.Ligada && !nenhuma.AoArrancar);
        const Par par;
        QVERIFY(par.IDContacto == 0 && par.estado == Par::Acordado);
    }

    void o_estado_da_ultima_corrida_le_se_como_se_guardou()
    {
        Base b;
        b.eva.Guardar(conta);
        QCOMPARE(b.eva.Estado().Corrida, 0);
        QVERIFY(b.eva.Estado().UltimaVez.isEmpty() && b.eva.Estado().Testemunho.isEmpty());
        b.eva.Guardar_Corrida(5);
        b.eva.Guardar_Resultado({"t&1", 99, u"2027-02-01T09:00:00"_s, u"{}"_s});
        const EstadoDaConta estado = b.eva.Estado();
        QCOMPARE(estado.Corrida, 5); // which a result does not touch
        QCOMPARE(estado.Testemunho, QByteArray("t&1"));
        QCOMPARE(estado.UltimaVez, u"2027-02-01T09:00:00"_s);
        QCOMPARE(estado.Resultado, u"{}"_s);
    }

    // Another book or group is a new beginning; another name, password or clock is none.
    void so_outro_livro_ou_outro_grupo_esquece_os_pares_data()
    {
        QTest::addColumn<QString>("o_que");
        QTest::addColumn<int>("corrida");
        QTest::addColumn<int>("depois");
        QTest::addColumn<bool>("esquece");
        QTest::newRow("the same") << QString() << 5 << 5 << false;
        QTest::newRow("password and name") << u"nome"_s << 5 << 5 << false;
        QTest::newRow("clock") << u"minutos"_s << 5 << 5 << false;
        QTest::newRow("book") << u"livro"_s << 5 << 6 << true;
        QTest::newRow("group") << u"grupo"_s << 5 << 6 << true;
        QTest::newRow("book, never run") << u"livro"_s << 0 << 1 << true;
        QTest::newRow("book, with an old database") << u"livro"_s << -5 << -6 << true;
    }
    void so_outro_livro_ou_outro_grupo_esquece_os_pares()
    {
        QFETCH(QString, o_que);
        QFETCH(int, corrida);
        QFETCH(int, depois);
        QFETCH(bool, esquece);
        Base b;
        b.eva.Guardar(conta);
        b.rui.Guardar(conta);
        b.eva.Guardar({u"/a"_s, 1, "e", Par::Acordado, "r", Pessoa(u"Ana"_s)});
        b.rui.Guardar({u"/a"_s, 1, "e", Par::Acordado, "r", Pessoa(u"Ana"_s)});
        b.eva.Guardar_Corrida(corrida);
        b.eva.Guardar_Resultado({"t1", 0, u"2027-02-01T09:00:00"_s, u"{}"_s});
        ContaSincronizada outra = conta;
        if (o_que == u"nome"_s) outra.Nome = outra.PalavraPasse = outra.Endereco = outra.NomeDoLivro = u"z"_s;
        if (o_que == u"minutos"_s) outra.Minutos = 1;
        if (o_que == u"livro"_s) outra.Livro += u"x/"_s;
        if (o_que == u"grupo"_s) outra.IDGrupo = 4;
        b.eva.Guardar(outra);
        QVERIFY(b.eva.Conta() == outra);
        QCOMPARE(b.eva.Pares().empty(), esquece);
        QCOMPARE(b.eva.Estado().Testemunho.isEmpty(), esquece);
        QCOMPARE(b.eva.Estado().UltimaVez, u"2027-02-01T09:00:00"_s);
        QCOMPARE(b.eva.Estado().Corrida, depois); // so that a run that goes on ends
        QCOMPARE(b.rui.Pares().size(), 1U);
    }

    void um_par_le_se_como_se_guardou_sem_o_grupo_data()
    {
        QTest::addColumn<int>("estado");
        for (int estado = Par::Acordado; estado <= Par::Ignorado; ++estado)
            QTest::addRow("%d", estado) << estado;
    }
    void um_par_le_se_como_se_guardou_sem_o_grupo()
    {
        QFETCH(int, estado);
        Base b;
        Par par{u"/livro/a%40b.vcf"_s, 42, "\"e1\"", static_cast<Par::Estado>(estado), "0f",
                Pessoa(u"Ana\r\nç"_s)};
        b.eva.Guardar(par);
        b.rui.Guardar({par.href, 9, {}, Par::PorVer, {}, {}});
        par.acordo[Coluna::IDGrupo].clear();
        QCOMPARE(b.eva.Pares().size(), 1U);
        QCOMPARE(Em_Palavras(b.eva.Pares().front()), Em_Palavras(par));
        QCOMPARE(b.rui.Pares().front().IDContacto, 9);
        b.eva.Guardar({par.href, 43, {}, Par::Retido, {}, {}}); // in its place
        QCOMPARE(b.eva.Pares().size(), 1U);
        QCOMPARE(b.eva.Pares().front().IDContacto, 43);
        b.eva.Eliminar_Par(par.href);
        QVERIFY(b.eva.Pares().empty());
        QCOMPARE(b.rui.Pares().size(), 1U);
    }

    void as_ocorrencias_leem_se_as_mais_novas_primeiro_e_limpam_se_as_de_cada_um()
    {
        Base b;
        b.eva.Apontar({Ocorrencia::Conflito, 1, u"Ana"_s, u"Fax"_s, u"nosso"_s, u"deles"_s, u"2027-01-01"_s});
        b.eva.Apontar({Ocorrencia::NaoRecebido, 2, u"Rui"_s, {}, {}, {}, u"2027-01-02"_s});
        b.rui.Apontar({Ocorrencia::Recusado, 3, u"Zé"_s, {}, {}, {}, u"2027-01-03"_s});
        const auto lidas = b.eva.Ocorrencias();
        QCOMPARE(lidas.size(), 2U);
        QCOMPARE(lidas.front().que, Ocorrencia::NaoRecebido);
        const Ocorrencia &conflito = lidas.back();
        QCOMPARE(conflito.que, Ocorrencia::Conflito);
        QCOMPARE(conflito.IDContacto, 1);
        QCOMPARE((QStringList{conflito.Nome, conflito.Campo, conflito.Aqui, conflito.La, conflito.Quando}),
                 (QStringList{u"Ana"_s, u"Fax"_s, u"nosso"_s, u"deles"_s, u"2027-01-01"_s}));
        b.eva.Limpar_Ocorrencias();
        QVERIFY(b.eva.Ocorrencias().empty());
        QCOMPARE(b.rui.Ocorrencias().size(), 1U);
    }

    void esquecer_leva_tudo_o_que_e_de_um_e_nada_dos_outros()
    {
        Base b;
        for (MemoriaDaSincronizacao *memoria : {&b.eva, &b.rui}) {
            memoria->Guardar(conta);
            memoria->Guardar({u"/a"_s, 1, {}, Par::Acordado, {}, {}});
            memoria->Apontar({Ocorrencia::Recusado, 1, u"Ana"_s, {}, {}, {}, {}});
        }
        b.eva.Esquecer();
        QVERIFY(!b.eva.Conta() && b.eva.Pares().empty() && b.eva.Ocorrencias().empty());
        QVERIFY(b.rui.Conta() && b.rui.Pares().size() == 1 && b.rui.Ocorrencias().size() == 1);
    }

    void as_corridas_dos_outros_sao_as_de_quem_tem_o_mesmo_grupo()
    {
        Base b;
        b.eva.Guardar(conta);
        b.rui.Guardar(conta);
        b.eva.Guardar_Corrida(3);
        b.rui.Guardar_Corrida(4);
        QVERIFY((b.eva.Corridas_Dos_Outros(3) == std::map<QString, int>{{u"8"_s, 4}}));
        QVERIFY((b.rui.Corridas_Dos_Outros(3) == std::map<QString, int>{{u"7"_s, 3}}));
        QVERIFY(b.eva.Corridas_Dos_Outros(2).empty());
    }

    void o_resumo_de_um_cartao_e_o_do_que_diz()
    {
        const QByteArray um = "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ana\r\nTEL;TYPE=CELL:911\r\nEND:VCARD\r\n";
        QCOMPARE(Resumo_Do_Cartao(um).size(), 40);
        QCOMPARE(Resumo_Do_Cartao(QByteArray(um).replace("TYPE=CELL", "type=cell")), Resumo_Do_Cartao(um));
        QVERIFY(Resumo_Do_Cartao(QByteArray(um).replace("911", "912")) != Resumo_Do_Cartao(um));
        QCOMPARE(Resumo_Do_Cartao("nothing"), QByteArray());
    }
};

MORVEX_TESTE(TestMemoriaDaSincronizacao)
#include "test_MemoriaDaSincronizacao.moc"
