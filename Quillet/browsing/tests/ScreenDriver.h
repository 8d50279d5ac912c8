#pragma once

#include "platform/screens/list/ListView.h"

#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>

// What a user does, by real events, for the tests of whole screens.
namespace quillet::driver {

// The visible widget of that name, or with that text, that came last; null if there is none.
template <typename T>
T* find(const QWidget& root, const QString& name) {
    T* found = nullptr;
    for (auto* widget : root.findChildren<T*>())
        if (widget->isVisible() &&
            (widget->accessibleName() == name || widget->property("text").toString() == name))
            found = widget;
    return found;
}

template <typename T>
T& waitFor(const QWidget& root, const QString& name) {
    T* found = nullptr;
    if (!QTest::qWaitFor([&] { return (found = find<T>(root, name)) != nullptr; }))
        qFatal("Nothing is called %s", qPrintable(name));
    return *found;
}

inline void click(const QWidget& root, const QString& name) {
    QTest::mouseClick(&waitFor<QAbstractButton>(root, name), Qt::LeftButton);
    QApplication::processEvents();
}

inline QModelIndex findRow(const QAbstractItemModel& model, const QString& title,
                           const QModelIndex& under = {}) {
    for (int row = 0; row < model.rowCount(under); ++row) {
        const QModelIndex index = model.index(row, 0, under);
        if (index.data().toString() == title) return index;
        if (const QModelIndex below = findRow(model, title, index); below.isValid()) return below;
    }
    return {};
}

// A point on the row, away from its button.
inline QPoint onRow(platform::ListView& list, const QModelIndex& index) {
    list.scrollTo(index);
    QApplication::processEvents();
    return list.visualRect(index).center();
}

inline void clickRow(platform::ListView& list, const QModelIndex& index) {
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, onRow(list, index));
    QApplication::processEvents();
}

inline void clickRow(platform::ListView& list, const QString& title) {
    QModelIndex index;
    if (!QTest::qWaitFor([&] { return (index = findRow(*list.model(), title)).isValid(); }))
        qFatal("There is no row %s", qPrintable(title));
    clickRow(list, index);
}

// By the right button.
inline QMenu* openContextMenu(platform::ListView& list, const QModelIndex& index) {
    const QPoint at = onRow(list, index);
    QTest::mouseClick(list.viewport(), Qt::RightButton, {}, at);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, list.viewport()->mapToGlobal(at));
    QApplication::sendEvent(list.viewport(), &event);
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

inline QStringList titlesOf(const QMenu& menu) {
    QStringList titles;
    for (const auto* action : menu.actions())
        if (!action->isSeparator()) titles += action->text();
    return titles;
}

// Presses the entry and runs what it does.
inline void choose(QMenu& menu, const QString& title) {
    for (auto* action : menu.actions())
        if (action->text() == title) {
            QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
            QApplication::processEvents();
            return;
        }
    qFatal("There is no entry %s", qPrintable(title));
}

} // namespace quillet::driver
