#include "session/Autorun.h"

#include "platform/Registry.h"

#include <QCoreApplication>
#include <QDir>

using namespace Qt::StringLiterals;

namespace
{
const QString &Chave()
{
    static const QString chave = u"Software\\Microsoft\\Windows\\CurrentVersion\\Run"_s;
    return chave;
}

QString Nome(const QString &VersaoBD) { return u"Morvex "_s + VersaoBD; }
} // namespace

void autorun::Ligar(Registry &registry, const QString &VersaoBD)
{
    const QString programa = QDir::toNativeSeparators(QCoreApplication::applicationFilePath());
    registry.writeString(Registry::Root::CurrentUser, Chave(), Nome(VersaoBD), programa);
}

void autorun::Desligar(Registry &registry, const QString &VersaoBD)
{
    registry.deleteValue(Registry::Root::CurrentUser, Chave(), Nome(VersaoBD));
}
