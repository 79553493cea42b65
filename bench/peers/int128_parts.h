// SPDX-License-Identifier: MIT
// The three parts of the hand-made peer.
#ifndef QV8NUMERIC_BENCH_PEERS_INT128_PARTS_H
#define QV8NUMERIC_BENCH_PEERS_INT128_PARTS_H

#include "../kernels.h"
#include "variant.h"

namespace qv8numeric_bench::QV8NUMERIC_BENCH_INT128 {

// Each sets the operations that it knows.
void add_arithmetic(Kernels<Numeric>& kernels);
void add_text(Kernels<Numeric>& kernels);
void add_machine_numbers(Kernels<Numeric>& kernels);

}  // namespace qv8numeric_bench::QV8NUMERIC_BENCH_INT128

#endif
