#pragma once

#include <QByteArray>

#include "demo/random.h"

namespace demo {

// A small drawn head and shoulders as the bytes of a BMP file of a few kilobytes.
QByteArray portrait(Random& random, bool man);

}  // namespace demo
