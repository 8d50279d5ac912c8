#include "examples/editor/tests/EditorFixture.h"

#include <QtWidgets/QTabBar>

namespace tessarine::editor {
namespace {

class ClosingTest : public EditorTest {
protected:
    void openModified(const QString& name) {
        open(name, "text");
        type(QStringLiteral("x"));
    }

    void closePage() {
        goToText();
        press(Qt::Key_W, Qt::ControlModifier);
    }
};

TEST_F(ClosingTest, ACancelledQuestionKeepsThePage) {
    openModified(QStringLiteral("a"));
    closePage();
    ASSERT_TRUE(answer(QStringLiteral("Cancel")));
    EXPECT_EQ(text(), QStringLiteral("xtext"));
    EXPECT_TRUE(page().file().isModified());
}

TEST_F(ClosingTest, SaveAndDiscardCloseThePage) {
    openModified(QStringLiteral("a"));
    closePage();
    ASSERT_TRUE(answer(QStringLiteral("Save")));
    ASSERT_TRUE(QTest::qWaitFor([this] { return page().isUnused(); }));
    EXPECT_EQ(m_folder.read(QStringLiteral("a")), "xtext");
    openModified(QStringLiteral("b"));
    closePage();
    ASSERT_TRUE(answer(QStringLiteral("Discard")));
    EXPECT_TRUE(page().isUnused());
    EXPECT_EQ(m_folder.read(QStringLiteral("b")), "text");
}

TEST_F(ClosingTest, AMiddleClickClosesATab) {
    open(QStringLiteral("a"), "text");
    open(QStringLiteral("b"), "text");
    auto* const bar = m_window->findChild<QTabBar*>();
    QTest::mouseClick(bar, Qt::MiddleButton, {}, bar->tabRect(0).center());
    EXPECT_EQ(pageCount(), 1);
    EXPECT_EQ(page().file().name(), QStringLiteral("b"));
}

TEST_F(ClosingTest, TheWindowAsksForEachPageAndStaysWhenOneIsCancelled) {
    openModified(QStringLiteral("a"));
    openModified(QStringLiteral("b"));
    EXPECT_FALSE(m_window->close());
    ASSERT_TRUE(answer(QStringLiteral("Discard")));
    ASSERT_TRUE(answer(QStringLiteral("Cancel")));
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_EQ(pageCount(), 2);
    EXPECT_FALSE(m_window->close());
    ASSERT_TRUE(answer(QStringLiteral("Save")));
    ASSERT_TRUE(QTest::qWaitFor([this] { return m_folder.read(QStringLiteral("a")) == "xtext"; }));
    ASSERT_TRUE(answer(QStringLiteral("Discard")));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_window->isVisible(); }));
    EXPECT_EQ(m_folder.read(QStringLiteral("b")), "text");
}

TEST_F(ClosingTest, WithoutChangesTheWindowCloses) {
    open(QStringLiteral("a"), "text");
    m_window->close();
    EXPECT_FALSE(m_window->isVisible());
}

} // namespace
} // namespace tessarine::editor
