// SPDX-License-Identifier: MIT
// The rows of the exported operations, by the calls that are drawn for the comparison with their plain steps.
#ifndef QV8NUMERIC_TESTS_MACHINES_OPERATIONS_H
#define QV8NUMERIC_TESTS_MACHINES_OPERATIONS_H

#include <cstdint>

#include "table.h"

namespace machines {

// So many calls of each operation.
void print_operations(std::uint64_t cases, Table& table);

}  // namespace machines

#endif
