// What nearly every file with widgets includes; precompiled once per target.
#pragma once

#include "pch_core.h"

#include <QtGui/QtGui>
#include <QtWidgets/QtWidgets>
