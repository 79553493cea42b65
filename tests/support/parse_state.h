// SPDX-License-Identifier: MIT
// The state that the lexer and the grammar of literals work on, set up for a text and told apart afterwards.
#ifndef QV8NUMERIC_TESTS_PARSE_STATE_H
#define QV8NUMERIC_TESTS_PARSE_STATE_H

#include <algorithm>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>

#include "numconv/literal.h"
#include "wide_values.h"

namespace qv8numeric_tests {

// A text in a block of its own that ends with the NUL, so that a sanitizer finds a read beyond it.
class Text {
  public:
    explicit Text(std::string_view text) : characters_(new char[text.size() + 1]) {
        std::copy(text.begin(), text.end(), characters_.get());
        characters_[text.size()] = '\0';
    }
    const char* begin() const { return characters_.get(); }

  private:
    std::unique_ptr<char[]> characters_;
};

inline std::string token_name(int token) {
    using namespace qv8numeric;
    switch (token) {
        case TOK_END: return "END";
        case TOK_POINT: return "POINT";
        case TOK_SIGN: return "SIGN";
        case TOK_LONG_DIGITS: return "LONG";
        case TOK_SHORT_DIGITS: return "SHORT";
        case TOK_GROUPS: return "GROUPS";
        case TOK_EXP: return "EXP";
        case TOK_BAD: return "BAD";
        default: return std::to_string(token);
    }
}

struct NamedFlag {
    unsigned bit;
    const char* name;
};

inline constexpr NamedFlag kLiteralFlags[] = {
    {1, "marker"}, {2, "point"},      {4, "exp-negative"}, {8, "begun"},
    {16, "run"},   {32, "exp-begun"}, {64, "exp-digits"},  {128, "unknown"},
};

// What differs between two states: "held=2 chunk=12/2 +begun", the chunk with its number of digits.
inline std::string changes(const NumberParseState& before, const NumberParseState& after) {
    std::ostringstream out;
    if (after.digits_held != before.digits_held) out << " held=" << after.digits_held;
    if (after.digits_dropped != before.digits_dropped) out << " dropped=" << after.digits_dropped;
    if (after.fraction_digits != before.fraction_digits) out << " fraction=" << after.fraction_digits;
    if (after.chunk != before.chunk || after.chunk_digits != before.chunk_digits) {
        out << " chunk=" << after.chunk << '/' << after.chunk_digits;
    }
    if (!(after.accumulator == before.accumulator)) out << " accumulator=" << after.accumulator;
    if (after.negative != before.negative) out << " negative=" << after.negative;
    if (after.overflow != before.overflow) out << " overflow=" << after.overflow;
    if (after.mode != before.mode) out << " mode=" << after.mode;
    for (const NamedFlag& flag : kLiteralFlags) {
        const bool was = (before.flags & flag.bit) != 0;
        const bool is = (after.flags & flag.bit) != 0;
        if (is != was) out << (is ? " +" : " -") << flag.name;
    }
    return out.str();
}

inline NumberParseState state_at(const Text& text, qv8numeric::NumberFormatMode mode) {
    NumberParseState state{};
    state.cursor = text.begin();
    state.mode = mode;
    return state;
}

}  // namespace qv8numeric_tests

#endif
