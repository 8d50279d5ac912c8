#include "Tessarine/document/LineManager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessarine;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// A text and its lines, edited together.
class Document {
public:
    explicit Document(std::u16string_view text)
        : m_stringView(std::make_shared<StringView>(text))
        , manager(m_stringView) {
        manager.rebuild(text);
    }

    LineChangeSet insert(std::int64_t location, std::u16string_view text) {
        m_stringView->replaceCharacters(location, 0, text);
        return manager.insertText(text, location);
    }

    LineChangeSet remove(std::int64_t location, std::int64_t length) {
        m_stringView->replaceCharacters(location, length, u"");
        return manager.removeCharacters(location, length);
    }

    // Total length and delimiter of each line.
    std::vector<std::pair<std::int64_t, int>> lines() {
        std::vector<std::pair<std::int64_t, int>> lines;
        auto nodes = manager.documentLineTree().iterator();
        while (const DocumentLineNode* line = nodes.next())
            lines.emplace_back(line->data().totalLength(), line->data().delimiterLength());
        return lines;
    }

private:
    std::shared_ptr<StringView> m_stringView;

public:
    LineManager manager;
};

std::vector<const DocumentLineNode*> membersOf(const LineSet& set) {
    std::vector<const DocumentLineNode*> members;
    for (const DocumentLineNodeReference& line : set)
        members.push_back(line.get());
    return members;
}

using Line = std::pair<std::int64_t, int>;

TEST(LineManager, AnEmptyTextHasOneEmptyLine) {
    LineManager manager(std::make_shared<StringView>());
    EXPECT_EQ(manager.lineCount(), 1);
    EXPECT_EQ(manager.contentHeight(), 12.0);
    manager.rebuild(u"");
    const DocumentLineNodeData& line = manager.lineAtRow(0).data();
    EXPECT_EQ(line.totalLength(), 0);
    EXPECT_EQ(line.byteCount(), 0);
    EXPECT_EQ(manager.initialLongestLine(), nullptr);
}

TEST(LineManager, RebuildKnowsAllBreaks) {
    Document document(u"a\r\nb\u0085\u2028cde\u2029");
    EXPECT_THAT(document.lines(), ElementsAre(Line{3, 2}, Line{2, 1}, Line{1, 1}, Line{4, 1}, Line{0, 0}));
    Document controls(std::u16string_view(u"\0\v\f\x1C\r", 5));
    EXPECT_THAT(controls.lines(), ElementsAre(Line{5, 1}, Line{0, 0}));
    EXPECT_EQ(document.manager.initialLongestLine(), &document.manager.lineAtRow(3));
}

TEST(LineManager, TheFirstOfTheLongestLinesIsKeptAsLongAsItStands) {
    Document document(u"ab\ncd\nef");
    const DocumentLineNode* longest = document.manager.initialLongestLine();
    EXPECT_EQ(longest, &document.manager.lineAtRow(0));
    document.insert(6, u"much longer");
    EXPECT_EQ(document.manager.initialLongestLine(), longest);
    document.insert(0, u"\n");
    document.remove(0, 2); // the second row goes, and with it nothing of the first
    EXPECT_EQ(document.manager.initialLongestLine(), longest);
    Document other(u"a\nbcd\ne");
    other.remove(1, 2);
    EXPECT_EQ(other.manager.initialLongestLine(), nullptr);
}

TEST(LineManager, HalvesOfACrlfAreRemovedAlone) {
    Document document(u"a\r\nb");
    document.remove(2, 1);
    EXPECT_THAT(document.lines(), ElementsAre(Line{2, 1}, Line{1, 0}));
    Document other(u"a\r\nb");
    other.remove(1, 1);
    EXPECT_THAT(other.lines(), ElementsAre(Line{2, 1}, Line{1, 0}));
}

TEST(LineManager, TextBetweenCrAndLfSplitsTheLine) {
    Document document(u"a\r\nb");
    const LineChangeSet changes = document.insert(2, u"xy");
    EXPECT_THAT(document.lines(), ElementsAre(Line{2, 1}, Line{3, 1}, Line{1, 0}));
    EXPECT_THAT(membersOf(changes.insertedLines()), ElementsAre(&document.manager.lineAtRow(1)));
}

TEST(LineManager, ACrBeforeAnLfMakesAPassingLine) {
    Document document(u"ab\n");
    const LineChangeSet changes = document.insert(2, u"\r");
    EXPECT_THAT(document.lines(), ElementsAre(Line{4, 2}, Line{0, 0}));
    EXPECT_THAT(membersOf(changes.editedLines()), ElementsAre(&document.manager.lineAtRow(0)));
    EXPECT_EQ(changes.insertedLines().size(), 1U);
    EXPECT_EQ(membersOf(changes.insertedLines()), membersOf(changes.removedLines()));
}

TEST(LineManager, TheLfBehindARemovedOneStaysALineOfItsOwn) {
    Document document(u"a\r\n\nb");
    document.remove(2, 1);
    EXPECT_THAT(document.lines(), ElementsAre(Line{2, 1}, Line{1, 1}, Line{1, 0}));
}

TEST(LineManager, AnLfBehindALoneCrLosesTheRestUntilTheNextRebuild) {
    Document document(u"a\rb\nc\nd\ne"); // of these rows the one behind the CR is black
    const DocumentLineNode* lost = &document.manager.lineAtRow(1);
    ASSERT_EQ(lost->color(), RedBlackTreeNodeColor::black);
    const LineChangeSet changes = document.insert(2, u"\n");
    EXPECT_TRUE(changes.removedLines().contains(*lost));
    EXPECT_EQ(document.manager.lineCount(), 4);
    EXPECT_EQ(document.lines().front(), (Line{3, 2}));
    EXPECT_EQ(document.manager.documentLineTree().check(), std::nullopt);
    document.manager.rebuild(u"a\r\nb\nc\nd\ne");
    EXPECT_EQ(document.manager.lineCount(), 5);
}

TEST(LineManagerDeathTest, AnLfBehindALoneCrStopsTheProgramAtARedLine) {
    Document document(u"a\rb\rc");
    ASSERT_EQ(document.manager.lineAtRow(1).color(), RedBlackTreeNodeColor::black);
    ASSERT_EQ(document.manager.lineAtRow(2).color(), RedBlackTreeNodeColor::red);
    EXPECT_DEATH(document.insert(4, u"\n"), "A red node has no parent");
}

TEST(LineManager, EditsForgetTheDelimitersThatTheyDoNotKnow) {
    Document document(u"a\u2028b");
    EXPECT_EQ(document.lines().front(), (Line{2, 1}));
    document.insert(0, u"x");
    EXPECT_THAT(document.lines(), ElementsAre(Line{3, 0}, Line{1, 0}));
}

TEST(LineManager, ALineBeyondTheTextHasNoBytesUntilTheInsertion) {
    const auto stringView = std::make_shared<StringView>(u"abcdefghi");
    LineManager manager(stringView);
    manager.rebuild(u"abcdefghi");
    stringView->setInternalString(u"ax");
    manager.removeCharacters(1, 5); // the text already holds "x" in the place of eight letters
    EXPECT_EQ(manager.lineAtRow(0).value(), 4);
    EXPECT_EQ(manager.lineAtRow(0).data().byteCount(), 0);
    EXPECT_EQ(manager.check(), std::nullopt);
    manager.removeCharacters(1, 3);
    manager.insertText(u"x", 1);
    EXPECT_EQ(manager.lineAtRow(0).data().nodeTotalByteCount(), 4);
    manager.insertText(u"yz", 2);
    EXPECT_EQ(manager.lineAtRow(0).data().nodeTotalByteCount(), 0);
    stringView->setInternalString(u"axyz");
    manager.insertText(u"", 1); // the length stays, yet the text has caught up
    EXPECT_EQ(manager.lineAtRow(0).data().nodeTotalByteCount(), 8);
}

TEST(LineManager, HeightsChangeOnlyByWhatCounts) {
    Document document(u"a\nb\nc");
    DocumentLineNode& line = document.manager.lineAtRow(1);
    EXPECT_FALSE(document.manager.setLineHeight(line, 12.0 + 1e-16));
    EXPECT_TRUE(document.manager.setLineHeight(line, 20.5));
    EXPECT_EQ(document.manager.lineAtRow(2).data().yPosition(), 32.5);
    EXPECT_EQ(document.manager.contentHeight(), 44.5);
    EXPECT_EQ(document.manager.lineContainingYOffset(32.0), &line);
    EXPECT_EQ(document.manager.lineContainingYOffset(-5.0), &document.manager.lineAtRow(0));
    EXPECT_EQ(document.manager.lineContainingYOffset(44.5), &document.manager.lineAtRow(2));
    EXPECT_EQ(document.manager.lineContainingYOffset(44.6), nullptr);
}

TEST(LineManager, RangesOutsideOfTheDocument) {
    Document document(u"ab\ncd");
    LineManager& manager = document.manager;
    EXPECT_EQ(manager.linePosition(6), std::nullopt);
    EXPECT_EQ(manager.linePosition(5), (LinePosition{1, 2}));
    EXPECT_EQ(manager.firstAndLastLine(-1, 2), std::nullopt);
    EXPECT_EQ(manager.firstAndLastLine(4, 2), std::nullopt);
    EXPECT_EQ(manager.firstAndLastLine(1, -2), std::nullopt);
    EXPECT_THAT(manager.linesInRange(6, 1), IsEmpty());
    EXPECT_THAT(manager.linesInRange(1, 9), ElementsAre(&manager.lineAtRow(0)));
    EXPECT_THAT(manager.linesInRange(3, -1), ElementsAre(&manager.lineAtRow(1)));
    EXPECT_THAT(manager.linesInRange(0, 1), ElementsAre(&manager.lineAtRow(0)));
}

TEST(LineManagerDeathTest, EditsOutsideOfTheDocumentStopTheProgram) {
    Document document(u"ab");
    EXPECT_DEATH(document.manager.insertText(u"x", 3), "outside of the document");
    EXPECT_DEATH(document.manager.removeCharacters(1, 2), "outside of the document");
    EXPECT_DEATH(document.manager.lineAtRow(1), "no node at this index");
    EXPECT_EQ(document.manager.removeCharacters(9, 0).editedLines().size(), 0U);
}

} // namespace
