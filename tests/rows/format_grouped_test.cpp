// SPDX-License-Identifier: MIT
// Number to text with a comma before every third digit of the integer part.
#include <gtest/gtest.h>

#include "decimal_text.h"
#include "formatting.h"
#include "modes.h"
#include "special_values.h"

namespace qv8numeric_tests {
namespace {

constexpr Formatter kPlain = QV8NumericNum2Str;
constexpr Formatter kGrouped = QV8NumericNum2Dgstr;

// name, value, scale, mode, exponent shift, output scale, status, text
constexpr FormatRow kDigitRows[] = {
    {"zero", "0", 0, kHalfEven, 0, 0, NUMERIC_OK, "0"},
    {"zero with places", "0", 0, kHalfEven, 0, 3, NUMERIC_OK, "0.000"},
    {"three digits have no comma", "999", 0, kHalfEven, 0, 0, NUMERIC_OK, "999"},
    {"four digits have one", "1000", 0, kHalfEven, 0, 0, NUMERIC_OK, "1,000"},
    {"a sign is no digit", "-999", 0, kHalfEven, 0, 0, NUMERIC_OK, "-999"},
    {"a sign before a comma", "-1000", 0, kHalfEven, 0, 0, NUMERIC_OK, "-1,000"},
    {"six digits have one comma", "999999", 0, kHalfEven, 0, 0, NUMERIC_OK, "999,999"},
    {"seven digits have two", "1234567", 0, kHalfEven, 0, 0, NUMERIC_OK, "1,234,567"},
    {"seven digits with places", "1234567", 0, kHalfEven, 0, 2, NUMERIC_OK, "1,234,567.00"},
    {"fraction digits are never grouped", "1234567", 6, kHalfEven, 0, 6, NUMERIC_OK, "1.234567"},
    {"groups count from the point", "1234567", 2, kHalfEven, 0, 2, NUMERIC_OK, "12,345.67"},
    {"places of eight digits before the groups", "1234567890123", 8, kHalfEven, 0, 8, NUMERIC_OK, "12,345.67890123"},
    {"a group across two runs of eight digits", "1234567890", 0, kHalfEven, 0, 0, NUMERIC_OK, "1,234,567,890"},
    {"-2^64", "-2^64", 0, kHalfEven, 0, 0, NUMERIC_OK, "-18,446,744,073,709,551,616"},
    {"10^38", "10^38", 0, kHalfEven, 0, 0, NUMERIC_OK, "100,000,000,000,000,000,000,000,000,000,000,000,000"},
    {"the largest value", "2^127-1", 0, kHalfEven, 0, 0, NUMERIC_OK,
     "170,141,183,460,469,231,731,687,303,715,884,105,727"},
    {"the smallest value with places", "-2^127+1", 2, kHalfEven, 0, 2, NUMERIC_OK,
     "-1,701,411,834,604,692,317,316,873,037,158,841,057.27"},
    {"NaN", "NaN", 0, kHalfEven, 0, 0, NUMERIC_NAN, "NaN"},
};

TEST(FormatGrouped, GroupsTheIntegerDigits) { expect_rows(kGrouped, kDigitRows); }

constexpr FormatRow kShiftRows[] = {
    {"two appended zeros and the digits share a group", "12345", 1, kHalfEven, 3, 1, NUMERIC_OK, "1,234,500E-3"},
    {"three appended zeros are a group of their own", "1", 0, kHalfEven, 3, 0, NUMERIC_OK, "1,000E-3"},
    {"four appended zeros", "12", 0, kHalfEven, 4, 0, NUMERIC_OK, "120,000E-4"},
    {"seven appended zeros", "-123", 0, kHalfEven, 7, 0, NUMERIC_OK, "-1,230,000,000E-7"},
    {"a shift to the left leaves fewer integer digits", "1234567", 0, kHalfEven, -3, 0, NUMERIC_OK, "1,234.567E+3"},
    {"a shift that leaves no integer digit", "1234", 0, kHalfEven, -4, 0, NUMERIC_OK, "0.1234E+4"},
    {"the exponent is never grouped", "0", 0, kHalfEven, 12345, 0, NUMERIC_OK, "0E-12345"},
    {"zero has no appended zeros", "0", 0, kHalfEven, 7, 0, NUMERIC_OK, "0E-7"},
};

TEST(FormatGrouped, GroupsAppendedZerosToo) { expect_rows(kGrouped, kShiftRows); }

constexpr FormatRow kStatusRows[] = {
    {"rounding makes a digit and with it a comma", "9999", 1, kHalfUp, 0, 0, NUMERIC_INEXACT, "1,000"},
    {"a negative value rounded to zero", "-4", 3, kHalfUp, 0, 2, NUMERIC_INEXACT, "-0.00"},
    {"tens dropped", "1234567", 0, kHalfUp, 0, -1, NUMERIC_INEXACT, "123,457"},
    {"the digits of an overflow", "1", 0, kHalfEven, 0, 39, NUMERIC_OVERFLOW,
     "0.170141183460469231731687303715884105728"},
    {"the integer digits of an overflow", "2^127-1", 0, kHalfEven, 0, 1, NUMERIC_OVERFLOW,
     "17,014,118,346,046,923,173,168,730,371,588,410,572.8"},
    {"a negative overflow", "-1", -39, kHalfEven, 0, 0, NUMERIC_UNDERFLOW,
     "-170,141,183,460,469,231,731,687,303,715,884,105,728"},
    {"smallest scale into the largest", "1", INT32_MIN, kHalfEven, INT32_MAX, INT32_MAX, NUMERIC_OVERFLOW,
     "170,141,183,460,469,231,731,687,303,715,884,105,728E-2147483647"},
    {"largest scale, kept", "12345", INT32_MAX, kHalfEven, INT32_MAX, INT32_MAX, NUMERIC_OK, "12,345E-2147483647"},
    {"largest scale into the smallest", "-5", INT32_MAX, kUp, 0, INT32_MIN, NUMERIC_INEXACT, "-1"},
};

TEST(FormatGrouped, ReportsAsThePlainFormDoes) { expect_rows(kGrouped, kStatusRows); }

TEST(FormatGrouped, DiffersFromThePlainTextByItsCommasOnly) {
    for (const Numeric& value : special_values()) {
        for (const std::int32_t output_scale : {-8, -1, 0, 1, 9, 38}) {
            for (const std::int32_t shift : {-20, -1, 0, 1, 2, 3, 4, 30}) {
                const Format format = {value, {1, kHalfUp}, shift, output_scale};
                const Filled plain = fill(kPlain, format, 200);
                const Filled grouped = fill(kGrouped, format, 200);
                ASSERT_EQ(grouped.text(), with_groups(plain.text()));
                ASSERT_EQ(grouped.status, plain.status) << plain.text();
            }
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
