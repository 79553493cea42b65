// SPDX-License-Identifier: MIT
// The dearest calls of every function beside its usual one, and calls on a megabyte of text. One line for each:
//
//     call   FUNCTION  typical|worst  ARGUMENTS  NANOSECONDS
//     grown  FUNCTION  FAMILY                    NANOSECONDS
//
// Each call is made again and again with the same arguments. That is kind to branch predictors, for both columns alike:
// what is compared here is the work that arguments can demand, not how they are mixed.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "collector.h"
#include "growing_calls.h"
#include "named_calls.h"

namespace {

using bounds::GrowingCall;
using bounds::NamedCall;
using qv8numeric_bench::Collector;

constexpr std::uint64_t kTimes = 256;
constexpr std::size_t kMegabyte = std::size_t{1} << 20;

std::string title(const NamedCall& named) {
    return std::string(named.function) + (named.typical ? "\ttypical\t" : "\tworst\t") + named.arguments;
}

std::string title(const GrowingCall& growing) { return std::string(growing.function) + '\t' + growing.family; }

void time_named_call(benchmark::State& state, const NamedCall& named) {
    short_roads::Memory memory;
    memory.prepare(named.call, true);
    for ([[maybe_unused]] auto _ : state) named.repeat(named.call, memory, kTimes);
}

void time_growing_call(benchmark::State& state, const GrowingCall& growing) {
    const bounds::Prepared prepared = growing.prepare(kMegabyte);
    for ([[maybe_unused]] auto _ : state) prepared.run();
}

void register_all() {
    for (const NamedCall& named : bounds::named_calls()) {
        benchmark::RegisterBenchmark(title(named).c_str(), [&named](auto& state) { time_named_call(state, named); });
    }
    for (const GrowingCall& growing : bounds::growing_calls()) {
        benchmark::RegisterBenchmark(title(growing).c_str(), [&growing](auto& s) { time_growing_call(s, growing); });
    }
}

void print_all(const Collector& collector) {
    for (const NamedCall& named : bounds::named_calls()) {
        const std::string name = title(named);
        std::printf("call\t%s\t%.2f\n", name.c_str(), collector.median_nanoseconds(name, kTimes));
    }
    for (const GrowingCall& growing : bounds::growing_calls()) {
        const std::string name = title(growing);
        std::printf("grown\t%s\t%.2f\n", name.c_str(), collector.median_nanoseconds(name, 1));
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: qv8numeric_bench_worst REPETITIONS SECONDS\n", stderr);
        return 2;
    }
    std::vector<std::string> arguments{argv[0], "--benchmark_enable_random_interleaving=true",
                                       std::string("--benchmark_repetitions=") + argv[1],
                                       std::string("--benchmark_min_time=") + argv[2]};
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    register_all();
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector, ".");
    print_all(collector);
    return 0;
}
