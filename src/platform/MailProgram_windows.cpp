#include "platform/MailProgram.h"
#include "platform/RegistryMailProgram.h"
#include "platform/WindowsRegistry.h"

#include <QFileInfo>
#include <QProcess>

void startMailProgram()
{
    WindowsRegistry registry;
    if (const QString program = programOfMailAddresses(registry); QFileInfo(program).isFile()) {
        QProcess::startDetached(program, {});
        return;
    }
    QStringList command = QProcess::splitCommand(commandOfMailClient(registry));
    if (!command.isEmpty()) QProcess::startDetached(command.takeFirst(), command);
}
