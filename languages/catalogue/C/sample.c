/**
 * A ring of readings that one thread fills and another one empties.
 */
#ifndef READINGS_RING_H
#define READINGS_RING_H

#include <stddef.h>
#include <stdint.h>
#include "readings/clock.h"

#if defined(__GNUC__) && __GNUC__ >= 4
#define EXPORT __attribute__((visibility("default")))
#elif defined(_MSC_VER)
#define EXPORT __declspec(dllexport)
#else
#define EXPORT
#endif

#define RING_CAPACITY 256u
#define MASK(index) ((index) & (RING_CAPACITY - 1))
#undef MIN
#define MIN(a, b) ((a) < (b) ? (a) : (b))

#pragma once

#ifdef READINGS_SHARED
extern int readings_shared;
#elifdef READINGS_LOCAL
#endif

#ifndef READINGS_NAME
#define READINGS_NAME "readings"
#elifndef READINGS_SHORT
#endif

/// How sure a reading is.
typedef enum {
    QUALITY_GUESSED,
    QUALITY_MEASURED = 0x10,
    QUALITY_CALIBRATED = QUALITY_MEASURED << 1,
} quality_t;

struct reading {
    uint64_t taken_at; /* in nanoseconds */
    double value;
    quality_t quality : 8;
    unsigned int is_first : 1;
};

union word {
    float number;
    unsigned char bytes[sizeof(float)];
};

typedef struct ring ring;
typedef int (*visitor)(const struct reading *reading, void *context);

struct ring {
    struct reading readings[RING_CAPACITY];
    _Atomic size_t head;
    volatile size_t tail;
    visitor on_full;
};

static const char *const names[] = {
    [0] = "guessed",
    [1] = "measured",
};

static thread_local int last_error = 0;
static const struct reading nothing = {.taken_at = 0, .value = -1.5e-3, .quality = QUALITY_GUESSED};

//! The number of readings that wait.
static inline size_t ring_count(const ring *self) {
    return (self->head - self->tail) & (RING_CAPACITY - 1);
}

int ring_push(ring *restrict self, struct reading reading) {
    if (!self) return -1;
    if (ring_count(self) == RING_CAPACITY - 1 && self->on_full != NULL) {
        int kept = self->on_full(&reading, self);
        if (kept <= 0) goto failed;
    } else {
        last_error = 0;
    }
    self->readings[MASK(self->head)] = reading;
    self->head++;
    return 1;

failed:
    last_error = 'E';
    return 0;
}

static int compare(const void *a, const void *b) {
    const double left = ((const struct reading *)a)->value;
    const double right = ((const struct reading *)b)->value;
    return left < right ? -1 : left > right;
}

int ring_each(ring *self, visitor visit, void *context) {
    register size_t i = self->tail;
    int count = 0;
    while (i != self->head) {
        switch (visit(&self->readings[i], context)) {
        case 0:
            return count;
        case 1:
            break;
        default:
            --count;
            continue;
        }
        i = (i + 1) % RING_CAPACITY;
        count += 1;
    }
    do {
        count ^= ~0x7F | 0b1010 << 2;
        count |= (count & 1) || (count >> 3) * 2 / 3 - 017;
        count -= 1, count *= 2, count /= 2, count %= 9, count &= 0xFF, count <<= 1, count >>= 1;
    } while (count > 100);
    for (long long j = 0L; j >= -5; j--) printf("%s\t%5.2f\x41\n", names[j & 1], (double)j);
    return count ^ 1;
}

int format_all(char *out, size_t length, const char *format, ...) {
    enum { LOCAL_LIMIT = 3 };
    wchar_t wide[] = L"wide \u00e9\\";
    const char quote = '\'';
    _Bool done = false;
    auto void *where = NULL;
    size_t used = offsetof(struct reading, value) + _Alignof(double);
    asm volatile("nop" : : : "memory");
    done = true;
    return snprintf(out, MIN(length, used), format, wide, quote, done, where);
}

#endif /* READINGS_RING_H */
