#include "platform/screens/list/ListView.h"

#include <QtCore/QAnimationDriver>
#include <QtCore/QMimeData>
#include <QtGui/QAccessible>
#include <QtGui/QStandardItemModel>
#include <QtGui/QWheelEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QScroller>
#include <gtest/gtest.h>

#include <set>

using namespace platform;

namespace {

QString q(const char* text) {
    return QString::fromUtf8(text);
}

// Counts what it is asked, and can be refilled by a reset.
class CountingModel : public QStandardItemModel {
public:
    QVariant data(const QModelIndex& index, int role) const override {
        ++asked;
        return QStandardItemModel::data(index, role);
    }

    template <typename Fill>
    void refill(Fill fill) {
        beginResetModel();
        {
            const QSignalBlocker quiet(this);
            invisibleRootItem()->removeRows(0, invisibleRootItem()->rowCount());
            fill();
        }
        endResetModel();
    }

    mutable int asked = 0;
};

// Moves what is animated on, a little at each call.
class Clock : public QAnimationDriver {
public:
    void advance() override {
        m_now += 16;
        advanceAnimation();
    }

    qint64 elapsed() const override { return m_now; }

private:
    qint64 m_now = 0; // milliseconds
};

QStandardItem* row(const QString& title, ListView::RowStyle style = ListView::RowStyle::Row) {
    auto item = std::make_unique<QStandardItem>(title);
    item->setData(static_cast<int>(style), ListView::StyleRole);
    item->setData(title, ListView::KeyRole);
    item->setData(style == ListView::RowStyle::Header, ListView::GroupRole);
    return item.release(); // its model's or its parent's
}

class ListViewTest : public ::testing::Test {
protected:
    ListViewTest() {
        QApplication::setEffectEnabled(Qt::UI_General, false);
        fill(30);
        list.setOpenRows({[this](const QModelIndex& index) { return open.contains(index.data().toString()); },
                          [this](const QModelIndex& index, bool isOpen) {
                              if (isOpen)
                                  open.insert(index.data().toString());
                              else
                                  open.erase(index.data().toString());
                          }});
        list.setModel(&model);
        list.resize(300, 400);
        list.show();
        list.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&list));
        list.setFocus();
        QObject::connect(&list, &ListView::rowActivated, &list,
                         [this](const QModelIndex& index) { activated += index.data().toString(); });
        QObject::connect(&list, &ListView::buttonPressed, &list,
                         [this](const QModelIndex& index) { pressed += index.data().toString(); });
    }

    // Two headers, one with a button, with so many rows below each.
    void fill(int rows) {
        for (const auto* title : {"Alpha", "Beta"}) {
            auto* header = row(q(title), ListView::RowStyle::Header);
            header->setData(q("plus"), ListView::ButtonSymbolRole);
            header->setData(q("Add to ") + q(title), ListView::ButtonNameRole);
            for (int i = 0; i < rows; ++i)
                header->appendRow(row(q(title).toLower() + QStringLiteral(" %1").arg(i)));
            model.appendRow(header);
        }
    }

    QModelIndex at(int header, int below = -1) const {
        const QModelIndex index = model.index(header, 0);
        return below < 0 ? index : model.index(below, 0, index);
    }

    QPoint middle(const QModelIndex& index) const { return list.visualRect(index).center(); }

    void click(const QModelIndex& index) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, middle(index));
    }

    QString current() const { return list.currentIndex().data().toString(); }

    void keys(std::initializer_list<Qt::Key> all) {
        for (const auto key : all)
            QTest::keyClick(&list, key);
    }

    // Puts a finger down, moves it, and lifts it.
    void drag(const QPoint& from, const QPoint& by) {
        static auto* const finger = QTest::createTouchDevice();
        auto* viewport = list.viewport();
        QTest::touchEvent(viewport, finger).press(0, from, viewport);
        for (int step = 1; step <= 4; ++step)
            QTest::touchEvent(viewport, finger).move(0, from + by * step / 4, viewport);
        QTest::touchEvent(viewport, finger).release(0, from + by, viewport);
    }

    void tap(const QPoint& point) { drag(point, {}); }

    QAccessibleInterface* accessible(const QModelIndex& index) {
        auto* root = QAccessible::queryAccessibleInterface(&list);
        if (!index.parent().isValid()) return root->child(index.row());
        return accessible(index.parent())->child(index.row() + 1); // behind the button
    }

    CountingModel model;
    ListView list;
    std::set<QString> open;
    QStringList activated;
    QStringList pressed;
};

TEST_F(ListViewTest, PressesOpenCloseAndActivate) {
    click(at(0));
    EXPECT_TRUE(list.isOpen(at(0)));
    EXPECT_TRUE(activated.isEmpty());
    click(at(0, 2));
    EXPECT_EQ(activated, QStringList{q("alpha 2")});
    EXPECT_EQ(list.selectionModel()->selectedIndexes(), QModelIndexList{at(0, 2)});
    click(at(0));
    EXPECT_FALSE(list.isOpen(at(0)));
    EXPECT_FALSE(list.visualRect(at(0, 2)).isValid());
    EXPECT_EQ(current(), q("Alpha"));
    // A press that ends elsewhere does nothing.
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, middle(at(0)));
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, middle(at(1)));
    EXPECT_FALSE(list.isOpen(at(0)) || list.isOpen(at(1)));
}

TEST_F(ListViewTest, KeysGoOpenCloseAndDelete) {
    keys({Qt::Key_Home, Qt::Key_Right});
    EXPECT_TRUE(list.isOpen(at(0)));
    keys({Qt::Key_Right});
    EXPECT_EQ(current(), q("alpha 0"));
    keys({Qt::Key_Down, Qt::Key_Space});
    EXPECT_EQ(activated, QStringList{q("alpha 1")});
    keys({Qt::Key_PageDown});
    EXPECT_EQ(current(), q("alpha 10")); // 400 points on
    EXPECT_TRUE(list.viewport()->rect().contains(list.visualRect(list.currentIndex())));
    keys({Qt::Key_Left});
    EXPECT_EQ(current(), q("Alpha"));
    keys({Qt::Key_Left, Qt::Key_End});
    EXPECT_FALSE(list.isOpen(at(0)));
    EXPECT_EQ(current(), q("Beta"));
    QStringList deleted;
    QObject::connect(&list, &ListView::deleteRequested, &list,
                     [&](const QModelIndex& index) { deleted += index.data().toString(); });
    keys({Qt::Key_Delete});
    EXPECT_EQ(deleted, QStringList{q("Beta")});
    list.setLayoutDirection(Qt::RightToLeft);
    keys({Qt::Key_Left});
    EXPECT_TRUE(list.isOpen(at(1)));
    keys({Qt::Key_Right});
    EXPECT_FALSE(list.isOpen(at(1)));
}

TEST_F(ListViewTest, PagesThatEndBetweenCardsGoToTheNearestRow) {
    model.refill([this] {
        for (int card = 0; card < 10; ++card) {
            model.appendRow(row(QStringLiteral("header %1").arg(card), ListView::RowStyle::Header));
            model.item(card)->appendRow(row(QStringLiteral("row %1").arg(card)));
            open.insert(QStringLiteral("header %1").arg(card));
        }
    });
    const int card = list.visualRect(at(1)).top() - list.visualRect(at(0)).top();
    const int page = list.viewport()->height();
    list.resize(list.width(), list.height() + 3 * card - 5 - page); // from a header on, and back from a row
    keys({Qt::Key_Home, Qt::Key_PageDown});
    EXPECT_EQ(current(), q("header 3"));
    list.resize(list.width(), list.height() - list.visualRect(at(0)).height() + 2);
    list.setCurrentIndex(at(9));
    keys({Qt::Key_PageUp});
    EXPECT_EQ(current(), q("row 6"));
    keys({Qt::Key_PageUp, Qt::Key_PageUp, Qt::Key_PageUp});
    EXPECT_EQ(current(), q("header 0"));
}

TEST_F(ListViewTest, TheMenuKeyBringsTheRowIntoView) {
    click(at(0));
    list.setCurrentIndex(at(0, 1));
    list.verticalScrollBar()->setValue(900);
    QString asked;
    list.contextMenu = [&asked](const QModelIndex& index) -> std::optional<Menu> {
        asked = index.data().toString();
        return std::nullopt;
    };
    keys({Qt::Key_Menu});
    EXPECT_EQ(asked, q("alpha 1"));
}

TEST_F(ListViewTest, LettersFindVisibleRowsAndWrap) {
    open = {q("Alpha")};
    list.setOpenRows(
        {[this](const QModelIndex& index) { return open.contains(index.data().toString()); }, {}});
    keys({Qt::Key_Home});
    QTest::keyClicks(&list, q("ALPHA 7"));
    EXPECT_EQ(current(), q("alpha 7"));
    QApplication::setKeyboardInputInterval(1); // the letters before are soon forgotten
    ASSERT_TRUE(QTest::qWaitFor([this] {
        list.setCurrentIndex(at(0, 7));
        QTest::keyClick(&list, 'b');
        return current() == q("Beta");
    }));
    QTest::keyClick(&list, 'b'); // the rows below Beta are not visible: round to itself
    EXPECT_EQ(current(), q("Beta"));
}

TEST_F(ListViewTest, ButtonsOfRowsArePressedByAllMeans) {
    const QRect header = list.visualRect(at(0));
    auto* button = accessible(at(0))->child(0);
    const QPoint point = list.viewport()->mapFromGlobal(button->rect().center());
    EXPECT_GT(point.x(), header.center().x());
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, point);
    tap(point);
    button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    keys({Qt::Key_Home, Qt::Key_Tab});
    EXPECT_TRUE(button->state().focused);
    keys({Qt::Key_Space});
    EXPECT_EQ(pressed, QStringList({q("Alpha"), q("Alpha"), q("Alpha"), q("Alpha")}));
    EXPECT_FALSE(list.isOpen(at(0)));
    list.setLayoutDirection(Qt::RightToLeft);
    EXPECT_LT(list.viewport()->mapFromGlobal(button->rect().center()).x(), header.center().x());
}

TEST_F(ListViewTest, ARebuildKeepsThePlaceOfWhatIsInView) {
    click(at(0));
    list.verticalScrollBar()->setValue(500);
    list.setCurrentIndex(at(0, 12));
    list.setOpen(at(1), true);
    const QModelIndex top = list.indexAt({100, 0});
    const QString title = top.data().toString();
    const int y = list.visualRect(top).top();
    const auto find = [&](const QString& name) { return model.match(at(0, 0), Qt::DisplayRole, name)[0]; };
    model.refill([&] {
        fill(30);
        for (int i = 0; i < 5; ++i)
            model.item(0)->insertRow(0, row(QStringLiteral("new %1").arg(i)));
    });
    EXPECT_EQ(list.visualRect(find(title)).top(), y);
    EXPECT_EQ(current(), q("alpha 12"));
    EXPECT_TRUE(list.selectionModel()->isSelected(find(q("alpha 12"))));
    EXPECT_TRUE(list.isOpen(at(1)));
    // The row at the edge goes, and the one below it stands for it.
    const QModelIndex second = model.index(find(title).row() + 1, 0, at(0));
    const QString next = second.data().toString();
    const int nextY = list.visualRect(second).top();
    model.refill([&] {
        fill(30);
        model.item(0)->removeRow(find(title).row());
    });
    EXPECT_EQ(list.visualRect(find(next)).top(), nextY);
}

TEST_F(ListViewTest, RowsSlideOpenAndTurnAround) {
    QApplication::setEffectEnabled(Qt::UI_General, true);
    const int closed = list.visualRect(at(1)).top();
    click(at(0));
    EXPECT_EQ(list.visualRect(at(1)).top(), closed); // it only begins
    ASSERT_TRUE(QTest::qWaitFor([&] { return list.visualRect(at(1)).top() > closed + 20; }));
    keys({Qt::Key_Left});
    ASSERT_TRUE(QTest::qWaitFor([&] { return !list.visualRect(at(0, 0)).isValid(); }));
    EXPECT_EQ(list.visualRect(at(1)).top(), closed);
    // What is on its way to be closed is passed over.
    click(at(0));
    ASSERT_TRUE(QTest::qWaitFor([&] { return list.visualRect(at(1)).top() > 400; }));
    click(at(0));
    keys({Qt::Key_Down});
    EXPECT_EQ(current(), q("Beta"));
}

TEST_F(ListViewTest, AChangeOfTheModelEndsTheSlide) {
    QApplication::setEffectEnabled(Qt::UI_General, true);
    Clock clock;
    clock.install();
    const int closed = list.visualRect(at(1)).top();
    click(at(0));
    ASSERT_TRUE(QTest::qWaitFor([&] {
        clock.advance();
        return list.visualRect(at(1)).top() > closed + 20;
    }));
    model.item(0)->appendRow(row(q("late")));
    clock.advance(); // before the list is laid out anew
    EXPECT_EQ(list.visualRect(at(1)).top() - closed, 31 * list.visualRect(at(0, 0)).height() + 12);
}

TEST_F(ListViewTest, OnlyWhatIsInViewIsAskedForItsLooks) {
    model.refill([this] { fill(50'000); });
    list.setOpenRows(
        {[this](const QModelIndex& index) { return open.contains(index.data().toString()); }, {}});
    list.verticalScrollBar();
    list.setOpenRows({[](const QModelIndex& index) { return !index.parent().isValid(); }, {}});
    list.grab();
    for (const int place : {0, 1'000'000, 4'000'000}) {
        list.verticalScrollBar()->setValue(place);
        model.asked = 0;
        list.grab();
        EXPECT_GT(model.asked, 0);
        EXPECT_LT(model.asked, 400); // 10 rows of a dozen questions, some twice
    }
}

TEST_F(ListViewTest, AFingerSwipesScrollsAndPresses) {
    click(at(0));
    QStringList done;
    list.swipeActions = [&](const QModelIndex& index) -> std::vector<SwipeAction> {
        const QString title = index.data().toString();
        return {{q("Delete"), q("trash"), SwipeAction::Role::Destructive, [&done, title] { done += title; }},
                {q("More"), {}, SwipeAction::Role::Normal, [&done] { done += q("more"); }}};
    };
    const QPoint point = middle(at(0, 1));
    drag(point, {-120, 0});
    EXPECT_TRUE(done.isEmpty());
    tap({260, point.y()}); // the first stands at the end
    EXPECT_EQ(done, QStringList{q("alpha 1")});
    drag(point, {-120, 0});
    tap({180, point.y()});
    EXPECT_EQ(done.last(), q("more"));
    drag(point, {-260, 5});
    EXPECT_EQ(done.last(), q("alpha 1"));
    done.clear();
    drag(point, {-120, 0});
    tap(middle(at(0, 3))); // closes it, and does nothing else
    tap({260, point.y()}); // a row like others again
    EXPECT_TRUE(done.isEmpty());
    EXPECT_EQ(activated, QStringList{q("alpha 1")});
    drag(middle(at(0, 4)), {5, -150});
    EXPECT_TRUE(QTest::qWaitFor([this] { return list.verticalScrollBar()->value() > 50; }));
    EXPECT_EQ(activated.size(), 1);
}

TEST_F(ListViewTest, ATapThatStopsTheRowsPressesNothing) {
    click(at(0));
    auto* scroller = QScroller::scroller(list.viewport());
    scroller->scrollTo({0, 800}, 10'000);
    ASSERT_TRUE(QTest::qWaitFor([this] { return list.verticalScrollBar()->value() > 0; }));
    ASSERT_EQ(scroller->state(), QScroller::Scrolling);
    tap({100, 100});
    EXPECT_TRUE(activated.isEmpty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return scroller->state() == QScroller::Inactive; }));
    tap({100, 100});
    EXPECT_EQ(activated.size(), 1);
}

TEST_F(ListViewTest, ATouchpadSwipes) {
    click(at(0));
    bool isDone = false;
    list.swipeActions = [&](const QModelIndex&) -> std::vector<SwipeAction> {
        return {{q("Delete"), {}, SwipeAction::Role::Destructive, [&isDone] { isDone = true; }}};
    };
    const QPoint point = middle(at(0, 1));
    for (int i = 0; i < 10; ++i) {
        QWheelEvent wheel(point, list.viewport()->mapToGlobal(point), {-26, 3}, {-26, 3}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(list.viewport(), &wheel);
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return isDone; })); // a full swipe, once it rests
    EXPECT_EQ(list.verticalScrollBar()->value(), 0);
}

TEST_F(ListViewTest, AssistiveToolsSeeATreeOfRows) {
    click(at(0));
    model.item(0)->child(0)->setData(q("12"), ListView::DetailRole);
    auto* root = QAccessible::queryAccessibleInterface(&list);
    EXPECT_EQ(root->role(), QAccessible::Tree);
    EXPECT_EQ(root->childCount(), 2);
    auto* header = root->child(0);
    EXPECT_EQ(header->role(), QAccessible::TreeItem);
    EXPECT_EQ(header->text(QAccessible::Name), q("Alpha"));
    EXPECT_TRUE(header->state().expandable && header->state().expanded);
    EXPECT_TRUE(root->child(1)->state().collapsed);
    EXPECT_EQ(root->child(1)->childCount(), 1); // the button
    EXPECT_EQ(header->childCount(), 31);
    EXPECT_EQ(header->child(0)->role(), QAccessible::Button);
    EXPECT_EQ(header->child(0)->text(QAccessible::Name), q("Add to Alpha"));
    auto* leaf = header->child(1);
    EXPECT_EQ(leaf->text(QAccessible::Name), q("alpha 0, 12"));
    EXPECT_EQ(leaf->parent(), header);
    EXPECT_EQ(header->indexOfChild(leaf), 1);
    EXPECT_EQ(root->childAt(leaf->rect().center().x(), leaf->rect().center().y()), leaf);
    EXPECT_TRUE(header->child(30)->state().offscreen);
    leaf->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(activated, QStringList{q("alpha 0")});
    EXPECT_TRUE(leaf->state().selected && leaf->state().focused);
    EXPECT_EQ(root->focusChild(), leaf);
    header->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(list.isOpen(at(0)));
    model.refill([this] { fill(3); });
    EXPECT_FALSE(header->isValid());
    EXPECT_EQ(root->child(0)->text(QAccessible::Name), q("Alpha"));
}

TEST_F(ListViewTest, AssistiveToolsFindTheRowOrTheButtonThatHasTheFocus) {
    const auto focused = [this] {
        return QAccessible::queryAccessibleInterface(&list)->focusChild()->text(QAccessible::Name);
    };
    list.setOpen(at(0), true);
    list.setCurrentIndex(at(0));
    keys({Qt::Key_Tab});
    EXPECT_EQ(focused(), q("Add to Alpha"));
    keys({Qt::Key_Home});
    EXPECT_EQ(focused(), q("Alpha"));
    keys({Qt::Key_Tab, Qt::Key_Right});
    EXPECT_EQ(focused(), q("alpha 0"));
    model.refill([this] {
        fill(30);
        model.item(0)->removeRow(0);
    });
    EXPECT_EQ(focused(), q("alpha 1"));
}

TEST_F(ListViewTest, TitlesStandAtTheOtherSideRightToLeft) {
    const auto inkBounds = [this] { // of what the first header shows besides its ground
        const QImage image = list.grab(list.visualRect(at(0))).toImage();
        int left = image.width();
        int weight = 0;
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                if (image.pixelColor(x, y) == color(Asset::Text)) {
                    left = std::min(left, x);
                    weight += x < image.width() / 2 ? -1 : 1;
                }
        return std::pair(left, weight);
    };
    EXPECT_LT(inkBounds().second, 0);
    list.setLayoutDirection(Qt::RightToLeft);
    EXPECT_GT(inkBounds().second, 0);
}

} // namespace
