#include "Quillet/browsing/SnippetList.h"

#include "Quillet/core/tests/TemporaryLibrary.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QTest>
#include <QtWidgets/QScrollBar>

using namespace quillet;

namespace {

class SnippetListTest : public TemporaryLibrary {
protected:
    static std::shared_ptr<Snippet> add(const QString& title, const QString& language) {
        auto snippet = Snippet::create(title, {}, QStringLiteral("code"), language);
        CoreDataStack::shared().save(SaveReason::AddedSnippet);
        turn();
        return snippet;
    }

    static QModelIndex find(const QAbstractItemModel& model, const QString& title,
                            const QModelIndex& under = {}) {
        for (int row = 0; row < model.rowCount(under); ++row) {
            const QModelIndex index = model.index(row, 0, under);
            if (index.data().toString() == title) return index;
            if (const QModelIndex below = find(model, title, index); below.isValid()) return below;
        }
        return {};
    }

    static void openAll(SnippetList& list, const QModelIndex& under = {}) {
        for (int row = 0; row < list.model()->rowCount(under); ++row) {
            list.setOpen(list.model()->index(row, 0, under), true);
            openAll(list, list.model()->index(row, 0, under));
        }
    }

    static void click(SnippetList& list, const QString& title) {
        const QModelIndex index = find(*list.model(), title);
        list.scrollTo(index);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(index).center());
    }
};

TEST_F(SnippetListTest, RowsOpenByAClickAndStayOpenOverARebuild) {
    add(QStringLiteral("one"), QStringLiteral("swift"));
    SnippetListModel model;
    SnippetList list(model);
    const QAbstractItemModelTester tester(list.model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    list.resize(300, 300);
    list.show();
    std::shared_ptr<Snippet> selected;
    list.onSelectSnippet = [&](const auto& snippet) { selected = snippet; };
    click(list, QStringLiteral("Languages"));
    click(list, QStringLiteral("swift"));
    click(list, QStringLiteral("one"));
    ASSERT_TRUE(selected);
    EXPECT_EQ(selected->title(), QStringLiteral("one"));

    for (int i = 0; i < 20; ++i)
        add(QStringLiteral("more %1").arg(i), QStringLiteral("c"));
    EXPECT_TRUE(list.isOpen(find(*list.model(), QStringLiteral("Languages"))));
    EXPECT_TRUE(list.isOpen(find(*list.model(), QStringLiteral("swift"))));
    EXPECT_FALSE(list.isOpen(find(*list.model(), QStringLiteral("c"))));
    EXPECT_EQ(list.currentIndex().data().toString(), QStringLiteral("one"));
    click(list, QStringLiteral("swift"));
    EXPECT_FALSE(list.isOpen(find(*list.model(), QStringLiteral("swift"))));
}

TEST_F(SnippetListTest, ARebuildKeepsTheScrollPosition) {
    for (int i = 0; i < 40; ++i)
        add(QStringLiteral("s%1").arg(i), QStringLiteral("swift"));
    SnippetListModel model;
    SnippetList list(model);
    list.resize(300, 300);
    list.show();
    openAll(list);
    turn();
    list.verticalScrollBar()->setValue(500);
    add(QStringLiteral("zz"), QStringLiteral("swift"));
    EXPECT_EQ(list.verticalScrollBar()->value(), 500);
}

TEST_F(SnippetListTest, KeysOpenAndChoose) {
    add(QStringLiteral("one"), QStringLiteral("swift"));
    SnippetListModel model;
    SnippetList list(model);
    list.show();
    list.activateWindow();
    list.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    QString selected;
    list.onSelectSnippet = [&](const auto& snippet) { selected = snippet->title(); };
    list.setCurrentIndex(find(*list.model(), QStringLiteral("Languages")));
    for (const auto key : {Qt::Key_Return, Qt::Key_Down, Qt::Key_Return, Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(&list, key);
    EXPECT_EQ(selected, QStringLiteral("one"));
}

TEST_F(SnippetListTest, ASelectionFromOutsideIsCleared) {
    const auto snippet = add(QStringLiteral("one"), QStringLiteral("swift"));
    SnippetListModel model;
    SnippetList list(model);
    openAll(list);
    list.setCurrentIndex(find(*list.model(), QStringLiteral("one")));
    ASSERT_TRUE(list.selectionModel()->hasSelection());
    list.select(snippet);
    EXPECT_FALSE(list.selectionModel()->hasSelection());
}

} // namespace
