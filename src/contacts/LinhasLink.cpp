#include "contacts/LinhasLink.h"

#include "data/Geral.h"
#include "platform/Controls.h"
#include "platform/ListBox.h"

#include <algorithm>
#include <QApplication>
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
    const auto linha = std::find(linhas_.begin(), linhas_.end(), alvo);
    if (event->type() == QEvent::MouseMove)
        linha != linhas_.end() ? Passar_Sobre(**linha) : Sair_Das_Linhas();
    else if (event->type() == QEvent::MouseButtonRelease && linha != linhas_.end())
        Libertar(**linha, *static_cast<QMouseEvent *>(event));
    return false;
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

void LinhasLink::Libertar(QLineEdit &linha, const QMouseEvent &rato)
{
    if (rato.button() != Qt::LeftButton || linha.text().isEmpty() || linha.hasSelectedText()) return;
    Q_EMIT Clicada(&linha);
}

QString LinhasLink::Dica(const QLineEdit &linha)
{
    const qint16 texto = &linha == &txtWebsite ? texto_visitar : texto_enviar_email;
    return withoutMnemonic(geral_.Ler_Idioma(texto)) + u' ' + linha.text();
}
