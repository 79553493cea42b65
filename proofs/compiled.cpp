// SPDX-License-Identifier: MIT
// The tables and the functions of the library as they were compiled, for the generator of the proofs:
//     qv8numeric_compiled tables      prints the tables and constants as JSON
//     qv8numeric_compiled calls       reads calls, a function's name and its arguments on a line, and prints the
//     answers
#include "compiled.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <map>
#include <sstream>
#include <string>

#include "numconv/binary64.h"
#include "numconv/digits.h"
#include "numconv/double_steps.h"
#include "numconv/placed_text.h"
#include "numconv/short_literal.h"
#include "numeric/alignment.h"
#include "numeric/same_scale.h"
#include "wide/decimal_split.h"
#include "wide/narrowing.h"
#include "wide/shifting.h"

namespace qv8numeric_proofs {
namespace {

using namespace qv8numeric;

// ---- Tables ----

template <class Table, class Row>
void print_table(const char* name, const Table& table, Row row, const char* end = ",\n") {
    std::cout << '"' << name << "\": [";
    const char* separator = "";
    for (const auto& entry : table) {
        std::cout << separator;
        row(entry);
        separator = ", ";
    }
    std::cout << ']' << end;
}

template <class Table>
void print_numbers(const char* name, const Table& table) {
    print_table(name, table, [](auto entry) { std::cout << entry; });
}

void print_divisor(const divisor_t& d) {
    std::cout << '[' << d.shift << ", " << d.multiplier << ", " << d.divisor << ']';
}

void print_power(const DecimalPower& ten) {
    std::cout << '[' << ten.power.high << ", " << ten.power.low << ", " << ten.reciprocal.high << ", "
              << ten.reciprocal.low << ", " << ten.word_reciprocal << ", " << ten.long_reciprocal << ", " << ten.shift
              << ']';
}

void print_constants() {
    const std::map<std::string, std::uint64_t> constants{
        {"word_digits", word_digits},
        {"pair_digits", pair_digits},
        {"one_half", one_half},
        {"largest_power_of_five", static_cast<std::uint64_t>(largest_power_of_five)},
        {"fraction_bits", fraction_bits},
        {"exponent_bias", static_cast<std::uint64_t>(exponent_bias)},
        {"exponent_of_infinity", static_cast<std::uint64_t>(exponent_of_infinity)},
        {"overflow", NUMERIC_OVERFLOW},
        {"underflow", NUMERIC_UNDERFLOW},
        {"most_short_digits", most_short_digits},
    };
    const char* separator = "\"constants\": {";
    for (const auto& [name, value] : constants) {
        std::cout << separator << '"' << name << "\": " << value;
        separator = ", ";
    }
    std::cout << '}';
}

void print_tables() {
    std::vector<unsigned> logarithms;
    for (unsigned b = 0; b <= 128; ++b) logarithms.push_back(whole_log10_of_power_of_two(b));
    std::cout << "{\n";
    print_numbers("power_of_ten", power_of_ten);
    print_table("negative_power_of_ten", negative_power_of_ten, print_divisor);
    print_numbers("power_of_five", power_of_five);
    print_table("negative_power_of_five", negative_power_of_five, print_divisor);
    print_table("decimal_power", decimal_power, print_power);
    print_numbers("reciprocal_seed", reciprocal_seed);
    print_numbers("increased_by_mode", increased_by_mode);
    print_numbers("raised_by_mode", raised_by_mode);
    print_numbers("whole_log10_of_power_of_two", logarithms);
    print_constants();
    std::cout << "\n}\n";
}

// ---- Functions ----

std::uint32_t low32(std::uint64_t x) { return static_cast<std::uint32_t>(x); }
Numeric numeric_at(const std::uint64_t* a) { return from_bits(pair_at(a)); }
Words words(const LongDivision& division) {
    return {division.quotient.high, division.quotient.low, static_cast<std::uint64_t>(division.dropped)};
}
using qv8numeric_proofs::words;

Words with_status(NumericStatus status, const Numeric& value) {
    return {static_cast<std::uint64_t>(status), static_cast<std::uint64_t>(value.high), value.low};
}

const Function kFunctions[] = {
    // words.h
    {"multiply_words_portable", 2, [](auto* a) { return words(multiply_words_portable(a[0], a[1])); }},
    {"multiply_add", 3, [](auto* a) { return words(multiply_add(a[0], a[1], a[2])); }},
    {"multiply_add_two", 4, [](auto* a) { return words(multiply_add(a[0], a[1], a[2], a[3])); }},
    {"multiply_high_pair", 4, [](auto* a) { return words(multiply_high(pair_at(a), pair_at(a + 2))); }},
    {"wrapping_multiply_pair_word", 3, [](auto* a) { return words(wrapping_multiply(pair_at(a), a[2])); }},
    {"wrapping_multiply_pair", 4, [](auto* a) { return words(wrapping_multiply(pair_at(a), pair_at(a + 2))); }},
    {"wrapping_add_pair", 4, [](auto* a) { return words(wrapping_add(pair_at(a), pair_at(a + 2))); }},
    {"wrapping_subtract_pair", 4, [](auto* a) { return words(wrapping_subtract(pair_at(a), pair_at(a + 2))); }},
    {"negated_if_pair", 3, [](auto* a) { return words(negated_if(a[0] != 0, pair_at(a + 1))); }},
    {"shift_right_pair", 3, [](auto* a) { return words(shift_right(pair_at(a), static_cast<unsigned>(a[2]))); }},
    {"shift_left_pair", 3, [](auto* a) { return words(shift_left(pair_at(a), static_cast<unsigned>(a[2]))); }},
    {"less_pair", 4, [](auto* a) { return Words{one_if(pair_at(a) < pair_at(a + 2))}; }},
    // extended_numeric.h
    {"add", 8,
     [](auto* a) {
         std::uint64_t carry = 0;
         Words result = words(add(four_at(a), four_at(a + 4), carry));
         result.push_back(carry);
         return result;
     }},
    {"subtract", 8, [](auto* a) { return words(subtract(four_at(a), four_at(a + 4))); }},
    {"negated_if", 5, [](auto* a) { return words(negated_if(a[0] != 0, four_at(a + 1))); }},
    {"multiply_pair_word", 3, [](auto* a) { return words(multiply(pair_at(a), a[2])); }},
    {"multiply_pair", 4, [](auto* a) { return words(multiply(pair_at(a), pair_at(a + 2))); }},
    {"multiply_by", 5,
     [](auto* a) {
         ExtendedNumeric x = four_at(a);
         unsigned overflow = 0;
         multiply_by(x, a[4], overflow);
         Words result = words(x);
         result.push_back(overflow);
         return result;
     }},
    {"bit_length", 4, [](auto* a) { return Words{bit_length(four_at(a))}; }},
    // primitives.h
    {"make_divisor", 1,
     [](auto* a) {
         const divisor_t d = make_divisor(low32(a[0]));
         return Words{d.shift, d.multiplier, d.divisor};
     }},
    {"divide_limb", 4,
     [](auto* a) {
         const LimbQuotient q = divide_limb(a[0], {low32(a[1]), low32(a[2]), low32(a[3])});
         return Words{q.quotient, q.remainder};
     }},
    {"mul_unsigned", 5,
     [](auto* a) {
         ExtendedNumeric r{};
         unsigned overflow = 0;
         mul_unsigned(four_at(a), low32(a[4]), r, overflow);
         Words result = words(r);
         result.push_back(overflow);
         return result;
     }},
    {"div_unsigned", 7,
     [](auto* a) {
         ExtendedNumeric q{};
         unsigned code = 0, sticky = 0;
         div_unsigned(four_at(a), {low32(a[4]), low32(a[5]), low32(a[6])}, q, code, sticky);
         Words result = words(q);
         result.push_back(code);
         return result;
     }},
    // dropped.h
    {"remainder_code", 2, [](auto* a) { return Words{remainder_code(low32(a[0]), low32(a[1]))}; }},
    {"remainder_of", 2, [](auto* a) { return Words{remainder_of(low32(a[0]), low32(a[1]))}; }},
    {"fraction_of_dropped", 2,
     [](auto* a) {
         return Words{static_cast<std::uint64_t>(fraction_of(Dropped{low32(a[0]), low32(a[1])}))};
     }},
    {"fraction_of", 2, [](auto* a) { return Words{static_cast<std::uint64_t>(fraction_of(a[0], a[1]))}; }},
    {"fraction_of_pair", 4,
     [](auto* a) { return Words{static_cast<std::uint64_t>(fraction_of(pair_at(a), pair_at(a + 2)))}; }},
    {"joined", 2,
     [](auto* a) {
         return Words{static_cast<std::uint64_t>(joined(static_cast<Fraction>(a[0]), static_cast<Fraction>(a[1])))};
     }},
    {"complement_if", 2,
     [](auto* a) { return Words{static_cast<std::uint64_t>(complement_if(a[0] != 0, static_cast<Fraction>(a[1])))}; }},
    // rounding.h
    {"rounds_away", 4,
     [](auto* a) {
         return Words{one_if(rounds_away(low32(a[0]), static_cast<Fraction>(a[1]), a[2] != 0, a[3] != 0))};
     }},
    {"rounds_up", 4,
     [](auto* a) { return Words{one_if(rounds_up(low32(a[0]), static_cast<Fraction>(a[1]), a[2] != 0, a[3] != 0))}; }},
    // reciprocal.h
    {"reciprocal_by_newton", 1, [](auto* a) { return Words{reciprocal_by_newton(a[0])}; }},
    {"reciprocal_of", 1, [](auto* a) { return Words{reciprocal_of(a[0])}; }},
    {"reciprocal_of_pair", 2, [](auto* a) { return Words{reciprocal_of(pair_at(a))}; }},
    {"divide_2by1", 4,
     [](auto* a) {
         const WordQuotient q = divide_2by1(pair_at(a), a[2], a[3]);
         return Words{q.quotient, q.remainder};
     }},
    {"divide_3by2", 6,
     [](auto* a) {
         const PairQuotient q = divide_3by2(pair_at(a), a[2], pair_at(a + 3), a[5]);
         return Words{q.quotient, q.remainder.high, q.remainder.low};
     }},
    // long_division.h
    {"divide_by_word", 5, [](auto* a) { return words(divide(four_at(a), normalize(a[4]))); }},
    {"divide_by_pair", 6, [](auto* a) { return words(divide(four_at(a), normalize(pair_at(a + 4)))); }},
    // scaling.h
    {"divide_by_power_word", 2, [](auto* a) { return Words{divide_by_power(a[0], a[1])}; }},
    {"divide_by_power_pair", 3, [](auto* a) { return words(divide_by_power(pair_at(a), a[2])); }},
    {"divide_by_power_four", 5,
     [](auto* a) {
         LongDivision division{};
         const bool done = divide_by_power(four_at(a), a[4], division);
         Words result{one_if(done)};
         for (const std::uint64_t word : words(division)) result.push_back(word);
         return result;
     }},
    {"scale_down_word", 2,
     [](auto* a) {
         std::uint64_t x = a[0];
         const Fraction dropped = scale_down(x, a[1]);
         return Words{x, static_cast<std::uint64_t>(dropped)};
     }},
    {"scale_down_pair", 3,
     [](auto* a) {
         WordPair x = pair_at(a);
         const Fraction dropped = scale_down(x, a[2]);
         return Words{x.high, x.low, static_cast<std::uint64_t>(dropped)};
     }},
    {"scale_up_pair", 3,
     [](auto* a) {
         WordPair x = pair_at(a);
         unsigned overflow = 0;
         scale_up(x, a[2], overflow);
         return Words{x.high, x.low, overflow};
     }},
    {"has_room_to_round", 3, [](auto* a) { return Words{one_if(has_room_to_round(pair_at(a), a[2]))}; }},
    // decimal_split.h
    {"count_digits_word", 1, [](auto* a) { return Words{count_digits(a[0])}; }},
    {"count_digits_pair", 2, [](auto* a) { return Words{count_digits(pair_at(a))}; }},
    {"split_into_words", 2,
     [](auto* a) {
         const auto split = split_into_words(pair_at(a));
         return Words{split.upper, split.lower};
     }},
    // shifting.h
    {"shift_left", 5,
     [](auto* a) {
         std::uint64_t lost = 0;
         Words result = words(shift_left(four_at(a), static_cast<unsigned>(a[4]), lost));
         result.push_back(one_if(lost != 0));
         return result;
     }},
    {"shift_right", 5,
     [](auto* a) {
         Dropped dropped;
         Words result = words(shift_right(four_at(a), a[4], dropped));
         result.push_back(dropped.code);
         result.push_back(one_if(dropped.sticky != 0));
         return result;
     }},
    // coefficient.h, same_scale.h, alignment.h
    {"fits_int64", 2, [](auto* a) { return Words{one_if(fits_int64(numeric_at(a)))}; }},
    {"magnitude_of", 2, [](auto* a) { return words(magnitude_of(numeric_at(a))); }},
    {"compare_same_scale", 4,
     [](auto* a) {
         return Words{static_cast<std::uint64_t>(int64_t{compare_same_scale(numeric_at(a), numeric_at(a + 2))})};
     }},
    {"add_same_scale", 4,
     [](auto* a) {
         Numeric result{};
         const NumericStatus status = add_same_scale(numeric_at(a), numeric_at(a + 2), result);
         return with_status(status, result);
     }},
    {"subtract_same_scale", 4,
     [](auto* a) {
         Numeric result{};
         const NumericStatus status = subtract_same_scale(numeric_at(a), numeric_at(a + 2), result);
         return with_status(status, result);
     }},
    {"align", 6,
     [](auto* a) {
         const Alignment at =
             align(numeric_at(a), static_cast<std::int32_t>(a[2]), numeric_at(a + 3), static_cast<std::int32_t>(a[5]));
         return Words{static_cast<std::uint64_t>(at.common_scale), static_cast<std::uint64_t>(at.a_shift),
                      static_cast<std::uint64_t>(at.b_shift)};
     }},
    // digits.h
    {"match_digits", 1,
     [](auto* a) {
         const Matched matched = match_digits(a[0]);
         return Words{matched.values, matched.misses};
     }},
    {"match_two_groups", 1,
     [](auto* a) {
         const Matched matched = match_two_groups(a[0]);
         return Words{matched.values, matched.misses};
     }},
    {"without_first_miss", 2,
     [](auto* a) {
         const Matched matched = without_first_miss({a[0], a[1]});
         return Words{matched.values, matched.misses};
     }},
    {"first_values", 2,
     [](auto* a) {
         return Words{first_values({a[0], 0}, static_cast<unsigned>(a[1]))};
     }},
    {"number_of", 1, [](auto* a) { return Words{number_of(a[0])}; }},
    {"number_of_groups", 1, [](auto* a) { return Words{number_of<1'000>(a[0])}; }},
};

const Function* find(const std::string& name) {
    for (const Function& function : kFunctions) {
        if (name == function.name) return &function;
    }
    for (const auto* list : {&functions_of_from_double(), &functions_of_to_double()}) {
        for (const Function& function : *list) {
            if (name == function.name) return &function;
        }
    }
    return nullptr;
}

bool answer(const std::string& line) {
    std::istringstream in(line);
    std::string name;
    in >> name;
    Words arguments;
    for (std::uint64_t argument = 0; in >> argument;) arguments.push_back(argument);
    const Function* const function = find(name);
    if (function == nullptr || function->arguments != arguments.size()) {
        std::cerr << "no such call: " << line << '\n';
        return false;
    }
    const char* separator = "";
    for (const std::uint64_t word : function->call(arguments.data())) {
        std::cout << separator << word;
        separator = " ";
    }
    std::cout << '\n';
    return true;
}

}  // namespace
}  // namespace qv8numeric_proofs

int main(int argc, char** argv) {
    const std::string what = argc == 2 ? argv[1] : "";
    if (what == "tables") {
        qv8numeric_proofs::print_tables();
        return 0;
    }
    if (what == "calls") {
        for (std::string line; std::getline(std::cin, line);) {
            if (!qv8numeric_proofs::answer(line)) return 1;
        }
        return 0;
    }
    std::cerr << "usage: qv8numeric_compiled tables | calls\n";
    return 2;
}
