// SPDX-License-Identifier: MIT
// Calls every exported function with the same arguments on every machine, and prints a checksum for each: of what went
// in, and of all that came out. Two machines on which the library does the same print the same.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "debugging.h"
#include "operations.h"

namespace {

[[noreturn]] void usage() {
    std::fputs(
        "usage: qv8numeric_checksum [--cases N] [--output FILE]\n"
        "  --cases N      so many calls of each function (default 100000)\n"
        "  --output FILE  print there instead of to standard output\n",
        stderr);
    std::exit(2);
}

std::uint64_t count(const char* text) {
    char* end = nullptr;
    const std::uint64_t value = std::strtoull(text, &end, 10);
    if (*text < '1' || *text > '9' || *end != '\0') usage();
    return value;
}

}  // namespace

int main(int, char** words) {
    std::uint64_t cases = 100000;
    for (++words; *words != nullptr; words += 2) {
        if (words[1] == nullptr) usage();
        if (std::strcmp(*words, "--cases") == 0) {
            cases = count(words[1]);
        } else if (std::strcmp(*words, "--output") != 0) {
            usage();
        } else if (std::freopen(words[1], "w", stdout) == nullptr) {
            std::perror(words[1]);
            return 2;
        }
    }
    machines::Table table;
    machines::print_operations(cases, table);
    machines::print_parser(cases, table);
    machines::print_dumps(table);
    table.print_sum();
    return std::fclose(stdout) == 0 ? 0 : 2;
}
