// What begins a quote, and all that stands between its delimiters.
#pragma once

#include "languages/grammars/Perl/Heredocs.h"
#include "languages/grammars/Perl/Variables.h"

static int32_t closingOf(int32_t open) {
    switch (open) {
    case '(':
        return ')';
    case '[':
        return ']';
    case '{':
        return '}';
    case '<':
        return '>';
    default:
        return open;
    }
}

// A quote whose first sign is taken.
static bool foundQuote(Scan* scan, enum Token token, enum QuoteKind kind, unsigned flags, int32_t open) {
    if (!isDue(scan, token) || isFull(scan->state)) return false;
    if (open == '\'') flags &= ~Interpolates;
    const Quote quote = {.open = open, .close = closingOf(open), .kind = kind, .flags = flags};
    pushQuote(scan->state, quote);
    return foundHere(scan, token);
}

// Behind q and the like.
static bool foundQuoteNamed(Scan* scan, const Word* word, int32_t open) {
    if (isWord(word, "q")) return foundQuote(scan, RawOpen, Raw, 0, open);
    if (isWord(word, "qq")) return foundQuote(scan, StringOpen, Text, Interpolates, open);
    if (isWord(word, "qw")) return foundQuote(scan, WordsOpen, WordList, 0, open);
    if (isWord(word, "qx")) return foundQuote(scan, CommandOpen, Text, Interpolates, open);
    if (isWord(word, "m")) return foundQuote(scan, MatchOpen, Regex, Interpolates, open);
    if (isWord(word, "qr")) return foundQuote(scan, PatternOpen, Regex, Interpolates, open);
    if (isWord(word, "s")) return foundQuote(scan, SubstitutionOpen, Regex, Interpolates | TwoParts, open);
    return foundQuote(scan, TransliterationOpen, Characters, TwoParts, open);
}

static bool closes(const Quote* quote, int32_t c) {
    return quote->kind != HeredocBody && c == (int32_t)quote->close && quote->depth == 0;
}

static void count(Quote* quote, int32_t c) {
    if (quote->kind == HeredocBody || quote->open == quote->close) return;
    if (c == (int32_t)quote->open) ++quote->depth;
    if (c == (int32_t)quote->close) --quote->depth;
}

enum { codeLimit = 4000 };

// Whether the modifiers behind the second part say that it is code. They are looked for no further than
// codeLimit.
static bool isCodeAhead(Scan* scan, Quote part) {
    for (int i = 0; i < codeLimit && !closes(&part, next(scan)); ++i) {
        if (atEnd(scan)) return false;
        if (next(scan) == '\\')
            take(scan);
        else
            count(&part, next(scan));
        take(scan);
    }
    if (!takeIf(scan, part.close)) return false;
    for (; isLetter(next(scan)); take(scan))
        if (next(scan) == 'e') return true;
    return false;
}

// The sign between the two parts, or the two signs of s{...}{...}.
static bool foundMiddle(Scan* scan, Quote* quote) {
    take(scan);
    if (quote->open != quote->close) {
        takeBlanks(scan);
        if (atEnd(scan)) return false;
        quote->open = next(scan);
        quote->close = closingOf(next(scan));
        take(scan);
    }
    quote->flags &= ~TwoParts;
    if (quote->open == '\'') quote->flags &= ~Interpolates;
    mark(scan);
    if (quote->kind == Characters) return found(scan, QuoteMiddle);
    quote->kind = isCodeAhead(scan, *quote) ? Code : Text;
    return found(scan, quote->kind == Code ? QuoteMiddleOfCode : QuoteMiddle);
}

static bool foundClose(Scan* scan, Quote* quote) {
    if (quote->flags & TwoParts) return foundMiddle(scan, quote);
    take(scan);
    popQuote(scan->state);
    return foundHere(scan, QuoteClose);
}

// The rest of an escape behind its backslash.
static void takeEscaped(Scan* scan) {
    const int32_t c = next(scan);
    if (atEnd(scan)) return;
    take(scan);
    if (c == 'c' && isLetter(next(scan))) take(scan);
    if (c == 'x')
        for (int i = 0; i < 2 && isOneOf(next(scan), "0123456789abcdefABCDEF"); ++i)
            take(scan);
    for (int i = 0; c >= '0' && c <= '7' && i < 2 && isOneOf(next(scan), "01234567"); ++i)
        take(scan);
    if (!isOneOf(c, "xNopPgk") || next(scan) != '{') return;
    for (int i = 0; i < 100 && !isOneOf(next(scan), "}\"\n") && !atEnd(scan); ++i)
        take(scan);
    takeIf(scan, '}');
}

enum { subscriptLimit = 200 };

// Whether the bracket that comes next is closed in its line, before the quote is. It stands in a string,
// where it is a subscript then.
static bool isClosedAhead(Scan* scan, const Quote* quote) {
    const int32_t open = next(scan);
    const int32_t close = closingOf(open);
    int depth = 0;
    for (int i = 0; i < subscriptLimit && !atEnd(scan) && next(scan) != '\n'; ++i) {
        const int32_t c = next(scan);
        take(scan);
        if (c == open) ++depth;
        if (c == close && --depth == 0) return true;
        if (c != close && closes(quote, c)) return false;
    }
    return false;
}

// In a pattern a bracket is a subscript only around a number or a variable, else it is a class of characters.
static bool isIndexAhead(Scan* scan) {
    take(scan);
    if (takeIf(scan, '$')) {
        takeIf(scan, '#');
        if (!isWordStart(next(scan))) return false;
        takeWordParts(scan);
        if (takeIf(scan, '+') || takeIf(scan, '-')) takeDigits(scan);
    } else {
        takeIf(scan, '-');
        if (!isDigit(next(scan))) return false;
        takeDigits(scan);
    }
    return next(scan) == ']';
}

// And a brace around a number tells how often.
static bool isCountAhead(Scan* scan) {
    take(scan);
    return isDigit(next(scan)) || next(scan) == ',';
}

static bool isPostfixAhead(Scan* scan) {
    if (takeIf(scan, '@') || takeIf(scan, '%')) return next(scan) == '*';
    return takeIf(scan, '$') && takeIf(scan, '#') && next(scan) == '*';
}

// Whether a variable in a quote goes on with a subscript.
static bool isSubscriptAhead(Scan* scan, const Quote* quote) {
    const bool inRegex = quote->kind == Regex;
    if (takeIf(scan, '-')) {
        if (!takeIf(scan, '>')) return false;
        if (!isOneOf(next(scan), "[{")) return isPostfixAhead(scan);
    } else if (inRegex) {
        return next(scan) == '[' ? isIndexAhead(scan) : !isCountAhead(scan);
    }
    return isClosedAhead(scan, quote);
}

static bool isSubscriptStart(int32_t c) {
    return isOneOf(c, "[{-");
}

static bool foundSubscript(Scan* scan, const Quote* quote) {
    mark(scan);
    return found(scan, isSubscriptAhead(scan, quote) ? InnerMore : InnerEnd);
}

static bool foundListedWord(Scan* scan, Quote* quote) {
    while (isSpace(next(scan)))
        scan->lexer->advance(scan->lexer, true);
    if (atEnd(scan)) return false;
    if (closes(quote, next(scan))) return foundClose(scan, quote);
    while (!atEnd(scan) && !isSpace(next(scan)) && !closes(quote, next(scan))) {
        if (!takeIf(scan, '\\')) count(quote, next(scan));
        take(scan);
    }
    return foundHere(scan, ListedWord);
}

// Whether a backslash, which is taken, begins an escape in this quote.
static bool isEscaping(const Quote* quote, int32_t c) {
    if (quote->kind != Raw) return true;
    return c == '\\' || c == (int32_t)quote->open || c == (int32_t)quote->close;
}

static bool escapes(const Quote* quote) {
    return quote->kind != HeredocBody || (quote->flags & Interpolates);
}

static bool foundVariable(Scan* scan, const Quote* quote) {
    const enum Place place = quote->kind == Regex ? InRegex : InText;
    const int32_t close = quote->kind == HeredocBody ? '\n' : (int32_t)quote->close;
    if (takeIf(scan, '$')) return foundScalar(scan, place, close);
    take(scan);
    return next(scan) != close && foundArray(scan, place);
}

static bool mayInterpolate(const Scan* scan, const Quote* quote) {
    return (quote->flags & Interpolates) && scan->state->quoteCount + 1 < quoteLimit;
}

// At the end of the text a heredoc ends, and no other quote does.
static bool foundEnd(Scan* scan, const Quote* quote) {
    if (quote->kind != HeredocBody) return false;
    popQuote(scan->state);
    return foundHere(scan, HeredocClose);
}

static bool isSpecial(const Scan* scan, const Quote* quote) {
    const int32_t c = next(scan);
    return (c == '\\' && escapes(quote)) || (isOneOf(c, "$@") && mayInterpolate(scan, quote));
}

// An escape or a variable; else the sign is text.
static bool foundSpecial(Scan* scan, const Quote* quote) {
    if (next(scan) != '\\') return foundVariable(scan, quote);
    take(scan);
    if (!isEscaping(quote, next(scan))) return false;
    takeEscaped(scan);
    return foundHere(scan, Escape);
}

// The next piece of a quote: its end, an escape, a variable, or text up to one of these.
static bool foundPiece(Scan* scan, Quote* quote) {
    bool any = false; // there is text
    while (!atEnd(scan)) {
        const bool stops =
            (quote->flags & AtLineStart) || isSpecial(scan, quote) || closes(quote, next(scan));
        if (stops && any) return foundHere(scan, QuoteText);
        if (quote->flags & AtLineStart) {
            quote->flags &= ~AtLineStart;
            if (takeTag(scan, quote, &any)) return foundEnd(scan, quote);
        } else if (closes(quote, next(scan))) {
            return foundClose(scan, quote);
        } else if (stops) {
            if (foundSpecial(scan, quote)) return true;
            any = true;
        } else {
            if (next(scan) == '\n' && quote->kind == HeredocBody) quote->flags |= AtLineStart;
            count(quote, next(scan));
            take(scan);
            any = true;
        }
    }
    return any ? foundHere(scan, QuoteText) : foundEnd(scan, quote);
}
