// SPDX-License-Identifier: MIT
// Exponents of literals: their sign and range, where the reader stops behind them, and second markers.
#include <gtest/gtest.h>

#include "modes.h"
#include "parsing.h"

namespace qv8numeric_tests {
namespace {

// name, text, scale, mode, status, value, end
constexpr ParseRow kValueRows[] = {
    {"into a larger scale", "1e3", 2, kHalfEven, NUMERIC_OK, "100000", kWholeText},
    {"a capital marker and a negative exponent", "1.5E-1", 2, kHalfEven, NUMERIC_OK, "15", kWholeText},
    {"a plus sign", "1.5E+10", 0, kHalfEven, NUMERIC_OK, "15000000000", kWholeText},
    {"signs on both", "+1e-3", 3, kHalfEven, NUMERIC_OK, "1", kWholeText},
    {"a negative mantissa", "-12e2", 0, kHalfEven, NUMERIC_OK, "-1200", kWholeText},
    {"one digit", "1e5", 0, kHalfEven, NUMERIC_OK, "100000", kWholeText},
    {"two digits, end behind them", "1e12", 0, kHalfEven, NUMERIC_OK, "10^12", 4},
    {"leading zeros", "1e005", 0, kHalfEven, NUMERIC_OK, "100000", kWholeText},
    {"an exponent of zero", "12e0", 0, kHalfEven, NUMERIC_OK, "12", kWholeText},
    {"an exponent of minus zero", "12e-0", 0, kHalfEven, NUMERIC_OK, "12", kWholeText},
    {"behind a point without a fraction", "5.E3", 0, kHalfEven, NUMERIC_OK, "5000", kWholeText},
    {"behind a fraction without an integer", ".5e1", 0, kHalfEven, NUMERIC_OK, "5", kWholeText},
    {"takes places away", "1.2345e4", 0, kHalfEven, NUMERIC_OK, "12345", kWholeText},
    {"takes some places away", "1.2345e2", 0, kHalfEven, NUMERIC_INEXACT, "123", kWholeText},
    {"rounds", "25e-1", 0, kHalfEven, NUMERIC_INEXACT, "2", kWholeText},
    {"eight mantissa digits before the marker", "12345678e2", 0, kHalfEven, NUMERIC_OK, "1234567800", kWholeText},
    {"the largest value", "17014118346046923173168730371588410572.7e1", 0, kHalfEven, NUMERIC_OK, "2^127-1",
     kWholeText},
    {"-2^64", "-18.446744073709551616e18", 0, kHalfEven, NUMERIC_OK, "-2^64", kWholeText},
    {"out of range", "1e39", 0, kHalfEven, NUMERIC_OVERFLOW, "NaN", kWholeText},
    {"out of range, negative", "-1e39", 0, kHalfEven, NUMERIC_UNDERFLOW, "NaN", kWholeText},
    {"a zero mantissa stays in range", "0e999", 0, kHalfEven, NUMERIC_OK, "0", kWholeText},
};

TEST(ParseExponent, Values) { expect_rows_of_both(kValueRows); }

// Exponents of four digits and more leave the end position at their first digit.
constexpr ParseRow kLimitRows[] = {
    {"the largest exponent", "1e2147483647", 0, kHalfEven, NUMERIC_OVERFLOW, "NaN", 2},
    {"the largest exponent, negative", "-1e2147483647", 0, kHalfEven, NUMERIC_UNDERFLOW, "NaN", 3},
    {"the largest exponent of zero", "0e2147483647", 0, kHalfEven, NUMERIC_OK, "0", 2},
    {"one above the largest exponent", "1e2147483648", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"one above the largest exponent, signed", "1e+2147483648", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"zero does not excuse an exponent", "0e2147483648", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"the smallest exponent", "1e-2147483648", 0, kHalfUp, NUMERIC_INEXACT, "0", 3},
    {"the smallest exponent, rounded up", "1e-2147483648", 0, kUp, NUMERIC_INEXACT, "1", 3},
    {"the smallest exponent, rounded to minus infinity", "-1e-2147483648", 0, kFloor, NUMERIC_INEXACT, "-1", 4},
    {"one below the smallest exponent", "1e-2147483649", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"leading zeros do not count towards the limit", "1e0000000000002", 0, kHalfEven, NUMERIC_OK, "100", 2},
    {"leading zeros do not hide the limit", "1e00002147483648", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"one above 2^32", "1e4294967297", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"one above 2^64", "1e18446744073709551617", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"one above minus 2^64", "1e-18446744073709551615", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"the limit is found before an invalid mode", "1e2147483648", 0, 7, NUMERIC_SYNTAX_ERROR, "untouched", 0},

    {"the largest exponent and the scale that takes it back", "1e2147483647", -INT32_MAX, kHalfEven, NUMERIC_OK, "1",
     2},
    {"the largest exponent under the smallest scale", "1e2147483647", INT32_MIN, kHalfUp, NUMERIC_INEXACT, "0", 2},
    {"the largest exponent under the smallest scale, a digit left", "-15e2147483647", INT32_MIN, kHalfUp,
     NUMERIC_INEXACT, "-2", 4},
    {"an exponent and the scale that takes it back", "7e-2147483647", INT32_MAX, kHalfEven, NUMERIC_OK, "7", 3},
    {"the smallest exponent under the largest scale", "25e-2147483648", INT32_MAX, kHalfEven, NUMERIC_INEXACT, "2", 4},
    {"the smallest exponent and a place more under the largest scale", "25.0e-2147483648", INT32_MAX, kHalfUp,
     NUMERIC_INEXACT, "3", 6},
    {"the smallest exponent under the smallest scale", "1e-2147483648", INT32_MIN, kHalfEven, NUMERIC_INEXACT, "0", 3},
    {"the largest exponent under the largest scale", "1e2147483647", INT32_MAX, kHalfEven, NUMERIC_OVERFLOW, "NaN", 2},
    {"nothing overflows at zero", "0e2147483647", INT32_MAX, kHalfEven, NUMERIC_OK, "0", 2},
};

TEST(ParseExponent, Limits) { expect_rows_of_both(kLimitRows); }

constexpr ParseRow kEndRows[] = {
    {"three digits are followed by a look ahead", "1e012x", 0, kHalfEven, NUMERIC_OK, "10^12", 5},
    {"four digits are not", "1e0012x", 0, kHalfEven, NUMERIC_OK, "10^12", 2},
    {"four digits before other text", "1e1234x", 0, kHalfEven, NUMERIC_OVERFLOW, "NaN", 2},
    {"four digits at the end of the text", "1e1234", 0, kHalfEven, NUMERIC_OVERFLOW, "NaN", 2},
    {"four digits behind a sign", "1e-1234", 0, kHalfEven, NUMERIC_INEXACT, "0", 3},
    {"a marker behind four digits is not looked at", "1e0002e3", 0, kHalfEven, NUMERIC_OK, "100", 2},
    {"groups behind four digits are not looked at", "1e0002,345", 0, kHalfEven, NUMERIC_OK, "100", 2},
    {"a point behind", "1e5.5", 0, kHalfEven, NUMERIC_OK, "100000", 3},
    {"a sign behind", "1e5-3", 0, kHalfEven, NUMERIC_OK, "100000", 3},
    {"a sign behind a negative exponent", "1e-5-", 5, kHalfEven, NUMERIC_OK, "1", 4},
    {"a letter behind", "1e5f", 0, kHalfEven, NUMERIC_OK, "100000", 3},
};

TEST(ParseExponent, EndPosition) { expect_rows_of_both(kEndRows); }

constexpr ParseRow kRejectedRows[] = {
    {"two signs", "1e+-5", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a blank behind the marker", "1e 5", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a point behind the marker", "1e.5", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a comma behind the marker", "1e,123", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"two markers", "1ee5", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a marker behind the exponent's sign", "1e-e5", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a text that looks like a word", "1end", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
};

TEST(ParseExponent, Rejected) { expect_rows_of_both(kRejectedRows); }

// A second marker ends the literal; the exponent's digits, all of them, then belong to the mantissa.
constexpr ParseRow kSecondMarkerRows[] = {
    {"one digit", "1E5E", 0, kHalfEven, NUMERIC_OK, "15", 3},
    {"a leading zero is a digit", "1E05E", 0, kHalfEven, NUMERIC_OK, "105", 4},
    {"three digits", "12E345E", 0, kHalfEven, NUMERIC_OK, "12345", 6},
    {"three zeros", "1e000e", 0, kHalfEven, NUMERIC_OK, "1000", 5},
    {"a negative exponent loses its sign", "1E-5E", 0, kHalfEven, NUMERIC_OK, "15", 4},
    {"a negative mantissa keeps its sign", "-1E5E", 0, kHalfEven, NUMERIC_OK, "-15", 4},
    {"places count from the new digits", "1.5E5E", 1, kHalfEven, NUMERIC_OK, "155", 5},
    {"rounded after the flush", "1.5E5E", 0, kHalfDown, NUMERIC_INEXACT, "15", 5},
    {"what follows the second marker is not read", "1e5e7", 0, kHalfEven, NUMERIC_OK, "15", 3},
    {"a zero mantissa takes the digits", "0e7e", 0, kHalfEven, NUMERIC_OK, "7", 3},
    {"a ninth digit behind eight", "12345678e9e", 0, kHalfEven, NUMERIC_OK, "123456789", 10},
    {"up to the largest value", "17014118346046923173168730371588410572e7e", 0, kHalfEven, NUMERIC_OK, "2^127-1", 40},
    {"past the largest value", "17014118346046923173168730371588410572e8e", 0, kHalfEven, NUMERIC_OVERFLOW, "NaN", 40},
    {"below the smallest value", "-17014118346046923173168730371588410572e8e", 0, kHalfEven, NUMERIC_UNDERFLOW, "NaN",
     41},
    {"-2^64", "-18446744073709551e616e", 0, kHalfEven, NUMERIC_OK, "-2^64", 22},
};

TEST(ParseExponent, SecondMarker) { expect_rows_of_both(kSecondMarkerRows); }

}  // namespace
}  // namespace qv8numeric_tests
