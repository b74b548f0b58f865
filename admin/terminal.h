#pragma once

#include <QString>
#include <optional>

namespace admin {

// Asks on the terminal without showing what is typed. Nothing when there is no terminal or the input ended.
std::optional<QString> askHidden(const QString& prompt);

}  // namespace admin
