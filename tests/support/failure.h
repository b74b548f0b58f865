// What a failing piece of work says.
#pragma once

#include <QtTest>
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

// The statements fail with an error of this category.
#define VERIFY_ERROR(wanted, ...)                                                      \
    do {                                                                               \
        const auto thrown_ = errorOf([&] { __VA_ARGS__; });                            \
        QVERIFY2(thrown_.has_value(), "nothing was thrown");                           \
        QVERIFY2(thrown_->category() == data::ErrorCategory::wanted, thrown_->what()); \
    } while (false)

// The statements fail with an error whose text has this part.
#define VERIFY_FAILURE(part, ...)                                  \
    do {                                                           \
        const auto thrown_ = errorOf([&] { __VA_ARGS__; });        \
        QVERIFY2(thrown_.has_value(), "nothing was thrown");       \
        QVERIFY2(thrown_->text().contains(part), thrown_->what()); \
    } while (false)
