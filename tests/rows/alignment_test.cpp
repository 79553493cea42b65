// SPDX-License-Identifier: MIT
// A coefficient needs the alignment of its 64-bit halves and no more: every operation at addresses that are a multiple
// of 8 and not of 16. Printing a coefficient from such an address is among the tests of the debug printers.
#include <gtest/gtest.h>

#include "calls.h"
#include "modes.h"

namespace qv8numeric_tests {
namespace {

// Large enough to fill the low half and reach into the high one, so that both are read and written.
constexpr const char* kFirst = "2^100+12345";
constexpr const char* kSecond = "-2^70-678";

class Alignment : public testing::Test {
  protected:
    void SetUp() override {
        for (const GuardedNumeric* object : {&a_, &b_, &result_}) {
            ASSERT_EQ(reinterpret_cast<std::uintptr_t>(&object->value) % 16, 8U);
        }
    }

    void TearDown() override { EXPECT_TRUE(a_.guards_intact() && b_.guards_intact() && result_.guards_intact()); }

    void expect_result(NumericStatus status, NumericStatus expected_status, const char* expected) {
        EXPECT_EQ(status_name(status), status_name(expected_status));
        EXPECT_EQ(result_.value, num(expected));
    }

    GuardedNumeric a_{.value = num(kFirst)}, b_{.value = num(kSecond)}, result_;
    const NumericInfo info_{0, kDown}, tenths_{1, kDown};
};

TEST_F(Alignment, Predicates) {
    EXPECT_EQ(QV8NumericIsZero(&a_.value), 0);
    EXPECT_EQ(QV8NumericIsNan(&a_.value), 0);
}

TEST_F(Alignment, Setters) {
    QV8NumericSetNan(&result_.value);
    EXPECT_EQ(result_.value, num("NaN"));
    QV8NumericSetZero(&result_.value);
    EXPECT_EQ(result_.value, num("0"));
}

TEST_F(Alignment, AddAndSubtract) {
    expect_result(QV8NumericAdd(&a_.value, &b_.value, &result_.value), NUMERIC_OK, "2^100-2^70+11667");
    expect_result(QV8NumericSub(&a_.value, &b_.value, &result_.value), NUMERIC_OK, "2^100+2^70+13023");
}

TEST_F(Alignment, Compare) {
    EXPECT_EQ(QV8NumericCmp(&a_.value, &b_.value), -1);
    EXPECT_EQ(QV8NumericRescalingCmp(&info_, &tenths_, &b_.value, &a_.value), +1);
}

TEST_F(Alignment, Rounding) {
    // 2^100 + 12345 = 1267650600228229401496703217721
    result_.value = a_.value;
    expect_result(QV8NumericRound(&tenths_, 0, &result_.value), NUMERIC_INEXACT, "1267650600228229401496703217720");
    result_.value = a_.value;
    expect_result(QV8NumericCeil(&tenths_, 0, &result_.value), NUMERIC_INEXACT, "1267650600228229401496703217730");
    result_.value = a_.value;
    expect_result(QV8NumericFloor(&tenths_, 0, &result_.value), NUMERIC_INEXACT, "1267650600228229401496703217720");
}

TEST_F(Alignment, MachineIntegers) {
    result_.value = a_.value;
    expect_result(QV8NumericMul(&result_.value, 2), NUMERIC_OK, "2^101+24690");
    expect_result(QV8NumericDiv(&result_.value, &info_, 2), NUMERIC_OK, kFirst);
}

TEST_F(Alignment, Rescale) {
    expect_result(QV8NumericRescale(&info_, &tenths_, &a_.value, &result_.value), NUMERIC_OK,
                  "12676506002282294014967032177210");
    expect_result(QV8NumericRescale(&tenths_, &info_, &a_.value, &result_.value), NUMERIC_OK,
                  "126765060022822940149670321772");
}

TEST_F(Alignment, RescalingOperations) {
    // -2^70 - 678 = -1180591620717411304102
    expect_result(QV8NumericRescalingAdd(&info_, &tenths_, &tenths_, &a_.value, &b_.value, &result_.value), NUMERIC_OK,
                  "12676506002282294014967032177210-1180591620717411304102");
    expect_result(QV8NumericRescalingSub(&info_, &tenths_, &tenths_, &a_.value, &b_.value, &result_.value), NUMERIC_OK,
                  "12676506002282294014967032177210+1180591620717411304102");
    const Numeric two = num("2");
    expect_result(QV8NumericRescalingMul(&tenths_, &info_, &tenths_, &a_.value, &two, &result_.value), NUMERIC_OK,
                  "2^101+24690");
    expect_result(QV8NumericRescalingDiv(&info_, &info_, &info_, &a_.value, &b_.value, &result_.value), NUMERIC_INEXACT,
                  "-2^30+1");
}

TEST_F(Alignment, TruncatedPart) {
    std::uint32_t flag = 1;
    EXPECT_EQ(get_truncated_part(b_.value, flag), -1);
}

}  // namespace
}  // namespace qv8numeric_tests
