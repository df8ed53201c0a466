#include "session/FimDaSessao.h"

#include "data/Geral.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "platform/Translations.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace
{
constexpr Translations por_confirmar{
    u"O que escreveu ainda não está confirmado. Deseja terminar a sessão agora? O texto ser-lhe-á oferecido "
    "quando voltar a abrir o formulário.",
    u"O que você escreveu ainda não está confirmado. Deseja encerrar a sessão agora? O texto será oferecido "
    "quando você abrir o formulário novamente.",
    u"What you typed is not confirmed yet. Would you like to end the session now? The text will be offered "
    u"to "
    "you when you open the form again.",
    u"Lo que ha escrito aún no está confirmado. ¿Desea cerrar la sesión ahora? Se le ofrecerá el texto "
    u"cuando "
    "vuelva a abrir el formulario.",
    u"Quanto ha scritto non è ancora confermato. Desidera terminare la sessione ora? Il testo Le sarà "
    u"proposto "
    "quando riaprirà il modulo.",
    u"Votre saisie n’est pas encore confirmée. Voulez-vous fermer la session maintenant\u00a0? Le texte vous "
    "sera proposé lorsque vous rouvrirez le formulaire.",
    u"Ihre Eingabe ist noch nicht bestätigt. Möchten Sie die Sitzung jetzt beenden? Der Text wird Ihnen "
    "angeboten, wenn Sie das Formular wieder öffnen."};
} // namespace

FimDaSessao::FimDaSessao(SessionEnd &fim, Geral &geral, Platform &platform)
    : QObject(&fim), geral_(geral), platform_(platform)
{
    connect(&fim, &SessionEnd::loggingOut, this, &FimDaSessao::Sessao_Acaba);
    connect(&fim, &SessionEnd::ending, this, &FimDaSessao::Terminar);
}

// Saved before the question too: somebody who does not answer must not lose anything to a desktop that stops
// waiting.
void FimDaSessao::Sessao_Acaba(SessionEnd::Logout &saida)
{
    skipFailure([&] { geral_.rascunhos.Guardar(); });
    if (!geral_.rascunhos.Por_Confirmar() || !saida.mayAsk()) return;
    const QString pergunta = translated(por_confirmar, geral_.IdiomaActual);
    const int resposta = platform_.boxes.show(pergunta, box::exclamation | box::yesNo,
                                              QApplication::applicationName(), QApplication::activeWindow());
    if (resposta != answer::yes) saida.refuse();
}

void FimDaSessao::Terminar()
{
    if (std::exchange(a_terminar_, true)) return;
    skipFailure([&] { geral_.rascunhos.Guardar(); });
    platform_.tray.remove(Tray::Look::Picture1);
    platform_.tray.remove(Tray::Look::Picture2);
    skipFailure([&] { geral_.de.Fechar_Ligacao(); });
    platform_.process.end();
}
