// SPDX-License-Identifier: MIT
#include "int128_kernels.h"

#include "int128_parts.h"

namespace qv8numeric_bench::QV8NUMERIC_BENCH_INT128 {

const Kernels<Numeric>& kernels() {
    static const Kernels<Numeric> kernels = [] {
        Kernels<Numeric> k{};
        add_arithmetic(k);
        add_text(k);
        add_machine_numbers(k);
        return k;
    }();
    return kernels;
}

}  // namespace qv8numeric_bench::QV8NUMERIC_BENCH_INT128
