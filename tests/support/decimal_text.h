// SPDX-License-Identifier: MIT
// The text of a number, built from its exact decimal digits as a string.
#ifndef QV8NUMERIC_TESTS_DECIMAL_TEXT_H
#define QV8NUMERIC_TESTS_DECIMAL_TEXT_H

#include <string>

#include "formatting.h"

namespace qv8numeric_tests {

struct DecimalText {
    NumericStatus status;
    std::string text;
};

// What the plain formatter owes for this value; for shifts small enough that the text is short.
DecimalText decimal_text(const Format& format);

// A plain text with a comma before every third digit of its integer part, counted from the right.
std::string with_groups(std::string text);

}  // namespace qv8numeric_tests

#endif
