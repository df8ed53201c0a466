#include "data/Rascunho.h"

#include "data/Geral.h"
#include "platform/Platform.h"
#include "platform/Translations.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialog>
#include <QEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace
{
constexpr Translations retomar{
    u"O que escreveu aqui da última vez não chegou a ser confirmado. Deseja retomá-lo?",
    u"O que você escreveu aqui da última vez não chegou a ser confirmado. Deseja retomá-lo?",
    u"What you typed here last time was not confirmed. Would you like to take it up again?",
    u"Lo que escribió aquí la última vez no llegó a confirmarse. ¿Desea retomarlo?",
    u"Quanto ha scritto qui l’ultima volta non è stato confermato. Desidera riprenderlo?",
    u"Ce que vous aviez saisi ici la dernière fois n’a pas été confirmé. Voulez-vous le reprendre\u00a0?",
    u"Ihre letzte Eingabe an dieser Stelle wurde nicht bestätigt. Möchten Sie sie wieder aufnehmen?"};

// What a person typed or chose there; undefined for a control of another kind.
QJsonValue Valor(const QWidget &controlo)
{
    if (const auto *linha = qobject_cast<const QLineEdit *>(&controlo)) return linha->text();
    if (const auto *texto = qobject_cast<const QPlainTextEdit *>(&controlo)) return texto->toPlainText();
    if (const auto *escolha = qobject_cast<const QComboBox *>(&controlo)) return escolha->currentText();
    if (const auto *data = qobject_cast<const QDateTimeEdit *>(&controlo))
        return data->dateTime().toString(Qt::ISODate);
    return QJsonValue::Undefined;
}

// A row that the list does not have any more leaves the choice as it is.
void Por_Valor(QWidget &controlo, const QString &valor)
{
    if (auto *linha = qobject_cast<QLineEdit *>(&controlo)) linha->setText(valor);
    if (auto *texto = qobject_cast<QPlainTextEdit *>(&controlo)) texto->setPlainText(valor);
    if (auto *escolha = qobject_cast<QComboBox *>(&controlo); escolha && escolha->findText(valor) >= 0)
        escolha->setCurrentIndex(escolha->findText(valor));
    if (auto *data = qobject_cast<QDateTimeEdit *>(&controlo))
        data->setDateTime(QDateTime::fromString(valor, Qt::ISODate));
}

// The toolkit's own controls within others have names too, but not of the form's kind.
bool E_Do_Formulario(const QWidget &controlo, const QDialog &form)
{
    const QString nome = controlo.objectName();
    return !nome.isEmpty() && !nome.startsWith("qt_"_L1) && controlo.isVisibleTo(&form);
}
} // namespace

Rascunho::Rascunho(QDialog &form, Geral &geral, Platform &platform, std::function<QString()> registo)
    : QObject(&form), form_(form), geral_(geral), platform_(platform), registo_(std::move(registo))
{
    form.installEventFilter(this);
    connect(&form, &QDialog::finished, this, &Rascunho::Acabar);
    geral_.rascunhos.Entrar(*this);
}

Rascunho::~Rascunho() { geral_.rascunhos.Sair(*this); }

bool Rascunho::eventFilter(QObject *, QEvent *evento)
{
    if (evento->type() == QEvent::Show && identidade_.isEmpty()) Comecar();
    return false;
}

void Rascunho::Comecar()
{
    identidade_ = {{u"base"_s, geral_.CaminhoBD},
                   {u"utilizador"_s, geral_.SessaoActual.IdUtilizador},
                   {u"registo"_s, registo_()}};
    inicial_ = Campos();
    // The form comes first, so that the question stands in front of what it is about.
    QMetaObject::invokeMethod(this, &Rascunho::Oferecer, Qt::QueuedConnection);
}

void Rascunho::Oferecer()
{
    const QJsonObject guardado = geral_.rascunhos.Guardado(identidade_);
    if (guardado.isEmpty() || acabou_) return;
    const QString pergunta = translated(retomar, geral_.IdiomaActual);
    if (platform_.boxes.show(pergunta, box::question | box::yesNo, form_.windowTitle(), &form_) !=
        answer::yes)
        return geral_.rascunhos.Esquecer(identidade_);
    for (QWidget *controlo : form_.findChildren<QWidget *>())
        if (E_Do_Formulario(*controlo, form_) && guardado.contains(controlo->objectName()))
            Por_Valor(*controlo, guardado[controlo->objectName()].toString());
    Q_EMIT Retomado();
}

bool Rascunho::Mudou() const { return !acabou_ && !identidade_.isEmpty() && Campos() != inicial_; }

QJsonObject Rascunho::Campos() const
{
    QJsonObject campos;
    for (const QWidget *controlo : form_.findChildren<QWidget *>()) {
        const QJsonValue valor = Valor(*controlo);
        if (!valor.isUndefined() && E_Do_Formulario(*controlo, form_)) campos[controlo->objectName()] = valor;
    }
    return campos;
}

// Confirmed or given up: either way there is nothing left to offer.
void Rascunho::Acabar()
{
    acabou_ = true;
    if (!identidade_.isEmpty()) geral_.rascunhos.Esquecer(identidade_);
}
