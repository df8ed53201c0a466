#include "contacts/LinhasLink.h"

#include "contacts/LinhasCartao.h"
#include "controls/Contrast.h"
#include "data/Geral.h"
#include "platform/Caption.h"

#include <algorithm>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>

using namespace Qt::StringLiterals;

namespace
{
// The desktop's colours of a row: under the pointer; once the pointer went to another row, or off a row
// without text; once it left the rows. The last two differ on purpose.
constexpr QPalette::ColorRole realce = QPalette::Highlight;
constexpr QPalette::ColorRole texto_da_janela = QPalette::WindowText;
constexpr QPalette::ColorRole moldura_da_janela = QPalette::Shadow;

QColor Cor_Do_Sistema(QPalette::ColorRole papel) { return QApplication::palette().color(papel); }

// These colours are made to lie under letters; as letters a dark desktop's can't all be read.
void Pintar(QLineEdit &linha, QPalette::ColorRole papel)
{
    QPalette palette = linha.palette();
    const QColor fundo = palette.color(linha.backgroundRole());
    palette.setColor(QPalette::Text, readableOn(Cor_Do_Sistema(papel), fundo));
    linha.setPalette(palette);
}

void Sublinhar(QLineEdit &linha, bool sublinhada)
{
    QFont letra = linha.font();
    letra.setUnderline(sublinhada);
    linha.setFont(letra);
}

bool Clique(const QEvent &event)
{
    return event.type() == QEvent::MouseButtonRelease &&
           static_cast<const QMouseEvent &>(event).button() == Qt::LeftButton;
}

bool Enter(const QEvent &event)
{
    if (event.type() != QEvent::KeyPress) return false;
    const auto &tecla = static_cast<const QKeyEvent &>(event);
    return !tecla.isAutoRepeat() && (tecla.key() == Qt::Key_Return || tecla.key() == Qt::Key_Enter);
}

Qt::FocusReason Razao(const QEvent &event) { return static_cast<const QFocusEvent &>(event).reason(); }

bool Chega_Pelas_Teclas(const QEvent &event)
{
    return event.type() == QEvent::FocusIn &&
           (Razao(event) == Qt::TabFocusReason || Razao(event) == Qt::BacktabFocusReason);
}

// Another window or a menu only borrows the keyboard.
bool Perde_As_Teclas(const QEvent &event)
{
    return event.type() == QEvent::FocusOut && Razao(event) != Qt::ActiveWindowFocusReason &&
           Razao(event) != Qt::PopupFocusReason;
}
} // namespace

LinhasLink::LinhasLink(Janela &janela, Geral &geral) : QObject(&janela), geral_(geral)
{
    for (const cartao::Linha &linha : cartao::linhas)
        if (linha.dica != 0)
            linhas_.push_back({static_cast<QLineEdit *>(linha.caixa(janela)), linha.dica, {}});
    for (const Linha &linha : linhas_)
        linha.caixa->installEventFilter(this);
    QWidget *formulario = linhas_.front().caixa->parentWidget();
    for (QWidget *fora : {formulario, janela.ListaNomes->viewport()}) {
        fora->setMouseTracking(true);
        fora->installEventFilter(this);
    }
}

bool LinhasLink::eventFilter(QObject *alvo, QEvent *event)
{
    const auto encontrada = std::find_if(linhas_.begin(), linhas_.end(),
                                         [alvo](const Linha &linha) { return linha.caixa == alvo; });
    Linha *linha = encontrada == linhas_.end() ? nullptr : &*encontrada;
    if (event->type() == QEvent::MouseMove)
        linha != nullptr ? Passar_Sobre(*linha) : Sair_Das_Linhas();
    else if (linha != nullptr && Chega_Pelas_Teclas(*event))
        Chegar_Pelas_Teclas(*linha);
    else if (linha != nullptr && Perde_As_Teclas(*event))
        Sair_Das_Linhas();
    else if (linha != nullptr && event->type() == QEvent::PaletteChange && linha->papel)
        Pintar(*linha->caixa, *linha->papel);
    else if (linha != nullptr && (Clique(*event) || Enter(*event)))
        Seguir(*linha->caixa);
    return false;
}

// The toolkit selects the text of a field that the keyboard reaches, behind this event. A row with a
// selection would not open, neither here nor from the menu: it goes as soon as it comes, for Enter may
// already be waiting.
void LinhasLink::Chegar_Pelas_Teclas(Linha &linha)
{
    Passar_Sobre(linha);
    connect(linha.caixa, &QLineEdit::selectionChanged, linha.caixa, &QLineEdit::deselect, Qt::SingleShotConnection);
}

void LinhasLink::Dar_Cor(Linha &linha, QPalette::ColorRole papel)
{
    linha.papel = papel;
    Pintar(*linha.caixa, papel);
}

void LinhasLink::Passar_Sobre(Linha &linha)
{
    LinkActivo = true;
    QLineEdit &caixa = *linha.caixa;
    const bool cheia = !caixa.text().isEmpty();
    if (cheia)
        caixa.setCursor(Qt::PointingHandCursor);
    else
        caixa.unsetCursor();
    Sublinhar(caixa, cheia);
    caixa.setToolTip(cheia ? withoutMnemonic(geral_.Ler_Idioma(linha.dica)) + u' ' + caixa.text()
                           : QString());
    Dar_Cor(linha, cheia ? realce : texto_da_janela);
    for (Linha &outra : linhas_)
        if (&outra != &linha && outra.papel == realce) Dar_Cor(outra, texto_da_janela);
}

void LinhasLink::Sair_Das_Linhas()
{
    if (!LinkActivo) return;
    for (Linha &linha : linhas_) {
        if (linha.papel == realce) Dar_Cor(linha, moldura_da_janela);
        Sublinhar(*linha.caixa, false);
    }
    LinkActivo = false;
}

void LinhasLink::Seguir(QLineEdit &linha)
{
    if (!linha.text().isEmpty() && !linha.hasSelectedText()) Q_EMIT Clicada(&linha);
}
