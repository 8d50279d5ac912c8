#pragma once

#include "Tessarine/base/Color.h"
#include "Tessarine/base/Rect.h"
#include "Tessarine/layout/CornerMask.h"
#include "Tessarine/layout/ViewHost.h"

#include <memory>
#include <optional>
#include <vector>

namespace tessarine {

class DrawContext;

// A rectangle on the screen with rectangles in it. It paints nothing itself: whoever shows the tree fills its
// background, calls draw(), and goes on with its subviews from the first to the last, which lies on top.
//
// In points. A frame is in the coordinates of the superview; what a view draws and where its subviews lie
// counts from its own top left corner, or, if it scrolls, from a place off the screen: see bounds().
// Ownership: a view owns its subviews, so it has to be made by std::make_shared. Main thread.
class View : public std::enable_shared_from_this<View> {
public:
    View() = default;
    View(const View&) = delete;
    View& operator=(const View&) = delete;
    virtual ~View() = default;

    const Rect& frame() const { return m_frame; }

    void setFrame(const Rect& frame);

    // What of its own coordinates shows in the frame.
    virtual Rect bounds() const { return {.width = m_frame.width, .height = m_frame.height}; }

    // Null at the root.
    std::shared_ptr<View> superview() const { return m_superview.lock(); }

    const std::vector<std::shared_ptr<View>>& subviews() const { return m_subviews; }

    // On top of the others; a view that is in another goes from there. Not into itself.
    void addSubview(std::shared_ptr<View> view);
    void removeFromSuperview();

    const std::optional<Color>& backgroundColor() const { return m_backgroundColor; }

    void setBackgroundColor(std::optional<Color> color);

    bool isHidden() const { return m_isHidden; }

    void setHidden(bool isHidden);

    // Of the background.
    double cornerRadius() const { return m_cornerRadius; }

    void setCornerRadius(double radius);

    const CornerMask& maskedCorners() const { return m_maskedCorners; }

    void setMaskedCorners(const CornerMask& corners);

    // Whether touches are for it, or for what lies below.
    bool isUserInteractionEnabled() const { return m_isUserInteractionEnabled; }

    void setUserInteractionEnabled(bool isEnabled) { m_isUserInteractionEnabled = isEnabled; }

    // What is shown of the view is out of date: the host of its tree is told.
    void setNeedsDisplay();

    bool needsDisplay() const { return m_needsDisplay; }

    // To be called when it has been drawn.
    virtual void didDisplay() { m_needsDisplay = false; }

    virtual void draw(DrawContext& /*context*/) {}

    // Places subviews anew: here and below, wherever a size has changed since. For the host, before it draws.
    void layoutIfNeeded();

    void setNeedsLayout() { m_needsLayout = true; }

    // Of a root.
    void setHost(std::weak_ptr<ViewHost> host) { m_host = std::move(host); }

protected:
    virtual void layoutSubviews() {}

    // That part of it, in its own coordinates, is out of date, with all that lies in it.
    void invalidate(const Rect& rect);

private:
    void invalidateFrame();
    template <class Value>
    void setAppearance(Value& current, Value value);

    Rect m_frame;
    std::weak_ptr<View> m_superview;
    std::vector<std::shared_ptr<View>> m_subviews;
    std::weak_ptr<ViewHost> m_host;

    std::optional<Color> m_backgroundColor;
    double m_cornerRadius = 0;
    CornerMask m_maskedCorners;
    bool m_isHidden = false;
    bool m_isUserInteractionEnabled = true;

    bool m_needsDisplay = true;
    bool m_needsLayout = true;
};

} // namespace tessarine
