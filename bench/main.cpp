// SPDX-License-Identifier: MIT
// Every row in turn: draws the operands, checks what every contender answers against the exact answers, and then times
// the contenders in turn, a repetition of each at a time and in random order.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <map>
#include <stdexcept>

#include "collector.h"
#include "contender.h"
#include "instrumentation.h"
#include "options.h"
#include "results.h"

namespace qv8numeric_bench {
namespace {

// A contender in a row.
struct Entry {
    const Contender* contender;
    Part part;
    std::unique_ptr<Trial> trial;
};

std::vector<Entry> entries(const std::vector<std::unique_ptr<Contender>>& contenders, const Workload& workload,
                           const Inputs& inputs) {
    const int digits = widest(inputs);
    std::vector<Entry> entered;
    for (const auto& contender : contenders) {
        const std::optional<Part> part = contender->part_in(workload, digits);
        if (!part) continue;
        if (auto trial = contender->trial(workload, inputs)) {
            entered.push_back({contender.get(), *part, std::move(trial)});
        }
    }
    return entered;
}

// A peer that does a part of the job owes its values, but for NaN, which it may not have.
bool is_right(const Part& part, const Answer& answer, const Answer& exact) {
    if (part.checks_status) return answer == exact;
    return answer.value == exact.value || exact.value == "NaN";
}

void check(const Workload& workload, Entry& entry, const std::vector<Answer>& exact) {
    for (std::size_t i = 0; i < exact.size(); ++i) {
        const Answer answer = entry.trial->answer(i);
        if (is_right(entry.part, answer, exact[i])) continue;
        throw std::runtime_error(entry.contender->name() + " is wrong: " + workload.title() + ", call " +
                                 std::to_string(i) + ": " + answer.value + " with status " +
                                 std::to_string(answer.status) + ", exactly " + exact[i].value + " with status " +
                                 std::to_string(exact[i].status));
    }
}

void check_all(const Workload& workload, const Inputs& inputs, std::vector<Entry>& entered) {
    std::map<Manners, std::vector<Answer>> exact;
    for (Entry& entry : entered) {
        const Manners manners = entry.contender->manners();
        auto& answers = exact[manners];
        if (answers.empty()) answers = exact_answers(workload, inputs, manners);
        check(workload, entry, answers);
    }
}

Row measure(const std::string& group, const Workload& workload, std::vector<Entry>& entered) {
    for (Entry& entry : entered) {
        Trial* trial = entry.trial.get();
        benchmark::RegisterBenchmark((entry.contender->name() + "/throughput").c_str(), [trial](auto& state) {
            for ([[maybe_unused]] auto _ : state) trial->independent_calls(kCalls);
        });
        benchmark::RegisterBenchmark((entry.contender->name() + "/latency").c_str(), [trial](auto& state) {
            for ([[maybe_unused]] auto _ : state) trial->dependent_calls(kCalls);
        });
    }
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector, ".");
    benchmark::ClearRegisteredBenchmarks();
    Row row{group, workload.name, workload.operands, workload.reach, {}};
    for (const Entry& entry : entered) {
        const std::string name = entry.contender->name();
        row.times.push_back({name, entry.part.lacking, collector.nanoseconds(name + "/throughput", kCalls),
                             collector.nanoseconds(name + "/latency", kCalls)});
    }
    return row;
}

std::vector<Workload> workloads(const std::string& group) {
    if (group == "table") return table_workloads();
    if (group == "cliffs") return cliff_workloads();
    if (group == "distances") return distance_workloads();
    throw std::invalid_argument("no group of rows is called " + group);
}

bool wanted(const Workload& workload, const std::vector<std::string>& filters) {
    return filters.empty() || std::any_of(filters.begin(), filters.end(), [&](const std::string& filter) {
               return workload.title().find(filter) != std::string::npos;
           });
}

void start_benchmark_library(const Options& options) {
    std::vector<std::string> arguments{"qv8numeric_bench", "--benchmark_enable_random_interleaving=true",
                                       "--benchmark_repetitions=" + options.repetitions,
                                       "--benchmark_min_time=" + options.min_time};
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
}

std::vector<std::unique_ptr<Contender>> contenders(const Options& options) {
    std::vector<std::unique_ptr<Contender>> all;
    for (const auto& [name, path] : options.libraries) all.push_back(library(name, path));
    if (!options.with_peers) return all;
    for (auto& peer : peers()) all.push_back(std::move(peer));
    return all;
}

// One row, by what is asked for; only a measured one comes back.
std::optional<Row> run(const Options& options, const std::string& group, const Workload& workload,
                       const std::vector<std::unique_ptr<Contender>>& all) {
    const Inputs inputs = inputs_of(workload);
    std::vector<Entry> entered = entries(all, workload, inputs);
    if (options.task == Options::Task::kCount) {
        for (Entry& entry : entered) count_instructions(*entry.trial, workload.title());
        return std::nullopt;
    }
    check_all(workload, inputs, entered);
    if (options.task == Options::Task::kMeasure) return measure(group, workload, entered);
    for (Entry& entry : entered) {
        entry.trial->independent_calls(kCalls);
        entry.trial->dependent_calls(kCalls);
    }
    return std::nullopt;
}

int bench(const Options& options) {
    set_order(options.repeated ? Repetition::kRepeated : Repetition::kDrawn);
    start_benchmark_library(options);
    const auto all = contenders(options);
    std::vector<Row> rows;
    std::size_t count = 0;
    for (const std::string& group : options.groups) {
        for (const Workload& workload : workloads(group)) {
            if (!wanted(workload, options.filters)) continue;
            std::cerr << ++count << ": " << workload.title() << '\n';
            if (auto row = run(options, group, workload, all)) rows.push_back(std::move(*row));
        }
    }
    if (count == 0) throw std::invalid_argument("no row has such a title");
    if (options.json.empty()) return 0;
    std::vector<std::string> names;
    for (const auto& library : options.libraries) names.push_back(library.first);
    std::ofstream out(options.json);
    write_json(out, names, rows);
    if (!out.flush()) throw std::runtime_error("cannot write " + options.json);
    return 0;
}

}  // namespace
}  // namespace qv8numeric_bench

int main(int argc, char** argv) {
    const qv8numeric_bench::Options options = qv8numeric_bench::parse_options(argc, argv);
    try {
        return qv8numeric_bench::bench(options);
    } catch (const std::exception& error) {
        std::cerr << "qv8numeric_bench: " << error.what() << '\n';
        return 1;
    }
}
