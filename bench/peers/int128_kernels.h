// SPDX-License-Identifier: MIT
// The operations of the hand-made peer in both its variants, and the scales that they were written for.
#ifndef QV8NUMERIC_BENCH_PEERS_INT128_KERNELS_H
#define QV8NUMERIC_BENCH_PEERS_INT128_KERNELS_H

#include "../kernels.h"
#include "../workload.h"

namespace qv8numeric_bench::int128 {

const Kernels<Numeric>& kernels();

// Powers of ten that fit its integer, and those that fit a word for doubles.
bool is_within_reach(const Workload& workload);

}  // namespace qv8numeric_bench::int128

namespace qv8numeric_bench::plain_int128 {

const Kernels<Numeric>& kernels();

}  // namespace qv8numeric_bench::plain_int128

#endif
