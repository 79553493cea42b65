// SPDX-License-Identifier: MIT
#include "rescaling.h"

#include "modes.h"

namespace qv8numeric_tests {

std::ostream& operator<<(std::ostream& out, const Scales& scales) {
    return out << "scales " << scales.a << ", " << scales.b << " into " << scales.result;
}

BinaryOperation at_scales(RescalingOperation operation, const Scales& scales, std::uint32_t mode) {
    const NumericInfo a_info{scales.a, (mode + 1) % 7};
    const NumericInfo b_info{scales.b, (mode + 3) % 7};
    const NumericInfo result_info{scales.result, mode};
    return [=](const Numeric* a, const Numeric* b, Numeric* result) {
        const NumericInfo passed[] = {a_info, b_info, result_info};
        const NumericStatus status = operation(&passed[0], &passed[1], &passed[2], a, b, result);
        EXPECT_TRUE(passed[0] == a_info && passed[1] == b_info && passed[2] == result_info);
        return status;
    };
}

void expect_rows(RescalingOperation operation, std::span<const RescalingRow> rows) {
    for (const RescalingRow& row : rows) {
        SCOPED_TRACE(row.name);
        const Scales scales{row.a_scale, row.b_scale, row.result_scale};
        EXPECT_TRUE(
            yields(at_scales(operation, scales, row.mode), num(row.a), num(row.b), outcome(row.status, row.expected)))
            << row.a << " and " << row.b << " at " << scales << ", " << mode_name(row.mode);
    }
}

void expect_rows(RescalingOperation operation, std::span<const SevenModesRow> rows) {
    for (const SevenModesRow& row : rows) {
        SCOPED_TRACE(row.name);
        const Scales scales{row.a_scale, row.b_scale, row.result_scale};
        for (const std::uint32_t mode : kModes) {
            EXPECT_TRUE(yields(at_scales(operation, scales, mode), num(row.a), num(row.b),
                               outcome(row.status, in_mode(row.expected, mode))))
                << row.a << " and " << row.b << " at " << scales << ", " << mode_name(mode);
        }
    }
}

}  // namespace qv8numeric_tests
