// Two users whose accounts synchronise one and the same group, with one book or with one each: nothing is
// lost and nothing comes twice, and each edit is there or was told, whoever runs when.
#include "sincronizacao/DuasContas.h"
#include "testlib/Teste.h"

using Livros = DuasContas::Livros;
Q_DECLARE_METATYPE(Livros)

namespace
{
using Fim = ResultadoDaSincronizacao::Fim;

void Com_Um_Livro_E_Com_Um_Cada()
{
    QTest::addColumn<Livros>("livros");
    QTest::newRow("one book") << Livros::Um;
    QTest::newRow("a book each") << Livros::UmCada;
}

struct Vinte : DuasContas {
    explicit Vinte(Livros livros) : DuasContas(livros)
    {
        for (int i = 0; i < 10; ++i) {
            Contacto(u"Daqui %1"_s.arg(i)); // a name alone: no rule would know it again
            for (const Quem quem : {Eva, Rui})
                Servidor_De(quem).Por(Href(u"la%1"_s.arg(i)),
                                      Cartao(u"la%1"_s.arg(i), u"De la %1"_s.arg(i),
                                             "TEL;TYPE=CELL:93" + QByteArray::number(1000000 + i) + "\r\n"));
        }
    }
};

struct UmPar : DuasContas {
    explicit UmPar(Livros livros) : DuasContas(livros)
    {
        Por_La(u"u1"_s, u"Ana"_s, "X-JOGO:xadrez\r\n");
        Corre(Eva);
        Corre(Rui);
    }
    const QString href = Href(u"u1"_s);
};
} // namespace

class TestDuasContas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void uma_depois_da_outra_nada_vem_duas_vezes_data() { Com_Um_Livro_E_Com_Um_Cada(); }
    void uma_depois_da_outra_nada_vem_duas_vezes()
    {
        QFETCH(Livros, livros);
        Vinte m(livros);
        QVERIFY(m.Sossegar());
        QCOMPARE(m.Nomes().size(), 20);
        for (const auto quem : {DuasContas::Eva, DuasContas::Rui})
            QCOMPARE(m.La_De(quem), m.Aqui());
        QCOMPARE(m.Ocorrencias(), QStringList{});
    }

    void quando_quer_que_a_do_outro_comece_nada_se_faz_duas_vezes_data() { Com_Um_Livro_E_Com_Um_Cada(); }
    void quando_quer_que_a_do_outro_comece_nada_se_faz_duas_vezes()
    {
        QFETCH(Livros, livros);
        int cedidas = 0;
        for (int voltas = 0; voltas >= 0; ++voltas) {
            Vinte m(livros);
            const auto ambas = m.Correm(voltas);
            QCOMPARE(ambas.segunda.fim, Fim::Feita);
            QVERIFY(ambas.primeira.fim == Fim::Feita || ambas.primeira.fim == Fim::Noutro);
            if (ambas.primeira.fim == Fim::Noutro) ++cedidas;
            QCOMPARE(m.Nomes().size(), 20);
            QVERIFY(m.Sossegar());
            QCOMPARE(m.Nomes().size(), 20);
            for (const auto quem : {DuasContas::Eva, DuasContas::Rui})
                QCOMPARE(m.La_De(quem), m.Aqui());
            QCOMPARE(m.Ocorrencias(), QStringList{});
            if (!ambas.a_meio) break;
        }
        QVERIFY2(cedidas > 5, qPrintable(QString::number(cedidas)));
    }

    // Who has another group does not disturb.
    void as_de_grupos_diferentes_correm_ao_mesmo_tempo_ate_ao_fim()
    {
        for (int voltas = 0; voltas < 12; ++voltas) {
            Vinte m(Livros::UmCada);
            ContaSincronizada conta = *m.Memoria_De(DuasContas::Rui).Conta();
            conta.IDGrupo = m.s.Novo_Grupo(u"Trabalho"_s);
            m.Memoria_De(DuasContas::Rui).Guardar(conta);
            const auto ambas = m.Correm(voltas);
            QCOMPARE(ambas.primeira.fim, Fim::Feita);
            QCOMPARE(ambas.segunda.fim, Fim::Feita);
        }
    }

    void a_propria_que_acabou_e_recomeca_nao_e_a_de_outro()
    {
        Vinte m(Livros::Um);
        m.Corre(DuasContas::Rui);
        QCOMPARE(m.Corre(DuasContas::Eva).fim, Fim::Feita);
        QCOMPARE(m.Corre(DuasContas::Eva).fim, Fim::Feita);
        QCOMPARE(m.Corre(DuasContas::Rui).fim, Fim::Feita);
    }

    void uma_base_reposta_continua_a_ser_antiga_para_o_outro()
    {
        UmPar m(Livros::Um);
        m.Corre(DuasContas::Eva);
        m.Corre(DuasContas::Rui);
        m.s.Escrever(u"UPDATE TblSincronizacao SET Corrida=1"_s); // as they were when the copy was made
        m.s.Escrever(u"DELETE FROM TblLista"_s);
        m.s.Escrever(u"DELETE FROM TblCartoes"_s);
        const auto ambas = m.Correm(1);
        QVERIFY(ambas.primeira.com_cautela && ambas.segunda.com_cautela);
        QVERIFY(m.Sossegar());
        QCOMPARE(m.Nomes(), QStringList{u"Ana"_s});
        QCOMPARE(m.servidor.cartoes.size(), 1U);
    }

    void mudado_la_e_eliminado_aqui_volta_uma_vez_e_nao_uma_por_conta()
    {
        UmPar m(Livros::Um);
        m.Eliminar(m.ID_De(u"Ana"_s));
        m.Mudar_La(m.href, Coluna::Fax, u"9"_s);
        QVERIFY(m.Sossegar());
        QCOMPARE(m.Nomes(u"Nome || Fax"_s), QStringList{u"Ana9"_s});
        QCOMPARE(m.servidor.cartoes.size(), 1U);
        QCOMPARE(m.Ocorrencias(), QStringList{u"3|Ana|||"_s});
    }

    void quem_nao_pode_acrescentar_fica_com_o_que_o_outro_acrescentou()
    {
        DuasContas m(Livros::Um);
        m.Sessao_De(DuasContas::Rui).Adicionar = false;
        m.Por_La(u"u1"_s, u"Ana"_s);
        QCOMPARE(m.Corre(DuasContas::Rui).retidos, 1);
        QCOMPARE(m.Corre(DuasContas::Eva).adicionados, 1);
        QCOMPARE(m.Corre(DuasContas::Rui).retidos, 0);
        QVERIFY(m.Sossegar());
        QCOMPARE(m.Nomes(), QStringList{u"Ana"_s});
        QCOMPARE(m.servidor.cartoes.size(), 1U);
    }

    void eliminado_num_livro_sai_do_outro()
    {
        UmPar m(Livros::UmCada);
        m.Servidor_De(DuasContas::Rui).Tirar(m.href);
        QCOMPARE(m.Corre(DuasContas::Rui).eliminados, 1);
        QCOMPARE(m.Corre(DuasContas::Eva).eliminados_la, 1);
        QVERIFY(m.servidor.cartoes.empty());
    }

    // What a telephone wrote into the card of one book the other book's card does not take away.
    void o_que_so_um_cartao_sabe_fica_no_seu_livro()
    {
        UmPar m(Livros::UmCada);
        ServidorEmMemoria &dele = m.Servidor_De(DuasContas::Rui);
        dele.Por(m.href, DuasContas::Cartao(u"u1"_s, u"Ana"_s, "X-JOGO:xadrez\r\nX-ANEL:ouro\r\n"));
        m.Corre(DuasContas::Rui);
        m.Mudar_La(m.href, Coluna::Fax, u"9"_s);
        m.Corre(DuasContas::Eva);
        m.Corre(DuasContas::Rui);
        const QByteArray cartao = dele.cartoes.at(m.href).texto;
        QVERIFY2(cartao.contains("X-ANEL:ouro") && cartao.contains("X-JOGO:xadrez") && cartao.contains("9"),
                 cartao.constData());
        QVERIFY(!m.Texto_La(m.href).contains("\r\nX-ANEL")); // a line of the note at most
        QCOMPARE(m.La_De(DuasContas::Rui), m.Aqui());
    }

    // For the account that has not sent him yet he is new; nobody is told.
    void eliminado_la_antes_de_a_outra_conta_o_conhecer_volta_inteiro_e_uma_vez()
    {
        DuasContas m(Livros::Um);
        const int ID = m.Contacto(u"Ana"_s);
        m.Corre(DuasContas::Eva);
        QCOMPARE(m.servidor.cartoes.size(), 1U);
        m.servidor.Tirar(m.servidor.cartoes.begin()->first);
        m.Corre(DuasContas::Rui);
        QVERIFY(m.Sossegar());
        QCOMPARE(m.Nomes(u"ID || Nome"_s), QStringList{QString::number(ID) + u"Ana"_s});
        QCOMPARE(m.servidor.cartoes.size(), 1U);
        QCOMPARE(m.Ocorrencias(), QStringList{});
    }

    void ao_fim_de_um_mes_de_duas_contas_nada_falta_e_nada_esta_duas_vezes_data()
    {
        QTest::addColumn<Livros>("livros");
        QTest::addColumn<quint32>("semente");
        for (quint32 semente = 1; semente <= 6; ++semente)
            QTest::addRow("seed %u", semente) << (semente % 2 == 0 ? Livros::Um : Livros::UmCada) << semente;
    }
    void ao_fim_de_um_mes_de_duas_contas_nada_falta_e_nada_esta_duas_vezes()
    {
        QFETCH(Livros, livros);
        QFETCH(quint32, semente);
        DuasContas m(livros);
        std::vector<std::unique_ptr<LadoDeGente>> lados;
        lados.push_back(std::make_unique<LadoDaMesa>(m));
        lados.push_back(std::make_unique<LadoDoServidor>(m.servidor));
        if (livros == Livros::UmCada)
            lados.push_back(std::make_unique<LadoDoServidor>(m.Servidor_De(DuasContas::Rui)));
        MesDeGente gente(std::move(lados), semente);
        gente.Povoar(20);
        int cedidas = 0;
        for (int dia = 0; dia < 30; ++dia) {
            for (int i = 0; i < 6; ++i)
                gente.Alguma_Coisa();
            const auto quem = gente.Dado(2) == 0 ? DuasContas::Eva : DuasContas::Rui;
            if (gente.Dado(3) > 0)
                cedidas += static_cast<int>(m.Correm(gente.Dado(20), quem).primeira.fim == Fim::Noutro);
            else
                m.Corre(quem);
        }
        QVERIFY(m.Sossegar());
        QStringList faltas = gente.Faltas(true);
        // On one book an account that has not met somebody yet takes the deletion for a contact, or a card, that
        // is new: who was deleted is there again then, whole and once.
        if (livros == Livros::Um)
            faltas.removeIf([](const QString &falta) { return falta.startsWith(MesDeGente::voltou_sem_palavra); });
        QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join(u'\n')));
        QVERIFY(gente.Vivos() > 40);
        QVERIFY2(cedidas > 3, qPrintable(QString::number(cedidas)));
    }
};

MORVEX_TESTE(TestDuasContas)
#include "test_DuasContas.moc"
