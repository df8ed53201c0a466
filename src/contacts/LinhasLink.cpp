#include "contacts/LinhasLink.h"

#include "data/Geral.h"
#include "platform/Controls.h"
#include "platform/ListBox.h"

#include <algorithm>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_enviar_email = 55;
constexpr qint16 texto_visitar = 56;

// The desktop's colours of a row: under the pointer; once the pointer went to another row, or off a row
// without text; once it left the rows. The last two differ on purpose.
constexpr QPalette::ColorRole realce = QPalette::Highlight;
constexpr QPalette::ColorRole texto_da_janela = QPalette::WindowText;
constexpr QPalette::ColorRole moldura_da_janela = QPalette::Shadow;

QColor Cor_Do_Sistema(QPalette::ColorRole papel) { return QApplication::palette().color(papel); }

bool Realcada(const QLineEdit &linha)
{
    return linha.palette().color(QPalette::Text) == Cor_Do_Sistema(realce);
}

void Pintar(QLineEdit &linha, QPalette::ColorRole papel)
{
    QPalette palette = linha.palette();
    palette.setColor(QPalette::Text, Cor_Do_Sistema(papel));
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

LinhasLink::LinhasLink(QWidget &janela, Geral &geral)
    : QObject(&janela),
      geral_(geral),
      txtWebsite(control<QLineEdit>(janela, u"txtWebsite"_s)),
      linhas_{&control<QLineEdit>(janela, u"txtEmail1"_s), &control<QLineEdit>(janela, u"txtEmail2"_s),
              &txtWebsite}
{
    for (QLineEdit *linha : linhas_)
        linha->installEventFilter(this);
    QWidget *formulario = txtWebsite.parentWidget();
    for (QWidget *fora : {formulario, control<ListBox>(janela, u"ListaNomes"_s).viewport()}) {
        fora->setMouseTracking(true);
        fora->installEventFilter(this);
    }
}

bool LinhasLink::eventFilter(QObject *alvo, QEvent *event)
{
    const auto encontrada = std::find(linhas_.begin(), linhas_.end(), alvo);
    QLineEdit *linha = encontrada == linhas_.end() ? nullptr : *encontrada;
    if (event->type() == QEvent::MouseMove)
        linha != nullptr ? Passar_Sobre(*linha) : Sair_Das_Linhas();
    else if (linha != nullptr && Chega_Pelas_Teclas(*event))
        Chegar_Pelas_Teclas(*linha);
    else if (linha != nullptr && Perde_As_Teclas(*event))
        Sair_Das_Linhas();
    else if (linha != nullptr && (Clique(*event) || Enter(*event)))
        Seguir(*linha);
    return false;
}

// The toolkit selects the text of a field that the keyboard reaches, behind this event. A row with a
// selection would not open, neither here nor from the menu.
void LinhasLink::Chegar_Pelas_Teclas(QLineEdit &linha)
{
    Passar_Sobre(linha);
    QMetaObject::invokeMethod(&linha, &QLineEdit::deselect, Qt::QueuedConnection);
}

void LinhasLink::Passar_Sobre(QLineEdit &linha)
{
    LinkActivo = u"0"_s;
    const bool cheia = !linha.text().isEmpty();
    if (cheia)
        linha.setCursor(Qt::PointingHandCursor);
    else
        linha.unsetCursor();
    Sublinhar(linha, cheia);
    linha.setToolTip(cheia ? Dica(linha) : QString());
    if (!cheia || !Realcada(linha)) Pintar(linha, cheia ? realce : texto_da_janela);
    for (QLineEdit *outra : linhas_)
        if (outra != &linha && Realcada(*outra)) Pintar(*outra, texto_da_janela);
}

void LinhasLink::Sair_Das_Linhas()
{
    if (LinkActivo != "0"_L1) return;
    for (QLineEdit *linha : linhas_) {
        if (Realcada(*linha)) Pintar(*linha, moldura_da_janela);
        Sublinhar(*linha, false);
    }
    LinkActivo = u"1"_s;
}

void LinhasLink::Seguir(QLineEdit &linha)
{
    if (!linha.text().isEmpty() && !linha.hasSelectedText()) Q_EMIT Clicada(&linha);
}

QString LinhasLink::Dica(const QLineEdit &linha)
{
    const qint16 texto = &linha == &txtWebsite ? texto_visitar : texto_enviar_email;
    return withoutMnemonic(geral_.Ler_Idioma(texto)) + u' ' + linha.text();
}
