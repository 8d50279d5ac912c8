// The scanner of Perl: what its grammar cannot tell without looking further than to the next token.
#include "languages/grammars/Perl/Calls.h"

static bool foundExponent(Scan* scan) {
    if (!takeIf(scan, 'e') && !takeIf(scan, 'E')) return false;
    if (!takeIf(scan, '+')) takeIf(scan, '-');
    return isDigit(next(scan));
}

static void takeExponent(Scan* scan) {
    mark(scan);
    if (!foundExponent(scan)) return;
    takeDigits(scan);
    mark(scan);
}

// Behind `0`: 0x1f, 0b10, 0o17.
static bool foundBasedNumber(Scan* scan) {
    if (!isOneOf(next(scan), "xXbBoO")) return false;
    take(scan);
    while (isDigit(next(scan)) || isOneOf(next(scan), "_abcdefABCDEF"))
        take(scan);
    return foundHere(scan, Number);
}

// Two dots make a range; numbers with more than one point in them are a version.
static bool foundNumber(Scan* scan) {
    if (takeIf(scan, '0') && foundBasedNumber(scan)) return true;
    takeDigits(scan);
    mark(scan);
    if (takeIf(scan, '.')) {
        if (next(scan) == '.') return found(scan, Number);
        takeDigits(scan);
        mark(scan);
        if (takeIf(scan, '.')) {
            if (!isDigit(next(scan))) return found(scan, Number);
            takeDigits(scan);
            mark(scan);
            return foundVersion(scan);
        }
    }
    takeExponent(scan);
    return found(scan, Number);
}

static bool foundFraction(Scan* scan) {
    take(scan);
    if (!isDigit(next(scan))) return false;
    takeDigits(scan);
    takeExponent(scan);
    return found(scan, Number);
}

static bool foundRead(Scan* scan) {
    bool isPattern = false;
    return takeRead(scan, &isPattern) && foundHere(scan, isPattern ? FilePattern : ReadLine);
}

static bool foundLess(Scan* scan) {
    take(scan);
    if (!takeIf(scan, '<')) return foundRead(scan);
    if (!takeIf(scan, '>')) return foundHeredocMarker(scan);
    return takeIf(scan, '>') && foundHere(scan, ReadLine);
}

// `{-key}`, `-e $file`
static bool foundMinus(Scan* scan) {
    take(scan);
    if (!isWordStart(next(scan))) return false;
    const Word word = takeWord(scan);
    const enum Following behind = following(scan, &word, MayStandAlone);
    if (behind == ClosingBrace && isDue(scan, Key)) return found(scan, Key);
    if (word.length != 1 || !isOneOf(word.text[0], "rwxoRWXOezsfdlpSbctugkTBAMC")) return false;
    if (!isDue(scan, FileTest) || behind == FatComma) return false;
    return foundForm(scan, behind, (Forms){FileTest, FileTest, FileTestAlone});
}

static bool foundBrace(Scan* scan) {
    take(scan);
    mark(scan);
    if (!isDue(scan, HashOpen)) return found(scan, BlockOpen);
    if (!isDue(scan, BlockOpen)) return found(scan, HashOpen);
    return found(scan, isHashBehindBrace(scan, !isDue(scan, Label)) ? HashOpen : BlockOpen);
}

static bool foundPrototype(Scan* scan) {
    take(scan);
    while (isSpace(next(scan)) || isOneOf(next(scan), "$@%&*;\\[]+_"))
        take(scan);
    return takeIf(scan, ')') && foundHere(scan, Prototype);
}

static bool foundRepeat(Scan* scan) {
    take(scan);
    mark(scan);
    if (takeIf(scan, '=')) return isOneOf(next(scan), "=~") && found(scan, Repeat);
    return (isDigit(next(scan)) || !isWordPart(next(scan))) && found(scan, Repeat);
}

// `$file` behind print or sort, if an operand follows that no operator goes before.
static bool foundHandleOrScalar(Scan* scan) {
    if (!foundScalar(scan, InCode, 0)) return false;
    if (scan->lexer->result_symbol != Scalar || !isDue(scan, HandleScalar) || !isSpace(next(scan)))
        return true;
    takeSpaces(scan);
    const int32_t c = next(scan);
    const bool isTerm = isWordStart(c) ? followingWord(scan) == Term
                        : c == '<'     ? takeIf(scan, '<') && followingLess(scan, WantsOperand, true) == Term
                                       : isDigit(c) || isOneOf(c, "$@\"'`\\(");
    if (isTerm) scan->lexer->result_symbol = HandleScalar;
    return true;
}

// Documentation, whose first line begins with `=` and a word, and whose last is `=cut`.
static bool foundPod(Scan* scan) {
    take(scan);
    if (!isLetter(next(scan))) return false;
    for (bool isLast = false;; isLast = takeIf(scan, '=') && takeIf(scan, 'c') && takeIf(scan, 'u') &&
                                        takeIf(scan, 't') && !isWordPart(next(scan))) {
        takeLine(scan);
        mark(scan);
        if (isLast || atEnd(scan)) return found(scan, Pod);
        take(scan);
    }
}

// What follows __END__ up to the line end before its documentation.
static bool foundData(Scan* scan) {
    while (!atEnd(scan)) {
        takeLine(scan);
        mark(scan);
        if (takeIf(scan, '\n') && takeIf(scan, '=') && isLetter(next(scan))) break;
    }
    return found(scan, DataText);
}

// All lines up to one with nothing but a point.
static bool foundFormatBody(Scan* scan) {
    takeLine(scan);
    while (!atEnd(scan)) {
        take(scan);
        const bool isPoint = takeIf(scan, '.');
        if (isPoint && (atEnd(scan) || isSpace(next(scan)))) break;
        takeLine(scan);
    }
    return foundHere(scan, FormatBody);
}

static bool foundModifiers(Scan* scan) {
    while (isOneOf(next(scan), "msixpodualngcer"))
        take(scan);
    return foundHere(scan, Modifiers);
}

// Code as the replacement of s///e ends with the delimiter.
static bool closesCode(const Scan* scan) {
    const Quote* quote = innermost(scan->state);
    return quote != NULL && quote->kind == Code && closes(quote, next(scan));
}

static bool foundOperand(Scan* scan) {
    const int32_t c = next(scan);
    if (isWordStart(c)) return foundWord(scan);
    if (isDigit(c)) return isDue(scan, Number) && foundNumber(scan);
    switch (c) {
    case '"':
        take(scan);
        return foundQuote(scan, StringOpen, Text, Interpolates, c);
    case '\'':
        take(scan);
        return foundQuote(scan, RawOpen, Raw, 0, c);
    case '`':
        take(scan);
        return foundQuote(scan, CommandOpen, Text, Interpolates, c);
    case '/':
        take(scan);
        return foundQuote(scan, MatchOpen, Regex, Interpolates, c);
    case ':':
        return foundRootedWord(scan);
    case '.':
        return isDue(scan, Number) && foundFraction(scan);
    case '<':
        return isDue(scan, ReadLine) && foundLess(scan);
    case '-':
        return (isDue(scan, FileTest) || isDue(scan, Key)) && foundMinus(scan);
    default:
        return false;
    }
}

static bool foundSign(Scan* scan) {
    const int32_t c = next(scan);
    switch (c) {
    case '$':
        if (!isDue(scan, Scalar)) return false;
        take(scan);
        return foundHandleOrScalar(scan);
    case '@':
        if (!isDue(scan, Array) && !isDue(scan, PostfixSigils)) return false;
        take(scan);
        return foundArray(scan, InCode);
    case '%':
        if (!isDue(scan, Hash) && !isDue(scan, PostfixSigils)) return false;
        take(scan);
        return foundHash(scan);
    case '&':
        if (!isDue(scan, FunctionVariable) && !isDue(scan, PostfixSigils)) return false;
        take(scan);
        return next(scan) != '&' && foundNamedOrSigil(scan, FunctionVariable, FunctionSigil);
    case '*':
        if (!isDue(scan, Glob) && !isDue(scan, PostfixSigils)) return false;
        take(scan);
        return foundNamedOrSigil(scan, Glob, GlobSigil);
    case '{':
        return (isDue(scan, BlockOpen) || isDue(scan, HashOpen)) && foundBrace(scan);
    case '(':
        return isDue(scan, Prototype) && foundPrototype(scan);
    case 'x':
        if (isDue(scan, Repeat) && !isDue(scan, CallAlone)) return foundRepeat(scan);
        break;
    default:
        break;
    }
    return foundOperand(scan);
}

// Skips what is between tokens, up to where a heredoc begins; says whether that is at the start of a line.
static bool skipSpaces(Scan* scan) {
    bool atLineStart = scan->lexer->is_at_included_range_start(scan->lexer);
    for (; isSpace(next(scan)); scan->lexer->advance(scan->lexer, true)) {
        if (next(scan) == '\n' && scan->state->pendingCount > 0) return false;
        atLineStart = next(scan) == '\n';
    }
    return atLineStart;
}

// A statement may go without its semicolon there.
static bool foundEndBeforeData(Scan* scan) {
    mark(scan);
    const Word word = plainWord(scan);
    return classOf(&word) == DataMark && found(scan, End);
}

static bool foundCode(Scan* scan) {
    const bool atLineStart = skipSpaces(scan);
    const int32_t c = next(scan);
    if (c == '\n') return isDue(scan, HeredocOpen) && !isFull(scan->state) && foundHeredoc(scan);
    if (c == '=' && atLineStart && isDue(scan, Pod)) return foundPod(scan);
    if (isDue(scan, DataText)) return !atEnd(scan) && foundData(scan);
    if (closesCode(scan) && isDue(scan, QuoteClose)) return foundClose(scan, innermost(scan->state));
    if (isDue(scan, End) && !isDue(scan, CallAlone) && c == '_') return foundEndBeforeData(scan);
    if (isDue(scan, End) && (atEnd(scan) || c == '}' || closesCode(scan))) return foundHere(scan, End);
    return !atEnd(scan) && foundSign(scan);
}

static bool foundToken(Scan* scan) {
    Quote* quote = innermost(scan->state);
    if (isDue(scan, InError)) return false; // all tokens are due there, which tells nothing
    if (isDue(scan, FormatBody)) return foundFormatBody(scan);
    if (isDue(scan, Modifiers) && isOneOf(next(scan), "msixpodualngcer")) return foundModifiers(scan);
    if (quote == NULL) return foundCode(scan);
    if (isDue(scan, InnerMore) && isSubscriptStart(next(scan)) && !closes(quote, next(scan)))
        return foundSubscript(scan, quote);
    if (isDue(scan, ListedWord)) return foundListedWord(scan, quote);
    if (isDue(scan, QuoteText)) return foundPiece(scan, quote);
    return foundCode(scan);
}

void* tree_sitter_perl_external_scanner_create(void) {
    return calloc(1, sizeof(State));
}

void tree_sitter_perl_external_scanner_destroy(void* payload) {
    free(payload);
}

unsigned tree_sitter_perl_external_scanner_serialize(void* payload, char* buffer) {
    return writeState(payload, buffer);
}

void tree_sitter_perl_external_scanner_deserialize(void* payload, const char* buffer, unsigned length) {
    readState(payload, buffer, length);
}

bool tree_sitter_perl_external_scanner_scan(void* payload, TSLexer* lexer, const bool* valid) {
    Scan scan = {lexer, valid, payload};
    return foundToken(&scan);
}
