// SPDX-License-Identifier: MIT
#include <string>
#include <vector>

#include "operands.h"
#include "reference/reference.h"
#include "reference/rounding.h"
#include "walk.h"

namespace short_roads {
namespace {

// The smallest and the largest number of so many digits, and one in between.
std::vector<Limbs> numbers_of_length(int length) {
    std::vector<Limbs> list{power_of_ten(length - 1), power_of_ten(length - 1), power_of_ten(length)};
    reference::multiply(list[1], 7);
    nudge(list[1], 6);
    nudge(list[2], -1);
    if (length == 1) list.push_back(Limbs{});
    for (Limbs& x : list) {
        if (!reference::in_range(x)) {
            x = power_of_two(127);
            nudge(x, -1);
        }
    }
    return list;
}

// Into every size of buffer from none to one more than enough.
void format_everywhere(const Visit& visit, Call& call) {
    for (const char* name : {"Num2Str", "Num2Dgstr"}) {
        const Operation& operation = operation_named(name);
        std::int32_t status = NUMERIC_BUFFER_TOO_SMALL;
        Memory memory;
        for (call.buffer_size = 0; status == NUMERIC_BUFFER_TOO_SMALL; ++call.buffer_size) {
            memory.prepare(call, true);
            status = operation.reference(Arguments(call, nullptr, memory));
            visit(operation, call);
        }
        visit(operation, call);
    }
}

void walk_text_out(const Visit& visit) {
    for (int length = 1; length <= 39; ++length) {
        for (const Limbs& magnitude : numbers_of_length(length)) {
            for (const bool negative : {false, true}) {
                for (const std::int32_t output_scale : {-1, 0, 2, length - 1, length, length + 3}) {
                    for (const std::int32_t exponent_shift : {0, 2, -4}) {
                        Call call;
                        call.operands[0] = reference::signed_numeric(magnitude, negative);
                        call.infos[0] = {output_scale, NUMERIC_ROUND_HALF_EVEN};
                        call.numbers[0] = exponent_shift;
                        call.numbers[1] = output_scale;
                        format_everywhere(visit, call);
                    }
                }
            }
        }
    }
}

std::string counting(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += static_cast<char>('1' + i % 9);
    return text;
}

void read(const Visit& visit, const std::string& text, std::int32_t scale) {
    Call call;
    call.text = text;
    call.infos[0] = {scale, NUMERIC_ROUND_HALF_EVEN};
    visit(operation_named("Str2Num"), call);
    visit(operation_named("Dgstr2Num"), call);
}

// A negative number of places is no point at all.
void walk_literals(const Visit& visit, int whole, int places) {
    for (const char* before : {"", "-", "+", "0", "00", "-000"}) {
        for (const char* behind : {"", "x", ",", "e", "E2", "e-1"}) {
            std::string fraction;
            if (places >= 0) fraction.append(1, '.').append(counting(places));
            const std::string text = before + counting(whole) + fraction + behind;
            read(visit, text, places < 0 ? 0 : places);
            read(visit, text, places - 2);
        }
    }
}

void walk_text_in(const Visit& visit) {
    for (int whole = 0; whole <= 48; ++whole) {
        for (int places = -1; places <= 48; ++places) walk_literals(visit, whole, places);
    }
}

}  // namespace

void walk_texts(const Visit& visit) {
    walk_text_out(visit);
    walk_text_in(visit);
}

}  // namespace short_roads
