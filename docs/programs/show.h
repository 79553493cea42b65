/* SPDX-License-Identifier: MIT */
/* What the small programs of the documentation share: values from text, and results printed with their status. */
#ifndef QV8NUMERIC_DOCS_SHOW_H
#define QV8NUMERIC_DOCS_SHOW_H

#include <qv8numeric.h>
#include <stdio.h>

/* The value that a text names, at a scale. */
static inline Numeric number(const char* text, int32_t scale) {
    const NumericInfo info = {scale, NUMERIC_ROUND_HALF_EVEN};
    Numeric value;
    QV8NumericStr2Num(text, &info, &value, NULL);
    return value;
}

static inline const char* status_name(NumericStatus status) {
    switch (status) {
        case NUMERIC_OK: return "OK";
        case NUMERIC_NAN: return "NAN";
        case NUMERIC_INEXACT: return "INEXACT";
        case NUMERIC_OVERFLOW: return "OVERFLOW";
        case NUMERIC_UNDERFLOW: return "UNDERFLOW";
        case NUMERIC_SYNTAX_ERROR: return "SYNTAX_ERROR";
        case NUMERIC_BUFFER_TOO_SMALL: return "BUFFER_TOO_SMALL";
        case NUMERIC_INVALID_ARGUMENT: return "INVALID_ARGUMENT";
        default: return "?";
    }
}

/* Prints a value at its scale, from 0 to 60, and the status it came with. */
static inline void show(NumericStatus status, const Numeric* value, int32_t scale) {
    const NumericInfo info = {scale, NUMERIC_ROUND_HALF_EVEN};
    char text[QV8NUMERIC_TEXT_SIZE(0, 60)];
    QV8NumericNum2Str(value, &info, 0, scale, text, sizeof text);
    printf("%s %s\n", text, status_name(status));
}

#endif
