/* SPDX-License-Identifier: MIT */
#ifndef QV8NUMERIC_TESTS_EVERY_FUNCTION_H
#define QV8NUMERIC_TESTS_EVERY_FUNCTION_H

/* Calls all 28 QV8Numeric functions, where they succeed, where they fail, and with arguments at their limits. Prints
   nothing and allocates nothing. A null pointer, or the first expectation that was not met. */
const char* call_every_function(void);

#endif
