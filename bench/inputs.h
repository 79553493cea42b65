// SPDX-License-Identifier: MIT
// Operands drawn from a fixed seed, so that two runs measure the same calls.
#ifndef QV8NUMERIC_BENCH_INPUTS_H
#define QV8NUMERIC_BENCH_INPUTS_H

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "workload.h"

namespace qv8numeric_bench {

// SplitMix64 (Steele, Lea and Flood 2014).
class Draw {
  public:
    explicit Draw(std::uint64_t seed) : state_(seed) {}

    std::uint64_t word();
    std::uint64_t below(std::uint64_t bound);  // 0 < bound; the bias of at most bound / 2^64 is no matter here
    int between(int low, int high);            // both included
    bool coin() { return (word() & 1) != 0; }

  private:
    std::uint64_t state_;
};

// kCalls draws.
template <typename Value>
std::vector<Value> many(Draw& draw, const std::function<Value(Draw&)>& one) {
    std::vector<Value> values;
    values.reserve(kCalls);
    while (values.size() < kCalls) values.push_back(one(draw));
    return values;
}

using ValueDraw = std::function<Numeric(Draw&)>;

// A magnitude of any bit length from low to high, each as likely; half of them negative where the name says signed.
ValueDraw bits(int low, int high);
ValueDraw signed_bits(int low, int high);

// The same by the number of decimal digits.
ValueDraw digits(int low, int high);
ValueDraw signed_digits(int low, int high);

using IntegerDraw = std::function<std::int64_t(Draw&, const Numeric& a)>;

std::int64_t integer_bits(Draw& draw, int low, int high);
int bit_length(const Numeric& magnitude);  // 0 <= magnitude

// The operands of a workload.
Fill one_value(const ValueDraw& a);
Fill two_values(const ValueDraw& a, const ValueDraw& b);
Fill value_and_integer(const ValueDraw& a, const IntegerDraw& integer);

Fill texts(const ValueDraw& value, int scale, std::string (*spelled)(const Numeric&, int));
Fill doubles(const ValueDraw& value, int scale);  // the nearest ones

Numeric negated(const Numeric& value);

// The value at a scale in plain digits, with every place written; or with groups of three.
std::string plain_text(const Numeric& value, int scale);
std::string grouped_text(const Numeric& value, int scale);

// The double nearest to the value at a scale.
double nearest_double(const Numeric& value, int scale);

}  // namespace qv8numeric_bench

#endif
