// Where a finished document goes: the printers of the system, or a PDF file.
#pragma once

#include <QStringList>
#include <functional>

#include "platform/printer.h"

namespace platform {

// Called before each page, from 0; false stops, and then nothing is printed and no file is written.
using PageStep = std::function<bool(int page)>;

class Printers {
public:
    virtual ~Printers() = default;
    virtual QStringList names() const = 0;    // empty when the system has none
    virtual QString defaultName() const = 0;  // empty when there is none
    // Both return false when stopped and throw PrintError when it can't be done.
    virtual bool print(const PrintDocument& document, const QString& printer, int copies, const PageStep& step) = 0;
    virtual bool writePdf(const PrintDocument& document, const QString& file, const PageStep& step) = 0;
};

class SystemPrinters : public Printers {
public:
    QStringList names() const override;
    QString defaultName() const override;
    bool print(const PrintDocument& document, const QString& printer, int copies, const PageStep& step) override;
    // Texts stay texts that can be searched and copied. An older file of that name is replaced only by a whole one.
    bool writePdf(const PrintDocument& document, const QString& file, const PageStep& step) override;
};

}  // namespace platform
