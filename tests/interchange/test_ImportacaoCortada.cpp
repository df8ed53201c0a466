// Imports over which a real server goes away, and which are then done once more: every row comes, and comes
// once.
#include "cards/EscritaDaImportacao.h"
#include "controls/ComboBox.h"
#include "controls/ListBox.h"
#include "interchange/DE2.h"
#include "interchange/frmImportar2.h"
#include "interchange/Fusao.h"
#include "interchange/Intercambio.h"
#include "servidor/MudancaParaServidor.h"
#include "session/Main.h"
#include "store/Intermediario.h"
#include "store/postgres/PostgresStore.h"
#include "testlib/BaseDeEnsaio.h"
#include "testlib/EspecieDaFalha.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <optional>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QUrl>
#include <thread>

using namespace Qt::StringLiterals;
using std::chrono::milliseconds;

namespace
{
// An office whose book is empty but for its groups, and the network of one of its desks.
struct Escritorio {
    Escritorio()
    {
        Sistema s;
        s.Escrever(u"DELETE FROM TblLista"_s);
        s.Escrever(u"DELETE FROM TblMemos"_s);
        s.geral.de.Fechar_Ligacao();
        ServerSession dona(base.Da_Dona());
        dona.together([&] { mudanca::Mudar(s.Base(), dona, u"morvex"_s); });
    }

    QString Por_Rede() const
    {
        QUrl morada(base.Do_Posto());
        morada.setPort(rede.Porta());
        return morada.toString();
    }
    int Numero(const QString &sql) { return la.query(sql).Fields("n").number(); }
    int Contactos() { return Linhas(u"tbllista"_s); }
    int Nomes() { return Numero(u"SELECT count(DISTINCT nome) AS n FROM tbllista"_s); }
    int Linhas(const QString &tabela) { return Numero(u"SELECT count(*) AS n FROM "_s + tabela); }
    int Chaves() { return Numero(u"SELECT count(*) AS n FROM gravacoes WHERE quando > now()"_s); }

    BaseDeEnsaio base;
    ServerSession la{base.Da_Dona()};
    Intermediario rede{static_cast<std::uint16_t>(QUrl(base.Do_Posto()).port())};
};

// One start of the program at that desk.
struct Posto {
    explicit Posto(Escritorio &escritorio) : e(escritorio)
    {
        s.geral.de.Fechar_Ligacao();
        s.geral.CaminhoBD = e.Por_Rede();
        s.geral.ini.Escrever_Ini(u"basedados"_s, u"caminhobd"_s, s.geral.CaminhoBD);
        s.geral.de.Servir_De([](const QString &endereco) {
            PostgresPatience paciencia;
            paciencia.tries = {milliseconds(50)};
            return PostgresStore::open(endereco, paciencia);
        });
        s.geral.de.Abrir("cmdVerConfig").Close();
    }
    // The network is there again, and so is the server some moments later.
    bool Volta()
    {
        e.rede.modo = Intermediario::Passa;
        QElapsedTimer relogio;
        relogio.start();
        while (relogio.elapsed() < 20000) {
            QTest::qWait(20);
            if (skipFailure([this] { s.geral.de.Abrir("cmdVerConfig").Close(); })) return true;
        }
        return false;
    }

    Escritorio &e;
    Sistema s{Sistema::Estado::Semeado, u"PortuguesPT"_s, Sistema::Onde::Num_Ficheiro};
};

// An older database: contacts in two groups of which one is new, each with a card, and somebody's tasks and
// memos.
struct Antiga {
    Antiga()
    {
        s.Escrever(u"DELETE FROM TblLista"_s);
        s.Escrever(u"DELETE FROM TblMemos"_s);
        const int rui = s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        const int coral = s.Novo_Grupo(u"Coral"_s);
        const QString fonte =
            u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<%1) "_s.arg(linhas);
        s.Escrever(fonte + u"INSERT INTO TblLista (Nome, Telefone1, Grupo) SELECT 'Contacto ' || i, i, "
                           "CASE WHEN i % 7 = 0 THEN %1 ELSE 1 END FROM n"_s.replace(u"%1"_s,
                                                                                     QString::number(coral)));
        s.Escrever(
            u"INSERT INTO TblCartoes (IDContacto, UID, cartao) SELECT ID, Telefone1, x'00' FROM TblLista"_s);
        s.Escrever(
            fonte +
            u"INSERT INTO TblTarefas (Tarefa, Data, Hora, Utilizador, IDRepeticao) SELECT 'Tarefa ' || i, "
            "'2027-02-01', '10:00:00', %1, 1 FROM n"_s.arg(rui));
        s.Escrever(
            fonte +
            u"INSERT INTO TblMemos (Titulo, Descricao, LeftForm, TopForm, Width, Height, FontName, FontSize, "
            "FontBold, FontItalic, CorFundo, Utilizador) SELECT 'Memo ' || i, 'd', 1, 2, 3, 4, 'Tahoma', 8, "
            "0, 0, 65535, %1 FROM n"_s.arg(rui));
        s.geral.de.Fechar_Ligacao();
    }
    static constexpr int linhas = 1000;
    Sistema s{Sistema::Estado::Semeado, u"PortuguesPT"_s, Sistema::Onde::Num_Ficheiro};
};

// One merge of it at that desk, as the form has it; that is done once a pass has come so far.
struct Passo {
    int passagem; // 0 to 2
    int percentagem;
};
bool Fundir(Posto &p, const Antiga &antiga, const Passo &quando, const std::function<void()> &entretanto,
            std::array<Fusao::Contagem, 3> *contagens = nullptr)
{
    DE2 de2(antiga.s.Base());
    Fusao fusao(p.s.geral, de2, {Antiga::linhas, Antiga::linhas, Antiga::linhas});
    int passagem = 0;
    const auto seguinte = [&] { ++passagem; };
    QObject::connect(&fusao, &Fusao::ContactosLidos, &fusao, seguinte);
    QObject::connect(&fusao, &Fusao::TarefasLidas, &fusao, seguinte);
    bool feito = !entretanto;
    QObject::connect(&fusao, &Fusao::Progresso, &fusao, [&](int percentagem) {
        if (feito || passagem != quando.passagem || percentagem < quando.percentagem) return;
        feito = true;
        entretanto();
    });
    fusao.Correr();
    if (contagens != nullptr) *contagens = fusao.Contagens();
    return feito && fusao.Completa();
}

const QStringList as_tres{u"tbllista"_s, u"tbltarefas"_s, u"tblmemos"_s};

constexpr int registos = 4500;

// The form with a text of that many contacts, as it is shown: the last two are alike.
struct Texto {
    explicit Texto(Posto &p) : janela(p.s.geral, p.s.plataforma)
    {
        janela.Carregar();
        form.emplace(p.s.geral, p.s.plataforma, *janela.findChild<Intercambio *>(), janela);
        const QString vazio = u"¦¶æÞ¢§Æ¿¡ÿ±ßøµ¤"_s;
        for (int i = 0; i < registos; ++i)
            form->ListaMorvex43->AddItem(u"N%1¥"_s.arg(std::min(i, registos - 2)) + vazio);
        form->show();
    }
    // Stores it, over a network that goes away in the middle.
    void Cortar(Posto &p, Escritorio &e)
    {
        p.s.caixas.Espera_Qualquer(48, form->windowTitle());
        std::thread corte([&] {
            ServerSession outra(e.base.Da_Dona());
            const auto quantos = [&] {
                return outra.query(u"SELECT count(*) AS n FROM tbllista"_s).Fields("n").number();
            };
            for (int vezes = 0; quantos() < 300 && vezes < 20000; ++vezes)
                std::this_thread::sleep_for(milliseconds(1));
            e.rede.modo = Intermediario::Recusa;
        });
        form->cmdSeguinte->click();
        corte.join();
    }

    Main janela;
    std::optional<frmImportar2> form;
};

QByteArray Cartoes(int quantos)
{
    QByteArray livro;
    for (int i = 0; i < quantos; ++i)
        livro += "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Pessoa " + QByteArray::number(i) + "\r\nTEL:21" +
                 QByteArray::number(1000000 + i) + "\r\nEND:VCARD\r\n";
    return livro;
}
} // namespace

class TestImportacaoCortada : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (const QString falta = BaseDeEnsaio::Falta(); !falta.isEmpty()) QSKIP(qPrintable(falta));
    }

    // The form stays, says how many are there, and brings the others when it is asked again.
    void um_texto_cortado_diz_quantos_ficaram_e_repetido_traz_os_outros()
    {
        Escritorio e;
        Posto p(e);
        Texto texto(p);
        texto.Cortar(p, e);
        QVERIFY(texto.form->isVisible());
        QVERIFY(!p.s.processo.Terminou());
        QVERIFY(p.Volta()); // what was on its way has come or never will
        const int ficaram = e.Contactos();
        QVERIFY2(ficaram >= 300 && ficaram < registos, QByteArray::number(ficaram));
        QCOMPARE(e.Chaves(), ficaram);
        QVERIFY(p.s.caixas.Todas_Vistas());
        const QString dito = p.s.caixas.vistas.constLast();
        const auto contagem =
            QRegularExpression(u"Contactos guardados: (pelo menos )?([0-9]+) / 4500\r\n"_s).match(dito);
        QVERIFY2(contagem.hasMatch(), qPrintable(dito));
        if (contagem.captured(1).isEmpty())
            QCOMPARE(contagem.captured(2).toInt(), ficaram);
        else
            QVERIFY2(contagem.captured(2).toInt() <= ficaram,
                     qPrintable(dito)); // its answer was lost as well
        texto.form->cmdSeguinte->click();
        QVERIFY(!texto.form->isVisible());
        QCOMPARE(e.Contactos(), registos);
        QCOMPARE(e.Nomes(), registos - 1);
        QCOMPARE(e.Chaves(), 0);
    }

    // Who deletes what came wants it once more; what was changed has come, and so has what was brought back.
    void do_que_veio_de_um_texto_o_eliminado_vem_outra_vez()
    {
        Escritorio e;
        Posto p(e);
        Texto texto(p);
        texto.Cortar(p, e);
        QVERIFY(e.Contactos() < registos);
        e.la.run(u"DELETE FROM tbllista WHERE id IN (SELECT id FROM tbllista ORDER BY id LIMIT 100)"_s);
        e.la.run(u"UPDATE tbllista SET nome = 'mudado' WHERE id = (SELECT min(id) FROM tbllista)"_s);
        e.la.run(u"CREATE TABLE guardada AS SELECT * FROM tbllista ORDER BY id DESC LIMIT 1; DELETE FROM tbllista "
                 "WHERE id IN (SELECT id FROM guardada); INSERT INTO tbllista SELECT * FROM guardada"_s);
        QVERIFY(p.Volta());
        texto.form->cmdSeguinte->click();
        QVERIFY(!texto.form->isVisible());
        QCOMPARE(e.Contactos(), registos);
        QCOMPARE(e.Nomes(), registos - 1); // the name that was changed stands for the old one
        QCOMPARE(e.Numero(u"SELECT count(*) AS n FROM tbllista WHERE nome = 'N0'"_s), 1);
        QCOMPARE(e.Numero(u"SELECT count(*) AS n FROM tbllista WHERE nome = 'mudado'"_s), 1);
        QCOMPARE(e.Chaves(), 0);
    }

    void para_outro_grupo_um_texto_cortado_vem_todo()
    {
        Escritorio e;
        e.la.run(u"INSERT INTO tblgrupos (nomegrupo) VALUES ('ZZ')"_s);
        Posto p(e);
        Texto texto(p);
        texto.Cortar(p, e);
        QVERIFY(p.Volta());
        const int ficaram = e.Contactos();
        ComboBox &grupos = *texto.form->ComboGrupos;
        grupos.setListIndex(grupos.ListCount() - 1);
        QCOMPARE(grupos.currentText(), u"ZZ"_s);
        texto.form->cmdSeguinte->click();
        QCOMPARE(e.Contactos(), ficaram + registos);
        QCOMPARE(e.Numero(u"SELECT count(*) AS n FROM tbllista JOIN tblgrupos g ON g.id = grupo "
                          "WHERE nomegrupo = 'ZZ'"_s),
                 registos);
    }

    void de_uma_fusao_cortada_o_eliminado_vem_outra_vez()
    {
        Escritorio e;
        const Antiga antiga;
        {
            Posto p(e);
            QVERIFY(!Fundir(p, antiga, {2, 55}, [&] { e.rede.modo = Intermediario::Recusa; }));
        }
        e.rede.modo = Intermediario::Passa;
        for (const QString &tabela : as_tres) {
            QVERIFY(e.Linhas(tabela) > 50);
            e.la.run(u"DELETE FROM %1 WHERE id IN (SELECT id FROM %1 ORDER BY id LIMIT 50)"_s.arg(tabela));
        }
        Posto p(e);
        QVERIFY(Fundir(p, antiga, {}, {}));
        for (const QString &tabela : as_tres)
            QCOMPARE(e.Linhas(tabela), Antiga::linhas);
        QCOMPARE(e.Nomes(), Antiga::linhas);
        QCOMPARE(e.Chaves(), 0);
    }

    void uma_fusao_cortada_e_repetida_traz_cada_linha_uma_vez_data()
    {
        QTest::addColumn<int>("passagem");
        QTest::addColumn<int>("percentagem");
        QTest::addColumn<int>("modo");
        for (const int modo : {int(Intermediario::Recusa), int(Intermediario::Engole_Respostas)})
            for (int passagem = 0; passagem < 3; ++passagem)
                QTest::addRow("%s, %d", modo == Intermediario::Recusa ? "cut" : "answers lost", passagem)
                    << passagem << 55 << modo;
    }
    void uma_fusao_cortada_e_repetida_traz_cada_linha_uma_vez()
    {
        QFETCH(int, passagem);
        QFETCH(int, percentagem);
        QFETCH(int, modo);
        Escritorio e;
        const Antiga antiga;
        {
            Posto p(e);
            QVERIFY(!Fundir(p, antiga, {passagem, percentagem},
                            [&] { e.rede.modo = static_cast<Intermediario::Modo>(modo); }));
        }
        e.rede.modo = Intermediario::Passa;
        const int ficaram = e.Linhas(as_tres[passagem]);
        QVERIFY2(ficaram > 0 && ficaram < Antiga::linhas, QByteArray::number(ficaram));
        {
            Posto p(e); // the program has ended meanwhile
            std::array<Fusao::Contagem, 3> contagens;
            QVERIFY(Fundir(p, antiga, {}, {}, &contagens));
            for (const Fusao::Contagem &contagem : contagens)
                QCOMPARE(contagem.Guardados, Antiga::linhas);
        }
        QCOMPARE(e.Nomes(), Antiga::linhas);
        for (const QString &tabela : as_tres)
            QCOMPARE(e.Linhas(tabela), Antiga::linhas);
        QCOMPARE(
            e.Numero(
                u"SELECT count(*) AS n FROM tblcartoes JOIN tbllista ON id = idcontacto WHERE uid = telefone1"_s),
            Antiga::linhas);
        QCOMPARE(e.Numero(u"SELECT count(*) AS n FROM tblgrupos WHERE nomegrupo = 'Coral'"_s), 1);
        QCOMPARE(e.Numero(u"SELECT count(*) AS n FROM tblusers"_s), 1);
        QCOMPARE(e.Chaves(), 0);
    }

    // What was complete is brought again by whoever asks for it again.
    void uma_fusao_inteira_repetida_dobra_as_linhas()
    {
        Escritorio e;
        const Antiga antiga;
        Posto p(e);
        for (int vez = 1; vez <= 2; ++vez) {
            QVERIFY(Fundir(p, antiga, {}, {}));
            QCOMPARE(e.Contactos(), vez * Antiga::linhas);
            QCOMPARE(e.Nomes(), Antiga::linhas);
        }
    }

    // Nobody knows then what came earlier.
    void uma_fusao_sem_servidor_nao_traz_nada_e_conta_o_que_falta()
    {
        Escritorio e;
        const Antiga antiga;
        Posto p(e);
        e.rede.modo = Intermediario::Recusa;
        std::array<Fusao::Contagem, 3> contagens;
        QVERIFY(!Fundir(p, antiga, {}, {}, &contagens));
        for (const Fusao::Contagem &contagem : contagens) {
            QCOMPARE(contagem.Lidos, Antiga::linhas);
            QCOMPARE(contagem.Guardados, 0);
        }
    }

    void de_cartoes_cortados_nada_fica_e_repetidos_vem_uma_vez()
    {
        constexpr int quantos = 300;
        Escritorio e;
        Posto p(e);
        ImportacaoDeContactos importacao(p.s.geral.de, u"0"_s, u"PortuguesPT"_s);
        importacao.Abrir_Cartoes(Cartoes(quantos), {}, {});
        while (importacao.Avancar()) {
        }
        EscritaDaImportacao escrita(p.s.geral.de, importacao, {u"0"_s, u"1"_s, false});
        QCOMPARE(teste::Especie_Da_Falha([&] {
                     escrita.Escrever([&](int percentagem) {
                         if (percentagem > 75) e.rede.modo = Intermediario::Recusa;
                         return true;
                     });
                 }),
                 Failure::Kind::ServerLost);
        QVERIFY(!escrita.Em_Duvida());
        QCOMPARE(e.Contactos(), 0);
        QVERIFY(p.Volta());
        QVERIFY(escrita.Escrever([](int) { return true; }));
        QCOMPARE(e.Contactos(), quantos);
        QCOMPARE(e.Nomes(), quantos);
        QCOMPARE(escrita.Feita().adicionados, quantos);
    }
};

MORVEX_TESTE(TestImportacaoCortada)
#include "test_ImportacaoCortada.moc"
