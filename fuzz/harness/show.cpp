// SPDX-License-Identifier: MIT
#include "show.h"

#include <array>
#include <cstdio>

#include "wide.h"

namespace qv8numeric_fuzz {

std::string hexadecimal(std::uint64_t value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "UINT64_C(0x%016llx)", static_cast<unsigned long long>(value));
    return text.data();
}

std::string initializer(const Numeric& value) {
    return "{" + hexadecimal(value.low) + ", (int64_t)" + hexadecimal(static_cast<std::uint64_t>(value.high)) + "}";
}

// INT32_MIN and INT64_MIN have no literals of their own.
std::string literal(std::int32_t value) { return value == INT32_MIN ? "INT32_MIN" : std::to_string(value); }

std::string literal(std::int64_t value) {
    return value == INT64_MIN ? "INT64_MIN" : "INT64_C(" + std::to_string(value) + ")";
}

std::string initializer(const NumericInfo& value) {
    return "{" + literal(value.scale) + ", " + std::to_string(value.rounding_mode) + "}";
}

std::string decimal(const Numeric& value) { return is_nan(value) ? "NaN" : signed_value(value).str(); }

std::string literal(std::string_view text) {
    std::string result = "\"";
    for (const char character : text) {
        if (character == '"' || character == '\\') {
            result += '\\';
            result += character;
        } else if (character >= ' ' && character <= '~' && character != '?') {
            result += character;
        } else {
            // Three octal digits: unlike a hexadecimal escape they end by themselves.
            std::array<char, 8> escape{};
            std::snprintf(escape.data(), escape.size(), "\\%03o", static_cast<unsigned>(character) & 0xff);
            result += escape.data();
        }
    }
    return result + "\"";
}

std::string status_name(std::int32_t status) {
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

}  // namespace qv8numeric_fuzz
