// SPDX-License-Identifier: MIT
// Number to text without digit groups: digits, point, zeros, sign, exponent suffix and status.
#include <gtest/gtest.h>

#include "decimal_text.h"
#include "formatting.h"
#include "modes.h"
#include "special_values.h"
#include "ties.h"

namespace qv8numeric_tests {
namespace {

constexpr Formatter kPlain = QV8NumericNum2Str;

// name, value, scale, mode, exponent shift, output scale, status, text
constexpr FormatRow kDigitRows[] = {
    {"zero", "0", 0, kHalfEven, 0, 0, NUMERIC_OK, "0"},
    {"zero with places", "0", 0, kHalfEven, 0, 3, NUMERIC_OK, "0.000"},
    {"zero at a scale of its own", "0", 5, kHalfEven, 0, 3, NUMERIC_OK, "0.000"},
    {"one", "1", 0, kHalfEven, 0, 0, NUMERIC_OK, "1"},
    {"minus one", "-1", 0, kHalfEven, 0, 0, NUMERIC_OK, "-1"},
    {"trailing zeros stay", "5", 0, kHalfEven, 0, 2, NUMERIC_OK, "5.00"},
    {"leading zeros of the fraction are filled in", "5", 2, kHalfEven, 0, 2, NUMERIC_OK, "0.05"},
    {"a fraction as long as the digits gets its zero in front", "12", 2, kHalfEven, 0, 2, NUMERIC_OK, "0.12"},
    {"one integer digit", "123", 2, kHalfEven, 0, 2, NUMERIC_OK, "1.23"},
    {"one step below a new digit", "999", 2, kHalfEven, 0, 2, NUMERIC_OK, "9.99"},
    {"an integer without groups", "1234567", 0, kHalfEven, 0, 0, NUMERIC_OK, "1234567"},
    {"an integer with places", "1234567", 0, kHalfEven, 0, 2, NUMERIC_OK, "1234567.00"},
    {"more places than the value has", "12345", 1, kHalfEven, 0, 4, NUMERIC_OK, "1234.5000"},
    {"seven digits", "9999999", 0, kHalfEven, 0, 0, NUMERIC_OK, "9999999"},
    {"eight digits", "99999999", 0, kHalfEven, 0, 0, NUMERIC_OK, "99999999"},
    {"nine digits", "10^8", 0, kHalfEven, 0, 0, NUMERIC_OK, "100000000"},
    {"zeros inside a run of eight digits", "10^8+1", 0, kHalfEven, 0, 0, NUMERIC_OK, "100000001"},
    {"zeros in the lower four of eight digits", "123450000", 0, kHalfEven, 0, 0, NUMERIC_OK, "123450000"},
    {"zeros in the upper four of eight digits", "500006789", 0, kHalfEven, 0, 0, NUMERIC_OK, "500006789"},
    {"sixteen nines", "10^16-1", 0, kHalfEven, 0, 0, NUMERIC_OK, "9999999999999999"},
    {"seventeen digits", "10^16", 0, kHalfEven, 0, 0, NUMERIC_OK, "10000000000000000"},
    {"eight places", "99999999", 8, kHalfEven, 0, 8, NUMERIC_OK, "0.99999999"},
    {"the point between two runs of eight digits", "10^8", 8, kHalfEven, 0, 8, NUMERIC_OK, "1.00000000"},
    {"nine places of one digit", "5", 9, kHalfEven, 0, 9, NUMERIC_OK, "0.000000005"},
    {"the point inside a run of eight digits", "1234567890123456789", 9, kHalfEven, 0, 9, NUMERIC_OK,
     "1234567890.123456789"},
    {"forty places of one digit", "-7", 40, kHalfEven, 0, 40, NUMERIC_OK,
     "-0.0000000000000000000000000000000000000007"},
    {"-2^64", "-2^64", 0, kHalfEven, 0, 0, NUMERIC_OK, "-18446744073709551616"},
    {"-2^64 with its point", "-2^64", 18, kHalfEven, 0, 18, NUMERIC_OK, "-18.446744073709551616"},
    {"2^64", "2^64", 0, kHalfEven, 0, 0, NUMERIC_OK, "18446744073709551616"},
    {"2^63", "2^63", 0, kHalfEven, 0, 0, NUMERIC_OK, "9223372036854775808"},
    {"2^32", "2^32", 0, kHalfEven, 0, 0, NUMERIC_OK, "4294967296"},
    {"2^96", "2^96", 0, kHalfEven, 0, 0, NUMERIC_OK, "79228162514264337593543950336"},
    {"10^38", "10^38", 0, kHalfEven, 0, 0, NUMERIC_OK, "100000000000000000000000000000000000000"},
    {"the largest value", "2^127-1", 0, kHalfEven, 0, 0, NUMERIC_OK, "170141183460469231731687303715884105727"},
    {"the smallest value", "-2^127+1", 0, kHalfEven, 0, 0, NUMERIC_OK, "-170141183460469231731687303715884105727"},
    {"the largest value, all of it fraction", "2^127-1", 39, kHalfEven, 0, 39, NUMERIC_OK,
     "0.170141183460469231731687303715884105727"},
    {"NaN", "NaN", 0, kHalfEven, 0, 0, NUMERIC_NAN, "NaN"},
    {"NaN has no suffix and no places", "NaN", 3, kHalfEven, 5, 2, NUMERIC_NAN, "NaN"},
};

TEST(FormatPlain, WritesEveryDigit) { expect_rows(kPlain, kDigitRows); }

constexpr FormatRow kShiftRows[] = {
    {"the point three places to the left", "12345", 1, kHalfEven, -3, 4, NUMERIC_OK, "1.2345000E+3"},
    {"the point three places to the right", "12345", 1, kHalfEven, 3, 1, NUMERIC_OK, "1234500E-3"},
    {"a shift that uses up the places", "12345", 2, kHalfEven, 2, 2, NUMERIC_OK, "12345E-2"},
    {"a shift that leaves one place", "12345", 2, kHalfEven, 1, 2, NUMERIC_OK, "1234.5E-1"},
    {"one appended zero", "12345", 2, kHalfEven, 3, 2, NUMERIC_OK, "123450E-3"},
    {"many appended zeros", "-7", 0, kHalfEven, 12, 0, NUMERIC_OK, "-7000000000000E-12"},
    {"appended zeros reach a digit count that no value has", "2^127-1", 0, kHalfEven, 5, 0, NUMERIC_OK,
     "17014118346046923173168730371588410572700000E-5"},
    {"one place made by the shift", "5", 0, kHalfEven, -1, 0, NUMERIC_OK, "0.5E+1"},
    {"five places made by the shift", "5", 0, kHalfEven, -5, 0, NUMERIC_OK, "0.00005E+5"},
    {"the shift moves a negative value below one", "-2^64", 0, kHalfEven, -20, 0, NUMERIC_OK,
     "-0.18446744073709551616E+20"},
    {"zero has no appended zeros", "0", 0, kHalfEven, 2, 0, NUMERIC_OK, "0E-2"},
    {"zero has no appended zeros past its places", "0", 0, kHalfEven, 5, 3, NUMERIC_OK, "0E-5"},
    {"zero has its places", "0", 0, kHalfEven, -2, 0, NUMERIC_OK, "0.00E+2"},
    {"zero with places used up by the shift", "0", 0, kHalfEven, 2, 2, NUMERIC_OK, "0E-2"},
    {"a value rounded to zero has no appended zeros", "4", 1, kHalfEven, 2, 0, NUMERIC_INEXACT, "0E-2"},
    {"a negative value rounded to zero keeps its sign before the suffix", "-4", 1, kDown, 2, 0, NUMERIC_INEXACT,
     "-0E-2"},
    {"one exponent digit", "0", 0, kHalfEven, 9, 0, NUMERIC_OK, "0E-9"},
    {"two exponent digits", "0", 0, kHalfEven, 10, 0, NUMERIC_OK, "0E-10"},
    {"four exponent digits", "0", 0, kHalfEven, 9999, 0, NUMERIC_OK, "0E-9999"},
    {"inner zeros of the exponent are digits", "0", 0, kHalfEven, 10000, 0, NUMERIC_OK, "0E-10000"},
    {"the exponent's own digits around inner zeros", "0", 0, kHalfEven, 20003, 0, NUMERIC_OK, "0E-20003"},
    {"five exponent digits", "0", 0, kHalfEven, 12345, 0, NUMERIC_OK, "0E-12345"},
    {"eight zeros behind one exponent digit", "0", 0, kHalfEven, 100000000, 0, NUMERIC_OK, "0E-100000000"},
    {"ten exponent digits", "0", 0, kHalfEven, 1000000000, 0, NUMERIC_OK, "0E-1000000000"},
    {"a zero run in the middle of ten exponent digits", "0", 0, kHalfEven, 2100000047, 0, NUMERIC_OK, "0E-2100000047"},
    {"the largest shift", "0", 0, kHalfEven, INT32_MAX, 0, NUMERIC_OK, "0E-2147483647"},
    {"a hundred places made by the shift", "3", 0, kHalfEven, -100, 0, NUMERIC_OK,
     "0.0000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000003E+100"},
};

TEST(FormatPlain, ShiftsThePointAndSaysSoInTheSuffix) { expect_rows(kPlain, kShiftRows); }

constexpr FormatRow kRoundingRows[] = {
    {"a small negative value keeps its sign when it rounds to zero", "-4", 3, kHalfUp, 0, 2, NUMERIC_INEXACT, "-0.00"},
    {"rounding up a tiny value", "1", 100, kUp, 0, 0, NUMERIC_INEXACT, "1"},
    {"rounding a tiny value to nearest", "1", 100, kHalfEven, 0, 0, NUMERIC_INEXACT, "0"},
    {"nothing lost is exact", "12300", 2, kUp, 0, 0, NUMERIC_OK, "123"},
    {"just above a tie, digits further down", "250001", 5, kHalfDown, 0, 0, NUMERIC_INEXACT, "3"},
    {"just above a tie goes up although the kept digit is even", "250001", 5, kHalfEven, 0, 0, NUMERIC_INEXACT, "3"},
    {"just above a half, ten places down", "5000000001", 10, kHalfDown, 0, 0, NUMERIC_INEXACT, "1"},
    {"exactly a half, ten places down", "5000000000", 10, kHalfDown, 0, 0, NUMERIC_INEXACT, "0"},
    {"rounding makes a new digit", "999", 2, kHalfUp, 0, 1, NUMERIC_INEXACT, "10.0"},
    {"rounding makes a ninth digit", "999999995", 1, kHalfUp, 0, 0, NUMERIC_INEXACT, "100000000"},
    {"rounding makes a digit where there was none", "-96", 2, kHalfUp, 0, 1, NUMERIC_INEXACT, "-1.0"},
    {"a negative output scale rounds to tens and drops them", "12345", 0, kHalfUp, 0, -1, NUMERIC_INEXACT, "1235"},
    {"tens dropped without loss", "12300", 0, kHalfUp, 0, -2, NUMERIC_OK, "123"},
    {"a tie of hundreds goes to even, down", "50", 0, kHalfEven, 0, -2, NUMERIC_INEXACT, "0"},
    {"a tie of hundreds goes to even, up", "150", 0, kHalfEven, 0, -2, NUMERIC_INEXACT, "2"},
    {"every digit lies below the output scale", "12345", 0, kHalfUp, 0, -5, NUMERIC_INEXACT, "0"},
    {"rounded up to one unit of the output scale", "99999", 0, kHalfUp, 0, -5, NUMERIC_INEXACT, "1"},
    {"a negative output scale and a shift: dropped digits do not come back", "12345", 0, kHalfUp, 2, -1,
     NUMERIC_INEXACT, "123500E-2"},
    {"a negative output scale and a negative shift", "12345", 0, kHalfUp, -2, -1, NUMERIC_INEXACT, "12.35E+2"},
    {"-2^64 in tens", "-2^64", 0, kHalfEven, 0, -1, NUMERIC_INEXACT, "-1844674407370955162"},
    {"the largest value loses a digit", "2^127-1", 1, kUp, 0, 0, NUMERIC_INEXACT,
     "17014118346046923173168730371588410573"},
    {"zero at a negative output scale", "0", 0, kUp, 0, -3, NUMERIC_OK, "0"},
};

TEST(FormatPlain, RoundsToTheOutputScale) { expect_rows(kPlain, kRoundingRows); }

struct ModesRow {
    const char* name;
    const char* value;
    std::int32_t scale;
    std::int32_t output_scale;
    NumericStatus status;
    const char* texts;  // one per mode
};

constexpr ModesRow kModesRows[] = {
    {"2.5", "25", 1, 0, NUMERIC_INEXACT, "3 2 3 2 3 2 2"},
    {"3.5", "35", 1, 0, NUMERIC_INEXACT, "4 3 4 3 4 3 4"},
    {"-2.5", "-25", 1, 0, NUMERIC_INEXACT, "-3 -2 -2 -3 -3 -2 -2"},
    {"2.6", "26", 1, 0, NUMERIC_INEXACT, "3 2 3 2 3 3 3"},
    {"-2.4", "-24", 1, 0, NUMERIC_INEXACT, "-3 -2 -2 -3 -2 -2 -2"},
    {"2.0", "20", 1, 0, NUMERIC_OK, "2 2 2 2 2 2 2"},
    {"0.5", "5", 1, 0, NUMERIC_INEXACT, "1 0 1 0 1 0 0"},
    {"-0.5 keeps its sign", "-5", 1, 0, NUMERIC_INEXACT, "-1 -0 -0 -1 -1 -0 -0"},
    {"-0.05 at one place", "-5", 2, 1, NUMERIC_INEXACT, "-0.1 -0.0 -0.0 -0.1 -0.1 -0.0 -0.0"},
    {"15 in tens", "15", 0, -1, NUMERIC_INEXACT, "2 1 2 1 2 1 2"},
    {"25 in tens", "25", 0, -1, NUMERIC_INEXACT, "3 2 3 2 3 2 2"},
    {"9.5 makes a digit", "95", 1, 0, NUMERIC_INEXACT, "10 9 10 9 10 9 10"},
};

TEST(FormatPlain, FollowsEveryMode) {
    for (const ModesRow& row : kModesRows) {
        for (const std::uint32_t mode : kModes) {
            SCOPED_TRACE(std::string(row.name) + ", " + mode_name(mode));
            const Filled filled = fill(kPlain, {num(row.value), {row.scale, mode}, 0, row.output_scale}, 64);
            EXPECT_EQ(status_name(filled.status), status_name(row.status));
            EXPECT_EQ(filled.text(), in_mode(row.texts, mode));
        }
    }
}

TEST(FormatPlain, TieAtEveryDistance) {
    for (const Tie& tie : kTies) {
        for (int distance = 1; distance <= kLongestTie; ++distance) {
            for (const bool negative : {false, true}) {
                for (const std::uint32_t mode : kModes) {
                    const TieCase item{tie, distance, negative, mode};
                    const Filled filled = fill(kPlain, {item.value(), {distance, mode}, 0, 0}, 64);
                    const char digit = static_cast<char>('0' + std::abs(item.rounded()));
                    EXPECT_EQ(filled.text(), (negative ? "-" : "") + std::string(1, digit)) << item;
                    EXPECT_EQ(status_name(filled.status), "NUMERIC_INEXACT") << item;
                }
            }
        }
    }
}

constexpr FormatRow kOverflowRows[] = {
    {"one place too many", "2^127-1", 0, kHalfEven, 0, 1, NUMERIC_OVERFLOW, "17014118346046923173168730371588410572.8"},
    {"one place too many for the smallest value", "-2^127+1", 0, kHalfEven, 0, 1, NUMERIC_UNDERFLOW,
     "-17014118346046923173168730371588410572.8"},
    {"the last value that takes another place", "17014118346046923173168730371588410572", 0, kHalfEven, 0, 1,
     NUMERIC_OK, "17014118346046923173168730371588410572.0"},
    {"the first value that does not", "17014118346046923173168730371588410573", 0, kHalfEven, 0, 1, NUMERIC_OVERFLOW,
     "17014118346046923173168730371588410572.8"},
    {"thirty-eight places of one", "1", 0, kHalfEven, 0, 38, NUMERIC_OK, "1.00000000000000000000000000000000000000"},
    {"thirty-nine places of one", "1", 0, kHalfEven, 0, 39, NUMERIC_OVERFLOW,
     "0.170141183460469231731687303715884105728"},
    {"thirty-nine places of minus one", "-1", 0, kHalfEven, 0, 39, NUMERIC_UNDERFLOW,
     "-0.170141183460469231731687303715884105728"},
    {"zeros before the digits of an overflow", "1", 0, kHalfEven, 0, 42, NUMERIC_OVERFLOW,
     "0.000170141183460469231731687303715884105728"},
    {"zeros appended to the digits of an overflow", "1", 0, kHalfEven, 42, 39, NUMERIC_OVERFLOW,
     "170141183460469231731687303715884105728000E-42"},
    {"the point inside the digits of an overflow, with a suffix", "-1", -40, kHalfEven, -3, 0, NUMERIC_UNDERFLOW,
     "-170141183460469231731687303715884105.728E+3"},
    {"-2^64 with twenty places more", "-2^64", 0, kHalfEven, 0, 20, NUMERIC_UNDERFLOW,
     "-1701411834604692317.31687303715884105728"},
    {"a negative scale moves the value out of range", "1", -39, kHalfEven, 0, 0, NUMERIC_OVERFLOW,
     "170141183460469231731687303715884105728"},
    {"the multiplication leaves 256 bits", "2^127-1", -39, kHalfEven, 0, 0, NUMERIC_OVERFLOW,
     "170141183460469231731687303715884105728"},
    {"far beyond 256 bits", "1", -100, kHalfEven, 0, 0, NUMERIC_OVERFLOW, "170141183460469231731687303715884105728"},
    {"far beyond 256 bits, negative", "-1", -1000000, kHalfEven, 0, 0, NUMERIC_UNDERFLOW,
     "-170141183460469231731687303715884105728"},
    {"zero never overflows", "0", -1000000, kHalfEven, 0, 0, NUMERIC_OK, "0"},
};

TEST(FormatPlain, WritesTheDigitsOfTheLimitForAnOverflow) { expect_rows(kPlain, kOverflowRows); }

constexpr FormatRow kExtremeRows[] = {
    {"smallest scale, kept", "123", INT32_MIN, kHalfEven, 0, INT32_MIN, NUMERIC_OK, "123"},
    {"largest scale, kept, with the shift that takes back its places", "123", INT32_MAX, kHalfEven, INT32_MAX,
     INT32_MAX, NUMERIC_OK, "123E-2147483647"},
    {"largest scale into the smallest", "123", INT32_MAX, kHalfEven, 0, INT32_MIN, NUMERIC_INEXACT, "0"},
    {"largest scale into the smallest, rounded up", "123", INT32_MAX, kUp, 0, INT32_MIN, NUMERIC_INEXACT, "1"},
    {"largest scale into the smallest, negative", "-2^64", INT32_MAX, kFloor, 0, INT32_MIN, NUMERIC_INEXACT, "-1"},
    {"smallest scale into the largest", "1", INT32_MIN, kHalfEven, INT32_MAX, INT32_MAX, NUMERIC_OVERFLOW,
     "170141183460469231731687303715884105728E-2147483647"},
    {"smallest scale into the largest, negative", "-1", INT32_MIN, kHalfEven, INT32_MAX, INT32_MAX, NUMERIC_UNDERFLOW,
     "-170141183460469231731687303715884105728E-2147483647"},
    {"smallest scale into the largest, zero", "0", INT32_MIN, kHalfEven, INT32_MAX, INT32_MAX, NUMERIC_OK,
     "0E-2147483647"},
    {"a shift one less than the places", "123", INT32_MAX, kHalfEven, INT32_MAX - 1, INT32_MAX, NUMERIC_OK,
     "12.3E-2147483646"},
    {"largest scale, one place moved", "125", INT32_MAX, kHalfEven, INT32_MAX - 1, INT32_MAX - 1, NUMERIC_INEXACT,
     "12E-2147483646"},
    {"1.0 at the smallest scale but one", "1", -INT32_MAX, kHalfEven, 0, 0, NUMERIC_OVERFLOW,
     "170141183460469231731687303715884105728"},
    {"1.0 at the largest scale", "1", INT32_MAX, kHalfEven, 0, 0, NUMERIC_INEXACT, "0"},
};

TEST(FormatPlain, TakesEveryScaleAndShift) { expect_rows(kPlain, kExtremeRows); }

TEST(FormatPlain, AgreesWithTheExactDigits) {
    for (const Numeric& value : special_values()) {
        for (const std::int32_t scale : {-30, -1, 0, 2, 9, 40}) {
            for (const std::int32_t output_scale : {-9, -1, 0, 1, 8, 17, 39}) {
                for (const std::int32_t shift : {-41, -3, 0, 1, 8, 40}) {
                    for (const std::uint32_t mode : kModes) {
                        const Format format = {value, {scale, mode}, shift, output_scale};
                        const DecimalText expected = decimal_text(format);
                        const Filled filled = fill(kPlain, format, expected.text.size() + 1);
                        ASSERT_EQ(filled.text(), expected.text)
                            << value << " at " << scale << ", shift " << shift << ", output scale " << output_scale
                            << ", " << mode_name(mode);
                        ASSERT_EQ(filled.status, expected.status) << value << " as " << expected.text;
                        if (output_scale >= scale) break;  // nothing is rounded, so the modes agree
                    }
                }
            }
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
