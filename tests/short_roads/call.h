// SPDX-License-Identifier: MIT
// One call: what goes into it, the memory it works on, and how its arguments are found in there.
#ifndef QV8NUMERIC_TESTS_SHORT_ROADS_CALL_H
#define QV8NUMERIC_TESTS_SHORT_ROADS_CALL_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "qv8numeric.h"

namespace short_roads {

inline constexpr std::size_t kLargestBuffer = 640;
inline constexpr std::size_t kGuard = 32;

enum class BufferPlace { kOfItsOwn, kOverOperand, kOverInfo };

// What goes into a call. The function's parameters take from it what they need, in order, by their types.
struct Call {
    Numeric operands[2] = {};
    NumericInfo infos[3] = {};
    std::int32_t numbers[2] = {};  // places; a factor or a divisor; exponent shift and output scale; an int32 value
    std::int64_t wide_number = 0;
    double real = 0;
    std::string text{};
    bool end_wanted = true;
    std::size_t buffer_size = 0;
    std::uint32_t flag = 0;

    // The objects that hold the operands and receive the result; equal numbers mean the same object.
    int operand_at[2] = {0, 1};
    int result_at = 2;
    BufferPlace buffer_place = BufferPlace::kOfItsOwn;
};

// Each value between words that no call may touch, and none aligned better than has to be.
struct alignas(16) Slot {
    std::uint64_t before;
    Numeric value;
    std::uint64_t after;
};

// A call's memory. The library and the reference get one each, with equal contents.
struct Memory {
    struct Objects {
        Slot numerics[3];
        NumericInfo infos[3];
        std::uint64_t guards[6];
        std::int64_t wide_number;
        double real;
        char* end;
        std::int32_t number;
        std::uint32_t flag;
    } objects;
    char buffer[kGuard + kLargestBuffer + kGuard];

    // Fills everything with rubbish and then puts the operands in place.
    void prepare(const Call& call, bool with_buffer);

    char* buffer_start(const Call& call);
};

// Hands out the arguments of a call: each parameter of the functions is known by its type and its turn.
class Arguments {
  public:
    Arguments(const Call& call, const char* text, Memory& memory) : call_(call), text_(text), memory_(memory) {}

    template <typename T>
    T next();

  private:
    const Call& call_;
    const char* text_;
    Memory& memory_;
    int operands_ = 0;
    int infos_ = 0;
    int numbers_ = 0;
};

// The same turn for turn, in words.
class ArgumentsInWords {
  public:
    explicit ArgumentsInWords(const Call& call) : call_(call) {}

    template <typename T>
    std::string next();

  private:
    const Call& call_;
    int operands_ = 0;
    int infos_ = 0;
    int numbers_ = 0;
};

std::string hexadecimal(std::uint64_t word);

// In decimal and as its two halves.
std::string in_words(const Numeric& value);

std::string status_name(std::int32_t status);

}  // namespace short_roads

#endif
