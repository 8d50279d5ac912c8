// Comes before everything in the scanner of OCaml, which keeps of the name of a quoted string
// ({name|text|name}) a quarter of the bytes that it has: a parse that goes on in such a text finds another
// end. A name that the parser has no room for is forgotten.
#pragma once

#define serialize serialize_quarter
#define deserialize deserialize_quarter
#include <../../../common/scanner.h> // as the scanner includes it
#undef serialize
#undef deserialize

static inline unsigned serialize(Scanner* scanner, char* buffer) {
    const size_t size = scanner->quoted_string_id_length * sizeof(int32_t);
    buffer[0] = scanner->in_string;
    if (size >= TREE_SITTER_SERIALIZATION_BUFFER_SIZE) return 1;
    if (size > 0) memcpy(buffer + 1, scanner->quoted_string_id, size);
    return (unsigned)size + 1;
}

static inline void deserialize(Scanner* scanner, const char* buffer, unsigned length) {
    const size_t size = length > 0 ? length - 1 : 0;
    scanner->in_string = length > 0 && buffer[0];
    scanner->quoted_string_id_length = size / sizeof(int32_t);
    if (size == 0) return;
    quoted_string_id_resize(scanner, scanner->quoted_string_id_length);
    memcpy(scanner->quoted_string_id, buffer + 1, size);
}
