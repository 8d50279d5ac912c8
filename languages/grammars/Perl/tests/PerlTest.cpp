// Perl, a group of constructs a file in trees/: code, a line of dashes, and the tree of each statement. A
// node without named children is drawn with its text.
#include "languages/grammars/Grammars.h"
#include "languages/grammars/tests/ParsedText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <unicode/unistr.h>

namespace tessarine::languages {
namespace {

std::u16string utf16(const std::string& utf8) {
    const auto text = icu::UnicodeString::fromUTF8(utf8);
    return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

std::string textOf(const ParsedText& text, TSNode node) {
    const std::size_t start = ts_node_start_byte(node) / sizeof(char16_t);
    const std::size_t limit = ts_node_end_byte(node) / sizeof(char16_t);
    const icu::UnicodeString part(text.text().data() + start, static_cast<std::int32_t>(limit - start));
    std::string utf8;
    part.toUTF8String(utf8);
    std::ranges::replace(utf8, '\n', '|');
    return utf8;
}

std::string drawn(const ParsedText& text, TSNode node) {
    std::string drawing = std::string("(") + ts_node_type(node);
    const std::uint32_t count = ts_node_named_child_count(node);
    for (std::uint32_t i = 0; i < count; ++i)
        drawing += " " + drawn(text, ts_node_named_child(node, i));
    return drawing + (count == 0 ? " " + textOf(text, node) : "") + ")";
}

std::string drawnChildren(const ParsedText& text) {
    std::string drawing;
    for (std::uint32_t i = 0; i < ts_node_named_child_count(text.root()); ++i)
        drawing += drawn(text, ts_node_named_child(text.root(), i)) + "\n";
    return drawing;
}

ParsedText perl(std::u16string text) {
    return {grammarNamed("Perl"), std::move(text)};
}

class PerlTree : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(All, PerlTree,
                         testing::Values("statements", "subs", "variables", "arrows", "calls", "operators",
                                         "literals", "strings", "patterns", "heredocs", "documents"),
                         [](const auto& group) { return group.param; });

TEST_P(PerlTree, IsAsDrawn) {
    std::ifstream file(std::string(PERL_TREES "/") + GetParam() + ".txt");
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    const std::string_view separator = "\n----\n";
    const std::size_t end = content.find(separator);
    ASSERT_NE(end, std::string::npos);
    const ParsedText text = perl(utf16(content.substr(0, end)));
    EXPECT_FALSE(ts_node_has_error(text.root()));
    EXPECT_EQ(drawnChildren(text), content.substr(end + separator.size()));
}

std::u16string repeated(std::u16string_view text, int count) {
    std::u16string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

// Were the work more than in proportion to the text, this would take minutes.
TEST(Perl, EndsWithWhatIsNeverClosed) {
    for (const std::u16string_view opening :
         {u"(",     u"[",     u"{",     u"f {",       u"$x{",  u"\"",    u"q(",           u"qq{$x",
          u"\"$x[", u"\"@{[", u"s{",    u"s/a/f(/e;", u"<<A;", u"<<A\n", u"<<\"A B\" . ", u"=pod\n",
          u"-e ",   u"${",    u"sub (", u"qw(",       u"<",    u"{ 'a",  u"map { \"",     u"f #\n"}) {
        const ParsedText text = perl(repeated(opening, 100'000));
        EXPECT_GT(ts_node_end_byte(text.root()), 0U);
    }
}

TEST(Perl, KnowsTagsOfAnyLength) {
    const std::u16string tag(5000, u'T');
    const ParsedText text = perl(u"f(<<" + tag + u", 1);\n$x\n" + tag.substr(1) + u"\n" + tag + u"\ng();\n");
    EXPECT_FALSE(ts_node_has_error(text.root()));
    EXPECT_EQ(drawn(text, ts_node_child(text.root(), 1)), "(heredoc (interpolation (scalar $x)))");
}

TEST(Perl, ReadsAllHeredocsOfALineThatItCanKeep) {
    const ParsedText text =
        perl(u"f(" + repeated(u"<<A, ", 24) + u"1);\n" + repeated(u"a\nA\n", 24) + u"g();\n");
    EXPECT_FALSE(ts_node_has_error(text.root()));
    EXPECT_EQ(ts_node_named_child_count(text.root()), 26U);
}

} // namespace
} // namespace tessarine::languages
