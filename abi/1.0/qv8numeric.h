/* SPDX-License-Identifier: MIT */
/*
 * qv8numeric - exact fixed-point decimals of 128 bits.
 *
 * A value is a signed 128-bit integer, the coefficient. Its decimal scale is not part of it: it travels beside it in a
 * descriptor, which also names the rounding mode for the moment digits have to go. The coefficient 12345 at scale 2 is
 * 123.45. Whoever keeps amounts in columns of a declared scale keeps one descriptor per column and 16 bytes per value.
 *
 * Operations on values of one scale work on the bare coefficients. The rescaling operations take a descriptor for each
 * operand and one for the result, compute in 256 bits and round once. Every result is exact, or rounded once and
 * reported as NUMERIC_INEXACT, or refused with a status. Where a function departs from that, its manual lists the
 * departures. They are part of the interface: programs may rely on them, and version 1 does not change them.
 *
 * What holds for every function here, unless its manual says otherwise:
 *
 *   Order     A NaN operand is found first: the result is NaN, the status NUMERIC_NAN, and nothing else is examined.
 *             Then the rounding modes are validated: one above 6 is invalid, and NUMERIC_INVALID_ARGUMENT leaves the
 *             outputs untouched.
 *   Range     Results lie in -(2^127 - 1) .. 2^127 - 1, which holds every number of 38 digits. One beyond becomes NaN,
 *             with NUMERIC_OVERFLOW or NUMERIC_UNDERFLOW by the sign of the true result.
 *   Aliasing  An output Numeric may be the same object as any Numeric operand.
 *   Pointers  No pointer may be null, but where the manual of a function allows it, and each must be aligned for its
 *             type; neither is checked.
 *   State     There is none: no allocation, no locale, no environment, no global or thread-local variable, no errno.
 *             Any number of threads may call anything at any time on outputs that are not shared. (The debug printers
 *             at the end go through stdio, and share its state.)
 *   Time      Bounded by a constant, whatever the values, scales and exponents; for text, at most linear in the bytes
 *             read or in the bytes of buffer written.
 *   C++       The functions are noexcept.
 */
#ifndef QV8NUMERIC_H
#define QV8NUMERIC_H

#include <stddef.h>
#include <stdint.h>

/*
 * The version of this header. A program built against version 1.x runs with every later 1.y: functions are added, never
 * changed or removed, and the soname (libqv8numeric.so.1) counts the major version.
 */
#define QV8NUMERIC_VERSION_MAJOR 1
#define QV8NUMERIC_VERSION_MINOR 0
#define QV8NUMERIC_VERSION_PATCH 0
#define QV8NUMERIC_VERSION_STRING "1.0.0"
#define QV8NUMERIC_VERSION \
  (QV8NUMERIC_VERSION_MAJOR * 10000 + QV8NUMERIC_VERSION_MINOR * 100 + QV8NUMERIC_VERSION_PATCH)

/* On Windows, define QV8NUMERIC_STATIC before the include to link the static library. */
#if defined(_WIN32) && defined(QV8NUMERIC_BUILDING)
#  define QV8NUMERIC_API __declspec(dllexport)
#elif defined(_WIN32) && !defined(QV8NUMERIC_STATIC)
#  define QV8NUMERIC_API __declspec(dllimport)
#elif defined(__GNUC__)
#  define QV8NUMERIC_API __attribute__((visibility("default")))
#else
#  define QV8NUMERIC_API
#endif

/* Tells the compiler which pointers must not be null, so that it can warn. */
#if defined(__GNUC__)
#  define QV8NUMERIC_NONNULL __attribute__((nonnull))
#  define QV8NUMERIC_NONNULL_ARGUMENTS(...) __attribute__((nonnull(__VA_ARGS__)))
#else
#  define QV8NUMERIC_NONNULL
#  define QV8NUMERIC_NONNULL_ARGUMENTS(...)
#endif

#if defined(__cplusplus)
#  define QV8NUMERIC_NOEXCEPT noexcept
#  define QV8NUMERIC_CAST(type, value) static_cast<type>(value)
extern "C" {
#else
#  define QV8NUMERIC_NOEXCEPT
#  define QV8NUMERIC_CAST(type, value) ((type)(value))
#endif

/* ---- Types ------------------------------------------------------------------------------------------------------ */

/*
 * A coefficient: a signed 128-bit integer in two's complement, low half first. Plain data: copy it, store it, compare
 * its halves for equality. All zero is zero, and there is no other zero. The one pattern with high = INT64_MIN and
 * low = 0, which would be -2^127, is NaN.
 *
 * 16 bytes, aligned as uint64_t. On a big-endian machine each half is a native integer in the same order of fields.
 */
typedef struct Numeric {
    uint64_t low;
    int64_t high;
} Numeric;

/* What travels beside a value. Only read by the functions below, and only where they say so. */
typedef struct NumericInfo {
    int32_t scale;          /* decimal places: the value is coefficient * 10^-scale; any int32, also negative */
    uint32_t rounding_mode; /* one of NUMERIC_ROUND_..., for results that this descriptor describes */
} NumericInfo;

/*
 * 0 and NUMERIC_INEXACT: done. Another positive value: done, and a Numeric result is NaN. Negative: not done, and
 * outputs are untouched. The manuals of the functions name the exceptions.
 */
typedef int32_t NumericStatus;

enum {
    NUMERIC_OK = 0,                /* exact */
    NUMERIC_NAN = 1,               /* an operand was NaN, or a divisor zero; the result is NaN */
    NUMERIC_INEXACT = 2,           /* a success: nonzero digits were dropped, the result is rounded */
    NUMERIC_OVERFLOW = 3,          /* the true result is above 2^127 - 1; the result is NaN */
    NUMERIC_UNDERFLOW = 4,         /* the true result is below -(2^127 - 1), not close to zero; the result is NaN */
    NUMERIC_SYNTAX_ERROR = -1,     /* the text is no number */
    NUMERIC_BUFFER_TOO_SMALL = -2, /* the text does not fit the buffer */
    NUMERIC_INVALID_ARGUMENT = -3  /* a rounding mode above 6 */
};

/*
 * How a magnitude is rounded when nonzero digits are dropped. The sign is put back afterwards.
 *
 *                                         2.5   -2.5    2.51  -2.51
 */
enum {
    NUMERIC_ROUND_UP = 0,        /*         3     -3      3     -3     away from zero */
    NUMERIC_ROUND_DOWN = 1,      /*         2     -2      2     -2     towards zero */
    NUMERIC_ROUND_CEILING = 2,   /*         3     -2      3     -2     towards plus infinity */
    NUMERIC_ROUND_FLOOR = 3,     /*         2     -3      2     -3     towards minus infinity */
    NUMERIC_ROUND_HALF_UP = 4,   /*         3     -3      3     -3     to nearest, a tie away from zero */
    NUMERIC_ROUND_HALF_DOWN = 5, /*         2     -2      3     -3     to nearest, a tie towards zero */
    NUMERIC_ROUND_HALF_EVEN = 6  /*         2     -2      3     -3     to nearest, a tie to the even neighbour */
};

/* Size, alignment and layout, checked by every compiler that reads this header. */
struct qv8numeric_aligned_numeric {
    char offset;
    Numeric value;
};
struct qv8numeric_aligned_uint64 {
    char offset;
    uint64_t value;
};
typedef char qv8numeric_sizes_are_16_and_8[sizeof(Numeric) == 16 && sizeof(NumericInfo) == 8 ? 1 : -1];
typedef char qv8numeric_low_half_is_first[offsetof(Numeric, high) == 8 ? 1 : -1];
typedef char qv8numeric_scale_is_first[offsetof(NumericInfo, rounding_mode) == 4 ? 1 : -1];
typedef char qv8numeric_is_aligned_as_uint64
    [offsetof(struct qv8numeric_aligned_numeric, value) == offsetof(struct qv8numeric_aligned_uint64, value) ? 1 : -1];

/* ---- Zero and NaN ----------------------------------------------------------------------------------------------- */

/* *out = zero; *out = NaN. */
QV8NUMERIC_API void QV8NumericSetZero(Numeric* out) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;
QV8NUMERIC_API void QV8NumericSetNan(Numeric* out) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;

/* IsZero: 1 when *v is zero, else 0. IsNan: 1 when *v is NaN, else 0. NaN is not zero. */
QV8NUMERIC_API int QV8NumericIsZero(const Numeric* v) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;
QV8NUMERIC_API int QV8NumericIsNan(const Numeric* v) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;

/* ---- Values of one scale ---------------------------------------------------------------------------------------- */

/*
 * *out = *a + *b, or *a - *b: two coefficients that the caller knows to be of one scale. Never rounds.
 *
 * NUMERIC_OK         the exact result
 * NUMERIC_NAN        an operand is NaN; *out is NaN
 * NUMERIC_OVERFLOW   the exact result is above 2^127 - 1; *out is NaN
 * NUMERIC_UNDERFLOW  the exact result is -2^127 or below; *out is NaN
 */
QV8NUMERIC_API NumericStatus QV8NumericAdd(const Numeric* a, const Numeric* b,
                                           Numeric* out) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;
QV8NUMERIC_API NumericStatus QV8NumericSub(const Numeric* a, const Numeric* b,
                                           Numeric* out) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;

/*
 * Compares two coefficients of one scale. Mind the direction: the result is the sign of b - a, so
 * 1 when *a is the smaller, -1 when *a is the larger, 0 when they are equal.
 * There is no status: NaN is below every number and equal to NaN.
 */
QV8NUMERIC_API int32_t QV8NumericCmp(const Numeric* a, const Numeric* b) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;

/*
 * Rounds *num, at info's scale, to a number of decimal places; towards plus infinity, towards minus infinity, or by
 * info's rounding mode. The result stays at info's scale with its last digits zero: 12345 at scale 4 rounded up to 2
 * places is 12400. places may be negative: -1 rounds to tens. Nothing changes when places is not below the scale.
 *
 * NUMERIC_OK                nothing but zeros was dropped
 * NUMERIC_INEXACT           rounded
 * NUMERIC_NAN               *num is NaN and stays so
 * NUMERIC_OVERFLOW,
 * NUMERIC_UNDERFLOW         the rounded value is beyond the range; *num is NaN
 * NUMERIC_INVALID_ARGUMENT  (Round) info's mode is invalid, even when nothing would be dropped; *num is untouched
 */
QV8NUMERIC_API NumericStatus QV8NumericCeil(const NumericInfo* info, int32_t places,
                                            Numeric* num) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;
QV8NUMERIC_API NumericStatus QV8NumericFloor(const NumericInfo* info, int32_t places,
                                             Numeric* num) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;
QV8NUMERIC_API NumericStatus QV8NumericRound(const NumericInfo* info, int32_t places,
                                             Numeric* num) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;

/*
 * *x = *x * m, in place and at the scale of *x.
 *
 * NUMERIC_OK         the exact product, for m >= 0
 * NUMERIC_NAN        *x is NaN and stays so, whatever m is
 * NUMERIC_UNDERFLOW  the product is beyond the range, on either side; *x is NaN
 *
 * Departures: there is no NUMERIC_OVERFLOW. A negative m is refused with NUMERIC_UNDERFLOW for every *x, zero included:
 * multiply by -m (for any m but INT32_MIN) and subtract the product from zero. A product of exactly -2^127 is accepted
 * with NUMERIC_OK, and its pattern is NaN.
 */
QV8NUMERIC_API NumericStatus QV8NumericMul(Numeric* x, int32_t m) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;

/*
 * *x = *x / d, in place and at the scale of *x, rounded by info's mode; info's scale is not read. For *x >= 0.
 *
 * NUMERIC_OK                exact
 * NUMERIC_INEXACT           rounded
 * NUMERIC_NAN               *x is NaN and stays so, or d is 0 and *x becomes NaN
 * NUMERIC_INVALID_ARGUMENT  info's mode is invalid: *x holds the quotient all the same, cut off towards zero
 *
 * Departures: d = 1 and d = -1 leave *x as it is, sign included, and do not look at the mode. For a negative *x the
 * result is not its quotient: the dividend is the number made of its top 32 bits as they stand in two's complement and
 * the lower 96 bits of its magnitude, divided and rounded with the sign of the quotient. Divide magnitudes and apply
 * the sign. A quotient of that number which is rounded up to 2^127 is stored as its pattern, NaN, with NUMERIC_INEXACT.
 *
 * Method: a word is divided by the processor; a wider value in digits of 32 bits below its upper word, by one
 * reciprocal of the divisor for all of them.
 */
QV8NUMERIC_API NumericStatus QV8NumericDiv(Numeric* x, const NumericInfo* info,
                                           int32_t d) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;

/* ---- From one scale to another ---------------------------------------------------------------------------------- */

/*
 * *dst = *src, moved from the scale of from to the scale of to: exactly where places are added, rounded by the mode
 * of to where they are removed. A loss is not reported; for a status that tells, add zero with QV8NumericRescalingAdd.
 *
 * NUMERIC_OK                moved, rounded or not
 * NUMERIC_NAN               *src is NaN; *dst is NaN
 * NUMERIC_OVERFLOW          beyond the range, on either side; *dst is NaN
 * NUMERIC_INVALID_ARGUMENT  places are removed and a mode, from's or to's, is invalid; *dst is *src. Both modes are
 *                           examined then, and neither when places are added or the scales are equal
 *
 * Departures:
 * - A negative value that rounds to zero is NaN and NUMERIC_OVERFLOW.
 * - Removing places rounds at from's scale first. A value so close to the limit that this leaves the range goes on as
 *   -2^127: for *src > 0 that is NaN and NUMERIC_OVERFLOW (0 and NUMERIC_OK when more than 38 places go), for *src < 0
 *   it is -2^127 over the power of ten, cut off (NaN and NUMERIC_OVERFLOW when that is zero).
 * - Adding places works modulo 2^256, and refuses a result whose sign bit changed or whose upper four 32-bit limbs are
 *   not all alike. A product beyond the range that meets both is let through with its low 128 bits; that takes at least
 *   30 added places. Beyond 87 places the factor is 10^(80 + places mod 8).
 */
QV8NUMERIC_API NumericStatus QV8NumericRescale(const NumericInfo* from, const NumericInfo* to, const Numeric* src,
                                               Numeric* dst) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;

/* ---- Values of different scales --------------------------------------------------------------------------------- */

/*
 * *result = *a + *b, or *a - *b, at the scale of result_info and rounded by its mode. The modes of a_info and b_info
 * are validated, not used.
 *
 * NUMERIC_OK, NUMERIC_INEXACT   the exact result, or it rounded
 * NUMERIC_NAN                   an operand is NaN; *result is NaN
 * NUMERIC_OVERFLOW,
 * NUMERIC_UNDERFLOW             beyond the range; *result is NaN
 * NUMERIC_INVALID_ARGUMENT      one of the three modes is invalid; *result is untouched
 *
 * Scales that differ by up to 38 are aligned exactly. Beyond that the operand with fewer places is given 38 more (48
 * when its upper half is only a sign), and what the other operand holds below them is replaced by one unit there in the
 * direction of its sign: enough to be seen by every mode and by the status. Only a sum whose dropped part lies within
 * that one unit of a tie or of the next whole result can be rounded as if it lay on it: 1 at scale 0 plus 99999999995
 * at scale 49, into scale 38 and rounded down, is 10^38 + 1.
 *
 * Cost: that of the same-scale operation when all three scales are equal. Where one operand is at the result's scale
 * and the other has up to 38 places more, the other alone is moved; else both are aligned, in 128 bits when they fit an
 * int64 and lie up to 19 places apart, in 256 bits otherwise. A move by up to 76 places is four multiplications or two
 * divisions by powers of ten at most, a longer one eleven passes over 256 bits.
 *
 * Method: division by a power of ten is a multiplication by its reciprocal, exact for every coefficient (Granlund and
 * Montgomery 1994); of wider intermediates, a long division by a prepared divisor (Moeller and Granlund 2011). So it is
 * for every operation and conversion that changes a scale.
 */
QV8NUMERIC_API NumericStatus QV8NumericRescalingAdd(const NumericInfo* a_info, const NumericInfo* b_info,
                                                    const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                                    Numeric* result) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;
QV8NUMERIC_API NumericStatus QV8NumericRescalingSub(const NumericInfo* a_info, const NumericInfo* b_info,
                                                    const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                                    Numeric* result) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;

/*
 * Compares two values of any scales, exactly. Mind the direction: the result is the sign of b - a, so
 * 1 when *a is the smaller, -1 when *a is the larger, 0 when they are equal.
 *
 * NUMERIC_INVALID_ARGUMENT (-3) when a mode is invalid, before anything else. There is no other status: NaN is below
 * every number. Two NaN are equal at equal scales; at different ones the first counts as the smaller.
 */
QV8NUMERIC_API int32_t QV8NumericRescalingCmp(const NumericInfo* a_info, const NumericInfo* b_info, const Numeric* a,
                                              const Numeric* b) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;

/*
 * *result = *a * *b at the scale of result_info: the product in 256 bits, exact, rounded once by result_info's mode.
 * Statuses as for QV8NumericRescalingAdd.
 *
 * Departure: the distance from the product's scale to the result's is taken in 32 bits and wraps beyond them.
 */
QV8NUMERIC_API NumericStatus QV8NumericRescalingMul(const NumericInfo* a_info, const NumericInfo* b_info,
                                                    const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                                    Numeric* result) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;

/*
 * *result = *a / *b at the scale of result_info, rounded once by its mode from the exact remainder.
 * Statuses as for QV8NumericRescalingAdd; a divisor of zero, found after the modes, is NUMERIC_NAN and NaN.
 *
 * Departure: where |*b| is below 2^64 and |*a| times the power of ten that brings it to the result's scale is 2^224 or
 * more, the part above 2^192 is lost without notice if bits 192 to 223 of it are zero.
 *
 * Method: long division, 64 bits of quotient at a time, by a reciprocal of the divisor's upper word or two that is
 * computed once (Moeller and Granlund 2011). Where the dividend would be divided by a power of ten, the divisor is
 * multiplied by it.
 */
QV8NUMERIC_API NumericStatus QV8NumericRescalingDiv(const NumericInfo* a_info, const NumericInfo* b_info,
                                                    const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                                    Numeric* result) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;

/* ---- Text out --------------------------------------------------------------------------------------------------- */

/*
 * Writes *value, at info's scale, as decimal text: plain, or with "," between groups of three integer digits.
 *
 *   output_scale    The value is rounded to this many places, by info's mode, and all of them are written. A negative
 *                   one rounds to tens, hundreds ..., and the digits rounded away are not written back: 12345 at output
 *                   scale -1 is "1235" (mode HALF_UP). For the rounded value with its zeros, "12350", round it with
 *                   QV8NumericRound and write it at output scale 0.
 *   exponent_shift  Not 0: the text shows the value times 10^exponent_shift and ends in "E" and the exponent that takes
 *                   this back. 1234.5 at output scale 4 and shift -3 is "1.2345000E+3"; at 1 and 3, "1234500E-3".
 *   buffer          Receives the text and its NUL, at its start. Its bytes behind the NUL are unspecified afterwards.
 *                   May be null when buffer_size is 0, and may overlap *value and *info.
 *   buffer_size     In bytes. No byte beyond is touched. The text fits when its length + 1 is at most buffer_size;
 *                   QV8NUMERIC_TEXT_SIZE and QV8NUMERIC_GROUPED_TEXT_SIZE below give a size that always suffices.
 *
 * The sign is that of the value, also when it rounds to zero: -0.004 at output scale 2 is "-0.00". Zero has no appended
 * zeros: with an exponent_shift of 2 it is "0E-2".
 *
 * NUMERIC_OK, NUMERIC_INEXACT  the exact text, or that of the rounded value
 * NUMERIC_NAN                  *value is NaN; the text is "NaN"
 * NUMERIC_OVERFLOW,
 * NUMERIC_UNDERFLOW            the digits at output_scale are beyond the range; the text shows those of 2^127
 * NUMERIC_BUFFER_TOO_SMALL     The buffer holds the last buffer_size - 1 characters of the text and a NUL; as far as an
 *                              exponent alone does not fit, its last characters. It is untouched when buffer_size is 0,
 *                              below 4 for NaN, or more than the address space behind buffer.
 * NUMERIC_INVALID_ARGUMENT     info's mode is invalid, also when nothing is rounded; the buffer holds the exponent
 *                              suffix before a NUL in its last byte. Found before digits that do not fit, after a
 *                              suffix that does not.
 */
QV8NUMERIC_API NumericStatus QV8NumericNum2Str(const Numeric* value, const NumericInfo* info, int32_t exponent_shift,
                                               int32_t output_scale, char* buffer,
                                               size_t buffer_size) QV8NUMERIC_NOEXCEPT
    QV8NUMERIC_NONNULL_ARGUMENTS(1, 2);
QV8NUMERIC_API NumericStatus QV8NumericNum2Dgstr(const Numeric* value, const NumericInfo* info, int32_t exponent_shift,
                                                 int32_t output_scale, char* buffer,
                                                 size_t buffer_size) QV8NUMERIC_NOEXCEPT
    QV8NUMERIC_NONNULL_ARGUMENTS(1, 2);

/*
 * A buffer size, NUL included, that never gives NUMERIC_BUFFER_TOO_SMALL for this exponent_shift and output_scale,
 * whatever the value. Constant expressions for constant arguments:
 *
 *     char text[QV8NUMERIC_GROUPED_TEXT_SIZE(0, 38)];
 *
 * The size for output scale 38 suffices for all from 38 down, negative ones included, as long as exponent_shift is 0.
 * A little above 2^32 at the most; on a 32-bit machine, arguments within -10^9 .. 10^9 give a size that fits size_t.
 * Each argument is evaluated more than once.
 */
#define QV8NUMERIC_TEXT_SIZE(exponent_shift, output_scale)                                          \
  QV8NUMERIC_CAST(size_t, QV8NUMERIC_DIGITS_SIZE(QV8NUMERIC_PLACES(exponent_shift, output_scale)) + \
                              QV8NUMERIC_SUFFIX_SIZE(exponent_shift))
#define QV8NUMERIC_GROUPED_TEXT_SIZE(exponent_shift, output_scale)                                          \
  QV8NUMERIC_CAST(size_t, QV8NUMERIC_DIGITS_SIZE(QV8NUMERIC_PLACES(exponent_shift, output_scale)) +         \
                              QV8NUMERIC_SEPARATORS_SIZE(QV8NUMERIC_PLACES(exponent_shift, output_scale)) + \
                              QV8NUMERIC_SUFFIX_SIZE(exponent_shift))

/* Their parts: the places written (zeros appended when negative), then the sizes in bytes of up to 39 digits with their
   sign, point and NUL; of the commas; and of "E", a sign and up to ten digits. */
#define QV8NUMERIC_PLACES(exponent_shift, output_scale) \
  (((output_scale) > 0 ? (output_scale) : INT64_C(0)) - (exponent_shift))
#define QV8NUMERIC_DIGITS_SIZE(places) \
  ((places) <= 0 ? 41 - (places) : (places) <= 38 ? INT64_C(42) : (places) + INT64_C(4))
#define QV8NUMERIC_SEPARATORS_SIZE(places) ((places) <= 0 ? (38 - (places)) / 3 : INT64_C(12))
#define QV8NUMERIC_SUFFIX_SIZE(exponent_shift) ((exponent_shift) != 0 ? 12 : 0)

/* ---- Text in ---------------------------------------------------------------------------------------------------- */

/*
 * Reads a number literal into *result at info's scale, rounded by info's mode; Dgstr2Num (dgstr: a string with digit
 * groups) also reads integer digits in groups of three ("1,234.5"). Reads no byte beyond the NUL.
 *
 *     number = [sign] digits ["." [digits]] [("E"|"e") [sign] digits]  |  [sign] "." digits [("E"|"e") [sign] digits]
 *
 *   text  NUL-terminated. No blank is skipped. What follows the literal ends it and is no error. But a marker needs
 *         its exponent: "1e" is no literal, and not 1.
 *   end   Null, or receives the address of the first character behind the literal: with *end at the NUL all of the
 *         text was a number. See below for where that differs.
 *
 * NUMERIC_OK, NUMERIC_INEXACT  read exactly, or rounded to info's scale
 * NUMERIC_OVERFLOW,
 * NUMERIC_UNDERFLOW            beyond the range at info's scale; *result is NaN
 * NUMERIC_SYNTAX_ERROR         no literal at the start of the text, or an exponent beyond int32; *result is untouched
 *                              and *end is text
 * NUMERIC_INVALID_ARGUMENT     info's mode is invalid; *result is untouched, *end is written
 *
 * The empty text is NaN with NUMERIC_OK: an empty field. end is untouched and the mode not examined then. "NaN", which
 * the formatters write, is not read back: it is NUMERIC_SYNTAX_ERROR.
 *
 * Departures:
 * - Of a mantissa at least 41 and at most 45 significant digits are taken: three at a time while 42 or fewer are held,
 *   the last one or two of a run while 40 or fewer are. Further digits count as zeros and do not make the result
 *   inexact. Zeros before the first other digit are skipped, but not behind the point, and by the same steps of three:
 *   up to two of them may count as digits.
 * - *end stays at the start of the last token when that is a run of four or more exponent digits ("1E1234": at the
 *   first "1" behind the E) or groups of an exponent ("1E1,000": at the ",").
 * - A group is a comma and exactly three digits. Groups behind a run of four or more digits, behind the point or behind
 *   a fraction end the literal at their comma, yet their digits have been taken: "1234,567" is 1234567. Groups of an
 *   exponent are taken by the rules of mantissa digits.
 * - A second exponent marker behind up to three exponent digits ends the literal, and those digits then belong to the
 *   mantissa: "1E5E" is 15.
 */
QV8NUMERIC_API NumericStatus QV8NumericStr2Num(const char* text, const NumericInfo* info, Numeric* result,
                                               char** end) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL_ARGUMENTS(1, 2, 3);
QV8NUMERIC_API NumericStatus QV8NumericDgstr2Num(const char* text, const NumericInfo* info, Numeric* result,
                                                 char** end) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL_ARGUMENTS(1, 2, 3);

/* ---- Machine integers ------------------------------------------------------------------------------------------- */

/*
 * *out = the integer at info's scale, the coefficient value * 10^scale; at a negative scale rounded by info's mode.
 *
 * NUMERIC_OK, NUMERIC_INEXACT  exact, or rounded
 * NUMERIC_OVERFLOW,
 * NUMERIC_UNDERFLOW            beyond the range; *out is NaN
 * NUMERIC_INVALID_ARGUMENT     info's mode is invalid; *out is untouched. Not examined at scale 0
 */
QV8NUMERIC_API NumericStatus QV8NumericLong2Num(int64_t value, const NumericInfo* info,
                                                Numeric* out) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;
QV8NUMERIC_API NumericStatus QV8NumericInt2Num(int32_t value, const NumericInfo* info,
                                               Numeric* out) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;

/*
 * *out = the integer part of *in, at info's scale, cut off towards zero in every mode. Exact at scale 0 for all that
 * fit the type; at other scales meant for 0 <= *in < 2^32.
 *
 * NUMERIC_OK                nothing but zeros was cut off
 * NUMERIC_INEXACT           cut off
 * NUMERIC_NAN               *in is NaN
 * NUMERIC_OVERFLOW          does not fit, for *in >= 0
 * NUMERIC_UNDERFLOW         does not fit, for *in < 0
 * NUMERIC_INVALID_ARGUMENT  info's mode is invalid. Not examined at scale 0
 *
 * *out is 0 with every status but the first two.
 *
 * Departures, at scales other than 0: only the lowest 32 bits of the coefficient's magnitude are
 * replaced by those of the result, modulo 2^32; the bits above stay the coefficient's own. Every negative *in is
 * NUMERIC_UNDERFLOW. To convert any value, bring it to scale 0 first, with QV8NumericRescalingAdd and a zero.
 */
QV8NUMERIC_API NumericStatus QV8NumericNum2Long(const Numeric* in, const NumericInfo* info,
                                                int64_t* out) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;
QV8NUMERIC_API NumericStatus QV8NumericNum2Int(const Numeric* in, const NumericInfo* info,
                                               int32_t* out) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;

/* ---- Doubles (IEEE 754 binary64) -------------------------------------------------------------------------------- */

/*
 * *out = value at info's scale, rounded by info's mode. Mind the order of the arguments. Integer arithmetic on the bits
 * of the double: the processor's rounding mode plays no part.
 *
 * NUMERIC_OK, NUMERIC_INEXACT  exact, or rounded. 0.1 at scale 1 is inexact: the double lies just above it
 * NUMERIC_NAN                  a NaN; *out is NaN
 * NUMERIC_OVERFLOW,
 * NUMERIC_UNDERFLOW            an infinity, or beyond the range at this scale; *out is NaN
 * NUMERIC_INVALID_ARGUMENT     info's mode is invalid; *out is untouched. Not examined for zeros, infinities and NaN
 *
 * A zero of either sign is zero.
 *
 * The value is taken exactly. For scales 0 to 72 the result is exact or rounded once. Elsewhere the 256-bit vector in
 * which the power of ten is applied drops bits before the last step; they still count as something dropped, but at
 * negative scales a dropped part from one half to just under six tenths may round as if it were below one half: 5.0 at
 * scale -1 in mode HALF_UP is 0, and so is 5.99.
 */
QV8NUMERIC_API NumericStatus QV8NumericDbl2Num(const NumericInfo* info, Numeric* out,
                                               double value) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;

/*
 * *out = the double for *in at info's scale, rounded by info's mode.
 *
 * NUMERIC_OK, NUMERIC_INEXACT  exact, or rounded
 * NUMERIC_NAN                  *in is NaN; *out is a NaN with all bits set
 * NUMERIC_OVERFLOW,
 * NUMERIC_UNDERFLOW            beyond the doubles; *out is an infinity. The mode is not examined
 * NUMERIC_INVALID_ARGUMENT     info's mode is invalid; *out is untouched, but for a subnormal result, which is written
 *                              cut off towards zero. Not examined for zero
 *
 * Departures: a coefficient of 2^113 or more at a negative scale may be converted wrongly, since
 * its product with the power of ten can leave the 256 bits, which is neither noticed nor reported: 2^126 at scale -11
 * is the double nearest 6.629e44. A value rounded up from the largest double is an infinity with NUMERIC_INEXACT, and a
 * subnormal rounded up to the smallest normal number is zero.
 */
QV8NUMERIC_API NumericStatus QV8NumericNum2Dbl(const Numeric* in, const NumericInfo* info,
                                               double* out) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;

/* ---- Debugging; define QV8NUMERIC_NO_DEBUG to leave these names to the host -------------------------------------- */

/*
 * Prints the 32-bit limbs of a value to standard output, most significant first, as "(%08x,%08x,%08x,%08x)\n".
 * Returns what printf does: the number of characters, or a negative number.
 */
#if !defined(QV8NUMERIC_NO_DEBUG)
QV8NUMERIC_API int dump(const Numeric* value) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;
#endif

#if defined(__cplusplus)
} /* extern "C" */

/* The 16 bytes of a Numeric seen as four limbs, least significant first. For printing alone. */
struct Numeric32 {
    uint32_t limb[4];
};

/* The 256-bit intermediate of the rescaling operations; incomplete here. */
struct ExtendedNumeric;

#  if !defined(QV8NUMERIC_NO_DEBUG)
/* As above. An ExtendedNumeric prints eight limbs and ends in "))". */
QV8NUMERIC_API int dump(const Numeric32* value) noexcept QV8NUMERIC_NONNULL;
QV8NUMERIC_API int dump(const ExtendedNumeric* value) noexcept QV8NUMERIC_NONNULL;

/*
 * The sign of a part that was cut off value: 0 when flag is 0 (nothing was), else -1 for a negative value and 1 for
 * any other. flag is not written.
 */
QV8NUMERIC_API int32_t get_truncated_part(const Numeric& value, uint32_t& flag) noexcept;
#  endif
#endif

/* ---- Not for callers: entry points of the literal parser, visible, but called by the functions above alone ------- */

#if !defined(QV8NUMERIC_NO_DEBUG)
#  if defined(__cplusplus)
extern "C" {
#  endif
struct NumberParseState;
QV8NUMERIC_API int numparse_yylex(struct NumberParseState* state) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;
QV8NUMERIC_API int numparse_yyparse(struct NumberParseState* state) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;
QV8NUMERIC_API void numparse_yyerror(struct NumberParseState* state,
                                     const char* message) QV8NUMERIC_NOEXCEPT QV8NUMERIC_NONNULL;
#  if defined(__cplusplus)
} /* extern "C" */
#  endif
#endif

#endif /* QV8NUMERIC_H */
