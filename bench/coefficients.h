// SPDX-License-Identifier: MIT
// The traits of contenders whose values are the library's own 16 bytes.
#ifndef QV8NUMERIC_BENCH_COEFFICIENTS_H
#define QV8NUMERIC_BENCH_COEFFICIENTS_H

#include "answers.h"

namespace qv8numeric_bench {

struct CoefficientTraits {
    using Value = Numeric;

    static Value value(const Numeric& number, int) { return number; }
    static std::string text(const Value& value, int) { return text_of(value); }
    static std::uint64_t word(const Value& value) { return value.low ^ static_cast<std::uint64_t>(value.high); }
    static void entangle(Value& value, std::uint64_t zero) { value.low ^= zero; }
};

}  // namespace qv8numeric_bench

#endif
