#!/bin/sh
# SPDX-License-Identifier: MIT
# Everything that looks at the sources without running them. The library, the examples and what is written in C are
# always looked at; with --all, which takes minutes, also the C++ of the tests that stands on no other library.
#
# usage: lint.sh JOBS [--all]
set -eu
cd "$(dirname "$0")/.."
jobs=$1
scope=${2:-}
log=build/lint.log

# The C sources that are whole programs' parts of ours. own_names.c is meant to clash with the header.
c_sources() {
    find tests/interface tests/threads tests/memory examples -name '*.c' ! -name own_names.c
}

# A linter counts on standard error what it has left out; only a failure makes that worth reading.
quietly() {
    "$@" 2>"$log" || {
        cat "$log" >&2
        exit 1
    }
}

cmake --preset demo >/dev/null
find . -path ./build -prune -o -name '*.sh' -exec shellcheck dev .ci/run debian/tests/example {} +
cppcheck --quiet --enable=warning,performance,portability --error-exitcode=1 -I include -I src -I tests \
    -I tests/short_roads src examples tests/interface tests/threads tests/memory tests/bounds abi

# An allocator of its own is nothing that an analyzer of malloc understands.
c_sources | grep -v no_allocation | xargs -n 1 -P "$jobs" gcc -std=c99 -O2 -fanalyzer -Wall -Wextra -Wconversion \
    -Werror -I include -I tests/interface -o /dev/null -c

find src examples \( -name '*.c' -o -name '*.cpp' \) -print0 |
    quietly xargs -0 -n 1 -P "$jobs" clang-tidy -p build/demo --quiet
# shellcheck disable=SC2046  # names without blanks
quietly clang-tidy --quiet $(c_sources | grep -v examples) -- -std=c99 -Iinclude -Itests/interface

[ "$scope" = --all ] || exit 0
cmake --preset release >/dev/null
find tests/short_roads tests/bounds tests/threads tests/memory tests/reference -name '*.cpp' -print0 |
    quietly xargs -0 -n 1 -P "$jobs" clang-tidy -p build/release --quiet
