// SPDX-License-Identifier: MIT
// The exact answer to each call of a workload, from fractions of big integers: no peer and no library is asked.
#ifndef QV8NUMERIC_BENCH_ANSWERS_H
#define QV8NUMERIC_BENCH_ANSWERS_H

#include <string>
#include <vector>

#include "workload.h"

namespace qv8numeric_bench {

// What a call returned and left in its output, the latter in the form in which it is compared: a coefficient or an
// integer in decimal, "NaN", the characters of a text, the bits of a double in hexadecimal.
struct Answer {
    NumericStatus status;
    std::string value;

    friend bool operator==(const Answer&, const Answer&) = default;
};

std::string text_of(const Numeric& value);
std::string text_of(double value);

// The library's manners, or what anyone else would do: the comparison has its opposite sign, a change of scale reports
// its loss and takes a negative value to zero, and what is out of range is said to be beyond the limit that it passed.
enum class Manners { kLibrary, kCommon };

std::vector<Answer> exact_answers(const Workload& workload, const Inputs& inputs, Manners manners);

}  // namespace qv8numeric_bench

#endif
