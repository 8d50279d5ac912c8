// Variables, and the signs before what is dereferenced.
#pragma once

#include "languages/grammars/Perl/Words.h"

enum Place { InCode, InText, InRegex };

// A name with its packages, from its first character or colon on. Marks its end.
static void takeName(Scan* scan) {
    for (;;) {
        takeWordParts(scan);
        mark(scan);
        if (!takeIf(scan, ':') || !takeIf(scan, ':')) return;
    }
}

// `::name`. Without a word behind them the colons belong to nothing.
static bool takeRootedName(Scan* scan) {
    if (!takeIf(scan, ':') || !takeIf(scan, ':') || !isWordStart(next(scan))) return false;
    takeName(scan);
    return true;
}

// `name`, `^NAME`, or a sign that names a variable.
static bool takeNameInBraces(Scan* scan) {
    if (isOneOf(next(scan), "$!@/\\,;.&\"<>()+-")) {
        take(scan);
        return next(scan) == '}';
    }
    takeIf(scan, '^');
    if (!isWordPart(next(scan))) return false;
    do
        takeWordParts(scan);
    while (takeIf(scan, ':'));
    return true;
}

// `{name}`, which is a name and no block. Marks its end if it is.
static bool takeBracedName(Scan* scan) {
    take(scan);
    takeSpaces(scan);
    if (!takeNameInBraces(scan)) return false;
    takeSpaces(scan);
    if (!takeIf(scan, '}')) return false;
    mark(scan);
    return true;
}

// What may follow the sign of a variable to which it does not belong itself.
static bool isReferenceStart(int32_t c) {
    return isWordStart(c) || isOneOf(c, "${:");
}

// `$$`, the process, or a sign before the next.
static bool foundTwoDollars(Scan* scan, enum Place place) {
    mark(scan);
    take(scan);
    if (isReferenceStart(next(scan))) return found(scan, ScalarSigil);
    return place != InRegex && foundHere(scan, Scalar);
}

// `$#array`, `$#{...}`, and the variable `$#`.
static bool foundLength(Scan* scan, enum Place place) {
    take(scan);
    if (place == InCode && isDue(scan, PostfixSigils) && takeIf(scan, '*'))
        return foundHere(scan, PostfixSigils);
    if (isOneOf(next(scan), "{$")) return foundHere(scan, LengthSigil);
    if (!isWordStart(next(scan)) && next(scan) != ':') return place == InCode && foundHere(scan, Scalar);
    takeName(scan);
    return found(scan, ArrayLength);
}

// `$^W`, and `$^` before anything else.
static bool foundControlVariable(Scan* scan, enum Token token) {
    take(scan);
    if (isCapital(next(scan)) || isOneOf(next(scan), "[]\\^_?")) take(scan);
    return foundHere(scan, token);
}

static const char* specialScalars(enum Place place) {
    switch (place) {
    case InCode:
        return "&`'+!@/\\,;.-()<>[]\"~=%?|:";
    case InText:
        return "&`!@/\\,;.<>";
    default:
        return "&";
    }
}

// `$+` and `$-` are variables in a string only with a subscript.
static bool foundMatchTable(Scan* scan) {
    take(scan);
    return isOneOf(next(scan), "{[") && foundHere(scan, Scalar);
}

static bool foundPlaceholder(Scan* scan) {
    if (!isDue(scan, Placeholder)) return false;
    mark(scan);
    takeSpaces(scan);
    return isOneOf(next(scan), ",)=") && found(scan, Placeholder);
}

static bool foundBracedOr(Scan* scan, enum Token variable, enum Token sigil) {
    mark(scan);
    return found(scan, takeBracedName(scan) ? variable : sigil);
}

static bool foundNamed(Scan* scan, enum Token token) {
    takeName(scan);
    return found(scan, token);
}

// `$::name`, or `$:` in code.
static bool foundRooted(Scan* scan, enum Place place) {
    take(scan);
    mark(scan);
    if (!takeIf(scan, ':')) return place == InCode && found(scan, Scalar);
    return (place == InCode || isWordStart(next(scan))) && foundNamed(scan, Scalar);
}

// `$ {...}` and `$ name`
static bool foundSpaced(Scan* scan, enum Token variable, enum Token sigil) {
    mark(scan);
    takeSpaces(scan);
    if (isWordStart(next(scan))) return foundNamed(scan, variable);
    return isOneOf(next(scan), "{$") && found(scan, sigil);
}

// What begins with `$`, which is taken already. `close` ends the string that it stands in.
static bool foundScalar(Scan* scan, enum Place place, int32_t close) {
    const int32_t c = next(scan);
    if (place == InCode && isDue(scan, Placeholder) && isOneOf(c, ",)= \t\n")) return foundPlaceholder(scan);
    if (place == InCode && isSpace(c)) return foundSpaced(scan, Scalar, ScalarSigil);
    if (atEnd(scan) || (place != InCode && c == close)) return false;
    if (isWordStart(c)) return foundNamed(scan, Scalar);
    if (isDigit(c)) {
        takeDigits(scan);
        return foundHere(scan, Scalar);
    }
    switch (c) {
    case '{':
        return foundBracedOr(scan, place == InCode ? Scalar : ClosedScalar, ScalarSigil);
    case '$':
        return foundTwoDollars(scan, place);
    case '#':
        return place != InRegex && foundLength(scan, place);
    case '^':
        return place != InRegex && foundControlVariable(scan, Scalar);
    case ':':
        return foundRooted(scan, place);
    case '+':
    case '-':
        if (place != InCode) return foundMatchTable(scan);
        break;
    default:
        break;
    }
    if (place == InCode && isDue(scan, PostfixSigils) && takeIf(scan, '*'))
        return foundHere(scan, PostfixSigils);
    if (!isOneOf(c, specialScalars(place))) return false;
    take(scan);
    return foundHere(scan, Scalar);
}

// `->@*` and `->@[...]` behind the sign, which is taken.
static bool foundPostfix(Scan* scan) {
    mark(scan);
    if (isOneOf(next(scan), "[{")) return found(scan, PostfixSlice);
    return takeIf(scan, '*') && foundHere(scan, PostfixSigils);
}

// What begins with `@`, which is taken already.
static bool foundArray(Scan* scan, enum Place place) {
    const int32_t c = next(scan);
    if (isDue(scan, PostfixSigils) && place == InCode) return foundPostfix(scan);
    if (isWordStart(c)) return foundNamed(scan, Array);
    if (place == InCode && isSpace(c)) return foundSpaced(scan, Array, ArraySigil);
    if (place == InCode && c == '^') return foundControlVariable(scan, Array);
    if (c == '{') return foundBracedOr(scan, Array, ArraySigil);
    if (c == '$') {
        mark(scan);
        take(scan);
        return (place == InCode || isReferenceStart(next(scan))) && found(scan, ArraySigil);
    }
    if (c == ':') return takeRootedName(scan) && found(scan, Array);
    if (place != InCode) return false;
    if (isOneOf(c, "-+")) {
        take(scan);
        return foundHere(scan, Array);
    }
    return foundPlaceholder(scan);
}

static bool foundHash(Scan* scan) {
    const int32_t c = next(scan);
    if (isDue(scan, PostfixSigils)) return foundPostfix(scan);
    if (isWordStart(c)) return foundNamed(scan, Hash);
    if (c == ':') return foundNamed(scan, Hash);
    if (c == '{') return foundBracedOr(scan, Hash, HashSigil);
    if (c == '$') return foundHere(scan, HashSigil);
    if (isSpace(c)) return foundSpaced(scan, Hash, HashSigil);
    if (c == '^') return foundControlVariable(scan, Hash);
    if (isOneOf(c, "+-!")) {
        take(scan);
        return foundHere(scan, Hash);
    }
    return foundPlaceholder(scan);
}

static const char specialGlobs[] = "&`'+!@/\\,;.-()<>[]\"~=%?|0123456789";

// What begins with `&` or `*`, which is taken.
static bool foundNamedOrSigil(Scan* scan, enum Token variable, enum Token sigil) {
    if (isDue(scan, PostfixSigils)) return takeIf(scan, '*') && foundHere(scan, PostfixSigils);
    if (variable == Glob && next(scan) == '^') return foundControlVariable(scan, Glob);
    if (variable == Glob && isOneOf(next(scan), specialGlobs)) {
        take(scan);
        return foundHere(scan, Glob);
    }
    takeSpaces(scan);
    if (isOneOf(next(scan), "${")) return foundHere(scan, sigil);
    if (!isWordStart(next(scan)) && next(scan) != ':') return false;
    return foundNamed(scan, variable);
}
