// What a failing piece of work says.
#pragma once

#include "data/error.h"

// The text of the failure, "" when there was none. Any other kind of failure goes on to the caller.
template <typename Failure = data::Error, typename Work>
QString failureOf(Work work) {
    try {
        work();
    } catch (const Failure& error) {
        return error.text();
    }
    return {};
}
