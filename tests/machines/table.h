// SPDX-License-Identifier: MIT
// The table of checksums: a row for each function, one line each on standard output, and a last one over all of them.
#ifndef QV8NUMERIC_TESTS_MACHINES_TABLE_H
#define QV8NUMERIC_TESTS_MACHINES_TABLE_H

#include <cstdint>

#include "digest.h"

namespace machines {

struct Row {
    explicit Row(const char* function) : name(function) {}

    const char* name;
    std::uint64_t calls = 0;
    Digest arguments;
    Digest answers;
};

class Table {
  public:
    Table();
    void print(const Row& row);
    void print_sum();

  private:
    void print_line(const char* name, std::uint64_t calls, const Digest& arguments, const Digest& answers);

    std::uint64_t calls_ = 0;
    Digest arguments_;
    Digest answers_;
};

}  // namespace machines

#endif
