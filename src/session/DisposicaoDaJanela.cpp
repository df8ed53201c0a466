#include "session/DisposicaoDaJanela.h"

#include "contacts/CartaoContacto.h"
#include "janela/Janela.h"

#include <QEvent>

namespace
{
constexpr int tudo = 100;
constexpr int metade = 50;
constexpr int quarto = 25;

QPoint Quota(const QSize &folga, const QPoint &percentagem)
{
    return {folga.width() * percentagem.x() / tudo, folga.height() * percentagem.y() / tudo};
}
} // namespace

DisposicaoDaJanela::DisposicaoDaJanela(Janela &janela, CartaoContacto &cartao)
    : QObject(janela.centralwidget), centro_(*janela.centralwidget), cartao_(cartao)
{
    const auto parte = [this](QWidget *controlo, QPoint desloca, QPoint cresce) {
        partes_.push_back({controlo, controlo->geometry(), desloca, cresce});
    };
    parte(janela.Toolbar1, {}, {tudo, 0});
    parte(janela.txtProcura, {}, {quarto, 0});
    parte(janela.lblGrupo, {quarto, 0}, {});
    parte(janela.ComboGrupos, {quarto, 0}, {quarto, 0});
    parte(janela.ListaNomes, {}, {metade, metade});
    for (QWidget *a_direita :
         {static_cast<QWidget *>(janela.lblContador), static_cast<QWidget *>(janela.cmdNovo),
          static_cast<QWidget *>(janela.cmdEditar), static_cast<QWidget *>(janela.cmdEliminar)})
        parte(a_direita, {tudo, 0}, {});
    parte(janela.cmdData, {0, tudo}, {});
    parte(janela.PontoTarefas, {tudo, tudo}, {});
    parte(janela.lblServidor, {0, tudo}, {tudo, 0});
    parte(janela.lblTemporizador, {tudo, tudo}, {});
    centro_.installEventFilter(this);
}

bool DisposicaoDaJanela::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Resize) Dispor();
    return false;
}

void DisposicaoDaJanela::Dispor()
{
    const QSize folga = (centro_.size() - centro_.minimumSize()).expandedTo({0, 0});
    for (const Parte &parte : partes_) {
        const QPoint cresce = Quota(folga, parte.cresce);
        parte.controlo->setGeometry({parte.desenho.topLeft() + Quota(folga, parte.desloca),
                                     parte.desenho.size() + QSize(cresce.x(), cresce.y())});
    }
    const QPoint meio = Quota(folga, {metade, metade});
    cartao_.Tomar_Folga({meio.x(), folga.width() - meio.x(), meio.y(), folga.height() - meio.y()});
}
