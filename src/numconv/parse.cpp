// SPDX-License-Identifier: MIT
// A Numeric from text, on the shortest of three roads: digits that fit eight characters, a short literal, any literal.
// Each hands on what it cannot be sure of.
#include "numconv/literal.h"
#include "numconv/short_literal.h"
#include "wide/narrowing.h"

namespace qv8numeric {
namespace {

// ---- Any literal, by lexer and grammar ----

// Behind an exponent marker the pending digits are the exponent, else the last ones of the mantissa.
int64_t exponent_of(NumberParseState& state) {
    if (!has(state, exponent_marker_seen)) {
        flush_chunk(state);
        return 0;
    }
    return has(state, exponent_negative) ? -int64_t{state.chunk} : int64_t{state.chunk};
}

template <NumberFormatMode mode>
QV8NUMERIC_ASIDE NumericStatus parse_any(const char* text, const NumericInfo* info, Numeric* result, char** end) {
    if (*text == '\0') {  // an empty field reads as NaN and is no error; end stays untouched
        *result = nan_pattern;
        return NUMERIC_OK;
    }
    NumberParseState state{};
    state.cursor = text;
    state.mode = mode;
    const bool accepted = read_literal(state);
    if (end != nullptr) *end = const_cast<char*>(accepted ? state.token_start : text);
    if (!accepted) return NUMERIC_SYNTAX_ERROR;

    const int64_t literal_scale = state.fraction_digits - state.digits_dropped - exponent_of(state);
    return scale_round_narrow(state.accumulator, state.negative != 0, info->scale - literal_scale, info->rounding_mode,
                              state.overflow, *result);
}

// ---- The short roads ----

QV8NUMERIC_ASIDE NumericStatus finish_aside(WordPair digits, bool negative, int64_t places, uint32_t mode,
                                            Numeric& result) {
    return finish(digits, negative, places, mode, result);
}

// Most literals have the scale of the result.
inline NumericStatus finish_short(WordPair digits, bool negative, int64_t places, uint32_t mode, Numeric& result) {
    if (places != 0 || !is_rounding_mode(mode)) return finish_aside(digits, negative, places, mode, result);
    result = with_sign(digits, negative);
    return NUMERIC_OK;
}

// The digits between the sign and `start` are read already: eight or none, and make `number`.
template <NumberFormatMode mode>
QV8NUMERIC_ASIDE NumericStatus parse_short(const char* text, const NumericInfo* info, Numeric* result, char** end,
                                           const char* start, uint64_t number) {
    const bool negative = *text == '-';
    const char* const begin = behind_sign(text);
    Mantissa mantissa{start, {0, number}, static_cast<uint64_t>(start - begin)};
    if (mode == format_grouped) take_grouped_integer(mantissa);
    if (mantissa.at == begin) skip_zeros(mantissa);
    take_digits(mantissa);

    const bool has_digits = mantissa.at - begin > int{mantissa.fraction != nullptr};
    const char* at = mantissa.at;
    int64_t exponent = 0;
    const bool is_short = has_digits && mantissa.count <= most_short_digits && take_exponent(at, exponent);
    if (!is_short || (mode == format_grouped && *at == ',')) return parse_any<mode>(text, info, result, end);
    if (end != nullptr) *end = const_cast<char*>(at);
    return finish_short(mantissa.digits, negative, info->scale - mantissa.fraction_digits() + exponent,
                        info->rounding_mode, *result);
}

template <NumberFormatMode mode>
inline NumericStatus parse(const char* text, const NumericInfo* info, Numeric* result, char** end) {
    const bool negative = *text == '-';
    const char* const begin = behind_sign(text);
    if (mode == format_grouped || !has_eight(begin)) return parse_short<mode>(text, info, result, end, begin, 0);

    const uint64_t characters = load_eight(begin);
    const Matched matched = match_digits(characters);
    if (matched.misses == 0) {
        return parse_short<mode>(text, info, result, end, begin + 8, number_of(matched.values));
    }
    const Front front = front_of(characters, true);
    const char* const at = begin + front.size();
    if (front.digits == 0 || is_decimal_digit(*at) || is_exponent_marker(*at)) {
        return parse_short<mode>(text, info, result, end, begin, 0);
    }
    if (end != nullptr) *end = const_cast<char*>(at);
    return finish_short({0, front.number}, negative, int64_t{info->scale} - front.behind_point(), info->rounding_mode,
                        *result);
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericStr2Num(const char* text, const NumericInfo* info, Numeric* result,
                                           char** end) noexcept {
    return parse<format_plain>(text, info, result, end);
}

extern "C" NumericStatus QV8NumericDgstr2Num(const char* text, const NumericInfo* info, Numeric* result,
                                             char** end) noexcept {
    return parse<format_grouped>(text, info, result, end);
}
