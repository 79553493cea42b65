// SPDX-License-Identifier: MIT
// Eight threads call every exported function, from the first moment that anything of the library runs: behind a
// barrier each begins with another function and then calls all the others; after that all call the same function at
// once, one function after the other. What the calls leave is compared with what they leave in one thread afterwards.
// Under ThreadSanitizer a write that another thread could see is reported besides: in the second part whatever the
// order in which the threads happen to run, since nothing orders them within a turn.
#include <pthread.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

#include "numconv/literal.h"
#include "operations.h"

namespace {

using namespace short_roads;

constexpr std::size_t kThreads = 8;
constexpr std::uint64_t kCalls = 100;  // of each function
constexpr std::uint64_t kSeed = 20260701;

// What need not be watched, so that the sanitizer's memory of a thread reaches back to the library's calls.
#if defined(__clang__)
#  define THREADS_UNWATCHED __attribute__((no_sanitize("thread")))
#else
#  define THREADS_UNWATCHED
#endif

// FNV-1a.
class Digest {
  public:
    SHORT_ROADS_MAY_WRAP THREADS_UNWATCHED void add(const void* begin, std::size_t size) {
        const auto* const bytes = static_cast<const unsigned char*>(begin);
        for (std::size_t i = 0; i < size; ++i) value_ = (value_ ^ bytes[i]) * 0x100000001b3;
    }
    void add(std::int32_t status) {
        std::array<unsigned char, sizeof status> bytes{};
        std::memcpy(bytes.data(), &status, sizeof status);
        add(bytes.data(), bytes.size());
    }
    std::uint64_t value() const { return value_; }

  private:
    std::uint64_t value_ = 0xcbf29ce484222325;
};

// ---- The functions that no calls are drawn for ----

// It goes through stdio, whose locks are stdio's affair: standard output leads nowhere here.
void call_dumps(Digest& digest) {
    const Numeric value{0x0123456789abcdef, 0x7654321};
    const Numeric32 limbs{{1, 2, 3, 4}};
    const ExtendedNumeric wide{{1, 2, 3, 4}};
    digest.add(dump(&value));
    digest.add(dump(&limbs));
    digest.add(dump(&wide));
}

NumberParseState state_of(const char* text) {
    NumberParseState state{};
    state.cursor = text;
    state.mode = qv8numeric::format_grouped;
    return state;
}

void call_parser(Digest& digest) {
    static constexpr const char* kText = "-1,234,567.8901234567E-12 and more";
    NumberParseState state = state_of(kText);
    for (int i = 0; i < 8; ++i) digest.add(numparse_yylex(&state));
    state = state_of(kText);
    digest.add(numparse_yyparse(&state));
    digest.add(static_cast<std::int32_t>(state.token_start - kText));
    digest.add(&state.accumulator, sizeof state.accumulator);
    numparse_yyerror(&state, "syntax error");
}

// ---- All functions, by their turns ----

// Drawn beforehand, and shared: nobody writes to them.
using DrawnCalls = std::vector<std::vector<Call>>;

DrawnCalls draw_all() {
    DrawnCalls all;
    for (const Operation& operation : operations()) {
        std::vector<Call> calls(kCalls);
        for (std::uint64_t i = 0; i < kCalls; ++i) {
            Random random(kSeed, i);
            operation.draw(random, calls[i]);
        }
        all.push_back(std::move(calls));
    }
    return all;
}

const std::size_t kTurns = operations().size() + 2;

std::uint64_t take_turn(std::size_t turn, const DrawnCalls& drawn, Memory& memory) {
    Digest digest;
    if (turn == kTurns - 2) call_dumps(digest);
    if (turn == kTurns - 1) call_parser(digest);
    if (turn >= drawn.size()) return digest.value();
    const Operation& operation = operations()[turn];
    for (const Call& call : drawn[turn]) {
        memory.prepare(call, operation.writes_text);
        digest.add(operation.library(Arguments(call, call.text.c_str(), memory)));
        digest.add(&memory, operation.writes_text ? sizeof memory : sizeof memory.objects);
    }
    return digest.value();
}

const char* name_of(std::size_t turn) {
    if (turn == kTurns - 2) return "dump";
    if (turn == kTurns - 1) return "numparse_yylex, numparse_yyparse or numparse_yyerror";
    return operations()[turn].name;
}

struct Worker {
    std::size_t first_turn;
    const DrawnCalls* drawn;
    pthread_barrier_t* barrier;
    std::vector<std::uint64_t> digests;          // of the first part
    std::vector<std::uint64_t> digests_at_once;  // of the second
    std::unique_ptr<Memory> memory;
    pthread_t thread;
};

void* work(void* argument) {
    Worker& worker = *static_cast<Worker*>(argument);
    pthread_barrier_wait(worker.barrier);
    for (std::size_t i = 0; i < kTurns; ++i) {
        const std::size_t turn = (worker.first_turn + i) % kTurns;
        worker.digests[turn] = take_turn(turn, *worker.drawn, *worker.memory);
    }
    for (std::size_t turn = 0; turn < kTurns; ++turn) {
        pthread_barrier_wait(worker.barrier);
        worker.digests_at_once[turn] = take_turn(turn, *worker.drawn, *worker.memory);
    }
    return nullptr;
}

void run_together(std::array<Worker, kThreads>& workers, const DrawnCalls& drawn) {
    pthread_barrier_t barrier;
    pthread_barrier_init(&barrier, nullptr, kThreads);
    for (std::size_t i = 0; i < kThreads; ++i) {
        Worker& worker = workers[i];
        worker.first_turn = i * kTurns / kThreads;
        worker.drawn = &drawn;
        worker.barrier = &barrier;
        worker.digests.resize(kTurns);
        worker.digests_at_once.resize(kTurns);
        worker.memory = std::make_unique<Memory>();
    }
    for (Worker& worker : workers) pthread_create(&worker.thread, nullptr, work, &worker);
    for (Worker& worker : workers) pthread_join(worker.thread, nullptr);
    pthread_barrier_destroy(&barrier);
}

}  // namespace

int main() {
    if (std::freopen("/dev/null", "w", stdout) == nullptr) return 2;
    const DrawnCalls drawn = draw_all();
    std::array<Worker, kThreads> workers{};
    run_together(workers, drawn);

    int differences = 0;
    Memory& memory = *workers[0].memory;
    for (std::size_t turn = 0; turn < kTurns; ++turn) {
        const std::uint64_t alone = take_turn(turn, drawn, memory);
        for (const Worker& worker : workers) {
            if (worker.digests[turn] == alone && worker.digests_at_once[turn] == alone) continue;
            std::fprintf(stderr, "%s: another result among threads than alone\n", name_of(turn));
            ++differences;
        }
    }
    return differences == 0 ? 0 : 1;
}
