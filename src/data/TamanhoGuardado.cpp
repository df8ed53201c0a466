#include "data/TamanhoGuardado.h"

#include "controls/Units.h"
#include "data/ReadWriteINI.h"

#include <algorithm>
#include <QEvent>

using namespace Qt::StringLiterals;

namespace
{
constexpr int ate_ao_fim_de_um_arrasto = 400; // milliseconds
constexpr int maior_medida = 32767;           // pixels
} // namespace

TamanhoGuardado::TamanhoGuardado(QWidget &controlo, ReadWriteINI &ini, QString seccao)
    : QObject(&controlo), controlo_(controlo), ini_(ini), seccao_(std::move(seccao))
{
    depois_.setSingleShot(true);
    depois_.setInterval(ate_ao_fim_de_um_arrasto);
    connect(&depois_, &QTimer::timeout, this, &TamanhoGuardado::Guardar);
}

QSize TamanhoGuardado::Folga()
{
    const auto lida = [&](const QString &chave) {
        const int medida = pixels(ini_.Ler_Ini(seccao_, chave).toInt());
        return std::clamp(medida, 0, maior_medida);
    };
    const QSize menor = controlo_.minimumSize();
    guardado_ = QSize(lida(u"largura"_s), lida(u"altura"_s)).expandedTo(menor);
    controlo_.installEventFilter(this);
    return guardado_ - menor;
}

bool TamanhoGuardado::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Resize) depois_.start();
    return false;
}

// The size of a whole screen is nobody's measure.
void TamanhoGuardado::Guardar()
{
    if (controlo_.window()->windowState() != Qt::WindowNoState || controlo_.size() == guardado_) return;
    guardado_ = controlo_.size();
    ini_.Escrever_Ini(seccao_, u"largura"_s, QString::number(twips(guardado_.width())));
    ini_.Escrever_Ini(seccao_, u"altura"_s, QString::number(twips(guardado_.height())));
}
