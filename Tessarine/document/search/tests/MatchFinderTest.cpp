#include "Tessarine/document/search/MatchFinder.h"

#include "Tessarine/document/TextStore.h"
#include "Tessarine/document/UnicodeText.h"
#include "Tessarine/document/search/CaseFolding.h"
#include "Tessarine/document/tests/RandomText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <latch>
#include <thread>
#include <unicode/regex.h>
#include <unicode/unistr.h>

using namespace tessarine;
using testing::ElementsAre;

namespace {

using Ranges = std::vector<std::pair<std::int64_t, std::int64_t>>;

constexpr TextStoreLimits tiny{4, 4};

// Where ICU itself finds the query, quoted unless it is a regular expression.
Ranges oracle(const TextSnapshot& text, const SearchQuery& query) {
    UErrorCode status = U_ZERO_ERROR;
    const std::uint32_t flags = (query.isRegularExpression ? UREGEX_MULTILINE : UREGEX_LITERAL) |
                                (query.isCaseSensitive ? 0 : UREGEX_CASE_INSENSITIVE);
    icu::RegexMatcher matcher(icu::UnicodeString(query.text.c_str()), flags, status);
    UnicodeText unicodeText(text);
    matcher.reset(unicodeText.get());
    Ranges ranges;
    while (matcher.find(status))
        if (matcher.end64(status) > matcher.start64(status))
            ranges.emplace_back(matcher.start64(status), matcher.end64(status));
    EXPECT_TRUE(U_SUCCESS(status)) << u_errorName(status);
    return ranges;
}

Ranges rangesOf(const std::vector<SearchMatch>& matches) {
    Ranges ranges;
    for (const SearchMatch& match : matches)
        ranges.emplace_back(match.range.location, match.range.limit());
    return ranges;
}

Ranges found(const TextSnapshot& text, const SearchQuery& query) {
    const auto matches = allMatches(text, query);
    EXPECT_TRUE(matches.has_value());
    return matches ? rangesOf(*matches) : Ranges();
}

TextSnapshot textOf(std::u16string_view text) {
    return TextStore(text, tiny).text();
}

// Few different characters, so that matches and near misses are many: plain letters, some that fold to
// several or to other widths, pairs, and their halves alone.
std::u16string fromAlphabet(RandomText& random, std::int64_t count) {
    static const std::u16string letters[] = {
        u"a",      u"A",          u"b",          u"s",         u"S",      u"\u00DF", u"\u1E9E",
        u"\u017F", u"k",          u"\u212A",     u"\u00B5",    u"\u03BC", u"\u0130", u"i\u0307",
        u"\uFB01", u"fi",         u"\u0149",     u"\u02BCn",   u"\u0416", u"\u0436", u"\xD83D",
        u"\xDE00", u"\U00010400", u"\U00010428", u"\U0001F600"};
    const std::int64_t kinds = 1 + random.upTo(23);
    const std::int64_t first = random.upTo(24);
    std::u16string text;
    for (; count > 0; --count)
        text += letters[(first + random.upTo(kinds)) % 25];
    return text;
}

TEST(MatchFinder, LiteralsAreFoundWhereTheQuotedExpressionFindsThem) {
    for (std::uint32_t seed = 1; seed <= 3000; ++seed) {
        RandomText random(seed);
        const std::u16string text = fromAlphabet(random, random.upTo(200));
        const TextStore store(text, random.upTo(1) ? tiny : TextStoreLimits());
        // A stretch of the text itself or another, up to what no longer fits one chunk.
        SearchQuery query{fromAlphabet(random, 1 + random.upTo(3)), false, random.upTo(1) == 0};
        if (!text.empty() && random.upTo(2) > 0)
            query.text = text.substr(static_cast<std::size_t>(random.upTo(std::ssize(text) - 1)),
                                     static_cast<std::size_t>(1 + random.upTo(random.upTo(50))));
        ASSERT_EQ(found(store.text(), query), oracle(store.text(), query)) << "seed " << seed;
        query.isRegularExpression = true;
        ASSERT_EQ(found(store.text(), query), oracle(store.text(), query)) << "seed " << seed;
    }
}

// Every character that folds at all, between the others of its folding.
TEST(MatchFinder, AnyCaseIsWhatICUTakesForIt) {
    std::u16string all;
    std::vector<std::u16string> patterns;
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        if (character == 0xD800) character = 0xE000;
        const icu::UnicodeString text(static_cast<UChar32>(character));
        const icu::UnicodeString folded = icu::UnicodeString(text).foldCase();
        const std::u32string ours(CaseFolding::shared().fold(character).view());
        ASSERT_EQ(icu::UnicodeString::fromUTF32(reinterpret_cast<const UChar32*>(ours.data()),
                                                static_cast<std::int32_t>(ours.size())),
                  folded);
        if (folded == text) continue;
        for (const icu::UnicodeString& part : {text, folded}) {
            all.append(part.getBuffer(), static_cast<std::size_t>(part.length())).append(u"-");
            patterns.emplace_back(part.getBuffer(), static_cast<std::size_t>(part.length()));
        }
    }
    const TextStore store(all);
    for (const std::u16string& pattern : patterns)
        ASSERT_EQ(found(store.text(), {pattern}), oracle(store.text(), {pattern}))
            << testing::PrintToString(pattern);
}

// An expression, or nearly one, of literals and what may stand around them.
std::u16string randomExpression(RandomText& random) {
    static const std::u16string parts[] = {
        u"a",     u"s",       u"ss",         u"\u00DF", u"k",    u"A",   u"st", u"\xD83D", u"\\xs",
        u"\\x73", u"\\uDE00", u"\U0001F600", u"(a|s)",  u"(",    u")",   u"|",  u"[ab]",   u"[)|]",
        u"?",     u"*",       u"+",          u"{2}",    u".",    u"\\b", u"^",  u"$",      u"\\Qa|\\E",
        u"(?=s)", u"\\c(",    u"(?i)",       u"(?#()",  u"(?x)", u" ",   u"#",  u"\\Q\\E"};
    std::u16string expression;
    for (std::int64_t count = 1 + random.upTo(4); count > 0; --count)
        expression += parts[random.upTo(std::size(parts) - 1)];
    return expression;
}

TEST(MatchFinder, ExpressionsAreFoundWhereICUFindsThem) {
    int valid = 0;
    for (std::uint32_t seed = 1; seed <= 40'000; ++seed) {
        RandomText random(seed);
        const SearchQuery query{randomExpression(random), true, random.upTo(1) == 0};
        UErrorCode status = U_ZERO_ERROR;
        const icu::RegexMatcher matcher(icu::UnicodeString(query.text.c_str()), 0, status);
        if (U_FAILURE(status)) continue;
        ++valid;
        const TextSnapshot text = textOf(fromAlphabet(random, random.upTo(120)));
        ASSERT_EQ(found(text, query), oracle(text, query))
            << "seed " << seed << " " << testing::PrintToString(query.text);
    }
    EXPECT_GT(valid, 5000);
}

TEST(MatchFinder, AQuantifierReachesBackOverWhatIsEmpty) {
    for (const char16_t* pattern : {u"ab\\Q\\E*c", u"ab(?#x)*c", u"a\\Q\\E(?#x)*c", u"\\b^ab{0}c", u"ab|c"})
        EXPECT_EQ(found(textOf(u"ac abc c"), {pattern, true, true}),
                  oracle(textOf(u"ac abc c"), {pattern, true, true}));
}

// A prefix that is rare and then frequent, matches far apart and then none.
TEST(MatchFinder, PrefixesLeadToAllMatches) {
    std::u16string text(5000, u'-');
    for (int i = 0; i < 40; ++i)
        text += u"abx" + std::u16string(static_cast<std::size_t>(i % 7 == 0 ? 3000 : 1), u'-') + u"aabY";
    text += std::u16string(5000, u'-') + u"ABy";
    const TextSnapshot snapshot = textOf(text);
    for (const bool isCaseSensitive : {false, true}) {
        const SearchQuery query{u"ab(x-aab)?[yY]", true, isCaseSensitive};
        EXPECT_FALSE(found(snapshot, query).empty());
        EXPECT_EQ(found(snapshot, query), oracle(snapshot, query));
    }
}

TEST(MatchFinder, ExpressionsMatchOverTheWholeText) {
    const std::u16string text = u"one\ntwo\r\n\nthree \U0001F600 ONE";
    for (const char16_t* pattern :
         {u"^", u"^\\w", u".$", u"(?<=\\n)t", u"o*", u"one|\U0001F600", u"\\bO", u"a.b", u"(?s)e.t"})
        for (const bool isCaseSensitive : {false, true}) {
            const SearchQuery query{pattern, true, isCaseSensitive};
            EXPECT_EQ(found(textOf(text), query), oracle(textOf(text), query));
        }
    EXPECT_EQ(found(textOf(u"a.b axb A.B"), {u"a.b", false, false}), (Ranges{{0, 3}, {8, 11}}));
    EXPECT_EQ(found(textOf(u"a.b axb A.B"), {u"a.b", true, true}), (Ranges{{0, 3}, {4, 7}}));
    EXPECT_EQ(found(textOf(text), {u"^", true, true}), Ranges());
    EXPECT_EQ(found(textOf(text), {u"", true, true}), Ranges());
}

TEST(MatchFinder, GroupsThatTookNoPartHaveNoRange) {
    const auto matches = allMatches(textOf(u"xb"), {u"x(a)?(b)()", true, true});
    ASSERT_TRUE(matches);
    EXPECT_THAT(*matches, ElementsAre(SearchMatch{{0, 2}, {std::nullopt, TextRange{1, 1}, TextRange{2, 0}}}));
}

TEST(MatchFinder, PiecesMakeUpTheWholeFromAnyStart) {
    RandomText random(7);
    const TextSnapshot text =
        textOf(fromAlphabet(random, 300) + u"aab\U0001F600" + fromAlphabet(random, 300));
    for (const SearchQuery& query : {SearchQuery{u"a"}, SearchQuery{u"[^a]", true},
                                     SearchQuery{u"(?<=a).", true}, SearchQuery{u"\xDE00"}}) {
        auto finder = MatchFinder::create(text, query);
        Ranges inPieces;
        for (std::size_t count = 1;; ++count) {
            const Ranges piece = rangesOf(*finder->next(count));
            inPieces.insert(inPieces.end(), piece.begin(), piece.end());
            if (piece.size() < count) break;
        }
        const Ranges all = found(text, query);
        EXPECT_EQ(inPieces, all);
        for (std::int64_t start = 0; start <= text.length(); ++start) {
            const auto next = MatchFinder::create(text, query, start)->next(1);
            const auto expected =
                std::ranges::find_if(all, [&](const auto& range) { return range.first >= start; });
            ASSERT_EQ(rangesOf(*next), expected == all.end() ? Ranges() : Ranges{*expected}) << start;
        }
    }
}

SearchError::Kind errorOf(const TextSnapshot& text, const std::u16string& pattern) {
    const auto matches = allMatches(text, {pattern, true, true});
    EXPECT_FALSE(matches.has_value());
    return matches ? SearchError::Kind::failed : matches.error().kind;
}

TEST(MatchFinder, InvalidPatternsAreErrors) {
    using enum SearchError::Kind;
    for (const char16_t* pattern : {u"(", u"a**", u"[z-a]", u"\\", u"(?<=a*)b", u"a{2,1}", u"\\p{Nothing}"})
        EXPECT_EQ(errorOf(textOf(u"text"), pattern), invalidPattern);
}

TEST(MatchFinder, ExpressionsThatWouldRunForEverOrEatAllMemoryAreStopped) {
    using enum SearchError::Kind;
    EXPECT_EQ(errorOf(textOf(std::u16string(60, u'a')), u"(a+)+b"), timeLimit);
    std::u16string alternating;
    while (alternating.size() < 3'000'000)
        alternating += u"xy";
    EXPECT_EQ(errorOf(TextStore(alternating).text(), u"(x|y)*z"), stackLimit);
}

// The limit is for the way from one match to the next, not for all of them.
TEST(MatchFinder, ManyMatchesAreNoReasonToStop) {
    std::u16string text;
    for (int i = 0; i < 12; ++i)
        text += std::u16string(21, u'a') + u"b ";
    EXPECT_EQ(found(textOf(text), {u"(?:(a+)+c)?b", true, true}).size(), 12U);
}

// A try at a place that a match may begin at is no search of its own.
TEST(MatchFinder, TriesAtAPrefixCountTogether) {
    std::u16string text;
    for (int i = 0; i < 12; ++i)
        text += u"foo" + std::u16string(22, u'a') + u" ";
    EXPECT_EQ(errorOf(textOf(text), u"foo(a+)+b"), SearchError::Kind::timeLimit);
    text += u"foob";
    EXPECT_EQ(found(textOf(text), {u"foo(a+)?b", true, true}), (Ranges{{312, 316}}));
}

TEST(MatchFinder, StopsWhenItIsTold) {
    const TextSnapshot text = TextStore(std::u16string(1'000'000, u'a')).text();
    for (const SearchQuery& query :
         {SearchQuery{u"a"}, SearchQuery{u"b"}, SearchQuery{u"a|b", true}, SearchQuery{u"(a+)+b", true}}) {
        std::stop_source source;
        auto finder = MatchFinder::create(text, query, 0, source.get_token());
        source.request_stop();
        const auto next = finder->next();
        ASSERT_FALSE(next.has_value());
        EXPECT_EQ(next.error().kind, SearchError::Kind::cancelled);
    }
}

// Without the stop this would be the time limit's error.
TEST(MatchFinder, StopsInTheMidstOfAMatch) {
    const TextSnapshot text = TextStore(std::u16string(64, u'a')).text();
    std::stop_source source;
    auto finder = MatchFinder::create(text, {u"(a+)+b", true, true}, 0, source.get_token());
    std::optional<MatchEngine::Next> next;
    std::latch begun(1);
    std::jthread searching([&] {
        begun.count_down();
        next = finder->next();
    });
    begun.wait();
    source.request_stop();
    searching.join();
    ASSERT_FALSE(next->has_value());
    EXPECT_EQ(next->error().kind, SearchError::Kind::cancelled);
}

TEST(MatchFinder, TheDocumentMayChangeMeanwhile) {
    TextStore store(u"one two one", tiny);
    auto expression = MatchFinder::create(store.text(), {u"o.e", true});
    auto literal = MatchFinder::create(store.text(), {u"one"});
    store.replace(0, 11, u"");
    EXPECT_EQ(rangesOf(*expression->next(9)), (Ranges{{0, 3}, {8, 11}}));
    EXPECT_EQ(rangesOf(*literal->next(9)), (Ranges{{0, 3}, {8, 11}}));
}

} // namespace
