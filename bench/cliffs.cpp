// SPDX-License-Identifier: MIT
// Rows without a figure, beside the table's: each mode, operands of every width, long drops, what is rarely met, and
// the dearest input of every function. None of them should stand out.
#include "inputs.h"
#include "rows.h"

namespace qv8numeric_bench {
namespace {

const char* const kModeNames[] = {"up", "down", "ceiling", "floor", "half up", "half down", "half even"};

void add_modes(Rows& rows) {
    for (std::uint32_t mode = 0; mode < 7; ++mode) {
        const NumericInfo from{4, mode}, to{2, mode};
        const std::string name = std::string("rescale down 2 digits, mode ") + kModeNames[mode];
        rows.add({.name = name, .operation = Operation::kRescale, .a = from, .result = to}, "small",
                 one_value(small()));
        rows.add({.name = name, .operation = Operation::kRescale, .a = from, .result = to}, "wide", one_value(wide()));
    }
}

void add_drops(Rows& rows) {
    for (const int drop : {20, 28, 37}) {
        rows.add({.name = "rescale down " + std::to_string(drop) + " digits",
                  .operation = Operation::kRescale,
                  .a = at(drop),
                  .result = at(0)},
                 "38 digits", one_value(signed_digits(38, 38)));
    }
    for (const int drop : {20, 28, 38}) {
        rows.add({.name = "rescaling multiply, " + std::to_string(drop) + " digits dropped",
                  .operation = Operation::kRescalingMultiply,
                  .a = at(drop / 2),
                  .b = at(drop / 2),
                  .result = at(0)},
                 "29 x 28 digits", two_values(signed_digits(29, 29), signed_digits(drop - 19, drop - 19)));
    }
    rows.add({.name = "rescale up 30 digits", .operation = Operation::kRescale, .a = at(0), .result = at(30)},
             "7 digits", one_value(signed_digits(7, 7)));
    rows.add(
        {.name = "rescale up 30 digits, out of range", .operation = Operation::kRescale, .a = at(0), .result = at(30)},
        "20 digits", one_value(signed_digits(20, 20)));
}

void add_sums(Rows& rows) {
    const ValueDraw any = signed_bits(1, 126);
    rows.add({.name = "add, same scale", .operation = Operation::kAdd}, "any width", two_values(any, any));
    rows.add({.name = "add, same scale, half out of range", .operation = Operation::kAdd}, "127 bits",
             two_values(signed_bits(127, 127), signed_bits(127, 127)));
    rows.add({.name = "compare, same scale", .operation = Operation::kCompare}, "any width", two_values(any, any));
    const Workload above{.name = "rescaling add, scales 8, 6 into 2",
                         .operation = Operation::kRescalingAdd,
                         .a = at(8),
                         .b = at(6),
                         .result = at(2)};
    rows.add(above, "small", two_values(small(), small()));
    rows.add(above, "wide", two_values(wide(), wide()));
    rows.add(above, "any width", two_values(any, any));
    rows.add({.name = "rescaling add, scales 2, 4 into 6",
              .operation = Operation::kRescalingAdd,
              .a = at(2),
              .b = at(4),
              .result = at(6)},
             "small", two_values(small(), small()));
    rows.add({.name = "rescaling add, one scale",
              .operation = Operation::kRescalingAdd,
              .a = at(2),
              .b = at(2),
              .result = at(2)},
             "wide", two_values(wide(), wide()));
    rows.add({.name = "rescaling add, scales 0, 38 into 0",
              .operation = Operation::kRescalingAdd,
              .a = at(0),
              .b = at(38),
              .result = at(0)},
             "wide", two_values(wide(), wide()));
    rows.add({.name = "rescaling add, scales 0, 60 into 0",
              .operation = Operation::kRescalingAdd,
              .a = at(0),
              .b = at(60),
              .result = at(0)},
             "wide", two_values(wide(), wide()));
    for (const int distance : {38, 60}) {
        rows.add({.name = "rescaling compare, scales 0, " + std::to_string(distance),
                  .operation = Operation::kRescalingCompare,
                  .a = at(0),
                  .b = at(distance)},
                 "any width", two_values(any, any));
    }
}

void add_products(Rows& rows) {
    rows.add({.name = "rescaling multiply, scales 2, 4 into 2",
              .operation = Operation::kRescalingMultiply,
              .a = at(2),
              .b = at(4),
              .result = at(2)},
             "any width, mostly out of range", two_values(signed_bits(1, 126), signed_bits(1, 126)));
    rows.add({.name = "rescaling multiply, scales 1, 1 into 2",
              .operation = Operation::kRescalingMultiply,
              .a = at(1),
              .b = at(1),
              .result = at(2)},
             "nothing dropped, 19 x 19 digits", two_values(signed_digits(19, 19), signed_digits(19, 19)));
    rows.add({.name = "multiply by int32, out of range", .operation = Operation::kMultiplyByInteger}, "126 bits",
             value_and_integer(bits(126, 126), [](Draw& draw, const Numeric&) { return integer_bits(draw, 31, 31); }));
}

void add_quotients(Rows& rows) {
    const Workload divide{.name = "rescaling divide, scales 10, 10 into 10",
                          .operation = Operation::kRescalingDivide,
                          .a = at(10),
                          .b = at(10),
                          .result = at(10)};
    rows.add(divide, "38 / 20 digits", two_values(signed_digits(37, 37), signed_digits(20, 20)));
    rows.add(divide, "38 / 28 digits", two_values(signed_digits(38, 38), signed_digits(28, 28)));
    rows.add(divide, "38 / 38 digits", two_values(signed_digits(38, 38), signed_digits(38, 38)));
    rows.add(divide, "7 / 28 digits", two_values(signed_digits(7, 7), signed_digits(28, 28)));
    rows.add(divide, "any width over small", two_values(signed_bits(1, 80), small()));
    Workload far = divide;
    far.name = "rescaling divide, scales 0, 0 into 38";
    far.a = far.b = at(0);
    far.result = at(38);
    rows.add(far, "38 / 38 digits", two_values(signed_digits(37, 37), signed_digits(38, 38)));
    rows.add(far, "7 / 8 digits", two_values(signed_digits(7, 7), signed_digits(8, 8)));
    far.name = "rescaling divide, scales 0, 38 into 38";
    far.b = at(38);
    rows.add(far, "1 / 38 digits, 76 digits up", two_values(signed_digits(1, 1), signed_digits(38, 38)));
    far.name = "rescaling divide, scales 30, 0 into 0";
    far.a = at(30);
    far.b = far.result = at(0);
    rows.add(far, "38 / 7 digits, 30 digits down", two_values(signed_digits(38, 38), signed_digits(7, 7)));
}

void add_negative(Rows& rows) {
    const ValueDraw negative_small = [](Draw& draw) { return negated(bits(10, 60)(draw)); };
    const ValueDraw negative_wide = [](Draw& draw) { return negated(bits(90, 120)(draw)); };
    const auto integer = [](Draw& draw, const Numeric&) { return integer_bits(draw, 2, 6); };
    for (const auto& [operands, value] : {std::pair{"small", negative_small}, std::pair{"wide", negative_wide}}) {
        rows.add({.name = "divide by int32, negative values",
                  .operation = Operation::kDivideByInteger,
                  .a = at(0),
                  .departure = true},
                 operands, value_and_integer(value, integer));
        rows.add({.name = "multiply by int32, negative values", .operation = Operation::kMultiplyByInteger}, operands,
                 value_and_integer(value, integer));
    }
    rows.add({.name = "to int64, scale 2, negative values",
              .operation = Operation::kToInteger,
              .a = at(2),
              .departure = true},
             "small", one_value(negative_small));
}

void add_texts(Rows& rows) {
    for (const int places : {2, 0}) {
        const std::string name = "to text, scale 20 to " + std::to_string(places);
        rows.add({.name = name, .operation = Operation::kToText, .a = at(20), .places = places}, "38 digits",
                 one_value(signed_digits(38, 38)));
    }
    rows.add({.name = "to text, scale 2 to 20", .operation = Operation::kToText, .a = at(2), .places = 20}, "7 digits",
             one_value(signed_digits(7, 7)));
    rows.add({.name = "to text, scale 38", .operation = Operation::kToText, .a = at(38), .places = 38}, "any width",
             one_value(signed_bits(1, 126)));
    rows.add({.name = "to text grouped, scale 0", .operation = Operation::kToGroupedText, .a = at(0)}, "any width",
             one_value(signed_bits(1, 126)));
    const Workload from{.name = "from text", .operation = Operation::kFromText, .result = at(2)};
    rows.add(from, "any length", texts(signed_bits(1, 126), 2, plain_text));
    rows.add(from, "38 digits, 20 rounded away", texts(signed_digits(38, 38), 22, plain_text));
    rows.add(from, "18 digits and an exponent", [](Draw& draw, Inputs& in) {
        texts(signed_digits(18, 18), 12, plain_text)(draw, in);
        for (std::string& text : in.texts) text += "E" + std::to_string(draw.between(-6, 6));
    });
    rows.add({.name = "from text grouped", .operation = Operation::kFromGroupedText, .result = at(2)}, "38 digits",
             texts(signed_digits(38, 38), 2, grouped_text));
}

void add_doubles(Rows& rows) {
    const ValueDraw any = signed_bits(1, 126);
    for (const int scale : {0, 20, 38}) {
        rows.add({.name = "from double, scale " + std::to_string(scale),
                  .operation = Operation::kFromDouble,
                  .result = at(scale)},
                 "any width", doubles(any, scale));
        rows.add(
            {.name = "to double, scale " + std::to_string(scale), .operation = Operation::kToDouble, .a = at(scale)},
            "any width", one_value(any));
    }
    rows.add({.name = "from double, scale 2", .operation = Operation::kFromDouble, .result = at(2)},
             "almost nothing, 1e-60 to 1e-40", doubles(any, 80));
    rows.add({.name = "to double, scale -6", .operation = Operation::kToDouble, .a = at(-6)}, "small",
             one_value(small()));
    rows.add({.name = "to double, scale 76", .operation = Operation::kToDouble, .a = at(76)}, "any width",
             one_value(any));
}

}  // namespace

std::vector<Workload> cliff_workloads() {
    Rows rows;
    add_modes(rows);
    add_drops(rows);
    add_sums(rows);
    add_products(rows);
    add_quotients(rows);
    add_negative(rows);
    add_texts(rows);
    add_doubles(rows);
    return rows.take();
}

// The operands grow with the distance as far as they have to, so that the results stay alike.
std::vector<Workload> distance_workloads() {
    constexpr int longest = 76, kept = 18, most_digits = 38;
    Rows rows;
    for (int distance = 1; distance <= longest; ++distance) {
        const int digits = std::min((distance + kept) / 2, most_digits);
        const int scale = distance / 2;
        rows.add({.name = "rescaling multiply, distance " + std::to_string(distance),
                  .operation = Operation::kRescalingMultiply,
                  .a = at(scale),
                  .b = at(distance - scale),
                  .result = at(0)},
                 "", two_values(signed_digits(digits, digits), signed_digits(digits, digits)));
        rows.add({.name = "rescaling add, distance " + std::to_string(distance),
                  .operation = Operation::kRescalingAdd,
                  .a = at(0),
                  .b = at(distance),
                  .result = at(0)},
                 "", two_values(signed_digits(kept, kept), signed_digits(most_digits, most_digits)));
        const int divisor = std::max(6, distance - 26);
        if (divisor > most_digits) continue;
        rows.add({.name = "rescaling divide, distance " + std::to_string(distance),
                  .operation = Operation::kRescalingDivide,
                  .a = at(0),
                  .b = at(0),
                  .result = at(distance)},
                 "", two_values(signed_digits(6, 6), signed_digits(divisor, divisor)));
    }
    return rows.take();
}

}  // namespace qv8numeric_bench
