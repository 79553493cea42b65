#!/bin/sh
# SPDX-License-Identifier: MIT
# Runs the fuzz targets, which are built already: under libFuzzer from the saved corpus, or as a campaign of random calls
# on all processors.
set -eu
cd "$(dirname "$0")/.."
targets='same_scale rounding rescaling text_out text_in doubles integers'

usage() {
    cat >&2 <<'END_OF_USAGE'
usage: fuzz/fuzz.sh [TARGET|all [SECONDS]]           libFuzzer, each target for so many seconds (60)
       fuzz/fuzz.sh --random CALLS [SEED [TARGET]]   so many random calls of each target, from a seed (1)
END_OF_USAGE
    exit 2
}

is_target() {
    case " $targets " in
        *" $1 "*) return 0 ;;
        *) return 1 ;;
    esac
}

is_number() {
    case $1 in
        '' | *[!0-9]*) return 1 ;;
        *) return 0 ;;
    esac
}

# What is found goes to build/fuzz/corpus, what fails to build/fuzz/failures; the saved corpus is only read.
with_libfuzzer() {
    target=$1
    seconds=$2
    mkdir -p "build/fuzz/corpus/$target" build/fuzz/failures
    echo "== $target, $seconds s"
    log=build/fuzz/failures/$target.log
    if ! "build/fuzz/fuzz/qv8numeric_fuzz_$target" "build/fuzz/corpus/$target" "fuzz/corpus/$target" \
        -max_total_time="$seconds" -max_len=1024 -artifact_prefix="build/fuzz/failures/$target-" \
        -print_final_stats=1 >"$log" 2>&1; then
        cat "$log"
        return 1
    fi
    grep -E '^stat::(number_of_executed_units|new_units_added)' "$log"
}

# One process per processor, each with every n-th input. How far it is lies in build/campaign: a campaign that is
# broken off goes on from there when it is called again in the same way, or with more calls.
random_calls() {
    target=$1
    calls=$2
    seed=$3
    parts=$(getconf _NPROCESSORS_ONLN)
    mkdir -p build/campaign
    pids=
    part=0
    while [ "$part" -lt "$parts" ]; do
        name=$target.$seed.$part-of-$parts
        (cd build/campaign && exec ../release/fuzz/"qv8numeric_fuzz_$target" --random $(((calls + parts - 1) / parts)) \
            --seed "$seed" --part "$part/$parts" --state "$name.state" >"$name.log" 2>&1) &
        pids="$pids $!"
        part=$((part + 1))
    done
    failed=0
    for pid in $pids; do wait "$pid" || failed=1; done
    cat build/campaign/"$target.$seed".*-of-"$parts".log
    return "$failed"
}

case ${1:-all} in
    --random)
        { [ $# -ge 2 ] && [ $# -le 4 ]; } || usage
        calls=$2
        seed=${3:-1}
        { is_number "$calls" && is_number "$seed"; } || usage
        chosen=${4:-all}
        ;;
    *)
        [ $# -le 2 ] || usage
        calls=
        seconds=${2:-60}
        is_number "$seconds" || usage
        chosen=${1:-all}
        ;;
esac
if [ "$chosen" = all ]; then chosen=$targets; else is_target "$chosen" || usage; fi
for target in $chosen; do
    if [ -n "$calls" ]; then random_calls "$target" "$calls" "$seed"; else with_libfuzzer "$target" "$seconds"; fi
done
