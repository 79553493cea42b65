// SPDX-License-Identifier: MIT
// How many digits of a long literal are taken. A run is read three digits at a time and its last one or two singly: a
// step of three is dropped once more than 42 digits are held, a single one once more than 40 are. Dropped digits count
// as zeros and do not make the result inexact, so a digit was taken exactly when rounding up can see it.
#include <gtest/gtest.h>

#include "modes.h"
#include "parsing.h"

namespace qv8numeric_tests {
namespace {

std::string zeros(std::size_t count) { return std::string(count, '0'); }

// "1", zeros, and another "1" at the given position of `length` digits.
std::string one_and(std::size_t position, std::size_t length) {
    std::string digits = "1" + zeros(length - 1);
    digits[position] = '1';
    return digits;
}

struct RunRow {
    std::size_t length;
    std::size_t taken;
};

constexpr RunRow kRunRows[] = {{38, 38}, {39, 39}, {40, 40}, {41, 41}, {42, 42}, {43, 42}, {44, 42},
                               {45, 45}, {46, 45}, {47, 45}, {48, 45}, {49, 45}, {50, 45}};

// Rounded up into a scale at which the leading "1" is 10^9, the literal shows whether its second "1" was taken.
constexpr const char* kSeen = "1000000001";
constexpr const char* kNotSeen = "1000000000";

Outcome seen(bool taken) { return taken ? outcome(NUMERIC_INEXACT, kSeen) : outcome(NUMERIC_OK, kNotSeen); }

TEST(ParseDigits, TakenOfAnInteger) {
    for (const RunRow& row : kRunRows) {
        const NumericInfo info = {-static_cast<std::int32_t>(row.length - 10), kUp};
        for (std::size_t position = 10; position < row.length; ++position) {
            const std::string literal = one_and(position, row.length);
            for (const Parser parser : kParsers) {
                const Parsed parsed = parse(parser, literal, info);
                EXPECT_EQ(parsed.outcome, seen(position < row.taken)) << row.length << " digits: " << literal;
                EXPECT_EQ(parsed.end, static_cast<std::ptrdiff_t>(literal.size()));
            }
        }
    }
}

TEST(ParseDigits, TakenOfAFraction) {
    for (const RunRow& row : kRunRows) {
        for (std::size_t position = 10; position < row.length; ++position) {
            for (const char* integer : {"", "0", "0000"}) {
                const std::string literal = integer + ("." + one_and(position, row.length));
                const Parsed parsed = parse(kPlain, literal, {10, kUp});
                EXPECT_EQ(parsed.outcome, seen(position < row.taken)) << row.length << " digits: " << literal;
            }
        }
    }
}

struct SplitRow {
    const char* name;
    std::size_t integer;
    std::size_t fraction;
    std::size_t fraction_taken;
};

constexpr SplitRow kSplitRows[] = {
    {"room for all", 20, 21, 21},
    {"a last single digit finds 41 held", 20, 22, 21},
    {"two last digits find 41 held", 20, 23, 21},
    {"a last step of three finds 41 held", 20, 24, 24},
    {"nothing more behind 44", 20, 25, 24},
    {"nothing more behind 44, steps of three", 20, 30, 24},
    {"a single digit makes 41", 40, 1, 1},
    {"of two single digits the first makes 41", 40, 2, 1},
    {"a step of three finds 40 held", 40, 3, 3},
    {"a single digit behind that step", 40, 4, 3},
    {"a single digit finds 41 held", 41, 1, 0},
    {"a step of three finds 41 held", 41, 3, 3},
    {"a single digit finds 42 held", 42, 1, 0},
    {"a step of three finds 42 held", 42, 3, 3},
    {"a step of three finds 45 held", 45, 3, 0},
};

TEST(ParseDigits, TakenAcrossThePoint) {
    for (const SplitRow& row : kSplitRows) {
        SCOPED_TRACE(row.name);
        const NumericInfo info = {-static_cast<std::int32_t>(row.integer) + 10, kUp};
        for (std::size_t position = 0; position < row.fraction; ++position) {
            std::string literal = "1" + zeros(row.integer - 1) + "." + zeros(row.fraction);
            literal[row.integer + 1 + position] = '1';
            EXPECT_EQ(parse(kPlain, literal, info).outcome, seen(position < row.fraction_taken)) << literal;
        }
    }
}

std::string repeated(std::string_view piece, std::size_t count) {
    std::string text;
    text.reserve(piece.size() * count);
    for (std::size_t i = 0; i < count; ++i) text += piece;
    return text;
}

struct LongRow {
    const char* name;
    std::string text;
    std::int32_t scale;
    std::uint32_t mode;
    NumericStatus status;
    const char* value;
    std::size_t end;
};

void expect_long_rows(Parser parser, std::span<const LongRow> rows) {
    for (const LongRow& row : rows) {
        SCOPED_TRACE(row.name);
        const Parsed parsed = parse(parser, row.text, {row.scale, row.mode});
        EXPECT_EQ(parsed.outcome, outcome(row.status, row.value));
        EXPECT_EQ(parsed.end, static_cast<std::ptrdiff_t>(row.end));
    }
}

// Zeros in front are skipped in whole steps; those that share a step of three with the first digit count.
TEST(ParseDigits, WhatCounts) {
    const LongRow rows[] = {
        {"skipped zeros cost nothing", zeros(6) + one_and(44, 45), -35, kUp, NUMERIC_INEXACT, kSeen, 51},
        {"one digit more is dropped", zeros(6) + one_and(45, 46), -36, kUp, NUMERIC_OK, kNotSeen, 52},
        {"two zeros in the first digit's step cost two digits", zeros(2) + one_and(40, 41), -31, kUp, NUMERIC_OK,
         kNotSeen, 43},
        {"the same digits without the zeros", one_and(40, 41), -31, kUp, NUMERIC_INEXACT, kSeen, 41},
        {"a sign costs nothing", "-" + one_and(40, 41), -31, kUp, NUMERIC_INEXACT, "-1000000001", 42},
        {"a dropped digit of a negative literal", "-" + one_and(42, 43), -33, kUp, NUMERIC_OK, "-1000000000", 44},
        {"an exponent behind taken digits", one_and(40, 41) + "e-31", 0, kUp, NUMERIC_INEXACT, kSeen, 45},
        {"an exponent behind dropped digits", one_and(42, 43) + "e-33", 0, kUp, NUMERIC_OK, kNotSeen, 47},
        {"a dropped nine is not rounded", "1" + zeros(41) + "9", -33, kUp, NUMERIC_OK, kNotSeen, 43},
        {"a taken nine is", "1" + zeros(40) + "9", -32, kUp, NUMERIC_INEXACT, kSeen, 42},
        {"dropped digits do not tip a tie", "25" + zeros(40) + "1", -42, kHalfEven, NUMERIC_INEXACT, "2", 43},
        {"taken digits do", "25" + zeros(39) + "1", -41, kHalfEven, NUMERIC_INEXACT, "3", 42},
    };
    for (const Parser parser : kParsers) expect_long_rows(parser, rows);
}

// Behind the point every zero is held, so a tiny literal may lose its only digit.
TEST(ParseDigits, ZerosBehindThePointAreHeld) {
    const LongRow rows[] = {
        {"40 zeros leave room for one digit", "0." + zeros(40) + "1", 41, kHalfEven, NUMERIC_OK, "1", 43},
        {"41 zeros end in a step of three", "0." + zeros(41) + "1", 42, kHalfEven, NUMERIC_OK, "1", 44},
        {"42 zeros end in one single digit", "0." + zeros(42) + "1", 43, kHalfEven, NUMERIC_OK, "0", 45},
        {"43 zeros end in two single digits", "0." + zeros(43) + "1", 44, kHalfEven, NUMERIC_OK, "0", 46},
        {"44 zeros end in a step of three", "0." + zeros(44) + "1", 45, kHalfEven, NUMERIC_OK, "1", 47},
        {"45 zeros leave no room", "0." + zeros(45) + "1", 46, kHalfEven, NUMERIC_OK, "0", 48},
        {"45 zeros leave no room, rounded up", "0." + zeros(45) + "1", 0, kUp, NUMERIC_OK, "0", 48},
        {"-2^64 behind 25 zeros", "-0." + zeros(25) + "18446744073709551616", 45, kHalfEven, NUMERIC_OK, "-2^64", 48},
        {"-2^64 behind 26 zeros loses its last digit", "-0." + zeros(26) + "18446744073709551616", 46, kHalfEven,
         NUMERIC_OK, "-18446744073709551610", 49},
    };
    for (const Parser parser : kParsers) expect_long_rows(parser, rows);
}

TEST(ParseDigits, TakenOfGroups) {
    const LongRow rows[] = {
        {"the fourteenth group finds 40 held", "1" + repeated(",000", 13) + ",001", -33, kUp, NUMERIC_INEXACT, kSeen,
         57},
        {"the fifteenth finds 43", "1" + repeated(",000", 14) + ",001", -36, kUp, NUMERIC_OK, kNotSeen, 61},
        {"a dropped group behind the last one taken", "1" + repeated(",000", 13) + ",001,000", -36, kUp,
         NUMERIC_INEXACT, kSeen, 61},
        {"groups of zeros in front are skipped", "0" + repeated(",000", 20) + ",001" + repeated(",000", 13) + ",001",
         -33, kUp, NUMERIC_INEXACT, kSeen, 141},
        {"a group behind a fraction moves up into the place of a dropped digit", "0." + zeros(40) + "129,345", 45,
         kHalfEven, NUMERIC_OK, "12345", 45},
    };
    expect_long_rows(kGrouped, rows);
}

TEST(ParseDigits, Megabytes) {
    constexpr std::size_t kMillion = 1'000'000;
    const std::string groups = repeated(",000", kMillion / 4);
    const LongRow rows[] = {
        {"zeros and a digit", zeros(kMillion) + "5", 0, kHalfEven, NUMERIC_OK, "5", kMillion + 1},
        {"a digit and zeros", "5" + zeros(kMillion), 0, kHalfEven, NUMERIC_OVERFLOW, "NaN", kMillion + 1},
        {"minus a digit and zeros", "-5" + zeros(kMillion), 0, kHalfEven, NUMERIC_UNDERFLOW, "NaN", kMillion + 2},
        {"a digit and zeros that the scale takes back", "5" + zeros(kMillion), -1000000, kHalfEven, NUMERIC_OK, "5",
         kMillion + 1},
        {"a digit and zeros that the exponent takes back", "5" + zeros(kMillion) + "e-1000000", 0, kHalfEven,
         NUMERIC_OK, "5", kMillion + 3},
        {"a fraction", "0." + std::string(kMillion, '3'), 10, kHalfEven, NUMERIC_INEXACT, "3333333333", kMillion + 2},
        {"a fraction of zeros before a digit", "0." + zeros(kMillion) + "1", 5, kUp, NUMERIC_OK, "0", kMillion + 3},
        {"an exponent of zeros before a digit", "1e" + zeros(kMillion) + "2", 0, kHalfEven, NUMERIC_OK, "100", 2},
        {"an exponent of nines", "1e" + std::string(kMillion, '9'), 0, kHalfEven, NUMERIC_SYNTAX_ERROR, "untouched", 0},
        {"an exponent of minus nines", "1e-" + std::string(kMillion, '9'), 0, kHalfEven, NUMERIC_SYNTAX_ERROR,
         "untouched", 0},
        {"groups", "1" + groups, 0, kHalfEven, NUMERIC_OVERFLOW, "NaN", kMillion + 1},
        {"groups that the scale takes back", "1" + groups, -750000, kHalfEven, NUMERIC_OK, "1", kMillion + 1},
        {"groups of zeros and a last digit", "0" + groups + ",007", 0, kHalfEven, NUMERIC_OK, "7", kMillion + 5},
        {"groups of an exponent: fourteen are taken, eight digits at a time, and the rest are places", "1e0" + groups,
         -749998, kHalfEven, NUMERIC_OK, "1", 3},
    };
    expect_long_rows(kGrouped, rows);
}

}  // namespace
}  // namespace qv8numeric_tests
