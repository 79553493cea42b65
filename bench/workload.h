// SPDX-License-Identifier: MIT
// What is measured: one operation on one class of operands, with the scales and the mode it runs at.
#ifndef QV8NUMERIC_BENCH_WORKLOAD_H
#define QV8NUMERIC_BENCH_WORKLOAD_H

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "qv8numeric.h"

namespace qv8numeric_bench {

enum class Operation {
    kAdd,
    kCompare,
    kRescale,
    kRound,
    kRescalingAdd,
    kRescalingMultiply,
    kRescalingDivide,
    kRescalingCompare,
    kDivideByInteger,
    kMultiplyByInteger,
    kToText,
    kToGroupedText,
    kFromText,
    kFromGroupedText,
    kFromDouble,
    kToDouble,
    kFromInteger,
    kToInteger,
};

// The operands of every call, by index. A workload fills those that its operation reads.
struct Inputs {
    std::vector<Numeric> a;
    std::vector<Numeric> b;
    std::vector<std::int64_t> integers;
    std::vector<double> doubles;
    std::vector<std::string> texts;
};

// Different operands enough, in any order, and two of them for each call nearly fit a first-level cache.
inline constexpr std::size_t kCalls = 2048;

class Draw;
using Fill = std::function<void(Draw&, Inputs&)>;

struct Workload {
    std::string name{};      // "rescale down 9 digits"
    std::string operands{};  // "small"
    double reach = 0;        // the ratio this row is to show, where one is set
    Operation operation = Operation::kAdd;
    NumericInfo a{};          // the scale of *a, or of the only value, and the mode of the operations in place
    NumericInfo b{};          // of *b
    NumericInfo result{};     // of the result
    std::int32_t places = 0;  // what Round and the formatters round to
    bool departure = false;   // the library's own answer, which no peer gives
    Fill fill{};

    std::string title() const { return operands.empty() ? name : name + ", " + operands; }
};

// The mode that decides, or half-even where nothing is rounded by a mode.
std::uint32_t deciding_mode(const Workload& workload);

// The decimal digits of the longest operand.
int widest(const Inputs& inputs);

// The same on every run. Each row has a seed of its own, so that one can be added without changing the others.
Inputs inputs_of(const Workload& workload);

// The rows with a figure to reach; those beside them that look for a cliff; and one for each distance of scales.
std::vector<Workload> table_workloads();
std::vector<Workload> cliff_workloads();
std::vector<Workload> distance_workloads();

}  // namespace qv8numeric_bench

#endif
