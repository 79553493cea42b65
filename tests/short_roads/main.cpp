// SPDX-License-Identifier: MIT
// Holds every function of the library against the plain steps: first the walks, then random cases aimed at the edges of
// short roads. The exit status is 0 when no call differed.
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "run.h"

namespace {

using namespace short_roads;

[[noreturn]] void usage() {
    std::fputs(
        "usage: qv8numeric_short_roads [--cases N] [--seed S] [--every N] [--case NUMBER] [--apart 0]\n"
        "  --cases N      draw so many cases after the walks (default 1000000)\n"
        "  --seed S       from this seed\n"
        "  --every N      make only every Nth call of the walks, none for 0 (default 1)\n"
        "  --case NUMBER  repeat one drawn case alone and show it\n"
        "  --apart 0      run in one process; a call that ends it is then not named\n",
        stderr);
    std::exit(2);
}

std::uint64_t number(const char* text) {
    char* end = nullptr;
    const std::uint64_t value = text == nullptr || *text < '0' || *text > '9' ? 0 : std::strtoull(text, &end, 10);
    if (end == nullptr || *end != '\0') usage();
    return value;
}

Plan plan_from(char** words, bool& apart) {
    Plan plan;
    for (++words; *words != nullptr; words += 2) {
        const std::uint64_t value = number(words[1]);
        if (std::strcmp(*words, "--cases") == 0) {
            plan.cases = value;
        } else if (std::strcmp(*words, "--seed") == 0) {
            plan.seed = value;
        } else if (std::strcmp(*words, "--every") == 0) {
            plan.walk_every = value;
        } else if (std::strcmp(*words, "--apart") == 0) {
            apart = value != 0;
        } else if (std::strcmp(*words, "--case") == 0) {
            plan.first_case = value;
            plan.cases = 1;
            plan.walk_every = 0;
            plan.showing = true;
        } else {
            usage();
        }
    }
    return plan;
}

// Zeros that a process shares with its children.
Progress& shared_progress() {
    void* const memory = mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        std::perror("mmap");
        std::exit(2);
    }
    return *static_cast<Progress*>(memory);
}

// In a process of its own, so that a call that ends it can still be named. True when it came to its end.
bool run_apart(const Plan& plan, Progress& progress) {
    const pid_t child = fork();
    if (child == 0) {
        run(plan, progress);
        std::fflush(stdout);
        std::exit(0);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child) {
        std::perror("fork");
        std::exit(2);
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void print_outcomes(const Progress& progress) {
    std::printf("%-20s%10s%10s%10s%10s%10s%10s%10s%10s\n", "calls by result", "INVALID", "TOO_SMALL", "SYNTAX", "OK",
                "NAN", "INEXACT", "OVERFLOW", "UNDERFLOW");
    const auto* row = progress.outcomes;
    for (const Operation& operation : operations()) {
        std::printf("%-20s", operation.name);
        for (const std::uint64_t count : *row++) std::printf("%10llu", static_cast<unsigned long long>(count));
        std::putchar('\n');
    }
}

}  // namespace

int main(int, char** words) {
    bool apart = true;
    const Plan plan = plan_from(words, apart);
    Progress& progress = shared_progress();
    bool ended = true;
    if (apart) {
        ended = run_apart(plan, progress);
    } else {
        run(plan, progress);
    }
    if (!ended) {
        std::puts("This call ended the process:");
        print_call(plan, progress.calls);
    }
    if (!plan.showing) print_outcomes(progress);
    std::printf("%llu calls, seed %llu: %llu differences%s\n", static_cast<unsigned long long>(progress.calls),
                static_cast<unsigned long long>(plan.seed), static_cast<unsigned long long>(progress.differences),
                progress.differences == kMostDifferences ? ", and no more calls after that" : "");
    return ended && progress.differences == 0 ? 0 : 1;
}
