#include "examples/editor/find/BackgroundSearch.h"
#include "examples/editor/find/FindBar.h"
#include "examples/editor/find/FindQuery.h"
#include "examples/editor/tests/EditorFixture.h"

#include <QtWidgets/QLabel>

namespace tessarine::editor {
namespace {

class FindTest : public EditorTest {
protected:
    FindBar& bar() { return *page().findChild<FindBar*>(); }

    QLineEdit& field(const QString& name) { return *bar().findChild<QLineEdit*>(name); }

    void openBar(int key) {
        page().view().setFocus();
        press(key, Qt::ControlModifier);
        ASSERT_TRUE(bar().isVisible());
    }

    void look(const QString& pattern) {
        openBar(Qt::Key_F);
        QTest::keyClicks(&field(QStringLiteral("find")), pattern);
    }

    void replaceBy(const QString& replacement) {
        field(QStringLiteral("replacement")).clear();
        QTest::keyClicks(&field(QStringLiteral("replacement")), replacement);
    }

    bool waitForResult(const QString& wanted) {
        auto* const label = bar().findChild<QLabel*>(QStringLiteral("result"));
        const bool isShown = QTest::qWaitFor([&] { return label->text() == wanted; });
        EXPECT_EQ(label->text(), wanted);
        return isShown;
    }

    std::u16string selected() { return view().text(view().selectedRange().value_or(TextRange())); }
};

TEST_F(FindTest, MatchesAreCountedLitAndWalkedInARing) {
    open(QStringLiteral("a"), "one two One tone");
    look(QStringLiteral("one"));
    ASSERT_TRUE(waitForResult(QStringLiteral("1 of 3")));
    const auto firstLit = [this] { return view().highlightedRanges().front()->range; };
    EXPECT_EQ(view().highlightedRanges().size(), 2U) << "all but the selected one";
    EXPECT_EQ(firstLit(), (TextRange{8, 3}));
    press(Qt::Key_Return);
    ASSERT_TRUE(waitForResult(QStringLiteral("2 of 3")));
    EXPECT_EQ(selected(), u"One");
    EXPECT_EQ(firstLit(), (TextRange{0, 3}));
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    ASSERT_TRUE(waitForResult(QStringLiteral("1 of 3")));
    press(Qt::Key_Return, Qt::ShiftModifier);
    ASSERT_TRUE(waitForResult(QStringLiteral("3 of 3")));
    press(Qt::Key_Escape);
    EXPECT_FALSE(bar().isVisible());
    EXPECT_TRUE(view().highlightedRanges().empty());
    EXPECT_TRUE(page().view().hasFocus());
    press(Qt::Key_F3); // what was looked for is still known
    EXPECT_TRUE(QTest::qWaitFor([this] { return view().selectedRange() == TextRange{0, 3}; }));
}

TEST_F(FindTest, OptionsNarrowTheSearch) {
    open(QStringLiteral("a"), "one two One tone");
    look(QStringLiteral("one"));
    ASSERT_TRUE(waitForResult(QStringLiteral("1 of 3")));
    ASSERT_TRUE(click(bar(), QStringLiteral("case")));
    ASSERT_TRUE(waitForResult(QStringLiteral("1 of 2")));
    ASSERT_TRUE(click(bar(), QStringLiteral("word")));
    ASSERT_TRUE(waitForResult(QStringLiteral("1 of 1")));
    field(QStringLiteral("find")).setText(QStringLiteral("t.o|[O]ne"));
    ASSERT_TRUE(waitForResult(QStringLiteral("No matches")));
    ASSERT_TRUE(click(bar(), QStringLiteral("regex")));
    ASSERT_TRUE(waitForResult(QStringLiteral("1 of 2")));
    field(QStringLiteral("find")).setText(QStringLiteral("(t"));
    ASSERT_TRUE(waitForResult(QStringLiteral("Not a regular expression")));
    EXPECT_TRUE(view().highlightedRanges().empty());
}

TEST_F(FindTest, AReplacementGoesOnToTheNextMatch) {
    open(QStringLiteral("a"), "one two one");
    look(QStringLiteral("one"));
    ASSERT_TRUE(waitForResult(QStringLiteral("1 of 2")));
    openBar(Qt::Key_H);
    ASSERT_TRUE(waitForResult(QStringLiteral("1 of 2")));
    replaceBy(QStringLiteral("once $1"));
    ASSERT_TRUE(click(bar(), QStringLiteral("replace")));
    EXPECT_EQ(text(), QStringLiteral("once $1 two one"));
    ASSERT_TRUE(waitForResult(QStringLiteral("1 of 1")));
    EXPECT_EQ(selected(), u"one");
}

TEST_F(FindTest, ReplacingAllIsOneStepBack) {
    const QByteArray before("a1 b22 c333\n");
    open(QStringLiteral("a"), before);
    openBar(Qt::Key_H);
    ASSERT_TRUE(click(bar(), QStringLiteral("regex")));
    field(QStringLiteral("find")).setText(QStringLiteral("([a-z])(\\d+)"));
    ASSERT_TRUE(waitForResult(QStringLiteral("1 of 3")));
    replaceBy(QStringLiteral("$2\\u$1"));
    ASSERT_TRUE(click(bar(), QStringLiteral("replaceAll")));
    ASSERT_TRUE(QTest::qWaitFor([this] { return text() == QStringLiteral("1A 22B 333C\n"); }));
    view().undo();
    EXPECT_EQ(text(), QString::fromLatin1(before));
    EXPECT_FALSE(page().file().isModified());
}

TEST_F(FindTest, AnEndlessGroupNumberIsToldAndChangesNothing) {
    open(QStringLiteral("a"), "one");
    openBar(Qt::Key_H);
    ASSERT_TRUE(click(bar(), QStringLiteral("regex")));
    field(QStringLiteral("find")).setText(QStringLiteral("(o)"));
    ASSERT_TRUE(waitForResult(QStringLiteral("1 of 1")));
    replaceBy(QStringLiteral("$99999999999999999999x"));
    ASSERT_TRUE(click(bar(), QStringLiteral("replaceAll")));
    ASSERT_TRUE(waitForResult(QStringLiteral("There is no group with so large a number")));
    ASSERT_TRUE(click(bar(), QStringLiteral("replace")));
    EXPECT_EQ(text(), QStringLiteral("one"));
}

TEST_F(FindTest, AChangedTextIsSearchedAnew) {
    open(QStringLiteral("a"), "one\n");
    look(QStringLiteral("one"));
    ASSERT_TRUE(waitForResult(QStringLiteral("1 of 1")));
    view().insertText(u"one one ");
    ASSERT_TRUE(waitForResult(QStringLiteral("2 matches")));
    press(Qt::Key_Return);
    EXPECT_TRUE(waitForResult(QStringLiteral("1 of 2")));
}

TEST_F(FindTest, APatternThatRunsAwayEndsWithTheNextKey) {
    open(QStringLiteral("a"), QByteArray(40'000, 'a') + "b");
    openBar(Qt::Key_F);
    ASSERT_TRUE(click(bar(), QStringLiteral("regex")));
    field(QStringLiteral("find")).setText(QStringLiteral("(a+)+$x"));
    field(QStringLiteral("find")).setText(QStringLiteral("b$"));
    EXPECT_TRUE(waitForResult(QStringLiteral("1 of 1")));
}

TEST(FindQueryTest, WholeWordsAreQuotedAndTemplatesToldApart) {
    EXPECT_EQ(searchQuery({QStringLiteral("a.b"), false, true, false})->text, u"(?<!\\w)(?:a\\.b)(?!\\w)");
    EXPECT_FALSE(searchQuery({QStringLiteral("(?x)a #"), false, true, true}));
    EXPECT_FALSE(searchQuery({QStringLiteral("a)|(b"), false, true, true}));
    const FindOptions words{QStringLiteral("a"), false, true, false};
    EXPECT_EQ(replacementOf(words, QStringLiteral("$0")), ParsedReplacementString::literal(u"$0"));
    const FindOptions pattern{QStringLiteral("a"), false, false, true};
    EXPECT_TRUE(replacementOf(pattern, QStringLiteral("$0"))->hasPlaceholder());
    EXPECT_TRUE(replacementOf(pattern, QStringLiteral("$9223372036854775807")));
    EXPECT_FALSE(replacementOf(pattern, QStringLiteral("$9223372036854775808")));
    EXPECT_FALSE(replacementOf(pattern, QStringLiteral("$1$0099999999999999999999")));
}

TEST(MatchListTest, NeighboursGoRoundTheEnds) {
    const MatchList matches({{2, 3}, {5, 1}, {10, 4}});
    EXPECT_EQ(matches.indexOf({5, 1}), 1U);
    EXPECT_EQ(matches.indexOf({5, 2}), std::nullopt);
    EXPECT_EQ(matches.indexOf({11, 1}), std::nullopt);
    EXPECT_EQ(matches.nextFrom(3), 1U);
    EXPECT_EQ(matches.nextFrom(11), 0U);
    EXPECT_EQ(matches.previousTo(5), 0U);
    EXPECT_EQ(matches.previousTo(4), 2U);
    EXPECT_EQ(MatchList().nextFrom(0), std::nullopt);
    EXPECT_EQ(MatchList().previousTo(0), std::nullopt);
    EXPECT_EQ(matches.within({4, 2}).size(), 2U);
    EXPECT_EQ(matches.within({6, 4}).size(), 0U);
    EXPECT_EQ(matches.within({0, 100}).size(), 3U);
    EXPECT_EQ(matches.within({12, 1}).size(), 1U);
}

TEST(FindMatchesTest, ALimitIsTold) {
    const TextSnapshot text = TextStore(u"aaaa").snapshot();
    EXPECT_FALSE(findMatches(text, {u"a"}, {}, 3)->isAll);
    EXPECT_EQ(findMatches(text, {u"a"}, {}, 3)->matches.count(), 3U);
    EXPECT_TRUE(findMatches(text, {u"a"}, {}, 4)->isAll);
}

} // namespace
} // namespace tessarine::editor
