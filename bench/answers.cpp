// SPDX-License-Identifier: MIT
#include "answers.h"

#include <stdexcept>

#include "binary64.h"
#include "decimal_text.h"
#include "exact.h"

namespace qv8numeric_bench {
namespace {

using namespace qv8numeric_tests;

Answer of(const Outcome& outcome) { return {outcome.status, text_of(outcome.value)}; }

Answer rounded_to(const Fraction& exact, const NumericInfo& info) {
    return of(narrowed(cut(exact, info.scale), info.rounding_mode));
}

Answer order(const Fraction& a, const Fraction& b, Manners manners) {
    const int sign = (b < a) - (a < b);
    return {NUMERIC_OK, std::to_string(manners == Manners::kCommon ? sign : -sign)};
}

// The library reports no loss here, nor which side was left, and refuses a negative value that rounds to zero.
Answer rescaled(const Numeric& a, const Workload& w, Manners manners) {
    const Outcome natural = narrowed(cut(decimal(a, w.a.scale), w.result.scale), w.result.rounding_mode);
    if (manners == Manners::kCommon) return of(natural);
    const bool negative_to_zero = a.high < 0 && natural.value == Numeric{};
    if (negative_to_zero || natural.status > NUMERIC_INEXACT) return {NUMERIC_OVERFLOW, "NaN"};
    return {NUMERIC_OK, text_of(natural.value)};
}

// Rounded to fewer places, and back at the scale it had.
Answer rounded_in_place(const Numeric& a, const Workload& w) {
    const Cut at_places = cut(decimal(a, w.a.scale), w.places);
    const cpp_int value = rounded(at_places, w.a.rounding_mode) * power_of_ten(w.a.scale - w.places);
    return of(in_range(value, success(at_places)));
}

// A negative dividend is the number made of its top 32 bits as they stand and the lower 96 bits of its magnitude.
Answer divided(const Numeric& a, std::int64_t divisor, std::uint32_t mode) {
    cpp_int dividend = coefficient(a);
    if (dividend < 0) {
        const cpp_int below_the_top = (cpp_int{1} << 96) - 1;
        const cpp_int top = static_cast<std::uint64_t>(a.high) >> 32;
        dividend = -((top << 96) + (abs(dividend) & below_the_top));
    }
    return rounded_to(Fraction{dividend, 1} / Fraction{divisor, 1}, {0, mode});
}

// The library calls it an underflow on either side, and refuses a negative factor.
Answer multiplied(const Numeric& a, std::int64_t factor, Manners manners) {
    const Outcome product = in_range(coefficient(a) * factor, NUMERIC_OK);
    if (manners == Manners::kCommon) return of(product);
    return factor < 0 || product.status != NUMERIC_OK ? Answer{NUMERIC_UNDERFLOW, "NaN"} : of(product);
}

Answer integer_part(const Numeric& a, const NumericInfo& info) {
    if (a.high < 0) return {NUMERIC_UNDERFLOW, "0"};
    const Cut whole = cut(decimal(a, info.scale), 0);
    return {success(whole), rounded(whole, NUMERIC_ROUND_DOWN).str()};
}

Answer double_of(const Numeric& a, const NumericInfo& info) {
    const DoubleOutcome outcome = qv8numeric_tests::nearest_double(a, info).outcome;
    return {outcome.status, text_of(from_bits(outcome.bits))};
}

Answer formatted(const Numeric& a, const Workload& w) {
    DecimalText text = decimal_text({a, w.a, 0, w.places});
    if (w.operation == Operation::kToGroupedText) text.text = with_groups(text.text);
    return {text.status, text.text};
}

// A literal of digits, commas and a point, and perhaps an exponent.
Fraction literal(const std::string& text) {
    std::string digits;
    int places = 0;
    bool behind_point = false;
    std::size_t at = 0;
    for (; at < text.size() && text[at] != 'E'; ++at) {
        if (text[at] == '.') behind_point = true;
        if (text[at] < '0' || text[at] > '9') continue;
        digits += text[at];
        places += behind_point ? 1 : 0;
    }
    if (at < text.size()) places -= std::stoi(text.substr(at + 1));
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 1));
    cpp_int magnitude{digits};
    if (text.starts_with('-')) magnitude = -magnitude;
    return places < 0 ? Fraction{magnitude * power_of_ten(-places), 1} : Fraction{magnitude, power_of_ten(places)};
}

Answer exact_answer(const Workload& w, const Inputs& in, std::size_t i, Manners manners) {
    switch (w.operation) {
        case Operation::kAdd: return of(in_range(coefficient(in.a[i]) + coefficient(in.b[i]), NUMERIC_OK));
        case Operation::kCompare: return order(decimal(in.a[i], 0), decimal(in.b[i], 0), manners);
        case Operation::kRescale: return rescaled(in.a[i], w, manners);
        case Operation::kRound: return rounded_in_place(in.a[i], w);
        case Operation::kRescalingAdd:
            return rounded_to(decimal(in.a[i], w.a.scale) + decimal(in.b[i], w.b.scale), w.result);
        case Operation::kRescalingMultiply:
            return rounded_to(decimal(in.a[i], w.a.scale) * decimal(in.b[i], w.b.scale), w.result);
        case Operation::kRescalingDivide:
            return rounded_to(decimal(in.a[i], w.a.scale) / decimal(in.b[i], w.b.scale), w.result);
        case Operation::kRescalingCompare:
            return order(decimal(in.a[i], w.a.scale), decimal(in.b[i], w.b.scale), manners);
        case Operation::kDivideByInteger: return divided(in.a[i], in.integers[i], w.a.rounding_mode);
        case Operation::kMultiplyByInteger: return multiplied(in.a[i], in.integers[i], manners);
        case Operation::kToText:
        case Operation::kToGroupedText: return formatted(in.a[i], w);
        case Operation::kFromText:
        case Operation::kFromGroupedText: return rounded_to(literal(in.texts[i]), w.result);
        case Operation::kFromDouble: return rounded_to(exact_value(in.doubles[i]), w.result);
        case Operation::kToDouble: return double_of(in.a[i], w.a);
        case Operation::kFromInteger: return rounded_to({in.integers[i], 1}, w.result);
        case Operation::kToInteger: return integer_part(in.a[i], w.a);
    }
    throw std::logic_error("no such operation");
}

}  // namespace

std::string text_of(const Numeric& value) { return qv8numeric_tests::text(value); }

std::string text_of(double value) { return bits_text(qv8numeric_tests::bits(value)); }

std::vector<Answer> exact_answers(const Workload& workload, const Inputs& inputs, Manners manners) {
    std::vector<Answer> answers;
    answers.reserve(kCalls);
    for (std::size_t i = 0; i < kCalls; ++i) answers.push_back(exact_answer(workload, inputs, i, manners));
    return answers;
}

}  // namespace qv8numeric_bench
