// SPDX-License-Identifier: MIT
// Texts to be read as numbers.
#ifndef QV8NUMERIC_FUZZ_LITERALS_H
#define QV8NUMERIC_FUZZ_LITERALS_H

#include <string>

#include "source.h"

namespace qv8numeric_fuzz {

// Bytes as they are; characters of numbers in any order; pieces such as ",000" and "E-" in any order; or literals made
// by the rules, with digits at the limits. NULs may be among them.
std::string number_text(Source& source);

}  // namespace qv8numeric_fuzz

#endif
