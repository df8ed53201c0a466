#include "session/LugarDaJanela.h"

#include "controls/ReachablePlace.h"
#include "controls/Units.h"
#include "data/ReadWriteINI.h"
#include "data/TamanhoGuardado.h"

#include <QEvent>
#include <QLayout>
#include <QMainWindow>
#include <QScreen>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace
{
constexpr int ate_ao_fim_de_um_arrasto = 400; // milliseconds
const auto sim = u"sim"_s;
constexpr int titulo_do_costume = 28; // pixels; before it is first shown a window does not know its own
} // namespace

LugarDaJanela::LugarDaJanela(QMainWindow &janela, ReadWriteINI &ini)
    : QObject(&janela), janela_(janela), ini_(ini)
{
    depois_.setSingleShot(true);
    depois_.setInterval(ate_ao_fim_de_um_arrasto);
    connect(&depois_, &QTimer::timeout, this, &LugarDaJanela::Guardar);
}

void LugarDaJanela::Repor()
{
    Ler();
    auto *tamanho = new TamanhoGuardado(*janela_.centralWidget(), ini_, u"janela"_s);
    const QSize menor = janela_.layout()->totalMinimumSize();
    const QSize ecra = janela_.screen()->availableGeometry().size();
    janela_.resize((menor + tamanho->Folga()).boundedTo(ecra).expandedTo(menor));
    if (maximizada_) janela_.setWindowState(janela_.windowState() | Qt::WindowMaximized);
    janela_.installEventFilter(this);
}

// In twips of the screen, fifteen a pixel, as the places of the notes.
void LugarDaJanela::Ler()
{
    bool ha_left = false;
    bool ha_top = false;
    const int left = ini_.Ler_Ini(u"janela"_s, u"left"_s).toInt(&ha_left);
    const int top = ini_.Ler_Ini(u"janela"_s, u"top"_s).toInt(&ha_top);
    if (ha_left && ha_top) lugar_ = QPoint(left / twipsPerPixel, top / twipsPerPixel);
    maximizada_ = ini_.Ler_Ini(u"janela"_s, u"maximizada"_s) == sim;
}

bool LugarDaJanela::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::WindowStateChange) Guardar_Estado();
    if (event->spontaneous() && event->type() != QEvent::Move) return false;
    if (event->type() == QEvent::Show) Ir_Para_O_Lugar();
    if (event->type() == QEvent::Hide) Guardar();
    if (event->type() == QEvent::Move && janela_.isVisible()) depois_.start();
    return false;
}

// By the inner corner, for the frame of a window that was never shown has no known size. The window system
// has to be told even of a place that the window has already, or it looks for one itself.
void LugarDaJanela::Ir_Para_O_Lugar()
{
    if (!lugar_) return;
    const int dela = janela_.geometry().top() - janela_.frameGeometry().top();
    const QPoint titulo(0, dela > 0 ? dela : titulo_do_costume);
    const QRect janela(*lugar_ - titulo, janela_.size());
    const QPoint alcancavel = reachablePlace(janela, titulo.y(), availableScreens()) + titulo;
    posta_ = alcancavel == *lugar_ ? std::nullopt : std::optional(alcancavel);
    janela_.setGeometry({alcancavel, janela_.size()});
    if (QWindow *no_ambiente = janela_.windowHandle()) no_ambiente->setPosition(alcancavel);
}

void LugarDaJanela::Guardar()
{
    depois_.stop();
    const QPoint canto = janela_.geometry().topLeft();
    if (janela_.windowState() != Qt::WindowNoState || canto == posta_ || canto == lugar_) return;
    lugar_ = canto;
    posta_.reset();
    ini_.Escrever_Ini(u"janela"_s, u"left"_s, QString::number(canto.x() * twipsPerPixel));
    ini_.Escrever_Ini(u"janela"_s, u"top"_s, QString::number(canto.y() * twipsPerPixel));
}

// A minimised window is still one that was maximised or was not.
void LugarDaJanela::Guardar_Estado()
{
    const bool maximizada = janela_.windowState().testFlag(Qt::WindowMaximized);
    if (!janela_.isVisible() || maximizada == maximizada_) return;
    maximizada_ = maximizada;
    ini_.Escrever_Ini(u"janela"_s, u"maximizada"_s, maximizada ? sim : u"nao"_s);
}
