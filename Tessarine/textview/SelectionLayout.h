#pragma once

#include "Tessarine/base/Color.h"
#include "Tessarine/layout/View.h"
#include "Tessarine/layout/manager/FloatingCaretView.h"
#include "Tessarine/layout/manager/TextSelectionRect.h"

#include <memory>
#include <optional>
#include <vector>

namespace tessarine {

// The views of caret and selection. In points of the scroll view's content. Main thread.
class SelectionLayout {
public:
    static constexpr double caretWidth = 2;

    SelectionLayout();

    // To lie under the text.
    const std::shared_ptr<View>& selectionContainerView() const { return m_selectionContainerView; }

    // To lie on top of it.
    const std::shared_ptr<View>& caretContainerView() const { return m_caretContainerView; }

    const View& caretView() const { return *m_caretView; }

    const View& floatingCaretView() const { return *m_floatingCaretView; }

    const Color& insertionPointColor() const { return m_insertionPointColor; }

    void setInsertionPointColor(const Color& color);

    const Color& selectionHighlightColor() const { return m_selectionHighlightColor; }

    void setSelectionHighlightColor(const Color& color);

    void setContentSize(const Size& size);
    void showSelection(const std::vector<TextSelectionRect>& rects);

    // Hidden without a rectangle.
    void showCaret(const std::optional<Rect>& rect);
    void showFloatingCaret(const std::optional<Rect>& rect);

private:
    static constexpr float selectionAlpha = 0.2F;

    Color m_insertionPointColor{RGBAColor{}};
    Color m_selectionHighlightColor = Color(RGBAColor{}).withAlpha(selectionAlpha);

    const std::shared_ptr<View> m_selectionContainerView = std::make_shared<View>();
    const std::shared_ptr<View> m_caretContainerView = std::make_shared<View>();
    const std::shared_ptr<View> m_caretView = std::make_shared<View>();
    const std::shared_ptr<FloatingCaretView> m_floatingCaretView = std::make_shared<FloatingCaretView>();
};

} // namespace tessarine
