#include "reminders/Aniversarios.h"

#include "data/Geral.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "reminders/frmAniversarios.h"
#include "reminders/Momento.h"
#include "reminders/ProximosAniversarios.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

Aniversarios::Aniversarios(QWidget &janela, Geral &geral, Platform &platform)
    : QObject(&janela), janela_(janela), geral_(geral), platform_(platform)
{
    connect(&geral_.temporizadores.timerAniversarios, &QTimer::timeout, this,
            &Aniversarios::timerAniversarios_Timer);
}

Aniversarios::~Aniversarios() = default;

// The interval is shorter than a minute, so a tick lands in the first minute of each day. A second one
// refills the same list.
void Aniversarios::timerAniversarios_Timer()
{
    if (geral_.AvisoAniversarios != "0"_L1) return;
    if (Texto_Da_Hora(platform_.clock.now().time()) != "00:00"_L1) return;
    skipFailure([&] {
        const auto largar = qScopeGuard([this] { Largar_O_Escondido(); });
        Ler();
        if (Ha_Aniversarios()) Formulario().show();
    });
}

void Aniversarios::Mostrar()
{
    frmAniversarios &form = Formulario();
    skipFailure([&] { Ler(); });
    form.show();
    form.raise();
    form.activateWindow();
}

void Aniversarios::Mostrar_Ao_Iniciar()
{
    const auto largar = qScopeGuard([this] { Largar_O_Escondido(); });
    Ler();
    if (!Ha_Aniversarios()) return;
    Formulario().Mostrar_Foto();
    Formulario().exec();
}

// What could not be filled goes again: nobody could close it to bring the timers back.
void Aniversarios::Largar_O_Escondido()
{
    if (formulario_ != nullptr && !formulario_->isVisible()) formulario_.reset();
}

frmAniversarios &Aniversarios::Formulario()
{
    if (formulario_ == nullptr) {
        formulario_ = std::make_unique<frmAniversarios>(geral_, janela_);
        connect(formulario_.get(), &QDialog::finished, this, &Aniversarios::Form_Unload);
    }
    return *formulario_;
}

// Without rows the list keeps what it shows. A form that would stay out of sight is not loaded, since its
// load stops the timers until it closes.
void Aniversarios::Ler()
{
    const auto proximos = Proximos_Aniversarios(geral_, platform_.clock.today(), geral_.DiasAniversarios);
    if (proximos && (!proximos->empty() || formulario_ != nullptr))
        Formulario().PreencherAniversarios(*proximos);
}

bool Aniversarios::Ha_Aniversarios() const
{
    return formulario_ != nullptr && formulario_->ListViewAniversarios->topLevelItemCount() > 0;
}

void Aniversarios::Form_Unload() { formulario_.release()->deleteLater(); }
