/* SPDX-License-Identifier: MIT */
/* A whole program in C: what a host needs to link and run it is all the library needs. */
#include <stdio.h>

#include "every_function.h"
#include "qv8numeric.h"

int main(void) {
    const Numeric one = {1, 0};
    const char* failure = call_every_function();
    if (failure != NULL) printf("%s\n", failure);
    return failure == NULL && dump(&one) > 0 ? 0 : 1;
}
