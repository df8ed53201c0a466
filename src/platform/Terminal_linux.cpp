#include "platform/Terminal.h"

#include <cstdio>
#include <QString>
#include <unistd.h>

void terminal::print(Stream stream, const QString &text)
{
    std::fputs(text.toLocal8Bit().constData(), stream == Stream::Answer ? stdout : stderr);
}

bool terminal::startedFromDesktop()
{
    const bool desktop = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    return desktop && ::isatty(STDIN_FILENO) == 0 && ::isatty(STDOUT_FILENO) == 0 &&
           ::isatty(STDERR_FILENO) == 0;
}
