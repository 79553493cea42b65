// SPDX-License-Identifier: MIT
// Text to number: values, rounding, range, statuses, and where the reader stopped.
#include <gtest/gtest.h>

#include "modes.h"
#include "parsing.h"
#include "ties.h"

namespace qv8numeric_tests {
namespace {

// name, text, scale, mode, status, value, end
constexpr ParseRow kValueRows[] = {
    {"digits", "12", 0, kHalfEven, NUMERIC_OK, "12", kWholeText},
    {"zero", "0", 0, kHalfEven, NUMERIC_OK, "0", kWholeText},
    {"a plus sign", "+5", 0, kHalfEven, NUMERIC_OK, "5", kWholeText},
    {"a minus sign", "-5", 0, kHalfEven, NUMERIC_OK, "-5", kWholeText},
    {"there is one zero only", "-0", 0, kHalfEven, NUMERIC_OK, "0", kWholeText},
    {"a negative zero with places", "-0.00", 2, kHalfEven, NUMERIC_OK, "0", kWholeText},
    {"places of a negative", "-12.50", 2, kHalfEven, NUMERIC_OK, "-1250", kWholeText},
    {"places into a larger scale", "-12.50", 4, kHalfEven, NUMERIC_OK, "-125000", kWholeText},
    {"places of zeros into a smaller scale", "-12.50", 1, kHalfEven, NUMERIC_OK, "-125", kWholeText},
    {"no integer digits", ".5", 1, kHalfEven, NUMERIC_OK, "5", kWholeText},
    {"a sign and no integer digits", "-.5", 1, kHalfEven, NUMERIC_OK, "-5", kWholeText},
    {"a point and no fraction", "5.", 1, kHalfEven, NUMERIC_OK, "50", kWholeText},
    {"a long run of digits", "1234567", 0, kHalfEven, NUMERIC_OK, "1234567", kWholeText},
    {"eight digits", "12345678", 0, kHalfEven, NUMERIC_OK, "12345678", kWholeText},
    {"nine digits", "123456789", 0, kHalfEven, NUMERIC_OK, "123456789", kWholeText},
    {"eight digits before and behind the point", "12345678.87654321", 8, kHalfEven, NUMERIC_OK, "1234567887654321",
     kWholeText},
    {"seventeen digits across the point", "1234567890.1234567", 7, kHalfEven, NUMERIC_OK, "12345678901234567",
     kWholeText},
    {"leading zeros", "000000123", 0, kHalfEven, NUMERIC_OK, "123", kWholeText},
    {"leading zeros that share a step with a digit", "0000000123", 0, kHalfEven, NUMERIC_OK, "123", kWholeText},
    {"zeros behind the point", "0.000123", 6, kHalfEven, NUMERIC_OK, "123", kWholeText},
    {"a negative scale", "12300", -2, kHalfEven, NUMERIC_OK, "123", kWholeText},
    {"-2^64", "-18446744073709551616", 0, kHalfEven, NUMERIC_OK, "-2^64", kWholeText},
    {"-2^64 with places", "-18.446744073709551616", 18, kHalfEven, NUMERIC_OK, "-2^64", kWholeText},
    {"2^64-1", "18446744073709551615", 0, kHalfEven, NUMERIC_OK, "2^64-1", kWholeText},
    {"2^63", "9223372036854775808", 0, kHalfEven, NUMERIC_OK, "2^63", kWholeText},
    {"-2^63", "-9223372036854775808", 0, kHalfEven, NUMERIC_OK, "-2^63", kWholeText},
    {"2^96", "79228162514264337593543950336", 0, kHalfEven, NUMERIC_OK, "2^96", kWholeText},
    {"10^38", "100000000000000000000000000000000000000", 0, kHalfEven, NUMERIC_OK, "10^38", kWholeText},
};

TEST(Parse, Values) { expect_rows_of_both(kValueRows); }

constexpr ParseRow kRoundingRows[] = {
    {"a tie to even", "1.25", 1, kHalfEven, NUMERIC_INEXACT, "12", kWholeText},
    {"a tie away from zero", "1.25", 1, kHalfUp, NUMERIC_INEXACT, "13", kWholeText},
    {"a tie cut off", "1.25", 1, kDown, NUMERIC_INEXACT, "12", kWholeText},
    {"minus a half away from zero", "-0.5", 0, kHalfUp, NUMERIC_INEXACT, "-1", kWholeText},
    {"minus a half up to zero", "-0.5", 0, kCeiling, NUMERIC_INEXACT, "0", kWholeText},
    {"just above a tie, digits further down", "2.50001", 0, kHalfDown, NUMERIC_INEXACT, "3", kWholeText},
    {"just above a half, ten places down", "0.5000000001", 0, kHalfDown, NUMERIC_INEXACT, "1", kWholeText},
    {"exactly a half, ten places down", "0.5000000000", 0, kHalfDown, NUMERIC_INEXACT, "0", kWholeText},
    {"just above a half, thirty-nine places down", "0.500000000000000000000000000000000000001", 0, kHalfEven,
     NUMERIC_INEXACT, "1", kWholeText},
    {"just below a half, thirty-nine places down", "0.499999999999999999999999999999999999999", 0, kHalfUp,
     NUMERIC_INEXACT, "0", kWholeText},
    {"a negative value rounded to zero is zero", "-0.004", 2, kHalfUp, NUMERIC_INEXACT, "0", kWholeText},
    {"rounding into a new digit", "99.99", 1, kHalfUp, NUMERIC_INEXACT, "1000", kWholeText},
    {"tens", "15", -1, kHalfEven, NUMERIC_INEXACT, "2", kWholeText},
    {"all digits below the scale", "12345", -5, kHalfUp, NUMERIC_INEXACT, "0", kWholeText},
    {"all digits below the scale, rounded up", "12345", -50, kUp, NUMERIC_INEXACT, "1", kWholeText},
    {"places of zeros are no loss", "1.500", 1, kUp, NUMERIC_OK, "15", kWholeText},
};

TEST(Parse, RoundsIntoTheScale) { expect_rows_of_both(kRoundingRows); }

constexpr ParseModesRow kModesRows[] = {
    {"2.5", "2.5", 0, NUMERIC_INEXACT, "3 2 3 2 3 2 2"},
    {"3.5", "3.5", 0, NUMERIC_INEXACT, "4 3 4 3 4 3 4"},
    {"-2.5", "-2.5", 0, NUMERIC_INEXACT, "-3 -2 -2 -3 -3 -2 -2"},
    {"2.6", "2.6", 0, NUMERIC_INEXACT, "3 2 3 2 3 3 3"},
    {"-2.4", "-2.4", 0, NUMERIC_INEXACT, "-3 -2 -2 -3 -2 -2 -2"},
    {"2.0", "2.0", 0, NUMERIC_OK, "2 2 2 2 2 2 2"},
    {"a half", "0.5", 0, NUMERIC_INEXACT, "1 0 1 0 1 0 0"},
    {"minus a half", "-0.5", 0, NUMERIC_INEXACT, "-1 0 0 -1 -1 0 0"},
    {"far below the scale", "1e-300", 0, NUMERIC_INEXACT, "1 0 1 0 0 0 0"},
    {"far below the scale, negative", "-1e-300", 0, NUMERIC_INEXACT, "-1 0 0 -1 0 0 0"},
};

TEST(Parse, FollowsEveryMode) {
    for (const Parser parser : kParsers) expect_rows(parser, kModesRows);
}

TEST(Parse, TieAtEveryDistance) {
    for (const Tie& tie : kTies) {
        for (int distance = 1; distance <= kLongestTie; ++distance) {
            for (const bool negative : {false, true}) {
                for (const std::uint32_t mode : kModes) {
                    const TieCase item{tie, distance, negative, mode};
                    const std::string literal = text(item.value()) + "e-" + std::to_string(distance);
                    const Parsed parsed = parse(kPlain, literal, {0, mode});
                    EXPECT_EQ(parsed.outcome, outcome(NUMERIC_INEXACT, std::to_string(item.rounded()))) << item;
                }
            }
        }
    }
}

constexpr ParseRow kRangeRows[] = {
    {"the largest value", "170141183460469231731687303715884105727", 0, kHalfEven, NUMERIC_OK, "2^127-1", kWholeText},
    {"the smallest value", "-170141183460469231731687303715884105727", 0, kHalfEven, NUMERIC_OK, "-2^127+1",
     kWholeText},
    {"2^127", "170141183460469231731687303715884105728", 0, kHalfEven, NUMERIC_OVERFLOW, "NaN", kWholeText},
    {"-2^127 is the NaN pattern, not a value", "-170141183460469231731687303715884105728", 0, kHalfEven,
     NUMERIC_UNDERFLOW, "NaN", kWholeText},
    {"the largest value as a fraction", "0.170141183460469231731687303715884105727", 39, kHalfEven, NUMERIC_OK,
     "2^127-1", kWholeText},
    {"the largest value through the scale", "17014118346046923173168730371588410572.7", 1, kHalfEven, NUMERIC_OK,
     "2^127-1", kWholeText},
    {"2^127 through the scale", "17014118346046923173168730371588410572.8", 1, kHalfEven, NUMERIC_OVERFLOW, "NaN",
     kWholeText},
    {"rounding up to 2^127", "170141183460469231731687303715884105727.5", 0, kHalfUp, NUMERIC_OVERFLOW, "NaN",
     kWholeText},
    {"the odd neighbour of 2^127 at a tie", "170141183460469231731687303715884105727.5", 0, kHalfEven, NUMERIC_OVERFLOW,
     "NaN", kWholeText},
    {"a tie below 2^127 kept", "170141183460469231731687303715884105727.5", 0, kHalfDown, NUMERIC_INEXACT, "2^127-1",
     kWholeText},
    {"cut off below 2^127", "170141183460469231731687303715884105727.9", 0, kDown, NUMERIC_INEXACT, "2^127-1",
     kWholeText},
    {"rounding down to -2^127", "-170141183460469231731687303715884105727.1", 0, kFloor, NUMERIC_UNDERFLOW, "NaN",
     kWholeText},
    {"one at the largest scale it has", "1", 38, kHalfEven, NUMERIC_OK, "10^38", kWholeText},
    {"one beyond", "1", 39, kHalfEven, NUMERIC_OVERFLOW, "NaN", kWholeText},
    {"minus one beyond", "-1", 39, kHalfEven, NUMERIC_UNDERFLOW, "NaN", kWholeText},
    {"forty digits", "1000000000000000000000000000000000000000", 0, kHalfEven, NUMERIC_OVERFLOW, "NaN", kWholeText},
    {"-2^64 beyond", "-18446744073709551616", 19, kHalfEven, NUMERIC_UNDERFLOW, "NaN", kWholeText},
    {"zero at a huge scale", "0", INT32_MAX, kHalfEven, NUMERIC_OK, "0", kWholeText},
    {"1.0 at the largest scale", "1.0", INT32_MAX, kHalfEven, NUMERIC_OVERFLOW, "NaN", kWholeText},
    {"-1.0 at the largest scale", "-1.0", INT32_MAX, kHalfEven, NUMERIC_UNDERFLOW, "NaN", kWholeText},
    {"1.0 at the smallest scale but one", "1.0", -INT32_MAX, kHalfEven, NUMERIC_INEXACT, "0", kWholeText},
    {"1.0 at the smallest scale, rounded up", "1.0", INT32_MIN, kUp, NUMERIC_INEXACT, "1", kWholeText},
};

TEST(Parse, Range) { expect_rows_of_both(kRangeRows); }

constexpr ParseRow kRejectedRows[] = {
    {"letters", "abc", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"NaN is no literal", "NaN", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"nan is no literal", "nan", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"inf is no literal", "inf", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a point alone", ".", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"two points", "..5", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a minus alone", "-", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a plus alone", "+", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"two signs", "--1", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"two different signs", "+-1", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a sign and a point", "-.", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a sign behind the point", ".-5", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"an exponent alone", "E5", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a point and an exponent", ".e5", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a blank alone", " ", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a leading blank", " 1", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a leading tab", "\t1", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a leading line break", "\n1", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a blank behind the sign", "- 1", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a leading comma", ",123", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"a digit that is not ASCII", "\xd9\xa3", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"an exponent marker without digits", "1e", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"an exponent sign without digits", "1e+", 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"an error is found before an invalid mode", "abc", 0, 7, NUMERIC_SYNTAX_ERROR, "untouched", 0},
    {"an unfinished exponent is found before an invalid mode", "1e", 0, UINT32_MAX, NUMERIC_SYNTAX_ERROR, "untouched",
     0},
};

TEST(Parse, Rejected) { expect_rows_of_both(kRejectedRows); }

constexpr ParseRow kEndRows[] = {
    {"letters behind", "12abc", 0, kHalfEven, NUMERIC_OK, "12", 2},
    {"a second point", "1.2.3", 1, kHalfEven, NUMERIC_OK, "12", 3},
    {"a second point right behind the first", "1..2", 1, kHalfEven, NUMERIC_OK, "10", 2},
    {"a sign behind", "5-", 0, kHalfEven, NUMERIC_OK, "5", 1},
    {"a plus behind", "5+3", 0, kHalfEven, NUMERIC_OK, "5", 1},
    {"a sign behind the point", "5.-3", 0, kHalfEven, NUMERIC_OK, "5", 2},
    {"a sign behind a fraction", "5.5-3", 1, kHalfEven, NUMERIC_OK, "55", 3},
    {"a sign behind does not undo the one in front", "-5-", 0, kHalfEven, NUMERIC_OK, "-5", 2},
    {"a blank behind", "1 2", 0, kHalfEven, NUMERIC_OK, "1", 1},
    {"a blank inside a fraction", "1.5 5", 1, kHalfEven, NUMERIC_OK, "15", 3},
    {"hexadecimal ends behind its zero", "0x10", 0, kHalfEven, NUMERIC_OK, "0", 1},
    {"an underscore", "1_000", 0, kHalfEven, NUMERIC_OK, "1", 1},
    {"a comma at the end", "12,", 0, kHalfEven, NUMERIC_OK, "12", 2},
    {"the end belongs to a rounded literal too", "2.5xyz", 0, kHalfEven, NUMERIC_INEXACT, "2", 3},
    {"the end belongs to an overflow too", "1e99x", 0, kHalfEven, NUMERIC_OVERFLOW, "NaN", 4},
};

TEST(Parse, StopsBehindTheLiteral) { expect_rows_of_both(kEndRows); }

struct InvalidModeRow {
    const char* name;
    const char* text;
    std::int32_t scale;
    std::ptrdiff_t end;
};

constexpr InvalidModeRow kInvalidModeRows[] = {
    {"nothing to round", "12", 0, 2},
    {"places to add", "12", 3, 2},
    {"digits to drop", "1.25", 1, 4},
    {"zero", "0", 0, 1},
    {"an overflow", "1e39", 0, 4},
    {"a negative overflow, read up to its long exponent", "-1e2147483647", INT32_MAX, 3},
    {"nothing left", "1e-100", 0, 6},
    {"-2^64", "-18446744073709551616", 0, 21},
    {"text behind", "12abc", 0, 2},
};

TEST(Parse, InvalidModeLeavesTheResultBehindAWrittenEnd) {
    for (const Parser parser : kParsers) {
        for (const InvalidModeRow& row : kInvalidModeRows) {
            for (const std::uint32_t mode : kInvalidModes) {
                SCOPED_TRACE(std::string(row.name) + ", mode " + std::to_string(mode));
                const Parsed parsed = parse(parser, row.text, {row.scale, mode});
                EXPECT_EQ(parsed.outcome, outcome(NUMERIC_INVALID_ARGUMENT, "untouched"));
                EXPECT_EQ(parsed.end, row.end);
            }
        }
    }
}

// An empty field is NaN and no error; nothing but the result is touched, and nothing but the text examined.
TEST(Parse, EmptyText) {
    for (const Parser parser : kParsers) {
        for (const std::uint32_t mode : {kHalfEven, 7U, UINT32_MAX}) {
            const Parsed parsed = parse(parser, "", {3, mode});
            EXPECT_EQ(parsed.outcome, outcome(NUMERIC_OK, "NaN")) << mode;
            EXPECT_EQ(parsed.end, kEndUntouched) << mode;
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
