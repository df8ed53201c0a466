#include "session/Arranque.h"

#include "contacts/ListaContactos.h"
#include "data/frmSeleccionarIdioma.h"
#include "data/Geral.h"
#include "data/Idiomas.h"
#include "data/Inteiro.h"
#include "janela/Janela.h"
#include "memos/Memos.h"
#include "online/CicloCorreio.h"
#include "online/Presenca.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "platform/ToolkitLanguage.h"
#include "reminders/Lembretes.h"
#include "session/BaseDesaparecida.h"
#include "session/frmLoading.h"
#include "session/frmLogin.h"
#include "session/frmOpcoes.h"
#include "session/Legendas.h"
#include "session/ServidorAusente.h"
#include "session/SystemTray.h"
#include "session/Titulo.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_utilizador_eliminado = 453;

// One column of the configuration row into one variable.
void Copiar(const Recordset &rs, const char *coluna, QString &destino)
{
    skipFailure([&] { destino = rs.Fields(coluna).text(); });
}
} // namespace

Arranque::Arranque(Janela &janela, Geral &geral, Platform &platform, const Partes &partes)
    : janela_(janela), geral_(geral), platform_(platform), partes_(partes)
{
}

std::vector<Arranque::Passo> Arranque::Passos() &
{
    return {
        {"Escrever_Data", [this] { Escrever_Data(); }},
        {"Escolher_Idioma", [this] { Escolher_Idioma(); }},
        {"Ler_Configuracao", [this] { Ler_Configuracao(); }},
        {"Ler_TblConfig", [this] { Ler_TblConfig(); }},
        {"Iniciar_Sessao", [this] { Iniciar_Sessao(); }},
        {"Escrever_Titulo", [this] { Escrever_Titulo(); }},
        {"Confirmar_Opcoes", [this] { Confirmar_Opcoes(); }},
        {"Atribuir_Legendas", [this] { Atribuir_Legendas(); }},
        {"Preencher_Filtro", [this] { Preencher_Filtro(); }},
        {"Restaurar_Memos", [this] { Restaurar_Memos(); }},
        {"Adicionar_Icone", [this] { Adicionar_Icone(); }},
        {"Avisar_Aniversarios", [this] { Avisar_Aniversarios(); }},
        {"Minimizar", [this] { Minimizar(); }},
        {"Sincronizar_Messenger", [this] { Sincronizar_Messenger(); }},
        {"Iniciar_Correio", [this] { Iniciar_Correio(); }},
    };
}

void Arranque::Executar()
{
    for (const Passo &passo : Passos())
        skipFailure(passo.executar);
}

void Arranque::Escrever_Data()
{
    const QDate hoje = platform_.clock.today();
    janela_.cmdData->setText(QLocale::system().toString(hoje, QLocale::LongFormat));
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
    ReadWriteINI::Leitura ini(g.ini);
    const auto ler = [&](const char16_t *seccao, const char16_t *chave) {
        return ini.Ler_Ini(QString::fromUtf16(seccao), QString::fromUtf16(chave));
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
    g.de.Base().Tomar(ler(u"basedados", u"caminhobd"));
    g.AvisoNovaVersao = ler(u"novaversao", u"aviso");
    ler_inteiro(u"emailnotify", u"activo", g.EmailNotifyActivo);
    ler_inteiro(u"emailnotify", u"minutos", g.EmailNotifyMinutos);
    ler_inteiro(u"messenger", u"activo", g.MessengerActivo);
    g.SomEmail = ler(u"som", u"email");
    g.SomTarefa = ler(u"som", u"tarefa");
}

// The first use of the database, but for a first run.
void Arranque::Ler_TblConfig()
{
    base_desaparecida::Procurar(geral_, platform_);
    Recordset &rs = Abrir_TblConfig();
    Copiar(rs, "Idioma", geral_.IdiomaActual);
    Copiar(rs, "Versao", geral_.VersaoBD);
    Copiar(rs, "Remetente", geral_.RemetenteBD);
    Copiar(rs, "Destinatario", geral_.DestinatarioBD);
    rs.Close();
    if (geral_.IdiomaActual.isEmpty()) Semear_O_Servidor();
    // The toolkit's own words ("Yes", "Cancel") follow the program's language.
    if (const Idioma *idioma = idiomas::Procurar(geral_.IdiomaActual))
        useToolkitLanguage(QString::fromUtf16(idioma->codigo), geral_.IdiomaActual == u"PortuguesPT"_s);
}

// One that its administrator made without any rows gets those to begin with from the first desk.
void Arranque::Semear_O_Servidor()
{
    if (!geral_.de.Num_Servidor()) return;
    Recordset &rs = geral_.de.Abrir("cmdListarRepeticao");
    const bool vazio = rs.Eof();
    rs.Close();
    if (!vazio) return;
    frmSeleccionarIdioma(geral_, platform_).exec();
    Recordset &config = geral_.de.Abrir("cmdVerConfig");
    Copiar(config, "Idioma", geral_.IdiomaActual);
    config.Close();
}

// Nothing of a newer program's database can be used, not even its words: without these the login would be a
// riddle.
Recordset &Arranque::Abrir_TblConfig()
{
    try {
        servidor_ausente::Insistir(geral_, platform_, [this] { geral_.de.Abrir("cmdVerConfig"); });
        return geral_.de.Rs("cmdVerConfig");
    } catch (const Failure &falha) {
        if (falha.kind() != Failure::Kind::DatabaseNewer) throw;
        platform_.boxes.showError(falha);
        platform_.process.end();
        throw;
    }
}

void Arranque::Iniciar_Sessao()
{
    if (Ha_Utilizadores())
        frmLogin(geral_, platform_).exec();
    else
        Dar_Todos_Os_Direitos();
    Ler_Configuracao_Do_Utilizador();
    geral_.de.Rs("cmdVerUsers").Close();
}

// A test that fails counts as passed: without a database the login comes up, and ends the process. A server that
// is away is waited for.
bool Arranque::Ha_Utilizadores()
{
    bool ha = true;
    const auto ver = [&] { ha = geral_.de.Abrir("cmdVerUsers").RecordCount() != 0; };
    skipFailure([&] { servidor_ausente::Insistir(geral_, platform_, ver); });
    return ha;
}

// A household without users has sections as well, those of the user 0.
void Arranque::Ler_Configuracao_Do_Utilizador()
{
    ReadWriteINI::Leitura ini(geral_.ini);
    const auto ler = [&](const QString &seccao, const QString &chave) {
        return ini.Ler_Ini(geral_.Seccao_Do_Utilizador(seccao), chave);
    };
    skipFailure([&] { geral_.EmailNotifyActivo = Inteiro(ler(u"emailnotify"_s, u"activo"_s)); });
    skipFailure([&] { geral_.EmailNotifyMinutos = Inteiro(ler(u"emailnotify"_s, u"minutos"_s)); });
    // An unset key keeps the earlier value.
    const QString activo = ler(u"messenger"_s, u"activo"_s);
    if (!activo.isEmpty()) skipFailure([&] { geral_.MessengerActivo = Inteiro(activo); });
    // An unset sound of somebody who logged in is the program's own, whatever the common section says.
    const bool entrou = !geral_.SessaoActual.Utilizador.isEmpty();
    const auto ler_som = [&](const QString &chave, QString &destino) {
        const QString som = ler(u"som"_s, chave);
        if (entrou || !som.isEmpty()) destino = som;
    };
    ler_som(u"email"_s, geral_.SomEmail);
    ler_som(u"tarefa"_s, geral_.SomTarefa);
}

void Arranque::Dar_Todos_Os_Direitos()
{
    Sessao &sessao = geral_.SessaoActual;
    sessao.Adicionar = sessao.Editar = sessao.Eliminar = sessao.Grupos = sessao.Utilizadores = true;
    sessao.IdUtilizador = u"0"_s;
}

void Arranque::Entrar_De_Novo()
{
    platform_.boxes.show(geral_.Ler_Idioma(texto_utilizador_eliminado), box::exclamation, &janela_);
    geral_.SessaoActual = {};
    Iniciar_Sessao();
    Escrever_Titulo();
    partes_.lista.Carregar_Grupos();
    partes_.memos.Seguir();
}

void Arranque::Seguir_Configuracao()
{
    Recordset &rs = geral_.de.Abrir("cmdVerConfig");
    Copiar(rs, "Remetente", geral_.RemetenteBD);
    Copiar(rs, "Destinatario", geral_.DestinatarioBD);
    rs.Close();
}

void Arranque::Escrever_Titulo() { janela_.setWindowTitle(Titulo(geral_)); }

// A first run isn't over before its settings were confirmed.
void Arranque::Confirmar_Opcoes()
{
    if (!geral_.ini.Ler_Ini(u"basedados"_s, u"caminhobd"_s).isEmpty()) return;
    frmOpcoes opcoes(geral_, platform_, janela_);
    opcoes.cmdCancelar->setEnabled(false);
    opcoes.exec();
}

void Arranque::Atribuir_Legendas() { legendas::Atribuir(janela_, geral_); }

void Arranque::Preencher_Filtro() { partes_.lista.Carregar_Grupos_Ao_Iniciar(); }

void Arranque::Restaurar_Memos() { partes_.memos.Restaurar(); }

void Arranque::Adicionar_Icone() { partes_.tray.Adicionar_Icone(janela_.windowTitle()); }

// A choice that is no number counts as a wish to be warned. The timers that the list stopped go on either
// way.
void Arranque::Avisar_Aniversarios()
{
    bool avisa = true;
    skipFailure([&] {
        const qint16 aviso = Inteiro(geral_.AvisoAniversarios);
        avisa = aviso == 0 || aviso == 1;
    });
    if (!avisa) return;
    skipFailure([&] { partes_.lembretes.Mostrar_Aniversarios_Ao_Iniciar(); });
    geral_.temporizadores.timerTarefas.setEnabled(true);
    geral_.temporizadores.timerPonto.setEnabled(true);
}

void Arranque::Minimizar()
{
    if (!geral_.Comeca_Minimizado()) return;
    partes_.tray.Minimizar_Tray();
    if (geral_.MessengerActivo == 1) partes_.presenca.SincronizarMessenger();
}

// With the window in view its user sees that the start goes on.
void Arranque::Sincronizar_Messenger()
{
    if (geral_.Comeca_Minimizado() || geral_.MessengerActivo != 1) return;
    skipFailure([&] { Mostrar_frmLoading(); });
    partes_.presenca.SincronizarMessenger();
}

// The small window closes by itself.
void Arranque::Mostrar_frmLoading()
{
    auto *carregando = new frmLoading(geral_, &janela_);
    carregando->setAttribute(Qt::WA_DeleteOnClose);
    carregando->setValor(1);
    carregando->show();
    QObject::connect(&partes_.presenca, &Presenca::Progresso, carregando, &frmLoading::setValor);
}

void Arranque::Iniciar_Correio() { partes_.correio.IniciarMail(); }
