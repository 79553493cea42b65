// SPDX-License-Identifier: MIT
// The printers of the types that the public header names but does not use.
#include <gtest/gtest.h>

#include <string>

#include "wide/extended_numeric.h"

namespace qv8numeric_tests {
namespace {

template <typename Value>
std::string dumped(const Value& value) {
    testing::internal::CaptureStdout();
    const int printed = dump(&value);
    const std::string line = testing::internal::GetCapturedStdout();
    EXPECT_EQ(printed, static_cast<int>(line.size()));
    return line;
}

struct WideRow {
    const char* name;
    ExtendedNumeric value;
    const char* line;
};

constexpr WideRow kWideRows[] = {
    {"zero", {{0, 0, 0, 0}}, "(00000000,00000000,00000000,00000000,00000000,00000000,00000000,00000000))\n"},
    {"one", {{1, 0, 0, 0}}, "(00000000,00000000,00000000,00000000,00000000,00000000,00000000,00000001))\n"},
    {"minus one",
     {{UINT64_MAX, UINT64_MAX, UINT64_MAX, UINT64_MAX}},
     "(ffffffff,ffffffff,ffffffff,ffffffff,ffffffff,ffffffff,ffffffff,ffffffff))\n"},
    {"each limb in its place",
     {{0x1111111100000000, 0x3333333322222222, 0x5555555544444444, 0xfedcba9866666666}},
     "(fedcba98,66666666,55555555,44444444,33333333,22222222,11111111,00000000))\n"},
};

TEST(Dump, IntermediatePrintsEightLimbsAndTwoParentheses) {
    for (const WideRow& row : kWideRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(dumped(row.value), row.line);
    }
}

TEST(Dump, LimbsPrintLikeTheValueTheyAre) {
    const Numeric32 limbs{{0x76543210, 0xfedcba98, 0x89abcdef, 0x01234567}};
    EXPECT_EQ(dumped(limbs), "(01234567,89abcdef,fedcba98,76543210)\n");
    const Numeric value{0xfedcba9876543210, 0x0123456789abcdef};
    EXPECT_EQ(dumped(value), dumped(limbs));
}

}  // namespace
}  // namespace qv8numeric_tests
