// SPDX-License-Identifier: MIT
// One function for each peer. Those that need a package exist where it was found.
#ifndef QV8NUMERIC_BENCH_PEERS_H
#define QV8NUMERIC_BENCH_PEERS_H

#include <memory>

#include "../contender.h"

namespace qv8numeric_bench {

std::unique_ptr<Contender> int128_peer();
std::unique_ptr<Contender> plain_int128_peer();
std::unique_ptr<Contender> boost_peer();
std::unique_ptr<Contender> charconv_peer();

std::unique_ptr<Contender> absl_peer();
std::unique_ptr<Contender> fmt_peer();
std::unique_ptr<Contender> gcc_decimal_peer();
std::unique_ptr<Contender> gmp_peer();
std::unique_ptr<Contender> intel_peer();
std::unique_ptr<Contender> postgresql_peer();

}  // namespace qv8numeric_bench

#endif
