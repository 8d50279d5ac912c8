// Comes before everything in the scanner of Swift, which asks for memory for no state at all and then writes
// one there.
#pragma once

#include <stdlib.h>

#define calloc(count, size) calloc((count) > 0 ? (count) : 1, size)
