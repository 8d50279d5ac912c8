#include "Tessarine/document/StringView.h"
#include "Tessarine/syntax/PreferredUtf16Encoding.h"
#include "Tessarine/syntax/TreeSitterParser.h"
#include "Tessarine/syntax/TreeSitterQueryCursor.h"
#include "Tessarine/syntax/tests/TreeText.h"
#include "languages/grammars/Grammars.h"

#include <gtest/gtest.h>

using namespace tessarine;
using languages::grammarNamed;

namespace {

// A text as the engine hands it to a parser, with what was asked for.
class TextDelegate : public TreeSitterParserDelegate {
public:
    explicit TextDelegate(std::u16string_view initialText)
        : text(initialText) {}

    std::optional<TreeSitterTextProviderResult> parserBytesAt(ByteCount byteIndex) override {
        auto piece = text.bytesAt(byteIndex);
        if (!piece) return std::nullopt;
        read += piece->length;
        return TreeSitterTextProviderResult{std::move(piece->bytes),
                                            static_cast<std::uint32_t>(piece->length.value())};
    }

    StringView text;
    ByteCount read;
};

struct ParserWithText {
    explicit ParserWithText(std::u16string_view text, const char* language = "JavaScript")
        : delegate(std::make_shared<TextDelegate>(text)) {
        parser.setLanguage(grammarNamed(language));
        parser.setDelegate(delegate);
    }

    std::shared_ptr<TextDelegate> delegate;
    TreeSitterParser parser{preferredUTF16Encoding};
};

TreeSitterInputEdit insertion(std::int64_t column, std::int64_t count) {
    return {.startByte = 2 * column,
            .oldEndByte = 2 * column,
            .newEndByte = 2 * (column + count),
            .startPoint = TreeSitterTextPoint(LinePosition{0, column}),
            .oldEndPoint = TreeSitterTextPoint(LinePosition{0, column}),
            .newEndPoint = TreeSitterTextPoint(LinePosition{0, column + count})};
}

std::shared_ptr<const TreeSitterQuery> query(std::string_view source, const char* language = "JavaScript") {
    return TreeSitterQuery::create(source, grammarNamed(language)).value();
}

int unchangedLines(const TreeSitterTree& oldTree, const TreeSitterTree& newTree) {
    int count = 0;
    for (int line = 0; line < 5'000; ++line) {
        const auto wordOf = [line](const TreeSitterTree& tree) {
            return tree.rootNode().child(line)->child(0);
        };
        count += wordOf(oldTree) == wordOf(newTree) ? 1 : 0;
    }
    return count;
}

TEST(Parser, ReadsThroughItsDelegateAndReusesWhatAnEditLeftAlone) {
    std::u16string text;
    for (int i = 0; i < 5'000; ++i)
        text += u"let a = 1;\n";
    ParserWithText subject(text);
    const auto tree = subject.parser.parse(nullptr);
    ASSERT_TRUE(tree);
    EXPECT_EQ(tree->rootNode().byteRange(), (ByteRange{0, ByteCount::of(text)}));
    EXPECT_GE(subject.delegate->read, ByteCount::of(text));

    subject.delegate->text.replaceCharacters(2'000 * 11 + 8, 0, u"3");
    const auto edited = tree->copy();
    TreeSitterInputEdit edit = insertion(2'000 * 11 + 8, 1);
    edit.startPoint = edit.oldEndPoint = TreeSitterTextPoint(LinePosition{2'000, 8});
    edit.newEndPoint = TreeSitterTextPoint(LinePosition{2'000, 9});
    edited->apply(edit);
    const auto newTree = subject.parser.parse(edited.get());
    const auto freshTree = subject.parser.parse(subject.delegate->text.snapshot(), nullptr);
    EXPECT_EQ(treeText(*newTree), treeText(*freshTree));
    EXPECT_TRUE(newTree->rangesChanged(*subject.parser.parse(newTree.get())).empty());
    EXPECT_GT(unchangedLines(*tree, *newTree), 1'000);
    EXPECT_EQ(unchangedLines(*tree, *freshTree), 0);
}

TEST(Parser, GivesNoTreeWithoutTextOrLanguageAndAnEmptyOneWithoutDelegate) {
    ParserWithText subject(u"let a;");
    EXPECT_FALSE(subject.parser.parse(TextSnapshot(), nullptr));
    subject.delegate.reset();
    EXPECT_EQ(subject.parser.parse(nullptr)->rootNode().childCount(), 0);
    subject.parser.setLanguage(nullptr);
    EXPECT_FALSE(subject.parser.parse(StringView(u"let a;").snapshot(), nullptr));
}

TEST(Parser, ParsesOnlyTheIncludedRanges) {
    const StringView text(u"(( a + b ))");
    ParserWithText subject(u"");
    const TreeSitterTextRange inner({{0, 4}, {0, 18}, 4, 18});
    EXPECT_TRUE(subject.parser.setIncludedRanges(std::span(&inner, 1)));
    EXPECT_EQ(subject.parser.parse(text.snapshot(), nullptr)->rootNode().startByte(), 6);
    const TreeSitterTextRange overlapping[] = {inner, inner};
    EXPECT_FALSE(subject.parser.setIncludedRanges(overlapping));
    subject.parser.removeAllIncludedRanges();
    EXPECT_EQ(subject.parser.parse(text.snapshot(), nullptr)->rootNode().startByte(), 0);
}

// Pieces of 4096 bytes end anywhere, also within a pair; lone halves stand at ends of pieces too.
TEST(Parser, ReadsPairsWholeAndLoneSurrogatesWhereverPiecesEnd) {
    for (int offset = 0; offset < 3; ++offset) {
        std::u16string text(static_cast<std::size_t>(2044 + offset), u' ');
        text += u"'\U0001F600\xD83D\xD83D\U0001F600\xDE00\xD83D';";
        text += std::u16string(2100, u'\xD83D');
        ParserWithText subject(text);
        const auto tree = subject.parser.parse(nullptr);
        EXPECT_EQ(treeText(*tree),
                  treeText(*subject.parser.parse(subject.delegate->text.snapshot(), nullptr)))
            << offset;
        EXPECT_EQ(tree->rootNode().child(0)->endByte(), ByteCount(2 * (2044 + offset + 11))) << offset;
    }
}

TEST(Parser, EndsWhenItsLimitIsReachedAndStartsAfreshAfterwards) {
    std::u16string text;
    for (int i = 0; i < 1'000; ++i)
        text += u"f(12);\n";
    const StringView view(text);
    ParserWithText subject(u"");
    Operation operation;
    operation.cancel();
    EXPECT_FALSE(subject.parser.parse(view.snapshot(), nullptr, ParseLimit(operation)));
    const StringView other(u"g");
    EXPECT_EQ(subject.parser.parse(other.snapshot(), nullptr)->rootNode().endByte(), 2);
}

TEST(Tree, ACopyIsLeftAloneByEditsOfTheOther) {
    ParserWithText subject(u"a + b");
    const auto tree = subject.parser.parse(nullptr);
    const std::string before = treeText(*tree);
    tree->copy()->apply(insertion(0, 4));
    EXPECT_EQ(treeText(*tree), before);
}

TEST(Tree, ChangedRangesCoverWhatGotAnotherStructure) {
    ParserWithText subject(u"a; b; c;");
    const auto tree = subject.parser.parse(nullptr);
    subject.delegate->text.replaceCharacters(3, 0, u"'");
    const auto edited = tree->copy();
    edited->apply(insertion(3, 1));
    const auto ranges = edited->rangesChanged(*subject.parser.parse(edited.get()));
    ASSERT_FALSE(ranges.empty());
    EXPECT_LE(ranges.front().startByte(), 6);
    EXPECT_EQ(ranges.back().endByte(), 18);
}

TEST(Node, TellsItsPlaceAndItsNeighbours) {
    ParserWithText subject(u"a;\n bc;");
    const auto tree = subject.parser.parse(nullptr);
    const TreeSitterNode root = tree->rootNode();
    const TreeSitterNode second = root.child(1).value();
    EXPECT_EQ(root.type(), "program");
    EXPECT_FALSE(root.parent());
    EXPECT_FALSE(root.child(2));
    EXPECT_FALSE(root.child(-1));
    EXPECT_EQ(root.child(0)->nextSibling(), second);
    EXPECT_EQ(second.parent(), root);
    EXPECT_NE(second, root);
    EXPECT_EQ(second.startPoint(), TreeSitterTextPoint(LinePosition{1, 1}));
    EXPECT_EQ(second.startPoint().column(), 2);
    const TreeSitterTextPoint point(LinePosition{1, 2});
    EXPECT_EQ(root.descendant(point, point)->type(), "identifier");
    EXPECT_EQ(second.debugDescription(),
              "[TreeSitterNode startByte=8 endByte=14 startPoint=[TreeSitterTextPoint row=1 column=2] "
              "endPoint=[TreeSitterTextPoint row=1 column=8]]");
}

TEST(BindingsDeathTest, NumbersThatDoNotFitStopTheProgram) {
    TreeSitterInputEdit edit = insertion(0, 1);
    edit.newEndByte = 0x1'0000'0000;
    EXPECT_DEATH((void)edit.rawValue(), "Fatal error");
    edit.newEndByte = -1;
    EXPECT_DEATH((void)edit.rawValue(), "Fatal error");
    EXPECT_DEATH((void)TreeSitterTextPoint(LinePosition{0, 0x8000'0000}), "Fatal error");
    ParserWithText subject(u"a");
    const auto tree = subject.parser.parse(nullptr);
    const auto any = query("(identifier) @a");
    TreeSitterQueryCursor cursor(*any, tree->rootNode());
    EXPECT_DEATH(cursor.setQueryRange({-1, 4}), "Fatal error");
    EXPECT_DEATH(cursor.setQueryRange({1, 0xFFFF'FFFF}), "Fatal error");
}

TEST(Query, TellsWhatIsWrongAndWhere) {
    using Kind = TreeSitterQueryError::Kind;
    const auto error = [](std::string_view source) {
        return TreeSitterQuery::create(source, grammarNamed("JavaScript")).error();
    };
    EXPECT_EQ(error("(identifier"), (TreeSitterQueryError{Kind::syntax, 11}));
    EXPECT_EQ(error("(nothing) @a"), (TreeSitterQueryError{Kind::nodeType, 1}));
    EXPECT_EQ(error("(program nothing: (identifier))").kind, Kind::field);
    EXPECT_EQ(error("((identifier) @a (#eq? @b \"c\"))").kind, Kind::capture);
    EXPECT_EQ(error("(identifier (identifier)) @a").kind, Kind::structure);
    EXPECT_EQ(TreeSitterQuery::create("(a)", nullptr).error(), TreeSitterQueryError{});
}

TEST(Query, ReadsAsManyBytesAsItHasCharacters) {
    // Three characters of two bytes each: the last three bytes are not read.
    EXPECT_TRUE(
        TreeSitterQuery::create("; \u00e9\u00e9\u00e9\n(identifier) @a)))", grammarNamed("JavaScript")));
    EXPECT_TRUE(TreeSitterQuery::create("(identifier)\r\n @a\r\n(number) @b", grammarNamed("JavaScript")));
    EXPECT_FALSE(TreeSitterQuery::create("; e\n(identifier) @a)", grammarNamed("JavaScript")));
}

TEST(Query, CountsTheComponentsOfNames) {
    const auto names = query("(identifier) @comment.documentation (number) @a");
    EXPECT_EQ(names->captureName(0), "comment.documentation");
    EXPECT_EQ(names->nameComponentCount(0), 2);
    EXPECT_EQ(names->nameComponentCount(1), 1);
    EXPECT_EQ(query("(number) @a.")->nameComponentCount(0), 1);
    EXPECT_DEATH((void)names->captureName(2), "Fatal error");
}

TEST(QueryCursor, RunsOnceAndOnlyInItsRange) {
    ParserWithText subject(u"a; b; c;");
    const auto tree = subject.parser.parse(nullptr);
    const auto identifiers = query("(identifier) @i");
    TreeSitterQueryCursor cursor(*identifiers, tree->rootNode());
    cursor.setQueryRange({6, 2});
    TreeSitterQueryMatch match;
    EXPECT_FALSE(cursor.nextMatch(match));
    cursor.execute();
    ASSERT_TRUE(cursor.nextMatch(match));
    EXPECT_EQ(match.captures().front().byteRange(), (ByteRange{6, 2}));
    EXPECT_EQ(match.capture(0)->name(), "i");
    EXPECT_EQ(match.capture(1), nullptr);
    cursor.execute();
    EXPECT_FALSE(cursor.nextMatch(match));
}

} // namespace
