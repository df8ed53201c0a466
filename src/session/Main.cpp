#include "session/Main.h"

#include "cards/ContactosLargados.h"
#include "cards/EntradaDeContactos.h"
#include "cards/SaidaDeContactos.h"
#include "contacts/AccoesContacto.h"
#include "contacts/CartaoContacto.h"
#include "contacts/DesfazerEliminacao.h"
#include "contacts/EdicaoContacto.h"
#include "contacts/Grupos.h"
#include "contacts/ListaContactos.h"
#include "contacts/Pesquisa.h"
#include "contacts/ProcuraRapida.h"
#include "controls/Contrast.h"
#include "controls/DisabledWindow.h"
#include "controls/Scale.h"
#include "controls/Units.h"
#include "data/Fotografias.h"
#include "data/Geral.h"
#include "interchange/FicheirosPedidos.h"
#include "interchange/Intercambio.h"
#include "memos/Memos.h"
#include "online/CicloCorreio.h"
#include "online/Presenca.h"
#include "online/VerificarVersao.h"
#include "platform/FreeMemory.h"
#include "platform/Platform.h"
#include "printing/Impressao.h"
#include "reminders/Lembretes.h"
#include "report/CrystalReport.h"
#include "session/Ajuda.h"
#include "session/Arranque.h"
#include "session/AvisosDosPostos.h"
#include "session/DisposicaoDaJanela.h"
#include "session/FilaDeFicheiros.h"
#include "session/frmOpcoes.h"
#include "session/frmSobre.h"
#include "session/LugarDaJanela.h"
#include "session/Sair.h"
#include "session/SystemTray.h"
#include "session/TeclaDeAjuda.h"
#include "session/Utilizadores.h"
#include "sincronizacao/Sincronizador.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QShortcut>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{
constexpr QStringView servidor = u"" MORVEX_WEB_HOST; // of help, suggestions and versions
constexpr qint16 texto_sem_servidor = 450;
constexpr auto fim_do_arranque = 1s; // the window is in view and painted by then
constexpr unsigned cor_ponto_apagado = 0xF8F8F8;

// The dot that is out hardly shows on its window, be that light or dark; the one that is lit stands out.
QColor Cor_Do_Ponto(const QPalette &janela, bool aceso)
{
    const QColor aceso_ = lettersOn(janela.color(QPalette::Window));
    if (aceso) return aceso_;
    return aceso_ == QColor(Qt::black) ? colour(cor_ponto_apagado) : janela.color(QPalette::Base);
}

std::unique_ptr<CrystalReport> Novo_Relatorio(Geral &geral, Platform &platform, QWidget &janela)
{
    auto relatorio = std::make_unique<CrystalReport>(
        platform.boxes, platform.dialogs, platform.clock, [&geral] { return geral.IdiomaActual; }, &janela);
    relatorio->setHeldPictures(
        [&geral](const QString &Fotografia) { return FotografiasDaBase(geral.de).Ler(Fotografia); });
    return relatorio;
}
} // namespace

Main::Main(Geral &geral, Platform &platform)
    : geral_(geral),
      platform_(platform),
      CrystalReport1(Novo_Relatorio(geral, platform, *this)),
      relatorioDaTarefa_(Novo_Relatorio(geral, platform, *this))
{
    scale::apply(*this);
    Pintar_Ponto();
    cartao_ = new CartaoContacto(*this, geral_, platform_);
    new DisposicaoDaJanela(*this, *cartao_);
    lugar_ = new LugarDaJanela(*this, geral_.ini);
    lista_ = new ListaContactos(*this, geral_, *cartao_);
    tray_ = new SystemTray(*this, *MenuSystemTray, geral_, platform_);
    lembretes_ = new Lembretes(*this, geral_, platform_, *relatorioDaTarefa_);
    memos_ = new Memos(*this, geral_, platform_);
    presenca_ = new Presenca(*this, geral_, platform_);
    correio_ = new CicloCorreio(*this, geral_, platform_);

    auto *utilizadores = new ::Utilizadores(*this, geral_, platform_); // not the menus of these names
    auto *desfazer = new DesfazerEliminacao(*this, geral_, platform_, *lista_);
    auto *grupos = new ::Grupos(*this, geral_, platform_, *lista_, *desfazer);
    auto *edicao = new EdicaoContacto(*this, geral_, platform_, *lista_);
    avisos_ = new AvisosDosPostos(geral_, *txtProcura, this);

    auto *pesquisa = new Pesquisa(*this, geral_, platform_);
    procuraRapida_ = new ProcuraRapida(*this, geral_, platform_, *lista_);
    new AccoesContacto(*this, geral_, platform_, *lista_, *cartao_, *desfazer);

    new Impressao(*this, geral_, platform_, *CrystalReport1);
    auto *intercambio = new Intercambio(*this, geral_, platform_, *CrystalReport1);
    auto *entrada = new EntradaDeContactos(*this, geral_, platform_, *desfazer);
    new SaidaDeContactos(*this, geral_, platform_);
    sincronizador_ = new Sincronizador(*this, geral_, platform_);
    auto *ficheiros = new FicheirosPedidos(*this, *intercambio, *entrada);
    fila_ = new FilaDeFicheiros(*this, *tray_,
                                [ficheiros](const QString &caminho) { ficheiros->Abrir(caminho); });
    auto *largados = new ContactosLargados(*this);
    connect(largados, &ContactosLargados::Ficheiros, fila_, &FilaDeFicheiros::Juntar);
    connect(largados, &ContactosLargados::Cartoes, entrada, &EntradaDeContactos::ImportarCartoes,
            Qt::QueuedConnection);
    new VerificarVersao(*this, geral_, platform_, servidor.toString());
    new TeclaDeAjuda(*this, geral_, platform_);

    const auto ler_de_novo = [this] { lista_->Carregar_Tabela(); };
    connect(intercambio, &Intercambio::ContactosMudados, lista_, ler_de_novo);
    connect(entrada, &EntradaDeContactos::ContactosMudados, lista_, ler_de_novo);
    connect(sincronizador_, &Sincronizador::ContactosMudados, lista_, [this, ler_de_novo] {
        const int linha = ListaNomes->ListIndex();
        const int antes = linha < 0 ? 0 : ListaNomes->ItemData(linha);
        ler_de_novo();
        for (int i = 0; antes != 0 && i < ListaNomes->ListCount(); ++i)
            if (ListaNomes->ItemData(i) == antes) return ListaNomes->setListIndex(i);
    });
    connect(sincronizador_, &Sincronizador::GruposMudados, lista_, &ListaContactos::Carregar_Grupos);
    connect(sincronizador_, &Sincronizador::Abrir_Sincronizar, this, [this] {
        if (tray_->Destrancar()) sincronizador_->Abrir();
    });
    connect(pesquisa, &Pesquisa::Trazer_Main, tray_, &SystemTray::Trazer_Janela);
    connect(procuraRapida_, &ProcuraRapida::Minimizar_Tray, tray_, &SystemTray::Minimizar_Tray);
    connect(desfazer, &DesfazerEliminacao::Eliminado, procuraRapida_, &ProcuraRapida::Tomar_Eliminacao);
    connect(edicao, &EdicaoContacto::Sem_Grupos, grupos, &::Grupos::Mostrar_frmNovoGrupo);
    connect(grupos, &::Grupos::CriarUtilizador, utilizadores, &::Utilizadores::Mostrar_frmNovoUser);
    connect(&geral_.temporizadores.timerPonto, &QTimer::timeout, this, &Main::timerPonto_Timer);
    connect(correio_, &CicloCorreio::Abrir_Opcoes, this, [this] {
        if (tray_->Destrancar()) Opcoes_Click(); // its card is in view while the window is locked
    });
    connect(cartao_, &CartaoContacto::OutrosEnderecos, presenca_, &Presenca::Mostrar_Guardado);
    connect(ListaNomes, &ListBox::RightButtonUp, this, [this](const QPoint &lugar) {
        if (ListaNomes->ListIndex() >= 0) RightClick->popup(lugar);
    });
    tray_->Antes_De_Mostrar([this] { return Responder_A_Aviso(); });
    connect(avisos_, &AvisosDosPostos::Utilizadores, utilizadores, &::Utilizadores::Seguir);
    connect(utilizadores, &::Utilizadores::Eliminado, this, [this] {
        sincronizador_->Esquecer_Palavra_Passe();
        Inicio().Entrar_De_Novo();
    });
    Ligar_Menus();
    Ligar_Teclas();
    Ligar_Avisos(*edicao);
}

Main::~Main() = default;

void Main::Ligar_Menus()
{
    connect(Fechar, &QAction::triggered, tray_, &SystemTray::Minimizar_Tray);
    connect(Sair, &QAction::triggered, this, [this] { ::Sair(geral_, platform_, this); });
    connect(SystemTraySair, &QAction::triggered, Sair, &QAction::trigger);
    connect(SystemTrayAbrirMorvex, &QAction::triggered, tray_, &SystemTray::Restaurar_Janela);

    for (QAction *anterior : {Anterior, cima})
        connect(anterior, &QAction::triggered, lista_, &ListaContactos::Contacto_Anterior);
    for (QAction *seguinte : {Seguinte, baixo})
        connect(seguinte, &QAction::triggered, lista_, &ListaContactos::Contacto_Seguinte);

    for (QAction *abrir : {Opcoes, opcoes})
        connect(abrir, &QAction::triggered, this, &Main::Opcoes_Click);
    for (QAction *topicos : {TopicosAjuda, this->ajuda})
        connect(topicos, &QAction::triggered, this,
                [this] { ::ajuda::TopicosAjuda(geral_, platform_, servidor); });
    connect(Sugerir, &QAction::triggered, this, [this] { ::ajuda::Sugerir(geral_, platform_, servidor); });
    connect(Leiame, &QAction::triggered, this, [this] { ::ajuda::Leiame(geral_, platform_); });
    for (QAction *sobre : {Sobre, SystemTraySobre})
        connect(sobre, &QAction::triggered, this, &Main::Sobre_Click);
}

void Main::Ligar_Teclas()
{
    using Atalho = std::pair<QAction *, QKeySequence>;
    // The entries of the menu that opens on the list only show the key: it is no menu of the window's bar.
    for (const auto &[entrada, tecla] :
         {Atalho(NovoContacto, Qt::CTRL | Qt::Key_N), Atalho(EditarContacto, Qt::Key_F2),
          Atalho(RightClickEditar, Qt::Key_F2), Atalho(EliminarContacto, Qt::Key_Delete),
          Atalho(RightClickEliminar, Qt::Key_Delete), Atalho(procurar, Qt::CTRL | Qt::Key_F),
          Atalho(ImprimirLista, Qt::CTRL | Qt::Key_P), Atalho(Sair, Qt::CTRL | Qt::Key_Q)})
        entrada->setShortcut(tecla);
    auto *esconder = new QShortcut(Qt::Key_Escape, this);
    connect(esconder, &QShortcut::activated, tray_, &SystemTray::Minimizar_Tray);
    connect(procuraRapida_, &ProcuraRapida::KeyPreview, esconder, &QShortcut::setEnabled);
}

Arranque Main::Inicio()
{
    return {*this, geral_, platform_, {*lista_, *memos_, *tray_, *lembretes_, *presenca_, *correio_}};
}

void Main::Ligar_Avisos(EdicaoContacto &edicao)
{
    const AvisosDosPostos &avisos = *avisos_;
    connect(&avisos, &AvisosDosPostos::Contactos, lista_, &ListaContactos::Seguir_Contactos);
    connect(&avisos, &AvisosDosPostos::Grupos, lista_, &ListaContactos::Seguir_Grupos);
    connect(&avisos, &AvisosDosPostos::Tarefas, lembretes_, &Lembretes::Tarefas_Mudaram);
    connect(&avisos, &AvisosDosPostos::Memos, memos_, &::Memos::Seguir);
    connect(&avisos, &AvisosDosPostos::Configuracao, this, [this] { Inicio().Seguir_Configuracao(); });
    connect(&avisos, &AvisosDosPostos::ContactosMudadosAgora, &edicao, &EdicaoContacto::Contactos_Mudados);
    connect(&avisos, &AvisosDosPostos::ContactosEliminadosAgora, &edicao,
            &EdicaoContacto::Contactos_Eliminados);
    connect(&avisos, &AvisosDosPostos::Perdido, this, [this] { Mostrar_Sem_Servidor(true); });
    connect(&avisos, &AvisosDosPostos::DeVolta, this, [this] { Mostrar_Sem_Servidor(false); });
    connect(&avisos, &AvisosDosPostos::DeVolta, memos_, &::Memos::Guardar_O_Que_Falta);
}

void Main::Mostrar_Sem_Servidor(bool sem)
{
    lblServidor->setText(sem ? geral_.Ler_Idioma(texto_sem_servidor) : QString());
    lblServidor->setVisible(sem);
}

void Main::Carregar()
{
    Inicio().Executar();
    lugar_->Repor();
    if (!geral_.Comeca_Minimizado()) show();
    fila_->Comecar();
    sincronizador_->Iniciar();
    avisos_->Comecar();
    QTimer::singleShot(fim_do_arranque, this, [this] { Largar_Memoria(); });
}

// The start read names and birthdays; once the window stands the program mostly waits.
void Main::Largar_Memoria()
{
    geral_.de.Largar_Memoria();
    returnFreeMemory();
}

void Main::Abrir_Depois(const QStringList &ficheiros) { fila_->Juntar(ficheiros); }

bool Main::Responder_A_Aviso()
{
    return lembretes_->Responder() || correio_->Responder() || sincronizador_->Responder();
}

void Main::Chamar(const QStringList &ficheiros)
{
    fila_->Juntar(ficheiros);
    QWidget *frente = QApplication::activeModalWidget();
    if (frente == nullptr) {
        if (!ficheiros.isEmpty()) return; // the window comes with the first of them, and asks only then
        if (Responder_A_Aviso()) return;
        tray_->Trazer_Janela();
        frente = this;
    }
    frente->raise();
    frente->activateWindow();
}

// Only Sair ends the program. When the whole desktop session ends, nobody holds it up.
void Main::closeEvent(QCloseEvent *event)
{
    if (qGuiApp->isSavingSession() || !isVisible()) return;
    tray_->Minimizar_Tray();
    event->ignore();
}

void Main::timerPonto_Timer()
{
    EstadoPonto = !EstadoPonto;
    Pintar_Ponto();
}

void Main::Pintar_Ponto()
{
    QPalette palette = PontoTarefas->palette();
    palette.setColor(QPalette::Window, Cor_Do_Ponto(this->palette(), EstadoPonto));
    PontoTarefas->setPalette(palette);
}

void Main::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) Pintar_Ponto();
}

void Main::Opcoes_Click()
{
    const DisabledWindow desactivada(*this);
    frmOpcoes(geral_, platform_, *this).exec();
}

void Main::Sobre_Click()
{
    const DisabledWindow desactivada(*this);
    frmSobre(geral_, this).exec();
}
