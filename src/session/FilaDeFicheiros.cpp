#include "session/FilaDeFicheiros.h"

#include "session/SystemTray.h"

#include <QApplication>
#include <QWidget>

namespace
{
constexpr int pausa = 200; // ms between two looks at what stands in front
} // namespace

FilaDeFicheiros::FilaDeFicheiros(QWidget &janela, SystemTray &tray,
                                 std::function<void(const QString &)> abrir)
    : QObject(&janela), janela_(janela), tray_(tray), abrir_(std::move(abrir))
{
    espera_.setInterval(pausa);
    connect(&espera_, &QTimer::timeout, this, &FilaDeFicheiros::Tentar);
}

void FilaDeFicheiros::Comecar()
{
    comecou_ = true;
    if (!caminhos_.isEmpty()) espera_.start();
}

void FilaDeFicheiros::Juntar(const QStringList &caminhos)
{
    caminhos_ << caminhos;
    if (comecou_ && !caminhos_.isEmpty()) espera_.start();
}

// A form that steps aside for another one leaves the window disabled meanwhile.
bool FilaDeFicheiros::Ha_Formulario_Aberto() const
{
    return QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr ||
           !janela_.isEnabled();
}

// The toolkit calls no timer anew while its handler runs, so one file is at work at a time.
void FilaDeFicheiros::Tentar()
{
    if (Ha_Formulario_Aberto()) return;
    if (!tray_.Destrancar()) caminhos_.clear();
    if (caminhos_.isEmpty()) return Acabar();
    if (!trazida_) return Trazer_Janela();
    abrir_(caminhos_.takeFirst());
}

// The desktop brings the window forward in its own time. A form that came at once would lose the keyboard to
// it.
void FilaDeFicheiros::Trazer_Janela()
{
    trazida_ = true;
    tray_.Trazer_Janela();
    janela_.raise();
    janela_.activateWindow();
}

void FilaDeFicheiros::Acabar()
{
    trazida_ = false;
    espera_.stop();
}
