// SPDX-License-Identifier: MIT
#include "batch.h"

#include <csignal>
#include <iostream>
#include <sstream>

#include "operation.h"

namespace qv8numeric_fuzz {
namespace {

// For the report of a crash alone.
Operation* current_operation = nullptr;

struct Drawn {
    Operation& operation;
    std::size_t index;
};

Drawn draw(Source& source) {
    const std::span<Operation* const> operations = target_operations();
    const std::size_t index = source.byte() % operations.size();
    operations[index]->draw(source);
    return {*operations[index], index};
}

extern "C" void report_crash(int signal) {
    std::signal(signal, SIG_DFL);
    std::cerr << "signal " << signal << " in\n";
    if (current_operation != nullptr) current_operation->print(std::cerr);
    std::cerr.flush();
    std::raise(signal);
}

}  // namespace

std::optional<Difference> run_batch(std::span<const std::uint8_t> input, Tally& tally) {
    Source source(input);
    while (!source.is_empty()) {
        const std::size_t begin = source.position();
        const Drawn drawn = draw(source);
        current_operation = &drawn.operation;
        Differences differences;
        const std::int32_t status = drawn.operation.check(differences);
        current_operation = nullptr;
        if (!drawn.operation.possible().contains(status)) {
            differences.add("status", "one that the function can return", std::to_string(status));
        }
        if (!differences.empty()) {
            std::ostringstream report;
            report << "difference in " << drawn.operation.name() << "\n" << differences.text();
            drawn.operation.print(report);
            return Difference{report.str(), source.since(begin)};
        }
        tally.count(drawn.index, status);
    }
    return std::nullopt;
}

void print_batch(std::span<const std::uint8_t> input, std::ostream& out) {
    Source source(input);
    while (!source.is_empty()) draw(source).operation.print(out);
}

void report_crashes() {
    for (const int signal : {SIGSEGV, SIGFPE, SIGILL}) std::signal(signal, report_crash);
#if defined(SIGBUS)
    std::signal(SIGBUS, report_crash);
#endif
}

}  // namespace qv8numeric_fuzz
