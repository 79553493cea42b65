// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>

#include "draw.h"
#include "operands.h"
#include "reference/reference.h"

namespace short_roads {
namespace {

// Often where a word, a step of the lexer or the digits that it holds come to an end.
int digit_count(Random& random, int most) {
    static constexpr int kEdges[] = {1,  2,  3,  4,  7,  8,  9,  15, 16, 17, 18, 19,
                                     20, 36, 37, 38, 39, 40, 41, 42, 43, 44, 45};
    const int count = random.percent(50) ? random.pick(kEdges) : random.small(0, most);
    return std::min(count, most);
}

std::string digits(Random& random, int count) {
    std::string text;
    const char filler = static_cast<char>('0' + random.below(10));
    const bool plain = random.percent(80);
    for (int i = 0; i < count; ++i) text += plain ? static_cast<char>('0' + random.below(10)) : filler;
    return text;
}

std::string zeros_and_digits(Random& random) {
    const std::string zeros(random.percent(70) ? 0 : static_cast<std::size_t>(digit_count(random, 50)), '0');
    return zeros + digits(random, digit_count(random, 60));
}

std::string grouped(const std::string& plain) {
    std::string text;
    for (std::size_t i = 0; i < plain.size(); ++i) {
        if (i != 0 && (plain.size() - i) % 3 == 0) text += ',';
        text += plain[i];
    }
    return text;
}

std::string exponent(Random& random) {
    static constexpr const char* kMarkers[] = {"e", "E"};
    static constexpr const char* kSigns[] = {"", "", "-", "+"};
    static constexpr const char* kFar[] = {"2147483647",  "2147483648", "2147483649", "4294967296",
                                           "99999999999", "1000",       "0000",       "00000005",
                                           "1,000",       "5E",         "05E3",       ""};
    const std::string marker = random.pick(kMarkers);
    const std::string sign = random.pick(kSigns);
    return marker + sign + (random.percent(70) ? std::to_string(random.below(50)) : random.pick(kFar));
}

// What may follow a literal, or break it.
std::string rest(Random& random) {
    static constexpr const char* kRests[] = {"abc", " ", ",", ",123", ",12", ",1234", ".",    ".5",
                                             "-",   "+", "e", "E5",   "/",   ":",     "\xff", "\n"};
    return random.pick(kRests);
}

std::string soup(Random& random) {
    static constexpr char kAlphabet[] = "0123456789000111,,,..eE+--x ";
    std::string text;
    for (std::uint64_t left = random.below(24); left > 0; --left) text += kAlphabet[random.below(sizeof kAlphabet - 1)];
    return text;
}

struct Literal {
    std::string text;
    int places;  // a scale at which digits are about to be dropped
};

// sign digits point digits exponent, where each may be missing.
Literal draw_literal(Random& random, bool with_groups) {
    static constexpr const char* kSigns[] = {"", "", "", "-", "-", "+"};
    const std::string whole = zeros_and_digits(random);
    const std::string fraction = random.percent(40) ? "" : zeros_and_digits(random);
    std::string text = random.pick(kSigns);
    text += with_groups && random.percent(60) ? grouped(whole) : whole;
    if (!fraction.empty() || random.percent(10)) text += "." + fraction;
    if (random.percent(20)) text += exponent(random);
    return {text, static_cast<int>(fraction.size())};
}

// A coefficient near an edge with its point, so that it is read at the edge or rounded near a tie.
Literal draw_coefficient(Random& random, bool with_groups) {
    char text[64];
    const Numeric value = shaped_coefficient(random).value;
    const NumericInfo info{random.small(0, 45), NUMERIC_ROUND_DOWN};
    (with_groups ? reference::to_grouped_text : reference::to_text)(&value, &info, 0, info.scale, text, sizeof text);
    return {text, info.scale};
}

// The digits that are kept, and behind them a tie or an exact value, or what differs from that in a single digit;
// around the numbers of digits that are held.
Literal draw_tied_literal(Random& random, bool with_groups) {
    const std::string kept = random.percent(20) ? "" : digits(random, random.small(1, 39));
    const std::size_t count = static_cast<std::size_t>(random.percent(50) ? random.small(36, 48) : random.small(1, 60));
    std::string dropped(count > kept.size() ? count - kept.size() : 1, '0');
    dropped[0] = "0455"[random.below(4)];
    if (dropped[0] == '4') std::fill(dropped.begin() + 1, dropped.end(), '9');
    if (random.percent(70)) dropped[random.below(dropped.size())] = "123456789"[random.below(9)];
    std::string text = kept + dropped;
    const std::size_t whole = random.below(text.size() + 1);
    const std::string sign = random.percent(50) ? "" : "-";
    const std::string integer = text.substr(0, whole);
    text = sign + (with_groups ? grouped(integer) : integer) + "." + text.substr(whole);
    return {text, static_cast<int>(kept.size()) - static_cast<int>(whole)};
}

void draw_literal_call(Random& random, Call& call, bool with_groups) {
    const std::uint64_t kind = random.below(100);
    Literal literal{"", 0};
    if (kind < 35) literal = draw_coefficient(random, with_groups);
    if (35 <= kind && kind < 55) literal = draw_tied_literal(random, with_groups);
    if (55 <= kind && kind < 92) literal = draw_literal(random, with_groups);
    if (92 <= kind && kind < 99) literal.text = soup(random);
    call.text = literal.text;
    if (random.percent(20)) call.text += rest(random);
    if (random.percent(5) && !call.text.empty()) call.text[random.below(call.text.size())] = rest(random)[0];
    std::int64_t dropped = random.percent(60) ? random.between(-3, 8) : scale_distance(random);
    if (random.percent(40)) dropped = 0;
    call.infos[0] = {random.percent(90) ? moved(literal.places, -dropped) : scale(random), mode(random)};
    call.end_wanted = random.percent(90);
}

// One too small for the text, just large enough or a little larger; or any size.
std::size_t draw_buffer_size(Random& random, const Call& call) {
    if (random.percent(2)) return SIZE_MAX - random.below(2);
    if (random.percent(40)) return random.below(random.percent(90) ? 64 : kLargestBuffer + 1);
    char text[kLargestBuffer];
    const bool grouped = random.percent(50);
    const auto format = grouped ? reference::to_grouped_text : reference::to_text;
    const NumericStatus status =
        format(&call.operands[0], &call.infos[0], call.numbers[0], call.numbers[1], text, sizeof text);
    if (status < 0) return kLargestBuffer;
    const std::size_t length = std::string(text).size();
    return length + random.below(std::min<std::size_t>(4, kLargestBuffer - length + 1));
}

}  // namespace

void draw_text_out(Random& random, Call& call) {
    static constexpr std::int32_t kFar[] = {INT32_MIN, INT32_MAX, INT32_MIN + 1, 10000,
                                            -10000,    99999999,  -100000000,    12345};
    const ShapedNumeric operand = shaped_coefficient(random);
    call.operands[0] = operand.value;
    call.infos[0] = {scale(random), mode(random)};
    const std::int64_t cut = random.percent(70) ? operand.digits : scale_distance(random);
    const std::int64_t distance = random.percent(40) ? 0 : random.percent(60) ? -cut : random.between(0, 45);
    call.numbers[1] = moved(call.infos[0].scale, distance);
    if (random.percent(40)) call.numbers[0] = random.small(-60, 60);
    if (random.percent(3)) call.numbers[0] = random.pick(kFar);
    if (random.percent(10)) call.numbers[1] = scale(random);
    call.buffer_size = draw_buffer_size(random, call);
    if (call.buffer_size > 40 || random.percent(90)) return;
    call.buffer_place = random.percent(50) ? BufferPlace::kOverOperand : BufferPlace::kOverInfo;
}

void draw_text_in(Random& random, Call& call) { draw_literal_call(random, call, random.percent(10)); }

void draw_grouped_text_in(Random& random, Call& call) { draw_literal_call(random, call, random.percent(70)); }

}  // namespace short_roads
