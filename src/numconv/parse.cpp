// SPDX-License-Identifier: MIT
// A Numeric from text.
#include "numconv/literal.h"
#include "wide/narrowing.h"

namespace qv8numeric {
namespace {

// The literal is accumulator * 10^-scale, read to its end; the pending digits join the accumulator.
int64_t literal_scale(NumberParseState& state) {
    int64_t exponent = 0;
    if (has(state, exponent_marker_seen)) {
        exponent = has(state, exponent_negative) ? -int64_t{state.chunk} : int64_t{state.chunk};
    } else {
        flush_chunk(state);
    }
    return state.fraction_digits - state.digits_dropped - exponent;
}

NumericStatus parse(const char* text, const NumericInfo& info, Numeric& result, char** end, NumberFormatMode mode) {
    if (*text == '\0') {  // an empty field reads as NaN and is no error; end stays untouched
        result = nan_pattern;
        return NUMERIC_OK;
    }
    NumberParseState state{};
    state.cursor = text;
    state.mode = mode;
    const bool accepted = numparse_yyparse(&state) == 0;
    if (end != nullptr) *end = const_cast<char*>(accepted ? state.token_start : text);
    if (!accepted) return NUMERIC_SYNTAX_ERROR;

    const int64_t places = info.scale - literal_scale(state);
    return scale_round_narrow(state.accumulator, state.negative != 0, places, info.rounding_mode, state.overflow, result);
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
