#include "platform/sound.h"

#include <QApplication>
#include <QAudioDevice>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>
#include <map>

using namespace Qt::Literals::StringLiterals;

namespace platform {

namespace {

class SystemSound : public Sound {
public:
    void play(const QString& waveFile) override {
        if (!QFileInfo(waveFile).isFile() || !hasDevice()) return;
        std::unique_ptr<QSoundEffect>& effect = effects_[waveFile];
        if (!effect || effect->status() == QSoundEffect::Error) {
            effect = std::make_unique<QSoundEffect>();
            effect->setSource(QUrl::fromLocalFile(waveFile));
        }
        effect->play();
    }

    void beep() override { QApplication::beep(); }

private:
    // Asked once: a machine without sound would be searched again at every hover.
    bool hasDevice() {
        if (!hasDevice_) {
            QLoggingCategory::setFilterRules(u"qt.multimedia*=false"_s);
            hasDevice_ = !QMediaDevices::defaultAudioOutput().isNull();
        }
        return *hasDevice_;
    }

    std::optional<bool> hasDevice_;
    std::map<QString, std::unique_ptr<QSoundEffect>> effects_;
};

}  // namespace

std::unique_ptr<Sound> systemSound() {
    return std::make_unique<SystemSound>();
}

}  // namespace platform
