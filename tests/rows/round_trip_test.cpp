// SPDX-License-Identifier: MIT
// There and back: what one conversion writes exactly, its counterpart reads as the same value.
#include <gtest/gtest.h>

#include <algorithm>

#include "binary64.h"
#include "formatting.h"
#include "modes.h"
#include "parsing.h"
#include "special_values.h"

namespace qv8numeric_tests {
namespace {

struct Form {
    const char* name;
    Formatter formatter;
    Parser parser;
};
constexpr Form kForms[] = {{"plain", QV8NumericNum2Str, QV8NumericStr2Num},
                           {"grouped", QV8NumericNum2Dgstr, QV8NumericDgstr2Num}};

std::ptrdiff_t count_digits(const std::string& mantissa) {
    return std::count_if(mantissa.begin(), mantissa.end(), [](char c) { return '0' <= c && c <= '9'; });
}

// With up to 41 mantissa digits every digit is taken, and with up to three in the exponent the reader looks to its end.
TEST(RoundTrip, FormatThenParse) {
    constexpr std::ptrdiff_t kDigitsAlwaysTaken = 41;
    int trips = 0;
    for (const Form& form : kForms) {
        for (const Numeric& value : special_values()) {
            for (const std::int32_t scale : {-3, -1, 0, 1, 2, 8, 9, 20, 38, 39}) {
                for (const std::int32_t places : {0, 1, 3, 8, 9, 17, 39}) {
                    for (const std::int32_t shift : {-39, -10, -3, -1, 0, 1, 2, 3, 10, 38}) {
                        const NumericInfo info = {scale, kUp};
                        const Filled written = fill(form.formatter, {value, info, shift, places}, 160);
                        const std::string text = written.text();
                        if (written.status != NUMERIC_OK) continue;
                        if (count_digits(text.substr(0, text.find('E'))) > kDigitsAlwaysTaken) continue;
                        const Parsed read = parse(form.parser, text, info);
                        ASSERT_EQ(read.outcome, (Outcome{NUMERIC_OK, value})) << form.name << " '" << text << "'";
                        ASSERT_EQ(read.end, static_cast<std::ptrdiff_t>(text.size())) << form.name << " '" << text;
                        ++trips;
                    }
                }
            }
        }
    }
    EXPECT_GT(trips, 10000);
}

// Digits rounded away come back as a value that reads exactly at the scale it was written with.
TEST(RoundTrip, FormatRoundedThenParse) {
    for (const Form& form : kForms) {
        for (const Numeric& value : special_values()) {
            for (const std::uint32_t mode : kModes) {
                const Filled written = fill(form.formatter, {value, {20, mode}, 0, 3}, 160);
                const Parsed read = parse(form.parser, written.text(), {3, mode});
                ASSERT_EQ(read.outcome.status, NUMERIC_OK) << written.text();
                EXPECT_EQ(fill(form.formatter, {read.outcome.value, {3, mode}, 0, 3}, 160).text(),
                          written.text().starts_with("-0.000") ? "0.000" : written.text());
            }
        }
    }
}

TEST(RoundTrip, EveryLimitOfTheMachineIntegers) {
    for (const std::int64_t value : {std::int64_t{0}, std::int64_t{1}, std::int64_t{-1}, std::int64_t{INT32_MAX},
                                     std::int64_t{INT32_MIN}, INT64_MAX, INT64_MIN}) {
        const NumericInfo info = {0, kHalfEven};
        Numeric number = kPoison;
        std::int64_t back = 0;
        EXPECT_EQ(QV8NumericLong2Num(value, &info, &number), NUMERIC_OK);
        EXPECT_EQ(text(number), std::to_string(value));
        EXPECT_EQ(QV8NumericNum2Long(&number, &info, &back), NUMERIC_OK);
        EXPECT_EQ(back, value);
    }
}

// At a positive scale the way back holds for coefficients from 0 to below 2^32.
TEST(RoundTrip, SmallIntegersAtPositiveScales) {
    constexpr std::int32_t kLargestAtScale[] = {0, 429496729, 42949672, 4294967, 429496, 42949, 4294, 429, 42, 4};
    for (std::int32_t scale = 1; scale <= 9; ++scale) {
        for (const std::int32_t value : {0, 1, kLargestAtScale[scale]}) {
            const NumericInfo info = {scale, kHalfEven};
            Numeric number = kPoison;
            std::int32_t back = -1;
            EXPECT_EQ(QV8NumericInt2Num(value, &info, &number), NUMERIC_OK);
            EXPECT_EQ(QV8NumericNum2Int(&number, &info, &back), NUMERIC_OK);
            EXPECT_EQ(back, value) << "scale " << scale;
        }
    }
}

struct ThereAndBack {
    Outcome there;
    DoubleOutcome back;
};

ThereAndBack there_and_back(double value, const NumericInfo& info) {
    Numeric number = kPoison;
    double back = 0;
    const NumericStatus there_status = QV8NumericDbl2Num(&info, &number, value);
    const NumericStatus back_status = QV8NumericNum2Dbl(&number, &info, &back);
    return {{there_status, number}, {back_status, bits(back)}};
}

// A double whose places the scale holds is the same number in both forms, so no mode has anything to round.
TEST(RoundTrip, BinaryFractionsWithinTheScale) {
    for (int places = 0; places <= 36; ++places) {
        const double unit = 1.0 / static_cast<double>(std::uint64_t{1} << places);
        for (const double multiple : {1.0, -1.0, 3.0, -5.0}) {
            for (int scale = places; scale <= 37; ++scale) {
                for (const std::uint32_t mode : kModes) {
                    SCOPED_TRACE(testing::Message() << multiple << " / 2^" << places << " at " << scale);
                    const ThereAndBack trip = there_and_back(multiple * unit, {scale, mode});
                    EXPECT_EQ(trip.there.status, NUMERIC_OK);
                    EXPECT_EQ(trip.back, (DoubleOutcome{NUMERIC_OK, bits(multiple * unit)}));
                }
            }
        }
    }
}

// Seventeen significant digits tell any two doubles apart. From 10^6 on, eleven places hold at least eighteen; both
// conversions round correctly at scale 11, and so does the text between them.
TEST(RoundTrip, DoublesThroughEighteenDigitsAndText) {
    constexpr NumericInfo kInfo = {11, kHalfEven};
    constexpr std::uint64_t kStep = 0x000123456789abcd;  // about 7 % of a power of two
    int trips = 0;
    for (std::uint64_t pattern = bits(1e6); pattern < bits(1e27); pattern += kStep) {
        for (const double value : {from_bits(pattern), -from_bits(pattern)}) {
            const ThereAndBack trip = there_and_back(value, kInfo);
            ASSERT_GE(trip.there.status, NUMERIC_OK) << value;
            ASSERT_EQ(bits_text(trip.back.bits), bits_text(bits(value)));

            const Filled written = fill(QV8NumericNum2Dgstr, {trip.there.value, kInfo, 0, 11}, 80);
            ASSERT_EQ(parse(QV8NumericDgstr2Num, written.text(), kInfo).outcome,
                      (Outcome{NUMERIC_OK, trip.there.value}))
                << written.text();
            ++trips;
        }
    }
    EXPECT_GT(trips, 1000);
}

}  // namespace
}  // namespace qv8numeric_tests
