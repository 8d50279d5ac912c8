#include "examples/editor/tests/EditorFixture.h"

#include <QtCore/QDir>

namespace tessarine::editor {
namespace {

TEST_F(EditorTest, FilesOfAllFormatsChangeByWhatWasTypedOnly) {
    const std::pair<QByteArray, QByteArray> cases[] = {
        {"a\nb\n", "xa\nb\n"},
        {"\xEF\xBB\xBF"
         "a\r\nb",
         "\xEF\xBB\xBF"
         "xa\r\nb"},
        {QByteArray("\xFF\xFE\x61\0\r\0\x62\0", 8), QByteArray("\xFF\xFE\x78\0\x61\0\r\0\x62\0", 10)},
        {QByteArray("\xFE\xFF\0\x61", 4), QByteArray("\xFE\xFF\0\x78\0\x61", 6)},
        {QByteArray("\0\0\xFE\xFF\0\0\0\x61", 8), QByteArray("\0\0\xFE\xFF\0\0\0\x78\0\0\0\x61", 12)},
        {"\xE9\r\nmixed\nends\r", "x\xE9\r\nmixed\nends\r"}};
    int number = 0;
    for (const auto& [before, after] : cases) {
        const QString name = QString::number(++number);
        open(name, before);
        type(QStringLiteral("x"));
        EXPECT_TRUE(page().file().isModified());
        saveAndWait();
        EXPECT_EQ(m_folder.read(name), after);
    }
}

TEST_F(EditorTest, ALineIsBrokenAsTheFileBreaksLines) {
    open(QStringLiteral("a"), "one\r\ntwo\r\n");
    press(Qt::Key_Return);
    saveAndWait();
    EXPECT_EQ(m_folder.read(QStringLiteral("a")), "\r\none\r\ntwo\r\n");
}

TEST_F(EditorTest, UndoingBackToTheFileIsNoChange) {
    open(QStringLiteral("a"), "text");
    type(QStringLiteral("x"));
    EXPECT_TRUE(m_window->isWindowModified());
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(text(), QStringLiteral("text"));
    EXPECT_FALSE(page().file().isModified());
    EXPECT_FALSE(m_window->isWindowModified());
}

TEST_F(EditorTest, AMalformedFileIsShownAndNeverWritten) {
    const QByteArray bytes("\xEF\xBB\xBF"
                           "a\xFF");
    open(QStringLiteral("a"), bytes);
    type(QStringLiteral("x"));
    EXPECT_EQ(text(), QStringLiteral("a\uFFFD"));
    EXPECT_FALSE(page().canSave());
    save();
    choose(QStringLiteral("Line Endings"), QStringLiteral("CRLF (Windows)"));
    EXPECT_FALSE(page().file().isModified());
    EXPECT_EQ(m_folder.read(QStringLiteral("a")), bytes);
}

TEST_F(EditorTest, WhatIsNoTextIsToldAndLeavesNoPage) {
    const QString path = m_folder.write(QStringLiteral("a"), QByteArray("\0", 1));
    m_window->openFile(path);
    EXPECT_TRUE(answer(QStringLiteral("OK")));
    EXPECT_EQ(pageCount(), 1);
    EXPECT_TRUE(page().isUnused());
}

TEST_F(EditorTest, AFileThatIsNotThereIsMadeByTheFirstSave) {
    openPath(m_folder.path(QStringLiteral("new.c")));
    EXPECT_FALSE(page().file().isModified());
    type(QStringLiteral("int x;"));
    EXPECT_FALSE(QFile::exists(m_folder.path(QStringLiteral("new.c"))));
    saveAndWait();
    EXPECT_EQ(m_folder.read(QStringLiteral("new.c")), "int x;");
    EXPECT_EQ(page().language(), Language::C);
}

TEST_F(EditorTest, ATextThatItsEncodingLacksIsOfferedAnother) {
    open(QStringLiteral("a"), "\xE9");
    view().insertText(u"→");
    save();
    ASSERT_TRUE(answer(QStringLiteral("Cancel")));
    EXPECT_TRUE(page().file().isModified());
    EXPECT_EQ(m_folder.read(QStringLiteral("a")), "\xE9");
    save();
    ASSERT_TRUE(answer(QStringLiteral("Save as UTF-8")));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !page().file().isModified(); }));
    EXPECT_EQ(m_folder.read(QStringLiteral("a")), QStringLiteral("→é").toUtf8());
}

TEST_F(EditorTest, ASaveThatFailsSaysWhyAndLeavesTheTextModified) {
    QDir(m_folder.root()).mkdir(QStringLiteral("sub"));
    open(QStringLiteral("sub/a"), "text");
    type(QStringLiteral("x"));
    QDir(m_folder.path(QStringLiteral("sub"))).removeRecursively();
    save();
    ASSERT_TRUE(answer(QStringLiteral("Cancel")));
    EXPECT_TRUE(page().file().isModified());
    EXPECT_EQ(text(), QStringLiteral("xtext"));
}

// A save that waits for the one before takes the text as it is then.
TEST_F(EditorTest, WhatIsTypedDuringASaveIsNotLost) {
    open(QStringLiteral("a"), "text");
    type(QStringLiteral("x"));
    save();
    type(QStringLiteral("y"));
    EXPECT_TRUE(page().file().isModified());
    saveAndWait();
    EXPECT_EQ(m_folder.read(QStringLiteral("a")), "xytext");
    type(QStringLiteral("z"));
    save();
    saveAndWait();
    EXPECT_EQ(m_folder.read(QStringLiteral("a")), "xyztext");
}

TEST_F(EditorTest, AFileIsOpenedOnce) {
    const QString path = open(QStringLiteral("a"), "text");
    open(QStringLiteral("b"), "other");
    ASSERT_TRUE(QFile::link(path, m_folder.path(QStringLiteral("link"))));
    m_window->openFile(m_folder.path(QStringLiteral("link")));
    EXPECT_EQ(pageCount(), 2);
    EXPECT_EQ(page().file().path(), path);
}

} // namespace
} // namespace tessarine::editor
