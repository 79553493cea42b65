// SPDX-License-Identifier: MIT
#include "model.h"
#include "scaling.h"

namespace qv8numeric_fuzz::model {
namespace {

// The value modulo 2^32, between -2^31 and 2^31 - 1.
std::int64_t wrapped(std::int64_t value) {
    constexpr std::int64_t kModulus = std::int64_t{1} << 32;
    std::int64_t residue = value % kModulus;
    if (residue < 0) residue += kModulus;
    return residue < kModulus / 2 ? residue : residue - kModulus;
}

}  // namespace

// A zero has a sign here too: that of the operands.
Outcome rescaling_multiply(const NumericInfo& a_info, const NumericInfo& b_info, const NumericInfo& result_info,
                           const Numeric& a, const Numeric& b) {
    if (is_nan(a) || is_nan(b)) return kNanOperand;
    if (!is_valid_mode(a_info.rounding_mode) || !is_valid_mode(b_info.rounding_mode)) return kInvalidArgument;
    const std::int64_t places = wrapped(std::int64_t{result_info.scale} - a_info.scale - b_info.scale);
    return moved(magnitude(a) * magnitude(b), is_negative(a) != is_negative(b), places, result_info.rounding_mode);
}

}  // namespace qv8numeric_fuzz::model
