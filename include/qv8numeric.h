/* SPDX-License-Identifier: MIT */
#ifndef QV8NUMERIC_H
#define QV8NUMERIC_H

#include <stddef.h>
#include <stdint.h>

#define QV8NUMERIC_VERSION_MAJOR 1
#define QV8NUMERIC_VERSION_MINOR 0
#define QV8NUMERIC_VERSION_PATCH 0
#define QV8NUMERIC_VERSION 10000
#define QV8NUMERIC_VERSION_STRING "1.0.0"

#if defined(_WIN32) && !defined(QV8NUMERIC_STATIC)
#  if defined(QV8NUMERIC_BUILDING)
#    define QV8NUMERIC_API __declspec(dllexport)
#  else
#    define QV8NUMERIC_API __declspec(dllimport)
#  endif
#elif defined(__GNUC__)
#  define QV8NUMERIC_API __attribute__((visibility("default")))
#else
#  define QV8NUMERIC_API
#endif

#if defined(__cplusplus)
#  define QV8NUMERIC_NOEXCEPT noexcept
extern "C" {
#else
#  define QV8NUMERIC_NOEXCEPT
#endif

typedef struct Numeric {
    uint64_t low;
    int64_t high;
} Numeric;

typedef struct NumericInfo {
    int32_t scale;
    uint32_t rounding_mode;
} NumericInfo;

typedef int32_t NumericStatus;

enum {
    NUMERIC_OK = 0,
    NUMERIC_NAN = 1,
    NUMERIC_INEXACT = 2,
    NUMERIC_OVERFLOW = 3,
    NUMERIC_UNDERFLOW = 4,
    NUMERIC_SYNTAX_ERROR = -1,
    NUMERIC_BUFFER_TOO_SMALL = -2,
    NUMERIC_INVALID_ARGUMENT = -3
};

enum {
    NUMERIC_ROUND_UP = 0,
    NUMERIC_ROUND_DOWN = 1,
    NUMERIC_ROUND_CEILING = 2,
    NUMERIC_ROUND_FLOOR = 3,
    NUMERIC_ROUND_HALF_UP = 4,
    NUMERIC_ROUND_HALF_DOWN = 5,
    NUMERIC_ROUND_HALF_EVEN = 6
};

QV8NUMERIC_API void QV8NumericSetZero(Numeric* out) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API void QV8NumericSetNan(Numeric* out) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API int QV8NumericIsZero(const Numeric* v) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API int QV8NumericIsNan(const Numeric* v) QV8NUMERIC_NOEXCEPT;

QV8NUMERIC_API NumericStatus QV8NumericAdd(const Numeric* a, const Numeric* b, Numeric* out) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API NumericStatus QV8NumericSub(const Numeric* a, const Numeric* b, Numeric* out) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API int32_t QV8NumericCmp(const Numeric* a, const Numeric* b) QV8NUMERIC_NOEXCEPT;

QV8NUMERIC_API NumericStatus QV8NumericCeil(const NumericInfo* info, int32_t places, Numeric* num) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API NumericStatus QV8NumericFloor(const NumericInfo* info, int32_t places, Numeric* num) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API NumericStatus QV8NumericRound(const NumericInfo* info, int32_t places, Numeric* num) QV8NUMERIC_NOEXCEPT;

QV8NUMERIC_API NumericStatus QV8NumericMul(Numeric* x, int32_t m) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API NumericStatus QV8NumericDiv(Numeric* x, const NumericInfo* info, int32_t d) QV8NUMERIC_NOEXCEPT;

QV8NUMERIC_API NumericStatus QV8NumericRescale(const NumericInfo* from, const NumericInfo* to, const Numeric* src,
                                               Numeric* dst) QV8NUMERIC_NOEXCEPT;

QV8NUMERIC_API NumericStatus QV8NumericRescalingAdd(const NumericInfo* a_info, const NumericInfo* b_info,
                                                    const NumericInfo* result_info, const Numeric* a,
                                                    const Numeric* b, Numeric* result) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API NumericStatus QV8NumericRescalingSub(const NumericInfo* a_info, const NumericInfo* b_info,
                                                    const NumericInfo* result_info, const Numeric* a,
                                                    const Numeric* b, Numeric* result) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API int32_t QV8NumericRescalingCmp(const NumericInfo* a_info, const NumericInfo* b_info,
                                              const Numeric* a, const Numeric* b) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API NumericStatus QV8NumericRescalingMul(const NumericInfo* a_info, const NumericInfo* b_info,
                                                    const NumericInfo* result_info, const Numeric* a,
                                                    const Numeric* b, Numeric* result) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API NumericStatus QV8NumericRescalingDiv(const NumericInfo* a_info, const NumericInfo* b_info,
                                                    const NumericInfo* result_info, const Numeric* a,
                                                    const Numeric* b, Numeric* result) QV8NUMERIC_NOEXCEPT;

QV8NUMERIC_API NumericStatus QV8NumericNum2Str(const Numeric* value, const NumericInfo* info, int32_t exponent_shift,
                                               int32_t output_scale, char* buffer,
                                               size_t buffer_size) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API NumericStatus QV8NumericNum2Dgstr(const Numeric* value, const NumericInfo* info, int32_t exponent_shift,
                                                 int32_t output_scale, char* buffer,
                                                 size_t buffer_size) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API NumericStatus QV8NumericStr2Num(const char* text, const NumericInfo* info, Numeric* result,
                                               char** end) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API NumericStatus QV8NumericDgstr2Num(const char* text, const NumericInfo* info, Numeric* result,
                                                 char** end) QV8NUMERIC_NOEXCEPT;

QV8NUMERIC_API NumericStatus QV8NumericLong2Num(int64_t value, const NumericInfo* info, Numeric* out) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API NumericStatus QV8NumericInt2Num(int32_t value, const NumericInfo* info, Numeric* out) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API NumericStatus QV8NumericNum2Long(const Numeric* in, const NumericInfo* info, int64_t* out) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API NumericStatus QV8NumericNum2Int(const Numeric* in, const NumericInfo* info, int32_t* out) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API NumericStatus QV8NumericDbl2Num(const NumericInfo* info, Numeric* out, double value) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API NumericStatus QV8NumericNum2Dbl(const Numeric* in, const NumericInfo* info, double* out) QV8NUMERIC_NOEXCEPT;

#if !defined(QV8NUMERIC_NO_DEBUG)
QV8NUMERIC_API int dump(const Numeric* value) QV8NUMERIC_NOEXCEPT;
struct NumberParseState;
QV8NUMERIC_API int numparse_yylex(struct NumberParseState* state) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API int numparse_yyparse(struct NumberParseState* state) QV8NUMERIC_NOEXCEPT;
QV8NUMERIC_API void numparse_yyerror(struct NumberParseState* state, const char* message) QV8NUMERIC_NOEXCEPT;
#endif

#if defined(__cplusplus)
} /* extern "C" */

struct Numeric32 {
    uint32_t limb[4];
};
struct ExtendedNumeric;

#  if !defined(QV8NUMERIC_NO_DEBUG)
QV8NUMERIC_API int dump(const Numeric32* value) noexcept;
QV8NUMERIC_API int dump(const ExtendedNumeric* value) noexcept;
QV8NUMERIC_API int32_t get_truncated_part(const Numeric& value, uint32_t& flag) noexcept;
#  endif
#endif

#endif
