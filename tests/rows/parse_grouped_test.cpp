// SPDX-License-Identifier: MIT
// Literals with groups: in the integer part, after it, in the exponent, and what the plain parser makes of them.
#include <gtest/gtest.h>

#include "modes.h"
#include "parsing.h"

namespace qv8numeric_tests {
namespace {

// name, text, scale, mode, status, value, end
constexpr ParseRow kGroupRows[] = {
    {"one group", "1,234", 0, kHalfEven, NUMERIC_OK, "1234", kWholeText},
    {"a group and a fraction", "1,234.5", 1, kHalfEven, NUMERIC_OK, "12345", kWholeText},
    {"two groups and a fraction", "1,234,567.25", 2, kHalfEven, NUMERIC_OK, "123456725", kWholeText},
    {"two leading digits", "12,345", 0, kHalfEven, NUMERIC_OK, "12345", kWholeText},
    {"three leading digits", "123,456", 0, kHalfEven, NUMERIC_OK, "123456", kWholeText},
    {"a sign", "-1,234", 0, kHalfEven, NUMERIC_OK, "-1234", kWholeText},
    {"a group and a point", "1,234.", 0, kHalfEven, NUMERIC_OK, "1234", kWholeText},
    {"a group and an exponent", "12,345E10", 0, kHalfEven, NUMERIC_OK, "123450000000000", kWholeText},
    {"a group, a fraction and an exponent", "1,234.5e2", 0, kHalfEven, NUMERIC_OK, "123450", kWholeText},
    {"groups of zeros in front are skipped", "0,000,123", 0, kHalfEven, NUMERIC_OK, "123", kWholeText},
    {"nothing but zeros", "0,000", 0, kHalfEven, NUMERIC_OK, "0", kWholeText},
    {"a group with leading zeros", "1,002", 0, kHalfEven, NUMERIC_OK, "1002", kWholeText},
    {"groups across a run of eight digits", "12,345,678,901", 0, kHalfEven, NUMERIC_OK, "12345678901", kWholeText},
    {"-2^64", "-18,446,744,073,709,551,616", 0, kHalfEven, NUMERIC_OK, "-2^64", kWholeText},
    {"the largest value", "170,141,183,460,469,231,731,687,303,715,884,105,727", 0, kHalfEven, NUMERIC_OK, "2^127-1",
     kWholeText},
    {"2^127", "170,141,183,460,469,231,731,687,303,715,884,105,728", 0, kHalfEven, NUMERIC_OVERFLOW, "NaN", kWholeText},
    {"-2^127", "-170,141,183,460,469,231,731,687,303,715,884,105,728", 0, kHalfEven, NUMERIC_UNDERFLOW, "NaN",
     kWholeText},
    {"text behind the groups", "1,234abc", 0, kHalfEven, NUMERIC_OK, "1234", 5},
    {"a second point behind the groups", "1,234.5.6", 1, kHalfEven, NUMERIC_OK, "12345", 7},
    {"an invalid mode", "1,234", 0, 7, NUMERIC_INVALID_ARGUMENT, "untouched", 5},
};

TEST(ParseGrouped, Groups) { expect_rows(kGrouped, kGroupRows); }

// A group is a comma and exactly three digits; any other comma ends the number.
constexpr ParseRow kBadGroupRows[] = {
    {"two digits", "1,23", 0, kHalfEven, NUMERIC_OK, "1", 1},
    {"one digit", "1,2", 0, kHalfEven, NUMERIC_OK, "1", 1},
    {"no digit", "1,", 0, kHalfEven, NUMERIC_OK, "1", 1},
    {"four digits", "1,2345", 0, kHalfEven, NUMERIC_OK, "1", 1},
    {"four digits behind a group", "1,234,5678", 0, kHalfEven, NUMERIC_OK, "1234", 5},
    {"two digits behind a group", "1,234,56", 0, kHalfEven, NUMERIC_OK, "1234", 5},
    {"a comma behind a group", "1,234,", 0, kHalfEven, NUMERIC_OK, "1234", 5},
    {"four digits behind a long run", "1234,5678", 0, kHalfEven, NUMERIC_OK, "1234", 4},
    {"two digits behind a long run", "1234,56", 0, kHalfEven, NUMERIC_OK, "1234", 4},
    {"six digits", "1,234567", 0, kHalfEven, NUMERIC_OK, "1", 1},
    {"two commas", "1,,234", 0, kHalfEven, NUMERIC_OK, "1", 1},
    {"a blank in the group", "1, 234", 0, kHalfEven, NUMERIC_OK, "1", 1},
    {"a sign in the group", "1,-23", 0, kHalfEven, NUMERIC_OK, "1", 1},
    {"a point in the group", "1,23.4", 0, kHalfEven, NUMERIC_OK, "1", 1},
    {"a bad group behind a fraction", "1.5,12", 1, kHalfEven, NUMERIC_OK, "15", 3},
    {"four digits behind a fraction", "1.5,1234", 1, kHalfEven, NUMERIC_OK, "15", 3},
    {"a bad group behind an exponent", "1e5,12", 0, kHalfEven, NUMERIC_OK, "100000", 3},
    {"four digits behind an exponent", "1e5,1234", 0, kHalfEven, NUMERIC_OK, "100000", 3},
    {"a comma in front", ",123", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a group behind a point alone", ".,123", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a group behind the sign", "-,123", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a group behind the marker", "1e,123", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
};

TEST(ParseGrouped, BadGroups) { expect_rows(kGrouped, kBadGroupRows); }

// Where no group can belong to the number, it ends at the comma; its digits have been taken all the same.
constexpr ParseRow kLateGroupRows[] = {
    {"behind four digits", "1234,567", 0, kHalfEven, NUMERIC_OK, "1234567", 4},
    {"several behind four digits", "1234,567,890", 0, kHalfEven, NUMERIC_OK, "1234567890", 4},
    {"a good and a bad one behind four digits", "1234,567,89", 0, kHalfEven, NUMERIC_OK, "1234567", 4},
    {"an exponent behind is not read", "1234,567e2", 0, kHalfEven, NUMERIC_OK, "1234567", 4},
    {"a fraction behind is not read", "1234,567.8", 1, kHalfEven, NUMERIC_OK, "12345670", 4},
    {"behind a fraction", "1.5,123", 4, kHalfEven, NUMERIC_OK, "15123", 3},
    {"behind a fraction, rounded away", "1.5,123", 1, kHalfEven, NUMERIC_INEXACT, "15", 3},
    {"behind a fraction without an integer", ".5,123", 4, kHalfEven, NUMERIC_OK, "5123", 2},
    {"behind a long fraction", "1.23456,789", 8, kHalfEven, NUMERIC_OK, "123456789", 7},
    {"behind groups and a fraction", "1,234.5,678", 4, kHalfEven, NUMERIC_OK, "12345678", 7},
    {"right behind the point they are the fraction", "1.,234", 3, kHalfEven, NUMERIC_OK, "1234", 2},
    {"right behind the point, two groups", "1.,234,567", 6, kHalfEven, NUMERIC_OK, "1234567", 2},
    {"right behind the point of a long run", "1234.,567", 3, kHalfEven, NUMERIC_OK, "1234567", 5},
    {"right behind the point of groups", "1,234.,567", 3, kHalfEven, NUMERIC_OK, "1234567", 6},
    {"right behind the point, zeros are digits", "0.,001", 3, kHalfEven, NUMERIC_OK, "1", 2},
    {"zeros behind zeros are skipped", "0000,001", 0, kHalfEven, NUMERIC_OK, "1", 4},
    {"the sign stays", "-1234,567", 0, kHalfEven, NUMERIC_OK, "-1234567", 5},
    {"-2^64", "-18446744073709551,616", 0, kHalfEven, NUMERIC_OK, "-2^64", 18},
    {"out of range by the group", "170141183460469231731687303715884105,728", 0, kHalfEven, NUMERIC_OVERFLOW, "NaN",
     36},
};

TEST(ParseGrouped, GroupsThatComeTooLate) { expect_rows(kGrouped, kLateGroupRows); }

// Groups of the exponent extend it, and count as mantissa digits on the way.
constexpr ParseRow kExponentGroupRows[] = {
    {"a thousand, end at the comma", "1e1,000", 0, kHalfEven, NUMERIC_OVERFLOW, "NaN", 3},
    {"a thousand taken back by the scale", "1e1,000", -1000, kHalfEven, NUMERIC_OK, "1", 3},
    {"a negative thousand", "1e-1,000", 1000, kHalfEven, NUMERIC_OK, "1", 4},
    {"several groups", "7e1,234,567", -1234567, kHalfEven, NUMERIC_OK, "7", 3},
    {"several groups, negative", "7e-1,234,567", 1234567, kHalfEven, NUMERIC_OK, "7", 4},
    {"the eighth digit sends all of them to the mantissa", "7e12,345,678", 0, kHalfEven, NUMERIC_OK, "712345678", 4},
    {"leading zeros", "1e0,002", 0, kHalfEven, NUMERIC_OK, "100", 3},
    {"a bad group behind a good one is not looked at", "1e0,002,34", 0, kHalfEven, NUMERIC_OK, "100", 3},
    {"a marker behind the groups is not looked at", "1e0,002e5", 0, kHalfEven, NUMERIC_OK, "100", 3},
    {"behind a point the group moves the mantissa by three places", "1.5e1,000", -996, kHalfEven, NUMERIC_OK, "15", 5},
    {"behind a point without a fraction as well", "1.e1,000", -997, kHalfEven, NUMERIC_OK, "1", 4},
    {"a mantissa of zero passes over zeros: 0e1", "0e1,000", 0, kHalfEven, NUMERIC_OK, "0", 3},
    {"of nine digits eight go to the mantissa: 12345678e9", "0e123,456,789", 0, kHalfEven, NUMERIC_OK,
     "12345678000000000", 5},
    {"of nine digits eight go to the mantissa: 12345678e-9", "0e-123,456,789", 9, kHalfEven, NUMERIC_OK, "12345678", 6},
    {"ten digits: the exponent is left with zero", "1e1,000,000,000", 0, kHalfEven, NUMERIC_OK, "110000000", 3},
    {"nine digits behind a mantissa: 212345678e9", "2e123,456,789", 0, kHalfEven, NUMERIC_OK, "212345678000000000", 5},
    {"zeros behind a zero mantissa do not fill the eight: 0e100", "0e100,000,000", 0, kHalfEven, NUMERIC_OK, "0", 5},
    {"a full mantissa drops the group and gains its three places",
     "123456789012345678901234567890123456789012345e1,234", -10, kHalfEven, NUMERIC_INEXACT,
     "123456789012345678901234567890123456789", 47},
    {"the long exponent of a plain run is no group's business", "1e1234,567", 0, kHalfEven, NUMERIC_OVERFLOW, "NaN", 2},
    {"an invalid mode behind a written end", "1e1,000", 0, 9, NUMERIC_INVALID_ARGUMENT, "untouched", 3},
    {"-2^64", "-18446744073709551616e0,000", 0, kHalfEven, NUMERIC_OK, "-2^64", 23},
};

TEST(ParseGrouped, GroupsOfTheExponent) { expect_rows(kGrouped, kExponentGroupRows); }

// The plain parser stops at every comma.
constexpr ParseRow kPlainRows[] = {
    {"a group", "1,234", 0, kHalfEven, NUMERIC_OK, "1", 1},
    {"a group and a fraction", "1,234.5", 1, kHalfEven, NUMERIC_OK, "10", 1},
    {"behind four digits", "1234,567", 0, kHalfEven, NUMERIC_OK, "1234", 4},
    {"behind a fraction", "1.5,123", 4, kHalfEven, NUMERIC_OK, "15000", 3},
    {"right behind the point", "1.,234", 3, kHalfEven, NUMERIC_OK, "1000", 2},
    {"behind an exponent", "1e1,000", 0, kHalfEven, NUMERIC_OK, "10", 3},
    {"a comma in front", ",123", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a comma behind the marker", "1e,123", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
};

TEST(ParseGrouped, ThePlainParserStopsAtTheComma) { expect_rows(kPlain, kPlainRows); }

}  // namespace
}  // namespace qv8numeric_tests
