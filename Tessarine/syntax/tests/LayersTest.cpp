#include "Tessarine/syntax/tests/SampleDocument.h"

#include <gtest/gtest.h>

#include <set>

using namespace tessarine;

namespace {

using Rows = std::vector<std::int64_t>;

const TreeSitterLanguageLayer& root(SampleDocument& document) {
    return *document.mode->layers().root();
}

std::vector<std::string> languagesOfChildren(const TreeSitterLanguageLayer& layer) {
    std::vector<std::string> names;
    for (const auto& [id, child] : layer.childLanguageLayers())
        names.emplace_back(grammarName(child->language()->languagePointer));
    return names;
}

std::vector<std::string> capturesOf(SampleDocument& document, const ByteRange& range) {
    std::vector<std::string> names;
    for (const TreeSitterCapture& capture : document.mode->captures(range))
        names.push_back(std::string(capture.name()) + capture.byteRange().description());
    return names;
}

using Names = std::vector<std::string>;

constexpr auto page = u"<p>one</p>\n"
                      u"<script>\nlet a = 1;\nlet b = /x/;\n</script>\n"
                      u"<style>\np { top: 1px }\n</style>\n"
                      u"<script>\nlet c = `d`;\n</script>\n";

TEST(Layers, InjectByCaptureNameByPropertyAndByPair) {
    SampleDocument html(page, "html");
    html.parse();
    EXPECT_EQ(languagesOfChildren(root(html)), (Names{"JavaScript", "CSS", "JavaScript"}));
    EXPECT_EQ(languagesOfChildren(*root(html).childLanguageLayers()[0].layer), (Names{"Regex"}));
    SampleDocument markdown(u"# a\n\n```css\np {}\n```\n\n```none\nx\n```\n\n```\nx\n```\n", "markdown");
    markdown.parse();
    EXPECT_EQ(languagesOfChildren(root(markdown)), (Names{"MarkdownInline", "CSS"}));
}

TEST(Layers, ALanguageWithoutInjectionsHasOneLayerForEver) {
    SampleDocument document(u"int a;\n", "c");
    document.parse();
    document.replace(0, 0, u"// x\n");
    EXPECT_TRUE(root(document).childLanguageLayers().empty());
    EXPECT_EQ(document.description(), document.freshDescription());
}

TEST(Layers, ContentNeedsALanguageRightBeforeIt) {
    const auto injecting = [](const char* injections) {
        return std::make_unique<SampleDocument>(u"f(a, 'css'); g('css', a);",
                                                sampleLanguage("JavaScript", "", injections),
                                                SampleLanguages::shared());
    };
    const auto pair = injecting("(arguments (string (string_fragment) @language) (identifier) @content)");
    pair->parse();
    EXPECT_EQ(languagesOfChildren(root(*pair)), (Names{"CSS"}));
    const auto alone = injecting("(string) @content");
    alone->parse();
    EXPECT_TRUE(root(*alone).childLanguageLayers().empty());
    const auto between =
        injecting("(arguments (string (string_fragment) @language) (identifier) @regex @content)");
    between->parse();
    EXPECT_EQ(languagesOfChildren(root(*between)), (Names{"Regex"}));
}

// The edit is far from the content, beyond text that nothing changes in.
TEST(Layers, ALanguageNamedByAnotherMatchReachesItsContent) {
    const std::u16string between(2'000, u'\n');
    SampleDocument document(u"f('css');" + between + u"g(/p {}/);", sampleLanguage("JavaScript", "", R"(
                                (string_fragment) @language
                                (regex_pattern) @content)"),
                            SampleLanguages::shared());
    document.parse();
    EXPECT_EQ(languagesOfChildren(root(document)), (Names{"CSS"}));
    document.replace(2, 5, u"a");
    EXPECT_TRUE(root(document).childLanguageLayers().empty());
}

TEST(Layers, ChildrenFarFromAnEditAreKept) {
    std::u16string text;
    for (int i = 0; i < 300; ++i)
        text += page;
    SampleDocument document(text, "html");
    document.parse();
    const auto first = root(document).childLanguageLayers().front().layer;
    document.replace(document.stringView->length() - 12, 0, u"a");
    EXPECT_EQ(root(document).childLanguageLayers().front().layer, first);
    document.insertBefore(u"one", u"<script>f()</script>");
    EXPECT_EQ(document.description(), document.freshDescription());
    EXPECT_EQ(root(document).childLanguageLayers().size(), 901U);
}

TEST(Layers, TwoInjectionsOnOneNodeMakeOneChildThatTakesAnEditOnce) {
    SampleDocument document(u"a; `p { top: 1px }`; b;",
                            sampleLanguage("JavaScript", "",
                                           "(template_string) @css "
                                           "(template_string) @regex"),
                            SampleLanguages::shared());
    document.parse();
    ASSERT_EQ(root(document).childLanguageLayers().size(), 1);
    document.insertBefore(u"top", u"left: 2px; ");
    document.insertBefore(u"a;", u"c; ");
    EXPECT_EQ(languagesOfChildren(root(document)), (Names{"CSS"}));
    EXPECT_EQ(document.description(), document.freshDescription());
}

TEST(Layers, AnEditInsideOfAChildReportsTheLinesThatChangeThere) {
    SampleDocument document(u"<script>\nlet a = 1;\nlet b = 2; // */\nlet c;\n</script>\n", "html");
    document.parse();
    EXPECT_EQ(document.insertBefore(u"let a", u"/*"), (Rows{1, 2}));
    EXPECT_EQ(document.description(), document.freshDescription());
}

TEST(Layers, AChildKeepsItsTreeThroughEditsInsideAndAround) {
    std::u16string text = u"<p>\n<script>\n";
    for (int i = 0; i < 2'000; ++i)
        text += u"let a = 1;\n";
    SampleDocument document(text + u"</script>\n<script>f()</script>\n", "html");
    document.parse();
    const auto wordIds = [&] {
        std::set<const void*> ids;
        const TreeSitterNode program = root(document).childLanguageLayers()[0].layer->tree()->rootNode();
        for (std::int64_t i = 0; i < program.childCount(); ++i)
            ids.insert(program.child(i)->child(0)->id());
        return ids;
    };
    const auto before = wordIds();
    document.replace(15'000, 0, u"b");
    document.insertBefore(u"<script>", u"<b>\n</b>");
    std::set<const void*> kept;
    std::ranges::set_intersection(before, wordIds(), std::inserter(kept, kept.end()));
    EXPECT_GT(kept.size(), 250);
    EXPECT_EQ(document.description(), document.freshDescription());
}

TEST(Layers, WhatIsInjectedComesAndGoesWithItsLines) {
    SampleDocument document(u"```css\np {}\n```\n", "markdown");
    document.parse();
    EXPECT_EQ(languagesOfChildren(root(document)), (Names{"CSS"}));
    // The structure of the parent stays the same, so only the child can tell.
    EXPECT_EQ(document.replace(3, 3, u"none"), (Rows{1, 2}));
    EXPECT_TRUE(root(document).childLanguageLayers().empty());
    EXPECT_EQ(document.replace(3, 4, u"javascript"), (Rows{1, 2}));
    EXPECT_EQ(languagesOfChildren(root(document)), (Names{"JavaScript"}));
    document.replace(0, document.stringView->length(), u"");
    EXPECT_TRUE(root(document).childLanguageLayers().empty());
    EXPECT_EQ(document.mode->syntaxNode({0, 0}).value().type, "document");
}

TEST(Layers, AnEmptyTextHasNoTreeAndNoChildren) {
    SampleDocument document(u"", "html");
    document.parse();
    EXPECT_FALSE(root(document).tree());
    EXPECT_FALSE(document.mode->syntaxNode({0, 0}));
    EXPECT_TRUE(capturesOf(document, {0, 0}).empty());
    document.replace(0, 0, u"<script>a</script>");
    EXPECT_EQ(languagesOfChildren(root(document)), (Names{"JavaScript"}));
    document.parse();
    EXPECT_EQ(document.description(), document.freshDescription());
}

TEST(Layers, AParentsCapturesComeBeforeItsChildrens) {
    SampleDocument document(u"<p><script>1</script><script>2</script>", "html");
    document.parse();
    EXPECT_EQ(capturesOf(document, {0, 200}), (Names{"tag{2, 2}", "tag{8, 12}", "tag{28, 12}", "tag{44, 12}",
                                                     "tag{64, 12}", "number{22, 2}", "number{58, 2}"}));
    EXPECT_EQ(capturesOf(document, {58, 2}), (Names{"number{58, 2}"}));
}

TEST(Layers, WithoutAHighlightsQueryAChildIsNotAsked) {
    using Query = TreeSitterLanguage::Query;
    const auto html = std::make_shared<const TreeSitterLanguage>(
        sampleLanguage("HTML", "")->languagePointer(), std::nullopt, Query("(raw_text) @javascript"));
    SampleDocument document(u"<script>a</script>", html, SampleLanguages::shared());
    document.parse();
    EXPECT_EQ(root(document).childLanguageLayers().size(), 1);
    EXPECT_TRUE(capturesOf(document, {0, 36}).empty());
}

TEST(Layers, APositionGoesToTheSmallestNodeAndOnATieToTheParent) {
    SampleDocument document(u"<script>\nab + c</script>", "html");
    document.parse();
    const auto typeAt = [&](std::int64_t row, std::int64_t column) {
        return document.mode->syntaxNode({row, column}).value().type;
    };
    EXPECT_EQ(typeAt(0, 2), "tag_name");
    EXPECT_EQ(typeAt(1, 1), "identifier");
    EXPECT_EQ(document.mode->syntaxNode({1, 1}), (SyntaxNode{"identifier", {1, 0}, {1, 2}}));
    SampleDocument tie(u"<script>ab</script>", "html");
    tie.parse();
    EXPECT_EQ(tie.mode->syntaxNode({0, 9})->type, "raw_text");
}

TEST(Layers, InjectionsIntoThemselvesEnd) {
    auto languages = std::make_shared<SampleLanguages>();
    languages->add("self", sampleLanguage("JavaScript", "(identifier) @i", "(program) @self"));
    SampleDocument document(u"a; b;", languages->treeSitterLanguage("self"), languages);
    document.parse();
    document.replace(0, 0, u"c;");
    EXPECT_EQ(capturesOf(document, {0, 2}).size(), TreeSitterLanguageLayer::mostDepth);
}

} // namespace
