// SPDX-License-Identifier: MIT
#include "inputs.h"

#include <algorithm>
#include <bit>

#include "binary64.h"
#include "decimal_text.h"
#include "exact.h"

namespace qv8numeric_bench {
namespace {

using qv8numeric_tests::cpp_int;
using qv8numeric_tests::pattern;
using qv8numeric_tests::power_of_ten;

cpp_int two_words(Draw& draw) {
    const cpp_int high = draw.word();
    return (high << 64) + draw.word();
}

ValueDraw with_either_sign(ValueDraw magnitude) {
    return [magnitude = std::move(magnitude)](Draw& draw) {
        const Numeric value = magnitude(draw);
        return draw.coin() ? negated(value) : value;
    };
}

// FNV-1a
std::uint64_t seed_of(const std::string& title) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char c : title) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    return hash;
}

}  // namespace

Inputs inputs_of(const Workload& workload) {
    Draw draw{seed_of(workload.title())};
    Inputs inputs;
    workload.fill(draw, inputs);
    return inputs;
}

std::uint32_t deciding_mode(const Workload& workload) {
    switch (workload.operation) {
        case Operation::kAdd:
        case Operation::kCompare:
        case Operation::kRescalingCompare:
        case Operation::kMultiplyByInteger:
        case Operation::kToInteger: return NUMERIC_ROUND_HALF_EVEN;
        case Operation::kRound:
        case Operation::kDivideByInteger:
        case Operation::kToText:
        case Operation::kToGroupedText:
        case Operation::kToDouble: return workload.a.rounding_mode;
        default: return workload.result.rounding_mode;
    }
}

int widest(const Inputs& inputs) {
    std::size_t digits = 0;
    for (const auto* values : {&inputs.a, &inputs.b}) {
        for (const Numeric& value : *values) {
            digits = std::max(digits, cpp_int(abs(qv8numeric_tests::coefficient(value))).str().size());
        }
    }
    for (const std::string& text : inputs.texts) {
        const auto length = std::count_if(text.begin(), text.end(), [](char c) { return '0' <= c && c <= '9'; });
        digits = std::max(digits, static_cast<std::size_t>(length));
    }
    if (!inputs.integers.empty()) digits = std::max<std::size_t>(digits, 19);
    if (!inputs.doubles.empty()) digits = std::max<std::size_t>(digits, 17);
    return static_cast<int>(digits);
}

std::uint64_t Draw::word() {
    state_ += 0x9e3779b97f4a7c15;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9;
    mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111eb;
    return mixed ^ (mixed >> 31);
}

std::uint64_t Draw::below(std::uint64_t bound) { return word() % bound; }

int Draw::between(int low, int high) {
    return low + static_cast<int>(below(static_cast<std::uint64_t>(high - low + 1)));
}

ValueDraw bits(int low, int high) {
    return [low, high](Draw& draw) {
        const cpp_int lowest = cpp_int{1} << static_cast<unsigned>(draw.between(low, high) - 1);
        return pattern(lowest + two_words(draw) % lowest);
    };
}

ValueDraw digits(int low, int high) {
    return [low, high](Draw& draw) {
        const cpp_int& lowest = power_of_ten(draw.between(low, high) - 1);
        return pattern(lowest + two_words(draw) % (lowest * 9));
    };
}

ValueDraw signed_bits(int low, int high) { return with_either_sign(bits(low, high)); }

ValueDraw signed_digits(int low, int high) { return with_either_sign(digits(low, high)); }

Fill one_value(const ValueDraw& a) {
    return [a](Draw& draw, Inputs& in) { in.a = many<Numeric>(draw, a); };
}

Fill two_values(const ValueDraw& a, const ValueDraw& b) {
    return [a, b](Draw& draw, Inputs& in) {
        in.a = many<Numeric>(draw, a);
        in.b = many<Numeric>(draw, b);
    };
}

Fill value_and_integer(const ValueDraw& a, const IntegerDraw& integer) {
    return [a, integer](Draw& draw, Inputs& in) {
        for (std::size_t i = 0; i < kCalls; ++i) {
            in.a.push_back(a(draw));
            in.integers.push_back(integer(draw, in.a.back()));
        }
    };
}

Fill texts(const ValueDraw& value, int scale, std::string (*spelled)(const Numeric&, int)) {
    return [=](Draw& draw, Inputs& in) {
        for (const Numeric& number : many<Numeric>(draw, value)) in.texts.push_back(spelled(number, scale));
    };
}

Fill doubles(const ValueDraw& value, int scale) {
    return [=](Draw& draw, Inputs& in) {
        for (const Numeric& number : many<Numeric>(draw, value)) in.doubles.push_back(nearest_double(number, scale));
    };
}

std::int64_t integer_bits(Draw& draw, int low, int high) {
    return static_cast<std::int64_t>(bits(low, high)(draw).low);
}

int bit_length(const Numeric& magnitude) {
    const auto high = static_cast<std::uint64_t>(magnitude.high);
    return static_cast<int>(high != 0 ? 64 + std::bit_width(high) : std::bit_width(magnitude.low));
}

Numeric negated(const Numeric& value) { return pattern(-qv8numeric_tests::coefficient(value)); }

std::string plain_text(const Numeric& value, int scale) {
    return qv8numeric_tests::decimal_text({value, {scale, NUMERIC_ROUND_HALF_EVEN}, 0, scale}).text;
}

std::string grouped_text(const Numeric& value, int scale) {
    return qv8numeric_tests::with_groups(plain_text(value, scale));
}

double nearest_double(const Numeric& value, int scale) {
    return qv8numeric_tests::from_bits(
        qv8numeric_tests::nearest_double(value, {scale, NUMERIC_ROUND_HALF_EVEN}).outcome.bits);
}

}  // namespace qv8numeric_bench
