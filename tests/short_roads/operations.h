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

// What a call writes to, beside the end of a text.
enum class Result { kNone, kNumeric, kInt32, kInt64, kDouble, kText };

struct Operation {
    const char* name;
    std::int32_t (*library)(Arguments arguments);
    std::int32_t (*reference)(Arguments arguments);
    std::string (*in_words)(ArgumentsInWords arguments);
    Draw draw;
    std::size_t infos;  // descriptors that it takes
    unsigned share;     // of the cases drawn, against that of the others
    Result result;
    bool takes_two;  // operands
    bool reads_text;
    bool writes_text;
};

std::span<const Operation> operations();

const Operation& operation_named(const char* name);

}  // namespace short_roads

#endif
