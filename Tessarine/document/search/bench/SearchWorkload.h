#pragma once

#include "Tessarine/document/bench/PeerTable.h"
#include "Tessarine/document/bench/Samples.h"

#include <array>
#include <cstdio>
#include <optional>

namespace tessarine {

// What is looked for in sourceText(1'000'000), the same in every peer.
struct SearchTask {
    const char* key;
    const char* name;
    const char* pattern;
    int matches;
    bool isRegularExpression;
    bool isCaseSensitive;
};

inline constexpr int hits = 83'333;

inline constexpr std::array searchTasks{
    SearchTask{"literalMiss", "literal, no match", "nowhere to be found", 0, false, true},
    SearchTask{"literalNearMiss", "literal that nearly matches, none", "total -= name", 0, false, true},
    SearchTask{"literalHit", "literal, 83,333 matches", "static int function", hits, false, true},
    SearchTask{"anyCaseMiss", "literal in any case, no match", "nowhere to be found", 0, false, false},
    SearchTask{"anyCaseHit", "literal in any case, 83,333 matches", "STATIC int function", hits, false,
               false},
    SearchTask{"regexMiss", "expression, no match", "nowhere [a-z]+ found", 0, true, true},
    SearchTask{"regexHit", "expression, 83,333 matches", "function[0-9]+[(]", hits, true, true},
    SearchTask{"regexAnyCaseMiss", "expression in any case, no match", "nowhere [a-z]+ found", 0, true,
               false},
    SearchTask{"wordMiss", "a whole word, no match", "\\bnowhere\\b", 0, true, true},
    SearchTask{"regexCommonMiss", "expression with a common start, no match", "i[a-z]+ nowhere", 0, true,
               true},
    SearchTask{"regexOpenMiss", "expression without a literal, no match", "[g-m]+[0-9]+ nowhere", 0, true,
               true},
};

template <class Work>
Figure measureMilliseconds(int rounds, Work&& work) {
    constexpr double nanosecondsPerMillisecond = 1e6;
    Samples samples;
    for (int i = 0; i < rounds; ++i)
        samples.measure(work);
    return {samples.median() / nanosecondsPerMillisecond, samples.p99() / nanosecondsPerMillisecond};
}

// Times a search, which tells the number of matches, or nothing for what it can not look for. One that finds
// anything else than it should has no figure.
template <class Search>
Figures measureSearches(int rounds, Search&& search) {
    Figures figures;
    for (const SearchTask& task : searchTasks) {
        std::optional<int> matches = search(task); // once, so that nothing is measured cold
        if (!matches) continue;
        const Figure figure = measureMilliseconds(rounds, [&] { matches = search(task); });
        if (matches == task.matches)
            figures[task.key] = figure;
        else
            std::fprintf(stderr, "%s: %d matches\n", task.name, matches.value_or(0));
    }
    return figures;
}

} // namespace tessarine
