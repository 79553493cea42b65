// SPDX-License-Identifier: MIT
#include "collector.h"

#include <algorithm>

namespace qv8numeric_bench {

void Collector::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration) continue;
        const double seconds = run.cpu_accumulated_time / static_cast<double>(run.iterations);
        seconds_[run.run_name.function_name].push_back(seconds);
    }
}

std::vector<double> Collector::nanoseconds(const std::string& name, std::uint64_t calls) const {
    std::vector<double> times = seconds_.at(name);
    for (double& time : times) time = time * 1e9 / static_cast<double>(calls);
    return times;
}

double Collector::median_nanoseconds(const std::string& name, std::uint64_t calls) const {
    std::vector<double> times = nanoseconds(name, calls);
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

}  // namespace qv8numeric_bench
