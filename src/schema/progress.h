// How long work tells of itself.
#pragma once

#include <QString>
#include <functional>

namespace schema {

// Hears what is being done and how far it is, -1 when nobody knows; false breaks it off with data::Error. May be empty.
using Progress = std::function<bool(const QString& what, int percent)>;

// Throws when the hearer breaks off.
void report(const Progress& progress, const QString& what, int percent);

}  // namespace schema
