#include "session/Arranque.h"

#include "contacts/ListaContactos.h"
#include "data/frmSeleccionarIdioma.h"
#include "data/Geral.h"
#include "data/Idiomas.h"
#include "data/Inteiro.h"
#include "platform/Controls.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "platform/ToolkitLanguage.h"
#include "session/frmLogin.h"
#include "session/Legendas.h"
#include "session/SystemTray.h"

#include <QAbstractButton>
#include <QLocale>
#include <QMainWindow>

using namespace Qt::StringLiterals;

namespace
{
// One column of the configuration row into one variable.
void Copiar(const Recordset &rs, const char *coluna, QString &destino)
{
    skipFailure([&] { destino = rs.Fields(coluna).text(); });
}
} // namespace

Arranque::Arranque(QMainWindow &janela, Geral &geral, Platform &platform, ListaContactos &lista, SystemTray &tray)
    : janela_(janela), geral_(geral), platform_(platform), lista_(lista), tray_(tray)
{
}

std::vector<Arranque::Passo> Arranque::Passos()
{
    return {
        {"Escrever_Data", [this] { Escrever_Data(); }},
        {"Escolher_Idioma", [this] { Escolher_Idioma(); }},
        {"Ler_Configuracao", [this] { Ler_Configuracao(); }},
        {"Ler_TblConfig", [this] { Ler_TblConfig(); }},
        {"Iniciar_Sessao", [this] { Iniciar_Sessao(); }},
        {"Escrever_Titulo", [this] { Escrever_Titulo(); }},
        {"Atribuir_Legendas", [this] { Atribuir_Legendas(); }},
        {"Preencher_Filtro", [this] { Preencher_Filtro(); }},
        {"Adicionar_Icone", [this] { Adicionar_Icone(); }},
        {"Minimizar", [this] { Minimizar(); }},
    };
}

void Arranque::Executar()
{
    for (const Passo &passo : Passos()) skipFailure(passo.executar);
}

void Arranque::Escrever_Data()
{
    const QDate hoje = platform_.clock.today();
    control<QAbstractButton>(janela_, u"cmdData"_s).setText(QLocale::system().toString(hoje, QLocale::LongFormat));
}

// An installation that was never confirmed in the options has no path yet: this is its first run.
void Arranque::Escolher_Idioma()
{
    if (!geral_.ini.Ler_Ini(u"basedados"_s, u"caminhobd"_s).isEmpty()) return;
    frmSeleccionarIdioma(geral_, platform_).exec();
}

// Nobody has logged in yet, so the per-user sections are read under their bare names.
void Arranque::Ler_Configuracao()
{
    Geral &g = geral_;
    const auto ler = [&](const char16_t *seccao, const char16_t *chave) {
        return g.ini.Ler_Ini(QString::fromUtf16(seccao), QString::fromUtf16(chave));
    };
    const auto ler_inteiro = [&](const char16_t *seccao, const char16_t *chave, qint16 &destino) {
        const QString texto = ler(seccao, chave);
        skipFailure([&] { destino = Inteiro(texto); });
    };
    g.AlimentacaoEnvelopes = ler(u"envelopes", u"alimentacao");
    ler_inteiro(u"aniversarios", u"dias", g.DiasAniversarios);
    g.AvisoAniversarios = ler(u"aniversarios", u"aviso");
    g.UltimaPastaFotos = ler(u"fotografias", u"lastpathpic");
    g.AutorunArranque = ler(u"arranque", u"autorun");
    g.MinimizarArranque = ler(u"arranque", u"minimizar");
    g.MemoFontName = ler(u"memos", u"fontname");
    g.MemoFontSize = ler(u"memos", u"fontsize");
    g.MemoFontBold = ler(u"memos", u"fontbold");
    g.MemoFontItalic = ler(u"memos", u"fontitalic");
    g.MemoCorFundo = ler(u"memos", u"corfundo");
    g.CaminhoBD = ler(u"basedados", u"caminhobd");
    g.AvisoNovaVersao = ler(u"novaversao", u"aviso");
    ler_inteiro(u"emailnotify", u"activo", g.EmailNotifyActivo);
    ler_inteiro(u"emailnotify", u"minutos", g.EmailNotifyMinutos);
    ler_inteiro(u"messenger", u"activo", g.MessengerActivo);
    g.SomEmail = ler(u"som", u"email");
    g.SomTarefa = ler(u"som", u"tarefa");
}

void Arranque::Ler_TblConfig()
{
    Recordset &rs = geral_.de.Abrir("cmdVerConfig");
    Copiar(rs, "Idioma", geral_.IdiomaActual);
    Copiar(rs, "Versao", geral_.VersaoBD);
    Copiar(rs, "Remetente", geral_.RemetenteBD);
    Copiar(rs, "Destinatario", geral_.DestinatarioBD);
    rs.Close();
    // The toolkit's own words ("Yes", "Cancel") follow the program's language.
    if (const Idioma *idioma = idiomas::Procurar(geral_.IdiomaActual))
        useToolkitLanguage(QString::fromUtf16(idioma->codigo));
}

void Arranque::Iniciar_Sessao()
{
    if (Ha_Utilizadores()) {
        frmLogin(geral_, platform_).exec();
        Ler_Configuracao_Do_Utilizador();
    } else {
        Dar_Todos_Os_Direitos();
    }
    geral_.de.Rs("cmdVerUsers").Close();
}

// A test that fails counts as passed: without a database the login comes up, and ends the process.
bool Arranque::Ha_Utilizadores()
{
    bool ha = true;
    skipFailure([&] { ha = geral_.de.Abrir("cmdVerUsers").RecordCount() != 0; });
    return ha;
}

void Arranque::Ler_Configuracao_Do_Utilizador()
{
    const auto ler = [&](const QString &seccao, const QString &chave) {
        return geral_.ini.Ler_Ini(geral_.Seccao_Do_Utilizador(seccao), chave);
    };
    skipFailure([&] { geral_.EmailNotifyActivo = Inteiro(ler(u"emailnotify"_s, u"activo"_s)); });
    skipFailure([&] { geral_.EmailNotifyMinutos = Inteiro(ler(u"emailnotify"_s, u"minutos"_s)); });
    // An unset key keeps the earlier value.
    const QString activo = ler(u"messenger"_s, u"activo"_s);
    if (!activo.isEmpty()) skipFailure([&] { geral_.MessengerActivo = Inteiro(activo); });
    geral_.SomEmail = ler(u"som"_s, u"email"_s);
    geral_.SomTarefa = ler(u"som"_s, u"tarefa"_s);
}

void Arranque::Dar_Todos_Os_Direitos()
{
    Sessao &sessao = geral_.SessaoActual;
    sessao.Adicionar = sessao.Editar = sessao.Eliminar = sessao.Grupos = sessao.Utilizadores = true;
    sessao.IdUtilizador = u"0"_s;
}

void Arranque::Escrever_Titulo()
{
    janela_.setWindowTitle(u"Morvex %1 %2"_s.arg(geral_.VersaoBD, geral_.SessaoActual.Utilizador));
}

void Arranque::Atribuir_Legendas() { legendas::Atribuir(janela_, geral_); }

void Arranque::Preencher_Filtro() { lista_.Carregar_Grupos(); }

void Arranque::Adicionar_Icone() { tray_.Adicionar_Icone(janela_.windowTitle()); }

void Arranque::Minimizar()
{
    if (geral_.MinimizarArranque == u"sim"_s) tray_.Minimizar_Tray();
}
