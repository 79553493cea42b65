// SPDX-License-Identifier: MIT
// What add, subtract, multiply and divide at three scales have in common: NaN is seen first, then the three modes, and
// only then is anything computed.
#include <gtest/gtest.h>

#include "modes.h"
#include "rescaling.h"

namespace qv8numeric_tests {
namespace {

struct Operation {
    const char* name;
    RescalingOperation call;
};

constexpr Operation kOperations[] = {
    {"add", QV8NumericRescalingAdd},
    {"subtract", QV8NumericRescalingSub},
    {"multiply", QV8NumericRescalingMul},
    {"divide", QV8NumericRescalingDiv},
};

// Equal scales take a shorter road through add and subtract; the frame must be the same on both.
constexpr Scales kScales[] = {{2, 2, 2}, {2, 2, 0}, {1, 2, 3}, {0, 60, 0}, {INT32_MIN, INT32_MAX, 0}};

BinaryOperation with_modes(const Operation& operation, const Scales& scales, const std::uint32_t (&modes)[3]) {
    const NumericInfo a{scales.a, modes[0]}, b{scales.b, modes[1]}, result{scales.result, modes[2]};
    return [=](const Numeric* x, const Numeric* y, Numeric* z) { return operation.call(&a, &b, &result, x, y, z); };
}

struct OperandsRow {
    const char* name;
    const char* a;
    const char* b;
};

constexpr OperandsRow kNanRows[] = {
    {"first operand", "NaN", "5"},          {"second operand", "5", "NaN"},
    {"both operands", "NaN", "NaN"},        {"first, the second zero", "NaN", "0"},
    {"second, the first zero", "0", "NaN"}, {"second, the first -2^64", "-2^64", "NaN"},
};

TEST(RescalingFrame, NanIsSeenBeforeTheModes) {
    for (const Operation& operation : kOperations) {
        for (const OperandsRow& row : kNanRows) {
            for (const Scales& scales : kScales) {
                for (const std::uint32_t mode : {0U, 6U, 7U, UINT32_MAX}) {
                    EXPECT_TRUE(yields(with_modes(operation, scales, {mode, mode, mode}), num(row.a), num(row.b),
                                       outcome(NUMERIC_NAN, "NaN")))
                        << operation.name << ", NaN in " << row.name << ", " << scales << ", mode " << mode;
                }
            }
        }
    }
}

struct ModesRow {
    const char* name;
    bool a, b, result;  // which of the descriptors names the invalid mode
};

constexpr ModesRow kModesRows[] = {
    {"first operand", true, false, false}, {"second operand", false, true, false}, {"result", false, false, true},
    {"both operands", true, true, false},  {"all three", true, true, true},
};

// With every pair of operands the mode decides alone: whether or not the result would be exact, out of range or a
// division by zero.
constexpr OperandsRow kOperandsRows[] = {
    {"an exact result", "8", "2"}, {"a rounded result", "7", "3"},
    {"a zero", "0", "5"},          {"a zero second operand", "5", "0"},
    {"two zeros", "0", "0"},       {"a result out of range", "2^127-1", "2^127-1"},
    {"-2^64", "-2^64", "3"},
};

TEST(RescalingFrame, AnInvalidModeLeavesTheResultUntouched) {
    for (const Operation& operation : kOperations) {
        for (const ModesRow& row : kModesRows) {
            for (const OperandsRow& operands : kOperandsRows) {
                for (const Scales& scales : kScales) {
                    for (const std::uint32_t mode : kInvalidModes) {
                        const std::uint32_t modes[3] = {row.a ? mode : kDown, row.b ? mode : kDown,
                                                        row.result ? mode : kDown};
                        EXPECT_TRUE(yields(with_modes(operation, scales, modes), num(operands.a), num(operands.b),
                                           {NUMERIC_INVALID_ARGUMENT, kUntouched}))
                            << operation.name << ", mode " << mode << " in " << row.name << ", " << operands.name
                            << ", " << scales;
                    }
                }
            }
        }
    }
}

struct OneDescriptorRow {
    const Operation& operation;
    NumericStatus status;
    const char* expected;
};

// 4.5 and 0.5. Their product is 2.25, a tie of which the even 22 tenths stay.
constexpr OneDescriptorRow kOneDescriptorRows[] = {
    {kOperations[0], NUMERIC_OK, "50"},
    {kOperations[1], NUMERIC_OK, "40"},
    {kOperations[2], NUMERIC_INEXACT, "22"},
    {kOperations[3], NUMERIC_OK, "90"},
};

TEST(RescalingFrame, OneDescriptorForAllThree) {
    constexpr NumericInfo info{1, NUMERIC_ROUND_HALF_EVEN};
    for (const OneDescriptorRow& row : kOneDescriptorRows) {
        const auto call = [&](const Numeric* a, const Numeric* b, Numeric* result) {
            return row.operation.call(&info, &info, &info, a, b, result);
        };
        EXPECT_TRUE(yields(call, num("45"), num("5"), outcome(row.status, row.expected))) << row.operation.name;
    }
}

}  // namespace
}  // namespace qv8numeric_tests
