// SPDX-License-Identifier: MIT
#include "comparison.h"

#include <algorithm>
#include <bit>
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

// One line when both left the same, two otherwise.
std::string outcome(const std::string& name, const std::string& library, const std::string& reference) {
    if (library == reference) return "    " + name + "   both " + library + "\n";
    return "    " + name + "   LIBRARY   " + library + "\n    " + name + "   REFERENCE " + reference + "\n";
}

std::string bits(double x) { return hexadecimal(std::bit_cast<std::uint64_t>(x)); }

std::string printable(const Memory& memory, const Call& call) {
    std::string text;
    const std::size_t size = call.buffer_size <= kLargestBuffer ? call.buffer_size : 0;
    for (std::size_t i = 0; i < size; ++i) {
        const char c = memory.buffer[kGuard + i];
        text += ' ' <= c && c <= '~' ? c : c == '\0' ? '$' : '?';
    }
    return text + "   ($ is NUL)";
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
    const Memory::Objects& library = library_memory_.objects;
    const Memory::Objects& reference = reference_memory_.objects;
    words += outcome("status", status_name(library_status_), status_name(reference_status_));
    for (std::size_t i = 0; i < 3; ++i) {
        words += outcome("object " + std::to_string(i), in_words(library.numerics[i].value),
                         in_words(reference.numerics[i].value));
    }
    words += outcome("int32 ", std::to_string(library.number), std::to_string(reference.number));
    words += outcome("int64 ", std::to_string(library.wide_number), std::to_string(reference.wide_number));
    words += outcome("double", bits(library.real), bits(reference.real));
    if (operation.reads_text && call.end_wanted) {
        words += outcome("end at", std::to_string(library.end - text_), std::to_string(reference.end - text_));
    }
    if (operation.writes_text) {
        words += outcome("buffer", printable(library_memory_, call), printable(reference_memory_, call));
    }
    if (!text_kept_) words += "  the text was changed\n";
    return words;
}

}  // namespace short_roads
