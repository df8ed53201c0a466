// The services that every system has in a way of its own.
#pragma once

#include <memory>

class MessengerAPI;
class Registry;
class SecretStore;

namespace own_services
{
std::unique_ptr<Registry> registry();
std::unique_ptr<SecretStore> secrets();
std::unique_ptr<MessengerAPI> messenger();

// Notes, popups and the notification area need a desktop on which a window may choose its own place. Asks the
// toolkit for one, where there are several kinds and the person has not chosen; comes before the application
// object.
void chooseDesktop();
} // namespace own_services
