// SPDX-License-Identifier: MIT
// What must hold between operations, whatever the values.
#include <gtest/gtest.h>

#include "exact.h"
#include "modes.h"
#include "rescaling.h"
#include "special_values.h"

namespace qv8numeric_tests {
namespace {

Outcome call(const BinaryOperation& operation, const Numeric& a, const Numeric& b) {
    Outcome result{0, kPoison};
    result.status = operation(&a, &b, &result.value);
    return result;
}

Outcome same_scale_add(const Numeric& a, const Numeric& b) { return call(QV8NumericAdd, a, b); }
Outcome same_scale_subtract(const Numeric& a, const Numeric& b) { return call(QV8NumericSub, a, b); }

Outcome rescaled(RescalingOperation operation, const Scales& scales, std::uint32_t mode, const Numeric& a,
                 const Numeric& b) {
    return call(at_scales(operation, scales, mode), a, b);
}

template <typename Check>
void for_all_pairs(Check check) {
    for (const Numeric& a : special_values()) {
        for (const Numeric& b : special_values()) check(a, b);
    }
}

TEST(Identities, AddingAndTakingAwayBringsTheValueBack) {
    int checked = 0;
    for_all_pairs([&](const Numeric& a, const Numeric& b) {
        const Outcome sum = same_scale_add(a, b);
        if (sum.status != NUMERIC_OK) return;
        EXPECT_EQ(same_scale_subtract(sum.value, b), (Outcome{NUMERIC_OK, a})) << a << " + " << b;
        ++checked;
    });
    EXPECT_GT(checked, 1000);
}

TEST(Identities, AddingAndTakingAwayAtOtherScalesBringsTheValueBack) {
    int checked = 0;
    for_all_pairs([&](const Numeric& a, const Numeric& b) {
        // At the finer scale the sum is exact; taking b away again leaves zeros where a had no places.
        const Outcome sum = rescaled(QV8NumericRescalingAdd, {0, 5, 5}, kUp, a, b);
        if (sum.status != NUMERIC_OK) return;
        EXPECT_EQ(rescaled(QV8NumericRescalingSub, {5, 5, 0}, kUp, sum.value, b), (Outcome{NUMERIC_OK, a}))
            << a << " + " << b;
        ++checked;
    });
    EXPECT_GT(checked, 1000);
}

TEST(Identities, NegatingTwiceBringsTheValueBack) {
    const Numeric zero = num("0");
    for (const Numeric& a : special_values()) {
        const Outcome negated = same_scale_subtract(zero, a);
        EXPECT_EQ(status_name(negated.status), "NUMERIC_OK") << a;
        EXPECT_EQ(same_scale_subtract(zero, negated.value), (Outcome{NUMERIC_OK, a}));
        EXPECT_EQ(rescaled(QV8NumericRescalingMul, {0, 0, 0}, kUp, a, num("-1")), (Outcome{NUMERIC_OK, negated.value}));
        EXPECT_EQ(rescaled(QV8NumericRescalingDiv, {0, 0, 0}, kUp, a, num("-1")), (Outcome{NUMERIC_OK, negated.value}));
    }
}

TEST(Identities, AddingIsSubtractingTheNegative) {
    for_all_pairs([](const Numeric& a, const Numeric& b) {
        const Numeric minus_b = same_scale_subtract(num("0"), b).value;
        EXPECT_EQ(same_scale_add(a, b), same_scale_subtract(a, minus_b)) << a << " + " << b;
        for (const Scales& scales : {Scales{0, 2, 1}, Scales{0, 44, 3}, Scales{70, 0, 2}}) {
            EXPECT_EQ(rescaled(QV8NumericRescalingAdd, scales, kHalfEven, a, b),
                      rescaled(QV8NumericRescalingSub, scales, kHalfEven, a, minus_b))
                << a << " + " << b << " at " << scales;
        }
    });
}

TEST(Identities, OrderOfSummandsHasNoEffect) {
    for_all_pairs([](const Numeric& a, const Numeric& b) {
        EXPECT_EQ(same_scale_add(a, b), same_scale_add(b, a)) << a << " + " << b;
        for (const std::int32_t distance : {2, 38, 39, 44, 70}) {
            EXPECT_EQ(rescaled(QV8NumericRescalingAdd, {0, distance, 1}, kHalfUp, a, b),
                      rescaled(QV8NumericRescalingAdd, {distance, 0, 1}, kHalfUp, b, a))
                << a << " + " << b << ", " << distance << " places apart";
        }
    });
}

TEST(Identities, CompareIsTheSignOfTheDifference) {
    for_all_pairs([](const Numeric& a, const Numeric& b) {
        const std::int32_t order = QV8NumericCmp(&a, &b);
        EXPECT_EQ(QV8NumericCmp(&b, &a), -order) << a << " and " << b;
        const Outcome difference = same_scale_subtract(b, a);
        if (difference.status != NUMERIC_OK) {
            EXPECT_EQ(order, difference.status == NUMERIC_OVERFLOW ? +1 : -1) << a << " and " << b;
        } else {
            const Numeric zero = num("0");
            EXPECT_EQ(order, QV8NumericCmp(&zero, &difference.value)) << a << " and " << b;
        }
    });
}

TEST(Identities, RescalingCompareIsTheSignOfTheDifference) {
    for (const std::int32_t distance : {0, 3, 38, 39, 48, 70, 1000}) {
        const NumericInfo a_info{0, kUp}, b_info{distance, kUp};
        for_all_pairs([&](const Numeric& a, const Numeric& b) {
            const std::int32_t order = QV8NumericRescalingCmp(&a_info, &b_info, &a, &b);
            EXPECT_EQ(QV8NumericRescalingCmp(&b_info, &a_info, &b, &a), -order) << a << " and " << b;
            // Rounded away from zero, a difference keeps its sign however small it is.
            const Outcome difference = rescaled(QV8NumericRescalingSub, {distance, 0, 0}, kUp, b, a);
            const std::int32_t sign = difference.status == NUMERIC_OVERFLOW    ? +1
                                      : difference.status == NUMERIC_UNDERFLOW ? -1
                                                                               : coefficient(difference.value).sign();
            EXPECT_EQ(order, sign) << a << " and " << b << ", " << distance << " places apart";
        });
    }
}

TEST(Identities, DividingAProductByAFactorBringsTheOtherBack) {
    int checked = 0;
    for_all_pairs([&](const Numeric& a, const Numeric& b) {
        const Outcome product = rescaled(QV8NumericRescalingMul, {3, 5, 8}, kUp, a, b);
        if (product.status != NUMERIC_OK || b == num("0")) return;
        EXPECT_EQ(rescaled(QV8NumericRescalingDiv, {8, 5, 3}, kUp, product.value, b), (Outcome{NUMERIC_OK, a}))
            << a << " * " << b;
        ++checked;
    });
    EXPECT_GT(checked, 500);
}

TEST(Identities, MoreAndFewerPlacesBringTheValueBack) {
    for (const Numeric& value : special_values()) {
        for (std::int32_t places = 0; places <= 38; ++places) {
            const cpp_int widened = coefficient(value) * power_of_ten(places);
            if (in_range(widened, NUMERIC_OK).status != NUMERIC_OK) break;
            const NumericInfo narrow{-7, kUp}, wide{places - 7, kUp};
            Numeric result = value;
            EXPECT_EQ(status_name(QV8NumericRescale(&narrow, &wide, &result, &result)), "NUMERIC_OK");
            EXPECT_EQ(result, pattern(widened)) << value << ", " << places << " places";
            EXPECT_EQ(status_name(QV8NumericRescale(&wide, &narrow, &result, &result)), "NUMERIC_OK");
            EXPECT_EQ(result, value) << places << " places";
        }
    }
}

// Six roads lead from a value to the same value with fewer places, and all must round alike.
TEST(Identities, EveryOperationRoundsAlike) {
    const Numeric zero = num("0"), one = num("1");
    int checked = 0;
    for (const Numeric& value : special_values()) {
        for (std::int32_t places = 1; places <= 40; ++places) {
            for (const std::uint32_t mode : kModes) {
                const NumericInfo from{places, mode}, to{0, mode};
                Numeric at_source = value;
                const NumericStatus status = QV8NumericRound(&from, 0, &at_source);
                if (status > NUMERIC_INEXACT) continue;  // no room for the zeros at the source's scale
                const Outcome expected{status, pattern(coefficient(at_source) / power_of_ten(places))};
                EXPECT_EQ(rescaled(QV8NumericRescalingAdd, {places, 0, 0}, mode, value, zero), expected);
                EXPECT_EQ(rescaled(QV8NumericRescalingSub, {places, 0, 0}, mode, value, zero), expected);
                EXPECT_EQ(rescaled(QV8NumericRescalingMul, {places, 0, 0}, mode, value, one), expected);
                EXPECT_EQ(rescaled(QV8NumericRescalingDiv, {places, 0, 0}, mode, value, one), expected);
                Numeric explicitly = kPoison;
                QV8NumericRescale(&from, &to, &value, &explicitly);
                const bool lost_its_sign = value.high < 0 && expected.value == zero;
                EXPECT_EQ(explicitly, lost_its_sign ? num("NaN") : expected.value);
                ++checked;
                if (HasFailure()) FAIL() << value << ", " << places << " places, " << mode_name(mode);
            }
        }
    }
    EXPECT_GT(checked, 5000);
}

}  // namespace
}  // namespace qv8numeric_tests
