// Measures the start, the contact list, the card, the searches and the adding of a contact with many
// contacts, each beside its floor in the same run: an empty window of the toolkit, a bare read of the same
// rows into strings, the reload of the list. Usage: bench_lista [N ...]   (1000, 8000 and 32767 contacts
// unless told otherwise)
#include "contacts/frmAddEdit.h"
#include "contacts/frmProcurar.h"
#include "controls/Application.h"
#include "controls/ComboBox.h"
#include "controls/ListBox.h"
#include "data/Comandos.h"
#include "data/Geral.h"
#include "data/Sementes.h"
#include "mail/PopMailNotification.h"
#include "platform/DesktopRegistry.h"
#include "platform/DesktopSound.h"
#include "platform/DesktopTray.h"
#include "platform/Platform.h"
#include "platform/PurpleMessenger.h"
#include "platform/SecretService.h"
#include "session/Main.h"
#include "store/Connection.h"
#include "store/sqlite/TextRules.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>
#include <random>
#include <SQLiteCpp/SQLiteCpp.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr int repeticoes = 5;
const QString texto_procurado = u"nn"_s;

double Agora_ms(clockid_t relogio = CLOCK_MONOTONIC)
{
    timespec agora{};
    clock_gettime(relogio, &agora);
    return static_cast<double>(agora.tv_sec) * 1e3 + static_cast<double>(agora.tv_nsec) / 1e6;
}

// Milliseconds on the wall and of the processor; a busy machine stretches the second less.
struct Tempo {
    double ms = 0;
    double cpu = 0;
};

class Cronometro
{
public:
    Tempo Lido() const { return {Agora_ms() - inicio_, Agora_ms(CLOCK_PROCESS_CPUTIME_ID) - cpu_}; }

private:
    double inicio_ = Agora_ms();
    double cpu_ = Agora_ms(CLOCK_PROCESS_CPUTIME_ID);
};

double Memoria_MB()
{
    QFile ficheiro(u"/proc/self/statm"_s);
    if (!ficheiro.open(QIODevice::ReadOnly)) return 0;
    return ficheiro.readAll().split(' ').value(1).toDouble() * 4096 / 1e6;
}

double Mediano(const std::vector<Tempo> &tempos, double Tempo::*parte)
{
    std::vector<double> partes;
    partes.reserve(tempos.size());
    for (const Tempo &tempo : tempos)
        partes.push_back(tempo.*parte);
    const auto meio = partes.begin() + static_cast<std::ptrdiff_t>(partes.size() / 2);
    std::nth_element(partes.begin(), meio, partes.end());
    return *meio;
}

Tempo Mediano(const std::vector<Tempo> &tempos)
{
    return {Mediano(tempos, &Tempo::ms), Mediano(tempos, &Tempo::cpu)};
}

Tempo Mediana(const std::function<void()> &trabalho)
{
    std::vector<Tempo> tempos;
    for (int i = 0; i < repeticoes; ++i) {
        const Cronometro cronometro;
        trabalho();
        tempos.push_back(cronometro.Lido());
    }
    return Mediano(tempos);
}

QString Nome_Inventado(std::mt19937 &acaso)
{
    static const QStringList proprios{u"Álvaro"_s, u"Ângela"_s, u"António"_s, u"Conceição"_s, u"Érica"_s,
                                      u"Inês"_s,   u"João"_s,   u"Luís"_s,    u"Mónica"_s,    u"Rui"_s,
                                      u"Sónia"_s,  u"Tomás"_s,  u"Úrsula"_s,  u"Zé"_s};
    static const QStringList apelidos{u"Araújo"_s, u"Brandão"_s,   u"Coração"_s, u"Estêvão"_s, u"Gonçalves"_s,
                                      u"Leitão"_s, u"Magalhães"_s, u"Nóbrega"_s, u"Simões"_s,  u"Vilaça"_s};
    const auto um_de = [&](const QStringList &lista) {
        return lista[static_cast<qsizetype>(acaso() % static_cast<unsigned>(lista.size()))];
    };
    return u"%1 %2 %3"_s.arg(um_de(proprios), um_de(apelidos), um_de(apelidos));
}

void Encher(const QString &pasta, int quantos)
{
    for (const QString &nome :
         QDir(QStringLiteral(MORVEX_ENVIADOS)).entryList({u"*.jpg"_s, u"*.mdb"_s, u"*.ini"_s}))
        QFile::copy(QStringLiteral(MORVEX_ENVIADOS) + u'/' + nome, pasta + u'/' + nome);
    Geral geral(pasta);
    Sementes sementes = sementes::PT();
    sementes.Contactos.clear();
    sementes::Semear(geral.de, sementes);
    geral.ini.Escrever_Ini(u"basedados"_s, u"caminhobd"_s, pasta + u"/morvex.mdb"_s);

    Connection ligacao;
    ligacao.setConnectionString(u"Data Source='%1/morvex.mdb'"_s.arg(pasta));
    ligacao.Open();
    ligacao.execute(u"BEGIN"_s, {});
    std::mt19937 acaso(1);
    const QString notas(300, u'n');
    for (qint64 i = 0; i < quantos; ++i)
        ligacao.execute(
            u"INSERT INTO TblLista (Nome, Telefone1, Telefone2, Fax, Telemovel1, Telemovel2, Telemovel3, "
            "Dia, Mes, Ano, Email1, Email2, Website, Morada, Obs, Fotografia, Grupo) VALUES "
            "(?,'21','','','91','','','7','05','1980','a@b.example','','','Rua',?,'',?)"_s,
            {Nome_Inventado(acaso), notas, i % 6 + 1});
    ligacao.execute(u"COMMIT"_s, {});
}

// The rows of a command in the same order, into strings, with nothing in between.
Tempo Leitura_Nua(const QString &pasta, ComandoComLinhas comando, const std::string &parametro = {})
{
    SQLite::Database base((pasta + u"/morvex.mdb"_s).toStdString());
    registerTextRules(base.getHandle());
    return Mediana([&] {
        SQLite::Statement consulta(base, std::string(comando.Entrada().sql));
        if (!parametro.empty()) consulta.bind(1, parametro);
        std::vector<std::pair<int, std::string>> linhas;
        while (consulta.executeStep())
            linhas.emplace_back(consulta.getColumn(0).getInt(), consulta.getColumn(1).getString());
    });
}

// Times from the start of this process are told by the parent, which noted when it began.
Tempo Desde_O_Inicio()
{
    return {Agora_ms() - qEnvironmentVariable("BENCH_INICIO").toDouble(), Agora_ms(CLOCK_PROCESS_CPUTIME_ID)};
}

// What a measured process tells its parent, in this order: megabytes, in the place of a time, and times.
namespace lugar
{
enum : std::size_t { memoria, inicio, recarga, cartao, filtro, tecla, texto, numero, adicao };
}

void Dizer(double megabytes, std::initializer_list<Tempo> tempos)
{
    std::printf("%.2f 0", megabytes);
    for (const Tempo &tempo : tempos)
        std::printf(" %.2f %.2f", tempo.ms, tempo.cpu);
    std::fflush(stdout);
}

void Mostrar_E_Pintar(QWidget &janela)
{
    janela.show();
    while (!janela.windowHandle() || !janela.windowHandle()->isExposed())
        QCoreApplication::processEvents();
    janela.repaint();
    QCoreApplication::processEvents();
}

int Filho_Vazio(int argc, char **argv)
{
    QApplication application(argc, argv);
    QMainWindow janela;
    Mostrar_E_Pintar(janela);
    Dizer(Memoria_MB(), {Desde_O_Inicio()});
    return 0;
}

// A key in the quick search, to the painted card of a name near the end of the list.
Tempo Tecla(Main &janela)
{
    bool outra = false;
    return Mediana([&] {
        outra = !outra;
        janela.txtProcura->setText(outra ? u"zé v"_s : u"úrsula v"_s);
        janela.repaint();
    });
}

// A search to its first hit: in the notes, of which all match, and in the telephones, of which none does.
std::pair<Tempo, Tempo> Procuras(Main &janela)
{
    janela.procurar->trigger();
    const auto janelas = QApplication::topLevelWidgets();
    const auto form = std::find_if(janelas.begin(), janelas.end(),
                                   [](QWidget *w) { return qobject_cast<frmProcurar *>(w) != nullptr; });
    auto &procura = *qobject_cast<frmProcurar *>(*form);
    const auto procurar = [&](QRadioButton *opcao, const QString &texto) {
        opcao->setChecked(true);
        return Mediana([&] {
            procura.txtProcurar->setText(texto);
            procura.Reset_Pesquisa();
            procura.cmdProcurar->click();
        });
    };
    const Tempo texto = procurar(procura.opcaoObs, texto_procurado);
    const Tempo numero = procurar(procura.opcaoTelefone, u"999"_s);
    procura.close();
    return {texto, numero};
}

// From Ok in the editor to the painted card of the new contact. So that the list keeps its length, and the
// new contact an ID that the card can show, the last one is taken away before each.
Tempo Adicao(Main &janela, const Geral &geral, const QString &pasta)
{
    Connection ligacao;
    ligacao.setConnectionString(u"Data Source='%1/morvex.mdb'"_s.arg(pasta));
    ligacao.Open();
    const qint64 quantos = janela.ListaNomes->ListCount();
    std::vector<Tempo> tempos;
    for (int i = 0; i < repeticoes; ++i) {
        ligacao.execute(u"DELETE FROM TblLista WHERE ID>=?"_s, {quantos});
        ligacao.execute(u"UPDATE sqlite_sequence SET seq=? WHERE name='TblLista'"_s, {quantos - 1});
        janela.ComboGrupos->setListIndex(0);
        QTimer::singleShot(0, &janela, [&] {
            auto &form = *qobject_cast<frmAddEdit *>(QApplication::activeModalWidget());
            form.txtNome->setText(u"Mónica Nóbrega Nova"_s);
            const Cronometro cronometro;
            form.cmdOk->click();
            janela.repaint();
            tempos.push_back(cronometro.Lido());
        });
        janela.cmdNovo->click();
        if (geral.IDContacto != quantos || !janela.cmdEditar->isEnabled()) return {}; // another card, or none
    }
    return Mediano(tempos);
}

int Filho_Main(int argc, char **argv, const QString &pasta)
{
    DesktopMessageBoxes boxes;
    Application application(argc, argv, boxes);
    SystemClock clock;
    DesktopDialogs dialogs;
    DesktopShell shell;
    DesktopSound sound;
    DesktopRegistry registry;
    OwnProcess process;
    DesktopTray tray{QIcon(), QIcon()};
    SecretService secrets;
    Geral geral(pasta);
    PopMailNotification mail(geral.Ficheiro(u"correio.json"_s), [&geral] { return geral.IdiomaActual; });
    PurpleMessenger messenger;
    Platform platform{clock, boxes, dialogs, shell, sound, registry, mail,
                      messenger, process, tray, secrets};
    Main janela(geral, platform);
    janela.Carregar();
    Mostrar_E_Pintar(janela);
    const Tempo inicio = Desde_O_Inicio();
    const double memoria = Memoria_MB();

    const Tempo recarga = Mediana([&] { janela.ComboGrupos->setListIndex(0); });
    const Tempo filtro = Mediana([&] { janela.ComboGrupos->setListIndex(3); });
    janela.ComboGrupos->setListIndex(0);
    int linha = 0;
    const Tempo cartao = Mediana([&] {
        linha = (linha + 997) % janela.ListaNomes->ListCount();
        janela.ListaNomes->setListIndex(linha);
        janela.repaint();
    });
    const Tempo tecla = Tecla(janela);
    const auto [texto, numero] = Procuras(janela);
    const Tempo adicao = Adicao(janela, geral, pasta);
    Dizer(memoria, {inicio, recarga, cartao, filtro, tecla, texto, numero, adicao});
    process.end();
    return 0;
}

std::vector<Tempo> Filho(const QStringList &argumentos)
{
    QProcess processo;
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.insert(u"BENCH_INICIO"_s, QString::number(Agora_ms(), 'f', 3));
    processo.setProcessEnvironment(ambiente);
    processo.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    processo.start(QCoreApplication::applicationFilePath(), argumentos);
    processo.waitForFinished(-1);
    const QByteArrayList partes = processo.readAllStandardOutput().trimmed().split(' ');
    std::vector<Tempo> numeros;
    for (qsizetype i = 0; i + 1 < partes.size(); i += 2)
        numeros.push_back({partes[i].toDouble(), partes[i + 1].toDouble()});
    return numeros;
}

// Whatever else the machine does only ever adds: of each number the lowest stands.
void Juntar(std::vector<Tempo> &menores, const std::vector<Tempo> &numeros)
{
    if (menores.empty()) menores = numeros;
    for (std::size_t i = 0; i < std::min(menores.size(), numeros.size()); ++i)
        menores[i] = {std::min(menores[i].ms, numeros[i].ms), std::min(menores[i].cpu, numeros[i].cpu)};
}

void Linha(const char *nome, Tempo tempo, const char *chao, Tempo do_chao)
{
    std::printf("%16s %8.2f ms, %8.2f of CPU   %5.2f x the CPU of %s (%.2f ms, %.2f of CPU)\n", nome,
                tempo.ms, tempo.cpu, tempo.cpu / do_chao.cpu, chao, do_chao.ms, do_chao.cpu);
}

void Linha(const char *nome, Tempo tempo)
{
    std::printf("%16s %8.2f ms, %8.2f of CPU\n", nome, tempo.ms, tempo.cpu);
}

// The empty window and the program take turns, so that a busy minute meets both.
void Medir(int quantos)
{
    const QTemporaryDir pasta;
    Encher(pasta.path(), quantos);
    const Tempo leitura = Leitura_Nua(pasta.path(), "cmdListarTodosContactos", "0");
    const Tempo obs =
        Leitura_Nua(pasta.path(), "cmdProcurarObs", ('%' + texto_procurado + '%').toStdString());
    const Tempo telefones = Leitura_Nua(pasta.path(), "cmdProcurarTelefone");
    std::vector<Tempo> vazia;
    std::vector<Tempo> main;
    for (int i = 0; i < repeticoes; ++i) {
        Juntar(vazia, Filho({u"--vazia"_s}));
        Juntar(main, Filho({u"--main"_s, pasta.path()}));
    }
    if (main.size() <= lugar::adicao || main[lugar::adicao].ms <= 0 || vazia.size() <= lugar::inicio) {
        std::printf("%d contacts: the measured process failed\n", quantos);
        return;
    }
    std::printf("%d contacts, memory %.1f MB (%.2f x %.1f)\n", quantos, main[lugar::memoria].ms,
                main[lugar::memoria].ms / vazia[lugar::memoria].ms, vazia[lugar::memoria].ms);
    Linha("start", main[lugar::inicio], "an empty window", vazia[lugar::inicio]);
    Linha("reload", main[lugar::recarga], "a bare reading", leitura);
    Linha("card", main[lugar::cartao]);
    Linha("filter", main[lugar::filtro]);
    Linha("quick search", main[lugar::tecla]);
    // Each with the list read anew.
    Linha("text search", main[lugar::texto], "a bare reading", obs);
    Linha("number search", main[lugar::numero], "a bare reading", telefones);
    Linha("add", main[lugar::adicao], "the reload", main[lugar::recarga]);
    std::fflush(stdout);
}
} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc >= 2 && qstrcmp(argv[1], "--vazia") == 0) return Filho_Vazio(argc, argv);
    if (argc >= 3 && qstrcmp(argv[1], "--main") == 0)
        return Filho_Main(argc, argv, QString::fromLocal8Bit(argv[2]));

    const QCoreApplication application(argc, argv);
    QList<int> tamanhos;
    for (int i = 1; i < argc; ++i)
        tamanhos << QByteArray(argv[i]).toInt();
    for (const int quantos : tamanhos.isEmpty() ? QList<int>{1000, 8000, 32767} : tamanhos)
        Medir(quantos);
}
