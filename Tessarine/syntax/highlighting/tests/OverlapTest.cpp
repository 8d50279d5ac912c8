#include "Tessarine/syntax/highlighting/tests/HighlightedDocument.h"

#include <gtest/gtest.h>

using namespace tessarine;

namespace {

// Which of the names gave the text at a place its colour; "" if none.
std::string winner(const HighlightedDocument& document, std::u16string_view place,
                   std::initializer_list<const char*> names) {
    const auto at = static_cast<std::int64_t>(document.stringView->string().find(place));
    const auto color = document.highlighted().runAt(at).attributes.foregroundColor;
    for (const auto* name : names)
        if (color == SampleTheme::colorOf(name)) return name;
    return color == document.theme->textColor() ? "" : "other";
}

struct CDocument : HighlightedDocument {
    CDocument(std::u16string_view text, std::string query)
        : HighlightedDocument(text, sampleLanguage("C", std::move(query)), nullptr) {
        parse();
    }
};

TEST(OverlappingCaptures, TheInnerOneWins) {
    for (const auto* query : {"(string_literal) @outer (escape_sequence) @inner",
                              "(escape_sequence) @inner (string_literal) @outer",
                              "(escape_sequence) @inner (string_literal) @outer.of.many.parts"}) {
        const CDocument document(u"char *a = \"b\\n\";", query);
        EXPECT_EQ(winner(document, u"\\n", {"inner", "outer"}), "inner") << query;
        EXPECT_EQ(winner(document, u"char", {"inner", "outer"}), "");
    }
    // Also where both begin at one place.
    const CDocument document(u"int a; /**/", "(primitive_type) @inner (declaration) @outer");
    EXPECT_EQ(winner(document, u"int", {"inner", "outer"}), "inner");
    EXPECT_EQ(winner(document, u"a;", {"inner", "outer"}), "outer");
}

TEST(OverlappingCaptures, OfOneRangeTheNameWithMorePartsWinsThenTheLaterPattern) {
    const CDocument special(u"// x", "(comment) @comment.documentation (comment) @comment");
    EXPECT_EQ(winner(special, u"x", {"comment", "comment.documentation"}), "comment.documentation");
    const CDocument equal(u"// x", "(comment) @one (comment) @two");
    EXPECT_EQ(winner(equal, u"x", {"one", "two"}), "two");
    const CDocument reversed(u"// x", "(comment) @two (comment) @one");
    EXPECT_EQ(winner(reversed, u"x", {"one", "two"}), "one");
}

TEST(OverlappingCaptures, AChildLayerWinsOverItsParent) {
    const auto provider = std::make_shared<SampleLanguages>();
    provider->add("c", sampleLanguage("C", "(translation_unit) @child"));
    HighlightedDocument document(
        u"<script>int a;</script>",
        sampleLanguage("HTML", "(raw_text) @parent", "(script_element (raw_text) @c)"), provider);
    document.parse();
    EXPECT_EQ(winner(document, u"int", {"parent", "child"}), "child");
}

TEST(OverlappingCaptures, WithoutALookLeaveWhatIsAroundThem) {
    const CDocument document(u"int a;", "(declaration) @outer (identifier) @inner");
    document.theme->looks["inner"].fontTraits = FontTraits::bold;
    EXPECT_EQ(winner(document, u"a", {"outer", "inner"}), "outer");
    EXPECT_FALSE(document.highlighted().runAt(4).attributes.isBold);
}

TEST(TreeSitterSyntaxHighlighter, CanHighlightOnceThereIsATree) {
    HighlightedDocument document(u"int a;", "c");
    EXPECT_FALSE(document.highlighter->canHighlight());
    EXPECT_EQ(document.highlighted().runs({0, 6}).size(), 1);
    document.parse();
    EXPECT_TRUE(document.highlighter->canHighlight());
    EXPECT_GT(document.highlighted().runs({0, 6}).size(), 1);
    EXPECT_EQ(document.highlighted({6, 0}).length(), 0);
    document.replace(0, 6, u"");
    EXPECT_EQ(document.highlighted().length(), 0);
}

// Of unclosed brackets the parser makes a chain that each step of a search goes up again. To the end it would
// take half a minute.
TEST(TreeSitterSyntaxHighlighter, GivesALineUpThatTakesFarTooLong) {
    HighlightedDocument document(std::u16string(100'000, u'['), sampleLanguage("JSON", "\"[\" @bracket"),
                                 nullptr);
    document.parse();
    const auto line = document.inputOfAll();
    const AttributedString before = *line.attributedString;
    document.highlighter->syntaxHighlight(line);
    EXPECT_EQ(*line.attributedString, before);
}

TEST(TreeSitterSyntaxHighlighter, BeginsWithTheDefaultTheme) {
    const SampleDocument document(u"return;", "c");
    document.mode->parse(document.stringView->snapshot());
    const auto highlighter = document.mode->createLineSyntaxHighlighter();
    const auto string = std::make_shared<AttributedString>(u"return;");
    highlighter->setDefaultAttributes(*string);
    highlighter->syntaxHighlight({.attributedString = string, .byteRange = {0, 14}});
    const DefaultTheme theme;
    EXPECT_EQ(string->runAt(0).attributes,
              (TextAttributes{
                  .foregroundColor = theme.textColor("keyword"), .font = theme.font("keyword"), .kern = 0}));
    EXPECT_EQ(string->runAt(6).attributes,
              (TextAttributes{.foregroundColor = theme.textColor(), .font = theme.font(), .kern = 0}));
}

TEST(TreeSitterSyntaxHighlighter, KeepsItsLanguageMode) {
    HighlightedDocument document(u"int a;", "c");
    document.parse();
    const AttributedString before = document.highlighted();
    document.mode.reset();
    EXPECT_EQ(document.highlighted(), before);
}

} // namespace
