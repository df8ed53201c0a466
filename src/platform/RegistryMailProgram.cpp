#include "platform/RegistryMailProgram.h"

#include "platform/Registry.h"

#include <QString>

using namespace Qt::StringLiterals;

namespace
{
const QString currentVersion = u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion"_s;
const QString mailClients = u"SOFTWARE\\Clients\\Mail"_s;
constexpr auto machine = Registry::Root::LocalMachine;
} // namespace

QString programOfMailAddresses(Registry &registry)
{
    const QString folderWord = registry.readString(machine, currentVersion, u"ProgramFilesPath"_s);
    const QString command =
        registry.readString(machine, u"SOFTWARE\\Classes\\mailto\\shell\\open\\command"_s, {});
    const QString folder = registry.readString(machine, currentVersion, u"ProgramFilesDir"_s);
    const qsizetype ending = command.indexOf(".exe"_L1, 0, Qt::CaseInsensitive);
    const qsizetype begin = folderWord.size() + 1; // behind the quote and the word
    if (folder.isEmpty() || folderWord.isEmpty() || ending < begin) return {};
    return folder + command.mid(begin, ending + 4 - begin);
}

QString commandOfMailClient(Registry &registry)
{
    QString client = registry.readString(Registry::Root::CurrentUser, mailClients, {});
    if (client.isEmpty()) client = registry.readString(machine, mailClients, {});
    if (client.isEmpty()) return {};
    return registry.readString(machine, mailClients + u'\\' + client + u"\\shell\\open\\command"_s, {});
}
