#pragma once

#include <QString>
#include <memory>

namespace platform {

class Sound {
public:
    virtual ~Sound() = default;
    virtual void play(const QString& waveFile) = 0;  // returns at once; a missing file or device is silence
    virtual void beep() = 0;
};

// The machine's sound; nothing is opened before the first play.
std::unique_ptr<Sound> systemSound();

}  // namespace platform
