// SPDX-License-Identifier: MIT
// The arguments of a call, from the bytes of an input. Each field takes a number of bytes that does not depend on what
// they are: a selector, which picks a kind of value worth trying, and a payload, which makes one of that kind. So a
// mutation of one field leaves the others as they are.
#ifndef QV8NUMERIC_FUZZ_FIELDS_H
#define QV8NUMERIC_FUZZ_FIELDS_H

#include <cstdint>
#include <span>

#include "source.h"
#include "wide.h"

namespace qv8numeric_fuzz {

// Coefficients of every length; powers of two and ten and their neighbours; multiples of 10^places, ties between them
// and values next to either; the largest that survives being multiplied by 10^-places; NaN. Where places is 0, or now
// and then all the same, the payload picks one.
Numeric coefficient(Source& source, std::int64_t places = 0);

// -2, -1, 0, 1 or 2: what is added to a special value to get to its neighbours.
int neighbour(std::uint8_t byte);

// value as a coefficient with that sign; kept as it is when value is out of range.
Numeric replaced(const Numeric& kept, const Wide& value);

// -2^31 .. 2^31 - 1: all of them, and more often small ones, powers and limits.
std::int32_t machine_integer(Source& source);
std::int64_t machine_integer_64(Source& source);

// Mostly 0 .. 20, then -10 .. 50, -150 .. 150, and the limits of the type with what lies near them.
std::int32_t scale(Source& source);

// Mostly valid.
std::uint32_t mode(Source& source);

// Descriptors that belong to one call: often of one scale, or near one another at the limits of the type.
void descriptors(Source& source, std::span<NumericInfo> infos);
NumericInfo descriptor(Source& source);

}  // namespace qv8numeric_fuzz

#endif
