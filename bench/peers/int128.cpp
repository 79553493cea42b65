// SPDX-License-Identifier: MIT
// The hand-made peer in its two variants. Its values are the library's 16 bytes, and its answers are the library's:
// what a host would have to write to do without it.
#include "int128.h"

#include "../coefficients.h"
#include "../contender.h"
#include "int128_kernels.h"
#include "peers.h"

namespace qv8numeric_bench {
namespace {

struct HandMade : CoefficientTraits {
    static constexpr Manners kManners = Manners::kCommon;

    static std::optional<Part> part_in(const Workload& w, int) {
        if (!int128::is_within_reach(w)) return std::nullopt;
        return whole_job();
    }
};

struct ByHand : HandMade {
    static constexpr const char* kName = "by hand, __int128";
    static const Kernels<Numeric>& kernels() { return int128::kernels(); }
};

struct Plain : HandMade {
    static constexpr const char* kName = "plain, __int128";
    static const Kernels<Numeric>& kernels() { return plain_int128::kernels(); }
};

}  // namespace

bool int128::is_within_reach(const Workload& w) {
    const int a = w.a.scale, b = w.b.scale, result = w.result.scale, common = a > b ? a : b;
    const auto is_power = [](int exponent) { return -kMostDigits <= exponent && exponent <= kMostDigits; };
    switch (w.operation) {
        case Operation::kRescale: return is_power(a - result);
        case Operation::kRescalingAdd: return is_power(a - b) && is_power(common - result);
        case Operation::kRescalingCompare: return is_power(a - b);
        case Operation::kRescalingMultiply: return is_power(a + b - result);
        case Operation::kRescalingDivide: return result - a + b >= 0 && is_power(result - a + b);
        case Operation::kFromDouble: return 0 <= result && result <= 22;
        case Operation::kToDouble:
        case Operation::kToInteger: return 0 <= a && a <= kWordDigits;
        default: return true;
    }
}

std::unique_ptr<Contender> int128_peer() { return std::make_unique<Peer<ByHand>>(); }
std::unique_ptr<Contender> plain_int128_peer() { return std::make_unique<Peer<Plain>>(); }

}  // namespace qv8numeric_bench
