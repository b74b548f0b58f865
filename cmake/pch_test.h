// Likewise for tests, all of which read it: what windows and the toolkit's own test library need.
#pragma once

#include "pch_widgets.h"

#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
