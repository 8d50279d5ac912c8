// Words, and what Perl's own of them want behind them.
#pragma once

#include "languages/grammars/Perl/Scan.h"

#include <stdlib.h>

enum WordClass {
    User,          // not Perl's own
    Keyword,       // the grammar's: the scanner leaves it alone
    BlockKeyword,  // a keyword before a brace, a function with one operand elsewhere
    PhaseKeyword,  // a keyword before a brace, the user's elsewhere
    ParenKeyword,  // a keyword before a parenthesis, the user's elsewhere
    StateKeyword,  // `state`, which is a keyword before a variable
    FormatKeyword, // `format`
    Nullary,       // a function without arguments
    Operand,       // one with at most one, which binds tightly
    List,          // one that takes all that follows
    Printer,       // print and the like: a handle may come first
    Sorting,       // sort: a block or the name of a function may
    Mapping,       // map and the like: a block may
    Returning,     // return
    Jumping,       // next and the like
    Quoting,       // q and the like
    DataMark,      // __END__
    Infix,         // an operator, or a modifier of a statement
};

enum { wordLimit = 20 }; // Perl's own are shorter

typedef struct {
    char text[wordLimit];
    unsigned length;  // of all of it; the text has what fits
    bool isQualified; // with ::
    bool isShouted;   // without small letters
    bool takenColon;  // a colon behind it is taken already, and is not part of it
    bool takenQuote;  // a single quote is
} Word;

typedef struct {
    const char* text;
    enum WordClass wordClass;
} KnownWord;

// In the order of strcmp.
static const KnownWord knownWords[] = {
    {"AUTOLOAD", PhaseKeyword},
    {"BEGIN", PhaseKeyword},
    {"CHECK", PhaseKeyword},
    {"DESTROY", PhaseKeyword},
    {"END", PhaseKeyword},
    {"INIT", PhaseKeyword},
    {"UNITCHECK", PhaseKeyword},
    {"__DATA__", DataMark},
    {"__END__", DataMark},
    {"__FILE__", Nullary},
    {"__LINE__", Nullary},
    {"__PACKAGE__", Nullary},
    {"__SUB__", Nullary},
    {"abs", Operand},
    {"accept", List},
    {"alarm", Operand},
    {"and", Infix},
    {"atan2", List},
    {"bind", List},
    {"binmode", List},
    {"bless", List},
    {"break", Nullary},
    {"caller", Operand},
    {"chdir", Operand},
    {"chmod", List},
    {"chomp", Operand},
    {"chop", Operand},
    {"chown", List},
    {"chr", Operand},
    {"chroot", Operand},
    {"close", Operand},
    {"closedir", Operand},
    {"cmp", Infix},
    {"connect", List},
    {"continue", BlockKeyword},
    {"cos", Operand},
    {"crypt", List},
    {"dbmclose", Operand},
    {"dbmopen", List},
    {"default", PhaseKeyword},
    {"defer", PhaseKeyword},
    {"defined", Operand},
    {"delete", Operand},
    {"die", List},
    {"do", BlockKeyword},
    {"each", Operand},
    {"else", Keyword},
    {"elsif", Keyword},
    {"eof", Operand},
    {"eq", Infix},
    {"eval", BlockKeyword},
    {"evalbytes", Operand},
    {"exec", Mapping},
    {"exists", Operand},
    {"exit", Operand},
    {"exp", Operand},
    {"fc", Operand},
    {"fcntl", List},
    {"fileno", Operand},
    {"flock", List},
    {"for", Infix},
    {"foreach", Infix},
    {"fork", Nullary},
    {"format", FormatKeyword},
    {"formline", List},
    {"ge", Infix},
    {"getc", Operand},
    {"getlogin", Nullary},
    {"getpeername", Operand},
    {"getpgrp", Operand},
    {"getppid", Nullary},
    {"getpriority", List},
    {"getsockname", Operand},
    {"getsockopt", List},
    {"given", ParenKeyword},
    {"glob", Operand},
    {"gmtime", Operand},
    {"goto", Jumping},
    {"grep", Mapping},
    {"gt", Infix},
    {"hex", Operand},
    {"if", Infix},
    {"index", List},
    {"int", Operand},
    {"ioctl", List},
    {"isa", Infix},
    {"join", List},
    {"keys", Operand},
    {"kill", List},
    {"last", Jumping},
    {"lc", Operand},
    {"lcfirst", Operand},
    {"le", Infix},
    {"length", Operand},
    {"link", List},
    {"listen", List},
    {"local", Keyword},
    {"localtime", Operand},
    {"lock", Operand},
    {"log", Operand},
    {"lstat", Operand},
    {"lt", Infix},
    {"m", Quoting},
    {"map", Mapping},
    {"mkdir", List},
    {"my", Keyword},
    {"ne", Infix},
    {"next", Jumping},
    {"no", Keyword},
    {"not", Keyword},
    {"oct", Operand},
    {"open", List},
    {"opendir", List},
    {"or", Infix},
    {"ord", Operand},
    {"our", Keyword},
    {"pack", List},
    {"package", Keyword},
    {"pipe", List},
    {"pop", Operand},
    {"pos", Operand},
    {"print", Printer},
    {"printf", Printer},
    {"prototype", Operand},
    {"push", List},
    {"q", Quoting},
    {"qq", Quoting},
    {"qr", Quoting},
    {"quotemeta", Operand},
    {"qw", Quoting},
    {"qx", Quoting},
    {"rand", Operand},
    {"read", List},
    {"readdir", Operand},
    {"readline", Operand},
    {"readlink", Operand},
    {"recv", List},
    {"redo", Jumping},
    {"ref", Operand},
    {"rename", List},
    {"require", Operand},
    {"reset", Operand},
    {"return", Returning},
    {"reverse", List},
    {"rewinddir", Operand},
    {"rindex", List},
    {"rmdir", Operand},
    {"s", Quoting},
    {"say", Printer},
    {"scalar", Operand},
    {"seek", List},
    {"seekdir", List},
    {"select", List},
    {"send", List},
    {"setsockopt", List},
    {"shift", Operand},
    {"shutdown", List},
    {"sin", Operand},
    {"sleep", Operand},
    {"socket", List},
    {"socketpair", List},
    {"sort", Sorting},
    {"splice", List},
    {"split", List},
    {"sprintf", List},
    {"sqrt", Operand},
    {"srand", Operand},
    {"stat", Operand},
    {"state", StateKeyword},
    {"study", Operand},
    {"sub", Keyword},
    {"substr", List},
    {"symlink", List},
    {"syscall", List},
    {"sysopen", List},
    {"sysread", List},
    {"sysseek", List},
    {"system", Mapping},
    {"syswrite", List},
    {"tell", Operand},
    {"telldir", Operand},
    {"tie", List},
    {"tied", Operand},
    {"time", Nullary},
    {"times", Nullary},
    {"tr", Quoting},
    {"truncate", List},
    {"uc", Operand},
    {"ucfirst", Operand},
    {"umask", Operand},
    {"undef", Operand},
    {"unless", Infix},
    {"unlink", List},
    {"unpack", List},
    {"unshift", List},
    {"untie", Operand},
    {"until", Infix},
    {"use", Keyword},
    {"utime", List},
    {"values", Operand},
    {"vec", List},
    {"wait", Nullary},
    {"waitpid", List},
    {"wantarray", Nullary},
    {"warn", List},
    {"when", ParenKeyword},
    {"while", Infix},
    {"write", Operand},
    {"x", Infix},
    {"xor", Infix},
    {"y", Quoting},
};

static bool isWord(const Word* word, const char* text) {
    return word->length == strlen(text) && strncmp(word->text, text, wordLimit) == 0;
}

static int compareKnown(const void* text, const void* known) {
    return strcmp((const char*)text, ((const KnownWord*)known)->text);
}

static enum WordClass classOf(const Word* word) {
    if (word->isQualified || word->length >= wordLimit) return User;
    const KnownWord* known = (const KnownWord*)bsearch(
        word->text, knownWords, sizeof knownWords / sizeof *knownWords, sizeof *knownWords, compareKnown);
    return known == NULL ? User : known->wordClass;
}

static void addToWord(Scan* scan, Word* word) {
    const int32_t c = next(scan);
    if (c >= 'a' && c <= 'z') word->isShouted = false;
    if (word->length < wordLimit - 1) word->text[word->length] = c < 0x80 ? (char)c : '?';
    ++word->length;
    take(scan);
}

// Takes the colons of Package::name; false if there is one alone.
static bool takeSeparator(Scan* scan, Word* word) {
    take(scan);
    word->takenColon = !takeIf(scan, ':');
    word->isQualified = word->isQualified || !word->takenColon;
    return !word->takenColon;
}

// `isn't` is isn::t; quotes behind Perl's own words and behind those in capitals begin a string.
static bool takeOldSeparator(Scan* scan, Word* word) {
    if (word->isShouted || classOf(word) != User) return false;
    take(scan);
    word->takenQuote = !isWordStart(next(scan));
    return !word->takenQuote;
}

// Takes a word and marks its end. What is taken behind that end, the word tells.
static Word takeWord(Scan* scan) {
    Word word = {.isShouted = true};
    for (;;) {
        while (isWordPart(next(scan)))
            addToWord(scan, &word);
        mark(scan);
        if (next(scan) == ':' && takeSeparator(scan, &word)) continue;
        if (word.takenColon) return word;
        if (next(scan) != '\'' || !takeOldSeparator(scan, &word)) return word;
    }
}
