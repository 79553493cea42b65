// SPDX-License-Identifier: MIT
// Abseil's 128-bit integer.
#include <absl/numeric/int128.h>

#include <cstdlib>

#include "../coefficients.h"
#include "../contender.h"
#include "int128_kernels.h"
#include "integer_kernels.h"
#include "peers.h"

namespace qv8numeric_bench {
namespace {

struct AbslInteger {
    using Value = absl::int128;

    static Value from(std::int64_t high, std::uint64_t low) { return absl::MakeInt128(high, low); }
    static void divide(const Value& n, const Value& d, Value& quotient, Value& rest) {
        quotient = n / d;
        rest = n % d;
    }
    static bool is_odd(const Value& x) { return (absl::Int128Low64(x) & 1) != 0; }
    static int sign(const Value& x) { return (x > 0) - (x < 0); }
    static std::int64_t to_int64(const Value& x) { return static_cast<std::int64_t>(x); }
};

struct Absl : IntegerKernels<AbslInteger> {
    using Value = AbslInteger::Value;
    static constexpr const char* kName = "Abseil";
    static constexpr Manners kManners = Manners::kCommon;

    static Value value(const Numeric& number, int) { return absl::MakeInt128(number.high, number.low); }
    static std::string text(const Value& value, int) {
        return text_of(Numeric{absl::Int128Low64(value), absl::Int128High64(value)});
    }
    static std::uint64_t word(const Value& value) {
        return absl::Int128Low64(value) ^ static_cast<std::uint64_t>(absl::Int128High64(value));
    }
    static void entangle(Value& value, std::uint64_t zero) { value ^= absl::int128(zero); }

    // What leaves 128 bits on the way wraps around there: the digits that an operation may add to an operand's.
    static int digits_on_the_way(const Workload& w, int digits) {
        switch (w.operation) {
            case Operation::kRescalingAdd:
            case Operation::kRescalingCompare: return std::abs(w.a.scale - w.b.scale);
            case Operation::kRescalingMultiply: return digits;
            case Operation::kRescalingDivide: return w.result.scale - w.a.scale + w.b.scale;
            default: return 0;
        }
    }

    static std::optional<Part> part_in(const Workload& w, int digits) {
        const int added = digits_on_the_way(w, digits);
        if (!int128::is_within_reach(w) || (added > 0 && digits + added > 38)) return std::nullopt;
        return part_without("no NaN, no check of the range");
    }
};

}  // namespace

std::unique_ptr<Contender> absl_peer() { return std::make_unique<Peer<Absl>>(); }

}  // namespace qv8numeric_bench
