#pragma once

#include "platform/runtime/RuntimeError.h"

#include <gtest/gtest.h>
#include <optional>

/// The run-time error that a statement raises, if it raises one.
template <class Statement>
std::optional<RuntimeError> ErrorOf(Statement&& statement) {
    try {
        statement();
    } catch (const RuntimeError& error) {
        return error;
    }
    return std::nullopt;
}

inline testing::AssertionResult HasNumber(const std::optional<RuntimeError>& error, int number) {
    if (error && error->Number() == number)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << (error ? error->what() : "no run-time error");
}

inline testing::AssertionResult EndsRun(const std::optional<RuntimeError>& error, int number) {
    if (error && !error->EndsRun())
        return testing::AssertionFailure() << "the run goes on after " << error->what();
    return HasNumber(error, number);
}

/// The statement raises the run-time error of that number.
#define EXPECT_ERROR(number, ...) EXPECT_TRUE(HasNumber(ErrorOf([&] { __VA_ARGS__; }), number))

/// The statement raises the run-time error of that number, which ends the run of the program.
#define EXPECT_END_OF_RUN(number, ...) EXPECT_TRUE(EndsRun(ErrorOf([&] { __VA_ARGS__; }), number))
