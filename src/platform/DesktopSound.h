// The real sound, as this system plays one.
#pragma once

#include "platform/Sound.h"

#include <memory>

class DesktopSound final : public Sound
{
public:
    DesktopSound();
    ~DesktopSound() override;

    void play(const QString &file) override;

private:
    class Player;
    std::unique_ptr<Player> player_;
};
