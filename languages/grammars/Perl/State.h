// What the scanner remembers between two tokens: the quotes that are open, outermost first, and the heredocs
// whose bodies begin behind the next line end.
#pragma once

#include <stdint.h>
#include <string.h>
#include <tree_sitter/parser.h>

enum QuoteKind {
    Raw,        // a backslash counts before another one and before a delimiter
    Characters, // a part of a transliteration
    Text,       // with variables, if the quote interpolates
    Regex,      // so too; some signs behind a variable mean something else
    WordList,   // qw
    Code,       // the replacement of s///e
    HeredocBody,
};

enum QuoteFlag {
    Interpolates = 1,
    Indented = 2,    // <<~
    AtLineStart = 4, // of a heredoc
    TwoParts = 8,    // the first part of s/// or tr///
};

// The word that ends a heredoc. Of words of any length this much is kept.
typedef struct {
    uint32_t length, hash;
} Tag;

// Without padding, as equal states have to be equal bytes.
typedef struct {
    uint32_t open, close; // equal where the delimiter does not nest
    uint32_t depth;       // how many of `open` are to be closed before the quote is
    Tag tag;              // of a heredoc
    uint16_t kind, flags;
} Quote;

typedef struct {
    Tag tag;
    uint32_t flags;
} PendingHeredoc;

enum { quoteLimit = 28, pendingLimit = 24 };

typedef struct {
    uint8_t quoteCount, pendingCount;
    Quote quotes[quoteLimit];
    PendingHeredoc pending[pendingLimit];
} State;

_Static_assert(2 + quoteLimit * sizeof(Quote) + pendingLimit * sizeof(PendingHeredoc) <=
                   TREE_SITTER_SERIALIZATION_BUFFER_SIZE,
               "the parser keeps no more");

static unsigned writeState(const State* state, char* buffer) {
    const unsigned quotes = state->quoteCount * sizeof(Quote);
    const unsigned pending = state->pendingCount * sizeof(PendingHeredoc);
    buffer[0] = (char)state->quoteCount;
    buffer[1] = (char)state->pendingCount;
    memcpy(buffer + 2, state->quotes, quotes);
    memcpy(buffer + 2 + quotes, state->pending, pending);
    return 2 + quotes + pending;
}

static void readState(State* state, const char* buffer, unsigned length) {
    state->quoteCount = length == 0 ? 0 : (uint8_t)buffer[0];
    state->pendingCount = length == 0 ? 0 : (uint8_t)buffer[1];
    if (length == 0) return;
    const unsigned quotes = state->quoteCount * sizeof(Quote);
    memcpy(state->quotes, buffer + 2, quotes);
    memcpy(state->pending, buffer + 2 + quotes, state->pendingCount * sizeof(PendingHeredoc));
}

// Null outside of all quotes.
static Quote* innermost(State* state) {
    return state->quoteCount == 0 ? NULL : &state->quotes[state->quoteCount - 1];
}

static bool isFull(const State* state) {
    return state->quoteCount == quoteLimit;
}

static void pushQuote(State* state, Quote quote) {
    state->quotes[state->quoteCount++] = quote;
}

static void popQuote(State* state) {
    --state->quoteCount;
}

static PendingHeredoc takePending(State* state) {
    const PendingHeredoc first = state->pending[0];
    --state->pendingCount;
    memmove(state->pending, state->pending + 1, state->pendingCount * sizeof(PendingHeredoc));
    return first;
}
