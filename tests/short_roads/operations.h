// SPDX-License-Identifier: MIT
// Every exported operation with its reference and with how its calls are drawn. The debugging printers and the parser's
// entry points have nothing to be short about.
#ifndef QV8NUMERIC_TESTS_SHORT_ROADS_OPERATIONS_H
#define QV8NUMERIC_TESTS_SHORT_ROADS_OPERATIONS_H

#include <cstdint>
#include <span>
#include <string>

#include "call.h"
#include "draw.h"

namespace short_roads {

struct Operation {
    const char* name;
    std::int32_t (*library)(Arguments arguments);
    std::int32_t (*reference)(Arguments arguments);
    std::string (*in_words)(ArgumentsInWords arguments);
    Draw draw;
    unsigned share;  // of the cases drawn, against that of the others
    bool reads_text;
    bool writes_text;
};

std::span<const Operation> operations();

const Operation& operation_named(const char* name);

}  // namespace short_roads

#endif
