#include "platform/DesktopRegistry.h"
#include "platform/OwnServices.h"
#include "platform/PurpleMessenger.h"
#include "platform/SecretService.h"

#include <QtGlobal>

std::unique_ptr<Registry> own_services::registry() { return std::make_unique<DesktopRegistry>(); }
std::unique_ptr<SecretStore> own_services::secrets() { return std::make_unique<SecretService>(); }
std::unique_ptr<MessengerAPI> own_services::messenger() { return std::make_unique<PurpleMessenger>(); }

void own_services::chooseDesktop()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "xcb;wayland");
}
