// The command line of morvex-servidor and its words: what each line is understood as, and what is said of it in the
// administrator's language.
#include "ferramentas/LinhaDoServidor.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace palavras;

namespace
{
using Que = OrdemAoServidor::Que;

const auto endereco = u"postgresql://dono@servidor/livro"_s;

OrdemAoServidor Ler(const QString &linha, Lingua lingua = Lingua::Ingles)
{
    QStringList ditas = linha.split(u' ', Qt::SkipEmptyParts);
    ditas.replaceInStrings(u"ENDEREÇO"_s, endereco);
    return Ler_Linha(ditas, lingua);
}

// The parts of an order in their order: address, file, role of the desks, language, and whether it stays empty.
QStringList Partes(const OrdemAoServidor &ordem)
{
    return {ordem.morada, ordem.ficheiro, ordem.posto, ordem.idioma, ordem.vazia ? u"vazia"_s : QString()};
}

struct Frases {
    const char *nome;
    Frase frase;
    QString portugues;
    QString ingles;
};

const auto ajuda_em_portugues = uR"(Uso: morvex-servidor criar ENDEREÇO [--idioma pt|br|en|fr | --vazia] [--posto PAPEL]
     morvex-servidor atualizar ENDEREÇO [--posto PAPEL]
     morvex-servidor mudar FICHEIRO ENDEREÇO [--posto PAPEL]
     morvex-servidor trazer ENDEREÇO FICHEIRO
     morvex-servidor verificar ENDEREÇO [--posto PAPEL]
     morvex-servidor --help | --version

Prepara num servidor PostgreSQL a base de dados que vários postos do Morvex partilham.

  criar      Faz as tabelas e os textos numa base de dados que existe e está vazia, e as linhas com que se começa.
  atualizar  Traz à base de dados o que esta versão do programa acrescenta.
  mudar      Leva tudo o que um ficheiro morvex.mdb tem para uma base de dados sem dados.
  trazer     Faz de tudo o que a base de dados tem um ficheiro novo: a cópia de segurança, ou o regresso.
  verificar  Diz se a base de dados está como o programa precisa.

ENDEREÇO é postgresql://PAPEL@SERVIDOR/BASE, com o papel que é dono da base de dados.
A palavra-passe não se escreve nele: fica em ~/.pgpass.

  --idioma LÍNGUA  A língua das linhas com que se começa: pt, br, en ou fr. Sem ela é perguntada.
  --vazia          Nenhumas linhas com que se comece; para mudar um ficheiro a seguir.
  --posto PAPEL    O papel com que os postos entram; sem ele é morvex.
  -h, --help       Mostra esta ajuda e termina.
  -v, --version    Mostra a versão e termina.

Tudo é feito ou nada é feito. Termina com 0 quando foi feito; 1 quando foi recusado ou falhou;
2 quando a linha não se entende; 3 quando o servidor não foi alcançado ou não deixou entrar;
4 quando verificar achou alguma coisa.
)"_s;

const auto ajuda_em_ingles = uR"(Usage: morvex-servidor criar ADDRESS [--idioma pt|br|en|fr | --vazia] [--posto ROLE]
       morvex-servidor atualizar ADDRESS [--posto ROLE]
       morvex-servidor mudar FILE ADDRESS [--posto ROLE]
       morvex-servidor trazer ADDRESS FILE
       morvex-servidor verificar ADDRESS [--posto ROLE]
       morvex-servidor --help | --version

Sets up, on a PostgreSQL server, the database that several desks of Morvex share.

  criar      (create) Makes tables and texts in a database that is there and empty, and the rows to begin with.
  atualizar  (update) Brings the database what this version of the program adds.
  mudar      (move) Takes all that a file morvex.mdb holds to a database without data.
  trazer     (fetch) Makes a new file of all that the database holds: the backup, or the way back.
  verificar  (check) Says whether the database is as the program needs it.

ADDRESS is postgresql://ROLE@SERVER/DATABASE, with the role that owns the database.
The password is not written into it: it stands in ~/.pgpass.

  --idioma LANGUAGE  The language of the rows to begin with: pt, br, en or fr. Without it, it is asked for.
  --vazia            No rows to begin with; for a file that is moved next.
  --posto ROLE       The role by which the desks log in; morvex without it.
  -h, --help         Shows this help and ends.
  -v, --version      Shows the version and ends.

All is done or nothing is. Ends with 0 when it was done; 1 when it was refused or failed;
2 when the line is not understood; 3 when the server was not reached or did not let in;
4 when verificar found something.
)"_s;

// What is said but for the refusals of a line.
const QList<Frases> frases{
    {"ajuda", ajuda, ajuda_em_portugues, ajuda_em_ingles},
    {"ver_ajuda", ver_ajuda, u"A ajuda é mostrada por: morvex-servidor --help"_s,
     u"The help is shown by: morvex-servidor --help"_s},
    {"que_lingua", que_lingua, u"Em que língua? pt, br, en ou fr: "_s, u"In which language? pt, br, en or fr: "_s},
    {"sem_lingua", sem_lingua, u"Falta a língua das linhas com que se começa: --idioma ou --vazia."_s,
     u"The language of the rows to begin with is missing: --idioma or --vazia."_s},
    {"criada", criada, u"A base de dados está pronta: %1"_s, u"The database is ready: %1"_s},
    {"actualizada", actualizada,
     u"A base de dados tinha tido %1 passos e teve agora %2; textos acrescentados: %3."_s,
     u"The database had had %1 steps and has now had %2; texts added: %3."_s},
    {"ordem_refeita", ordem_refeita,
     u"A ordem das letras do servidor tinha mudado: os índices foram feitos de novo."_s,
     u"The server's order of letters had changed: the indexes were made anew."_s},
    {"linhas", linhas, u"%1: %2 linhas"_s, u"%1: %2 rows"_s},
    {"mudado", mudado, u"O ficheiro está agora no servidor. Guarde-o; nenhum posto o deve usar mais."_s,
     u"The file is now on the server. Keep it; no desk should use it any more."_s},
    {"trazido", trazido, u"O ficheiro está feito: %1"_s, u"The file is made: %1"_s},
    {"tudo_bem", tudo_bem, u"Está tudo como deve ser."_s, u"All is as it should be."_s},
    {"defeito_numero", defeito_numero,
     u"Os passos da base de dados e os do programa não são os mesmos (%1): corra atualizar."_s,
     u"The steps of the database and the program's are not the same (%1): run atualizar."_s},
    {"defeito_tabela", defeito_tabela, u"Falta uma tabela ou uma coluna: %1"_s,
     u"A table or a column is missing: %1"_s},
    {"defeito_gatilho", defeito_gatilho, u"Falta um gatilho ou está desligado: %1. Corra atualizar."_s,
     u"A trigger is missing or switched off: %1. Run atualizar."_s},
    {"defeito_contador", defeito_contador, u"Falta o contador da tabela %1. Corra atualizar."_s,
     u"The counter of the table %1 is missing. Run atualizar."_s},
    {"defeito_ordem", defeito_ordem, u"A ordem das letras do servidor mudou (%1): corra atualizar."_s,
     u"The server's order of letters has changed (%1): run atualizar."_s},
    {"defeito_letras", defeito_letras,
     u"O servidor compara %1 letras de outra maneira que o ficheiro: corra atualizar."_s,
     u"The server compares %1 letters otherwise than the file: run atualizar."_s},
    {"defeito_direitos", defeito_direitos, u"Os postos podem a mais ou a menos: %1. Corra atualizar."_s,
     u"The desks may too much or too little: %1. Run atualizar."_s},
    {"defeito_textos", defeito_textos, u"Faltam %1 textos do programa: corra atualizar."_s,
     u"%1 texts of the program are missing: run atualizar."_s},
    {"defeito_codigo", defeito_codigo, u"A base de dados não guarda todas as letras (%1): tem de ser UTF8."_s,
     u"The database does not keep every letter (%1): it must be UTF8."_s},
};
} // namespace

class TestLinhaDoServidor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_ordem_le_se_com_as_suas_partes_data()
    {
        QTest::addColumn<Que>("que");
        QTest::addColumn<QStringList>("partes");
        const auto linha = [](const char *dita, Que que, const QString &ficheiro, const QString &posto,
                              const QString &idioma = {}, const QString &vazia = {}) {
            QTest::newRow(dita) << que << QStringList{endereco, ficheiro, posto, idioma, vazia};
        };
        linha("criar ENDEREÇO", Que::Criar, {}, u"morvex"_s);
        linha("criar ENDEREÇO --idioma pt", Que::Criar, {}, u"morvex"_s, u"pt"_s);
        linha("criar --idioma br ENDEREÇO", Que::Criar, {}, u"morvex"_s, u"br"_s);
        linha("--idioma en criar ENDEREÇO --posto casa", Que::Criar, {}, u"casa"_s, u"en"_s);
        linha("criar ENDEREÇO --idioma fr", Que::Criar, {}, u"morvex"_s, u"fr"_s);
        linha("criar ENDEREÇO --vazia --posto casa", Que::Criar, {}, u"casa"_s, {}, u"vazia"_s);
        linha("atualizar ENDEREÇO", Que::Atualizar, {}, u"morvex"_s);
        linha("atualizar ENDEREÇO --posto casa", Que::Atualizar, {}, u"casa"_s);
        linha("mudar livro.mdb ENDEREÇO", Que::Mudar, u"livro.mdb"_s, u"morvex"_s);
        linha("mudar livro.mdb ENDEREÇO --posto casa", Que::Mudar, u"livro.mdb"_s, u"casa"_s);
        linha("trazer ENDEREÇO livro.mdb", Que::Trazer, u"livro.mdb"_s, u"morvex"_s);
        linha("verificar ENDEREÇO", Que::Verificar, {}, u"morvex"_s);
        linha("verificar ENDEREÇO --posto casa", Que::Verificar, {}, u"casa"_s);
    }
    void cada_ordem_le_se_com_as_suas_partes()
    {
        QFETCH(Que, que);
        const OrdemAoServidor ordem = Ler(QString::fromUtf8(QTest::currentDataTag()));
        QCOMPARE(ordem.recusa, QString());
        QCOMPARE(ordem.que, que);
        QTEST(Partes(ordem), "partes");
    }

    // Whatever else stands on the line, but for what was refused before.
    void a_ajuda_e_a_versao_bastam_se()
    {
        for (const QString &linha : {u"--help"_s, u"-h"_s, u"criar --help"_s, u"-h --tudo"_s})
            QCOMPARE(Ler(linha).que, Que::Ajuda);
        for (const QString &linha : {u"--version"_s, u"-v"_s, u"criar -v --help"_s})
            QCOMPARE(Ler(linha).que, Que::Versao);
        QCOMPARE(Ler(u"--tudo --help"_s).que, Que::Recusa);
    }

    void o_que_nao_se_entende_e_dito_nas_duas_linguas_data()
    {
        QTest::addColumn<QString>("portugues");
        QTest::addColumn<QString>("ingles");
        const auto linha = [](const char *dita, const QString &portugues, const QString &ingles) {
            QTest::newRow(dita) << portugues << ingles;
        };
        linha("", u"Falta dizer o que fazer."_s, u"It is not said what to do."_s);
        linha("--vazia", u"Falta dizer o que fazer."_s, u"It is not said what to do."_s);
        linha("fazer ENDEREÇO", u"Não há esta ordem: fazer"_s, u"There is no such order: fazer"_s);
        linha("criar ENDEREÇO --tudo", u"Opção desconhecida: --tudo"_s, u"Unknown option: --tudo"_s);
        linha("criar ENDEREÇO --tudo --nada", u"Opção desconhecida: --tudo"_s, u"Unknown option: --tudo"_s);
        linha("trazer ENDEREÇO x --posto y", u"Esta opção não pertence a trazer: --posto"_s,
              u"This option does not belong to trazer: --posto"_s);
        linha("mudar x ENDEREÇO --vazia", u"Esta opção não pertence a mudar: --vazia"_s,
              u"This option does not belong to mudar: --vazia"_s);
        linha("verificar ENDEREÇO --idioma pt", u"Esta opção não pertence a verificar: --idioma"_s,
              u"This option does not belong to verificar: --idioma"_s);
        linha("criar ENDEREÇO --posto", u"Falta o valor de --posto."_s, u"The value of --posto is missing."_s);
        linha("criar ENDEREÇO --idioma --vazia", u"Falta o valor de --idioma."_s,
              u"The value of --idioma is missing."_s);
        linha("criar ENDEREÇO --idioma de", u"Não há linhas para começar nesta língua: de"_s,
              u"There are no rows to begin with in this language: de"_s);
        linha("criar", u"criar quer ENDEREÇO e mais nada."_s, u"criar takes ADDRESS and nothing else."_s);
        linha("atualizar ENDEREÇO x", u"atualizar quer ENDEREÇO e mais nada."_s,
              u"atualizar takes ADDRESS and nothing else."_s);
        linha("mudar ENDEREÇO", u"mudar quer FICHEIRO ENDEREÇO e mais nada."_s,
              u"mudar takes FILE ADDRESS and nothing else."_s);
        linha("trazer ENDEREÇO", u"trazer quer ENDEREÇO FICHEIRO e mais nada."_s,
              u"trazer takes ADDRESS FILE and nothing else."_s);
        linha("verificar ENDEREÇO x", u"verificar quer ENDEREÇO e mais nada."_s,
              u"verificar takes ADDRESS and nothing else."_s);
        linha("criar livro.mdb", u"Isto não é o endereço de um servidor: livro.mdb"_s,
              u"This is no address of a server: livro.mdb"_s);
        linha("trazer livro.mdb ENDEREÇO", u"Isto não é o endereço de um servidor: livro.mdb"_s,
              u"This is no address of a server: livro.mdb"_s);
        linha("criar ENDEREÇO --idioma pt --vazia", u"--idioma e --vazia excluem-se."_s,
              u"--idioma and --vazia exclude each other."_s);
    }
    void o_que_nao_se_entende_e_dito_nas_duas_linguas()
    {
        const QString linha = QString::fromUtf8(QTest::currentDataTag());
        QTEST(Ler(linha, Lingua::Portugues).recusa, "portugues");
        const OrdemAoServidor ordem = Ler(linha);
        QTEST(ordem.recusa, "ingles");
        QCOMPARE(ordem.que, Que::Recusa);
    }

    void um_valor_vazio_e_um_valor_que_falta()
    {
        for (const QString &opcao : {u"--posto"_s, u"--idioma"_s})
            QCOMPARE(Ler_Linha({u"criar"_s, endereco, opcao, u""_s}, Lingua::Ingles).recusa,
                     u"The value of %1 is missing."_s.arg(opcao));
    }

    void cada_frase_diz_se_nas_duas_linguas()
    {
        for (const Frases &dita : frases) {
            QVERIFY2(Dizer(dita.frase, Lingua::Portugues) == dita.portugues, dita.nome);
            QVERIFY2(Dizer(dita.frase, Lingua::Ingles) == dita.ingles, dita.nome);
        }
    }

    void a_lingua_e_a_primeira_que_o_ambiente_diz_data()
    {
        QTest::addColumn<QStringList>("ambiente"); // LC_ALL, LC_MESSAGES, LANG
        QTest::addColumn<QString>("nome");
        QTest::newRow("nothing is said") << QStringList{u""_s, u""_s, u""_s} << u"InglesUK"_s;
        QTest::newRow("LC_ALL")
            << QStringList{u"pt_PT.UTF-8"_s, u"en_GB.UTF-8"_s, u"en_GB.UTF-8"_s} << u"PortuguesPT"_s;
        QTest::newRow("LC_MESSAGES") << QStringList{u""_s, u"pt_BR.UTF-8"_s, u"en_GB.UTF-8"_s} << u"PortuguesPT"_s;
        QTest::newRow("LANG") << QStringList{u""_s, u""_s, u"pt"_s} << u"PortuguesPT"_s;
        QTest::newRow("another before") << QStringList{u"de_DE.UTF-8"_s, u""_s, u"pt_PT.UTF-8"_s} << u"InglesUK"_s;
        QTest::newRow("English messages") << QStringList{u""_s, u"C"_s, u"pt_PT.UTF-8"_s} << u"InglesUK"_s;
    }
    void a_lingua_e_a_primeira_que_o_ambiente_diz()
    {
        QFETCH(QStringList, ambiente);
        const std::array nomes{"LC_ALL", "LC_MESSAGES", "LANG"};
        QList<std::pair<const char *, QByteArray>> antes;
        for (qsizetype i = 0; const char *nome : nomes) {
            antes.emplace_back(nome, qgetenv(nome));
            qputenv(nome, ambiente[i++].toUtf8());
        }
        QTEST(Nome(Do_Ambiente()), "nome");
        for (const auto &[nome, valor] : antes)
            qputenv(nome, valor);
    }
};

QTEST_GUILESS_MAIN(TestLinhaDoServidor)
#include "test_LinhaDoServidor.moc"
