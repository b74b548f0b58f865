// What a failing piece of work says.
#pragma once

#include "data/error.h"

// The text of the failure, "" when there was none.
template <typename Work>
QString failureOf(Work work) {
    try {
        work();
    } catch (const data::Error& error) {
        return error.text();
    }
    return {};
}
