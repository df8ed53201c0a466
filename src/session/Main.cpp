#include "session/Main.h"

#include "contacts/CartaoContacto.h"
#include "contacts/ListaContactos.h"
#include "data/Geral.h"
#include "platform/DisabledWindow.h"
#include "platform/Platform.h"
#include "platform/Units.h"
#include "session/Ajuda.h"
#include "session/Arranque.h"
#include "session/frmSobre.h"
#include "session/Sair.h"
#include "session/SystemTray.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace
{
constexpr unsigned cor_ponto_apagado = 0xF8F8F8;
constexpr unsigned cor_ponto_aceso = 0;

void Pintar(QWidget &ponto, unsigned cor)
{
    QPalette palette = ponto.palette();
    palette.setColor(QPalette::Window, colour(cor));
    ponto.setPalette(palette);
}
} // namespace

Main::Main(Geral &geral, Platform &platform) : geral_(geral), platform_(platform)
{
    setupUi(this);
    Pintar(*PontoTarefas, cor_ponto_apagado);
    cartao_ = new CartaoContacto(*this, geral_, platform_);
    lista_ = new ListaContactos(*this, geral_, *cartao_);
    tray_ = new SystemTray(*this, *MenuSystemTray, geral_, platform_);

    connect(&geral_.temporizadores.timerPonto, &QTimer::timeout, this, &Main::timerPonto_Timer);
    connect(lblTemporizador, &Label::Change, this, &Main::lblTemporizador_Change);
    connect(ListaNomes, &ListBox::RightButtonUp, this, [this](const QPoint &lugar) {
        if (ListaNomes->ListIndex() >= 0) RightClick->popup(lugar);
    });
    Ligar_Menus();
    Ligar_Teclas();
}

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

    for (QAction *topicos : {TopicosAjuda, this->ajuda})
        connect(topicos, &QAction::triggered, this, [this] { ::ajuda::TopicosAjuda(geral_, platform_.shell); });
    connect(Sugerir, &QAction::triggered, this, [this] { ::ajuda::Sugerir(platform_.shell); });
    connect(Leiame, &QAction::triggered, this, [this] { ::ajuda::Leiame(geral_, platform_.shell); });
    for (QAction *sobre : {Sobre, SystemTraySobre}) connect(sobre, &QAction::triggered, this, &Main::Sobre_Click);
}

void Main::Ligar_Teclas()
{
    const auto tecla = [this](Qt::Key codigo, auto accao) {
        connect(new QShortcut(codigo, this), &QShortcut::activated, this, accao);
    };
    tecla(Qt::Key_F2, [this] { cmdEditar->click(); }); // a disabled button takes no click
    tecla(Qt::Key_Delete, [this] { cmdEliminar->click(); });
    tecla(Qt::Key_Escape, [this] { tray_->Minimizar_Tray(); });
}

void Main::Carregar()
{
    Arranque(*this, geral_, platform_, *lista_, *tray_).Executar();
    if (geral_.MinimizarArranque != u"sim"_s) show();
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
    const bool aceso = EstadoPonto == "1"_L1;
    Pintar(*PontoTarefas, aceso ? cor_ponto_apagado : cor_ponto_aceso);
    EstadoPonto = aceso ? u"2"_s : u"1"_s;
}

void Main::lblTemporizador_Change()
{
    if (lblTemporizador->text() != "0"_L1) return;
    geral_.temporizadores.TimerMailNotification.setEnabled(false);
    Q_EMIT VerificarConta();
}

void Main::Sobre_Click()
{
    const DisabledWindow desactivada(*this);
    frmSobre(geral_, this).exec();
}
