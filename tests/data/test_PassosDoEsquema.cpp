// An older database that is opened by this program, and one of a newer program. Some of the tests need a
// second process, which is this program with an argument.
#include "data/CartoesGuardados.h"
#include "data/Esquema.h"
#include "data/Fotografias.h"
#include "data/PassosDoEsquema.h"
#include "data/Textos.h"
#include "platform/ErrorText.h"
#include "platform/Failure.h"
#include "testlib/BaseAntiga.h"
#include "testlib/DiscoCheio.h"
#include "testlib/MorteNoDisco.h"
#include "testlib/SemPrivilegios.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <cstdio>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace
{
const auto versao = u"PRAGMA user_version"_s;
const auto tabelas =
    u"SELECT name FROM sqlite_master WHERE type='table' AND name LIKE 'Tbl%' ORDER BY name"_s;
const auto textos_novos = u"SELECT count(*) FROM TblIdiomas WHERE ID >= 274"_s;
const QString fotografia = u"bd:0000000000000000000000000000000000000000.jpg"_s;

// All that a person has stored, as an older program knows it.
QStringList Conteudo(Sistema &s)
{
    QStringList tudo;
    for (const QString &tabela :
         {u"TblLista"_s, u"TblGrupos"_s, u"TblUsers"_s, u"TblMemos"_s, u"TblTarefas"_s, u"TblRepeticao"_s,
          u"TblConfig"_s, u"TblEmails"_s, u"sqlite_sequence"_s})
        tudo += s.Linhas(u"SELECT '%1', * FROM %1 ORDER BY 2"_s.arg(tabela));
    return tudo + s.Linhas(u"SELECT * FROM TblIdiomas WHERE ID < 274 ORDER BY ID"_s);
}

// An installation with an older database; nothing has been opened yet.
struct Antiga {
    Antiga()
    {
        s.Novo_Contacto({{u"Nome"_s, Value(u"Zé Ninguém"_s)}, {u"Fotografia"_s, Value(u"zé.jpg"_s)}});
        s.geral.de.Fechar_Ligacao();
        Envelhecer(s);
        antes = Conteudo(s);
    }
    // Another one with the same database.
    explicit Antiga(const Antiga &modelo) : s(Sistema::Estado::Vazio), antes(modelo.antes)
    {
        QVERIFY(QFile::remove(s.Base()) && QFile::copy(modelo.s.Base(), s.Base()));
        s.geral.IdiomaActual = u"PortuguesPT"_s;
    }
    // The first command opens the database.
    QString Abrir()
    {
        Recordset &rs = s.geral.de.Abrir("cmdVerConfig");
        const QString idioma = rs.Fields("Idioma").text();
        rs.Close();
        return idioma;
    }
    void Continua_Antiga()
    {
        QCOMPARE(s.Linhas(versao), QStringList{u"0"_s});
        QCOMPARE(s.Linhas(tabelas).size(), 9);
        QCOMPARE(s.Linhas(textos_novos), QStringList{u"0"_s});
        QCOMPARE(Conteudo(s), antes);
    }
    void Ficou_Em_Dia()
    {
        QCOMPARE(s.Linhas(versao), QStringList{QString::number(esquema::versao)});
        QCOMPARE(s.Linhas(tabelas).size(), 15);
        QCOMPARE(s.Linhas(u"PRAGMA integrity_check"_s), QStringList{u"ok"_s});
        QCOMPARE(Conteudo(s), antes);
    }

    Sistema s;
    QStringList antes;
};

constexpr char modo_de_filho[] = "--filho";
constexpr int recusada = 3;

// The second process: opens the database, and dies at the given change to a file. One that comes to its end
// tells the changes.
int Filho(const QString &base, int mudanca)
{
    QString caminho = base;
    DE de(caminho, {});
    morte_no_disco::Armar(mudanca);
    if (!skipFailure([&] { de.Abrir("cmdVerConfig").Close(); })) return recusada;
    morte_no_disco::armada = false;
    std::puts(morte_no_disco::mudancas.c_str());
    return 0;
}
} // namespace

class TestPassosDoEsquema : public QObject
{
    Q_OBJECT

    static QProcess::ExitStatus Correr_Filho(const QString &base, int mudanca)
    {
        QProcess filho;
        filho.start(QCoreApplication::applicationFilePath(),
                    {QLatin1String(modo_de_filho), base, QString::number(mudanca)});
        filho.waitForFinished();
        return filho.exitStatus();
    }

private Q_SLOTS:
    void a_base_que_se_envia_ja_deu_todos_os_passos()
    {
        Sistema s(Sistema::Estado::Vazio);
        QCOMPARE(s.Linhas(versao), QStringList{QString::number(esquema::versao)});
        const auto antes = s.Linhas(u"PRAGMA schema_version"_s);
        QVERIFY(s.geral.de.Em_Dia());
        QCOMPARE(s.Linhas(u"PRAGMA schema_version"_s), antes);
    }

    void cada_tabela_diz_um_passo_que_ha()
    {
        for (const Tabela &tabela : esquema::Tabelas())
            QVERIFY(tabela.desde >= 0 && tabela.desde <= esquema::versao);
    }

    void uma_antiga_ganha_tabelas_e_textos_e_o_que_tinha_fica()
    {
        Antiga a;
        a.Continua_Antiga();
        QCOMPARE(a.Abrir(), u"PortuguesPT"_s);
        a.Ficou_Em_Dia();
        QVERIFY(a.s.geral.de.Em_Dia());
        Sistema nova(Sistema::Estado::Vazio);
        const auto todos = u"SELECT * FROM TblIdiomas ORDER BY ID"_s;
        QCOMPARE(a.s.Linhas(todos), nova.Linhas(todos));
        const auto definicoes =
            u"SELECT sql FROM sqlite_master WHERE type='table' AND name LIKE 'Tbl%' ORDER BY name"_s;
        QCOMPARE(a.s.Linhas(definicoes), nova.Linhas(definicoes));
    }

    void depois_guarda_fotografias_e_cartoes()
    {
        Antiga a;
        FotografiasDaBase(a.s.geral.de).Guardar(fotografia, "bytes");
        CartoesGuardados(a.s.geral.de).Guardar({u"1"_s, u"u"_s, "cartao"});
        QCOMPARE(FotografiasDaBase(a.s.geral.de).Ler(fotografia), QByteArray("bytes"));
        QVERIFY(CartoesGuardados(a.s.geral.de).Ler(u"1"_s).has_value());
    }

    void um_texto_que_ja_la_esta_fica_como_o_puseram()
    {
        Antiga a;
        a.s.Escrever(u"INSERT INTO TblIdiomas (ID, PortuguesPT) VALUES (275, 'o meu')"_s);
        a.Abrir();
        a.Ficou_Em_Dia();
        QCOMPARE(a.s.Linhas(u"SELECT PortuguesPT, AlemaoDE FROM TblIdiomas WHERE ID=275"_s),
                 QStringList{u"o meu|<Null>"_s});
        QCOMPARE(a.s.Linhas(u"SELECT count(*) FROM TblIdiomas WHERE ID=274"_s), QStringList{u"1"_s});
    }

    void um_texto_dos_primeiros_que_tiraram_nao_volta()
    {
        Antiga a;
        a.s.Escrever(u"DELETE FROM TblIdiomas WHERE ID=43"_s);
        a.Abrir();
        QCOMPARE(a.s.Linhas(u"SELECT count(*) FROM TblIdiomas WHERE ID=43"_s), QStringList{u"0"_s});
        VERIFICAR_FALHA(a.s.geral.Ler_Idioma(43), Failure::NoCurrentRecord);
    }

    void uma_refeita_das_suas_instrucoes_com_as_tabelas_e_sem_numero_fica_com_o_que_tem()
    {
        Sistema s;
        FotografiasDaBase(s.geral.de).Guardar(fotografia, "bytes");
        s.geral.de.Fechar_Ligacao();
        s.Escrever(u"PRAGMA user_version=0"_s);
        QCOMPARE(FotografiasDaBase(s.geral.de).Ler(fotografia), QByteArray("bytes"));
        QCOMPARE(s.Linhas(versao), QStringList{QString::number(esquema::versao)});
    }

    void a_de_uma_pasta_que_a_pessoa_escolheu_tambem()
    {
        Antiga a;
        const QString outra = a.s.Ficheiro(u"os meus dados/livro.mdb"_s);
        QVERIFY(QDir(a.s.Pasta()).mkdir(u"os meus dados"_s));
        QVERIFY(QFile::copy(a.s.Base(), outra));
        a.s.geral.CaminhoBD = outra;
        QVERIFY(a.s.geral.de.Em_Dia());
        a.Continua_Antiga(); // the one that was not chosen
        Sistema depois(Sistema::Estado::Sem_Base);
        QVERIFY(QFile::copy(outra, depois.Base()));
        QCOMPARE(depois.Linhas(tabelas).size(), 15);
    }

    void a_reabertura_depois_de_uma_copia_tambem_a_poe_em_dia()
    {
        Antiga a;
        Sistema nova;
        QVERIFY(nova.geral.de.Em_Dia());
        nova.geral.de.Fechar_Ligacao();
        QVERIFY(QFile::remove(nova.Base()) && QFile::copy(a.s.Base(), nova.Base()));
        nova.geral.de.Reabrir_Ligacao();
        QVERIFY(nova.geral.de.Em_Dia());
    }

    void a_de_outro_programa_nao_ganha_nada_data()
    {
        QTest::addColumn<int>("numero");
        QTest::newRow("sem numero") << 0;
        QTest::newRow("com um maior") << 99;
    }
    void a_de_outro_programa_nao_ganha_nada()
    {
        QFETCH(int, numero);
        Antiga a;
        a.s.Escrever(u"DROP TABLE TblMemos"_s);
        a.s.Escrever(u"PRAGMA user_version=%1"_s.arg(numero));
        QCOMPARE(a.Abrir(), u"PortuguesPT"_s);
        QVERIFY(!a.s.geral.de.Em_Dia());
        QCOMPARE(a.s.Linhas(tabelas).size(), 8);
        QCOMPARE(a.s.Linhas(versao), QStringList{QString::number(numero)});
    }

    void a_de_um_programa_mais_recente_e_recusada_e_fica_como_esta()
    {
        Sistema s;
        s.geral.de.Fechar_Ligacao();
        s.Escrever(u"PRAGMA user_version=%1"_s.arg(esquema::versao + 1));
        for (int vez = 1; vez <= 2; ++vez) {
            Failure::Kind especie = Failure::Kind::Other;
            QString palavras;
            onFailure([&] { s.geral.de.Executar("cmdAdicionarGrupo", {u"novo"}); },
                      [&](const Failure &falha) {
                          especie = falha.kind();
                          palavras = errorText(falha, u"PortuguesPT"_s).words;
                      });
            QCOMPARE(especie, Failure::Kind::DatabaseNewer);
            QVERIFY2(palavras.contains(u"versão mais recente"_s), qPrintable(palavras));
        }
        VERIFICAR_FALHA(s.geral.de.Reabrir_Ligacao(), Failure::StoreError);
        QCOMPARE(s.Linhas(u"SELECT count(*) FROM TblGrupos"_s), QStringList{u"6"_s});
        QCOMPARE(s.Linhas(versao), QStringList{QString::number(esquema::versao + 1)});
    }

    void num_ficheiro_ou_pasta_so_de_leitura_trabalha_como_dantes_data()
    {
        QTest::addColumn<bool>("pasta");
        QTest::newRow("ficheiro") << false;
        QTest::newRow("pasta") << true;
    }
    void num_ficheiro_ou_pasta_so_de_leitura_trabalha_como_dantes()
    {
        QFETCH(bool, pasta);
        Antiga a;
        constexpr auto ler = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
        constexpr auto entrar = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
        constexpr auto escrever = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
        QVERIFY(QFile::setPermissions(a.s.Base(), pasta ? ler | escrever : ler));
        QVERIFY(QFile::setPermissions(a.s.Pasta(), pasta ? ler | entrar : ler | entrar | escrever));
        {
            const SemPrivilegios ninguem;
            if (!ninguem.Possivel()) QSKIP("the rights can't be let go of here");
            QCOMPARE(a.Abrir(), u"PortuguesPT"_s);
            QVERIFY(!a.s.geral.de.Em_Dia());
            QCOMPARE(FotografiasDaBase(a.s.geral.de).Ler(fotografia), QByteArray());
            QVERIFY(!CartoesGuardados(a.s.geral.de).Ler(u"1"_s));
            CartoesGuardados(a.s.geral.de).Percorrer([](const QString &, const QString &) {
                QFAIL("a card");
            });
            QCOMPARE(a.s.geral.Ler_Idioma(43), a.s.Texto(43));
            VERIFICAR_FALHA(CartoesGuardados(a.s.geral.de).Guardar({u"1"_s, {}, "x"}), Failure::StoreError);
            VERIFICAR_FALHA(a.s.geral.de.Experimentar_Escrita(), Failure::StoreError);
        }
        QVERIFY(QFile::setPermissions(a.s.Pasta(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        a.s.geral.de.Fechar_Ligacao();
        a.Continua_Antiga();
    }

    // The captions of what came later stand in a window over a database that lacks them.
    void um_texto_que_a_base_nao_tem_vem_do_programa()
    {
        Sistema nova;
        const QString importar = nova.geral.Ler_Idioma(274);
        nova.Escrever(u"DELETE FROM TblIdiomas WHERE ID=274"_s);
        QCOMPARE(nova.geral.Ler_Idioma(274), importar);
        nova.geral.IdiomaActual = u"AlemaoDE"_s;
        QVERIFY(nova.geral.Ler_Idioma(274) != importar);
        QVERIFY(!nova.geral.Ler_Idioma(274).isEmpty());
        VERIFICAR_FALHA(nova.geral.Ler_Idioma(30000), Failure::NoCurrentRecord);
    }

    void um_passo_que_falha_nao_deixa_nada()
    {
        if (!DiscoCheio::Possivel()) QSKIP("no disk can be filled here");
        Antiga a;
        {
            const DiscoCheio cheio(static_cast<rlim_t>(QFileInfo(a.s.Base()).size()));
            QCOMPARE(a.Abrir(), u"PortuguesPT"_s);
            QVERIFY(!a.s.geral.de.Em_Dia());
        }
        a.Continua_Antiga();
        a.s.geral.de.Experimentar_Escrita(); // once there is room
        a.Ficou_Em_Dia();
        QVERIFY(a.s.geral.de.Em_Dia());
    }

    // As an import, a deletion or a join do, once there is room.
    void o_que_se_escreve_como_um_so_da_primeiro_o_passo_que_falhou()
    {
        if (!DiscoCheio::Possivel()) QSKIP("no disk can be filled here");
        Antiga a;
        DE &de = a.s.geral.de;
        {
            const DiscoCheio cheio(static_cast<rlim_t>(QFileInfo(a.s.Base()).size()));
            QCOMPARE(a.Abrir(), u"PortuguesPT"_s);
            QVERIFY(!de.Em_Dia());
        }
        de.Tudo_Ou_Nada([&] { CartoesGuardados(de).Guardar({u"1"_s, u"u"_s, "c"}); });
        a.Ficou_Em_Dia();
        QCOMPARE(CartoesGuardados(de).Ler(u"1"_s)->cartao, QByteArray("c"));
    }

    void morto_em_qualquer_ponto_a_base_e_a_antiga_ou_a_nova()
    {
        if (!morte_no_disco::Possivel()) QSKIP("no process dies at a chosen change here");
        Antiga modelo;
        int mortes = 0;
        bool acabou = false;
        for (int mudanca = 1; !acabou; ++mudanca) {
            Antiga a(modelo);
            acabou = Correr_Filho(a.s.Base(), mudanca) == QProcess::NormalExit;
            mortes += acabou ? 0 : 1;
            if (a.s.Linhas(versao) == QStringList{u"0"_s})
                a.Continua_Antiga();
            else
                a.Ficou_Em_Dia();
            QCOMPARE(a.Abrir(), u"PortuguesPT"_s);
            a.Ficou_Em_Dia();
            if (QTest::currentTestFailed()) return;
        }
        QVERIFY2(mortes > 10, qPrintable(QString::number(mortes)));
    }

    void duas_secretarias_que_abrem_ao_mesmo_tempo_dao_o_passo_uma_vez()
    {
        Antiga a;
        std::array<QProcess, 4> outras;
        for (QProcess &outra : outras)
            outra.start(QCoreApplication::applicationFilePath(),
                        {QLatin1String(modo_de_filho), a.s.Base(), u"0"_s});
        QCOMPARE(a.Abrir(), u"PortuguesPT"_s);
        for (QProcess &outra : outras) {
            QVERIFY(outra.waitForFinished());
            QCOMPARE(outra.exitCode(), 0);
        }
        a.Ficou_Em_Dia();
        QCOMPARE(a.s.Linhas(u"SELECT ID FROM TblIdiomas GROUP BY ID HAVING count(*) > 1"_s), QStringList());
    }

    // A step that another copy is about to take is waited for.
    void quem_abre_durante_o_passo_de_outra_espera_e_nao_o_repete_data()
    {
        QTest::addColumn<int>("passo");
        QTest::addColumn<int>("saida");
        QTest::newRow("o mesmo programa") << esquema::versao << 0;
        QTest::newRow("um mais recente") << esquema::versao + 1 << recusada;
    }
    void quem_abre_durante_o_passo_de_outra_espera_e_nao_o_repete()
    {
        QFETCH(int, passo);
        QFETCH(int, saida);
        Antiga a;
        Connection outra;
        outra.setConnectionString(u"Data Source='%1'"_s.arg(a.s.Base()));
        outra.Open();
        outra.execute(u"BEGIN IMMEDIATE"_s, {});
        outra.execute(u"PRAGMA user_version=%1"_s.arg(passo), {});
        QProcess filho;
        filho.start(QCoreApplication::applicationFilePath(),
                    {QLatin1String(modo_de_filho), a.s.Base(), u"0"_s});
        QVERIFY(!filho.waitForFinished(300));
        outra.execute(u"COMMIT"_s, {});
        QVERIFY(filho.waitForFinished());
        QCOMPARE(filho.exitCode(), saida);
        QCOMPARE(a.s.Linhas(versao), QStringList{QString::number(passo)});
        QCOMPARE(a.s.Linhas(tabelas).size(), 9); // the other's step was believed
        QCOMPARE(a.s.Linhas(textos_novos), QStringList{u"0"_s});
    }

    // What an older program does with the file afterwards: its own tables, by its own columns.
    void o_programa_de_antes_continua_a_ler_e_a_escrever()
    {
        Antiga a;
        a.Abrir();
        a.s.Escrever(u"INSERT INTO TblLista (Nome, Grupo) VALUES ('de antes', 6)"_s);
        a.s.Escrever(u"DELETE FROM TblLista WHERE Nome='de antes'"_s);
        QCOMPARE(a.s.Linhas(u"SELECT * FROM TblConfig"_s).size(), 1);
        QCOMPARE(a.s.Linhas(u"SELECT * FROM TblIdiomas WHERE ID=43"_s).size(), 1);
        QCOMPARE(a.s.Linhas(u"SELECT TblGrupos.NomeGrupo, TblLista.* FROM TblLista, TblGrupos WHERE "
                            "TblLista.Grupo = TblGrupos.ID AND TblLista.Nome = 'Zé Ninguém'"_s)
                     .size(),
                 1);
    }
};

int main(int argc, char **argv)
{
    if (argc == 4 && qstrcmp(argv[1], modo_de_filho) == 0)
        return Filho(QString::fromLocal8Bit(argv[2]), QByteArray(argv[3]).toInt());
    teste::CaixasDaAplicacao caixas;
    Application application(argc, argv, caixas);
    TestPassosDoEsquema testes;
    return QTest::qExec(&testes, argc, argv);
}
#include "test_PassosDoEsquema.moc"
