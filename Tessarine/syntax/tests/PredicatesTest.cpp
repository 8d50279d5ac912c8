#include "Tessarine/document/StringView.h"
#include "Tessarine/syntax/PreferredUtf16Encoding.h"
#include "Tessarine/syntax/TreeSitterParser.h"
#include "Tessarine/syntax/TreeSitterQueryCursor.h"
#include "Tessarine/syntax/TreeSitterTextPredicatesEvaluator.h"
#include "languages/grammars/Grammars.h"

#include <gtest/gtest.h>

#include <thread>

using namespace tessarine;

namespace {

using Capture = TreeSitterPredicate::Capture;

std::shared_ptr<const TreeSitterQuery> query(std::string_view source) {
    return TreeSitterQuery::create(source, languages::grammarNamed("JavaScript")).value();
}

// What a query's captures stand for in a text, with the conditions checked against another text if one is
// given.
std::vector<std::string> captured(std::string_view source, std::u16string_view text,
                                  std::optional<std::u16string_view> checkedText = std::nullopt) {
    TreeSitterParser parser(preferredUTF16Encoding);
    parser.setLanguage(languages::grammarNamed("JavaScript"));
    const TextSnapshot snapshot = StringView(text).snapshot();
    const auto tree = parser.parse(snapshot, nullptr);
    const auto compiled = query(source);
    TreeSitterQueryCursor cursor(*compiled, tree->rootNode());
    cursor.execute();
    std::vector<TreeSitterCapture> captures;
    for (TreeSitterQueryMatch match; cursor.nextMatch(match);)
        appendValidCaptures(match, StringView(checkedText.value_or(text)).snapshot(), captures);
    std::vector<std::string> names;
    for (const TreeSitterCapture& capture : captures)
        names.push_back(std::string(capture.name()) + capture.byteRange().location.description());
    return names;
}

using Names = std::vector<std::string>;

TEST(Predicates, TheFirstOfAPatternIsReadAsOftenAsPassesFit) {
    const TreeSitterPredicate first{"eq?", {Capture{0}, "a"}};
    EXPECT_EQ(query("((identifier) @i (#eq? @i \"a\") (#eq? @i \"b\"))")->predicates(0),
              (std::vector{first, first}));
    // 4 + 5 steps, 4 a pass.
    EXPECT_EQ(query("((identifier) @i (#eq? @i \"a\") (#x? @i \"b\" \"c\"))")->predicates(0).size(), 3);
    EXPECT_TRUE(query("(identifier) @i")->predicates(0).empty());
    EXPECT_EQ(first.debugDescription(), "[TreeSitterPredicate name=eq? steps=[[TreeSitterPredicate.Step "
                                        "capture=0], [TreeSitterPredicate.Step string=a]]]");
    EXPECT_EQ(captured("((identifier) @i (#eq? @i \"a\") (#eq? @i \"b\"))", u"a; b"), (Names{"i0"}));
}

TEST(Predicates, CompareTextsWithStringsAndWithEachOther) {
    EXPECT_EQ(captured("((identifier) @i (#eq? @i \"\u00e9\")) ", u"a; \u00e9"), (Names{"i6"}));
    EXPECT_EQ(captured("((identifier) @i (#not-eq? @i \"a\"))", u"a; b; ab"), (Names{"i6", "i12"}));
    constexpr auto pair = "((binary_expression left: (_) @l right: (_) @r) (#eq? @l @r))";
    constexpr auto other = "((binary_expression left: (_) @l right: (_) @r) (#not-eq? @l @r))";
    EXPECT_EQ(captured(pair, u"a+a; a+b"), (Names{"l0", "r4"}));
    EXPECT_EQ(captured(other, u"a+a; a+b"), (Names{"l10", "r14"}));
}

TEST(Predicates, TextsThatCannotBeFetchedEqualNothingButEachOther) {
    constexpr auto text = u"a+a";
    EXPECT_EQ(captured("((identifier) @i (#eq? @i \"a\"))", text, u""), Names{});
    EXPECT_EQ(captured("((identifier) @i (#not-eq? @i \"a\"))", text, u""), (Names{"i0", "i4"}));
    EXPECT_EQ(captured("((identifier) @i (#match? @i \"a\"))", text, u""), Names{});
    EXPECT_EQ(captured("((identifier) @i (#not-match? @i \"a\"))", text, u""), Names{});
    constexpr auto pair = "((binary_expression left: (_) @l right: (_) @r) (#eq? @l @r))";
    constexpr auto other = "((binary_expression left: (_) @l right: (_) @r) (#not-eq? @l @r))";
    EXPECT_EQ(captured(pair, text, u""), (Names{"l0", "r4"}));
    EXPECT_EQ(captured(pair, text, u"a"), Names{});
    EXPECT_EQ(captured(other, text, u""), Names{});
}

TEST(Predicates, MatchSearchesTheWholeText) {
    EXPECT_EQ(captured("((identifier) @i (#match? @i \"B\"))", u"aBc; abc"), (Names{"i0"}));
    EXPECT_EQ(captured("((identifier) @i (#match? @i \"^[A-Z]+$\"))", u"aBc; ABC; \u0416"), (Names{"i10"}));
    EXPECT_EQ(captured("((identifier) @i (#not-match? @i \"^[A-Z]\"))", u"aBc; ABC"), (Names{"i0"}));
    EXPECT_EQ(captured("((identifier) @i (#match? @i \"(\"))", u"a"), Names{});
    EXPECT_EQ(captured("((identifier) @i (#not-match? @i \"(\"))", u"a"), (Names{"i0"}));
}

TEST(Predicates, WhatTheEngineDoesNotKnowHidesThePattern) {
    EXPECT_EQ(captured("((identifier) @i (#any-of? @i \"a\" \"b\"))", u"a"), Names{});
    EXPECT_EQ(captured("((identifier) @i (#is-not? local))", u"a"), Names{});
}

TEST(Predicates, ACaptureThatTheMatchDoesNotHaveFailsEitherWay) {
    const auto source = [](const char* name) {
        return "((call_expression function: (_) @f arguments: (arguments (number)? @n)) (#" +
               std::string(name) + " @n \"1\"))";
    };
    EXPECT_EQ(captured(source("eq?"), u"g(); g(1)"), (Names{"f10", "n14"}));
    EXPECT_EQ(captured(source("not-eq?"), u"g(); g(2)"), (Names{"f10", "n14"}));
    EXPECT_EQ(captured(source("match?"), u"g();"), Names{});
    EXPECT_EQ(captured(source("not-match?"), u"g();"), Names{});
}

TEST(Predicates, EmptyCapturesFallOutFirst) {
    EXPECT_EQ(captured("(string) @s (MISSING identifier) @m", u"'a'; b +"), (Names{"s0"}));
}

TEST(PredicateMapper, GathersPropertiesOfWhichTheLastWins) {
    const TreeSitterPredicate predicates[] = {
        {"set!", {"a", "1"}}, {"set!", {"b", "2"}}, {"set!", {"a", "3"}}};
    const auto meaning = TreeSitterPredicateMapper::map(predicates);
    EXPECT_EQ(meaning.properties, (std::map<std::string, std::string, std::less<>>{{"a", "3"}, {"b", "2"}}));
    EXPECT_TRUE(meaning.textPredicates.empty());
}

TEST(PredicateMapperDeathTest, StopsAtWrongSteps) {
    const auto map = [](const TreeSitterPredicate& predicate) {
        (void)TreeSitterPredicateMapper::map(std::span(&predicate, 1));
    };
    EXPECT_DEATH(map({"set!", {"a"}}), "Fatal error: Set predicate must contain exactly two steps\\.");
    EXPECT_DEATH(map({"set!", {"a", Capture{0}}}), "Set predicate must contain exactly two string steps\\.");
    EXPECT_DEATH(map({"not-eq?", {Capture{0}}}),
                 "eq\\? and not-eq\\? predicates must contain exactly two teps\\.");
    EXPECT_DEATH(map({"match?", {}}),
                 "match\\? and not-match\\? predicates must contain exactly stwo teps\\.");
    EXPECT_DEATH(map({"eq?", {"a", "b"}}), "Predicate contains invalid combination of steps\\.");
    EXPECT_DEATH(map({"match?", {Capture{0}, Capture{0}}}),
                 "Predicate contains invalid combination of steps\\.");
}

TEST(RegularExpression, IsCompiledOnceAPatternText) {
    const auto one = RegularExpression::compiled("a+");
    EXPECT_EQ(one, RegularExpression::compiled("a+"));
    EXPECT_NE(one, RegularExpression::compiled("b+"));
}

TEST(RegularExpression, ARunawayEndsAsNotFound) {
    EXPECT_FALSE(RegularExpression("(a+)+$").isFoundIn(std::u16string(40, u'a') + u"b"));
    EXPECT_FALSE(RegularExpression("(a|b)*c").isFoundIn(std::u16string(2'000'000, u'a')));
    EXPECT_TRUE(RegularExpression("(a+)+$").isFoundIn(u"aa"));
}

TEST(RegularExpression, ServesSeveralThreads) {
    const RegularExpression expression("^[a-z]+[0-9]$");
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int j = 0; j < 2'000; ++j)
                ASSERT_EQ(expression.isFoundIn(j % 2 == 0 ? u"abc1" : u"abc"), j % 2 == 0);
        });
}

} // namespace
