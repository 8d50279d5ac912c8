#include "platform/screens/style/Style.h"

#include "platform/screens/appearance/DesktopSettings.h"
#include "platform/screens/appearance/Motion.h"
#include "platform/screens/appearance/TypeScale.h"
#include "platform/screens/controls/SymbolButton.h"
#include "platform/screens/list/GroupedForm.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QFocusFrame>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>
#include <gtest/gtest.h>

using namespace platform;

namespace {

QString q(const char* text) {
    return QString::fromUtf8(text);
}

class StyleTest : public ::testing::Test {
protected:
    StyleTest() {
        applyStyle();
        column.addWidget(&button);
        column.addWidget(&field);
        column.addWidget(&box);
    }

    void show() {
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    // The widget that a ring is around.
    QWidget* ringed() {
        const auto* frame = window.findChild<QFocusFrame*>();
        return frame && frame->isVisible() ? frame->widget() : nullptr;
    }

    QWidget window;
    QVBoxLayout column{&window};
    QPushButton button{q("Press")};
    QLineEdit field{q("Text")};
    QCheckBox box{q("Switch")};
};

TEST_F(StyleTest, ControlsAreLargeEnoughForAFingerAndGrowWithTheirText) {
    QFont large;
    large.setPointSizeF(40);
    for (QWidget* control : std::initializer_list<QWidget*>{&button, &field, &box}) {
        EXPECT_GE(control->sizeHint().height(), 44);
        EXPECT_GE(control->sizeHint().width(), 33);
        control->setFont(large);
        EXPECT_GE(control->sizeHint().height(), QFontMetrics(large).height() + 16);
    }
}

TEST_F(StyleTest, ARingIsShownToWhoUsesTheKeyboard) {
    button.setAutoDefault(false);
    show();
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(button.hasFocus());
    EXPECT_EQ(ringed(), nullptr);
    QTest::keyClick(&button, Qt::Key_Tab);
    EXPECT_TRUE(field.hasFocus());
    EXPECT_EQ(ringed(), nullptr); // a field shows its own
    QTest::keyClick(&field, Qt::Key_Tab);
    EXPECT_EQ(ringed(), &box);
    box.hide(); // the focus goes on
    EXPECT_EQ(ringed(), &button);
}

// The widget with the ring may go at any time.
TEST_F(StyleTest, TheRingGoesWithItsWidget) {
    show();
    auto* passing = new QPushButton(q("Passing"));
    column.addWidget(passing);
    passing->show();
    passing->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ringed(), passing);
    delete passing;
    EXPECT_EQ(ringed(), QApplication::focusWidget());
    button.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ringed(), &button);
}

TEST_F(StyleTest, EverythingFollowsTheDesktopsAppearance) {
    show();
    SymbolButton symbol(q("plus"), q("Add"), Asset::Accent, &window);
    const auto corner = [&] { return window.grab().toImage().pixelColor(1, 1); };
    EXPECT_EQ(corner(), color(Asset::BackgroundGrey, Appearance::Light));
    DesktopSettings::shared().appearanceChanges().set(Appearance::Dark);
    EXPECT_TRUE(QTest::qWaitFor([&] { return corner() == color(Asset::BackgroundGrey, Appearance::Dark); }));
    const QImage dark = symbol.grab().toImage();
    DesktopSettings::shared().appearanceChanges().set(Appearance::Light);
    EXPECT_NE(symbol.grab().toImage(), dark);
}

TEST_F(StyleTest, TextsGrowWithTheSystemsFont) {
    QLabel title(q("Title"), &window);
    setTextStyle(title, TextStyle::LargeTitle);
    setTextStyle(title, TextStyle::Headline); // the later one counts
    QFont system = QApplication::font();
    system.setPointSizeF(30);
    QApplication::setFont(system);
    EXPECT_TRUE(QTest::qWaitFor([&] { return title.font().pointSizeF() == 30; }));
    EXPECT_TRUE(title.font().bold());
    EXPECT_NEAR(font(TextStyle::LargeTitle).pointSizeF(), 57, 0.01);
}

TEST_F(StyleTest, ASpringComesToRestAtItsEndAndDoesNotSwingOver) {
    const auto spring = criticallyDampedSpring();
    EXPECT_EQ(spring.valueForProgress(0), 0);
    EXPECT_EQ(spring.valueForProgress(1), 1);
    qreal before = 0;
    for (int percent = 1; percent <= 100; ++percent) {
        const qreal way = spring.valueForProgress(percent / 100.0);
        EXPECT_GE(way, before);
        before = way;
    }
    EXPECT_GT(spring.valueForProgress(0.5), 0.9);
}

TEST_F(StyleTest, AFormScrollsToWhatHasTheFocus) {
    GroupedForm form;
    auto& rows = form.addSection(q("Fields"), q("All of them"));
    std::vector<QLineEdit*> fields;
    for (int i = 0; i < 12; ++i) {
        fields.push_back(new QLineEdit(&form));
        rows.addWidget(fields.back());
    }
    form.resize(300, 240);
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    fields.front()->setFocus();
    EXPECT_EQ(form.verticalScrollBar()->value(), 0);
    fields.back()->setFocus();
    const auto& last = *fields.back();
    EXPECT_TRUE(form.viewport()->rect().contains(QRect(last.mapTo(form.viewport(), QPoint()), last.size())));
}

} // namespace
