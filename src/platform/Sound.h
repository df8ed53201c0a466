// Plays wave files.
#pragma once

#include <QString>

class Sound
{
public:
    virtual ~Sound() = default;

    // Starts playing and returns at once; a sound that is still playing ends. Silent where the file is missing or
    // the machine cannot play.
    virtual void play(const QString &file) = 0;
};
