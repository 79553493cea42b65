// SPDX-License-Identifier: MIT
// One contender at one workload: its answers, to be checked, and the two loops that are timed.
#ifndef QV8NUMERIC_BENCH_TRIAL_H
#define QV8NUMERIC_BENCH_TRIAL_H

#include <cstddef>
#include <string>

#include "answers.h"

namespace qv8numeric_bench {

class Trial {
  public:
    Trial() = default;
    Trial(const Trial&) = delete;
    Trial& operator=(const Trial&) = delete;
    virtual ~Trial() = default;

    // Call i, checked by none of the loops.
    virtual Answer answer(std::size_t i) = 0;

    // The first calls, each independent of the others: throughput.
    virtual void independent_calls(std::size_t count) = 0;

    // The first calls, each with an operand that waits for the result of the one before: latency.
    virtual void dependent_calls(std::size_t count) = 0;
};

}  // namespace qv8numeric_bench

#endif
