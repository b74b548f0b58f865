// What printing remembers from one time to the next, and the steps that the preview and the direct road share.
#pragma once

#include <QPageSize>
#include <QWidget>
#include <memory>

#include "core/mainmod.h"
#include "core/printjob.h"

namespace core {

// Whether print commands show the preview first.
bool previewsPrints(const platform::Settings& settings);
void setPreviewsPrints(platform::Settings& settings, bool on);

// The papers that a user can choose, the usual one first.
constexpr QPageSize::PageSizeId papers[] = {QPageSize::A4, QPageSize::A3, QPageSize::A5, QPageSize::Letter,
                                            QPageSize::Legal};

platform::PageSetup pageSetup(const platform::Settings& settings, bool landscape);
void storePaper(platform::Settings& settings, const platform::PageSetup& setup);

// The printer that was used last, if the system still has it, otherwise the system's own choice; may be empty.
QString chosenPrinter(const platform::Services& services);
void storePrinter(platform::Settings& settings, const QString& printer);

// Draws under a bar with a stop button.
std::shared_ptr<const platform::PrintDocument> drawn(QWidget* parent, const PrintJob& job,
                                                     const platform::PageSetup& setup);

void tellPrinterFailure(MainMod& mod, QWidget* parent, const platform::PrintError& error);

}  // namespace core
