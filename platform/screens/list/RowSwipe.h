#pragma once

#include "platform/screens/list/SwipeAction.h"

#include <QtCore/QPersistentModelIndex>
#include <QtCore/QRect>
#include <QtCore/QVariantAnimation>

#include <vector>

class QPainter;

namespace platform {

// One row that is swiped aside, with the actions uncovered at its end. Cards are given in any coordinates,
// those of a row being asked about in the same.
class RowSwipe {
public:
    // Told at each change of the look.
    explicit RowSwipe(std::function<void()> changed);

    const QPersistentModelIndex& index() const { return m_index; }

    bool isUncovered() const { return m_index.isValid(); }

    // How far the row is moved towards its start.
    int offset() const { return m_offset; }

    // A swipe of the row begins, or goes on where it is uncovered already. `rowWidth` is that of its card.
    void begin(const QModelIndex& index, std::vector<SwipeAction> actions, int rowWidth);
    // So far from where it began, towards the start of the row.
    void moveTo(int distance);
    // Takes the first action after a full swipe, else stays uncovered or closes, whatever is nearer.
    void release();
    void close();
    void closeAtOnce();

    // A press takes the action there, or closes the row.
    void press(const QRect& card, const QPoint& at, Qt::LayoutDirection direction);

    void paint(QPainter& painter, const QRect& card, Qt::LayoutDirection direction) const;

private:
    bool isFull() const;
    void setOffset(int offset);
    void slideTo(int offset);
    void take(std::size_t action);
    // From the row's end inward.
    std::vector<QRect> rectsOf(const QRect& card, Qt::LayoutDirection direction) const;

    std::function<void()> m_changed;
    QPersistentModelIndex m_index;
    std::vector<SwipeAction> m_actions;
    std::vector<int> m_widths;
    int m_allWidths = 0;
    int m_rowWidth = 0;
    int m_offset = 0;
    int m_beganAt = 0;
    QVariantAnimation m_slide;
};

} // namespace platform
