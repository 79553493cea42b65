// SPDX-License-Identifier: MIT
#include "options.h"

#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>

namespace qv8numeric_bench {
namespace {

constexpr const char* kUsage = R"(usage: qv8numeric_bench --library=NAME=PATH... [OPTION...] [FILTER...]

  --library=NAME=PATH   a build of the library; the first one is what the peers are compared with
  --groups=A,B          of the rows: table, cliffs, distances (default: the first two)
  --json=FILE           where the results go
  --repetitions=N       of each measurement (default: 7)
  --min-time=SECONDS    of each repetition (default: 0.01)
  --no-peers            only the builds of the library
  --repeated            the calls of a row again and again in one order, which branch predictors learn
  --check               check every answer and run every loop once, without timing
  --count               run each row once with instrumentation for callgrind
  FILTER                only rows whose title contains one of these
)";

[[noreturn]] void refuse(const std::string& reason) {
    std::cerr << "qv8numeric_bench: " << reason << '\n' << kUsage;
    std::exit(2);
}

std::vector<std::string> split(const std::string& text) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, ',');) parts.push_back(part);
    return parts;
}

}  // namespace

Options parse_options(int argc, char** argv) {
    Options options;
    const std::map<std::string, std::function<void(const std::string&)>> known{
        {"--library",
         [&](const std::string& value) {
             const auto equals = value.find('=');
             if (equals == std::string::npos) refuse("not NAME=PATH: " + value);
             options.libraries.emplace_back(value.substr(0, equals), value.substr(equals + 1));
         }},
        {"--groups", [&](const std::string& value) { options.groups = split(value); }},
        {"--json", [&](const std::string& value) { options.json = value; }},
        {"--repetitions", [&](const std::string& value) { options.repetitions = value; }},
        {"--min-time", [&](const std::string& value) { options.min_time = value; }},
        {"--repeated", [&](const std::string&) { options.repeated = true; }},
        {"--no-peers", [&](const std::string&) { options.with_peers = false; }},
        {"--check", [&](const std::string&) { options.task = Options::Task::kCheck; }},
        {"--count", [&](const std::string&) { options.task = Options::Task::kCount; }},
    };
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (!argument.starts_with("--")) {
            options.filters.push_back(argument);
            continue;
        }
        const auto equals = argument.find('=');
        const auto found = known.find(argument.substr(0, equals));
        if (found == known.end()) refuse("no option " + argument);
        found->second(equals == std::string::npos ? "" : argument.substr(equals + 1));
    }
    if (options.libraries.empty()) refuse("no library");
    return options;
}

}  // namespace qv8numeric_bench
