// SPDX-License-Identifier: MIT
#include "peers/peers.h"

namespace qv8numeric_bench {

std::vector<std::unique_ptr<Contender>> peers() {
    std::vector<std::unique_ptr<Contender>> all;
    all.push_back(int128_peer());
    return all;
}

}  // namespace qv8numeric_bench
