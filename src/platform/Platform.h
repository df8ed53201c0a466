// The seams of the desktop in one hand: what a form takes to reach the world outside of the program.
#pragma once

#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/MailNotification.h"
#include "platform/MessageBoxes.h"
#include "platform/MessengerAPI.h"
#include "platform/Process.h"
#include "platform/Registry.h"
#include "platform/SecretStore.h"
#include "platform/Shell.h"
#include "platform/Sound.h"
#include "platform/Tray.h"

struct Platform {
    Clock &clock;
    MessageBoxes &boxes;
    Dialogs &dialogs;
    Shell &shell;
    Sound &sound;
    Registry &registry;
    MailNotification &mail;
    MessengerAPI &messenger;
    Process &process;
    Tray &tray;
    SecretStore &secrets;
};
