// SPDX-License-Identifier: MIT
// Functions of the library by name, with words of 64 bits going in and coming out.
#ifndef QV8NUMERIC_PROOFS_COMPILED_H
#define QV8NUMERIC_PROOFS_COMPILED_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "wide/extended_numeric.h"

namespace qv8numeric_proofs {

using Words = std::vector<std::uint64_t>;

struct Function {
    const char* name;
    std::size_t arguments;
    Words (*call)(const std::uint64_t* argument);
};

// Those that only their own file can see.
const std::vector<Function>& functions_of_from_double();
const std::vector<Function>& functions_of_to_double();

// Argument pairs have the upper word first, vectors of four the lowest.
inline qv8numeric::WordPair pair_at(const std::uint64_t* argument) { return {argument[0], argument[1]}; }
inline ExtendedNumeric four_at(const std::uint64_t* argument) {
    return {{argument[0], argument[1], argument[2], argument[3]}};
}
inline Words words(qv8numeric::WordPair x) { return {x.high, x.low}; }
inline Words words(const ExtendedNumeric& x) { return {x.word[0], x.word[1], x.word[2], x.word[3]}; }

}  // namespace qv8numeric_proofs

#endif
