// SPDX-License-Identifier: MIT
// The rows that have a figure to reach.
#include <algorithm>

#include "inputs.h"
#include "workload.h"

namespace qv8numeric_bench {
namespace {

constexpr NumericInfo at(int scale) { return {scale, NUMERIC_ROUND_HALF_EVEN}; }

const ValueDraw kSmall = signed_bits(10, 60);
const ValueDraw kWide = signed_bits(90, 126);

// The figures to reach of one row for small operands and one for wide ones.
struct Reach {
    double small, wide;
};

// Collects rows.
class Table {
  public:
    // Both classes of operands.
    void add(const std::string& name, Reach reach, Workload w, bool two) {
        w.name = name;
        add_class(w, "small", reach.small, two ? two_values(kSmall, kSmall) : one_value(kSmall));
        add_class(w, "wide", reach.wide, two ? two_values(kWide, kWide) : one_value(kWide));
    }

    void add_class(Workload w, const std::string& operands, double reach, const Fill& fill) {
        w.operands = operands;
        w.reach = reach;
        w.fill = fill;
        rows.push_back(std::move(w));
    }

    std::vector<Workload> rows;
};

void add_same_scale(Table& table) {
    table.add("add, same scale", {1.1, 1.1}, {.operation = Operation::kAdd}, true);
    table.add("compare, same scale", {1.1, 1.1}, {.operation = Operation::kCompare}, true);
}

void add_changes_of_scale(Table& table) {
    const Operation op = Operation::kRescale;
    table.add("rescale down 2 digits", {2.0, 1.3}, {.operation = op, .a = at(4), .result = at(2)}, false);
    table.add("rescale down 9 digits", {2.0, 1.3}, {.operation = op, .a = at(11), .result = at(2)}, false);
    table.add("rescale down 18 digits", {1.6, 1.2}, {.operation = op, .a = at(20), .result = at(2)}, false);
    // Wide operands that still fit with four more digits.
    Workload up{.name = "rescale up 4 digits", .operation = op, .a = at(2), .result = at(6)};
    table.add_class(up, "small", 1.2, one_value(kSmall));
    table.add_class(up, "wide", 1.3, one_value(signed_bits(90, 113)));
    table.add("round scale 6 to 2 places", {2.2, 1.3}, {.operation = Operation::kRound, .a = at(6), .places = 2},
              false);
}

void add_rescaling(Table& table) {
    table.add("rescaling add, scales 2, 4 into 2", {2.3, 2.1},
              {.operation = Operation::kRescalingAdd, .a = at(2), .b = at(4), .result = at(2)}, true);
    Workload multiply{.operation = Operation::kRescalingMultiply, .a = at(2), .b = at(4), .result = at(2)};
    multiply.name = "rescaling multiply, scales 2, 4 into 2";
    table.add_class(multiply, "small", 3.4, two_values(kSmall, kSmall));
    multiply.name = "rescaling multiply, scales 18, 18 into 18";
    multiply.a = multiply.b = multiply.result = at(18);
    table.add_class(multiply, "28 x 28 digits", 2.3, two_values(signed_digits(28, 28), signed_digits(28, 28)));
    Workload divide{.operation = Operation::kRescalingDivide, .a = at(2), .b = at(4), .result = at(6)};
    divide.name = "rescaling divide, scales 2, 4 into 6";
    table.add_class(divide, "small", 2.2, two_values(kSmall, kSmall));
    divide.name = "rescaling divide, scales 10, 10 into 10";
    divide.a = divide.b = divide.result = at(10);
    table.add_class(divide, "36 / 18 digits", 2.5, two_values(signed_digits(36, 36), signed_digits(18, 18)));
    table.add("rescaling compare, scales 2, 4", {1.0, 1.2},
              {.operation = Operation::kRescalingCompare, .a = at(2), .b = at(4)}, true);
}

void add_int32(Table& table) {
    const auto divisor = [](Draw& draw, const Numeric&) { return integer_bits(draw, 2, 31); };
    Workload divide{.name = "divide by int32", .operation = Operation::kDivideByInteger, .a = at(0)};
    table.add_class(divide, "small", 2.0, value_and_integer(bits(10, 60), divisor));
    table.add_class(divide, "wide", 1.3, value_and_integer(bits(90, 126), divisor));
    // As long as the product fits: at most 127 bits together.
    const auto factor = [](Draw& draw, const Numeric& a) {
        return integer_bits(draw, 1, std::min(31, 127 - bit_length(a)));
    };
    Workload multiply{.name = "multiply by int32", .operation = Operation::kMultiplyByInteger};
    table.add_class(multiply, "small", 1.0, value_and_integer(bits(10, 60), factor));
    table.add_class(multiply, "wide", 1.4, value_and_integer(bits(90, 126), factor));
}

struct TextRow {
    int digits;
    double to, to_grouped, from;
};

Fill texts(int digits, int scale, std::string (*spelled)(const Numeric&, int)) {
    return [=](Draw& draw, Inputs& in) {
        for (const Numeric& value : many<Numeric>(draw, signed_digits(digits, digits))) {
            in.texts.push_back(spelled(value, scale));
        }
    };
}

void add_text(Table& table) {
    constexpr TextRow rows[] = {{7, 2.4, 1.8, 1.2}, {18, 2.5, 1.9, 1.4}, {38, 2.3, 1.8, 2.5}};
    const auto name = [](int digits) { return std::to_string(digits) + " digits"; };
    for (const TextRow& row : rows) {
        table.add_class({.name = "to text", .operation = Operation::kToText, .a = at(2), .places = 2}, name(row.digits),
                        row.to, one_value(signed_digits(row.digits, row.digits)));
    }
    for (const TextRow& row : rows) {
        table.add_class({.name = "to text grouped", .operation = Operation::kToGroupedText, .a = at(2), .places = 2},
                        name(row.digits), row.to_grouped, one_value(signed_digits(row.digits, row.digits)));
    }
    for (const TextRow& row : rows) {
        table.add_class({.name = "from text", .operation = Operation::kFromText, .result = at(2)}, name(row.digits),
                        row.from, texts(row.digits, 2, plain_text));
    }
    table.add_class({.name = "from text", .operation = Operation::kFromText, .result = at(2)},
                    "18 digits and two rounded away", 1.6, texts(20, 4, plain_text));
    table.add_class({.name = "from text grouped", .operation = Operation::kFromGroupedText, .result = at(2)},
                    "18 digits", 1.1, texts(18, 2, grouped_text));
}

Fill doubles(const ValueDraw& value, int scale) {
    return [=](Draw& draw, Inputs& in) {
        for (const Numeric& number : many<Numeric>(draw, value)) in.doubles.push_back(nearest_double(number, scale));
    };
}

void add_machine_numbers(Table& table) {
    table.add_class({.name = "from double, scale 2", .operation = Operation::kFromDouble, .result = at(2)}, "small",
                    1.5, doubles(kSmall, 2));
    table.add_class({.name = "from double, scale 10", .operation = Operation::kFromDouble, .result = at(10)}, "wide", 4,
                    doubles(kWide, 10));
    table.add_class({.name = "to double, scale 2", .operation = Operation::kToDouble, .a = at(2)}, "small", 1.0,
                    one_value(kSmall));
    table.add_class({.name = "to double, scale 10", .operation = Operation::kToDouble, .a = at(10)}, "wide", 3,
                    one_value(kWide));
    table.add_class({.name = "from int64, scale 2", .operation = Operation::kFromInteger, .result = at(2)}, "small",
                    2.2, [](Draw& draw, Inputs& in) {
                        for (std::size_t i = 0; i < kCalls; ++i) {
                            const std::int64_t magnitude = integer_bits(draw, 10, 60);
                            in.integers.push_back(draw.coin() ? -magnitude : magnitude);
                        }
                    });
    table.add_class({.name = "to int64, scale 2", .operation = Operation::kToInteger, .a = at(2)}, "small", 2.1,
                    [](Draw& draw, Inputs& in) {
                        while (in.a.size() < kCalls) {
                            const Numeric value = bits(1, 32)(draw);
                            if (value.low % 100 < 50) in.a.push_back(value);  // rounded or cut off, it is the same
                        }
                    });
}

}  // namespace

std::vector<Workload> table_workloads() {
    Table table;
    add_same_scale(table);
    add_changes_of_scale(table);
    add_rescaling(table);
    add_int32(table);
    add_text(table);
    add_machine_numbers(table);
    return std::move(table.rows);
}

}  // namespace qv8numeric_bench
