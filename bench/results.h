// SPDX-License-Identifier: MIT
// What was measured, and its form as JSON.
#ifndef QV8NUMERIC_BENCH_RESULTS_H
#define QV8NUMERIC_BENCH_RESULTS_H

#include <ostream>
#include <string>
#include <vector>

#include "workload.h"

namespace qv8numeric_bench {

struct Times {
    std::string contender;
    std::string lacking;             // empty for the whole job
    std::vector<double> throughput;  // nanoseconds for each call, by repetition
    std::vector<double> latency;
};

struct Row {
    std::string group;
    std::string name;
    std::string operands;
    double reach;
    std::vector<Times> times;  // the libraries first, in the order in which they were named
};

void write_json(std::ostream& out, const std::vector<std::string>& libraries, const std::vector<Row>& rows);

}  // namespace qv8numeric_bench

#endif
