#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds the library for other machines, runs the tests there, and compares the checksum of every function with that of
# this machine: of its own path and the portable one, by GCC and by Clang.
#
# usage: run.sh [--quick] [NAME...]
#        run.sh --packages [--quick] [NAME...]
#
#   NAME        aarch64, aarch64-portable, i686, s390x, s390x-portable or windows; without one all of them
#   --quick     instead of all tests the checksum alone, and the named cases on i686 and s390x, which differ most from
#               this machine: in the width of their words, and in the order of their bytes
#   --packages  name the Debian packages that this needs, and do nothing
set -eu
cd "$(dirname "$0")/../.."
export CMAKE_GENERATOR="${CMAKE_GENERATOR:-Ninja}"
jobs=$(getconf _NPROCESSORS_ONLN)

usage() {
    sed -n 's/^# \{0,1\}//; /^usage:/,/^set /{/^set /!p;}' "$0" >&2
    exit 2
}

# The packages of a machine, or failure when there is no such machine.
packages_of() {
    case $1 in
        i686) echo g++-i686-linux-gnu qemu-user-static ;;
        aarch64 | aarch64-portable | s390x | s390x-portable) echo "g++-${1%-portable}-linux-gnu" qemu-user-static ;;
        windows) echo g++-mingw-w64-x86-64-posix wine64 ;;
        *) return 1 ;;
    esac
}

# make PRESET TESTS [TARGET...]: builds the targets, or everything, and runs the tests whose names match.
make() {
    preset=$1 tests=$2
    shift 2
    echo "--- $preset"
    cmake --preset "$preset"
    cmake --build --preset "$preset" --parallel "$jobs" ${1:+--target "$@"}
    rm -f "build/$preset/checksum.txt"
    ctest --preset "$preset" --parallel "$jobs" --tests-regex "$tests"
    tables="$tables build/$preset/checksum.txt"
}

quick=false packages=false
while true; do
    case ${1:-} in
        --quick) quick=true ;;
        --packages) packages=true ;;
        *) break ;;
    esac
    shift
done
[ $# -gt 0 ] || set -- aarch64 aarch64-portable i686 s390x s390x-portable windows
for name in "$@"; do packages_of "$name" >/dev/null || usage; done
if $packages; then
    echo g++ clang cmake ninja-build python3 libgtest-dev libboost-dev pkg-config
    for name in "$@"; do packages_of "$name"; done
    exit
fi

tables=
checksum='^machines\.checksum$'
for preset in release portable clang; do make "$preset" "$checksum" qv8numeric_checksum; done
for name in "$@"; do
    case $quick,$name in
        false,*) make "cross-$name" . ;;
        true,i686 | true,s390x)
            make "cross-$name" "^rows\\.|$checksum" qv8numeric_checksum qv8numeric_rows_programs
            ;;
        *) make "cross-$name" "$checksum" qv8numeric_checksum ;;
    esac
done
# shellcheck disable=SC2086  # a list of words
python3 -B tests/machines/compare.py $tables
