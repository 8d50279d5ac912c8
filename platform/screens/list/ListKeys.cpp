#include "platform/screens/list/ListKeys.h"

#include "platform/screens/list/RowParts.h"

#include <QtGui/QKeyEvent>

namespace platform {

bool ListKeys::press(const QKeyEvent& event) {
    const bool isHeld = event.isAutoRepeat(); // acts once
    const bool isRightToLeft = m_list.isRightToLeft();
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
    switch (event.key()) {
    case Qt::Key_Up:
        return go(target(QAbstractItemView::MoveUp));
    case Qt::Key_Down:
        return go(target(QAbstractItemView::MoveDown));
    case Qt::Key_Home:
        return go(target(QAbstractItemView::MoveHome));
    case Qt::Key_End:
        return go(target(QAbstractItemView::MoveEnd));
    case Qt::Key_PageUp:
        return go(target(QAbstractItemView::MovePageUp));
    case Qt::Key_PageDown:
        return go(target(QAbstractItemView::MovePageDown));
    case Qt::Key_Right:
        return isRightToLeft ? goOutward() : goInward();
    case Qt::Key_Left:
        return isRightToLeft ? goInward() : goOutward();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return isHeld || activate();
    case Qt::Key_Space:
        return m_typeAhead.isUnderWay() ? type(event) : isHeld || activate();
    case Qt::Key_Delete:
        return isHeld || askToDelete();
    default:
        return type(event);
    }
}

bool ListKeys::go(const QModelIndex& index) {
    const bool wasOnButton = std::exchange(m_isOnButton, false);
    if (index.isValid() && index != m_list.currentIndex()) {
        m_list.moveTo(index);
    } else if (wasOnButton) {
        m_list.updateRow(m_list.currentIndex());
        m_list.tellFocus();
    }
    return true;
}

bool ListKeys::activate() {
    const QModelIndex current = m_list.currentIndex();
    if (!current.isValid()) return false;
    if (m_isOnButton)
        m_list.pressButton(current);
    else
        m_list.activate(current);
    return true;
}

bool ListKeys::askToDelete() {
    if (!m_list.currentIndex().isValid()) return false;
    Q_EMIT m_list.deleteRequested(m_list.currentIndex());
    return true;
}

bool ListKeys::goInward() {
    const QModelIndex current = m_list.currentIndex();
    if (!isGroup(current)) return true;
    if (m_list.isOpen(current)) return go(m_list.model()->index(0, 0, current));
    m_list.setOpen(current, true);
    return true;
}

bool ListKeys::goOutward() {
    const QModelIndex current = m_list.currentIndex();
    if (!m_list.isOpen(current)) return isChoosable(current.parent()) ? go(current.parent()) : true;
    m_list.setOpen(current, false);
    return true;
}

bool ListKeys::type(const QKeyEvent& event) {
    const QString text = event.text();
    if (text.isEmpty() || !text.front().isPrint()) return false;
    search(text);
    return true;
}

void ListKeys::search(const QString& text) {
    const auto [prefix, staysOnRow] = m_typeAhead.type(text);
    const auto& rows = m_list.rows();
    const int count = rows.count();
    const int start = std::max(0, rows.ordinalOf(m_list.currentIndex()) + (staysOnRow ? 0 : 1));
    for (int step = 0; step < count; ++step) {
        const QModelIndex index = rows.at((start + step) % count);
        if (!index.data().toString().startsWith(prefix, Qt::CaseInsensitive)) continue;
        if (!isChoosable(index)) continue;
        go(index);
        return;
    }
}

QModelIndex ListKeys::target(QAbstractItemView::CursorAction action) const {
    const int last = m_list.rows().count() - 1;
    const QModelIndex current = m_list.currentIndex();
    const int ordinal = m_list.rows().ordinalOf(current);
    if (ordinal < 0 && action != QAbstractItemView::MoveEnd) return choosableFrom(0, Direction::Down);
    switch (action) {
    case QAbstractItemView::MoveUp:
    case QAbstractItemView::MovePrevious:
        return choosableFrom(ordinal - 1, Direction::Up);
    case QAbstractItemView::MoveDown:
    case QAbstractItemView::MoveNext:
        return choosableFrom(ordinal + 1, Direction::Down);
    case QAbstractItemView::MoveHome:
        return choosableFrom(0, Direction::Down);
    case QAbstractItemView::MoveEnd:
        return choosableFrom(last, Direction::Up);
    case QAbstractItemView::MovePageUp:
        return onePageFrom(current, Direction::Up);
    case QAbstractItemView::MovePageDown:
        return onePageFrom(current, Direction::Down);
    case QAbstractItemView::MoveLeft:
    case QAbstractItemView::MoveRight:
        break;
    }
    return current;
}

QModelIndex ListKeys::choosableFrom(int ordinal, Direction direction) const {
    const auto& rows = m_list.rows();
    for (; ordinal >= 0 && ordinal < rows.count(); ordinal += direction == Direction::Down ? 1 : -1)
        if (const QModelIndex index = rows.at(ordinal); isChoosable(index)) return index;
    return {};
}

QModelIndex ListKeys::onePageFrom(const QModelIndex& index, Direction direction) const {
    const auto& rows = m_list.rows();
    const bool isDown = direction == Direction::Down;
    const int page = m_list.viewport()->height();
    const int y = rows.rowOf(index)->top + (isDown ? page : -page);
    // Gaps and margins are lower than a row: one that is near is on their other side.
    const int reach = listMetrics().row;
    const auto near = isDown ? rows.rowsBetween(y, y + reach) : rows.rowsBetween(y - reach, y + 1);
    if (near.empty()) return target(isDown ? QAbstractItemView::MoveEnd : QAbstractItemView::MoveHome);
    return choosableFrom(rows.ordinalOf(isDown ? near.front().index : near.back().index), direction);
}

bool ListKeys::tab(bool next) {
    const bool hasButton = !m_list.currentIndex().data(ListView::ButtonSymbolRole).toString().isEmpty();
    if (next == m_isOnButton || !hasButton) {
        m_isOnButton = false;
        return false;
    }
    m_isOnButton = next;
    m_list.updateRow(m_list.currentIndex());
    m_list.tellFocus();
    return true;
}

} // namespace platform
