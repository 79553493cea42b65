// SPDX-License-Identifier: MIT
// The hand-made peer. Its values are the library's 16 bytes, and its answers are the library's: what a host would have
// to write to do without it.
#include "../coefficients.h"
#include "../contender.h"
#include "int128_parts.h"
#include "peers.h"

namespace qv8numeric_bench {
namespace {

struct Int128 : CoefficientTraits {
    static constexpr const char* kName = "by hand, __int128";
    static constexpr Manners kManners = Manners::kCommon;

    static const Kernels<Numeric>& kernels() {
        static const Kernels<Numeric> kernels = [] {
            Kernels<Numeric> k{};
            int128::add_arithmetic(k);
            int128::add_text(k);
            int128::add_machine_numbers(k);
            return k;
        }();
        return kernels;
    }

    static std::optional<Part> part_in(const Workload& w, int) {
        if (!int128::is_within_reach(w)) return std::nullopt;
        return whole_job();
    }
};

}  // namespace

std::unique_ptr<Contender> int128_peer() { return std::make_unique<Peer<Int128>>(); }

}  // namespace qv8numeric_bench
