// SPDX-License-Identifier: MIT
// What a text means as a number, read off the grammar by walking over the characters once. It holds no digit limit and
// no chunk of eight digits, so it is for short texts: at most eleven digits, fewer than eight of them in an exponent.
//
//   number   = [sign] mantissa [exponent]
//   mantissa = integer ["." [run]] | "." run
//   integer  = run | run of 1 to 3 digits, groups
//   exponent = ("E" | "e") [sign] integer
//   groups   = "," and exactly three digits, once or more; only where grouped digits are allowed
#ifndef QV8NUMERIC_TESTS_LITERAL_H
#define QV8NUMERIC_TESTS_LITERAL_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "outcome.h"

namespace qv8numeric_tests {

struct Literal {
    bool accepted;
    std::ptrdiff_t end;  // where the reader says it stopped
    bool negative;
    std::int64_t digits;
    std::int64_t exponent;  // the value is digits * 10^exponent
};

Literal read_literal(std::string_view text, bool grouped);

// The accepted literal's coefficient at a scale.
Outcome coefficient_at(const Literal& literal, const NumericInfo& info);

}  // namespace qv8numeric_tests

#endif
