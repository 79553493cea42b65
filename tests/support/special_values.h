// SPDX-License-Identifier: MIT
// Coefficients at which arithmetic goes wrong first: around zero, ties, powers of ten, limb and word boundaries, and
// the limits of the range.
#ifndef QV8NUMERIC_TESTS_SPECIAL_VALUES_H
#define QV8NUMERIC_TESTS_SPECIAL_VALUES_H

#include <vector>

#include "values.h"

namespace qv8numeric_tests {

const std::vector<Numeric>& special_values();

}  // namespace qv8numeric_tests

#endif
