// SPDX-License-Identifier: MIT
// The explicit change of scale.
#include "numeric/truncation.h"
#include "wide/narrowing.h"
#include "wide/rounding.h"
#include "wide/scaling.h"

namespace qv8numeric {
namespace {

// All four upper limbs alike. They need not equal the sign, and the values that pass here are part of the interface.
bool upper_limbs_agree(const ExtendedNumeric& x) { return x.word[2] == x.word[3] && limb(x, 4) == limb(x, 5); }

// What was moved, in two's complement. The sign is that of the bits, so a negative value that rounded to zero is
// refused too; all as an overflow, on either side.
NumericStatus narrow_moved(const ExtendedNumeric& moved, bool negative, Numeric& dst) {
    const Numeric result = from_bits(low_half(moved));
    if (is_negative(result) != negative || !upper_limbs_agree(moved)) return refuse(false, dst);
    dst = result;
    return NUMERIC_OK;
}

// The general road: a rounding in place, of digits that go, and then the move in two's complement.
QV8NUMERIC_ASIDE NumericStatus rescale(const NumericInfo& from, const NumericInfo& to, const Numeric& src,
                                       Numeric& value) {
    value = from_bits(bits_of(src));
    const bool negative = is_negative(value);
    const int64_t places = int64_t{to.scale} - from.scale;
    // The status is not looked at: a loss is not reported here, and a rounding that left the range goes on as the
    // coefficient -2^127, which the sign check refuses for a positive value and lets through for a negative one.
    (void)numeric_truncation_inline(from, to.scale, from.scale, value, to.rounding_mode);
    Fraction ignored{};  // after the rounding only zeros are left to drop, but for the case just named
    return narrow_moved(moved_by(value, places, ignored), negative, value);
}

// More places: up to 38 of them make a product that 256 bits hold in any case.
QV8NUMERIC_ASIDE NumericStatus lengthen(const NumericInfo& from, const NumericInfo& to, const Numeric& src,
                                        Numeric& dst) {
    const auto digits = static_cast<uint64_t>(int64_t{to.scale} - from.scale);
    if (digits > pair_digits) return rescale(from, to, src, dst);
    const bool negative = is_negative(src);
    const ExtendedNumeric product = multiply_by_power(magnitude_of(src), digits);
    if (!fits(product)) return narrow_moved(negated_if(negative, product), negative, dst);
    dst = with_sign(product, negative);
    return NUMERIC_OK;
}

// Fewer places of a magnitude that has room to be rounded. A negative value that rounds to zero has lost its sign and
// is refused.
template <class Magnitude>
NumericStatus shorten(Magnitude magnitude, bool negative, uint64_t digits, uint32_t mode, Numeric& result) {
    const Fraction dropped = scale_down(magnitude, digits);
    magnitude = increased_by(magnitude, rounds_away(mode, dropped, negative, is_odd(magnitude)));
    const WordPair bits = bits_of(with_sign(magnitude, negative));
    const bool lost = both(negative, is_zero(magnitude));
    result = from_bits({bits.high | uint64_t{one_if(lost)} << 63, bits.low});  // of 0 that makes NaN
    return static_cast<NumericStatus>(one_if(lost) * NUMERIC_OVERFLOW);
}

QV8NUMERIC_ASIDE NumericStatus shorten_pair(const NumericInfo& from, const NumericInfo& to, const Numeric& src,
                                            Numeric& dst, uint64_t digits, uint32_t mode) {
    const WordPair magnitude = magnitude_of(src);
    if (digits > pair_digits || !has_room_to_round(magnitude, digits)) return rescale(from, to, src, dst);
    return shorten(magnitude, is_negative(src), digits, mode, dst);
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericRescale(const NumericInfo* from, const NumericInfo* to, const Numeric* src,
                                           Numeric* dst) noexcept {
    const int64_t places = int64_t{to->scale} - from->scale;
    const bool is_word = fits_int64(*src);
    if (!is_word && is_nan(*src)) {
        *dst = nan_pattern;
        return NUMERIC_NAN;
    }
    if (places >= 0) {
        if (!is_word || int64_t{word_digits} < places) return lengthen(*from, *to, *src, *dst);
        *dst = from_bits(moved_up<WordPair>(*src, static_cast<uint64_t>(places)));  // at most 2^63 * 10^19 < 2^127
        return NUMERIC_OK;
    }
    const auto digits = static_cast<uint64_t>(-places);
    const uint32_t mode = to->rounding_mode;
    if (!is_rounding_mode(from->rounding_mode) || !is_rounding_mode(mode)) {
        *dst = from_bits(bits_of(*src));
        return NUMERIC_INVALID_ARGUMENT;
    }
    if (!is_word || digits > word_digits) return shorten_pair(*from, *to, *src, *dst, digits, mode);
    return shorten(magnitude_as<uint64_t>(*src), is_negative(*src), digits, mode, *dst);
}
