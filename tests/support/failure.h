// What a failing piece of work says.
#pragma once

#include <optional>

#include "data/error.h"

// Any other kind of failure goes on to the caller.
template <typename Failure = data::Error, typename Work>
std::optional<Failure> errorOf(Work work) {
    try {
        work();
    } catch (const Failure& error) {
        return error;
    }
    return {};
}

// The text of the failure, "" when there was none.
template <typename Failure = data::Error, typename Work>
QString failureOf(Work work) {
    const auto error = errorOf<Failure>(work);
    return error ? error->text() : QString();
}
