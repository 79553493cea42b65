// SPDX-License-Identifier: MIT
// What the command line asks for.
#ifndef QV8NUMERIC_BENCH_OPTIONS_H
#define QV8NUMERIC_BENCH_OPTIONS_H

#include <string>
#include <utility>
#include <vector>

namespace qv8numeric_bench {

struct Options {
    std::vector<std::pair<std::string, std::string>> libraries;  // name and path
    std::vector<std::string> groups{"table", "cliffs"};
    std::vector<std::string> filters;  // a row runs whose title contains one of them; all of them when there is none
    std::string json;                  // where the results go
    std::string repetitions = "7";
    std::string min_time = "0.01";  // seconds of each repetition
    bool repeated = false;          // the calls of a row in one order
    bool with_peers = true;
    enum class Task { kMeasure, kCheck, kCount } task = Task::kMeasure;
};

// Prints what is wrong and how it is used, and ends the program, unless all is well.
Options parse_options(int argc, char** argv);

}  // namespace qv8numeric_bench

#endif
