// The writing of an import: all of it or nothing, and back again.
#include "cards/EscritaDaImportacao.h"

#include "data/CartoesGuardados.h"
#include "data/Fotografias.h"
#include "platform/Failure.h"
#include "testlib/DiscoPequeno.h"
#include "testlib/EspecieDaFalha.h"
#include "testlib/FalhaDita.h"
#include "testlib/MorteNoDisco.h"
#include "testlib/ServidorFalso.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QElapsedTimer>
#include <QProcess>

using namespace Qt::StringLiterals;
using C = Coluna;
using E = Escolha;

namespace
{
// A picture of two by two points.
const QByteArray pontos = QByteArray::fromBase64(
    "iVBORw0KGgoAAAANSUhEUgAAAAIAAAACCAAAAABX3VL4AAAADklEQVR4nGMQUGAwcAAAAXYAoewwivQAAAAASUVORK5CYII=");

QByteArray Cartao(const QByteArray &linhas)
{
    return "BEGIN:VCARD\r\nVERSION:3.0\r\n" + linhas + "\r\nEND:VCARD\r\n";
}

QByteArray Pessoas(int quantas)
{
    QByteArray livro;
    for (int i = 0; i < quantas; ++i)
        livro += Cartao("UID:u" + QByteArray::number(i) + "\r\nFN:Pessoa " + QByteArray::number(i) +
                        "\r\nTEL:21" + QByteArray::number(1000000 + i) +
                        "\r\nPHOTO;ENCODING=b:" + (i == 0 ? pontos.toBase64() : QByteArray()));
    return livro;
}

// A picture each that takes a megabyte to keep and no time to open: what follows its end is nothing to it.
QByteArray Com_Fotografias_Grandes(int quantas)
{
    QByteArray livro;
    for (int i = 0; i < quantas; ++i)
        livro += Cartao("FN:Pessoa " + QByteArray::number(i) + "\r\nPHOTO;ENCODING=b:" +
                        (pontos + QByteArray(1 << 20, static_cast<char>(i))).toBase64());
    return livro;
}

// Everything that an import can touch.
const QStringList tabelas{u"TblLista"_s, u"TblGrupos"_s, u"TblCartoes"_s, u"TblFotografias"_s};

QStringList Estado(Sistema &s)
{
    QStringList tudo;
    for (const QString &tabela : tabelas)
        tudo << tabela << s.Linhas(u"SELECT * FROM %1 ORDER BY 1"_s.arg(tabela));
    return tudo << s.Linhas(u"SELECT name, seq FROM sqlite_sequence WHERE name = 'TblLista'"_s);
}

bool Sempre(int) { return true; }

struct ComImportacao {
    ComImportacao()
    {
        s.Escrever(u"DELETE FROM TblLista"_s);
        ana = QString::number(s.Novo_Contacto({{u"Nome"_s, u"Ana Silva"_s},
                                               {u"Telemovel1"_s, u"912 345 678"_s},
                                               {u"Email1"_s, u"ana@exemplo.pt"_s},
                                               {u"Telefone1"_s, Value(nullptr)},
                                               {u"Grupo"_s, 2}}));
    }

    ImportacaoDeContactos &Ler(const QByteArray &bytes, const GruposDaImportacao &grupos = {})
    {
        importacao.emplace(s.geral.de, s.geral.SessaoActual.IdUtilizador, u"PortuguesPT"_s);
        importacao->Abrir_Cartoes(bytes, {}, grupos);
        while (importacao->Avancar()) {
        }
        return *importacao;
    }

    EscritaDaImportacao &Escrita(bool criar_grupos = false)
    {
        escrita.emplace(s.geral.de, *importacao,
                        EscritaDaImportacao::Pedido{s.geral.SessaoActual.IdUtilizador, u"1"_s, criar_grupos});
        return *escrita;
    }

    void Importar(const QByteArray &bytes, const GruposDaImportacao &grupos = {})
    {
        Ler(bytes, grupos);
        if (!Escrita(grupos.criar).Escrever(Sempre)) qFatal("cancelled");
    }

    QString Coluna_De(const QString &ID, const QString &coluna)
    {
        return s.Linhas(u"SELECT %1 FROM TblLista WHERE ID = %2"_s.arg(coluna, ID)).value(0);
    }

    Sistema s;
    QString ana;
    std::optional<ImportacaoDeContactos> importacao;
    std::optional<EscritaDaImportacao> escrita;
};

// This program once more, with the changes to files counted from the first write on; one of them kills it.
void Filho_Que_Morre(const QString &base, const QString &ficheiro, int mudanca)
{
    QString caminho = base;
    DE de(caminho, QFileInfo(base).path());
    QFile cartoes(ficheiro);
    if (!cartoes.open(QIODevice::ReadOnly)) qFatal("no cards");
    ImportacaoDeContactos importacao(de, u"0"_s, u"PortuguesPT"_s);
    importacao.Abrir_Cartoes(cartoes.readAll(), {}, {});
    while (importacao.Avancar()) {
    }
    EscritaDaImportacao escrita(de, importacao, {u"0"_s, u"1"_s, false});
    morte_no_disco::Armar(mudanca);
    escrita.Escrever(Sempre);
    morte_no_disco::armada = false;
    std::fputs(morte_no_disco::mudancas.c_str(), stdout);
}

// Imports in a process of its own, which may die of it; each time into the same book.
struct MorteAImportar {
    explicit MorteAImportar(const QByteArray &cartoes)
    {
        QFile escrito(ficheiro);
        if (!escrito.open(QIODevice::WriteOnly) || escrito.write(cartoes) != cartoes.size())
            qFatal("no cards");
        QFile base(c.s.Base());
        if (base.open(QIODevice::ReadOnly)) antes = base.readAll();
    }

    // Whether it died at that change to a file, and all the changes of one that did not; 0 kills none.
    std::pair<bool, QByteArray> Importar(int mudanca)
    {
        QFile base(c.s.Base());
        QFile::remove(c.s.Base() + u"-journal"_s);
        if (!base.open(QIODevice::WriteOnly) || base.write(antes) != antes.size()) qFatal("no book");
        base.close();
        QProcess processo;
        processo.start(QCoreApplication::applicationFilePath(),
                       {u"--morre"_s, c.s.Base(), ficheiro, QString::number(mudanca)});
        processo.waitForFinished(-1);
        return {processo.exitStatus() == QProcess::CrashExit, processo.readAllStandardOutput()};
    }

    // Contacts, cards and pictures, as whoever opens it next finds them.
    std::tuple<int, int, int> Na_Base() const
    {
        Connection ligacao;
        ligacao.setConnectionString(u"Data Source='%1'"_s.arg(c.s.Base()));
        ligacao.Open();
        const auto contar = [&](const QString &tabela) {
            return ligacao.query(u"SELECT count(*) AS n FROM "_s + tabela, {}).Fields("n").number();
        };
        return {contar(u"TblLista"_s), contar(u"TblCartoes"_s), contar(u"TblFotografias"_s)};
    }

    ComImportacao c;
    QString ficheiro = c.s.Ficheiro(u"pessoas.vcf"_s);
    QByteArray antes;
};
} // namespace

class TestEscritaDaImportacao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // What is written

    void um_novo_traz_a_linha_o_cartao_e_a_fotografia()
    {
        ComImportacao c;
        const QByteArray cartao = Cartao(
            "UID:abc\r\nFN:Rui Costa\r\nTEL;TYPE=CELL:966666666\r\nPHOTO;ENCODING=b:" + pontos.toBase64());
        c.Importar(cartao);
        const QString ID = QString::number(c.s.Ultimo_Id(u"TblLista"_s));
        QCOMPARE(c.Coluna_De(ID, u"Nome"_s), u"Rui Costa"_s);
        QCOMPARE(c.Coluna_De(ID, u"Grupo"_s), u"1"_s);
        const QString fotografia = c.Coluna_De(ID, u"Fotografia"_s);
        QVERIFY(E_Da_Base(fotografia));
        QCOMPARE(FotografiasDaBase(c.s.geral.de).Ler(fotografia), pontos);
        const auto guardado = CartoesGuardados(c.s.geral.de).Ler(ID);
        QVERIFY(guardado);
        QCOMPARE(guardado->UID, u"abc"_s);
        QCOMPARE(guardado->cartao, cartao);
        QCOMPARE(c.escrita->Feita().adicionados, 1);
    }

    void cada_coluna_vai_para_o_seu_lugar_em_quem_e_novo_e_em_quem_se_completa_data()
    {
        QTest::addColumn<bool>("novo");
        QTest::newRow("novo") << true;
        QTest::newRow("completado") << false;
    }
    void cada_coluna_vai_para_o_seu_lugar_em_quem_e_novo_e_em_quem_se_completa()
    {
        QFETCH(bool, novo);
        ComImportacao c;
        const QString grupo = novo ? u"1"_s : u"2"_s;
        if (!novo) c.s.Novo_Contacto({{u"Nome"_s, u"Rui Costa"_s}, {u"Email1"_s, u"a@b.pt"_s}, {u"Grupo"_s, 2}});
        const QStringList antes = Estado(c.s);
        c.Importar(Cartao("FN:Rui Costa\r\nTEL;TYPE=HOME:211111111\r\nTEL;TYPE=WORK:212222222\r\n"
                          "TEL;TYPE=FAX:213333333\r\nTEL;TYPE=CELL:911111111\r\nTEL;TYPE=CELL:922222222\r\n"
                          "TEL;TYPE=CELL:933333333\r\nBDAY:1975-03-04\r\nEMAIL:a@b.pt\r\nEMAIL:c@d.pt\r\n"
                          "URL:rui.pt\r\nADR:;;Rua A;;;;\r\nNOTE:nota\r\nPHOTO;ENCODING=b:" +
                          pontos.toBase64()));
        const auto &valores = c.importacao->Contactos().front().fonte.lido.colunas.valores;
        QStringList esperados(valores.begin(), valores.end());
        esperados[static_cast<qsizetype>(C::IDGrupo)] = grupo;
        QCOMPARE(QSet<QString>(esperados.begin(), esperados.end()).size(), esperados.size());
        QVERIFY(!esperados.contains(QString()));
        QStringList colunas;
        for (const char *coluna : ColunasDoContacto::na_tabela)
            colunas << QString::fromLatin1(coluna);
        QCOMPARE(c.s.Linhas(u"SELECT %1 FROM TblLista WHERE Nome = 'Rui Costa'"_s.arg(colunas.join(u", "_s))),
                 QStringList{esperados.join(u'|')});
        c.escrita->Anular();
        QCOMPARE(Estado(c.s), antes);
    }

    void sem_fotografia_nenhuma_se_guarda_e_a_que_la_esta_fica_depois_de_anular()
    {
        ComImportacao c;
        c.Importar(Cartao("FN:Rui"));
        QCOMPARE(c.s.Linhas(u"SELECT * FROM TblFotografias"_s), QStringList());
        c.Importar(Cartao("FN:Eva\r\nPHOTO;ENCODING=b:" + pontos.toBase64()));
        const QStringList antes = Estado(c.s);
        c.Importar(Cartao("FN:Ivo\r\nPHOTO;ENCODING=b:" + pontos.toBase64()));
        c.escrita->Anular();
        QCOMPARE(Estado(c.s), antes);
    }

    void a_mesma_fotografia_guarda_se_uma_vez()
    {
        ComImportacao c;
        const QByteArray foto = "\r\nPHOTO;ENCODING=b:" + pontos.toBase64();
        c.Importar(Cartao("FN:Rui" + foto) + Cartao("FN:Eva" + foto));
        QCOMPARE(c.s.Linhas(u"SELECT * FROM TblFotografias"_s).size(), 1);
        QCOMPARE(
            c.s.Linhas(u"SELECT DISTINCT Fotografia FROM TblLista WHERE Fotografia LIKE 'bd:%'"_s).size(), 1);
    }

    void completar_so_enche_o_que_esta_vazio()
    {
        ComImportacao c;
        c.Importar(Cartao("FN:ANA SILVA\r\nEMAIL:ana@exemplo.pt\r\nTEL;TYPE=CELL:933333333\r\nURL:ana.pt"));
        QCOMPARE(c.s.Linhas(u"SELECT * FROM TblLista"_s).size(), 1);
        QCOMPARE(c.Coluna_De(c.ana, u"Nome"_s), u"Ana Silva"_s);
        QCOMPARE(c.Coluna_De(c.ana, u"Telemovel1"_s), u"912 345 678"_s);
        QCOMPARE(c.Coluna_De(c.ana, u"Telemovel2"_s), u"933333333"_s);
        QCOMPARE(c.Coluna_De(c.ana, u"Website"_s), u"ana.pt"_s);
        QCOMPARE(c.Coluna_De(c.ana, u"Telefone1"_s), u"<Null>"_s);
        QCOMPARE(c.Coluna_De(c.ana, u"Grupo"_s), u"2"_s);
        QCOMPARE(c.escrita->Feita().completados, 1);
        QVERIFY(CartoesGuardados(c.s.geral.de).Ler(c.ana));
    }

    void um_nome_que_nao_ha_continua_a_nao_haver()
    {
        ComImportacao c;
        c.s.Escrever(u"UPDATE TblLista SET Nome = NULL"_s);
        CartoesGuardados(c.s.geral.de).Guardar({c.ana, u"u-1"_s, {}});
        c.Importar(Cartao("UID:u-1\r\nFN:Ana\r\nURL:ana.pt"));
        QCOMPARE(c.s.Linhas(u"SELECT Nome, Website FROM TblLista"_s), QStringList{u"<Null>|ana.pt"_s});
    }

    // Somebody else has written since the file was read.
    void o_que_entretanto_se_escreveu_tambem_fica()
    {
        ComImportacao c;
        c.Ler(Cartao("FN:Ana Silva\r\nEMAIL:ana@exemplo.pt\r\nURL:do-cartao.pt"));
        c.s.Escrever(u"UPDATE TblLista SET Website = 'da-outra-copia.pt'"_s);
        QVERIFY(c.Escrita().Escrever(Sempre));
        QCOMPARE(c.Coluna_De(c.ana, u"Website"_s), u"da-outra-copia.pt"_s);
    }

    // Many are read in one walk over the book, and the same holds for each of them.
    void o_mesmo_vale_para_cada_um_de_muitos()
    {
        ComImportacao c;
        constexpr int muitos = 1500;
        QByteArray livro;
        for (int i = 0; i < muitos; ++i) {
            const QByteArray n = QByteArray::number(i);
            livro += Cartao("UID:u" + n + "\r\nFN:Pessoa " + n + "\r\nTEL;TYPE=CELL:91" +
                            QByteArray::number(1000000 + i) + "\r\nURL:" + n + ".pt");
        }
        c.s.Escrever(
            u"WITH RECURSIVE n (i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < %1) INSERT INTO "
            "TblLista (Nome, Telemovel1, Grupo) SELECT 'Pessoa ' || i, '91' || (1000000 + i), 1 FROM n"_s.arg(
                muitos - 1));
        c.Ler(livro);
        c.s.Escrever(u"DELETE FROM TblLista WHERE Nome = 'Pessoa 3'"_s);
        c.s.Escrever(u"UPDATE TblLista SET Website = 'outra.pt' WHERE Nome = 'Pessoa 4'"_s);
        c.s.Escrever(u"INSERT INTO TblGrupos (ID, NomeGrupo, IdUtilizador) VALUES (99, 'Alheio', 77)"_s);
        c.s.Escrever(u"UPDATE TblLista SET Grupo = 99 WHERE Nome = 'Pessoa 5'"_s);
        const QStringList antes = Estado(c.s);
        int ao_principio = 0;
        QVERIFY(c.Escrita().Escrever([&](int percentagem) {
            ao_principio += percentagem == 0 ? 1 : 0;
            return true;
        }));
        QCOMPARE(ao_principio, 2 + muitos / 50); // at each thousand rows, and at the first hundredth of its steps
        QCOMPARE(c.escrita->Feita().adicionados, 1);
        QCOMPARE(c.escrita->Feita().completados, muitos - 1);
        const auto de = [&](const QString &nome) {
            return c.s.Linhas(
                u"SELECT Website, Grupo, ifnull(Fax, 'Null') FROM TblLista WHERE Nome = '%1'"_s.arg(nome));
        };
        QCOMPARE(de(u"Pessoa 2"_s), QStringList{u"2.pt|1|Null"_s});
        QCOMPARE(de(u"Pessoa 3"_s), QStringList{u"3.pt|1|"_s});
        QCOMPARE(de(u"Pessoa 4"_s), QStringList{u"outra.pt|1|Null"_s});
        QCOMPARE(de(u"Pessoa 5"_s), QStringList{u"5.pt|99|Null"_s});
        QCOMPARE(de(u"Pessoa 1499"_s), QStringList{u"1499.pt|1|Null"_s});
        c.escrita->Anular();
        QCOMPARE(Estado(c.s), antes);
    }

    void quem_entretanto_desapareceu_vem_como_novo()
    {
        ComImportacao c;
        c.Ler(Cartao("FN:Ana Silva\r\nEMAIL:ana@exemplo.pt\r\nURL:ana.pt"));
        c.s.Escrever(u"DELETE FROM TblLista"_s);
        QVERIFY(c.Escrita().Escrever(Sempre));
        QCOMPARE(c.s.Linhas(u"SELECT Nome, Website FROM TblLista"_s), QStringList{u"Ana Silva|ana.pt"_s});
        QCOMPARE(c.escrita->Feita().adicionados, 1);
    }

    void duas_copias_no_ficheiro_dao_um_contacto_inteiro()
    {
        ComImportacao c;
        c.Importar(Cartao("FN:Rui Costa\r\nTEL;TYPE=CELL:966666666") +
                   Cartao("FN:Rui Costa\r\nTEL;TYPE=CELL:966666666\r\nURL:rui.pt"));
        QCOMPARE(c.s.Linhas(u"SELECT Nome, Telemovel1, Website FROM TblLista WHERE Nome LIKE 'Rui%'"_s),
                 QStringList{u"Rui Costa|966666666|rui.pt"_s});
        QCOMPARE(c.escrita->Feita().adicionados, 1);
        QCOMPARE(c.escrita->Feita().completados, 1);
    }

    void sem_a_primeira_copia_a_segunda_vem_sozinha()
    {
        ComImportacao c;
        c.Ler(Cartao("FN:Rui Costa\r\nTEL;TYPE=CELL:966666666\r\nNOTE:primeira") +
              Cartao("FN:Rui Costa\r\nTEL;TYPE=CELL:966666666\r\nURL:rui.pt"));
        c.importacao->Contactos()[0].escolha = E::Saltar;
        QVERIFY(c.Escrita().Escrever(Sempre));
        QCOMPARE(c.s.Linhas(u"SELECT Nome, Obs, Website FROM TblLista WHERE Nome LIKE 'Rui%'"_s),
                 QStringList{u"Rui Costa||rui.pt"_s});
    }

    // The second copy follows the first to whom that one was joined by hand.
    void quem_se_juntou_a_alguem_leva_as_suas_copias_consigo()
    {
        ComImportacao c;
        c.Ler(Cartao("FN:Nita\r\nEMAIL:ana@exemplo.pt") +
              Cartao("FN:Nita\r\nEMAIL:ana@exemplo.pt\r\nURL:nita.pt"));
        auto &contactos = c.importacao->Contactos();
        QCOMPARE(contactos[0].veredicto, Veredicto::Talvez);
        contactos[0].escolha = E::Juntar;
        QVERIFY(c.importacao->Quem(contactos[1].quem.front()).ID.isEmpty() || contactos[1].quem.size() > 1);
        contactos[1].escolha = E::Juntar;
        contactos[1].com = contactos[1].quem.size() - 1; // the one of the file
        QVERIFY(c.Escrita().Escrever(Sempre));
        QCOMPARE(c.s.Linhas(u"SELECT Nome, Website FROM TblLista"_s), QStringList{u"Ana Silva|nita.pt"_s});
    }

    void saltar_nao_escreve_ninguem()
    {
        ComImportacao c;
        c.Ler(Cartao("FN:Rui") + Cartao("FN:Ana Silva\r\nEMAIL:ana@exemplo.pt\r\nURL:ana.pt"));
        for (ContactoAImportar &contacto : c.importacao->Contactos())
            contacto.escolha = E::Saltar;
        const QStringList antes = Estado(c.s);
        QVERIFY(c.Escrita().Escrever(Sempre));
        QCOMPARE(Estado(c.s), antes);
        QCOMPARE(c.escrita->Feita().saltados, 2);
    }

    void o_cartao_de_antes_fica_se_nao_vier_o_mesmo()
    {
        ComImportacao c;
        CartoesGuardados guardados(c.s.geral.de);
        guardados.Guardar({c.ana, u"antigo"_s, "o de antes"});
        c.Importar(Cartao("UID:outro\r\nFN:Ana Silva\r\nEMAIL:ana@exemplo.pt\r\nURL:ana.pt"));
        QCOMPARE(guardados.Ler(c.ana)->cartao, "o de antes");
        const QByteArray novo = Cartao("UID:antigo\r\nFN:Ana Silva\r\nTEL:213333333");
        c.Importar(novo);
        QCOMPARE(guardados.Ler(c.ana)->cartao, novo);
    }

    void um_cartao_de_antes_sem_uid_fica_mesmo_que_o_novo_tambem_o_nao_tenha()
    {
        ComImportacao c;
        CartoesGuardados guardados(c.s.geral.de);
        guardados.Guardar({c.ana, {}, "o de antes"});
        c.Importar(Cartao("FN:Ana Silva\r\nEMAIL:ana@exemplo.pt\r\nURL:ana.pt"));
        QCOMPARE(c.Coluna_De(c.ana, u"Website"_s), u"ana.pt"_s);
        QCOMPARE(guardados.Ler(c.ana)->cartao, "o de antes");
    }

    // Groups

    void um_grupo_tem_no_maximo_cinquenta_letras_e_e_um_so()
    {
        ComImportacao c;
        const QByteArray longo(51, 'g');
        c.Importar(Cartao("FN:Rui\r\nCATEGORIES:" + longo) + Cartao("FN:Eva\r\nCATEGORIES:" + longo),
                   {{}, {}, true});
        QCOMPARE(c.escrita->GruposCriados(), QStringList{QString(50, u'g')});
        QCOMPARE(c.s.Linhas(u"SELECT NomeGrupo FROM TblGrupos WHERE NomeGrupo LIKE 'ggg%'"_s),
                 QStringList{QString(50, u'g')});
    }

    void so_para_completar_o_grupo_escolhido_nao_faz_falta()
    {
        ComImportacao c;
        c.Ler(Cartao("FN:Ana Silva\r\nEMAIL:ana@exemplo.pt\r\nURL:ana.pt"));
        c.s.Escrever(u"DELETE FROM TblGrupos WHERE ID = 1"_s);
        QVERIFY(c.Escrita().Escrever(Sempre));
        QCOMPARE(c.Coluna_De(c.ana, u"Website"_s), u"ana.pt"_s);
    }

    void a_categoria_escolhe_o_grupo_e_quem_nao_diz_nenhum_vai_para_o_escolhido()
    {
        ComImportacao c;
        const QString nome = c.s.Linhas(u"SELECT NomeGrupo FROM TblGrupos WHERE ID = 2"_s).value(0);
        c.Importar(Cartao("FN:Rui\r\nCATEGORIES:" + nome.toUtf8()) + Cartao("FN:Eva"), {{nome}, {}, false});
        QCOMPARE(c.s.Linhas(u"SELECT Nome, Grupo FROM TblLista WHERE Nome IN ('Rui','Eva') ORDER BY ID"_s),
                 (QStringList{u"Rui|2"_s, u"Eva|1"_s}));
        QVERIFY(c.escrita->GruposCriados().isEmpty());
    }

    void um_grupo_em_falta_cria_se_uma_vez_e_e_de_quem_importa()
    {
        ComImportacao c;
        const int eva = c.s.Novo_Utilizador(u"Eva"_s, u"x"_s);
        // Of somebody else, and not in view: its contacts would vanish there.
        const int de_outro = c.s.Novo_Grupo(u"Xadrez"_s, eva + 100);
        c.s.Entrar(u"Eva"_s);
        c.Importar(Cartao("FN:Rui\r\nCATEGORIES:Xadrez") + Cartao("FN:Rita\r\nCATEGORIES:xadrez"),
                   {{}, {}, true});
        const QStringList grupos = c.s.Linhas(
            u"SELECT ID, IdUtilizador FROM TblGrupos WHERE NomeGrupo = 'Xadrez' AND ID <> %1"_s.arg(
                de_outro));
        QCOMPARE(grupos.size(), 1);
        QCOMPARE(grupos[0].section(u'|', 1), QString::number(eva));
        QCOMPARE(c.s.Linhas(u"SELECT DISTINCT Grupo FROM TblLista WHERE Nome LIKE 'R%'"_s),
                 QStringList{grupos[0].section(u'|', 0, 0)});
        QCOMPARE(c.escrita->GruposCriados(), QStringList{u"Xadrez"_s});
    }

    void sem_o_grupo_escolhido_nada_se_escreve()
    {
        ComImportacao c;
        c.Ler(Pessoas(3));
        c.s.Escrever(u"DELETE FROM TblGrupos WHERE ID = 1"_s);
        const QStringList antes = Estado(c.s);
        QVERIFY_THROWS_EXCEPTION(GrupoDesaparecido, c.Escrita().Escrever(Sempre));
        QCOMPARE(Estado(c.s), antes);
    }

    // Numbers

    void uma_agenda_que_passaria_do_ultimo_numero_recusa_se_inteira()
    {
        ComImportacao c;
        c.s.Escrever(u"UPDATE sqlite_sequence SET seq = 32765 WHERE name = 'TblLista'"_s);
        c.Ler(Pessoas(3));
        const QStringList antes = Estado(c.s);
        qint64 cabem = -1;
        try {
            c.Escrita().Escrever(Sempre);
        } catch (const NaoCabem &falta) {
            cabem = falta.cabem;
        }
        QCOMPARE(cabem, 2);
        QCOMPARE(Estado(c.s), antes);
        c.importacao->Contactos()[1].escolha = E::Saltar;
        QVERIFY(c.Escrita().Escrever(Sempre));
        QCOMPARE(c.s.Ultimo_Id(u"TblLista"_s), 32767);
    }

    void numa_agenda_cheia_ou_mais_do_que_isso_nao_cabe_nenhum()
    {
        for (const int ultimo : {32767, 40000}) {
            ComImportacao c;
            c.s.Escrever(u"UPDATE sqlite_sequence SET seq = %1 WHERE name = 'TblLista'"_s.arg(ultimo));
            c.Ler(Pessoas(1));
            qint64 cabem = -1;
            try {
                c.Escrita().Escrever(Sempre);
            } catch (const NaoCabem &falta) {
                cabem = falta.cabem;
            }
            QCOMPARE(cabem, 0);
        }
    }

    void completar_nao_gasta_numeros()
    {
        ComImportacao c;
        c.s.Escrever(u"UPDATE sqlite_sequence SET seq = 32767 WHERE name = 'TblLista'"_s);
        c.Importar(Cartao("FN:Ana Silva\r\nEMAIL:ana@exemplo.pt\r\nURL:ana.pt"));
        QCOMPARE(c.Coluna_De(c.ana, u"Website"_s), u"ana.pt"_s);
    }

    // Cards and groups are told apart by numbers that are known beforehand.
    void numeros_que_saltam_sao_uma_falha_que_nao_deixa_nada_escrito()
    {
        SO_NUM_FICHEIRO("a server words its triggers in another way");
        ComImportacao c;
        c.s.Escrever(u"CREATE TRIGGER salto AFTER INSERT ON TblLista WHEN NEW.Nome='Salto' "
                     "BEGIN INSERT INTO TblLista (Nome) VALUES ('Outro'); END"_s);
        const QStringList antes = Estado(c.s);
        c.Ler(Cartao("FN:Salto"));
        QCOMPARE(teste::Falha_Dita([&] { c.Escrita().Escrever(Sempre); }),
                 (QStringList{u"TblLista"_s, u"The numbers of the rows have jumped"_s}));
        QCOMPARE(Estado(c.s), antes);
    }

    // Back again

    void anular_deixa_tudo_como_estava()
    {
        ComImportacao c;
        CartoesGuardados(c.s.geral.de).Guardar({c.ana, u"ana"_s, "o de antes"});
        const QStringList antes = Estado(c.s);
        c.Importar(
            Cartao("UID:ana\r\nFN:Ana Silva\r\nURL:ana.pt\r\nTEL;TYPE=HOME:213333333\r\nPHOTO;ENCODING=b:" +
                   pontos.toBase64()) +
                Pessoas(4) + Cartao("FN:Rui\r\nCATEGORIES:Xadrez"),
            {{}, {}, true});
        QVERIFY(Estado(c.s) != antes);
        QCOMPARE(CartoesGuardados(c.s.geral.de).Ler(c.ana)->cartao.left(5), "BEGIN");
        c.escrita->Anular();
        QCOMPARE(Estado(c.s), antes);
    }

    void anular_nao_gasta_numeros()
    {
        ComImportacao c;
        const int ultimo = c.s.Ultimo_Id(u"TblLista"_s);
        for (int i = 0; i < 3; ++i) {
            c.Importar(Pessoas(10));
            c.escrita->Anular();
        }
        c.Importar(Pessoas(1));
        QCOMPARE(c.s.Ultimo_Id(u"TblLista"_s), ultimo + 1);
    }

    void anular_deixa_o_que_entretanto_se_mudou()
    {
        ComImportacao c;
        c.Importar(Cartao("FN:Ana Silva\r\nEMAIL:ana@exemplo.pt\r\nURL:ana.pt\r\nTEL;TYPE=HOME:213333333") +
                       Cartao("FN:Rui\r\nCATEGORIES:Xadrez"),
                   {{}, {}, true});
        const QString xadrez = c.s.Linhas(u"SELECT ID FROM TblGrupos WHERE NomeGrupo = 'Xadrez'"_s).value(0);
        c.s.Escrever(u"UPDATE TblLista SET Website = 'mudado.pt' WHERE ID = "_s + c.ana);
        const int novo = c.s.Novo_Contacto({{u"Nome"_s, u"Da outra cópia"_s}, {u"Grupo"_s, xadrez}});
        c.escrita->Anular();
        QCOMPARE(c.Coluna_De(c.ana, u"Website"_s), u"mudado.pt"_s);
        QCOMPARE(c.Coluna_De(c.ana, u"Telefone1"_s), u"<Null>"_s);
        QCOMPARE(c.Coluna_De(QString::number(novo), u"Grupo"_s), xadrez);
        QCOMPARE(c.s.Linhas(u"SELECT ID FROM TblGrupos WHERE NomeGrupo = 'Xadrez'"_s).size(), 1);
        QVERIFY(c.s.Ultimo_Id(u"TblLista"_s) == novo); // its number is given no second time
        QVERIFY(c.s.Novo_Contacto({{u"Nome"_s, u"Mais um"_s}, {u"Grupo"_s, 1}}) > novo);
    }

    void cada_contacto_e_um_passo_para_planear_e_outro_para_escrever()
    {
        ComImportacao c;
        c.Ler(Pessoas(60) + Cartao("FN:Ana Silva\r\nEMAIL:ana@exemplo.pt\r\nURL:ana.pt"));
        QList<int> ditos;
        QVERIFY(c.Escrita().Escrever([&](int percentagem) {
            ditos << percentagem;
            return true;
        }));
        QList<int> passos;
        for (int i = 0; i < 122; ++i)
            passos << 100 * i / 122;
        QCOMPARE(ditos, passos);
    }

    // Broken off

    void cancelar_a_meio_tira_tudo()
    {
        ComImportacao c;
        c.Ler(Pessoas(50));
        const QStringList antes = Estado(c.s);
        int maior = 0;
        QVERIFY(!c.Escrita().Escrever([&](int percentagem) {
            maior = percentagem;
            return percentagem < 50;
        }));
        QCOMPARE(maior, 50);
        QCOMPARE(Estado(c.s), antes);
        QCOMPARE(c.escrita->Feita().adicionados, 0);
        QVERIFY(c.escrita->Escrever(Sempre)); // and once more from the beginning
        QCOMPARE(c.escrita->Feita().adicionados, 50);
        QCOMPARE(c.s.Linhas(u"SELECT * FROM TblLista"_s).size(), 51);
    }

    void depois_de_cancelada_escreve_se_como_da_primeira_vez()
    {
        ComImportacao c;
        c.Ler(Cartao("FN:Ana Silva\r\nEMAIL:ana@exemplo.pt\r\nURL:ana.pt") +
                  Cartao("FN:Rui\r\nCATEGORIES:Xadrez\r\nPHOTO;ENCODING=b:" + pontos.toBase64()) + Cartao("FN:Eva"),
              {{}, {}, true});
        const QStringList antes = Estado(c.s);
        EscritaDaImportacao &escrita = c.Escrita(true);
        QVERIFY(!escrita.Escrever([](int percentagem) { return percentagem < 80; })); // all but the last is written
        QCOMPARE(Estado(c.s), antes);
        QVERIFY(escrita.GruposCriados().isEmpty());
        QVERIFY(escrita.Escrever(Sempre));
        const EscritaDaImportacao::Contagem &feita = escrita.Feita();
        QCOMPARE((QList<int>{feita.adicionados, feita.completados, feita.saltados}), (QList<int>{2, 1, 0}));
        QCOMPARE(escrita.GruposCriados(), QStringList{u"Xadrez"_s});
        QCOMPARE(c.s.Linhas(u"SELECT Nome, Website FROM TblLista ORDER BY ID"_s),
                 (QStringList{u"Ana Silva|ana.pt"_s, u"Rui|"_s, u"Eva|"_s}));
        QCOMPARE(c.s.Linhas(u"SELECT * FROM TblFotografias"_s).size(), 1);
        QCOMPARE(c.s.Linhas(u"SELECT * FROM TblCartoes"_s).size(), 3);
        escrita.Anular();
        QCOMPARE(Estado(c.s), antes);
    }

    // Whoever presses the button once more must not have them twice.
    void o_que_chegou_sem_resposta_nao_se_escreve_outra_vez()
    {
        ComImportacao c;
        ServidorFalso servidor(c.s.Base());
        servidor.Servir(c.s.geral);
        c.Ler(Pessoas(3));
        EscritaDaImportacao &escrita = c.Escrita();
        const auto falha = [&] { return teste::Especie_Da_Falha([&] { escrita.Escrever(Sempre); }); };
        servidor.Perder_A_Proxima_Resposta();
        QCOMPARE(falha(), Failure::Kind::ServerLost);
        QVERIFY(escrita.Em_Duvida());
        QCOMPARE(falha(), Failure::Kind::ServerLost); // nobody knows yet
        servidor.Voltar();
        QVERIFY(escrita.Em_Duvida());
        QVERIFY(escrita.Escrever(Sempre));
        QCOMPARE(escrita.Feita().adicionados, 3);
        QCOMPARE(c.s.Linhas(u"SELECT count(*) FROM TblLista"_s), QStringList{u"4"_s});
        escrita.Anular(); // it knows what it wrote
        QCOMPARE(c.s.Linhas(u"SELECT Nome FROM TblLista"_s), QStringList{u"Ana Silva"_s});
    }

    void o_que_nao_chegou_escreve_se_e_conta_se_uma_vez()
    {
        ComImportacao c;
        ServidorFalso servidor(c.s.Base());
        servidor.Servir(c.s.geral);
        c.Ler(Pessoas(3));
        EscritaDaImportacao &escrita = c.Escrita();
        servidor.Perder_A_Proxima_Escrita();
        QCOMPARE(teste::Especie_Da_Falha([&] { escrita.Escrever(Sempre); }), Failure::Kind::ServerLost);
        servidor.Voltar();
        QVERIFY(!escrita.Em_Duvida());
        QVERIFY(escrita.Escrever(Sempre));
        QCOMPARE(escrita.Feita().adicionados, 3);
        QCOMPARE(c.s.Linhas(u"SELECT count(*) FROM TblLista"_s), QStringList{u"4"_s});
    }

    // The numbers that it gave back are another contact's by then.
    void anular_que_chegou_sem_resposta_nao_leva_o_que_veio_depois()
    {
        ComImportacao c;
        ServidorFalso servidor(c.s.Base());
        servidor.Servir(c.s.geral);
        c.Ler(Pessoas(1));
        EscritaDaImportacao &escrita = c.Escrita();
        QVERIFY(escrita.Escrever(Sempre));
        servidor.Perder_A_Proxima_Resposta();
        QCOMPARE(teste::Especie_Da_Falha([&] { escrita.Anular(); }), Failure::Kind::ServerLost);
        c.s.Escrever(u"INSERT INTO TblLista (Nome) VALUES ('De outro posto')"_s);
        QCOMPARE(c.s.Ultimo_Id(u"TblLista"_s), c.ana.toInt() + 1);
        servidor.Voltar();
        escrita.Anular();
        QCOMPARE(c.s.Linhas(u"SELECT Nome FROM TblLista ORDER BY ID"_s),
                 (QStringList{u"Ana Silva"_s, u"De outro posto"_s}));
    }

    void um_disco_cheio_a_meio_nao_deixa_metade()
    {
        DiscoPequeno disco(700);
        if (!disco.Montado()) QSKIP("no disk of its own can be mounted here");
        Sistema s;
        s.Escrever(u"DELETE FROM TblLista"_s);
        const QString base = disco.Ficheiro(u"morvex.mdb"_s);
        QVERIFY(QFile::copy(s.Base(), base));
        QFile::setPermissions(base, QFile::ReadOwner | QFile::WriteOwner);
        QString caminho = base;
        DE de(caminho, disco.Pasta());
        ImportacaoDeContactos importacao(de, u"0"_s, u"PortuguesPT"_s);
        importacao.Abrir_Cartoes(Pessoas(4000), {}, {});
        while (importacao.Avancar()) {
        }
        EscritaDaImportacao escrita(de, importacao, {u"0"_s, u"1"_s, false});
        Failure::Kind especie = Failure::Kind::Other;
        try {
            escrita.Escrever(Sempre);
        } catch (const Failure &falha) {
            especie = falha.kind();
        }
        QVERIFY(especie == Failure::Kind::DiskFull);
        Recordset linhas = de.Abrir("cmdProcurarNome", {u"%"_s});
        QCOMPARE(linhas.RecordCount(), 0);
    }

    void por_outra_copia_que_escreve_espera_se_uma_vez_e_nada_se_escreve()
    {
        ComImportacao c;
        c.Ler(Pessoas(20));
        const QStringList antes = Estado(c.s);
        Connection outra;
        outra.setConnectionString(u"Data Source='%1'"_s.arg(c.s.Base()));
        outra.Open();
        outra.execute(u"BEGIN IMMEDIATE"_s, {});
        QElapsedTimer relogio;
        relogio.start();
        Failure::Kind especie = Failure::Kind::Other;
        try {
            c.Escrita().Escrever(Sempre);
        } catch (const Failure &falha) {
            especie = falha.kind();
        }
        QVERIFY(especie == Failure::Kind::DatabaseLocked);
        QVERIFY(relogio.elapsed() < 9000);
        outra.execute(u"ROLLBACK"_s, {});
        QCOMPARE(Estado(c.s), antes);
        QVERIFY(c.Escrita().Escrever(Sempre));
    }

    void uma_morte_em_qualquer_momento_deixa_tudo_ou_nada()
    {
        if (!morte_no_disco::Possivel()) QSKIP("no process dies at a chosen change here");
        MorteAImportar m(Pessoas(30));
        int nadas = 0;
        int tudos = 0;
        for (int mudanca = 1;; ++mudanca) {
            const auto [morreu, mudancas] = m.Importar(mudanca);
            const auto [contactos, cartoes, fotografias] = m.Na_Base();
            QVERIFY2(contactos == 1 || contactos == 31, qPrintable(QString::number(mudanca)));
            QCOMPARE(cartoes, contactos - 1);
            QCOMPARE(fotografias, contactos == 1 ? 0 : 1);
            ++(contactos == 1 ? nadas : tudos);
            if (!morreu) break;
        }
        QVERIFY(nadas > 3);
        QVERIFY(tudos > 0);
    }

    // More than the store gathers before it writes it, and more than it keeps in memory.
    void uma_morte_a_meio_de_muitas_fotografias_tambem()
    {
        if (!morte_no_disco::Possivel()) QSKIP("no process dies at a chosen change here");
        constexpr int quantas = 30;
        constexpr int mortes = 10;
        MorteAImportar m(Com_Fotografias_Grandes(quantas));
        const auto [inteira_morreu, mudancas] = m.Importar(0);
        QVERIFY(!inteira_morreu);
        QCOMPARE(m.Na_Base(), std::tuple(1 + quantas, quantas, quantas));
        for (int i = 1; i <= mortes; ++i) {
            const auto mudanca = static_cast<int>(mudancas.size()) * i / (mortes + 1);
            QVERIFY(m.Importar(mudanca).first);
            QCOMPARE(m.Na_Base(), std::tuple(1, 0, 0));
        }
    }
};

int main(int argc, char **argv)
{
    DiscoPequeno::Preparar();
    teste::CaixasDaAplicacao caixas;
    Application application(argc, argv, caixas);
    const QStringList argumentos = QCoreApplication::arguments();
    if (argumentos.value(1) == "--morre"_L1) {
        Filho_Que_Morre(argumentos[2], argumentos[3], argumentos[4].toInt());
        return 0;
    }
    TestEscritaDaImportacao testes;
    return QTest::qExec(&testes, argc, argv);
}
#include "test_EscritaDaImportacao.moc"
