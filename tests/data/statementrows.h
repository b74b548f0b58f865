// The rows over which the typed statements run: some typed by hand (statements/rows.sql), several hundred made up.
#pragma once

#include "data/connection.h"

// Fills a fresh office; the same rows every time.
void fillStatementRows(data::Connection& main, data::Connection& users);
