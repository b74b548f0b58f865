// What nearly every file without widgets includes; precompiled once per target.
#pragma once

#include <QtCore/QtCore>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>
