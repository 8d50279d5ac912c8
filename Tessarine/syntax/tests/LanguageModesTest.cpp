#include "Tessarine/syntax/InternalLanguageModeFactory.h"
#include "Tessarine/syntax/PlainTextLanguageMode.h"
#include "Tessarine/syntax/tests/SampleDocument.h"
#include "languages/grammars/Grammars.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

using namespace tessarine;

namespace {

using Query = TreeSitterLanguage::Query;

TEST(InternalLanguageModeFactory, MakesAModeOfEachKindAndOfNoOther) {
    class Unknown : public LanguageMode {};

    const auto view = std::make_shared<StringView>(u"a");
    const auto lines = std::make_shared<LineManager>(view);
    const InternalLanguageModeFactory factory(std::make_shared<QueuedExecutor>());
    EXPECT_TRUE(std::dynamic_pointer_cast<TreeSitterInternalLanguageMode>(factory.internalLanguageMode(
        TreeSitterLanguageMode(SampleLanguages::shared()->treeSitterLanguage("c")), view, lines)));
    const auto plain = factory.internalLanguageMode(PlainTextLanguageMode(), view, lines);
    bool isParsed = false;
    plain->parse(view->snapshot(), [&](bool parsed) { isParsed = parsed; });
    EXPECT_TRUE(isParsed);
    EXPECT_TRUE(plain->textDidChange({}).editedLines().isEmpty());
    EXPECT_FALSE(plain->syntaxNode({0, 0}));
    EXPECT_FALSE(plain->createLineSyntaxHighlighter()->canHighlight());
    EXPECT_EQ(plain->currentIndentLevel(lines->lineAtRow(0), IndentStrategy::space(2)), 0);
    EXPECT_DEATH((void)factory.internalLanguageMode(Unknown(), view, lines),
                 "Fatal error: .* is not a supported language mode");
}

TEST(TreeSitterLanguage, PreparesOnceAndDropsWhatDoesNotCompile) {
    const auto language = std::make_shared<const TreeSitterLanguage>(languages::grammarNamed("C"),
                                                                     Query("(nothing) @a"), Query("((("));
    const auto& prepared = language->internalLanguage();
    EXPECT_EQ(prepared, language->internalLanguage());
    EXPECT_FALSE(prepared->highlightsQuery);
    EXPECT_FALSE(prepared->injectionsQuery);
    SampleDocument document(u"int a;", language, nullptr);
    document.parse();
    document.replace(0, 0, u"/**/");
    EXPECT_TRUE(document.mode->layers().root()->tree());
    EXPECT_TRUE(document.mode->captures({0, 20}).empty());
}

TEST(TreeSitterLanguage, ReadsQueriesFromFilesIfItCan) {
    const auto folder = std::filesystem::path(testing::TempDir()) / "tessarine-query";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "highlights.scm") << "(identifier) @i\n";
    std::ofstream(folder / "empty.scm").flush();
    EXPECT_EQ(Query::contentsOf(folder / "highlights.scm").string(), "(identifier) @i\n");
    EXPECT_EQ(Query::contentsOf(folder / "empty.scm").string(), "");
    EXPECT_FALSE(Query::contentsOf(folder / "none.scm").string());
    EXPECT_FALSE(Query::contentsOf(folder).string());
    std::filesystem::remove_all(folder);
}

TEST(TextProvider, GivesPiecesUpToTheEndOfTheText) {
    const StringView view(std::u16string(2'050, u'a') + u"\u0416");
    const auto lengthAt = [&](ByteCount at) {
        const auto piece = textProviderResult(view.snapshot(), at);
        return piece ? std::optional(piece->length) : std::nullopt;
    };
    EXPECT_EQ(lengthAt(0), 4'096);
    EXPECT_EQ(lengthAt(4'096), 6);
    EXPECT_EQ(lengthAt(4'097), 6);
    EXPECT_EQ(lengthAt(4'102), std::nullopt);
    EXPECT_EQ(lengthAt(-1), std::nullopt);
}

TEST(TreeSitterMode, ReadsEditsFromItsDelegate) {
    SampleDocument document(u"int a;", "c");
    document.parse();
    EXPECT_EQ(document.mode->syntaxNode({0, 0})->type, "primitive_type");
    document.mode->setDelegate({});
    document.replace(0, 0, u"int b;");
    EXPECT_EQ(document.mode->layers().root()->tree()->rootNode().childCount(), 0);
}

TEST(TreeSitterMode, MeasuresIndentByTheStrategy) {
    const SampleDocument document(u"    a\n\t\tb\n", "c");
    const auto level = [&](std::int64_t row, const IndentStrategy& strategy) {
        return document.mode->currentIndentLevel(document.lineManager->lineAtRow(row), strategy);
    };
    EXPECT_EQ(level(0, IndentStrategy::space(2)), 2);
    EXPECT_EQ(level(1, IndentStrategy::tab(4)), 2);
    EXPECT_EQ(level(2, IndentStrategy::tab(4)), 0);
}

} // namespace
