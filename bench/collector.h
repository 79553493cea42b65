// SPDX-License-Identifier: MIT
// Collects what Google Benchmark measures: the times of all repetitions, under the names the loops were registered
// with.
#ifndef QV8NUMERIC_BENCH_COLLECTOR_H
#define QV8NUMERIC_BENCH_COLLECTOR_H

#include <benchmark/benchmark.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace qv8numeric_bench {

class Collector : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

    // Nanoseconds for each call, by repetition, of a loop that makes so many calls in an iteration. Throws
    // std::out_of_range when no loop of that name ran.
    std::vector<double> nanoseconds(const std::string& name, std::uint64_t calls) const;
    double median_nanoseconds(const std::string& name, std::uint64_t calls) const;

  private:
    std::map<std::string, std::vector<double>> seconds_;  // of an iteration
};

}  // namespace qv8numeric_bench

#endif
