// SPDX-License-Identifier: MIT
// The rows of what is exported, but not for callers: the entry points of the literal parser and the debug printers.
#ifndef QV8NUMERIC_TESTS_MACHINES_DEBUGGING_H
#define QV8NUMERIC_TESTS_MACHINES_DEBUGGING_H

#include <cstdint>

#include "table.h"

namespace machines {

// So many calls of each entry point.
void print_parser(std::uint64_t cases, Table& table);

// The printed lines as they are, and behind them the row of what the printers returned.
void print_dumps(Table& table);

}  // namespace machines

#endif
