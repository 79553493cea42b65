// SPDX-License-Identifier: MIT
// Text to number where one road ends and the next begins: eight characters, a word, 38 digits, three exponent digits.
#include <gtest/gtest.h>

#include "modes.h"
#include "parsing.h"

namespace qv8numeric_tests {
namespace {

constexpr ParseRow kRows[] = {
    {"seven digits and a point fill eight characters", "12345.67", 2, kHalfEven, NUMERIC_OK, "1234567", kWholeText},
    {"and a sign in front of them", "-12345.67", 2, kHalfEven, NUMERIC_OK, "-1234567", kWholeText},
    {"an eighth digit behind them", "12345.678", 3, kHalfEven, NUMERIC_OK, "12345678", kWholeText},
    {"a marker behind them", "12345.67e2", 0, kHalfEven, NUMERIC_OK, "1234567", kWholeText},
    {"another point behind them", "12345.67.8", 2, kHalfEven, NUMERIC_OK, "1234567", 8},
    {"the point last of eight characters", "1234567.", 0, kHalfEven, NUMERIC_OK, "1234567", kWholeText},
    {"the point ninth", "12345678.", 0, kHalfEven, NUMERIC_OK, "12345678", kWholeText},
    {"the point first", ".1234567", 7, kHalfEven, NUMERIC_OK, "1234567", kWholeText},
    {"two points", "12..34567", 0, kHalfEven, NUMERIC_OK, "12", 3},
    {"seven characters", "1234.56", 2, kHalfEven, NUMERIC_OK, "123456", kWholeText},
    {"six characters and the NUL", "123.45", 2, kHalfEven, NUMERIC_OK, "12345", kWholeText},
    {"one character", "7", 0, kHalfEven, NUMERIC_OK, "7", kWholeText},
    {"a point behind one digit", "5.", 0, kHalfEven, NUMERIC_OK, "5", kWholeText},
    {"a point before one digit", "-.5", 1, kHalfEven, NUMERIC_OK, "-5", kWholeText},
    {"a point alone", ".", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a point with a sign", "-.", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a point before seven letters", ".abcdefg", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a sign alone", "+", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"two signs", "--12345.67", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a point with the eighth bit set is none",
     "12345\xae"
     "67",
     0, kHalfEven, NUMERIC_OK, "12345", 5},
    {"digits with the eighth bit set are none",
     "12\xb3\xb4"
     "5678",
     0, kHalfEven, NUMERIC_OK, "12", 2},
    {"2^63 - 1", "9223372036854775807", 0, kHalfEven, NUMERIC_OK, "2^63-1", kWholeText},
    {"2^63", "9223372036854775808", 0, kHalfEven, NUMERIC_OK, "2^63", kWholeText},
    {"-2^63", "-9223372036854775808", 0, kHalfEven, NUMERIC_OK, "-2^63", kWholeText},
    {"2^64 - 1", "18446744073709551615", 0, kHalfEven, NUMERIC_OK, "2^64-1", kWholeText},
    {"2^64", "18446744073709551616", 0, kHalfEven, NUMERIC_OK, "2^64", kWholeText},
    {"-2^64", "-18446744073709551616", 0, kHalfEven, NUMERIC_OK, "-2^64", kWholeText},
    {"38 digits", "99999999999999999999999999999999999999", 0, kHalfEven, NUMERIC_OK, "10^38-1", kWholeText},
    {"38 digits, one behind the point", "9999999999999999999999999999999999999.9", 1, kHalfEven, NUMERIC_OK, "10^38-1",
     kWholeText},
    {"38 digits behind zeros", "0000000000000000099999999999999999999999999999999999999", 0, kHalfEven, NUMERIC_OK,
     "10^38-1", kWholeText},
    {"39 digits", "100000000000000000000000000000000000000", 0, kHalfEven, NUMERIC_OK, "10^38", kWholeText},
    {"39 digits, the largest value", "-170141183460469231731687303715884105727", 0, kHalfEven, NUMERIC_OK, "-2^127+1",
     kWholeText},
    {"39 digits behind the point", "0.000000000000000000000000000000000000005", 39, kHalfEven, NUMERIC_OK, "5",
     kWholeText},
    {"38 digits moved up out of the range", "99999999999999999999999999999999999999", 1, kHalfEven, NUMERIC_OVERFLOW,
     "NaN", kWholeText},
    {"an exponent of three digits", "12345678.5e-101", 102, kHalfEven, NUMERIC_OK, "123456785", kWholeText},
    {"an exponent of four digits", "12345678.5e-0101", 102, kHalfEven, NUMERIC_OK, "123456785", 12},
    {"a second marker behind the exponent", "1.5e5e", 1, kHalfEven, NUMERIC_OK, "155", 5},
    {"a marker without exponent", "12345.67e", 2, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a digit rounded away of eight characters", "1234.565", 2, kHalfEven, NUMERIC_INEXACT, "123456", kWholeText},
    {"a digit rounded away of nine digits", "-123456.785", 2, kHalfUp, NUMERIC_INEXACT, "-12345679", kWholeText},
    {"a negative value rounded to zero", "-0.4", 0, kHalfEven, NUMERIC_INEXACT, "0", kWholeText},
    {"an invalid mode where nothing is rounded", "12345.67", 2, 7, NUMERIC_INVALID_ARGUMENT, "untouched", kWholeText},
    {"an invalid mode and 18 digits", "1234567890123456.78", 2, 7, NUMERIC_INVALID_ARGUMENT, "untouched", kWholeText},
    {"an invalid mode and an exponent", "1e5", 0, 7, NUMERIC_INVALID_ARGUMENT, "untouched", kWholeText},
};

constexpr ParseRow kPlainRows[] = {
    {"a comma ends it", "1,234", 0, kHalfEven, NUMERIC_OK, "1", 1},
    {"a comma behind eight characters", "12345.67,8", 2, kHalfEven, NUMERIC_OK, "1234567", 8},
    {"a comma behind an exponent", "1e2,345", 0, kHalfEven, NUMERIC_OK, "100", 3},
};

constexpr ParseRow kGroupedRows[] = {
    {"one group", "1,234", 0, kHalfEven, NUMERIC_OK, "1234", kWholeText},
    {"two groups", "-1,234,567.89", 2, kHalfEven, NUMERIC_OK, "-123456789", kWholeText},
    {"three groups", "12,345,678,901", 0, kHalfEven, NUMERIC_OK, "12345678901", kWholeText},
    {"a fourth digit in the second group", "1,234,5678", 0, kHalfEven, NUMERIC_OK, "1234", 5},
    {"a fourth digit in the third group", "1,234,567,8901", 0, kHalfEven, NUMERIC_OK, "1234567", 9},
    {"two digits in the last group", "1,234,56", 0, kHalfEven, NUMERIC_OK, "1234", 5},
    {"groups behind four digits", "1234,567", 0, kHalfEven, NUMERIC_OK, "1234567", 4},
    {"groups behind a fraction", "1.5,123", 4, kHalfEven, NUMERIC_OK, "15123", 3},
    {"groups and an exponent", "1,234.5e1", 0, kHalfEven, NUMERIC_OK, "12345", kWholeText},
    {"38 digits in groups", "12,345,678,901,234,567,890,123,456,789,012,345,678", 0, kHalfEven, NUMERIC_OK,
     "12345678901234567890123456789012345678", kWholeText},
    {"39 digits in groups", "123,456,789,012,345,678,901,234,567,890,123,456,789", 0, kHalfEven, NUMERIC_OK,
     "123456789012345678901234567890123456789", kWholeText},
    {"no digits before a group", ",123", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
};

TEST(ParseRoads, Both) { expect_rows_of_both(kRows); }
TEST(ParseRoads, Plain) { expect_rows(kPlain, kPlainRows); }
TEST(ParseRoads, Grouped) { expect_rows(kGrouped, kGroupedRows); }

}  // namespace
}  // namespace qv8numeric_tests
