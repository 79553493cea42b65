// SPDX-License-Identifier: MIT
// Number to text where one road ends and the next begins: values at the ends of a word and of the range, written with
// all their digits at every scale that a short road takes and some beyond, in buffers that are just large enough or
// not.
#include <gtest/gtest.h>

#include <new>

#include "formatting.h"
#include "modes.h"

namespace qv8numeric_tests {
namespace {

struct Row {
    const char* name;
    const char* digits;
};

constexpr Row kRows[] = {
    {"zero", "0"},
    {"one digit", "5"},
    {"seven digits", "1234567"},
    {"eight digits", "12345678"},
    {"10^8", "100000000"},
    {"10^16 - 1", "9999999999999999"},
    {"10^16", "10000000000000000"},
    {"2^63 - 1", "9223372036854775807"},
    {"2^63", "9223372036854775808"},
    {"2^63 + 1", "9223372036854775809"},
    {"10^19 - 1", "9999999999999999999"},
    {"10^19", "10000000000000000000"},
    {"2^64 - 1", "18446744073709551615"},
    {"2^64", "18446744073709551616"},
    {"2^64 + 1", "18446744073709551617"},
    {"10^38 - 1", "99999999999999999999999999999999999999"},
    {"10^38", "100000000000000000000000000000000000000"},
    {"the largest", "170141183460469231731687303715884105727"},
};

std::string grouped(std::string integer) {
    for (std::size_t comma = integer.size(); comma > 3;) integer.insert(comma -= 3, ",");
    return integer;
}

// By moving characters alone.
std::string text_of(std::string digits, bool negative, std::int32_t scale, bool in_groups) {
    const auto fraction = static_cast<std::size_t>(scale > 0 ? scale : 0);
    if (digits.size() <= fraction) digits.insert(0, fraction + 1 - digits.size(), '0');
    const std::string integer = digits.substr(0, digits.size() - fraction);
    const std::string point = fraction > 0 ? "." + digits.substr(digits.size() - fraction) : "";
    return (negative ? "-" : "") + (in_groups ? grouped(integer) : integer) + point;
}

void expect_text(Formatter formatter, const Format& format, const std::string& text) {
    for (const std::size_t room : {0U, 1U, 7U, 60U}) {
        const Filled filled = fill(formatter, format, text.size() + 1 + room);
        ASSERT_EQ(status_name(filled.status), "NUMERIC_OK") << text;
        ASSERT_EQ(filled.text(), text) << room << " bytes to spare";
    }
    const Filled refused = fill(formatter, format, text.size());
    ASSERT_EQ(status_name(refused.status), "NUMERIC_BUFFER_TOO_SMALL") << text;
    ASSERT_EQ(refused.buffer, text.substr(1) + '\0');
}

TEST(FormatRoads, AllDigitsAtEveryScale) {
    for (const Row& row : kRows) {
        for (const bool negative : {false, true}) {
            const std::string digits = row.digits;
            if (negative && digits == "0") continue;
            const Numeric value = num((negative ? "-" : "") + digits);
            for (std::int32_t scale = -2; scale <= 41; ++scale) {
                SCOPED_TRACE(std::string(row.name) + " at scale " + std::to_string(scale));
                const Format format = {value, {scale, kHalfEven}, 0, scale};
                expect_text(QV8NumericNum2Str, format, text_of(digits, negative, scale, false));
                expect_text(QV8NumericNum2Dgstr, format, text_of(digits, negative, scale, true));
            }
        }
    }
}

struct OverlapRow {
    const char* name;
    const char* value;
    std::int32_t scale;
    const char* text;
};

constexpr OverlapRow kOverlapRows[] = {
    {"one word", "-1234567", 2, "-12345.67"},
    {"two words", "-12345678901234567890123456789", 2, "-123456789012345678901234567.89"},
    {"one word, rounded", "1234567", 4, "123.46"},
    {"two words, rounded", "12345678901234567890123456789", 4, "1234567890123456789012345.68"},
};

// At each place of value and descriptor in the buffer, from its first bytes to its last.
TEST(FormatRoads, TheBufferMayLieOverTheOperands) {
    struct Operands {
        Numeric value;
        NumericInfo info;
    };
    for (const OverlapRow& row : kOverlapRows) {
        SCOPED_TRACE(row.name);
        for (std::size_t place = 0; place + sizeof(Operands) <= 80; place += alignof(Operands)) {
            alignas(Operands) char buffer[80] = {};
            auto* const operands = new (buffer + place) Operands{num(row.value), {row.scale, kHalfUp}};
            EXPECT_GE(QV8NumericNum2Str(&operands->value, &operands->info, 0, 2, buffer, sizeof buffer), NUMERIC_OK);
            EXPECT_EQ(std::string(buffer), row.text) << "operands at " << place;
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
