// SPDX-License-Identifier: MIT
// The rows that have a figure to reach.
#include <algorithm>
#include <array>

#include "rows.h"

namespace qv8numeric_bench {
namespace {

// The figures to reach, for small operands and for wide ones.
struct Reach {
    double small, wide;
};

void add_both(Rows& rows, const Workload& workload, Reach reach, const std::function<Fill(const ValueDraw&)>& fill) {
    rows.add(workload, "small", fill(small()), reach.small);
    rows.add(workload, "wide", fill(wide()), reach.wide);
}

Fill pairs(const ValueDraw& value) { return two_values(value, value); }

void add_same_scale(Rows& rows) {
    add_both(rows, {.name = "add, same scale", .operation = Operation::kAdd}, {1.1, 1.1}, pairs);
    add_both(rows, {.name = "compare, same scale", .operation = Operation::kCompare}, {1.1, 1.1}, pairs);
}

void add_changes_of_scale(Rows& rows) {
    const auto down = [](int digits) {
        const std::string name = "rescale down " + std::to_string(digits) + " digits";
        return Workload{.name = name, .operation = Operation::kRescale, .a = at(2 + digits), .result = at(2)};
    };
    add_both(rows, down(2), {2.0, 1.3}, one_value);
    add_both(rows, down(9), {2.0, 1.3}, one_value);
    add_both(rows, down(18), {1.6, 1.2}, one_value);
    const Workload up{.name = "rescale up 4 digits", .operation = Operation::kRescale, .a = at(2), .result = at(6)};
    rows.add(up, "small", one_value(small()), 1.2);
    rows.add(up, "wide", one_value(signed_bits(90, 113)), 1.3);  // as long as four more digits fit
    add_both(rows, {.name = "round scale 6 to 2 places", .operation = Operation::kRound, .a = at(6), .places = 2},
             {2.2, 1.3}, one_value);
}

void add_rescaling(Rows& rows) {
    const auto workload = [](const char* name, Operation operation, int a, int b, int result) {
        return Workload{.name = name, .operation = operation, .a = at(a), .b = at(b), .result = at(result)};
    };
    add_both(rows, workload("rescaling add, scales 2, 4 into 2", Operation::kRescalingAdd, 2, 4, 2), {2.3, 2.1}, pairs);
    rows.add(workload("rescaling multiply, scales 2, 4 into 2", Operation::kRescalingMultiply, 2, 4, 2), "small",
             pairs(small()), 3.4);
    rows.add(workload("rescaling multiply, scales 18, 18 into 18", Operation::kRescalingMultiply, 18, 18, 18),
             "28 x 28 digits", pairs(signed_digits(28, 28)), 2.3);
    rows.add(workload("rescaling divide, scales 2, 4 into 6", Operation::kRescalingDivide, 2, 4, 6), "small",
             pairs(small()), 2.2);
    rows.add(workload("rescaling divide, scales 10, 10 into 10", Operation::kRescalingDivide, 10, 10, 10),
             "36 / 18 digits", two_values(signed_digits(36, 36), signed_digits(18, 18)), 2.5);
    add_both(rows, workload("rescaling compare, scales 2, 4", Operation::kRescalingCompare, 2, 4, 0), {1.0, 1.2},
             pairs);
}

void add_int32(Rows& rows) {
    const auto divisor = [](Draw& draw, const Numeric&) { return integer_bits(draw, 2, 31); };
    const Workload divide{.name = "divide by int32", .operation = Operation::kDivideByInteger, .a = at(0)};
    rows.add(divide, "small", value_and_integer(bits(10, 60), divisor), 2.0);
    rows.add(divide, "wide", value_and_integer(bits(90, 126), divisor), 1.3);
    // As long as the product fits: at most 127 bits together.
    const auto factor = [](Draw& draw, const Numeric& a) {
        return integer_bits(draw, 1, std::min(31, 127 - bit_length(a)));
    };
    const Workload multiply{.name = "multiply by int32", .operation = Operation::kMultiplyByInteger};
    rows.add(multiply, "small", value_and_integer(bits(10, 60), factor), 1.0);
    rows.add(multiply, "wide", value_and_integer(bits(90, 126), factor), 1.4);
}

void add_text(Rows& rows) {
    const auto add_lengths = [&](const Workload& workload, std::array<double, 3> reach, const auto& fill) {
        constexpr std::array lengths{7, 18, 38};
        for (std::size_t i = 0; i < lengths.size(); ++i) {
            rows.add(workload, std::to_string(lengths[i]) + " digits", fill(signed_digits(lengths[i], lengths[i])),
                     reach[i]);
        }
    };
    const auto plain = [](const ValueDraw& value) { return texts(value, 2, plain_text); };
    const Workload to{.name = "to text", .operation = Operation::kToText, .a = at(2), .places = 2};
    const Workload grouped{.name = "to text grouped", .operation = Operation::kToGroupedText, .a = at(2), .places = 2};
    const Workload from{.name = "from text", .operation = Operation::kFromText, .result = at(2)};
    add_lengths(to, {2.4, 2.5, 2.3}, one_value);
    add_lengths(grouped, {1.8, 1.9, 1.8}, one_value);
    add_lengths(from, {1.2, 1.4, 2.5}, plain);
    rows.add(from, "18 digits and two rounded away", texts(signed_digits(20, 20), 4, plain_text), 1.6);
    rows.add({.name = "from text grouped", .operation = Operation::kFromGroupedText, .result = at(2)}, "18 digits",
             texts(signed_digits(18, 18), 2, grouped_text), 1.1);
}

Fill signed_integers() {
    return [](Draw& draw, Inputs& in) {
        while (in.integers.size() < kCalls) {
            const std::int64_t magnitude = integer_bits(draw, 10, 60);
            in.integers.push_back(draw.coin() ? -magnitude : magnitude);
        }
    };
}

// Values whose dropped digits are below one half: rounded or cut off, they are the same.
Fill values_of_32_bits(unsigned unit) {
    return [unit](Draw& draw, Inputs& in) {
        while (in.a.size() < kCalls) {
            const Numeric value = bits(1, 32)(draw);
            if (value.low % unit < unit / 2) in.a.push_back(value);
        }
    };
}

void add_machine_numbers(Rows& rows) {
    rows.add({.name = "from double, scale 2", .operation = Operation::kFromDouble, .result = at(2)}, "small",
             doubles(small(), 2), 1.5);
    rows.add({.name = "from double, scale 10", .operation = Operation::kFromDouble, .result = at(10)}, "wide",
             doubles(wide(), 10), 4);
    rows.add({.name = "to double, scale 2", .operation = Operation::kToDouble, .a = at(2)}, "small", one_value(small()),
             1.0);
    rows.add({.name = "to double, scale 10", .operation = Operation::kToDouble, .a = at(10)}, "wide", one_value(wide()),
             3);
    rows.add({.name = "from int64, scale 2", .operation = Operation::kFromInteger, .result = at(2)}, "small",
             signed_integers(), 2.2);
    rows.add({.name = "to int64, scale 2", .operation = Operation::kToInteger, .a = at(2)}, "32 bits",
             values_of_32_bits(100), 2.1);
}

}  // namespace

std::vector<Workload> table_workloads() {
    Rows rows;
    add_same_scale(rows);
    add_changes_of_scale(rows);
    add_rescaling(rows);
    add_int32(rows);
    add_text(rows);
    add_machine_numbers(rows);
    return rows.take();
}

}  // namespace qv8numeric_bench
