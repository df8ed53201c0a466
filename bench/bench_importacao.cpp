// Measures the import of 10,000 foreign cards, read, mapped, compared with a book of 10,000 contacts and
// written, beside its floor in the same run: the same rows and kept cards inserted by the bare store in one
// transaction.
// Both in time of the processor, whatever else the machine is doing, and in time of the clock, for the flush
// to the disk is a part of both. Half of the cards are new and half complete somebody of the book, unless
// told otherwise; then all are new. Usage: bench_importacao [novos]
#include "cards/EscritaDaImportacao.h"
#include "cards/frmImportarContactos.h"
#include "controls/Application.h"
#include "store/sqlite/TextRules.h"
#include "testlib/Pausas.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <QElapsedTimer>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr int cartoes = 10'000;
constexpr int repeticoes = 5;

double Mediana(std::vector<double> tempos)
{
    std::sort(tempos.begin(), tempos.end());
    return tempos[tempos.size() / 2];
}

struct Tempo {
    double processador = 0; // ms
    double relogio = 0;

    Tempo operator+(const Tempo &outro) const
    {
        return {processador + outro.processador, relogio + outro.relogio};
    }
};

Tempo Medir(const std::function<void()> &trabalho)
{
    QElapsedTimer relogio;
    relogio.start();
    const std::clock_t antes = std::clock();
    trabalho();
    const std::clock_t depois = std::clock();
    return {1e3 * static_cast<double>(depois - antes) / CLOCKS_PER_SEC,
            static_cast<double>(relogio.nsecsElapsed()) / 1e6};
}

Tempo Mediana(const std::vector<Tempo> &tempos)
{
    std::vector<double> processador;
    std::vector<double> relogio;
    for (const Tempo &tempo : tempos) {
        processador.push_back(tempo.processador);
        relogio.push_back(tempo.relogio);
    }
    return {Mediana(processador), Mediana(relogio)};
}

double Memoria_Maior_MB()
{
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    return static_cast<double>(uso.ru_maxrss) / 1e3;
}

// Those from that number on.
QByteArray Livro(int primeiro)
{
    QByteArray livro;
    for (int i = primeiro; i < primeiro + cartoes; ++i) {
        const QByteArray n = QByteArray::number(i);
        livro += "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:cartao-" + n + "\r\nN:Gonçalves;Conceição " + n +
                 ";;;\r\nFN:Conceição " + n + " Gonçalves\r\nTEL;TYPE=CELL,VOICE:+351 91" +
                 n.rightJustified(7, '0') + "\r\nEMAIL;TYPE=INTERNET:c" + n +
                 "@exemplo.pt\r\nADR;TYPE=HOME:;;Rua da Sé\\, " + n + ";Porto;;4000-001;Portugal\r\n" +
                 "END:VCARD\r\n";
    }
    return livro;
}

void Encher(Sistema &s)
{
    s.Escrever(u"DELETE FROM TblLista"_s);
    const QString vazio = u""_s;
    s.geral.de.Juntar([&] {
        for (int i = 0; i < cartoes; ++i)
            s.geral.de.Executar("cmdAdicionarNome",
                                {u"Conceição %1 Gonçalves"_s.arg(i), vazio, vazio, vazio,
                                 u"+351 91%1"_s.arg(i, 7, 10, QChar(u'0')), vazio, vazio, vazio, vazio, vazio,
                                 u"c%1@exemplo.pt"_s.arg(i), vazio, vazio, vazio, vazio, vazio, 1});
    });
}

// A row of the book as its cells are stored, and the kept card of that contact.
struct LinhaNua {
    std::vector<std::string> celulas;
    std::string UID;
    std::string cartao;
};

std::vector<LinhaNua> Linhas_Escritas(Sistema &cheia, int quantas)
{
    SQLite::Database origem(cheia.Base().toStdString());
    registerTextRules(origem.getHandle());
    SQLite::Statement consulta(origem, "SELECT UID, cartao, TblLista.* FROM TblLista JOIN TblCartoes ON "
                                       "IDContacto = ID ORDER BY ID DESC LIMIT " +
                                           std::to_string(quantas));
    constexpr int primeira = 3; // behind the card's two columns and the counter
    std::vector<LinhaNua> linhas;
    while (consulta.executeStep()) {
        LinhaNua &linha = linhas.emplace_back();
        linha.UID = consulta.getColumn(0).getString();
        linha.cartao = consulta.getColumn(1).getString();
        for (int i = primeira; i < consulta.getColumnCount(); ++i)
            linha.celulas.push_back(consulta.getColumn(i).getString());
    }
    if (linhas.size() != static_cast<std::size_t>(quantas)) qFatal("rows without a card");
    return linhas;
}

// The floor: all that the import leaves behind, in an empty book: a row for each contact, and its card.
Tempo Insercao_Nua(Sistema &cheia, int quantas)
{
    const std::vector<LinhaNua> linhas = Linhas_Escritas(cheia, quantas);
    Sistema vazia(Sistema::Estado::Vazio);
    SQLite::Database destino(vazia.Base().toStdString(), SQLite::OPEN_READWRITE);
    registerTextRules(destino.getHandle());
    destino.exec("PRAGMA synchronous=FULL");
    std::string lugares = "INSERT INTO TblLista VALUES (NULL";
    for (std::size_t i = 0; i < linhas.front().celulas.size(); ++i)
        lugares += ",?";
    return Medir([&] {
        SQLite::Transaction transaccao(destino);
        SQLite::Statement inserir(destino, lugares + ")");
        SQLite::Statement guardar(destino, "INSERT INTO TblCartoes (IDContacto, UID, cartao) VALUES (?,?,?)");
        for (const LinhaNua &linha : linhas) {
            int lugar = 0;
            for (const std::string &celula : linha.celulas)
                inserir.bindNoCopy(++lugar, celula);
            inserir.exec();
            inserir.reset();
            guardar.bind(1, destino.getLastInsertRowid());
            guardar.bindNoCopy(2, linha.UID);
            guardar.bindNoCopy(3, linha.cartao.data(), static_cast<int>(linha.cartao.size()));
            guardar.exec();
            guardar.reset();
        }
        transaccao.commit();
    });
}

struct Tempos {
    std::vector<Tempo> leitura, escrita, tudo, nua;
};

void Uma_Vez(Tempos &tempos, const QByteArray &livro)
{
    Sistema s;
    Encher(s);
    ImportacaoDeContactos importacao(s.geral.de, u"0"_s, u"PortuguesPT"_s);
    tempos.leitura.push_back(Medir([&] {
        importacao.Abrir_Cartoes(livro, {}, {});
        while (importacao.Avancar()) {
        }
    }));
    EscritaDaImportacao escrita(s.geral.de, importacao, {u"0"_s, u"1"_s, false});
    tempos.escrita.push_back(Medir([&] { escrita.Escrever([](int) { return true; }); }));
    tempos.tudo.push_back(tempos.leitura.back() + tempos.escrita.back());
    if (escrita.Feita().adicionados + escrita.Feita().completados != cartoes) qFatal("lost contacts");
    tempos.nua.push_back(Insercao_Nua(s, cartoes));
}

// The longest time in which the form takes no event while it reads, and while it writes.
void Medir_Pausas(const QByteArray &livro)
{
    Sistema s;
    Encher(s);
    const QString caminho = s.Ficheiro(u"livro.vcf"_s);
    QFile ficheiro(caminho);
    if (!ficheiro.open(QIODevice::WriteOnly) || ficheiro.write(livro) != livro.size()) qFatal("cannot write");
    ficheiro.close();
    frmImportarContactos form(s.geral, s.plataforma);
    form.show();
    QCoreApplication::processEvents();
    const auto medir = [&](const char *nome, const std::function<void()> &comecar) {
        Pausas pausas;
        comecar();
        while (form.ProgressBar1->isVisible())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        std::printf("longest pause while it %s %lld ms\n", nome, static_cast<long long>(pausas.maior));
    };
    medir("reads ", [&] { form.Abrir(caminho); });
    medir("writes", [&] { form.cmdImportar->click(); });
}
} // namespace

int main(int argc, char **argv)
{
    qputenv("MORVEX_ENVIADOS", MORVEX_ENVIADOS);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    teste::CaixasDaAplicacao caixas;
    Application application(argc, argv, caixas);

    const QByteArray livro = Livro(argc > 1 ? cartoes : cartoes / 2);
    const double antes = Memoria_Maior_MB();
    Tempos tempos;
    for (int i = 0; i < repeticoes; ++i)
        Uma_Vez(tempos, livro);
    std::printf("%.1f MB of cards     processor      clock\n", static_cast<double>(livro.size()) / 1e6);
    const auto dizer = [](const char *nome, const Tempo &tempo) {
        std::printf("%-18s %7.1f ms %7.1f ms\n", nome, tempo.processador, tempo.relogio);
    };
    dizer("read, compare", Mediana(tempos.leitura));
    dizer("write", Mediana(tempos.escrita));
    const Tempo tudo = Mediana(tempos.tudo);
    const Tempo nua = Mediana(tempos.nua);
    dizer("all", tudo);
    dizer("bare insert", nua);
    std::printf("%-18s %7.2f    %7.2f\nmemory       %7.1f MB at the most, %.1f before\n", "all / bare insert",
                tudo.processador / nua.processador, tudo.relogio / nua.relogio, Memoria_Maior_MB(), antes);
    Medir_Pausas(livro);
}
