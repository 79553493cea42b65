// SPDX-License-Identifier: MIT
// Boost.Multiprecision's integer of fixed 256 bits, on the stack.
#include <boost/multiprecision/cpp_int.hpp>

#include "../contender.h"
#include "int128_kernels.h"
#include "integer_kernels.h"
#include "peers.h"

namespace qv8numeric_bench {
namespace {

namespace mp = boost::multiprecision;

struct BoostInteger {
    using Value = mp::number<mp::cpp_int_backend<256, 256, mp::signed_magnitude, mp::unchecked, void>, mp::et_off>;

    static Value from(std::int64_t high, std::uint64_t low) { return (Value(high) << 64) + low; }
    static void divide(const Value& n, const Value& d, Value& quotient, Value& rest) {
        mp::divide_qr(n, d, quotient, rest);
    }
    static bool is_odd(const Value& x) { return bit_test(x, 0); }
    static int sign(const Value& x) { return x.sign(); }
    static std::int64_t to_int64(const Value& x) { return static_cast<std::int64_t>(x); }
};

struct Boost : IntegerKernels<BoostInteger> {
    using Value = BoostInteger::Value;
    static constexpr const char* kName = "Boost.Multiprecision";
    static constexpr Manners kManners = Manners::kCommon;

    static Value value(const Numeric& number, int) {
        // A shift of a negative number is refused there.
        const Value high = Value(number.high) * (Value(1) << 64);
        return high + number.low;
    }
    static std::string text(const Value& value, int) { return value.str(); }
    static std::uint64_t word(const Value& value) {
        return *value.backend().limbs() ^ static_cast<unsigned>(value.sign());
    }
    static void entangle(Value& value, std::uint64_t zero) { *value.backend().limbs() ^= zero; }
    static std::optional<Part> part_in(const Workload& w, int digits) {
        if (!int128::is_within_reach(w) || digits > 38) return std::nullopt;
        return part_without("no NaN");
    }
};

}  // namespace

std::unique_ptr<Contender> boost_peer() { return std::make_unique<Peer<Boost>>(); }

}  // namespace qv8numeric_bench
