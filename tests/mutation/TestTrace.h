#pragma once

#include "Mutants.h"

#include <algorithm>
#include <cstdio>
#include <gtest/gtest.h>
#include <vector>

/// Notes for each test in what file it stands, whether it passed, how long it took and which places
/// it came by, one line a test, in the file that DUTYGRID_MUTANT_TRACE names.
class TestTrace : public testing::EmptyTestEventListener {
public:
    static void Install() {
        if (const char* file = std::getenv("DUTYGRID_MUTANT_TRACE"))
            testing::UnitTest::GetInstance()->listeners().Append(new TestTrace(file));
    }

private:
    /// Every test rests on what was come by before the first one.
    explicit TestTrace(const char* file)
        : out_(std::fopen(file, "a")), before_(Mutants::reached, Mutants::reached + Mutants::Most) {
    }
    ~TestTrace() override { std::fclose(out_); }

    void OnTestStart(const testing::TestInfo&) override {
        std::copy(before_.begin(), before_.end(), Mutants::reached);
    }

    void OnTestEnd(const testing::TestInfo& test) override {
        std::fprintf(out_, "%s.%s %s %d %d", test.test_suite_name(), test.name(), test.file(),
                     test.result()->Passed() ? 1 : 0, int(test.result()->elapsed_time()));
        for (int number = 0; number < Mutants::Most; ++number)
            if (Mutants::reached[number])
                std::fprintf(out_, " %d", number);
        std::fputc('\n', out_);
        std::fflush(out_);
    }

    std::FILE* out_;
    std::vector<bool> before_;
};
