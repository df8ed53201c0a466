#include "contacts/WebsiteEmail.h"

#include "platform/Shell.h"

#include <QString>

using namespace Qt::StringLiterals;

void Link_Abrir(Shell &shell, const QString &alvo) { shell.open(alvo); }

void Escrever_Email(Shell &shell, const QString &endereco)
{
    const QString Link_Alvo = u"mailto:"_s + endereco;
    Link_Abrir(shell, Link_Alvo);
}

void Visitar_Website(Shell &shell, const QString &endereco)
{
    if (endereco.isEmpty() || endereco == "http://"_L1) return;
    QString Link_Alvo = endereco.toLower();
    if (!Link_Alvo.startsWith("www"_L1) && !Link_Alvo.startsWith("htt"_L1)) Link_Alvo.prepend("www."_L1);
    Link_Abrir(shell, Link_Alvo);
}
