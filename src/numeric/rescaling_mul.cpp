// SPDX-License-Identifier: MIT
// The product of two values of any scales, exact in 256 bits and rounded once.
#include "wide/narrowing.h"

namespace qv8numeric {
namespace {

// From the product's scale to the result's, as the descriptors' own 32 bits count: beyond them the shift wraps.
constexpr int64_t product_shift(int32_t a_scale, int32_t b_scale, int32_t result_scale) {
    return static_cast<int32_t>(int64_t{result_scale} - a_scale - b_scale);
}

// The product of two magnitudes is exact in twice their width: at most 2^126, or below 2^254.
template <class Magnitude>
NumericStatus rescaling_multiply(const NumericInfo& a_info, const NumericInfo& b_info, const NumericInfo& result_info,
                                 const Numeric& a, const Numeric& b, Numeric& result) {
    if (!are_rounding_modes(a_info, b_info, result_info)) return NUMERIC_INVALID_ARGUMENT;
    // The sign comes from the operands, so a product that rounds to zero still rounds in its own direction.
    const bool negative = is_negative(a) != is_negative(b);
    const int64_t shift = product_shift(a_info.scale, b_info.scale, result_info.scale);
    return finish(multiply(magnitude_as<Magnitude>(a), magnitude_as<Magnitude>(b)), negative, shift,
                  result_info.rounding_mode, result);
}

// Given by value: so the door to both roads needs no register that it would have to save.
QV8NUMERIC_ASIDE NumericStatus multiply_int64(const NumericInfo& a_info, const NumericInfo& b_info,
                                              const NumericInfo& result_info, int64_t a, int64_t b, Numeric& result) {
    return rescaling_multiply<uint64_t>(a_info, b_info, result_info, sign_extend(a), sign_extend(b), result);
}

QV8NUMERIC_ASIDE NumericStatus multiply_pairs(const NumericInfo& a_info, const NumericInfo& b_info,
                                              const NumericInfo& result_info, const Numeric& a, const Numeric& b,
                                              Numeric& result) {
    if (propagates_nan(a, b, result)) return NUMERIC_NAN;
    return rescaling_multiply<WordPair>(a_info, b_info, result_info, a, b, result);
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericRescalingMul(const NumericInfo* a_info, const NumericInfo* b_info,
                                                const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                                Numeric* result) noexcept {
    if (!fits_int64(*a) || !fits_int64(*b)) return multiply_pairs(*a_info, *b_info, *result_info, *a, *b, *result);
    return multiply_int64(*a_info, *b_info, *result_info, to_int64(*a), to_int64(*b), *result);
}
