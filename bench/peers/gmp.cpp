// SPDX-License-Identifier: MIT
// GMP's integers, through its own C++ interface.
#include <gmpxx.h>

#include "../contender.h"
#include "int128_kernels.h"
#include "integer_kernels.h"
#include "peers.h"

namespace qv8numeric_bench {
namespace {

struct GmpInteger {
    using Value = mpz_class;

    static Value from(std::int64_t high, std::uint64_t low) { return (Value(high) << 64) + low; }
    static void divide(const Value& n, const Value& d, Value& quotient, Value& rest) {
        mpz_tdiv_qr(quotient.get_mpz_t(), rest.get_mpz_t(), n.get_mpz_t(), d.get_mpz_t());
    }
    static bool is_odd(const Value& x) { return mpz_odd_p(x.get_mpz_t()) != 0; }
    static int sign(const Value& x) { return sgn(x); }
    static std::int64_t to_int64(const Value& x) { return x.get_si(); }
};

struct Gmp : IntegerKernels<GmpInteger> {
    using Value = GmpInteger::Value;
    static constexpr const char* kName = "GMP";
    static constexpr Manners kManners = Manners::kCommon;

    static Value value(const Numeric& number, int) { return GmpInteger::from(number.high, number.low); }
    static std::string text(const Value& value, int) { return value.get_str(); }
    static std::uint64_t word(const Value& value) {
        return mpz_getlimbn(value.get_mpz_t(), 0) ^ static_cast<std::uint64_t>(value.get_mpz_t()->_mp_size);
    }
    static void entangle(Value& value, std::uint64_t zero) { value.get_mpz_t()->_mp_d[0] ^= zero; }
    static std::optional<Part> part_in(const Workload& w, int) {
        if (!int128::is_within_reach(w)) return std::nullopt;
        return part_without("no NaN");
    }
};

}  // namespace

std::unique_ptr<Contender> gmp_peer() { return std::make_unique<Peer<Gmp>>(); }

}  // namespace qv8numeric_bench
