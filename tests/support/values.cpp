// SPDX-License-Identifier: MIT
#include "values.h"

#include <algorithm>
#include <stdexcept>

#include "exact.h"

namespace qv8numeric_tests {
namespace {

const cpp_int kNanCoefficient = -(cpp_int{1} << 127);

cpp_int integer(std::string_view digits) {
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string_view::npos) {
        throw std::invalid_argument("not a number: '" + std::string(digits) + "'");
    }
    const auto first = digits.find_first_not_of('0');  // cpp_int reads a leading 0 as octal
    return first == std::string_view::npos ? cpp_int{0} : cpp_int{std::string(digits.substr(first))};
}

// A term without its sign: digits, or base^exponent.
cpp_int term(std::string_view text) {
    const auto caret = text.find('^');
    if (caret == std::string_view::npos) return integer(text);
    return pow(integer(text.substr(0, caret)), static_cast<unsigned>(integer(text.substr(caret + 1))));
}

cpp_int sum(std::string_view text) {
    cpp_int total = 0;
    for (std::size_t at = 0; at < text.size() || at == 0;) {
        const bool negative = at < text.size() && text[at] == '-';
        if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
        const auto end = std::min(text.find_first_of("+-", at), text.size());
        const cpp_int value = term(text.substr(at, end - at));
        total += negative ? -value : value;
        at = end;
    }
    return total;
}

}  // namespace

Numeric num(std::string_view expression) {
    const bool nan = expression == "NaN";
    const cpp_int value = nan ? kNanCoefficient : sum(expression);
    if (!nan && abs(value) > (cpp_int{1} << 127) - 1) throw std::out_of_range(std::string(expression));
    return pattern(value);
}

std::string text(const Numeric& value) {
    const cpp_int number = coefficient(value);
    return number == kNanCoefficient ? "NaN" : number.str();
}

std::string status_name(NumericStatus status) {
    switch (status) {
        case NUMERIC_OK: return "NUMERIC_OK";
        case NUMERIC_NAN: return "NUMERIC_NAN";
        case NUMERIC_INEXACT: return "NUMERIC_INEXACT";
        case NUMERIC_OVERFLOW: return "NUMERIC_OVERFLOW";
        case NUMERIC_UNDERFLOW: return "NUMERIC_UNDERFLOW";
        case NUMERIC_SYNTAX_ERROR: return "NUMERIC_SYNTAX_ERROR";
        case NUMERIC_BUFFER_TOO_SMALL: return "NUMERIC_BUFFER_TOO_SMALL";
        case NUMERIC_INVALID_ARGUMENT: return "NUMERIC_INVALID_ARGUMENT";
        default: return std::to_string(status);
    }
}

std::string mode_name(std::uint32_t mode) {
    constexpr const char* names[] = {"UP", "DOWN", "CEILING", "FLOOR", "HALF_UP", "HALF_DOWN", "HALF_EVEN"};
    return mode < 7 ? names[mode] : std::to_string(mode);
}

}  // namespace qv8numeric_tests

std::ostream& operator<<(std::ostream& out, const Numeric& value) { return out << qv8numeric_tests::text(value); }
