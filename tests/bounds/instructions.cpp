// SPDX-License-Identifier: MIT
// Calls whose instructions callgrind counts: one count for each call, labelled with what was called.
//
//     row    FUNCTION  typical|worst  ARGUMENTS  BYTES    the named ones
//     drawn  FUNCTION  NUMBER                    BYTES    drawn ones
//     grown  FUNCTION  FAMILY                    BYTES    the same call on more and more text
//
// Callgrind is told to count inside the library's functions alone.
#include <valgrind/callgrind.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "growing_calls.h"
#include "named_calls.h"
#include "operations.h"

namespace {

using namespace short_roads;

constexpr std::uint64_t kSeed = 20260601;

void count(const std::string& label, std::int32_t (*function)(Arguments), Arguments arguments) {
    CALLGRIND_ZERO_STATS;
    function(arguments);
    CALLGRIND_DUMP_STATS_AT(label.c_str());
}

// Of text read or, at most, of buffer written: 0 for a call that does neither.
std::size_t bytes_of(const Call& call) {
    return call.text.size() + (call.buffer_size <= kLargestBuffer ? call.buffer_size : 0);
}

void count_named_calls(Memory& memory) {
    for (const bounds::NamedCall& named : bounds::named_calls()) {
        memory.prepare(named.call, true);
        count(std::string("row\t") + named.function + (named.typical ? "\ttypical\t" : "\tworst\t") + named.arguments +
                  "\t" + std::to_string(bytes_of(named.call)),
              named.invoke, Arguments(named.call, named.call.text.c_str(), memory));
    }
}

void count_drawn_calls(Memory& memory, std::uint64_t calls) {
    for (const Operation& operation : operations()) {
        for (std::uint64_t number = 0; number < calls; ++number) {
            Random random(kSeed, number);
            Call call;
            operation.draw(random, call);
            memory.prepare(call, true);
            count("drawn\t" + std::string(operation.name) + "\t" + std::to_string(number) + "\t" +
                      std::to_string(bytes_of(call)),
                  operation.library, Arguments(call, call.text.c_str(), memory));
        }
    }
}

void count_growing_calls() {
    for (const bounds::GrowingCall& growing : bounds::growing_calls()) {
        for (std::size_t bytes = 8192; bytes <= 65536; bytes *= 2) {
            const bounds::Prepared prepared = growing.prepare(bytes);
            const std::string label = std::string("grown\t") + growing.function + "\t" + growing.family + "\t" +
                                      std::to_string(prepared.bytes);
            CALLGRIND_ZERO_STATS;
            prepared.run();
            CALLGRIND_DUMP_STATS_AT(label.c_str());
        }
    }
}

// The drawn call of that number, in words.
int show(const char* function, const char* number) {
    const Operation& operation = operation_named(function);
    Random random(kSeed, std::strtoull(number, nullptr, 10));
    Call call;
    operation.draw(random, call);
    std::fputs(operation.in_words(ArgumentsInWords(call)).c_str(), stdout);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3) return show(argv[1], argv[2]);
    if (argc != 2) {
        std::fputs(
            "usage: qv8numeric_instructions CALLS | FUNCTION NUMBER\n"
            "Under callgrind, so many drawn calls of each function; or a drawn call in words.\n",
            stderr);
        return 2;
    }
    const auto memory = std::make_unique<Memory>();
    count_named_calls(*memory);
    count_drawn_calls(*memory, std::strtoull(argv[1], nullptr, 10));
    count_growing_calls();
    return 0;
}
