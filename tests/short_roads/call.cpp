// SPDX-License-Identifier: MIT
#include "call.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cinttypes>
#include <cstdio>
#include <cstring>

#include "reference/limbs.h"

namespace short_roads {
namespace {

// No two bytes in a row are the same, and no call returns 16 of them by chance.
constexpr auto kRubbish = [] {
    std::array<char, sizeof(Memory)> bytes{};
    unsigned next = 41;
    for (char& byte : bytes) {
        next = (next * 141 + 28411) % 134456;
        byte = static_cast<char>(static_cast<int>(next % 251) - 125);
    }
    return bytes;
}();

std::size_t index(int& turn) { return static_cast<std::size_t>(turn++); }

std::string escaped(const std::string& text) {
    std::string result = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        result += ' ' <= c && c <= '~' ? std::string(1, c) : "\\x" + hexadecimal(byte).substr(14);
    }
    return result + "\"";
}

}  // namespace

void Memory::prepare(const Call& call, bool with_buffer) {
    std::memcpy(&objects, kRubbish.data(), sizeof objects);
    if (with_buffer) std::memcpy(buffer, kRubbish.data() + sizeof objects, sizeof buffer);
    for (std::size_t i = 0; i < 2; ++i) objects.numerics[call.operand_at[i]].value = call.operands[i];
    std::copy_n(call.infos, 3, objects.infos);
    objects.flag = call.flag;
}

char* Memory::buffer_start(const Call& call) {
    switch (call.buffer_place) {
        case BufferPlace::kOverOperand: return reinterpret_cast<char*>(&objects.numerics[0].value);
        case BufferPlace::kOverInfo: return reinterpret_cast<char*>(objects.infos);
        default: return buffer + kGuard;
    }
}

template <>
const Numeric* Arguments::next() {
    return &memory_.objects.numerics[call_.operand_at[operands_++]].value;
}
template <>
const Numeric& Arguments::next() {
    return *next<const Numeric*>();
}
template <>
Numeric* Arguments::next() {
    return &memory_.objects.numerics[call_.result_at].value;
}
template <>
const NumericInfo* Arguments::next() {
    return &memory_.objects.infos[infos_++];
}
template <>
std::int32_t Arguments::next() {
    return call_.numbers[index(numbers_)];
}
template <>
std::int64_t Arguments::next() {
    return call_.wide_number;
}
template <>
double Arguments::next() {
    return call_.real;
}
template <>
std::uint32_t& Arguments::next() {
    return memory_.objects.flag;
}
template <>
std::int32_t* Arguments::next() {
    return &memory_.objects.number;
}
template <>
std::int64_t* Arguments::next() {
    return &memory_.objects.wide_number;
}
template <>
double* Arguments::next() {
    return &memory_.objects.real;
}
template <>
const char* Arguments::next() {
    return text_;
}
template <>
char** Arguments::next() {
    return call_.end_wanted ? &memory_.objects.end : nullptr;
}
template <>
char* Arguments::next() {
    return memory_.buffer_start(call_);
}
template <>
std::size_t Arguments::next() {
    return call_.buffer_size;
}

template <>
std::string ArgumentsInWords::next<const Numeric*>() {
    const std::size_t turn = index(operands_);
    return "object " + std::to_string(call_.operand_at[turn]) + ": " + in_words(call_.operands[turn]);
}
template <>
std::string ArgumentsInWords::next<const Numeric&>() {
    return next<const Numeric*>();
}
template <>
std::string ArgumentsInWords::next<Numeric*>() {
    const std::string place = "result in object " + std::to_string(call_.result_at);
    return call_.result_at == call_.operand_at[0] ? place + ", over " + in_words(call_.operands[0]) : place;
}
template <>
std::string ArgumentsInWords::next<const NumericInfo*>() {
    static constexpr const char* kNames[] = {"UP", "DOWN", "CEILING", "FLOOR", "HALF_UP", "HALF_DOWN", "HALF_EVEN"};
    const NumericInfo& info = call_.infos[index(infos_)];
    const std::uint32_t mode = info.rounding_mode;
    return "scale " + std::to_string(info.scale) + ", mode " + std::to_string(mode) + " " +
           (mode <= 6 ? kNames[mode] : "(invalid)");
}
template <>
std::string ArgumentsInWords::next<std::int32_t>() {
    return std::to_string(call_.numbers[index(numbers_)]);
}
template <>
std::string ArgumentsInWords::next<std::int64_t>() {
    return std::to_string(call_.wide_number);
}
template <>
std::string ArgumentsInWords::next<double>() {
    char text[80];
    std::snprintf(text, sizeof text, "%.17g = %a = bits ", call_.real, call_.real);
    return text + hexadecimal(std::bit_cast<std::uint64_t>(call_.real));
}
template <>
std::string ArgumentsInWords::next<std::uint32_t&>() {
    return "flag " + std::to_string(call_.flag);
}
template <>
std::string ArgumentsInWords::next<std::int32_t*>() {
    return "an int32";
}
template <>
std::string ArgumentsInWords::next<std::int64_t*>() {
    return "an int64";
}
template <>
std::string ArgumentsInWords::next<double*>() {
    return "a double";
}
template <>
std::string ArgumentsInWords::next<const char*>() {
    return escaped(call_.text);
}
template <>
std::string ArgumentsInWords::next<char**>() {
    return call_.end_wanted ? "end" : "no end";
}
template <>
std::string ArgumentsInWords::next<char*>() {
    static constexpr const char* kPlaces[] = {"", " over the operand", " over the descriptor"};
    return std::string("a buffer") + kPlaces[static_cast<std::size_t>(call_.buffer_place)];
}
template <>
std::string ArgumentsInWords::next<std::size_t>() {
    return std::to_string(call_.buffer_size) + " bytes";
}

std::string hexadecimal(std::uint64_t word) {
    char text[20];
    std::snprintf(text, sizeof text, "%016" PRIx64, word);
    return text;
}

std::string in_words(const Numeric& value) {
    const std::string halves =
        " (high " + hexadecimal(static_cast<std::uint64_t>(value.high)) + ", low " + hexadecimal(value.low) + ")";
    if (reference::is_nan(value)) return "NaN" + halves;
    std::string digits;
    reference::Limbs rest = reference::magnitude(value);
    do digits += static_cast<char>('0' + reference::divide(rest, 10));
    while (!reference::is_zero(rest));
    if (reference::is_negative(value)) digits += '-';
    return std::string(digits.rbegin(), digits.rend()) + halves;
}

std::string status_name(std::int32_t status) {
    static constexpr const char* kNames[] = {"INVALID_ARGUMENT", "BUFFER_TOO_SMALL", "SYNTAX_ERROR", "OK", "NAN",
                                             "INEXACT",          "OVERFLOW",         "UNDERFLOW"};
    const bool known = -3 <= status && status <= 4;
    return std::to_string(status) + (known ? std::string(" (") + kNames[status + 3] + ")" : "");
}

}  // namespace short_roads
