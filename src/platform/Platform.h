// The seams of the desktop in one hand: what a form takes to reach the world outside of the program.
#pragma once

#include "platform/Clock.h"
#include "platform/MessageBoxes.h"
#include "platform/Process.h"
#include "platform/Shell.h"
#include "platform/Tray.h"

struct Platform {
    Clock &clock;
    MessageBoxes &boxes;
    Shell &shell;
    Process &process;
    Tray &tray;
};
