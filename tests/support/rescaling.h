// SPDX-License-Identifier: MIT
// Rows for the operations whose operands and result each carry a descriptor: add, subtract, multiply and divide.
#ifndef QV8NUMERIC_TESTS_RESCALING_H
#define QV8NUMERIC_TESTS_RESCALING_H

#include <span>

#include "calls.h"

namespace qv8numeric_tests {

using RescalingOperation = NumericStatus (*)(const NumericInfo* a_info, const NumericInfo* b_info,
                                             const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                             Numeric* result);

struct Scales {
    std::int32_t a;
    std::int32_t b;
    std::int32_t result;
};
std::ostream& operator<<(std::ostream& out, const Scales& scales);

// The operation at these scales, rounding by `mode`. The operands' descriptors name other valid modes, which must have
// no effect, and all three are checked to come back as they went in.
BinaryOperation at_scales(RescalingOperation operation, const Scales& scales, std::uint32_t mode);

struct RescalingRow {
    const char* name;
    const char* a;
    std::int32_t a_scale;
    const char* b;
    std::int32_t b_scale;
    std::int32_t result_scale;
    std::uint32_t mode;
    NumericStatus status;
    const char* expected;
};
void expect_rows(RescalingOperation operation, std::span<const RescalingRow> rows);

// One expected value per mode, for in_mode(), all with the same status.
struct SevenModesRow {
    const char* name;
    const char* a;
    std::int32_t a_scale;
    const char* b;
    std::int32_t b_scale;
    std::int32_t result_scale;
    NumericStatus status;
    const char* expected;
};
void expect_rows(RescalingOperation operation, std::span<const SevenModesRow> rows);

}  // namespace qv8numeric_tests

#endif
