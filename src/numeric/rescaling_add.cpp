// SPDX-License-Identifier: MIT
// Add and subtract for two values of different scales.
#include <algorithm>

#include "numeric/alignment.h"
#include "numeric/same_scale.h"
#include "wide/narrowing.h"

namespace qv8numeric {
namespace {

// What add and subtract differ in. On the short roads b of a subtraction is added as -b; in 256 bits it is not negated,
// because the guard digits of an operand go by its upper half.
struct Sum {
    static Numeric addend(const Numeric& b) { return b; }
    static NumericStatus same_scale(const Numeric& a, const Numeric& b, Numeric& result) {
        return add_same_scale(a, b, result);
    }
    static WordPair combine(WordPair a, WordPair b) { return wrapping_add(a, b); }
    static ExtendedNumeric combine(const ExtendedNumeric& a, const ExtendedNumeric& b) { return add(a, b); }
    static int32_t truncated(const AlignedOperands& operands) { return operands.a_truncated + operands.b_truncated; }
};

struct Difference {
    static Numeric addend(const Numeric& b) { return from_bits(wrapping_negate(bits_of(b))); }
    static NumericStatus same_scale(const Numeric& a, const Numeric& b, Numeric& result) {
        return subtract_same_scale(a, b, result);
    }
    static WordPair combine(WordPair a, WordPair b) { return wrapping_subtract(a, b); }
    static ExtendedNumeric combine(const ExtendedNumeric& a, const ExtendedNumeric& b) { return subtract(a, b); }
    static int32_t truncated(const AlignedOperands& operands) { return operands.a_truncated - operands.b_truncated; }
};

// The general road: 256 bits, with what was cut off an operand far away.
template <class Operation>
QV8NUMERIC_ASIDE NumericStatus combine_far(const NumericInfo& a_info, const NumericInfo& b_info,
                                           const NumericInfo& result_info, const Numeric& a, const Numeric& b,
                                           Numeric& result) {
    const AlignedOperands operands = aligned(a, a_info.scale, b, b_info.scale);
    ExtendedNumeric combined = Operation::combine(operands.a, operands.b);
    const bool negative = is_negative(combined);
    const int64_t shift = result_info.scale - operands.scale;
    unsigned overflow = 0;
    const NumericStatus status =
        postprocess(combined, Operation::truncated(operands), shift, result_info.rounding_mode, result, overflow);
    return overflow != 0 ? refuse(negative, result) : status;
}

// Both operands in two's complement at the scale of the one with more places, as far as nothing leaves the top there:
// for two int64 in two words, 2^63 * (10^19 + 1) being below 2^127, and for any two in four.
template <class Operation, class Words>
QV8NUMERIC_ASIDE NumericStatus combine_exactly(const NumericInfo& a_info, const NumericInfo& b_info,
                                               const NumericInfo& result_info, const Numeric& a, const Numeric& b,
                                               Numeric& result) {
    constexpr bool in_two_words = std::is_same_v<Words, WordPair>;
    const int64_t scale = std::max(a_info.scale, b_info.scale);
    const auto a_digits = static_cast<uint64_t>(scale - a_info.scale);
    const auto b_digits = static_cast<uint64_t>(scale - b_info.scale);
    if (std::max(a_digits, b_digits) > (in_two_words ? word_digits : pair_digits)) {
        if constexpr (in_two_words) {
            return combine_exactly<Operation, ExtendedNumeric>(a_info, b_info, result_info, a, b, result);
        } else {
            return combine_far<Operation>(a_info, b_info, result_info, a, b, result);
        }
    }
    const Words combined = Operation::combine(moved_up<Words>(a, a_digits), moved_up<Words>(b, b_digits));
    const bool negative = is_negative(combined);
    const int64_t shift = result_info.scale - scale;
    return finish(negated_if(negative, combined), negative, shift, result_info.rounding_mode, result);
}

// kept + other / 10^digits, where kept is at the result's scale: nothing but the other one has to be moved. (Beyond 38
// digits only its sign is left of it, which is all that the guard digits of the general road leave too.) Rounded down,
// towards minus infinity, it adds to kept as an integer, and the fraction it lost lies above that sum, whatever the
// signs.
template <class Magnitude>
QV8NUMERIC_INLINE NumericStatus add_to_kept(const Numeric& kept, Magnitude other, bool other_negative, uint64_t digits,
                                            uint32_t mode, Numeric& result) {
    const Fraction dropped = scale_down(other, digits);
    const bool borrows = both(other_negative, dropped != Fraction::nothing);
    const Numeric addend = with_sign(increased_by(other, borrows), other_negative);
    const WordPair sum = wrapping_add(bits_of(kept), bits_of(addend));
    const bool raised = rounds_up(mode, complement_if(borrows, dropped), is_negative(sum), is_odd(sum));
    const NumericStatus status =
        settle(kept, increased_by(sum, raised), sign_overflow(bits_of(kept), bits_of(addend), sum), result);
    return status == NUMERIC_OK && dropped != Fraction::nothing ? NUMERIC_INEXACT : status;
}

// For operands that fit Magnitude and are not NaN.
template <class Operation, class Magnitude>
QV8NUMERIC_INLINE NumericStatus combine(const NumericInfo& a_info, const NumericInfo& b_info,
                                        const NumericInfo& result_info, const Numeric& a, const Numeric& b,
                                        Numeric& result) {
    if (!are_rounding_modes(a_info, b_info, result_info)) return NUMERIC_INVALID_ARGUMENT;
    const int64_t a_places = int64_t{a_info.scale} - result_info.scale;
    const int64_t b_places = int64_t{b_info.scale} - result_info.scale;
    if ((a_places | b_places) == 0) return Operation::same_scale(a, b, result);
    const uint32_t mode = result_info.rounding_mode;
    if (a_places == 0 && b_places > 0) {
        const bool negative = is_negative(Operation::addend(b));
        return add_to_kept(a, magnitude_as<Magnitude>(b), negative, static_cast<uint64_t>(b_places), mode, result);
    }
    if (b_places == 0 && a_places > 0) {
        const bool negative = is_negative(a);
        return add_to_kept(Operation::addend(b), magnitude_as<Magnitude>(a), negative, static_cast<uint64_t>(a_places),
                           mode, result);
    }
    return combine_exactly<Operation, Doubled<Magnitude>>(a_info, b_info, result_info, a, b, result);
}

template <class Operation>
QV8NUMERIC_ASIDE NumericStatus combine_pairs(const NumericInfo& a_info, const NumericInfo& b_info,
                                             const NumericInfo& result_info, const Numeric& a, const Numeric& b,
                                             Numeric& result) {
    if (propagates_nan(a, b, result)) return NUMERIC_NAN;
    return combine<Operation, WordPair>(a_info, b_info, result_info, a, b, result);
}

template <class Operation>
NumericStatus combine(const NumericInfo& a_info, const NumericInfo& b_info, const NumericInfo& result_info,
                      const Numeric& a, const Numeric& b, Numeric& result) {
    if (!fits_int64(a) || !fits_int64(b)) return combine_pairs<Operation>(a_info, b_info, result_info, a, b, result);
    return combine<Operation, uint64_t>(a_info, b_info, result_info, a, b, result);
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericRescalingAdd(const NumericInfo* a_info, const NumericInfo* b_info,
                                                const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                                Numeric* result) noexcept {
    return combine<Sum>(*a_info, *b_info, *result_info, *a, *b, *result);
}

extern "C" NumericStatus QV8NumericRescalingSub(const NumericInfo* a_info, const NumericInfo* b_info,
                                                const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                                Numeric* result) noexcept {
    return combine<Difference>(*a_info, *b_info, *result_info, *a, *b, *result);
}
