// SPDX-License-Identifier: MIT
// Coefficients into machine integers: cut off towards zero in every mode, exact at scale 0, and with the low 32 bits of
// the magnitude alone replaced at any other.
#include <gtest/gtest.h>

#include <limits>
#include <span>

#include "calls.h"
#include "exact.h"
#include "modes.h"
#include "special_values.h"

namespace qv8numeric_tests {
namespace {

template <typename T>
struct Converted {
    NumericStatus status;
    T value;

    friend bool operator==(const Converted&, const Converted&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Converted& converted) {
        return out << converted.value << " with " << status_name(converted.status);
    }
};

template <typename T>
Converted<T> convert(NumericStatus (*conversion)(const Numeric*, const NumericInfo*, T*), const Numeric& value,
                     const NumericInfo& info) {
    struct {
        T before = 0x5a5a5a5a, result = 0x5a5a5a5a, after = 0x5a5a5a5a;
    } memory;
    const GuardedNumeric object{.value = value};
    const NumericInfo info_before = info;
    const NumericStatus status = conversion(&object.value, &info, &memory.result);
    if (!(object.value == value) || !(info == info_before)) ADD_FAILURE() << "an operand changed";
    if (memory.before != 0x5a5a5a5a || memory.after != 0x5a5a5a5a) ADD_FAILURE() << "wrote beside the result";
    return {status, memory.result};
}

Converted<std::int64_t> to_64(const Numeric& value, const NumericInfo& info) {
    return convert(QV8NumericNum2Long, value, info);
}

Converted<std::int32_t> to_32(const Numeric& value, const NumericInfo& info) {
    return convert(QV8NumericNum2Int, value, info);
}

// The same in every mode.
struct Row {
    const char* name;
    const char* value;
    std::int32_t scale;
    Converted<std::int64_t> in_64_bits;
    Converted<std::int32_t> in_32_bits;
};

void expect_rows(std::span<const Row> rows) {
    for (const Row& row : rows) {
        for (const std::uint32_t mode : kModes) {
            SCOPED_TRACE(std::string(row.name) + ", " + mode_name(mode));
            EXPECT_EQ(to_64(num(row.value), {row.scale, mode}), row.in_64_bits);
            EXPECT_EQ(to_32(num(row.value), {row.scale, mode}), row.in_32_bits);
        }
    }
}

constexpr Row kScaleZeroRows[] = {
    {"zero", "0", 0, {NUMERIC_OK, 0}, {NUMERIC_OK, 0}},
    {"minus one", "-1", 0, {NUMERIC_OK, -1}, {NUMERIC_OK, -1}},
    {"the largest of 32 bits", "2^31-1", 0, {NUMERIC_OK, INT32_MAX}, {NUMERIC_OK, INT32_MAX}},
    {"2^31", "2^31", 0, {NUMERIC_OK, 2147483648}, {NUMERIC_OVERFLOW, 0}},
    {"the smallest of 32 bits", "-2^31", 0, {NUMERIC_OK, INT32_MIN}, {NUMERIC_OK, INT32_MIN}},
    {"one below the smallest of 32 bits", "-2^31-1", 0, {NUMERIC_OK, -2147483649}, {NUMERIC_UNDERFLOW, 0}},
    {"2^32-1 has 32 bits, but no sign bit", "2^32-1", 0, {NUMERIC_OK, 4294967295}, {NUMERIC_OVERFLOW, 0}},
    {"2^32 has low 32 bits of zero", "2^32", 0, {NUMERIC_OK, 4294967296}, {NUMERIC_OVERFLOW, 0}},
    {"-2^32 has low 32 bits of zero", "-2^32", 0, {NUMERIC_OK, -4294967296}, {NUMERIC_UNDERFLOW, 0}},
    {"the largest of 64 bits", "2^63-1", 0, {NUMERIC_OK, INT64_MAX}, {NUMERIC_OVERFLOW, 0}},
    {"2^63", "2^63", 0, {NUMERIC_OVERFLOW, 0}, {NUMERIC_OVERFLOW, 0}},
    {"the smallest of 64 bits", "-2^63", 0, {NUMERIC_OK, INT64_MIN}, {NUMERIC_UNDERFLOW, 0}},
    {"one below the smallest of 64 bits", "-2^63-1", 0, {NUMERIC_UNDERFLOW, 0}, {NUMERIC_UNDERFLOW, 0}},
    {"2^64-1", "2^64-1", 0, {NUMERIC_OVERFLOW, 0}, {NUMERIC_OVERFLOW, 0}},
    {"2^64 has a low half of zero", "2^64", 0, {NUMERIC_OVERFLOW, 0}, {NUMERIC_OVERFLOW, 0}},
    {"-2^64 has a high half of ones and a low half of zero",
     "-2^64",
     0,
     {NUMERIC_UNDERFLOW, 0},
     {NUMERIC_UNDERFLOW, 0}},
    {"one above 2^64 would fit by its low half", "2^64+1", 0, {NUMERIC_OVERFLOW, 0}, {NUMERIC_OVERFLOW, 0}},
    {"one below -2^64 would fit by its low half", "-2^64-1", 0, {NUMERIC_UNDERFLOW, 0}, {NUMERIC_UNDERFLOW, 0}},
    {"the largest value", "2^127-1", 0, {NUMERIC_OVERFLOW, 0}, {NUMERIC_OVERFLOW, 0}},
    {"the smallest value", "-2^127+1", 0, {NUMERIC_UNDERFLOW, 0}, {NUMERIC_UNDERFLOW, 0}},
};

TEST(ToInteger, ScaleZero) { expect_rows(kScaleZeroRows); }

constexpr Row kDivideRows[] = {
    {"cut off, also where rounding would go up", "12345", 2, {NUMERIC_INEXACT, 123}, {NUMERIC_INEXACT, 123}},
    {"cut off just below the next integer", "12399", 2, {NUMERIC_INEXACT, 123}, {NUMERIC_INEXACT, 123}},
    {"zeros cut off", "12300", 2, {NUMERIC_OK, 123}, {NUMERIC_OK, 123}},
    {"zero", "0", 2, {NUMERIC_OK, 0}, {NUMERIC_OK, 0}},
    {"less than one", "99", 2, {NUMERIC_INEXACT, 0}, {NUMERIC_INEXACT, 0}},
    {"eight places", "4100000000", 8, {NUMERIC_OK, 41}, {NUMERIC_OK, 41}},
    {"nine places", "4100000000", 9, {NUMERIC_INEXACT, 4}, {NUMERIC_INEXACT, 4}},
    {"a remainder in the first of two steps", "1000000001", 9, {NUMERIC_INEXACT, 1}, {NUMERIC_INEXACT, 1}},
    {"the largest coefficient that is divided whole",
     "2^32-1",
     1,
     {NUMERIC_INEXACT, 429496729},
     {NUMERIC_INEXACT, 429496729}},
    {"a hundred places", "7", 100, {NUMERIC_INEXACT, 0}, {NUMERIC_INEXACT, 0}},
    {"the largest scale", "1", INT32_MAX, {NUMERIC_INEXACT, 0}, {NUMERIC_INEXACT, 0}},
    {"zero at the largest scale", "0", INT32_MAX, {NUMERIC_OK, 0}, {NUMERIC_OK, 0}},

    // From 2^32 on only the low 32 bits of the quotient arrive, below the undivided upper bits of the coefficient.
    {"2^32 keeps its upper bit", "2^32", 1, {NUMERIC_INEXACT, 4724464025}, {NUMERIC_OVERFLOW, 0}},
    {"10^10 keeps its upper bits", "10^10", 1, {NUMERIC_OK, 9589934592}, {NUMERIC_OVERFLOW, 0}},
    {"10^10 keeps its upper bits however far it is divided",
     "10^10",
     10,
     {NUMERIC_OK, 8589934593},
     {NUMERIC_OVERFLOW, 0}},
    {"10^10 below one unit", "10^10", 11, {NUMERIC_INEXACT, 8589934592}, {NUMERIC_OVERFLOW, 0}},
    {"a quotient above 2^32 loses its upper bits", "10^11", 1, {NUMERIC_OK, 100194313216}, {NUMERIC_OVERFLOW, 0}},
    {"the largest of 64 bits", "2^63-1", 1, {NUMERIC_INEXACT, 9223372035995782348}, {NUMERIC_OVERFLOW, 0}},
    {"the largest of 64 bits by the last power of ten below it",
     "2^63-1",
     18,
     {NUMERIC_INEXACT, 9223372032559808521},
     {NUMERIC_OVERFLOW, 0}},
    {"the largest of 64 bits by the first above it",
     "2^63-1",
     19,
     {NUMERIC_INEXACT, 9223372032559808512},
     {NUMERIC_OVERFLOW, 0}},
    {"the largest of 64 bits by a power that is no word",
     "2^63-1",
     20,
     {NUMERIC_INEXACT, 9223372032559808512},
     {NUMERIC_OVERFLOW, 0}},
    {"2^32 at the largest scale", "2^32", INT32_MAX, {NUMERIC_INEXACT, 4294967296}, {NUMERIC_OVERFLOW, 0}},
    {"2^63 keeps the bit that refuses it", "2^63", 10, {NUMERIC_OVERFLOW, 0}, {NUMERIC_OVERFLOW, 0}},
    {"2^64 keeps the bit that refuses it", "2^64", 20, {NUMERIC_OVERFLOW, 0}, {NUMERIC_OVERFLOW, 0}},
    {"the largest value", "2^127-1", 39, {NUMERIC_OVERFLOW, 0}, {NUMERIC_OVERFLOW, 0}},
    {"the largest value at the largest scale", "2^127-1", INT32_MAX, {NUMERIC_OVERFLOW, 0}, {NUMERIC_OVERFLOW, 0}},
};

TEST(ToInteger, PositiveScales) { expect_rows(kDivideRows); }

constexpr Row kMultiplyRows[] = {
    {"hundreds", "3", -2, {NUMERIC_OK, 300}, {NUMERIC_OK, 300}},
    {"zero", "0", -2, {NUMERIC_OK, 0}, {NUMERIC_OK, 0}},
    {"zero at the smallest scale", "0", INT32_MIN, {NUMERIC_OK, 0}, {NUMERIC_OK, 0}},
    {"10^9", "1", -9, {NUMERIC_OK, 1000000000}, {NUMERIC_OK, 1000000000}},
    {"the largest product of 32 bits", "214748364", -1, {NUMERIC_OK, 2147483640}, {NUMERIC_OK, 2147483640}},
    {"the sign bit of 32 bits", "214748365", -1, {NUMERIC_OK, 2147483650}, {NUMERIC_OVERFLOW, 0}},

    // Products are taken modulo 2^32 below the unscaled upper bits of the coefficient, and nothing is reported.
    {"10^10 modulo 2^32", "1", -10, {NUMERIC_OK, 1410065408}, {NUMERIC_OK, 1410065408}},
    {"5 * 10^9 modulo 2^32", "5", -9, {NUMERIC_OK, 705032704}, {NUMERIC_OK, 705032704}},
    {"3 * 10^9 sets the sign bit of 32 bits", "3", -9, {NUMERIC_OK, 3000000000}, {NUMERIC_OVERFLOW, 0}},
    {"10^31 modulo 2^32 is 2^31", "1", -31, {NUMERIC_OK, 2147483648}, {NUMERIC_OVERFLOW, 0}},
    {"10^32 modulo 2^32 is zero", "1", -32, {NUMERIC_OK, 0}, {NUMERIC_OK, 0}},
    {"a hundred places", "7", -100, {NUMERIC_OK, 0}, {NUMERIC_OK, 0}},
    {"the smallest scale", "7", INT32_MIN, {NUMERIC_OK, 0}, {NUMERIC_OK, 0}},
    {"2^32-1 modulo 2^32 is minus one", "2^32-1", -1, {NUMERIC_OK, 4294967286}, {NUMERIC_OVERFLOW, 0}},
    {"2^32 keeps its upper bit", "2^32", -1, {NUMERIC_OK, 4294967296}, {NUMERIC_OVERFLOW, 0}},
    {"2^32+1: the low bits alone are scaled", "2^32+1", -1, {NUMERIC_OK, 4294967306}, {NUMERIC_OVERFLOW, 0}},
    {"2^32+1 at the smallest scale", "2^32+1", INT32_MIN, {NUMERIC_OK, 4294967296}, {NUMERIC_OVERFLOW, 0}},
    {"the largest of 64 bits", "2^63-1", -1, {NUMERIC_OK, 9223372036854775798}, {NUMERIC_OVERFLOW, 0}},
    {"2^63 is refused by its own bit", "2^63", -1, {NUMERIC_OVERFLOW, 0}, {NUMERIC_OVERFLOW, 0}},
    {"2^64 is refused by its own bit", "2^64", -1, {NUMERIC_OVERFLOW, 0}, {NUMERIC_OVERFLOW, 0}},
    {"the largest value", "2^127-1", -1, {NUMERIC_OVERFLOW, 0}, {NUMERIC_OVERFLOW, 0}},
};

TEST(ToInteger, NegativeScales) { expect_rows(kMultiplyRows); }

constexpr Row kNegativeRows[] = {
    {"-123.45", "-12345", 2, {NUMERIC_UNDERFLOW, 0}, {NUMERIC_UNDERFLOW, 0}},
    {"-123", "-12300", 2, {NUMERIC_UNDERFLOW, 0}, {NUMERIC_UNDERFLOW, 0}},
    {"cut off to zero", "-1", 1, {NUMERIC_UNDERFLOW, 0}, {NUMERIC_UNDERFLOW, 0}},
    {"-10", "-1", -1, {NUMERIC_UNDERFLOW, 0}, {NUMERIC_UNDERFLOW, 0}},
    {"-2^31", "-2^31", 1, {NUMERIC_UNDERFLOW, 0}, {NUMERIC_UNDERFLOW, 0}},
    {"-2^63", "-2^63", 1, {NUMERIC_UNDERFLOW, 0}, {NUMERIC_UNDERFLOW, 0}},
    {"-2^64 divided", "-2^64", 1, {NUMERIC_UNDERFLOW, 0}, {NUMERIC_UNDERFLOW, 0}},
    {"-2^64 multiplied", "-2^64", -1, {NUMERIC_UNDERFLOW, 0}, {NUMERIC_UNDERFLOW, 0}},
    {"the smallest value", "-2^127+1", 39, {NUMERIC_UNDERFLOW, 0}, {NUMERIC_UNDERFLOW, 0}},
    {"the largest scale", "-1", INT32_MAX, {NUMERIC_UNDERFLOW, 0}, {NUMERIC_UNDERFLOW, 0}},
    {"the smallest scale", "-1", INT32_MIN, {NUMERIC_UNDERFLOW, 0}, {NUMERIC_UNDERFLOW, 0}},
};

TEST(ToInteger, NegativeValuesAreRefusedAtEveryScaleButZero) { expect_rows(kNegativeRows); }

TEST(ToInteger, NanIsFoundFirst) {
    for (const std::int32_t scale : {0, 1, -1, INT32_MAX, INT32_MIN}) {
        for (const std::uint32_t mode : {kHalfEven, 7U, UINT32_MAX}) {
            SCOPED_TRACE(testing::Message() << "scale " << scale << ", mode " << mode);
            EXPECT_EQ(to_64(num("NaN"), {scale, mode}), (Converted<std::int64_t>{NUMERIC_NAN, 0}));
            EXPECT_EQ(to_32(num("NaN"), {scale, mode}), (Converted<std::int32_t>{NUMERIC_NAN, 0}));
        }
    }
}

// The mode matters to no result, but a wrong one is found before the range is.
TEST(ToInteger, InvalidModeLeavesZero) {
    for (const char* value : {"0", "12345", "12300", "-12345", "2^63", "-2^64", "2^127-1"}) {
        for (const std::int32_t scale : {2, -2, INT32_MAX, INT32_MIN}) {
            for (const std::uint32_t mode : kInvalidModes) {
                SCOPED_TRACE(testing::Message() << value << " at " << scale << ", mode " << mode);
                EXPECT_EQ(to_64(num(value), {scale, mode}), (Converted<std::int64_t>{NUMERIC_INVALID_ARGUMENT, 0}));
                EXPECT_EQ(to_32(num(value), {scale, mode}), (Converted<std::int32_t>{NUMERIC_INVALID_ARGUMENT, 0}));
            }
        }
    }
}

TEST(ToInteger, ScaleZeroAcceptsAnyMode) {
    for (const Row& row : kScaleZeroRows) {
        for (const std::uint32_t mode : kInvalidModes) {
            SCOPED_TRACE(row.name);
            EXPECT_EQ(to_64(num(row.value), {0, mode}), row.in_64_bits);
            EXPECT_EQ(to_32(num(row.value), {0, mode}), row.in_32_bits);
        }
    }
}

// The lowest 32 bits of the coefficient replaced by those of the exact quotient or product.
cpp_int low_bits_scaled(const cpp_int& value, int scale) {
    const cpp_int scaled = scale > 0 ? cpp_int(value / power_of_ten(scale)) : cpp_int(value * power_of_ten(-scale));
    constexpr std::uint32_t kLow = UINT32_MAX;
    return (value >> 32 << 32) + (scaled & kLow);
}

template <typename T>
Converted<T> expected_of(const cpp_int& value, int scale) {
    const cpp_int scaled = low_bits_scaled(value, scale);
    if (scaled > std::numeric_limits<T>::max()) return {NUMERIC_OVERFLOW, 0};
    const bool exact = scale < 0 || value % power_of_ten(scale) == 0;
    return {exact ? NUMERIC_OK : NUMERIC_INEXACT, static_cast<T>(scaled)};
}

TEST(ToInteger, ScalesTheLowBitsAlone) {
    for (const Numeric& number : special_values()) {
        const cpp_int value = coefficient(number);
        if (value < 0) continue;
        for (int scale = -100; scale <= 100; ++scale) {
            if (scale == 0) continue;
            SCOPED_TRACE(testing::Message() << value << " at " << scale);
            EXPECT_EQ(to_64(number, {scale, kUp}), expected_of<std::int64_t>(value, scale));
            EXPECT_EQ(to_32(number, {scale, kUp}), expected_of<std::int32_t>(value, scale));
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
