// Comes before everything in the scanner of YAML, which keeps rows and columns in 16 bits and takes all
// behind row 32,767 for an error.
#pragma once

#include <stdint.h>
#include <tree_sitter/parser.h> // whose own integers stay as they are

#define int16_t int32_t
