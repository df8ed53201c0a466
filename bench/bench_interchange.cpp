// Measures the import of a text file of 4,998 records and the merge of an older database with 19,950
// contacts, 500 tasks and 300 memos, each beside its floor in the same run: the same rows inserted by the
// bare store in one transaction. Usage: bench_interchange [older database ...]   (one of the program's own
// kind is made unless told otherwise)
#include "data/Comandos.h"
#include "interchange/DE2.h"
#include "interchange/frmImportar2.h"
#include "interchange/frmImportarMDB.h"
#include "interchange/Intercambio.h"
#include "interchange/RegistoMorvex.h"
#include "controls/Application.h"
#include "controls/ListBox.h"
#include "store/sqlite/TextRules.h"
#include "session/Main.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <algorithm>
#include <cstdio>
#include <QElapsedTimer>
#include <SQLiteCpp/SQLiteCpp.h>
#include <variant>

using namespace Qt::StringLiterals;

namespace
{
constexpr int repeticoes = 5;

double Mediana(std::vector<double> tempos)
{
    std::sort(tempos.begin(), tempos.end());
    return tempos[tempos.size() / 2];
}

double Tempo(const std::function<void()> &trabalho)
{
    QElapsedTimer relogio;
    relogio.start();
    trabalho();
    return static_cast<double>(relogio.nsecsElapsed()) / 1e6;
}

// An installation with its main window, and no contacts and notes yet.
struct Programa {
    Programa() : main(s.geral, s.plataforma)
    {
        s.Escrever(u"DELETE FROM TblLista"_s);
        s.Escrever(u"DELETE FROM TblMemos"_s);
        main.Carregar();
        intercambio = main.findChild<Intercambio *>();
    }
    Sistema s;
    Main main;
    Intercambio *intercambio = nullptr;
};

using Celula = std::variant<std::monostate, int64_t, double, std::string>;

// The rows of a table as they were stored, ready to be inserted again.
struct LinhasDaTabela {
    std::string inserir;
    int largura;
    std::vector<Celula> celulas; // row by row
};

Celula Celula_De(const SQLite::Column &coluna)
{
    if (coluna.isNull()) return {};
    if (coluna.isInteger()) return int64_t{coluna.getInt64()};
    if (coluna.isFloat()) return coluna.getDouble();
    return coluna.getString();
}

struct Ligar {
    SQLite::Statement &inserir;
    int lugar;
    void operator()(std::monostate) const { inserir.bind(lugar); }
    void operator()(int64_t numero) const { inserir.bind(lugar, numero); }
    void operator()(double numero) const { inserir.bind(lugar, numero); }
    void operator()(const std::string &texto) const { inserir.bindNoCopy(lugar, texto); }
};

LinhasDaTabela Ler_Linhas_De(SQLite::Database &base, const QString &tabela)
{
    SQLite::Statement consulta(base, u"SELECT * FROM %1"_s.arg(tabela).toStdString());
    LinhasDaTabela linhas{{}, consulta.getColumnCount() - 1, {}};
    QStringList nomes;
    for (int i = 1; i <= linhas.largura; ++i)
        nomes << QString::fromUtf8(consulta.getColumnName(i));
    const QStringList lugares(nomes.size(), u"?"_s);
    linhas.inserir =
        u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(tabela, nomes.join(u','), lugares.join(u',')).toStdString();
    while (consulta.executeStep())
        for (int i = 1; i <= linhas.largura; ++i)
            linhas.celulas.push_back(Celula_De(consulta.getColumn(i)));
    return linhas;
}

// The floor: what is in the database now, inserted into an empty one in a single transaction.
double Insercao_Nua(Sistema &cheia, const QStringList &tabelas)
{
    Sistema vazia(Sistema::Estado::Vazio);
    SQLite::Database origem(cheia.Base().toStdString());
    registerTextRules(origem.getHandle());
    std::vector<LinhasDaTabela> todas;
    for (const QString &tabela : tabelas)
        todas.push_back(Ler_Linhas_De(origem, tabela));
    SQLite::Database destino(vazia.Base().toStdString(), SQLite::OPEN_READWRITE);
    registerTextRules(destino.getHandle());
    destino.exec("PRAGMA synchronous=FULL");
    return Tempo([&] {
        SQLite::Transaction transaccao(destino);
        for (const LinhasDaTabela &linhas : todas) {
            SQLite::Statement inserir(destino, linhas.inserir);
            for (auto celula = linhas.celulas.begin(); celula != linhas.celulas.end();) {
                for (int i = 1; i <= linhas.largura; ++i)
                    std::visit(Ligar{inserir, i}, *celula++);
                inserir.exec();
                inserir.reset();
            }
        }
        transaccao.commit();
    });
}

void Escrever_Dat(const QString &caminho)
{
    constexpr int registos = 4998;
    QFile ficheiro(caminho);
    if (!ficheiro.open(QIODevice::WriteOnly)) qFatal("cannot write");
    ficheiro.write("Morvex\r\n");
    for (int i = 0; i < registos; ++i)
        ficheiro.write(QByteArray("Jo\xE3o Concei\xE7\xE3o " + QByteArray::number(i)) + "\xA5" +
                       "21 123 45 67\xA6" + "22 765 43 21\xB6" + "91 234 56 78\xE6" + "\xDE" +
                       "joao@casa.example\xA2" + "www.casa.example\xA7" + "Rua das Flores, 7, Lisboa\xC6" +
                       "17\xBF" + "mar\xE7o\xA1" + "Um contacto como os outros\xFF" + "\xB1" + "\xDF" +
                       "\xF8" + "\xB5" + "\xA4\r\n");
}

void Medir_Dat()
{
    std::vector<double> tempos;
    std::vector<double> listas;
    std::vector<double> nuas;
    for (int i = 0; i < repeticoes; ++i) {
        Programa p;
        const QString caminho = p.s.Ficheiro(u"antigo.dat"_s);
        Escrever_Dat(caminho);
        tempos.push_back(Tempo([&] {
            const QStringList registos = registo_morvex::Registos(registo_morvex::Ler_Linhas(caminho));
            frmImportar2 form(p.s.geral, p.s.plataforma, *p.intercambio, p.main);
            for (const QString &registo : registos)
                form.ListaMorvex43->AddItem(registo);
            form.show();
            form.cmdSeguinte->click();
        }));
        listas.push_back(Tempo([&] { Q_EMIT p.intercambio->ContactosMudados(); }));
        nuas.push_back(Insercao_Nua(p.s, {u"TblLista"_s}));
        if (p.s.Ler(u"SELECT count(*) AS n FROM TblLista"_s).Fields("n").number() != 4998)
            qFatal("lost rows");
    }
    const double tempo = Mediana(tempos);
    const double lista = Mediana(listas);
    const double nua = Mediana(nuas);
    std::printf(
        "text file    %7.1f ms, of which the list's refresh %.1f ms\nbare insert  %7.1f ms   import takes "
        "%.2f of it, %.2f without the refresh\n",
        tempo, lista, nua, tempo / nua, (tempo - lista) / nua);
}

// A database of the program's own kind: 60 groups, 12 users, and some long notes.
void Encher(Sistema &s)
{
    s.Escrever(u"DELETE FROM TblLista"_s);
    s.Escrever(u"DELETE FROM TblMemos"_s);
    s.geral.de.Juntar([&] {
        const QString notas = u"Uma nota que ninguém lê. "_s.repeated(8);
        for (int i = 0; i < 54; ++i)
            s.geral.de.Executar("cmdAdicionarGrupo", {u"Grupo da gente n.º %1"_s.arg(i)});
        for (int i = 0; i < 12; ++i)
            s.geral.de.Executar("cmdAdicionarUser",
                                {u"Utilizador %1"_s.arg(i), u"xyz"_s, false, true, true, true, true, true});
        for (int i = 0; i < 19950; ++i)
            s.geral.de.Executar("cmdAdicionarNome",
                                {u"Inês Leão %1"_s.arg(i), u"21 123 45 67"_s, u""_s, u"22 765 43 21"_s,
                                 u"91 234 56 78"_s, u""_s, u""_s, u"17"_s, u"05"_s, u"1970"_s,
                                 u"ines%1@casa.example"_s.arg(i), u""_s, u"www.casa.example"_s,
                                 u"Rua das Flores, %1\r\n1200-001 Lisboa"_s.arg(i), i % 5 ? u""_s : notas,
                                 u""_s, i % 60 + 1});
        for (int i = 0; i < 500; ++i)
            s.geral.de.Executar("cmdAdicionarTarefa", {u"Regar as plantas %1"_s.arg(i), u"01-02-2027"_s,
                                                       u"10:00"_s, i % 12 + 1, 1});
        for (int i = 0; i < 300; ++i)
            s.geral.de.Executar("cmdAdicionarMemo",
                                {u"Nota %1"_s.arg(i), notas, 100, 200, 3000, 2000, u"Tahoma"_s, u"8,25"_s,
                                 false, false, 65535, i % 12 + 1});
    });
}

void Medir_Fusao(const QString &antiga)
{
    std::vector<double> aberturas;
    std::vector<double> tempos;
    std::vector<double> nuas;
    for (int i = 0; i < repeticoes; ++i) {
        Programa p;
        p.intercambio->FileName = antiga;
        std::unique_ptr<frmImportarMDB> form;
        aberturas.push_back(Tempo([&] {
            form = std::make_unique<frmImportarMDB>(p.s.geral, p.s.plataforma, *p.intercambio, p.main);
        }));
        p.s.caixas.Espera_Qualquer(48, p.s.Texto(82));
        form->show();
        QCoreApplication::processEvents();
        tempos.push_back(Tempo([&] { form->cmdSeguinte->click(); }));
        nuas.push_back(Insercao_Nua(
            p.s, {u"TblGrupos"_s, u"TblUsers"_s, u"TblLista"_s, u"TblTarefas"_s, u"TblMemos"_s}));
        if (i == 0)
            std::printf("%s: %s contacts, %s tasks, %s memos\n", qPrintable(antiga),
                        qPrintable(p.s.Linhas(u"SELECT count(*) FROM TblLista"_s).constFirst()),
                        qPrintable(p.s.Linhas(u"SELECT count(*) FROM TblTarefas"_s).constFirst()),
                        qPrintable(p.s.Linhas(u"SELECT count(*) FROM TblMemos"_s).constFirst()));
    }
    const double tempo = Mediana(tempos);
    const double nua = Mediana(nuas);
    std::printf(
        "opening      %7.1f ms\nmerge        %7.1f ms\nbare insert  %7.1f ms   merge takes %.2f of it\n",
        Mediana(aberturas), tempo, nua, tempo / nua);
}
} // namespace

int main(int argc, char **argv)
{
    qputenv("MORVEX_ENVIADOS", MORVEX_ENVIADOS);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    teste::CaixasDaAplicacao caixas;
    Application application(argc, argv, caixas);

    Medir_Dat();
    for (const QString &antiga : QCoreApplication::arguments().mid(1))
        Medir_Fusao(antiga);
    if (argc > 1) return 0;
    Sistema propria;
    Encher(propria);
    Medir_Fusao(propria.Base());
}
