// SPDX-License-Identifier: MIT
// The three parts of the hand-made peer.
#ifndef QV8NUMERIC_BENCH_PEERS_INT128_PARTS_H
#define QV8NUMERIC_BENCH_PEERS_INT128_PARTS_H

#include "../kernels.h"
#include "../workload.h"

namespace qv8numeric_bench::int128 {

// Each sets the operations that it knows.
void add_arithmetic(Kernels<Numeric>& kernels);
void add_text(Kernels<Numeric>& kernels);
void add_machine_numbers(Kernels<Numeric>& kernels);

// Scales it was written for: powers of ten that fit its integer, and those that fit a word for doubles.
bool is_within_reach(const Workload& workload);

}  // namespace qv8numeric_bench::int128

#endif
