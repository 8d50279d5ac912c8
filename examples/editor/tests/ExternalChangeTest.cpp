#include "examples/editor/tests/EditorFixture.h"
#include "examples/editor/window/NoticeBar.h"

#include <QtWidgets/QScrollBar>

namespace tessarine::editor {
namespace {

class ExternalChangeTest : public EditorTest {
protected:
    void changeElsewhere(const QByteArray& bytes) {
        m_folder.write(m_name, bytes);
        page().file().checkDisk(); // as when the window comes to the front
    }

    bool waitForText(const QString& wanted) {
        return QTest::qWaitFor([this, &wanted] { return text() == wanted; });
    }

    bool waitForNotice() {
        return QTest::qWaitFor([this] { return page().notice().isVisible(); });
    }

    const QString m_name = QStringLiteral("a.txt");
};

TEST_F(ExternalChangeTest, AnUnmodifiedTextFollowsAndKeepsCaretAndPlace) {
    const QByteArray lines = QByteArray("line\n").repeated(500);
    open(m_name, lines);
    view().setSelectedRange(TextRange{1502, 1});
    QScrollBar& bar = *page().view().verticalScrollBar();
    ASSERT_TRUE(QTest::qWaitFor([&bar] { return bar.maximum() > 2000; }));
    bar.setValue(2000);
    changeElsewhere(lines + "end");
    ASSERT_TRUE(waitForText(QString::fromLatin1(lines + "end")));
    EXPECT_EQ(view().selectedRange(), (TextRange{1502, 1}));
    EXPECT_NEAR(view().scrollView()->contentOffset().y, 2000, 1);
    EXPECT_FALSE(page().file().isModified());
    EXPECT_FALSE(page().notice().isVisible());
}

TEST_F(ExternalChangeTest, TakingOverAChangeCanBeUndone) {
    open(m_name, "one\r\ntwo\nthree\n");
    type(QStringLiteral("x"));
    saveAndWait();
    page().setLanguage(Language::Python);
    page().setIndentStrategy(IndentStrategy::tab(8));
    view().setSelectedRange(TextRange{10, 3});
    changeElsewhere("0\nxone\r\ntwo\rthree\n");
    ASSERT_TRUE(waitForText(QStringLiteral("0\nxone\r\ntwo\rthree\n")));
    EXPECT_FALSE(page().file().isModified());
    EXPECT_EQ(view().selectedRange(), (TextRange{12, 3}));
    EXPECT_EQ(page().language(), Language::Python);
    EXPECT_EQ(view().indentStrategy(), IndentStrategy::tab(8));
    view().undo();
    EXPECT_EQ(text(), QStringLiteral("xone\r\ntwo\nthree\n"));
    EXPECT_TRUE(page().file().isModified());
    view().undo();
    EXPECT_EQ(text(), QStringLiteral("one\r\ntwo\nthree\n"));
    view().redo();
    view().redo();
    EXPECT_FALSE(page().file().isModified());
}

TEST_F(ExternalChangeTest, TheSystemTellsOfAChange) {
    open(m_name, "text");
    m_folder.write(m_name, "other text");
    EXPECT_TRUE(waitForText(QStringLiteral("other text")));
}

TEST_F(ExternalChangeTest, AModifiedTextStaysAndCanBeKept) {
    open(m_name, "text");
    type(QStringLiteral("x"));
    changeElsewhere("theirs");
    ASSERT_TRUE(waitForNotice());
    EXPECT_EQ(text(), QStringLiteral("xtext"));
    ASSERT_TRUE(click(page().notice(), QStringLiteral("Keep mine")));
    saveAndWait();
    EXPECT_EQ(m_folder.read(m_name), "xtext");
}

TEST_F(ExternalChangeTest, AModifiedTextCanBeGivenUp) {
    open(m_name, "text");
    type(QStringLiteral("x"));
    changeElsewhere("theirs");
    ASSERT_TRUE(waitForNotice());
    ASSERT_TRUE(click(page().notice(), QStringLiteral("Reload and discard mine")));
    EXPECT_TRUE(waitForText(QStringLiteral("theirs")));
    EXPECT_FALSE(page().file().isModified());
    view().undo();
    EXPECT_EQ(text(), QStringLiteral("xtext")) << "a slip of the hand loses nothing";
}

TEST_F(ExternalChangeTest, ASaveOverAnothersChangeAsks) {
    open(m_name, "text");
    type(QStringLiteral("x"));
    m_folder.write(m_name, "theirs");
    save();
    ASSERT_TRUE(answer(QStringLiteral("Cancel")));
    EXPECT_EQ(m_folder.read(m_name), "theirs");
    EXPECT_TRUE(page().file().isModified());
    save();
    ASSERT_TRUE(answer(QStringLiteral("Overwrite")));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !page().file().isModified(); }));
    EXPECT_EQ(m_folder.read(m_name), "xtext");
}

// Nothing else holds the text then.
TEST_F(ExternalChangeTest, ARemovedFileLeavesItsTextModified) {
    const QString path = open(m_name, "text");
    QFile::remove(path);
    page().file().checkDisk();
    EXPECT_TRUE(page().file().isModified());
    ASSERT_TRUE(waitForNotice());
    saveAndWait();
    EXPECT_EQ(m_folder.read(m_name), "text");
}

TEST_F(ExternalChangeTest, OwnSavesAreNoChange) {
    open(m_name, "text");
    for (int i = 0; i < 5; ++i) {
        type(QStringLiteral("x"));
        saveAndWait();
        page().file().checkDisk();
    }
    EXPECT_FALSE(page().notice().isVisible());
    EXPECT_FALSE(page().file().isLoading());
    EXPECT_TRUE(view().canUndo());
}

} // namespace
} // namespace tessarine::editor
