// SPDX-License-Identifier: MIT
#include "operations.h"

#include "short_roads/operations.h"

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstring>

#include "text_at_page_end.h"

namespace machines {
namespace {

using short_roads::Call;
using short_roads::kGuard;
using short_roads::kLargestBuffer;
using short_roads::Memory;
using short_roads::Operation;

constexpr std::uint64_t kSeed = 20260101;

// What outputs hold before the call. As numbers, where Memory::prepare fills bytes.
constexpr std::uint64_t kUntouched = 0x5aa569963cc3f00f;
constexpr char kUntouchedByte = '#';
char untouched_end;

void prepare(const Operation& operation, const Call& call, Memory& memory) {
    memory.prepare(call, false);
    Memory::Objects& objects = memory.objects;
    for (int i = 0; i < 3; ++i) {
        if (i == call.operand_at[0] || i == call.operand_at[1]) continue;
        objects.numerics[i].value = {kUntouched, static_cast<std::int64_t>(~kUntouched)};
    }
    objects.number = static_cast<std::int32_t>(kUntouched);
    objects.wide_number = static_cast<std::int64_t>(kUntouched);
    objects.real = std::bit_cast<double>(kUntouched);
    objects.end = &untouched_end;
    if (operation.writes_text) std::memset(memory.buffer, kUntouchedByte, sizeof memory.buffer);
}

// All NaN count as one, since a register of an x87 makes a signalling one quiet on the way into the call.
std::uint64_t bits_of_argument(double x) { return std::isnan(x) ? UINT64_MAX : std::bit_cast<std::uint64_t>(x); }

// Sizes beyond every buffer count from the end of the address space, wherever that is.
std::uint64_t size_of_argument(std::size_t size) {
    return size <= kLargestBuffer ? size : UINT64_MAX - (SIZE_MAX - size);
}

void add_arguments(const Call& call, Digest& digest) {
    for (const Numeric& operand : call.operands) digest.add(operand);
    for (const NumericInfo& info : call.infos) digest.add(info);
    for (const std::int32_t number : call.numbers) digest.add_signed(number);
    digest.add_signed(call.wide_number);
    digest.add(bits_of_argument(call.real));
    digest.add(call.text.data(), call.text.size());
    digest.add(size_of_argument(call.buffer_size));
    digest.add(call.flag);
    digest.add(call.end_wanted ? 1 : 0);
    for (const int place : call.operand_at) digest.add_signed(place);
    digest.add_signed(call.result_at);
}

// The text and its NUL; where there is none, all of the buffer.
void add_buffer(const Call& call, std::int32_t status, Memory& memory, Digest& digest) {
    const char* const start = memory.buffer + kGuard;
    const std::size_t size = call.buffer_size <= kLargestBuffer ? call.buffer_size : 0;
    digest.add(start, status >= 0 ? std::strlen(start) : size);
}

void add_answer(const Operation& operation, const Call& call, const char* text, std::int32_t status, Memory& memory,
                Digest& digest) {
    const Memory::Objects& objects = memory.objects;
    digest.add_signed(status);
    for (const short_roads::Slot& slot : objects.numerics) digest.add(slot.value);
    digest.add_signed(objects.number);
    digest.add_signed(objects.wide_number);
    digest.add(std::bit_cast<std::uint64_t>(objects.real));
    digest.add_signed(objects.end == &untouched_end ? -1 : objects.end - text);
    digest.add(objects.flag);
    if (operation.writes_text) add_buffer(call, status, memory, digest);
}

}  // namespace

void print_operations(std::uint64_t cases, Table& table) {
    qv8numeric_tests::TextAtPageEnd text_place;
    Memory memory;
    std::uint64_t seed = kSeed;
    for (const Operation& operation : short_roads::operations()) {
        Row row(operation.name);
        for (++seed; row.calls < cases; ++row.calls) {
            short_roads::Random random(seed, row.calls);
            Call call;
            operation.draw(random, call);
            call.buffer_place = short_roads::BufferPlace::kOfItsOwn;  // the bytes of operands are a machine's own
            add_arguments(call, row.arguments);
            prepare(operation, call, memory);
            const char* const text = text_place.place(call.text);
            const std::int32_t status = operation.library(short_roads::Arguments(call, text, memory));
            add_answer(operation, call, text, status, memory, row.answers);
        }
        table.print(row);
    }
}

}  // namespace machines
