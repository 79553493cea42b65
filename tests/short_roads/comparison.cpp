// SPDX-License-Identifier: MIT
#include "comparison.h"

#include <algorithm>
#include <bit>
#include <cstdio>
#include <cstring>

namespace short_roads {
namespace {

// What a successful call leaves behind the text's NUL is its own business.
void clear_behind_text(Memory& memory, const Call& call) {
    char* const start = memory.buffer_start(call);
    const std::size_t used = std::strlen(start) + 1;
    const std::size_t size = std::min(call.buffer_size, kLargestBuffer);
    if (used < size) std::memset(start + used, 0, size - used);
}

std::string outputs(const Operation& operation, const Call& call, const Memory& memory, std::int32_t status,
                    const char* text) {
    std::string words = "status " + status_name(status) + "\n";
    for (const Slot& slot : memory.objects.numerics) words += "    object  " + in_words(slot.value) + "\n";
    words += "    int32   " + std::to_string(memory.objects.number) + "\n";
    words += "    int64   " + std::to_string(memory.objects.wide_number) + "\n";
    char line[64];
    std::snprintf(line, sizeof line, "    double  bits %#018llx\n",
                  static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(memory.objects.real)));
    words += line;
    if (operation.reads_text) words += "    end     at " + std::to_string(memory.objects.end - text) + "\n";
    if (!operation.writes_text) return words;
    words += "    buffer  ";
    const std::size_t size = call.buffer_size <= kLargestBuffer ? call.buffer_size : 0;
    for (const char c : std::string(memory.buffer + kGuard, size))
        words += ' ' <= c && c <= '~' ? c : c == '\0' ? '$' : '?';
    return words + "   ($ is NUL)\n";
}

}  // namespace

bool Comparison::agrees(const Operation& operation, const Call& call) {
    if (operation.reads_text) text_ = text_place_.place(call.text);
    library_memory_.prepare(call, operation.writes_text);
    reference_memory_.prepare(call, operation.writes_text);
    reference_status_ = operation.reference(Arguments(call, text_, reference_memory_));
    library_status_ = operation.library(Arguments(call, text_, library_memory_));
    if (operation.writes_text && reference_status_ >= 0 && library_status_ == reference_status_) {
        clear_behind_text(library_memory_, call);
        clear_behind_text(reference_memory_, call);
    }
    text_kept_ = !operation.reads_text || std::memcmp(text_, call.text.c_str(), call.text.size() + 1) == 0;
    const std::size_t compared = operation.writes_text ? sizeof(Memory) : sizeof(Memory::Objects);
    return text_kept_ && library_status_ == reference_status_ &&
           std::memcmp(&library_memory_, &reference_memory_, compared) == 0;
}

std::string in_words(const Operation& operation, const Call& call) {
    return std::string(operation.name) + "\n" + operation.in_words(ArgumentsInWords(call));
}

std::string Comparison::report(const Operation& operation, const Call& call) const {
    std::string words = in_words(operation, call);
    words += "  library: " + outputs(operation, call, library_memory_, library_status_, text_);
    words += "  reference: " + outputs(operation, call, reference_memory_, reference_status_, text_);
    if (!text_kept_) words += "  the text was changed\n";
    return words;
}

}  // namespace short_roads
