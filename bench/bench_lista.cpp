// Measures the start, the contact list, the card, the searches and the adding of a contact with many
// contacts, each beside its floor in the same run: an empty window of the toolkit, a bare read of the same
// rows into strings, the reload of the list. Usage: bench_lista [N ...]   (1000, 8000 and 32767 contacts
// unless told otherwise)
#include "contacts/frmAddEdit.h"
#include "contacts/frmProcurar.h"
#include "data/Comandos.h"
#include "data/Geral.h"
#include "data/Sementes.h"
#include "controls/Application.h"
#include "controls/ComboBox.h"
#include "platform/DesktopRegistry.h"
#include "platform/DesktopSound.h"
#include "platform/DesktopTray.h"
#include "controls/ListBox.h"
#include "mail/PopMailNotification.h"
#include "platform/Platform.h"
#include "platform/PurpleMessenger.h"
#include "store/Connection.h"
#include "store/TextRules.h"
#include "session/Main.h"

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

double Agora_ms()
{
    timespec agora{};
    clock_gettime(CLOCK_MONOTONIC, &agora);
    return static_cast<double>(agora.tv_sec) * 1e3 + static_cast<double>(agora.tv_nsec) / 1e6;
}

double Memoria_MB()
{
    QFile ficheiro(u"/proc/self/statm"_s);
    if (!ficheiro.open(QIODevice::ReadOnly)) return 0;
    return ficheiro.readAll().split(' ').value(1).toDouble() * 4096 / 1e6;
}

double Mediano(std::vector<double> &tempos)
{
    const auto meio = tempos.begin() + static_cast<std::ptrdiff_t>(tempos.size() / 2);
    std::nth_element(tempos.begin(), meio, tempos.end());
    return *meio;
}

double Mediana(const std::function<void()> &trabalho)
{
    std::vector<double> tempos;
    for (int i = 0; i < repeticoes; ++i) {
        const double inicio = Agora_ms();
        trabalho();
        tempos.push_back(Agora_ms() - inicio);
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
double Leitura_Nua(const QString &pasta, ComandoComLinhas comando, const std::string &parametro = {})
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
double Desde_O_Inicio() { return Agora_ms() - qEnvironmentVariable("BENCH_INICIO").toDouble(); }

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
    std::printf("%.2f %.2f\n", Desde_O_Inicio(), Memoria_MB());
    return 0;
}

// A key in the quick search, to the painted card of a name near the end of the list.
double Tecla(Main &janela)
{
    bool outra = false;
    return Mediana([&] {
        outra = !outra;
        janela.txtProcura->setText(outra ? u"zé v"_s : u"úrsula v"_s);
        janela.repaint();
    });
}

// A search to its first hit: in the notes, of which all match, and in the telephones, of which none does.
std::pair<double, double> Procuras(Main &janela)
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
    const double texto = procurar(procura.opcaoObs, texto_procurado);
    const double numero = procurar(procura.opcaoTelefone, u"999"_s);
    procura.close();
    return {texto, numero};
}

// From Ok in the editor to the painted card of the new contact. So that the list keeps its length, and the
// new contact an ID that the card can show, the last one is taken away before each.
double Adicao(Main &janela, const Geral &geral, const QString &pasta)
{
    Connection ligacao;
    ligacao.setConnectionString(u"Data Source='%1/morvex.mdb'"_s.arg(pasta));
    ligacao.Open();
    const qint64 quantos = janela.ListaNomes->ListCount();
    std::vector<double> tempos;
    for (int i = 0; i < repeticoes; ++i) {
        ligacao.execute(u"DELETE FROM TblLista WHERE ID>=?"_s, {quantos});
        ligacao.execute(u"UPDATE sqlite_sequence SET seq=? WHERE name='TblLista'"_s, {quantos - 1});
        janela.ComboGrupos->setListIndex(0);
        QTimer::singleShot(0, &janela, [&] {
            auto &form = *qobject_cast<frmAddEdit *>(QApplication::activeModalWidget());
            form.txtNome->setText(u"Mónica Nóbrega Nova"_s);
            const double inicio = Agora_ms();
            form.cmdOk->click();
            janela.repaint();
            tempos.push_back(Agora_ms() - inicio);
        });
        janela.cmdNovo->click();
        if (geral.IDContacto != quantos || !janela.cmdEditar->isEnabled()) return 0; // another card, or none
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
    Geral geral(pasta);
    PopMailNotification mail(geral.Ficheiro(u"correio.json"_s), [&geral] { return geral.IdiomaActual; });
    PurpleMessenger messenger;
    Platform platform{clock, boxes, dialogs, shell, sound, registry, mail, messenger, process, tray};
    Main janela(geral, platform);
    janela.Carregar();
    Mostrar_E_Pintar(janela);
    const double inicio = Desde_O_Inicio();
    const double memoria = Memoria_MB();

    const double recarga = Mediana([&] { janela.ComboGrupos->setListIndex(0); });
    const double filtro = Mediana([&] { janela.ComboGrupos->setListIndex(3); });
    janela.ComboGrupos->setListIndex(0);
    int linha = 0;
    const double cartao = Mediana([&] {
        linha = (linha + 997) % janela.ListaNomes->ListCount();
        janela.ListaNomes->setListIndex(linha);
        janela.repaint();
    });
    const double tecla = Tecla(janela);
    const auto [texto, numero] = Procuras(janela);
    const double adicao = Adicao(janela, geral, pasta);
    std::printf("%.2f %.2f %.2f %.2f %.2f %.2f %.2f %.2f %.2f\n", inicio, memoria, recarga, cartao, filtro,
                tecla, texto, numero, adicao);
    std::fflush(stdout);
    process.end();
    return 0;
}

QList<double> Filho(const QStringList &argumentos)
{
    QProcess processo;
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.insert(u"BENCH_INICIO"_s, QString::number(Agora_ms(), 'f', 3));
    processo.setProcessEnvironment(ambiente);
    processo.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    processo.start(QCoreApplication::applicationFilePath(), argumentos);
    processo.waitForFinished(-1);
    QList<double> numeros;
    for (const QByteArray &parte : processo.readAllStandardOutput().trimmed().split(' '))
        numeros << parte.toDouble();
    return numeros;
}

// The run whose first number is the median one.
QList<double> Filho_Mediano(const QStringList &argumentos)
{
    QList<QList<double>> corridas;
    for (int i = 0; i < repeticoes; ++i)
        corridas << Filho(argumentos);
    std::sort(corridas.begin(), corridas.end(), [](const auto &a, const auto &b) { return a[0] < b[0]; });
    return corridas[repeticoes / 2];
}

void Medir(int quantos)
{
    const QTemporaryDir pasta;
    Encher(pasta.path(), quantos);
    const double leitura = Leitura_Nua(pasta.path(), "cmdListarTodosContactos", "0");
    const double texto =
        Leitura_Nua(pasta.path(), "cmdProcurarObs", ('%' + texto_procurado + '%').toStdString());
    const double numero = Leitura_Nua(pasta.path(), "cmdProcurarTelefone");
    const QList<double> vazia = Filho_Mediano({u"--vazia"_s});
    const QList<double> main = Filho_Mediano({u"--main"_s, pasta.path()});
    if (main.size() < 9 || main[8] <= 0 || vazia.size() < 2) {
        std::printf("%7d   the measured process failed\n", quantos);
        return;
    }
    std::printf(
        "%7d   start %7.1f ms (%4.1f x empty %5.1f; less the reload %4.1f x)   reload %6.1f ms (%4.2f x bare "
        "%5.1f)   card %5.2f ms   filter %6.1f ms   memory %5.1f MB (%4.2f x %5.1f)\n"
        "          quick search %5.2f ms   text search %6.1f ms (%4.2f x bare %5.1f)   number search %6.1f "
        "ms "
        "(%4.2f x bare %5.1f), each with the list read anew   add %6.1f ms (%4.2f x reload)\n",
        quantos, main[0], main[0] / vazia[0], vazia[0], (main[0] - main[2]) / vazia[0], main[2],
        main[2] / leitura, leitura, main[3], main[4], main[1], main[1] / vazia[1], vazia[1], main[5], main[6],
        main[6] / texto, texto, main[7], main[7] / numero, numero, main[8], main[8] / main[2]);
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
