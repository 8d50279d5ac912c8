#pragma once

#include "Tessarine/base/TextRange.h"
#include "Tessarine/view/interaction/DropCaret.h"
#include "Tessarine/view/interaction/EdgeScroll.h"

#include <QtCore/QPointF>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

class QDragMoveEvent;
class QDropEvent;
class QMimeData;
class QWidget;

namespace tessarine {

class TextClipboard;
class TextView;
class ViewScrolling;

// Text that is dragged out of a text view, into it and within it. What is dragged is moved, or copied where
// the desktop's key for that is held. Files are left to whoever is around the view.
class TextDrag {
public:
    // Drags something away, in one of these ways, and returns in which it has been dropped.
    using Execute = std::function<Qt::DropAction(std::unique_ptr<QMimeData>, Qt::DropActions)>;

    // Borrows all.
    TextDrag(TextView& textView, TextClipboard& clipboard, ViewScrolling& scrolling, QWidget& viewport,
             Execute execute);

    // With the selection; returns when it has been dropped, by when the view may be gone.
    void start();

    // Told by the widget. Places are those in the viewport.
    void move(QDragMoveEvent& event);
    void leave();
    void drop(QDropEvent& event);

private:
    bool accept(QDropEvent& event) const;
    void removeDragged();
    void dropOwn(QDropEvent& event, std::int64_t location);
    void insert(const QMimeData& data, std::int64_t location);

    TextView& m_textView;
    TextClipboard& m_clipboard;
    ViewScrolling& m_scrolling;
    QWidget& m_viewport;
    const Execute m_execute;

    std::optional<TextRange> m_dragged; // by start(), until it has been moved
    DropCaret m_caret;
    EdgeScroll m_edgeScroll;
};

} // namespace tessarine
