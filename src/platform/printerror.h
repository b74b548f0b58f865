#pragma once

#include <QString>
#include <stdexcept>

namespace platform {

// What can go wrong with paper; what() is a Greek sentence in UTF-8.
class PrintError : public std::runtime_error {
public:
    explicit PrintError(const QString& text) : std::runtime_error(text.toStdString()) {}
    QString text() const { return QString::fromUtf8(what()); }
};

}  // namespace platform
