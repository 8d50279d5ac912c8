// The words that stand where an operand is due.
#pragma once

#include "languages/grammars/Perl/Following.h"
#include "languages/grammars/Perl/Quotes.h"

static bool foundIfDue(Scan* scan, enum Token token) {
    return isDue(scan, token) && found(scan, token);
}

// Which token a function is that wants its arguments without parentheses, with them, or has none.
typedef struct {
    enum Token open, closed, alone;
} Forms;

static bool foundForm(Scan* scan, enum Following behind, Forms forms) {
    switch (behind) {
    case Parenthesis:
    case SpacedParenthesis:
        return found(scan, forms.closed);
    case Term:
    case Brace:
        return found(scan, forms.open);
    default:
        return found(scan, forms.alone);
    }
}

// `v5.36`, whose first part is taken.
static bool foundVersion(Scan* scan) {
    while (takeIf(scan, '.') && isDigit(next(scan))) {
        takeDigits(scan);
        mark(scan);
    }
    return foundIfDue(scan, Version);
}

static bool isVersion(const Word* word) {
    if (word->text[0] != 'v' || word->length < 2 || word->length >= wordLimit) return false;
    return strspn(word->text + 1, "0123456789") == word->length - 1;
}

// `new Class(...)`: behind the class come its arguments or the end.
static bool isObject(Scan* scan) {
    if (takeIf(scan, '$')) {
        takeWordParts(scan);
    } else {
        takeWordParts(scan);
        while (takeIf(scan, ':'))
            takeWordParts(scan);
    }
    takeBlanks(scan);
    return atEnd(scan) || isOneOf(next(scan), "(;,)}]");
}

// The names of functions in capitals are mostly constants and handles.
static enum Reading readingBehind(const Word* word, enum WordClass wordClass) {
    switch (wordClass) {
    case Operand:
        return MayStandAlone;
    case User:
        return word->isShouted ? WantsNone : MayWant;
    default:
        return WantsOperand;
    }
}

// The handle of print, the function of sort.
static bool isFirstArgument(const Scan* scan, const Word* word, enum Following behind) {
    if (behind != Term && behind != SpacedParenthesis) return false;
    return (isDue(scan, Handle) && word->isShouted) || isDue(scan, Sorter);
}

static bool foundBlockOrHashBehind(Scan* scan, const Word* word) {
    take(scan);
    if (isHashBehindBrace(scan, true)) return found(scan, CallWithList);
    return found(scan, isWord(word, "try") ? Try : CallWithBlock);
}

static bool foundUserWord(Scan* scan, const Word* word, enum Following behind) {
    if (isFirstArgument(scan, word, behind)) return found(scan, isDue(scan, Handle) ? Handle : Sorter);
    if (isWord(word, "catch") && behind <= SpacedParenthesis && behind >= Parenthesis && isDue(scan, Catch))
        return found(scan, Catch);
    if (behind == Brace && isWord(word, "finally") && isDue(scan, Finally)) return found(scan, Finally);
    if (behind == Brace) return foundBlockOrHashBehind(scan, word);
    const Forms forms = {CallWithList, CallWithParentheses, Bareword};
    return foundForm(scan, behind, forms);
}

static bool foundCall(Scan* scan, const Word* word, enum WordClass wordClass, enum Following behind) {
    const bool isBracketed = behind == Parenthesis || behind == SpacedParenthesis;
    switch (wordClass) {
    case Keyword:
    case Infix:
        return false;
    case BlockKeyword:
        return behind != Brace && foundCall(scan, word, Operand, behind);
    case PhaseKeyword:
        return behind != Brace && foundUserWord(scan, word, behind);
    case ParenKeyword:
        return !isBracketed && foundUserWord(scan, word, behind);
    case StateKeyword:
        return behind != Term && !isBracketed && foundUserWord(scan, word, behind);
    case Nullary:
        return found(scan, isBracketed ? CallWithParentheses : CallAlone);
    case Operand:
        return foundForm(scan, behind, (Forms){CallWithOperand, CallWithParentheses, CallAlone});
    case List:
        return foundForm(scan, behind, (Forms){CallWithList, CallWithParentheses, CallAlone});
    case Printer:
        return foundForm(scan, behind, (Forms){Print, PrintInParentheses, CallAlone});
    case Sorting:
        return foundForm(scan, behind, (Forms){Sort, SortInParentheses, CallAlone});
    case Mapping:
        return foundForm(scan, behind, (Forms){Map, MapInParentheses, CallAlone});
    case Returning:
        return foundForm(scan, behind, (Forms){Return, Return, ReturnAlone});
    case Jumping:
        return foundForm(scan, behind, (Forms){Jump, Jump, JumpAlone});
    default:
        return foundUserWord(scan, word, behind);
    }
}

// A word by what comes behind it.
static bool foundBefore(Scan* scan, const Word* word, enum WordClass wordClass, enum Following behind) {
    if (behind == FatComma) return foundIfDue(scan, QuotedWord);
    if (behind == ClosingBrace && isDue(scan, Key)) return found(scan, Key);
    if (behind == Colon && !word->isQualified && isDue(scan, Label)) return found(scan, Label);
    return foundCall(scan, word, wordClass, behind);
}

static bool foundWordBehindBlanks(Scan* scan, const Word* word, enum WordClass wordClass, bool spaced) {
    const enum Reading reading =
        isDue(scan, Handle) && wordClass == User ? MayWant : readingBehind(word, wordClass);
    return foundBefore(scan, word, wordClass, followingBehindBlanks(scan, reading, spaced));
}

static bool foundPlainWord(Scan* scan, const Word* word, enum WordClass wordClass) {
    if (word->takenColon) return foundBefore(scan, word, wordClass, Colon);
    if (word->takenQuote) return foundBefore(scan, word, wordClass, Term);
    return foundWordBehindBlanks(scan, word, wordClass, takeBlanks(scan));
}

static bool foundNew(Scan* scan, const Word* word) {
    if (word->takenColon || word->takenQuote) return foundPlainWord(scan, word, User);
    const bool spaced = takeBlanks(scan);
    if (next(scan) != '$' && !isWordStart(next(scan))) return foundWordBehindBlanks(scan, word, User, spaced);
    return found(scan, isObject(scan) ? New : CallWithList);
}

// `format NAME =`
static bool foundFormat(Scan* scan, const Word* word) {
    if (word->takenColon || word->takenQuote) return foundPlainWord(scan, word, User);
    const bool spaced = takeBlanks(scan);
    if (isWordStart(next(scan))) {
        takeWordParts(scan);
        takeBlanks(scan);
    } else if (next(scan) != '=') {
        return foundWordBehindBlanks(scan, word, User, spaced);
    }
    if (!takeIf(scan, '=')) return found(scan, CallWithList);
    if (next(scan) == '>') return foundIfDue(scan, QuotedWord);
    return isDue(scan, Format) ? found(scan, Format) : found(scan, Bareword);
}

// `=` behind q and the like, which may delimit, and is a part of a fat comma elsewhere.
static bool foundQuoteBehindWord(Scan* scan, const Word* word) {
    if (word->takenColon && isSpace(next(scan))) return foundPlainWord(scan, word, User);
    if (word->takenColon) return foundQuoteNamed(scan, word, ':');
    const bool spaced = isSpace(next(scan));
    if (spaced) takeBlanks(scan);
    const int32_t c = next(scan);
    if (isWordPart(c) || isOneOf(c, ")}") || (spaced && isOneOf(c, ",;=:?")))
        return foundWordBehindBlanks(scan, word, User, spaced);
    take(scan);
    return foundQuoteNamed(scan, word, c);
}

static bool foundTakenWord(Scan* scan, Word word) {
    if (isVersion(&word)) return foundVersion(scan);
    if (!isDue(scan, CallAlone)) return foundIfDue(scan, Bareword); // the class behind new
    const enum WordClass wordClass = classOf(&word);
    if (wordClass == Quoting) return foundQuoteBehindWord(scan, &word);
    if (wordClass == FormatKeyword) return foundFormat(scan, &word);
    if (wordClass == DataMark) return foundIfDue(scan, DataMarker);
    if (isWord(&word, "new")) return foundNew(scan, &word);
    return foundPlainWord(scan, &word, wordClass);
}

static bool foundWord(Scan* scan) {
    return foundTakenWord(scan, takeWord(scan));
}

// `::name`
static bool foundRootedWord(Scan* scan) {
    if (!isDue(scan, CallAlone) || !takeIf(scan, ':') || !takeIf(scan, ':') || !isWordStart(next(scan)))
        return false;
    Word word = takeWord(scan);
    word.isQualified = true;
    return foundTakenWord(scan, word);
}
