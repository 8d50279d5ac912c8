#include "examples/editor/tests/EditorFixture.h"
#include "examples/editor/window/TextPlace.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolButton>

namespace tessarine::editor {
namespace {

class DocumentTest : public EditorTest {
protected:
    QString status(const QString& name) {
        if (auto* const label = m_window->statusBar()->findChild<QLabel*>(name)) return label->text();
        return m_window->statusBar()->findChild<QToolButton*>(name)->text();
    }
};

TEST_F(DocumentTest, TheStatusLineTellsHowAFileIsWritten) {
    open(QStringLiteral("a.c"),
         QByteArray("\xEF\xBB\xBF") + QByteArray("int main() {\r\n  return 0;\r\n}\r\n").repeated(20));
    EXPECT_EQ(status(QStringLiteral("language")), QStringLiteral("C"));
    EXPECT_EQ(status(QStringLiteral("lineEnding")), QStringLiteral("CRLF"));
    EXPECT_EQ(status(QStringLiteral("encoding")), QStringLiteral("UTF-8 with BOM"));
    EXPECT_EQ(status(QStringLiteral("indentation")), QStringLiteral("Spaces: 2"));
    EXPECT_EQ(status(QStringLiteral("place")), QStringLiteral("1:1"));
    view().setSelectedRange(TextRange{16, 4});
    EXPECT_EQ(status(QStringLiteral("place")), QStringLiteral("2:7 (4 selected)"));
    view().movement().select(21, 16);
    EXPECT_EQ(status(QStringLiteral("place")), QStringLiteral("2:3 (5 selected)"));
    open(QStringLiteral("plain"), "\xE9\n");
    EXPECT_EQ(status(QStringLiteral("language")), QStringLiteral("Plain Text"));
    EXPECT_EQ(status(QStringLiteral("encoding")), QStringLiteral("Windows-1252"));
    EXPECT_EQ(status(QStringLiteral("lineEnding")), QStringLiteral("LF"));
}

TEST_F(DocumentTest, TheLanguageComesFromNameOrFirstLineAndCanBeChanged) {
    open(QStringLiteral("tool"), "#!/usr/bin/env node\nlet x = 1\n");
    EXPECT_EQ(page().language(), Language::JavaScript);
    EXPECT_TRUE(view().syntaxNode(20));
    choose(QStringLiteral("Language"), QStringLiteral("Plain Text"));
    EXPECT_EQ(status(QStringLiteral("language")), QStringLiteral("Plain Text"));
    choose(QStringLiteral("Language"), QStringLiteral("Markdown"));
    EXPECT_EQ(page().language(), Language::Markdown);
}

TEST_F(DocumentTest, ALongTextIsEditedBeforeItIsParsed) {
    open(QStringLiteral("long.c"), QByteArray("int f() {\n   return 0;\n}\n").repeated(25'000));
    EXPECT_EQ(page().language(), Language::C);
    view().setSelectedRange(TextRange{0, 0});
    view().insertText(u"static ");
    const auto isParsed = [this] {
        const auto node = view().syntaxNode(0);
        return node && node->type == "static";
    };
    EXPECT_TRUE(QTest::qWaitFor(isParsed, 60'000));
    EXPECT_EQ(status(QStringLiteral("indentation")), QStringLiteral("Spaces: 3"));
}

TEST_F(DocumentTest, LineEndingsAreExchangedInOneStepAndFollowUndo) {
    open(QStringLiteral("a"), "one\ntwo\r\nthree\n");
    choose(QStringLiteral("Line Endings"), QStringLiteral("CR (old Mac)"));
    EXPECT_EQ(text(), QStringLiteral("one\rtwo\rthree\r"));
    EXPECT_EQ(status(QStringLiteral("lineEnding")), QStringLiteral("CR"));
    view().undo();
    EXPECT_EQ(text(), QStringLiteral("one\ntwo\r\nthree\n"));
    EXPECT_EQ(status(QStringLiteral("lineEnding")), QStringLiteral("LF"));
}

TEST_F(DocumentTest, IndentationIsChosen) {
    open(QStringLiteral("a"), "text");
    choose(QStringLiteral("Indentation"), QStringLiteral("Tabs: 8"));
    press(Qt::Key_Tab);
    EXPECT_EQ(text(), QStringLiteral("\ttext"));
}

TEST_F(DocumentTest, ALineIsGoneTo) {
    open(QStringLiteral("a"), QByteArray("text\n").repeated(100));
    press(Qt::Key_G, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("50:3"));
    press(Qt::Key_Return);
    EXPECT_EQ(view().selectedRange(), (TextRange{49 * 5 + 2, 0}));
    EXPECT_TRUE(page().view().hasFocus());
    press(Qt::Key_G, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("99999"));
    press(Qt::Key_Return);
    EXPECT_EQ(view().selectedRange(), (TextRange{500, 0}));
}

TEST_F(DocumentTest, SettingsAreTheSameInAllPagesAndAfterAStart) {
    open(QStringLiteral("a"), "text");
    choose(QStringLiteral("Theme"), QStringLiteral("One Dark"));
    choose(QStringLiteral("View"), QStringLiteral("Zoom In"));
    choose(QStringLiteral("View"), QStringLiteral("Invisible Characters"));
    const double size = view().theme()->font().pointSize;
    m_window->newPage();
    EXPECT_EQ(view().theme()->font().pointSize, size);
    EXPECT_TRUE(view().invisibleCharacterConfiguration().showTabs());
    start();
    EXPECT_EQ(m_services->settings.viewOptions().theme, QStringLiteral("onedark"));
    EXPECT_EQ(view().theme()->font().pointSize, size);
    EXPECT_EQ(m_services->settings.recentFiles(), QStringList(m_folder.path(QStringLiteral("a"))));
    choose(QStringLiteral("View"), QStringLiteral("Actual Size"));
    EXPECT_EQ(view().theme()->font().pointSize, size - 1);
}

TEST(TextPlaceTest, PlacesAreReadAndWritten) {
    EXPECT_EQ(textPlace(QStringLiteral("12:5")), (TextLocation{11, 4}));
    EXPECT_EQ(textPlace(QStringLiteral(" 7 ")), (TextLocation{6, 0}));
    EXPECT_EQ(placeText({11, 4}), QStringLiteral("12:5"));
    for (const char* const wrong : {"", "0", "-1", "1:", "1:0", "1:2:3", "x", "99999999999999999999"})
        EXPECT_EQ(textPlace(QString::fromLatin1(wrong)), std::nullopt) << wrong;
}

} // namespace
} // namespace tessarine::editor
