// Every call on a file fails in turn.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <vector>

#include "kit/FileFaults.h"

// Counts the faults of all scenarios, and says so at the end.
class FaultCount : public testing::Test {
  public:
    static void TearDownTestSuite() { std::printf("%d faults injected in %d runs\n", Injected, Runs); }

    // Runs the scenario once as it is, then with each of its calls failing, by each error, once and for ever.
    template <class Scenario>
    static void FailEachCall(Scenario scenario, const std::vector<int>& errors = {
                                                    EIO, ENOSPC, EACCES, EROFS, EMFILE, EWOULDBLOCK, EINTR}) {
        std::array<int, FileCallCount> calls{};
        {
            FileFaults clean;
            scenario(clean);
            calls = clean.Calls;
        }
        for (int kind = 0; kind < FileCallCount; ++kind) {
            for (int number = 1; number <= calls[static_cast<std::size_t>(kind)]; ++number) {
                for (const int error : errors) {
                    for (const bool forever : {false, true}) {
                        // What is interrupted for ever is waited for as long.
                        if (error == EINTR && (forever || kind == CallClose)) continue;
                        FileFaults faults;
                        faults.Failing = kind;
                        faults.FailsAt = number;
                        faults.Forever = forever;
                        faults.Error = error;
                        SCOPED_TRACE("call of kind " + std::to_string(kind) + ", number " +
                                     std::to_string(number) + (forever ? " and on" : "") + ": error " +
                                     std::to_string(error));
                        scenario(faults);
                        Injected += faults.Injected;
                        ++Runs;
                        EXPECT_GE(faults.Injected, 1);
                        EXPECT_EQ(faults.Descriptors.size(), 0u) << "a file is open";
                        if (HasFailure()) return;
                    }
                }
            }
        }
    }

  private:
    static inline int Injected = 0, Runs = 0;
};
