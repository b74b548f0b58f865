// What stands above lists and card printouts alike.
#pragma once

#include <QDate>
#include <optional>

#include "platform/printer.h"
#include "platform/settings.h"

namespace core {

struct OwnerDetails {
    QString name, address, phone, email;
};
OwnerDetails ownerDetails(const platform::Settings& settings);

// The share of the page's width that stays free at its left.
double printMargin(const platform::Printer& printer);
// The distance between the columns of a heading, at the size in force.
double headingTab(const platform::Printer& printer);

// The owner's block, if any, at the left margin, and the day in words at the right; an empty line.
void printOwnerAndDate(platform::Printer& printer, const std::optional<OwnerDetails>& owner, QDate today);
// Centred, and an empty line.
void printTitle(platform::Printer& printer, const QString& title, bool underlined = true);

}  // namespace core
