// SPDX-License-Identifier: MIT
// Every number of dropped digits with every mode and sign around its ties, for all operations that round.
#ifndef QV8NUMERIC_TESTS_SHORT_ROADS_WALK_H
#define QV8NUMERIC_TESTS_SHORT_ROADS_WALK_H

#include <functional>

#include "operations.h"

namespace short_roads {

using Visit = std::function<void(const Operation& operation, const Call& call)>;

void walk(const Visit& visit);

}  // namespace short_roads

#endif
