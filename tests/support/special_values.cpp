// SPDX-License-Identifier: MIT
#include "special_values.h"

#include <sstream>
#include <string>

namespace qv8numeric_tests {
namespace {

// Expressions for num(), separated by blanks.
constexpr const char* kExpressions =
    // small, and the ties of short scale distances
    "0 1 -1 2 -2 3 5 -5 9 -10 15 -25 99 -150 "
    // steps of eight digits
    "50000000 10^8-1 -10^8 10^8+1 10^16+1 10^18 -10^19 "
    // 32-bit limbs
    "2^31 2^32-1 -2^32 2^95 2^96-1 -2^96+1 -2^96 "
    // 64-bit words; the magnitude of -2^64 needs 65 bits although its upper half is only sign
    "2^63-1 2^63 -2^63 -2^63-1 2^64-1 -2^64+1 2^64 -2^64 2^64+1 -2^64-1 "
    // the limits
    "10^37 -10^38+1 10^38 -10^38 2^126 -2^126 2^127-2 2^127-1 -2^127+1";

}  // namespace

const std::vector<Numeric>& special_values() {
    static const std::vector<Numeric> values = [] {
        std::vector<Numeric> list;
        std::istringstream expressions(kExpressions);
        for (std::string expression; expressions >> expression;) list.push_back(num(expression));
        return list;
    }();
    return values;
}

}  // namespace qv8numeric_tests
