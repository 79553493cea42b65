// SPDX-License-Identifier: MIT
#include "peers/peers.h"

namespace qv8numeric_bench {

std::vector<std::unique_ptr<Contender>> peers() {
    std::vector<std::unique_ptr<Contender>> all;
    all.push_back(int128_peer());
    all.push_back(plain_int128_peer());
#ifdef QV8NUMERIC_BENCH_INTEL
    all.push_back(intel_peer());
#endif
#ifdef QV8NUMERIC_BENCH_GCC_DECIMAL
    all.push_back(gcc_decimal_peer());
#endif
    all.push_back(boost_peer());
#ifdef QV8NUMERIC_BENCH_GMP
    all.push_back(gmp_peer());
#endif
#ifdef QV8NUMERIC_BENCH_ABSL
    all.push_back(absl_peer());
#endif
#ifdef QV8NUMERIC_BENCH_POSTGRESQL
    all.push_back(postgresql_peer());
#endif
#ifdef QV8NUMERIC_BENCH_FMT
    all.push_back(fmt_peer());
#endif
    all.push_back(charconv_peer());
    return all;
}

}  // namespace qv8numeric_bench
