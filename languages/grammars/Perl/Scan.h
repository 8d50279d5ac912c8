// One call of the scanner, and the small steps that all of it is made of.
//
// A step only ever goes forward. The token ends where `mark` was called last, so whatever looks ahead marks
// first.
#pragma once

#include "languages/grammars/Perl/State.h"
#include "languages/grammars/Perl/Tokens.h"

typedef struct {
    TSLexer* lexer;
    const bool* valid;
    State* state;
} Scan;

static int32_t next(const Scan* scan) {
    return scan->lexer->lookahead;
}

static bool atEnd(const Scan* scan) {
    return scan->lexer->eof(scan->lexer);
}

static void take(Scan* scan) {
    scan->lexer->advance(scan->lexer, false);
}

static bool takeIf(Scan* scan, int32_t c) {
    if (next(scan) != c || atEnd(scan)) return false;
    take(scan);
    return true;
}

static void mark(Scan* scan) {
    scan->lexer->mark_end(scan->lexer);
}

static bool isDue(const Scan* scan, enum Token token) {
    return scan->valid[token];
}

static bool found(Scan* scan, enum Token token) {
    scan->lexer->result_symbol = token;
    return true;
}

// With a token that ends here.
static bool foundHere(Scan* scan, enum Token token) {
    mark(scan);
    return found(scan, token);
}

static bool isDigit(int32_t c) {
    return c >= '0' && c <= '9';
}

static bool isCapital(int32_t c) {
    return c >= 'A' && c <= 'Z';
}

static bool isLetter(int32_t c) {
    return isCapital(c) || (c >= 'a' && c <= 'z');
}

static bool isWordStart(int32_t c) {
    return isLetter(c) || c == '_' || c >= 0x80;
}

static bool isWordPart(int32_t c) {
    return isWordStart(c) || isDigit(c);
}

static bool isSpace(int32_t c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

static bool isOneOf(int32_t c, const char* characters) {
    return c > 0 && c < 0x80 && strchr(characters, c) != NULL;
}

static void takeWordParts(Scan* scan) {
    while (isWordPart(next(scan)))
        take(scan);
}

static void takeDigits(Scan* scan) {
    while (isDigit(next(scan)) || next(scan) == '_')
        take(scan);
}

static void takeLine(Scan* scan) {
    while (!atEnd(scan) && next(scan) != '\n')
        take(scan);
}

static void takeSpaces(Scan* scan) {
    while (isSpace(next(scan)))
        take(scan);
}

// Spaces and comments; false if there are none.
static bool takeBlanks(Scan* scan) {
    bool any = false;
    for (; isSpace(next(scan)) || next(scan) == '#'; any = true) {
        if (next(scan) == '#')
            takeLine(scan);
        else
            take(scan);
    }
    return any;
}
