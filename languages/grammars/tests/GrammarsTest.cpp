// Every grammar of the table with its sample in samples/, and with texts that are no text of any language.
#include "languages/grammars/Grammars.h"

#include "Tessarine/document/tests/RandomText.h"
#include "languages/grammars/tests/ParsedText.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <unicode/unistr.h>
#include <vector>

namespace tessarine::languages {

static void PrintTo(const Grammar& grammar, std::ostream* out) {
    *out << grammar.name;
}

namespace {

std::u16string sampleOf(std::string_view name) {
    std::ifstream file(std::string(SAMPLES "/") + std::string(name) + ".txt");
    const std::string utf8{std::istreambuf_iterator<char>(file), {}};
    const auto text = icu::UnicodeString::fromUTF8(utf8);
    return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

class GrammarTest : public testing::TestWithParam<Grammar> {
protected:
    const TSLanguage* language() const { return GetParam().language(); }

    const std::u16string& sample() const { return m_sample; }

    std::string freshTree() const { return ParsedText(language(), m_sample).expression(); }

private:
    std::u16string m_sample = sampleOf(GetParam().name);
};

INSTANTIATE_TEST_SUITE_P(All, GrammarTest, testing::ValuesIn(grammars().begin(), grammars().end()),
                         [](const auto& grammar) { return std::string(grammar.param.name); });

TEST_P(GrammarTest, IsLoadedAndFoundByItsName) {
    const std::unique_ptr<TSParser, decltype(&ts_parser_delete)> parser{ts_parser_new(), ts_parser_delete};
    EXPECT_TRUE(ts_parser_set_language(parser.get(), language()));
    EXPECT_EQ(grammarNamed(GetParam().name), language());
}

TEST_P(GrammarTest, ParsesItsSample) {
    ASSERT_GT(sample().size(), 50U) << "the grammar has no sample";
    const ParsedText text(language(), sample());
    EXPECT_FALSE(ts_node_has_error(text.root())) << text.expression();
    EXPECT_GT(ts_node_descendant_count(text.root()), 10U);
}

// Where a text has errors, the tree may depend on how it came about; where it has none, it must not.
TEST_P(GrammarTest, HasTheTreeOfAFreshParseAfterEditsThereAndBack) {
    struct Undo {
        std::size_t at, length;
        std::u16string was;
    };

    for (std::uint32_t seed = 0; seed < 15; ++seed) {
        RandomText random(seed);
        const auto below = [&](std::size_t limit) { return static_cast<std::size_t>(random.upTo(limit)); };
        ParsedText text(language(), sample());
        std::vector<Undo> undos;
        for (int edit = 0; edit < 6; ++edit) {
            const std::size_t at = below(text.text().size());
            const std::size_t length = std::min(below(8), text.text().size() - at);
            const std::u16string by = edit % 2 == 0 ? sample().substr(below(sample().size()), below(8))
                                                    : random.units(random.upTo(6));
            undos.push_back({at, by.size(), text.text().substr(at, length)});
            text.replace(at, length, by);
        }
        for (; !undos.empty(); undos.pop_back())
            text.replace(undos.back().at, undos.back().length, undos.back().was);
        ASSERT_EQ(text.text(), sample());
        EXPECT_EQ(text.expression(), freshTree()) << "seed " << seed;
    }
}

TEST_P(GrammarTest, HasTheTreeOfAFreshParseWhenTyped) {
    ParsedText text(language(), u"");
    for (std::size_t at = 0; at < sample().size(); ++at)
        text.replace(at, 0, sample().substr(at, 1));
    EXPECT_EQ(text.expression(), freshTree());
}

TEST_P(GrammarTest, ComesBackFromRandomUnits) {
    for (std::uint32_t seed = 1; seed <= 3; ++seed) {
        RandomText random(seed);
        ParsedText text(language(), random.units(2000));
        text.replace(700, 90, random.units(100));
        text.replace(0, text.text().size(), sample());
        EXPECT_EQ(text.expression(), freshTree()) << "seed " << seed;
    }
}

std::u16string repeated(std::u16string_view text, int count) {
    std::u16string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

// A line each, every one a space deeper than the one before.
std::u16string stairs(std::u16string_view line, int count) {
    std::u16string all;
    for (int i = 0; i < count; ++i)
        all.append(i, u' ').append(line).append(u"\n");
    return all;
}

// What a scanner remembers of these is more than the parser keeps for it.
TEST_P(GrammarTest, ComesBackFromDeepNesting) {
    const std::u16string longWord(300, u'A');
    const std::u16string longestWord(1019, u'A');
    const std::u16string texts[] = {
        repeated(u"> ", 300) + u"a\n",
        repeated(u"- ", 300) + u"a\n",
        repeated(u"<custom-element>", 300),
        repeated(u"f\"{", 300),
        repeated(u"[", 1200),
        repeated(u"{", 1200),
        repeated(u"<<A ", 300) + u"\nA\n",
        u"x = <<" + longestWord + u"\ntext\n" + longestWord + u"\n",
        u"x = <<" + longWord + u"\ntext\n" + longWord + u"\n",
        stairs(u"- a", 270),
        stairs(u"if x:", 520) + std::u16string(520, u' ') + u"y = \"text\"\n",
    };
    for (const std::u16string& hostile : texts) {
        ParsedText text(language(), hostile);
        text.replace(hostile.size() / 2, 1, u"");
        text.replace(0, text.text().size(), sample());
        EXPECT_EQ(text.expression(), freshTree()) << "text of " << hostile.size();
    }
}

TEST(Grammars, AreNotFoundByOtherNames) {
    EXPECT_EQ(grammarNamed("c"), nullptr);
    EXPECT_EQ(grammarNamed(""), nullptr);
}

} // namespace
} // namespace tessarine::languages
