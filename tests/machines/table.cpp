// SPDX-License-Identifier: MIT
#include "table.h"

#include <cinttypes>
#include <cstdio>

namespace machines {

Table::Table() { std::printf("%-20s %9s %-16s %-16s\n", "function", "calls", "arguments", "answers"); }

void Table::print(const Row& row) {
    print_line(row.name, row.calls, row.arguments, row.answers);
    calls_ += row.calls;
    arguments_.add(row.arguments.value());
    answers_.add(row.answers.value());
}

void Table::print_sum() { print_line("all", calls_, arguments_, answers_); }

void Table::print_line(const char* name, std::uint64_t calls, const Digest& arguments, const Digest& answers) {
    std::printf("%-20s %9" PRIu64 " %016" PRIx64 " %016" PRIx64 "\n", name, calls, arguments.value(), answers.value());
}

}  // namespace machines
