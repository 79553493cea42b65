// SPDX-License-Identifier: MIT
// One function for each peer; which of them exist is decided by the packages present.
#ifndef QV8NUMERIC_BENCH_PEERS_H
#define QV8NUMERIC_BENCH_PEERS_H

#include <memory>

#include "../contender.h"

namespace qv8numeric_bench {

std::unique_ptr<Contender> int128_peer();

}  // namespace qv8numeric_bench

#endif
