#include "Tessarine/syntax/tests/RandomSource.h"
#include "Tessarine/syntax/tests/SampleDocument.h"
#include "Tessarine/syntax/tests/SampleText.h"
#include "languages/grammars/Grammars.h"

#include <gtest/gtest.h>

using namespace tessarine;

namespace {

// A language with whole pieces of it, which make a text, and with what is typed into that.
struct Sample {
    const char* language;
    std::vector<std::u16string_view> pieces;
    std::vector<std::u16string_view> typed;
};

const Sample samples[] = {
    {"javascript",
     {u"/** @param {number} a the a */\nfunction f(a) {\n  return a + 1;\n}\n", u"let b = /[a-z]+(x|y)*/g;\n",
      u"const MAX = css`p { top: 1px }`;\n", u"// note\nf(MAX);\n", u"class A { m() { return 'x'; } }\n",
      u"\n", u"if (a) { b(`t${c}`); } else { new A(); }\n"},
     {u"a", u"1", u" ", u"\n", u"/** @type {x} */", u"/", u"`", u"(", u")", u"{}", u"'", u";\n", u"*/", u"/*",
      u"\U0001F600", u"\xD83D"}},
    {"html",
     {u"<p class=\"a\">text &amp; more</p>\n", u"<script>\nlet a = /x+/;\n/** @see b */\nf(a);\n</script>\n",
      u"<style>\np { top: 1px }\n</style>\n", u"<!-- note -->\n", u"<div><b>b</b></div>\n", u"\n",
      u"<script>g(1)</script>"},
     {u"a", u"<", u">", u"\n", u"<script>", u"</script>", u"<style>", u"</style>", u"{}", u"/", u"\"", u"--",
      u"<!--", u"\u00e9", u"\xDE00"}},
    {"markdown",
     {u"# title *a*\n\n", u"some `code` and *text*\n\n", u"```javascript\nlet a = 1;\n```\n\n",
      u"```css\np { top: 1px }\n```\n\n", u"- one\n- two\n\n", u"<div>\n<script>a()</script>\n</div>\n\n",
      u"```none\nx\n```\n\n", u"> quote\n\n"},
     {u"a", u"*", u"`", u"```\n", u"\n", u"\n\n", u"# ", u"- ", u"> ", u"css", u"_", u"\u00e9", u"    "}},
    {"c",
     {u"int f(int a) {\n  return a + MAX;\n}\n", u"/* note */\n", u"static const char *s = \"x\";\n",
      u"struct S { int a; };\n", u"#define MAX 1\n", u"\n", u"#include <a.h>\n"},
     {u"a", u"1", u" ", u"\n", u"/*", u"*/", u"\"", u"{", u"}", u";", u"#", u"(", u")"}},
};

class Reparse : public ::testing::TestWithParam<std::size_t> {
protected:
    const Sample& sample() const { return samples[GetParam()]; }

    // One edit somewhere: mostly typed or removed characters, now and then a whole piece.
    void edit(SampleDocument& document, RandomSource& random) {
        const std::int64_t length = document.stringView->length();
        const std::int64_t location = random.below(length + 1);
        const std::int64_t removed =
            random.below(3) == 0 ? random.below(std::min<std::int64_t>(length - location, 12) + 1) : 0;
        const std::int64_t kind = random.below(8);
        const auto text = kind == 0  ? random.anyOf(sample().pieces)
                          : kind < 3 ? std::u16string_view()
                                     : random.anyOf(sample().typed);
        document.replace(location, removed, text);
    }
};

TEST_P(Reparse, GivesWhatAFreshParseGives) {
    constexpr int seeds = 30;
    constexpr int steps = 25;
    int broken = 0;
    for (std::uint32_t seed = 0; seed < seeds; ++seed) {
        RandomSource random(seed);
        SampleDocument document(random.textOf(sample().pieces, 12), sample().language);
        document.parse();
        for (int step = 0; step < steps; ++step) {
            edit(document, random);
            const bool isBroken = document.isBroken();
            broken += isBroken ? 1 : 0;
            if (isBroken) continue;
            ASSERT_EQ(document.description(), document.freshDescription())
                << "seed " << seed << ", step " << step;
        }
    }
    EXPECT_LT(broken, seeds * steps / 10);
}

INSTANTIATE_TEST_SUITE_P(Languages, Reparse, ::testing::Range<std::size_t>(0, std::size(samples)),
                         [](const auto& test) { return std::string(samples[test.param].language); });

// Every grammar of the build, alone, with pieces of its own sample put elsewhere and cut out.
class ReparseOfEveryGrammar : public ::testing::TestWithParam<std::size_t> {};

TEST_P(ReparseOfEveryGrammar, GivesWhatAFreshParseGives) {
    const std::string name(languages::grammars()[GetParam()].name);
    const std::u16string sample = sampleText(name);
    ASSERT_FALSE(sample.empty());
    int compared = 0;
    for (std::uint32_t seed = 0; seed < 4; ++seed) {
        RandomSource random(seed);
        SampleDocument document(sample, sampleLanguage(name, "(_) @node"), nullptr);
        document.parse();
        for (int step = 0; step < 20; ++step) {
            const std::int64_t length = document.stringView->length();
            const std::int64_t location = random.below(length + 1);
            const std::int64_t removed = random.below(std::min<std::int64_t>(length - location, 6) + 1);
            const auto from = random.below(static_cast<std::int64_t>(sample.size()));
            const auto text =
                sample.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(random.below(8)));
            document.replace(location, step % 2 == 0 ? 0 : removed, step % 2 == 0 ? text : u"");
            if (document.isBroken()) continue;
            ++compared;
            ASSERT_EQ(document.description(), document.freshDescription())
                << "seed " << seed << ", step " << step;
        }
    }
    EXPECT_GT(compared, 40);
}

INSTANTIATE_TEST_SUITE_P(Grammars, ReparseOfEveryGrammar,
                         ::testing::Range<std::size_t>(0, languages::grammars().size()),
                         [](const auto& test) {
                             return std::string(languages::grammars()[test.param].name);
                         });

} // namespace
