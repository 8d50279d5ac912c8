#include "Tessarine/document/TextStore.h"
#include "Tessarine/document/search/ReplaceAll.h"
#include "Tessarine/document/search/ReplacementStringParser.h"
#include "Tessarine/document/tests/RandomText.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace tessarine;

namespace {

using Component = ParsedReplacementString::Component;
using enum StringModifier;

Component text(std::u16string text) {
    return TextParameters{std::move(text)};
}

Component group(std::int64_t index, std::vector<StringModifier> modifiers = {}) {
    return PlaceholderParameters{std::move(modifiers), index};
}

struct TemplateCase {
    std::u16string string;
    std::vector<Component> components;
};

TEST(ReplacementStringParser, TakesTemplatesApart) {
    const TemplateCase cases[] = {
        {u"", {}},
        {u"$", {text(u"$")}},
        {u"$a", {text(u"$a")}},
        {u"$$1", {text(u"$"), group(1)}},
        {u"$1a", {group(1), text(u"a")}},
        {u"a$12$3", {text(u"a"), group(12), group(3)}},
        {u"$007", {group(7)}},
        {u"\\$1", {text(u"$1")}},
        {u"$1\\", {group(1), text(u"\\")}},
        {u"\\n", {text(u"\\n")}},
        {u"\\u$1", {group(1, {uppercaseLetter})}},
        {u"a\\u\\L$1", {text(u"a"), group(1, {uppercaseLetter, lowercaseAllLetters})}},
        {u"\\U$1$2", {group(1, {uppercaseAllLetters}), group(2)}},
        {u"\\l\\Ua", {text(u"\\l\\Ua")}},
        {u"\\l\\n$1", {text(u"\\l\\n"), group(1)}},
        {u"\\l\\$1", {text(u"\\l$1")}},
        {u"\\l$x$1", {text(u"\\l$x"), group(1)}},
        {u"\\\\$1", {text(u"\\\\"), group(1)}},
        {u"\\\\u$1", {text(u"\\\\u"), group(1)}},
        {u"a\\u", {text(u"a")}}, // at the end they go
        {u"$1\\u\\U", {group(1)}},
        {u"\\u\\", {text(u"\\")}},
        // Characters are more than their first code point.
        {u"$1\u0301", {text(u"$1\u0301")}},
        {u"$\u0301$1", {text(u"$\u0301"), group(1)}},
        {u"\\u\u0301$1", {text(u"\\u\u0301"), group(1)}},
        {u"$\uFF11\xD83D$1", {text(u"$\uFF11\xD83D"), group(1)}},
        {u"$1\r\n", {group(1), text(u"\r\n")}},
        {u"a$99999999999999999999", {text(u"a")}},
    };
    for (const TemplateCase& sample : cases)
        EXPECT_EQ(ReplacementStringParser(sample.string).parse(), sample.components)
            << testing::PrintToString(sample.string);
}

TEST(ReplacementStringParser, AnIndexTooLargeInMidTextIsAFault) {
    EXPECT_DEATH((void)ReplacementStringParser(u"$99999999999999999999 ").parse(), "We thought we were");
}

std::u16string all(const TextStore& store) {
    return store.text().substring(0, store.length());
}

// The text with all matches replaced.
std::u16string replaced(const std::u16string& text, const char16_t* pattern, const char16_t* replacement) {
    const TextStore store(text);
    const SearchQuery query{pattern, true, true};
    const auto set = replacementsOfAll(store.text(), query, replacementFor(query, replacement));
    return all(applyBatchReplacements(store.text(), *set).text);
}

TEST(ReplacementTemplate, GroupsAndTheirCase) {
    EXPECT_EQ(replaced(u"key=value", u"(\\w+)=(\\w+)", u"$2=$1 $0"), u"value=key key=value");
    EXPECT_EQ(replaced(u"hELLO", u"(\\w+)", u"\\u\\L$1"), u"Hello");
    EXPECT_EQ(replaced(u"hELLO", u"(\\w+)", u"\\u\\l\\u$1"), u"HeLLO");
    EXPECT_EQ(replaced(u"hELLO", u"(\\w+)", u"\\L\\u$1"), u"hello");
    EXPECT_EQ(replaced(u"word", u"(\\w+)", u"\\U$0-\\U$1"), u"word-WORD");
    EXPECT_EQ(replaced(u"ab", u"(a)(x)?(b)", u"[\\u$2]$9\\U$9$3"), u"[]$9$9b");
    EXPECT_EQ(replaced(u"ab ab", u"(a)(b)", u"$1\\$"), u"a$ a$");
    EXPECT_EQ(replaced(u"\u00DFx", u"(.+)", u"\\u$1"), u"SSx");
    EXPECT_EQ(replaced(u"e\u0301e\u0301", u"(.+)", u"\\u$1"), u"E\u0301e\u0301");
    EXPECT_EQ(replaced(u"\U00010428\U00010428", u"(.+)", u"\\u$1"), u"\U00010400\U00010428");
    EXPECT_EQ(replaced(u"", u"a", u"$0"), u"");
}

TEST(ReplacementTemplate, WithoutAPlaceholderItIsTakenAsTyped) {
    for (const char16_t* typed : {u"\\$", u"\\u", u"\\ua", u"\\\\", u""})
        EXPECT_EQ(replaced(u"a", u"a", typed), typed);
    const SearchQuery literal{u"a.b", false, true};
    EXPECT_EQ(replacementFor(literal, u"$0\\u$1"), ParsedReplacementString::literal(u"$0\\u$1"));
}

TEST(ReplacementTemplate, NothingReplacesWhatCanNotBeFound) {
    const TextStore store(u"text");
    const auto failed = replacementsOfAll(store.text(), {u"(", true}, ParsedReplacementString());
    ASSERT_FALSE(failed.has_value());
    EXPECT_EQ(failed.error().kind, SearchError::Kind::invalidPattern);
}

// One replacement after the other in a plain string.
std::u16string replacedOneByOne(std::u16string text, std::vector<Replacement> replacements) {
    std::ranges::stable_sort(replacements, {}, [](const Replacement& r) { return r.range.location; });
    std::vector<TextRange> done;
    std::int64_t offset = 0;
    for (const auto& replacement : replacements) {
        const TextRange range = replacement.range;
        const bool overlaps = std::ranges::any_of(done, [range](TextRange other) {
            return std::min(range.limit(), other.limit()) > std::max(range.location, other.location);
        });
        if (overlaps) continue;
        text.replace(static_cast<std::size_t>(range.location + offset),
                     static_cast<std::size_t>(range.length), replacement.text);
        done.push_back(range);
        offset += std::ssize(replacement.text) - range.length;
    }
    return text;
}

TEST(BatchReplacement, IsAsOneByOne) {
    for (std::uint32_t seed = 1; seed <= 500; ++seed) {
        RandomText random(seed);
        const std::u16string text = random.units(random.upTo(60));
        const TextStore store(text, {4, 4});
        BatchReplaceSet set;
        for (std::int64_t count = random.upTo(12); count > 0; --count) {
            const std::int64_t location = random.upTo(std::ssize(text));
            const std::int64_t length = random.upTo(std::min<std::int64_t>(std::ssize(text) - location, 6));
            // As long as what it replaces, or longer: what is inserted inside of it finds its place there.
            set.replacements.push_back({{location, length}, random.units(length + random.upTo(3))});
        }
        const BatchReplaceResult result = applyBatchReplacements(store.text(), set);
        const std::u16string expected = replacedOneByOne(text, set.replacements);
        ASSERT_EQ(all(result.text), expected) << "seed " << seed;
        result.text.check();
        // Outside of the ranges told nothing has changed.
        const TextRange oldRange = result.oldRange;
        const TextRange newRange = result.newRange;
        ASSERT_EQ(oldRange.location, newRange.location);
        const auto part = [](const std::u16string& whole, std::int64_t start, std::int64_t limit) {
            return whole.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(limit - start));
        };
        ASSERT_EQ(part(text, 0, oldRange.location), part(expected, 0, newRange.location)) << seed;
        ASSERT_EQ(part(text, oldRange.limit(), std::ssize(text)),
                  part(expected, newRange.limit(), std::ssize(expected)))
            << seed;
    }
}

std::u16string applied(const char16_t* text, const std::vector<Replacement>& replacements) {
    const TextStore store(text);
    return all(applyBatchReplacements(store.text(), {replacements}).text);
}

TEST(BatchReplacement, OverlapsAreDroppedAndTouchingRangesKept) {
    EXPECT_EQ(applied(u"abcdef", {{{2, 2}, u"2"}, {{0, 3}, u"1"}, {{3, 2}, u"3"}}), u"13f");
    EXPECT_EQ(applied(u"abcdef", {{{3, 3}, u"2"}, {{0, 3}, u"1"}}), u"12");
    EXPECT_EQ(applied(u"abcdef", {{{2, 2}, u"1"}, {{2, 2}, u"2"}}), u"ab1ef");
    EXPECT_EQ(applied(u"abcdef", {}), u"abcdef");
}

// Counted from the end of the range it would come to lie in front of the replacement.
TEST(BatchReplacement, AnInsertionInsideOfAShorterReplacementStaysInside) {
    EXPECT_EQ(applied(u"abcdef", {{{1, 4}, u""}, {{2, 0}, u"+"}}), u"a+f");
    EXPECT_EQ(applied(u"abcdef", {{{1, 4}, u"xy"}, {{4, 0}, u"+"}}), u"ax+yf");
}

TEST(BatchReplacement, ARangeOutsideOfTheTextIsAFault) {
    for (const TextRange range :
         {TextRange{-1, 1}, TextRange{3, 2}, TextRange{1, -1}, TextRange{1, INT64_MAX}})
        EXPECT_DEATH(applied(u"text", {{range, u""}}), "outside");
}

} // namespace
