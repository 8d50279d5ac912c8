#include "Quillet/controls/SelfSizingHostingController.h"

#include <QtTest/QTest>
#include <QtWidgets/QVBoxLayout>
#include <gtest/gtest.h>

namespace quillet {

TEST(SelfSizingHostingController, SizesItsContainerByItsContent) {
    auto content = std::make_unique<QWidget>();
    auto& panel = *content;
    panel.setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* rows = new QVBoxLayout(&panel);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    const auto addRow = [&] {
        auto* row = new QWidget(&panel);
        row->setFixedHeight(40);
        rows->addWidget(row);
        return row;
    };
    addRow();

    QWidget window;
    auto* column = new QVBoxLayout(&window);
    column->setContentsMargins(0, 0, 0, 0);
    auto* hosting = new SelfSizingHostingController(std::move(content), &window);
    column->addWidget(hosting);
    column->addStretch(1);
    window.resize(300, 500);
    window.show();
    const auto becomes = [&](int height) {
        return QTest::qWaitFor([&] { return hosting->height() == height; });
    };
    EXPECT_TRUE(becomes(40));
    auto* second = addRow();
    EXPECT_TRUE(becomes(80));
    second->hide();
    EXPECT_TRUE(becomes(40));
}

} // namespace quillet
