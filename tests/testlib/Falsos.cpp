#include "testlib/Falsos.h"

#include "platform/Failure.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
void Falhar(const QString &motivo) { QTest::qFail(qUtf8Printable(motivo), __FILE__, __LINE__); }

constexpr int caixa_de_erro = -1;
const auto qualquer_texto = u"*"_s;

QString Descrever(const QString &texto, int flags, const QString &titulo)
{
    return u"[%1] %2: %3"_s.arg(flags).arg(titulo, texto);
}
} // namespace

CaixasFalsas::~CaixasFalsas()
{
    for (const Caixa &caixa : esperadas_)
        Falhar(u"a box did not come: "_s + Descrever(caixa.texto, caixa.flags, caixa.titulo));
}

void CaixasFalsas::Espera(const QString &texto, int flags, const QString &titulo, int resposta)
{
    esperadas_.append({texto, flags, titulo, resposta});
}

void CaixasFalsas::Espera_Qualquer(int flags, const QString &titulo, int resposta)
{
    Espera(qualquer_texto, flags, titulo, resposta);
}

void CaixasFalsas::Espera_Erro(int numero)
{
    esperadas_.append({QString::number(numero), caixa_de_erro, {}, answer::ok});
}

int CaixasFalsas::show(const QString &text, int flags, const QString &title, QWidget *)
{
    vistas << text;
    if (entretanto_) entretanto_();
    if (esperadas_.isEmpty()) {
        Falhar(u"an unexpected box: "_s + Descrever(text, flags, title));
        return answer::no;
    }
    const Caixa caixa = esperadas_.takeFirst();
    if ((caixa.texto != qualquer_texto && caixa.texto != text) || caixa.flags != flags || caixa.titulo != title)
        Falhar(u"expected "_s + Descrever(caixa.texto, caixa.flags, caixa.titulo) + u", came "_s +
               Descrever(text, flags, title));
    return caixa.resposta;
}

void CaixasFalsas::showError(const Failure &failure)
{
    if (!esperadas_.isEmpty() && esperadas_.constFirst().flags == caixa_de_erro &&
        esperadas_.constFirst().texto == QString::number(failure.number()))
        esperadas_.removeFirst();
    else
        Falhar(u"an unexpected error: "_s + QString::fromUtf8(failure.what()));
}

namespace
{
template<class Resposta>
std::optional<Resposta> Responder(QList<std::optional<Resposta>> &prontas, const QString &pergunta)
{
    if (!prontas.isEmpty()) return prontas.takeFirst();
    Falhar(u"an unexpected dialog: "_s + pergunta);
    return std::nullopt;
}

QString Valor(Registry::Root root, const QString &key, const QString &name)
{
    return (root == Registry::Root::CurrentUser ? u"HKCU\\"_s : u"HKLM\\"_s) + key + u'\\' + name;
}
} // namespace

std::optional<QString> DialogosFalsos::openFile(const QString &filter, const QString &folder, QWidget *)
{
    perguntas << u"openFile "_s + filter + u" @ "_s + folder;
    return Responder(textos, perguntas.constLast());
}

std::optional<QString> DialogosFalsos::saveFile(const QString &filter, const QString &file, QWidget *)
{
    perguntas << u"saveFile "_s + filter + u" @ "_s + file;
    return Responder(textos, perguntas.constLast());
}

std::optional<QString> DialogosFalsos::folder(const QString &title, const QString &start, QWidget *)
{
    perguntas << u"folder "_s + title + u" @ "_s + start;
    return Responder(textos, perguntas.constLast());
}

std::optional<QFont> DialogosFalsos::font(const QFont &start, QWidget *)
{
    perguntas << u"font "_s + start.toString();
    return Responder(fontes, perguntas.constLast());
}

std::optional<QColor> DialogosFalsos::colour(const QColor &start, QWidget *)
{
    perguntas << u"colour "_s + start.name();
    return Responder(cores, perguntas.constLast());
}

std::optional<QString> DialogosFalsos::input(const QString &prompt, const QString &title, QWidget *)
{
    perguntas << u"input "_s + title + u": "_s + prompt;
    return Responder(textos, perguntas.constLast());
}

QString RegistoFalso::readString(Root root, const QString &key, const QString &name)
{
    return valores.value(Valor(root, key, name));
}

bool RegistoFalso::writeString(Root root, const QString &key, const QString &name, const QString &value)
{
    valores[Valor(root, key, name)] = value;
    return true;
}

bool RegistoFalso::deleteValue(Root root, const QString &key, const QString &name)
{
    return valores.remove(Valor(root, key, name)) > 0;
}

void CorreioFalso::setActivo(bool activo)
{
    historia << (activo ? u"+ "_s + servidor_ + u'|' + conta_ + u'|' + senha_ : u"-"_s);
    if (activo) return;
    falhou = false;
    texto_erro.clear();
    mensagens = 0;
}

std::optional<int> MensageiroFalso::status(const QString &address)
{
    perguntas << address;
    for (const Contact &contacto : contactos)
        if (contacto.address == address) return contacto.status;
    return std::nullopt;
}

void TabuleiroFalso::add(Look look, const QString &tip, QMenu *icon_menu)
{
    menu = icon_menu;
    historia << (look == Look::Picture1 ? u"+1 "_s : u"+2 "_s) + tip;
}

void TabuleiroFalso::remove(Look look) { historia << (look == Look::Picture1 ? u"-1"_s : u"-2"_s); }

void TabuleiroFalso::Chega_Hospedeiro()
{
    hospedeiro_ = true;
    Q_EMIT hostCame();
}

void TabuleiroFalso::Vai_Se_O_Hospedeiro()
{
    hospedeiro_ = false;
    Q_EMIT hostGone();
}
