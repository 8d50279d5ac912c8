// What comes behind a word tells what the word is: a call has operands there, a class an arrow, a key a fat
// comma.
#pragma once

#include "languages/grammars/Perl/Heredocs.h"
#include "languages/grammars/Perl/Words.h"

enum Following {
    Nothing, // an operator, or the end of the expression
    Term,
    Arrow,
    FatComma,
    Parenthesis,
    SpacedParenthesis,
    Brace,
    ClosingBrace,
    Colon,
};

// How signs are read that may be an operator or begin an operand.
enum Reading {
    WantsOperand,  // as an operand
    MayStandAlone, // as an operand if there is no space behind it
    MayWant,       // as an operand if there is a space before it and none behind
    WantsNone,     // as an operator
};

static bool isRead(enum Reading reading, bool spaced, bool spacedBehind) {
    return reading == WantsOperand || (reading == MayStandAlone && !spacedBehind) ||
           (reading == MayWant && spaced && !spacedBehind);
}

static Word plainWord(Scan* scan) {
    Word word = {.isShouted = true};
    while (isWordPart(next(scan)))
        addToWord(scan, &word);
    return word;
}

// A word behind a word is its operand, unless it is an operator.
static enum Following followingWord(Scan* scan) {
    const Word word = plainWord(scan);
    if (classOf(&word) != Infix) return Term;
    takeBlanks(scan);
    return takeIf(scan, '=') && next(scan) == '>' ? Term : Nothing;
}

enum { readLimit = 1000 }; // how far the end of <...> is looked for

// `<FILE>`, `<$file>`, `<>`, `<*.c>`, behind the first sign and in one line.
static bool takeRead(Scan* scan, bool* isPattern) {
    for (int i = 0; i < readLimit && !atEnd(scan) && next(scan) != '\n'; ++i) {
        const int32_t c = next(scan);
        take(scan);
        if (c == '>') return true;
        *isPattern = *isPattern || !(isWordPart(c) || c == ':' || (i == 0 && c == '$'));
    }
    return false;
}

// What begins with `<`, which is taken. It is looked at to its end: where it is no operand, what is before it
// is an expression of its own, and the parser must know on which text that depends.
static enum Following followingLess(Scan* scan, enum Reading reading, bool spaced) {
    const bool operand = isRead(reading, spaced, isSpace(next(scan)));
    if (takeIf(scan, '<')) {
        const bool isBare = isWordStart(next(scan));
        PendingHeredoc unused = {0};
        return (operand || !isBare) && takeHeredocMark(scan, &unused) ? Term : Nothing;
    }
    bool isPattern = false;
    if (!operand || next(scan) == '=' || !takeRead(scan, &isPattern)) return Nothing;
    return isPattern && reading != WantsOperand ? Nothing : Term;
}

static enum Following followingMinus(Scan* scan, enum Reading reading, bool spaced) {
    if (next(scan) == '>') return Arrow;
    if (next(scan) == '=') return Nothing;
    return isRead(reading, spaced, isSpace(next(scan))) ? Term : Nothing;
}

// An ambiguous sign, which is taken, that begins an operand only before one of `starts` or a word.
static enum Following followingSigil(Scan* scan, enum Reading reading, bool spaced, const char* starts) {
    const bool begins = isWordStart(next(scan)) || isOneOf(next(scan), starts);
    return begins && isRead(reading, spaced, false) ? Term : Nothing;
}

static enum Following followingSign(Scan* scan, enum Reading reading, bool spaced) {
    const int32_t c = next(scan);
    take(scan);
    const int32_t second = next(scan);
    const bool spacedBehind = isSpace(second);
    switch (c) {
    case '=':
        return second == '>' ? FatComma : Nothing;
    case ':':
        return second == ':' ? Term : Colon;
    case '-':
        return followingMinus(scan, reading, spaced);
    case '+':
        return second != '=' && isRead(reading, spaced, spacedBehind) ? Term : Nothing;
    case '.':
        return isDigit(second) && isRead(reading, spaced, false) ? Term : Nothing;
    case '/':
        if (reading == WantsOperand) return Term;
        return second != '/' && second != '=' && isRead(reading, spaced, spacedBehind) ? Term : Nothing;
    case '<':
        return followingLess(scan, reading, spaced);
    case '*':
        return followingSigil(scan, reading, spaced, "${:");
    case '%':
        return followingSigil(scan, reading, spaced, "${:+-^!");
    case '&':
        return followingSigil(scan, reading, spaced, "${:");
    case '[':
        return isRead(reading, spaced, false) ? Term : Nothing;
    case '!':
        return second == '=' || second == '~' ? Nothing : Term;
    case '~':
        return second == '~' ? Nothing : Term;
    default:
        return Nothing;
    }
}

static enum Following followingBehindBlanks(Scan* scan, enum Reading reading, bool spaced) {
    if (atEnd(scan)) return Nothing;
    const int32_t c = next(scan);
    switch (c) {
    case '(':
        return spaced ? SpacedParenthesis : Parenthesis;
    case '{':
        return Brace;
    case '}':
        return ClosingBrace;
    default:
        break;
    }
    if (isWordStart(c)) return followingWord(scan);
    if (isDigit(c) || isOneOf(c, "$@\"'`\\")) return Term;
    return followingSign(scan, reading, spaced);
}

// What follows a word that was taken just now.
static enum Following following(Scan* scan, const Word* word, enum Reading reading) {
    if (word->takenColon) return Colon;
    if (word->takenQuote) return Term;
    const bool spaced = takeBlanks(scan);
    return followingBehindBlanks(scan, reading, spaced);
}

// Whether a string is closed soon, behind its first quote.
static bool takeShortString(Scan* scan) {
    const int32_t quote = next(scan);
    take(scan);
    for (int i = 0; i < 200 && !atEnd(scan); ++i) {
        if (takeIf(scan, quote)) return true;
        takeIf(scan, '\\');
        take(scan);
    }
    return false;
}

// Whether a brace that may begin a block or a hash begins a hash: there is a key first, or, where that is a
// hash as well, nothing at all. The brace is taken already.
static bool isHashBehindBrace(Scan* scan, bool emptyIsHash) {
    takeBlanks(scan);
    if (next(scan) == '}') return emptyIsHash;
    bool isString = false;
    if (isOneOf(next(scan), "'\"")) {
        isString = true;
        if (!takeShortString(scan)) return false;
    } else {
        takeIf(scan, '-');
        if (!isWordPart(next(scan))) return false;
        takeWordParts(scan);
    }
    takeBlanks(scan);
    if (isString && next(scan) == ',') return true;
    return takeIf(scan, '=') && next(scan) == '>';
}
