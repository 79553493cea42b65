// SPDX-License-Identifier: MIT
#include "outcome.h"

namespace qv8numeric_tests {

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
    const std::string value = outcome.value == kUntouched ? "untouched" : text(outcome.value);
    return out << value << " with " << status_name(outcome.status);
}

Outcome outcome(NumericStatus status, std::string_view value) {
    return {status, value == "untouched" ? kUntouched : num(value)};
}

}  // namespace qv8numeric_tests
