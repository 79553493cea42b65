// SPDX-License-Identifier: MIT
// Literals to numbers.
#include <cstdint>

#include "limbs.h"
#include "literal.h"
#include "reference.h"
#include "rounding.h"
#include "scaling.h"

namespace reference {
namespace {

std::int64_t exponent(const Literal& literal) {
    const std::int64_t value = literal.chunk;
    return literal.exponent_negative ? -value : value;
}

// Behind a marker the chunk holds the exponent, otherwise the last digits.
std::int64_t literal_scale(Literal& literal) {
    if (literal.marker_seen) return literal.fraction_digits - exponent(literal);
    flush(literal);
    return literal.fraction_digits;
}

NumericStatus convert(Literal& literal, const NumericInfo& info, Numeric* result) {
    const std::int64_t places = info.scale + literal.digits_dropped - literal_scale(literal);
    Limbs& x = literal.accumulator;
    Dropped dropped;
    const bool lost = scale(x, places, dropped) != 0 || literal.overflow;
    const NumericStatus status = round(x, literal.negative, info.rounding_mode, dropped);
    if (status == NUMERIC_INVALID_ARGUMENT) return status;
    return store(x, literal.negative, lost, status, result);
}

NumericStatus read(const char* text, const NumericInfo* info, bool grouped, Numeric* result, char** end) {
    if (*text == '\0') {
        *result = kNan;  // an empty field
        return NUMERIC_OK;
    }
    Literal literal{text, text, grouped};
    const bool parsed = parse(literal);
    if (end != nullptr) *end = const_cast<char*>(parsed ? literal.token_start : text);
    return parsed ? convert(literal, *info, result) : NUMERIC_SYNTAX_ERROR;
}

}  // namespace

NumericStatus from_text(const char* text, const NumericInfo* info, Numeric* result, char** end) {
    return read(text, info, false, result, end);
}

NumericStatus from_grouped_text(const char* text, const NumericInfo* info, Numeric* result, char** end) {
    return read(text, info, true, result, end);
}

}  // namespace reference
