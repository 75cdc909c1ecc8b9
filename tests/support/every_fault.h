// The same scene again and again, with the disk failing at another call each time.
#pragma once

#include "tests/support/memory_disk.h"

#include <gtest/gtest.h>

#include <functional>

namespace tavo::test {

struct Fault {
    std::size_t Call = 0;
    ErrorCode Error = ErrorCode::Success;
    FaultSpan Span = FaultSpan::Once;

    void Strike(MemoryDisk& disk) const { disk.Fail(Call, Error, Span); }
};

// Plays the scene with its first call on the disk failing, its second and so on until none is left, with each kind of
// error, once and for good. The scene makes a disk of its own, lets the fault strike where it likes and says whether it
// did. Gives how many did.
inline int PlayWithEveryFault(const std::function<bool(const Fault& fault)>& scene) {
    constexpr std::size_t kMostCalls = 1000;
    int met = 0;
    for (const ErrorCode error : {ErrorCode::DiskFull, ErrorCode::AccessDenied, ErrorCode::CannotComplete}) {
        for (const FaultSpan span : {FaultSpan::Once, FaultSpan::FromThenOn}) {
            std::size_t call = 1;
            for (bool isMet = true; isMet && call < kMostCalls; ++call) {
                const ::testing::ScopedTrace trace(__FILE__, __LINE__,
                                                   "call " + std::to_string(call) + " fails with " +
                                                       std::to_string(static_cast<int>(error)) +
                                                       (span == FaultSpan::Once ? " once" : " and all after it"));
                isMet = scene({call, error, span});
                met += isMet ? 1 : 0;
                if (::testing::Test::HasFailure()) {
                    return met; // the rest would say the same
                }
            }
            EXPECT_LT(call, kMostCalls);
        }
    }
    return met;
}

} // namespace tavo::test
