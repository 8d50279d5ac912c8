#include "Tessarine/editing/tests/EditScript.h"
#include "Tessarine/syntax/tests/RandomSource.h"
#include "languages/grammars/Grammars.h"

#include <gtest/gtest.h>

using namespace tessarine;

namespace {

constexpr std::u16string_view breaks[] = {u"\n",
                                          u"\r",
                                          u"\r\n",
                                          u"\n\r",
                                          u"(",
                                          u")",
                                          u"\"",
                                          u"{",
                                          u"}\n",
                                          u"a",
                                          u" ",
                                          u"\t",
                                          u"    ",
                                          u"\u2028",
                                          u"\u0085",
                                          u"\xD83D",
                                          std::u16string_view(u"\0", 1),
                                          u"\xDE00",
                                          u"\U0001F600",
                                          u"e\u0301",
                                          u"word"};
constexpr std::u16string_view json[] = {u"1",          u"1",    u"\n", u"\r",     u"\r\n", u" ",
                                        u"    ",       u"\t",   u"{",  u"\"",     u"[2]",  u"\"x\"",
                                        u"{\"a\": 3}", u"null", u"\n", u"[\n\n]", u" 4 ",  u"\"\U0001F600\""};
constexpr std::u16string_view c[] = {u"int f(int a) {\n  return a + 1;\n}\n",
                                     u"/* note */",
                                     u"// \U0001F600 e\u0301\n",
                                     u"static int b;\r\n",
                                     u"struct S { int a; };\n",
                                     u"int g;",
                                     u"\n",
                                     u"\r\n",
                                     u" ",
                                     u"\t",
                                     u"{",
                                     u"int h(void);\n"};

struct Kind {
    const char* name;
    EditScript::Pieces pieces;
    const char* grammar; // null without a language
    std::uint32_t seeds;
    int leastTrees;
};

const Kind kinds[] = {
    {"Plain", breaks, nullptr, 150, 0}, {"Json", json, "JSON", 100, 2'000}, {"C", c, "C", 30, 500}};

class RandomEdits : public ::testing::TestWithParam<std::size_t> {};

TEST_P(RandomEdits, KeepTheDocumentInStep) {
    const Kind& kind = kinds[GetParam()];
    std::optional<TreeSitterLanguageMode> mode;
    if (kind.grammar)
        mode.emplace(std::make_shared<const TreeSitterLanguage>(
            languages::grammarNamed(kind.grammar), std::nullopt, std::nullopt,
            TreeSitterIndentationScopes{.indent = {"compound_statement", "array", "object"},
                                        .inheritIndent = {},
                                        .outdent = {"}", "]"},
                                        .whitespaceDenotesBlocks = false}));
    int comparedTrees = 0;
    for (std::uint32_t seed = 0; seed < kind.seeds; ++seed) {
        RandomSource random(seed);
        EditScript script([&random](std::int64_t limit) { return random.below(limit); }, kind.pieces,
                          mode ? &*mode : nullptr);
        for (int step = 0; step < 100; ++step)
            ASSERT_EQ(script.step(), std::nullopt) << "seed " << seed << ", step " << step;
        ASSERT_EQ(script.finish(), std::nullopt) << "seed " << seed;
        comparedTrees += script.comparedTrees();
    }
    EXPECT_GE(comparedTrees, kind.leastTrees);
}

INSTANTIATE_TEST_SUITE_P(Texts, RandomEdits, ::testing::Range<std::size_t>(0, std::size(kinds)),
                         [](const auto& test) { return std::string(kinds[test.param].name); });

} // namespace
