// The per-user settings store: texts under section and key, without regard to case.
#pragma once

#include <QString>
#include <functional>
#include <memory>

namespace platform {

class Settings {
public:
    virtual ~Settings() = default;
    virtual QString value(const QString& section, const QString& key, const QString& fallback = {}) const = 0;
    virtual void setValue(const QString& section, const QString& key, const QString& value) = 0;

    // Runs once, in the midst of the first setValue() whose value the store doesn't take; until its end the run has the
    // values all the same.
    std::function<void(const QString& file)> refused;

    // A whole number; the fallback also for a text that is none.
    int number(const QString& section, const QString& key, int fallback) const;
    void setNumber(const QString& section, const QString& key, int value);
};

// An INI file, UTF-8, written at once, so that a killed program loses nothing. Keys keep the spelling of
// their first writing. `file` empty means the user's own place for the program's settings.
std::unique_ptr<Settings> iniSettings(const QString& file = {});

}  // namespace platform
