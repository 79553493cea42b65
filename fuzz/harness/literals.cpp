// SPDX-License-Identifier: MIT
#include "literals.h"

#include <algorithm>
#include <string_view>

namespace qv8numeric_fuzz {
namespace {

using std::string_view_literals::operator""sv;

constexpr std::string_view kCharacters = "0123456789.,eE+-";

constexpr std::string_view kPieces[] = {
    "0"sv,   "1"sv,   "2"sv,    "3"sv,     "4"sv,   "5"sv,        "6"sv,           "7"sv,
    "8"sv,   "9"sv,   ","sv,    "."sv,     "E"sv,   "e"sv,        "+"sv,           "-"sv,
    "00"sv,  "000"sv, "999"sv,  "5000"sv,  "E-"sv,  "e+"sv,       ",000"sv,        ",123"sv,
    ",12"sv, "10"sv,  "1234"sv, ",1234"sv, "E12"sv, "00000000"sv, "E2147483647"sv, "E-2147483648"sv,
    "0."sv,  ".0"sv,  " "sv,    "\0"sv,    "NaN"sv, "E0001"sv,    ",999,999"sv,    "1701411834604692317316873037158"sv,
};

// 2^127
constexpr std::string_view kLimit = "170141183460469231731687303715884105728";

// Digits in one of the styles at which something changes: limits, ties, zeros in front or behind.
std::string digits(std::uint8_t style, std::size_t count, std::uint64_t seed) {
    std::string result(count, '0');
    for (std::size_t i = 0; i < count; ++i) {
        // Marsaglia's xorshift.
        seed ^= seed << 13;
        seed ^= seed >> 7;
        seed ^= seed << 17;
        result[i] = static_cast<char>('0' + seed % 10);
    }
    const std::size_t part = count == 0 ? 0 : seed % (count + 1);
    switch (style % 8) {
        case 0: std::fill_n(result.begin(), part, '0'); break;
        case 1: std::fill(result.begin() + static_cast<std::ptrdiff_t>(part), result.end(), '0'); break;
        case 2: std::fill(result.begin() + static_cast<std::ptrdiff_t>(part), result.end(), '9'); break;
        case 3:
            std::fill(result.begin() + static_cast<std::ptrdiff_t>(part), result.end(), '0');
            if (part < count) result[part] = '5';
            break;
        case 4:
            std::copy_n(kLimit.begin(), std::min(count, kLimit.size()), result.begin());
            if (style >= 128 && count > 0) result.back() = static_cast<char>('0' + seed % 10);
            break;
        case 5: std::fill(result.begin(), result.end(), '0'); break;
        default: break;
    }
    return result;
}

std::size_t length(std::uint8_t choice) {
    return choice < 160 ? choice % 8U : choice < 224 ? choice % 24U : choice % 64U;
}

std::string with_groups(const std::string& digits) {
    std::string result;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0) result += ',';
        result += digits[i];
    }
    return result;
}

std::string exponent(std::uint8_t style, std::uint32_t value, std::uint64_t seed) {
    std::string result = style % 2 == 0 ? "E" : "e";
    if (style % 8 >= 4) result += style % 4 == 3 ? "+" : "-";
    switch (style / 8 % 8) {
        case 0:
        case 1:
        case 2: return result + std::to_string(value % 46);
        case 3: return result + std::to_string(value % 1000);
        case 4: return result + digits(style, value % 12, seed);
        case 5: return result + std::to_string(2147483640U + value % 16);
        case 6: return result + with_groups(std::to_string(value % 100) + digits(style, value % 14, seed));
        default: return result + "00" + std::to_string(value % 100);
    }
}

std::string by_the_rules(Source& source) {
    static constexpr std::string_view kTails[] = {""sv,     ""sv,  ""sv,   ""sv,  ""sv,  ""sv,      "E"sv,   ","sv,
                                                  ",123"sv, " "sv, ".5"sv, "-"sv, "x"sv, ",1234"sv, "E5E"sv, "\0009"sv};
    const std::uint8_t shape = source.byte();
    const std::uint8_t integer_style = source.byte();
    const std::uint8_t fraction_style = source.byte();
    const std::size_t integer_length = length(source.byte());
    const std::size_t fraction_length = length(source.byte());
    const std::uint8_t exponent_style = source.byte();
    const std::uint32_t exponent_value = source.word32();
    const std::uint8_t tail = source.byte();
    const std::uint64_t seed = source.word64();

    std::string text;
    if (shape % 4 == 1) text += "-";
    if (shape % 16 == 2) text += "+";
    const std::string integer_part = digits(integer_style, integer_length, seed);
    text += shape >= 128 ? with_groups(integer_part) : integer_part;
    if (shape / 16 % 4 != 0) text += "." + digits(fraction_style, fraction_length, ~seed);
    if (shape / 16 % 4 >= 2) text += exponent(exponent_style, exponent_value, seed);
    return text.append(kTails[tail % std::size(kTails)]);
}

}  // namespace

std::string number_text(Source& source) {
    const std::uint8_t kind = source.byte();
    if (kind >= 64) return by_the_rules(source);
    std::string text;
    for (std::size_t left = length(source.byte()); left > 0; --left) {
        const std::uint8_t byte = source.byte();
        if (kind < 8) {
            text += static_cast<char>(byte);
        } else if (kind < 24) {
            text += kCharacters[byte % kCharacters.size()];
        } else {
            text += kPieces[byte % std::size(kPieces)];
        }
    }
    return text;
}

}  // namespace qv8numeric_fuzz
