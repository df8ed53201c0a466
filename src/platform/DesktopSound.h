// The real sound: the first player that the machine has.
#pragma once

#include "platform/Sound.h"

#include <QProcess>

class DesktopSound final : public Sound
{
public:
    DesktopSound();
    ~DesktopSound() override;

    void play(const QString &file) override;

private:
    QString program_; // empty where the machine has no player
    QStringList arguments_;
    QProcess player_;
};
