/* SPDX-License-Identifier: MIT */
/* Replaces the allocator of the whole process with one that counts, and calls every function: the count stays where it
   was. Afterwards one call of each allocating function shows that the count would have moved. */
#include <errno.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>

#include "every_function.h"

static unsigned long allocations = 0;

/* Memory is handed out once and never taken back; each piece is preceded by its size. */
static union {
    unsigned char bytes[1 << 20];
    long double alignment;
} arena;
static size_t used = 0;

enum { kAlignment = 16 };

static void* allocate(size_t size, size_t alignment) {
    uintptr_t start;
    ++allocations;
    if (size > sizeof arena.bytes - used || sizeof arena.bytes - used - size < kAlignment + alignment) return NULL;
    start = ((uintptr_t)(arena.bytes + used) + kAlignment + alignment - 1) / alignment * alignment;
    used = (size_t)(start - (uintptr_t)arena.bytes) + (size + kAlignment - 1) / kAlignment * kAlignment;
    ((size_t*)start)[-1] = size;
    return (void*)start;
}

void* malloc(size_t size);
void* calloc(size_t count, size_t size);
void* realloc(void* old, size_t size);
void free(void* old);
int posix_memalign(void** out, size_t alignment, size_t size);
void* aligned_alloc(size_t alignment, size_t size);
void* memalign(size_t alignment, size_t size);

void* malloc(size_t size) { return allocate(size, kAlignment); }

/* The arena is zero where it has not been handed out. */
void* calloc(size_t count, size_t size) {
    return size != 0 && count > SIZE_MAX / size ? NULL : allocate(count * size, kAlignment);
}

void* realloc(void* old, size_t size) {
    unsigned char* moved = (unsigned char*)allocate(size, kAlignment);
    size_t i, kept = 0;
    if (old != NULL) kept = ((size_t*)old)[-1] < size ? ((size_t*)old)[-1] : size;
    for (i = 0; moved != NULL && i < kept; ++i) moved[i] = ((unsigned char*)old)[i];
    return moved;
}

void free(void* old) { (void)old; }

int posix_memalign(void** out, size_t alignment, size_t size) {
    *out = allocate(size, alignment);
    return *out == NULL ? ENOMEM : 0;
}

void* aligned_alloc(size_t alignment, size_t size) { return allocate(size, alignment); }
void* memalign(size_t alignment, size_t size) { return allocate(size, alignment); }

/* The number of allocating functions that the count missed. Called through pointers to volatile, since a compiler may
   leave out an allocation that nobody uses. */
static int missed_by_the_count(void) {
    void* (*volatile plain)(size_t) = malloc;
    void* (*volatile cleared)(size_t, size_t) = calloc;
    void* (*volatile resized)(void*, size_t) = realloc;
    int (*volatile aligned)(void**, size_t, size_t) = posix_memalign;
    void* (*volatile aligned_in_c11)(size_t, size_t) = aligned_alloc;
    void* (*volatile aligned_of_old)(size_t, size_t) = memalign;
    const unsigned long before = allocations;
    void* pointer = plain(1);
    (void)cleared(1, 1);
    (void)resized(pointer, 2);
    (void)aligned(&pointer, 64, 1);
    (void)aligned_in_c11(64, 64);
    (void)aligned_of_old(64, 1);
    return 6 - (int)(allocations - before);
}

int main(void) {
    const unsigned long before = allocations;
    const char* failure = call_every_function();
    const unsigned long during = allocations - before;
    const int missed = missed_by_the_count();
    if (failure != NULL) printf("%s\n", failure);
    if (during != 0) printf("%lu allocations in the library\n", during);
    if (missed != 0) printf("the count misses %d allocating functions\n", missed);
    return failure == NULL && during == 0 && missed == 0 ? 0 : 1;
}
