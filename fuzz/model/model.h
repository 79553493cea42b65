// SPDX-License-Identifier: MIT
// Every function of the library a second time, from its meaning: exact integers of any width instead of steps, but
// where the manual makes the steps part of the result. Written from the manual alone; it shares no line with the
// library.
#ifndef QV8NUMERIC_FUZZ_MODEL_H
#define QV8NUMERIC_FUZZ_MODEL_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "outcome.h"

namespace qv8numeric_fuzz::model {

// same_scale.cpp
Outcome add(const Numeric& a, const Numeric& b);
Outcome subtract(const Numeric& a, const Numeric& b);
std::int32_t compare(const Numeric& a, const Numeric& b);

// machine_integer.cpp
Outcome multiply(const Numeric& x, std::int32_t factor);
Outcome divide(const Numeric& x, std::uint32_t mode, std::int32_t divisor);

// places.cpp
Outcome round_to_places(std::int32_t scale, std::int32_t places, std::uint32_t mode, const Numeric& num);
std::int32_t truncated_part(const Numeric& value, std::uint32_t flag);

// rescale.cpp
Outcome rescale(const NumericInfo& from, const NumericInfo& to, const Numeric& source);

// rescaling_add.cpp
Outcome rescaling_add(const NumericInfo& a_info, const NumericInfo& b_info, const NumericInfo& result_info,
                      const Numeric& a, const Numeric& b);
Outcome rescaling_subtract(const NumericInfo& a_info, const NumericInfo& b_info, const NumericInfo& result_info,
                           const Numeric& a, const Numeric& b);

// rescaling_compare.cpp
std::int32_t rescaling_compare(const NumericInfo& a_info, const NumericInfo& b_info, const Numeric& a,
                               const Numeric& b);

// rescaling_multiply.cpp
Outcome rescaling_multiply(const NumericInfo& a_info, const NumericInfo& b_info, const NumericInfo& result_info,
                           const Numeric& a, const Numeric& b);

// rescaling_divide.cpp
Outcome rescaling_divide(const NumericInfo& a_info, const NumericInfo& b_info, const NumericInfo& result_info,
                         const Numeric& a, const Numeric& b);

// text_out.cpp
struct TextOut {
    // What the bytes of the buffer hold afterwards.
    enum class Buffer {
        kUntouched,
        kText,  // characters and a NUL at the start; the bytes behind them are unspecified
        kTail   // characters and a NUL at the end; the bytes before them are untouched
    };
    NumericStatus status;
    Buffer buffer;
    std::string characters;
};
// address is that of the buffer: the size may reach beyond the end of all addresses.
TextOut text_out(const Numeric& value, const NumericInfo& info, std::int32_t exponent_shift, std::int32_t output_scale,
                 bool grouped, std::uintptr_t address, std::size_t size);

// text_in.cpp
struct TextIn {
    Outcome outcome;
    bool end_written;
    std::size_t end;  // the distance from the start of the text
};
TextIn text_in(const char* text, const NumericInfo& info, bool grouped);

// doubles.cpp
struct DoubleOutcome {
    NumericStatus status;
    bool written;
    std::uint64_t bits;
};
Outcome from_double(const NumericInfo& info, std::uint64_t bits);
DoubleOutcome to_double(const Numeric& in, const NumericInfo& info);

// integers.cpp
struct IntegerOutcome {
    NumericStatus status;
    std::int64_t value;
};
Outcome from_integer(std::int64_t value, const NumericInfo& info);
IntegerOutcome to_int64(const Numeric& in, const NumericInfo& info);
IntegerOutcome to_int32(const Numeric& in, const NumericInfo& info);

}  // namespace qv8numeric_fuzz::model

#endif
