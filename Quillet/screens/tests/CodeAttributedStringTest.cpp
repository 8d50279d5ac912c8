#include "Quillet/screens/code/CodeAttributedString.h"

#include <QtCore/QRandomGenerator>
#include <QtGui/QTextBlock>
#include <QtGui/QTextLayout>
#include <QtTest/QTest>
#include <gtest/gtest.h>

using namespace quillet;
using platform::AttributedString;
using platform::TextView;

namespace {

using Formats = QList<QTextLayout::FormatRange>;

const QString c = QStringLiteral("c");

AttributedString allRed(const QString& text) {
    platform::TextAttributes red;
    red.foreground = 0xFFFF0000;
    return {text, {{0, text.size(), red}}};
}

class CodeAttributedStringTest : public ::testing::Test {
protected:
    TextView view;
    CodeAttributedString storage{view};

    CodeAttributedStringTest() {
        view.resize(600, 4000);
        view.show();
    }

    void rest() {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !storage.isHighlighting(); }, 60'000));
    }

    static QList<Formats> formatsOf(TextView& shown) {
        shown.grab();
        QList<Formats> formats;
        for (QTextBlock block = shown.document()->begin(); block.isValid(); block = block.next())
            formats += block.layout()->formats();
        return formats;
    }

    QColor firstColour() { return formatsOf(view)[0].value(0).format.foreground().color(); }

    // What a view that never had another text shows.
    static QList<Formats> freshFormats(const QString& text) {
        TextView fresh;
        CodeAttributedString storage(fresh);
        fresh.resize(600, 4000);
        fresh.setText(text);
        storage.setLanguage(c);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !storage.isHighlighting(); }, 60'000));
        return formatsOf(fresh);
    }
};

// The keys come while highlights run, are due and have just come back.
TEST_F(CodeAttributedStringTest, EditsAtAnyTimeEndInTheColoursOfAFreshHighlight) {
    constexpr quint32 seed = 5;
    QRandomGenerator random(seed);
    storage.setLanguage(c);
    view.setText(QStringLiteral("/* one */ int a;\r\nreturn \"text\"; // two\r\n").repeated(12));
    for (int round = 0; round < 12; ++round) {
        for (int key = 0; key < 12; ++key) {
            QTextCursor cursor = view.textCursor();
            cursor.setPosition(random.bounded(view.document()->characterCount()));
            view.setTextCursor(cursor);
            const int caret = cursor.position();
            switch (random.bounded(6)) {
            case 0:
                view.undo();
                break;
            case 1:
                QTest::keyClick(&view, Qt::Key_Delete);
                break;
            default:
                QTest::keyClicks(&view, QString(QStringLiteral("*/\"\r x").at(random.bounded(6))));
                ASSERT_EQ(view.textCursor().position(), caret + 1);
            }
            if (random.bounded(3) == 0) {
                const int due = random.bounded(3);
                int turns = 0;
                ASSERT_TRUE(QTest::qWaitFor([&] { return ++turns > due * 20 || !storage.isHighlighting(); }));
            }
        }
        rest();
        ASSERT_EQ(formatsOf(view), freshFormats(view.text())) << "seed " << seed << " round " << round;
    }
}

TEST_F(CodeAttributedStringTest, ColouringLeavesCaretAndUndoAlone) {
    storage.setLanguage(c);
    view.setText(QStringLiteral("int a;\nint b;"));
    QTest::keyClicks(&view, QStringLiteral("long "));
    rest();
    EXPECT_EQ(formatsOf(view)[0].size(), 2);
    EXPECT_EQ(view.textCursor().position(), 5);
    view.undo();
    EXPECT_EQ(view.text(), QStringLiteral("int a;\nint b;"));
    EXPECT_FALSE(view.document()->isUndoAvailable());
    rest();
    view.redo();
    EXPECT_EQ(view.text(), QStringLiteral("long int a;\nint b;"));
}

TEST_F(CodeAttributedStringTest, TheStartOfALongTextAndThenAllOfItGetsTheColours) {
    view.setText(QStringLiteral("int a; /* x */\n").repeated(4000) + QStringLiteral("return 1;"));
    storage.setLanguage(c);
    rest();
    EXPECT_EQ(formatsOf(view)[0].size(), 2);
    view.moveCursor(QTextCursor::End);
    view.grab();
    EXPECT_EQ(view.document()->lastBlock().layout()->formats().size(), 2);
}

TEST_F(CodeAttributedStringTest, GivenColoursShowAlsoWithBreaksOfTwoUnits) {
    const QString text = QStringLiteral("one\r\ntwo");
    AttributedString string = allRed(text);
    string.runs[0].start = 5;
    storage.setAttributedString(string);
    EXPECT_EQ(view.text(), text);
    const auto formats = formatsOf(view);
    EXPECT_TRUE(formats[0].isEmpty());
    ASSERT_EQ(formats[1].size(), 1);
    EXPECT_EQ(formats[1][0].start, 0);
    EXPECT_EQ(formats[1][0].length, 3);
}

TEST_F(CodeAttributedStringTest, GivenColoursDoNotReplaceThoseOfTheLanguage) {
    const QString text = QStringLiteral("int a;");
    view.setText(text);
    storage.setLanguage(c);
    rest();
    storage.setAttributedString(allRed(text));
    EXPECT_NE(firstColour(), QColor(Qt::red));
    EXPECT_EQ(formatsOf(view)[0].size(), 1);
    storage.setAttributedString(allRed(QStringLiteral("int b;")));
    EXPECT_EQ(firstColour(), QColor(Qt::red)) << "another text";
}

TEST_F(CodeAttributedStringTest, AnAnswerToAnotherTextOrLanguageIsDropped) {
    view.setText(QStringLiteral("int a;"));
    int turns = 0;
    bool sawColours = false;
    QObject::connect(&storage, &CodeAttributedString::highlightingChanged, [&] {
        ++turns;
        sawColours |= !formatsOf(view)[0].isEmpty();
    });
    storage.setLanguage(c);
    ASSERT_TRUE(QTest::qWaitFor([&] { return turns == 1; }));
    storage.setLanguage(QStringLiteral("plaintext"));
    rest();
    EXPECT_GE(turns, 3) << "two highlights";
    EXPECT_FALSE(sawColours);
}

TEST_F(CodeAttributedStringTest, MayGoInTheMiddleOfAHighlight) {
    auto shortLived = std::make_unique<CodeAttributedString>(view);
    view.setText(QStringLiteral("int a;\n").repeated(20'000));
    shortLived->setLanguage(c);
    bool isRunning = false;
    QObject::connect(shortLived.get(), &CodeAttributedString::highlightingChanged, [&] { isRunning = true; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return isRunning; }));
    shortLived.reset();
    view.setText(QStringLiteral("int b;"));
    storage.setLanguage(c);
    rest();
    EXPECT_EQ(formatsOf(view)[0].size(), 1);
}

} // namespace
