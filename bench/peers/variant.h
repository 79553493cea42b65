// SPDX-License-Identifier: MIT
// The hand-made peer is compiled twice from one source, and this chooses which of the two it becomes.
//
// By hand, it is a tuned kernel: a line of assembly for the division, a packed table for the rounding modes, signs
// mostly without a branch. Plain, it is what a host's programmer would write in the language: the compiler's division,
// a switch over the modes, a condition for each sign. int128.h has all that differs.
#ifndef QV8NUMERIC_BENCH_PEERS_VARIANT_H
#define QV8NUMERIC_BENCH_PEERS_VARIANT_H

// A namespace for each, since one program loads both.
#ifdef QV8NUMERIC_BENCH_PLAIN
#  define QV8NUMERIC_BENCH_INT128 plain_int128
#else
#  define QV8NUMERIC_BENCH_INT128 int128
#endif

namespace qv8numeric_bench::int128 {
inline constexpr bool kPlain = false;
}
namespace qv8numeric_bench::plain_int128 {
inline constexpr bool kPlain = true;
}

#endif
