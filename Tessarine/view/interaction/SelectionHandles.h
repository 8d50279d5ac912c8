#pragma once

#include "Tessarine/base/UserInterfaceStyle.h"
#include "Tessarine/view/interaction/EdgeScroll.h"

#include <QtCore/QPointF>

#include <cstdint>
#include <functional>
#include <optional>

class QWidget;

namespace tessarine {

class SelectionHandle;
class TextView;
class ViewScrolling;

// The grips at both ends of a selection that fingers have made.
class SelectionHandles {
public:
    // Borrows all; the grips are the viewport's children. `selected` is called once a grip is let go.
    SelectionHandles(TextView& textView, ViewScrolling& scrolling, QWidget& viewport,
                     std::function<void()> selected);

    // Until hide(), as long as something is selected.
    void show();
    void hide();

    // For which their colour is resolved.
    void setUserInterfaceStyle(UserInterfaceStyle style);

    // Selection, text, colour or scrolling have changed.
    void update();

private:
    enum class End : std::uint8_t { start, limit };

    SelectionHandle& makeHandle(End end);
    void begin(End end);
    void drag(const QPointF& tip);
    void end();
    void select(const QPointF& place);
    void place(SelectionHandle& handle, std::int64_t location) const;

    TextView& m_textView;
    ViewScrolling& m_scrolling;
    QWidget& m_viewport;
    SelectionHandle& m_start;
    SelectionHandle& m_limit;
    const std::function<void()> m_selected;

    UserInterfaceStyle m_style = UserInterfaceStyle::Light;
    bool m_isShown = false;
    std::optional<End> m_dragged;
    QPointF m_tip; // of that
    EdgeScroll m_edgeScroll;
};

} // namespace tessarine
