// SPDX-License-Identifier: MIT
#include "ties.h"

#include "exact.h"

namespace qv8numeric_tests {

Numeric TieCase::value() const {
    const cpp_int magnitude = tie.kept * power_of_ten(distance) + 5 * power_of_ten(distance - 1) + tie.beside;
    return pattern(negative ? cpp_int(-magnitude) : magnitude);
}

int TieCase::rounded() const {
    const bool grows = (negative ? tie.negative : tie.positive)[mode] == '+';
    const int magnitude = tie.kept + (grows ? 1 : 0);
    return negative ? -magnitude : magnitude;
}

std::ostream& operator<<(std::ostream& out, const TieCase& item) {
    return out << (item.negative ? "minus " : "") << item.tie.name << ", " << item.distance << " places, "
               << mode_name(item.mode);
}

}  // namespace qv8numeric_tests
