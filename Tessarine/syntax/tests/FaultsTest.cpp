#include "Tessarine/syntax/tests/RandomSource.h"
#include "Tessarine/syntax/tests/SampleDocument.h"

#include <gtest/gtest.h>

#include <array>

using namespace tessarine;
using namespace std::chrono_literals;

namespace {

TEST(Faults, AGrammarThatGivesNoTreeLeavesTheTextPlain) {
    const auto nothing = std::make_shared<const TreeSitterLanguage>(
        nullptr, TreeSitterLanguage::Query("(a) @a"), TreeSitterLanguage::Query("(a) @b"));
    SampleDocument document(u"a b", nothing, nullptr, 0s);
    document.parse();
    document.replace(0, 0, u"c");
    document.settle();
    EXPECT_TRUE(document.mode->captures({0, 8}).empty());
    EXPECT_FALSE(document.mode->syntaxNode({0, 0}));
}

TEST(Faults, AnInjectedGrammarThatGivesNoTreeHasAChildWithoutOne) {
    auto languages = std::make_shared<SampleLanguages>();
    languages->add("nothing", std::make_shared<const TreeSitterLanguage>(nullptr));
    SampleDocument document(u"'a'; b", sampleLanguage("JavaScript", "(string) @s", "(string) @nothing"),
                            languages);
    document.parse();
    document.replace(1, 0, u"b");
    document.replace(0, 0, u";\n");
    EXPECT_EQ(document.mode->captures({0, 40}).size(), 1);
    EXPECT_EQ(document.description(), document.freshDescription());
}

TEST(Faults, DeepNestingIsParsedAndEdited) {
    constexpr std::size_t depth = 100'000;
    SampleDocument document(std::u16string(depth, u'[') + std::u16string(depth, u']'), "javascript", 1ms);
    std::optional<bool> result;
    document.mode->parse(document.stringView->snapshot(), [&](bool isParsed) { result = isParsed; });
    document.settle();
    EXPECT_EQ(result, true);
    document.replace(depth, 0, u"1");
    document.settle();
    EXPECT_EQ(document.mode->syntaxNode({0, depth})->type, "number");
    (void)document.mode->captures({2 * depth - 10, 20});
    document.replace(10, 1, u"");
    document.settle();
    EXPECT_EQ(document.mode->layers().root()->tree()->rootNode().endByte(), 4 * depth);
}

TEST(Faults, AHugeLineIsParsedAndEdited) {
    std::u16string text;
    while (text.size() < 10'000'000)
        text += u"int abc(int d) { return d + 12345; } ";
    SampleDocument document(text, "c", 1ms);
    std::optional<bool> result;
    document.mode->parse(document.stringView->snapshot(), [&](bool isParsed) { result = isParsed; });
    document.replace(5'000'000, 0, u"x");
    document.settle();
    EXPECT_EQ(result, true);
    document.replace(7'000'000, 1, u"");
    document.settle();
    EXPECT_FALSE(document.mode->captures({10'000'000, 100}).empty());
}

// Rows of the parser end with LF alone, the document's also with these.
TEST(Faults, OtherLineBreaksAndBrokenPairsAreOnlyText) {
    // An LF put behind a CR is lost to the lines, so none is typed.
    static constexpr std::array<std::u16string_view, 6> typed{u"\r",     u"\u2028", u"\xD83D",
                                                              u"\xDE00", u"a",      u"<script>"};
    static constexpr std::array<std::u16string_view, 10> pieces{
        u"\r", u"\u2028",   u"\xD83D",    u"\xDE00",   u"a",
        u"\n", u"<script>", u"</script>", u"/*\r\r*/", u"\u0085"};
    for (std::uint32_t seed = 0; seed < 20; ++seed) {
        RandomSource random(seed);
        SampleDocument document(random.textOf(pieces, 200), "html");
        document.parse();
        for (int step = 0; step < 40; ++step) {
            const std::int64_t length = document.stringView->length();
            const std::int64_t location = random.below(length + 1);
            document.replace(location, 0, random.anyOf(typed));
            (void)document.mode->syntaxNode({random.below(50), random.below(5)});
        }
        EXPECT_EQ(document.mode->layers().root()->tree()->rootNode().endByte(), document.freshRootEnd())
            << "seed " << seed;
    }
}

} // namespace
