// SPDX-License-Identifier: MIT
#include "model.h"
#include "scaling.h"

namespace qv8numeric_fuzz::model {
namespace {

constexpr Outcome kRefused{NUMERIC_OVERFLOW, true, kNan};

// The largest power applied is 10^87; beyond it the distance counts modulo 8.
const Wide& capped_power_of_ten(std::int64_t places) { return power_of_ten(places <= 87 ? places : 80 + places % 8); }

// value modulo 2^256 in two's complement, if it has the sign bit of the source and four equal limbs on top.
Outcome let_through(const Wide& value, const Numeric& source) {
    Wide pattern = low_bits(abs(value), 256);
    if (value < 0 && pattern != 0) pattern = power_of_two(256) - pattern;
    const Wide upper = pattern >> 128;
    const Wide limb = low_bits(upper, 32);
    const Wide four_limbs = limb * ((power_of_two(128) - 1) / (power_of_two(32) - 1));
    if (bit_test(pattern, 127) != is_negative(source) || upper != four_limbs) return kRefused;
    return {NUMERIC_OK, true, halves(pattern)};
}

// Rounded at the scale it has, then cut. What leaves the range by the rounding goes on as -2^127.
Wide with_fewer_places(const Numeric& source, std::int64_t places, std::uint32_t mode) {
    const bool negative = is_negative(source);
    const Wide quotient = rounded(without_places(magnitude(source), places), mode, negative);
    const bool leaves_the_range = with_places(quotient, places) >= power_of_two(127);
    if (leaves_the_range) return -without_places(power_of_two(127), places).value;
    return negative ? Wide(-quotient) : quotient;
}

}  // namespace

Outcome rescale(const NumericInfo& from, const NumericInfo& to, const Numeric& source) {
    if (is_nan(source)) return kNanOperand;
    const std::int64_t places = std::int64_t{to.scale} - from.scale;
    if (places == 0) return {NUMERIC_OK, true, source};
    if (places > 0) return let_through(signed_value(source) * capped_power_of_ten(places), source);
    if (!is_valid_mode(from.rounding_mode) || !is_valid_mode(to.rounding_mode)) {
        return {NUMERIC_INVALID_ARGUMENT, true, source};
    }
    return let_through(with_fewer_places(source, -places, to.rounding_mode), source);
}

}  // namespace qv8numeric_fuzz::model
