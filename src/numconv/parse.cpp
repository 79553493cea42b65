// SPDX-License-Identifier: MIT
// A Numeric from text.
#include "numconv/literal.h"
#include "wide/narrowing.h"

namespace qv8numeric {
namespace {

// Behind an exponent marker the pending digits are the exponent, else the last ones of the mantissa.
int64_t take_exponent(NumberParseState& state) {
    if (!has(state, exponent_marker_seen)) {
        flush_chunk(state);
        return 0;
    }
    return has(state, exponent_negative) ? -int64_t{state.chunk} : int64_t{state.chunk};
}

NumericStatus parse(const char* text, const NumericInfo& info, Numeric& result, char** end, NumberFormatMode mode) {
    if (*text == '\0') {  // an empty field reads as NaN and is no error; end stays untouched
        result = nan_pattern;
        return NUMERIC_OK;
    }
    NumberParseState state{};
    state.cursor = text;
    state.mode = mode;
    const bool accepted = read_literal(state);
    if (end != nullptr) *end = const_cast<char*>(accepted ? state.token_start : text);
    if (!accepted) return NUMERIC_SYNTAX_ERROR;

    const int64_t literal_scale = state.fraction_digits - state.digits_dropped - take_exponent(state);
    return scale_round_narrow(state.accumulator, state.negative != 0, info.scale - literal_scale, info.rounding_mode,
                              state.overflow, result);
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericStr2Num(const char* text, const NumericInfo* info, Numeric* result,
                                           char** end) noexcept {
    return parse(text, *info, *result, end, format_plain);
}

extern "C" NumericStatus QV8NumericDgstr2Num(const char* text, const NumericInfo* info, Numeric* result,
                                             char** end) noexcept {
    return parse(text, *info, *result, end, format_grouped);
}
