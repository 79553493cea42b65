// SPDX-License-Identifier: MIT
#include "decimal_text.h"

#include <algorithm>

#include "exact.h"

namespace qv8numeric_tests {
namespace {

const cpp_int kOutOfRange = cpp_int{1} << 127;

std::string exponent_suffix(std::int32_t shift) {
    if (shift == 0) return "";
    return (shift > 0 ? "E-" : "E+") + std::to_string(std::abs(std::int64_t{shift}));
}

// The digits with the point before the last `places` of them, or with zeros for the places below the units.
std::string placed(std::string digits, std::int64_t places) {
    if (places <= 0) return digits == "0" ? digits : digits + std::string(static_cast<std::size_t>(-places), '0');
    const auto fraction = static_cast<std::size_t>(places);
    if (digits.size() <= fraction) digits.insert(0, fraction + 1 - digits.size(), '0');
    return digits.insert(digits.size() - fraction, ".");
}

}  // namespace

DecimalText decimal_text(const Format& format) {
    const cpp_int value = coefficient(format.value);
    // Past a hundred places every coefficient but zero has left the range or vanished below half a unit.
    const auto moved = std::clamp<std::int64_t>(std::int64_t{format.output_scale} - format.info.scale, -100, 100);
    const Cut at_output_scale = cut({value, 1}, static_cast<int>(moved));
    cpp_int digits = abs(rounded(at_output_scale, format.info.rounding_mode));
    NumericStatus status = success(at_output_scale);
    if (digits >= kOutOfRange) {
        digits = kOutOfRange;
        status = value < 0 ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW;
    }
    const std::int64_t places = std::max<std::int64_t>(format.output_scale, 0) - format.exponent_shift;
    return {status, (value < 0 ? "-" : "") + placed(digits.str(), places) + exponent_suffix(format.exponent_shift)};
}

std::string with_groups(std::string text) {
    const std::size_t start = text.starts_with('-') ? 1 : 0;
    for (std::size_t at = std::min(text.find_first_of(".E"), text.size()); at > start + 3; at -= 3) {
        text.insert(at - 3, ",");
    }
    return text;
}

}  // namespace qv8numeric_tests
