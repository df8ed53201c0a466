#include "platform/CredentialStore.h"
#include "platform/NoMessenger.h"
#include "platform/OwnServices.h"
#include "platform/WindowsRegistry.h"

std::unique_ptr<Registry> own_services::registry() { return std::make_unique<WindowsRegistry>(); }
std::unique_ptr<SecretStore> own_services::secrets() { return std::make_unique<CredentialStore>(); }
std::unique_ptr<MessengerAPI> own_services::messenger() { return std::make_unique<NoMessenger>(); }
void own_services::chooseDesktop() {}
