// SPDX-License-Identifier: MIT
// Drawn calls of every function under memcheck or MemorySanitizer. All memory that a call is not given, its outputs
// included, counts as never written. So what the library decides or returns by a byte that nobody has set is reported,
// and so is an output that is not written though the status says so.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "operations.h"
#include "watched.h"

namespace {

using namespace short_roads;

constexpr std::uint64_t kSeed = 20260801;

// A text in memory of its own, which ends with the NUL for whoever reads.
class Text {
  public:
    explicit Text(const std::string& text) : size_(text.size() + 1), memory_(new char[size_ + kBehind]) {
        std::memcpy(memory_.get(), text.c_str(), size_);
        watched::forbid(memory_.get() + size_, kBehind);
    }
    const char* get() const { return memory_.get(); }

  private:
    static constexpr std::size_t kBehind = 64;
    std::size_t size_;
    std::unique_ptr<char[]> memory_;
};

bool has_own_buffer(const Operation& operation, const Call& call) {
    return operation.writes_text && call.buffer_place == BufferPlace::kOfItsOwn && call.buffer_size <= kLargestBuffer;
}

// Makes a secret of all memory but the arguments.
void hide_all_but_arguments(const Operation& operation, const Call& call, Memory& memory) {
    const bool buffer_elsewhere = operation.writes_text && !has_own_buffer(operation, call);
    for (int i = 0; i < 3; ++i) {
        Slot& slot = memory.objects.numerics[i];
        if (buffer_elsewhere) break;  // over the operand or the descriptor, and beyond them
        watched::forbid(&slot.before, sizeof slot.before);
        watched::forbid(&slot.after, sizeof slot.after);
        if (i == call.operand_at[0] || (operation.takes_two && i == call.operand_at[1])) continue;
        watched::forget(&slot.value, sizeof slot.value);
    }
    for (std::size_t i = operation.infos; i < 3; ++i) watched::forget(&memory.objects.infos[i], sizeof(NumericInfo));
    if (!buffer_elsewhere) watched::forbid(memory.objects.guards, sizeof memory.objects.guards);
    watched::forget(&memory.objects.wide_number, sizeof memory.objects.wide_number);
    watched::forget(&memory.objects.real, sizeof memory.objects.real);
    watched::forget(&memory.objects.end, sizeof memory.objects.end);
    watched::forget(&memory.objects.number, sizeof memory.objects.number);
    if (!has_own_buffer(operation, call)) return;
    watched::forbid(memory.buffer, sizeof memory.buffer);
    watched::forget(memory.buffer_start(call), call.buffer_size);
}

// Of a text: all of it; of one that did not fit, as much as there is room for, but for NaN.
void demand_text(const Call& call, Memory& memory, NumericStatus status) {
    const char* const text = memory.buffer_start(call);
    if (status >= 0) watched::demand(text, std::strlen(text) + 1);
    if (status != NUMERIC_BUFFER_TOO_SMALL || call.buffer_size > kLargestBuffer) return;
    if (call.operands[0].high != INT64_MIN || call.operands[0].low != 0) watched::demand(text, call.buffer_size);
}

void demand_results(const Operation& operation, const Call& call, Memory& memory, std::int32_t status) {
    watched::demand(&status, sizeof status);
    if (operation.reads_text && call.end_wanted && !call.text.empty()) {
        watched::demand(&memory.objects.end, sizeof memory.objects.end);
    }
    if (operation.result == Result::kText) return demand_text(call, memory, status);
    if (status < 0) return;
    switch (operation.result) {
        case Result::kNumeric: return watched::demand(&memory.objects.numerics[call.result_at].value, sizeof(Numeric));
        case Result::kInt32: return watched::demand(&memory.objects.number, sizeof memory.objects.number);
        case Result::kInt64: return watched::demand(&memory.objects.wide_number, sizeof memory.objects.wide_number);
        case Result::kDouble: return watched::demand(&memory.objects.real, sizeof memory.objects.real);
        default: return;
    }
}

void make(const Operation& operation, const Call& call) {
    const auto memory = std::make_unique<Memory>();  // a fresh one, since parts of it become forbidden
    const Text text(call.text);
    memory->prepare(call, operation.writes_text);
    hide_all_but_arguments(operation, call, *memory);
    const std::int32_t status = operation.library(Arguments(call, text.get(), *memory));
    demand_results(operation, call, *memory, status);
}

}  // namespace

int main(int argc, char** argv) {
    const std::uint64_t calls = argc == 2 ? std::strtoull(argv[1], nullptr, 10) : 0;
    if (calls == 0) {
        std::fputs("usage: qv8numeric_memory CALLS\nSo many drawn calls of each function.\n", stderr);
        return 2;
    }
    for (const Operation& operation : operations()) {
        for (std::uint64_t number = 0; number < calls; ++number) {
            Random random(kSeed, number);
            Call call;
            operation.draw(random, call);
            make(operation, call);
        }
    }
    return 0;
}
