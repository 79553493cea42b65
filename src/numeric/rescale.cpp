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

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericRescale(const NumericInfo* from, const NumericInfo* to, const Numeric* src,
                                           Numeric* dst) noexcept {
    *dst = *src;
    if (is_nan(*dst)) return NUMERIC_NAN;
    const bool negative = is_negative(*dst);
    const int64_t places = int64_t{to->scale} - from->scale;
    if (places == 0) return NUMERIC_OK;

    if (places < 0) {
        if (!is_rounding_mode(from->rounding_mode) || !is_rounding_mode(to->rounding_mode)) {
            return NUMERIC_INVALID_ARGUMENT;
        }
        // The status is not looked at: a loss is not reported here, and a rounding that left the range goes on as the
        // coefficient -2^127, which the sign check refuses for a positive value and lets through for a negative one.
        (void)numeric_truncation_inline(*from, to->scale, from->scale, *dst, to->rounding_mode);
    }
    Fraction ignored{};  // after the rounding only zeros are left to drop, but for the case just named
    const ExtendedNumeric moved = moved_by(*dst, places, ignored);
    // The sign is that of the bits, so a negative value that rounds to zero is refused too.
    const Numeric result = from_bits(low_half(moved));
    if (is_negative(result) != negative || !upper_limbs_agree(moved)) {
        *dst = nan_pattern;
        return NUMERIC_OVERFLOW;  // on either side
    }
    *dst = result;
    return NUMERIC_OK;
}
