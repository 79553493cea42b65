// SPDX-License-Identifier: MIT
// The same calls in every run, where a short road can be walked from one end to the other.
#ifndef QV8NUMERIC_TESTS_SHORT_ROADS_WALK_H
#define QV8NUMERIC_TESTS_SHORT_ROADS_WALK_H

#include <functional>

#include "operations.h"

namespace short_roads {

using Visit = std::function<void(const Operation& operation, const Call& call)>;

// walk_ties.cpp: every number of dropped digits with every mode and sign around its ties, for all operations that
// round.
void walk_ties(const Visit& visit);

// walk_texts.cpp: numbers of every length into buffers of every size, and literals of every number of digits before and
// behind the point.
void walk_texts(const Visit& visit);

// walk_doubles.cpp: every exponent of a double and every scale around those that matter.
void walk_doubles(const Visit& visit);

}  // namespace short_roads

#endif
