#pragma once

#include "Tessarine/base/TextMeasurer.h"
#include "Tessarine/layout/manager/GutterBackgroundView.h"
#include "Tessarine/layout/manager/LayoutGeometry.h"
#include "Tessarine/layout/manager/LineNumberView.h"
#include "Tessarine/layout/manager/SelectedLines.h"
#include "Tessarine/layout/manager/ViewReuseQueue.h"

#include <cstdint>
#include <memory>

namespace tessarine {

// The strip with the line numbers. It stays at the left edge of the scroll view when that scrolls sideways.
// Its y is that of the content.
class GutterLayout {
public:
    GutterLayout(const LayoutContext& context, const LayoutGeometry& geometry,
                 std::shared_ptr<const TextMeasurer> textMeasurer,
                 const std::shared_ptr<View>& selectionBackgroundView);

    const std::shared_ptr<View>& gutterContainerView() const { return m_gutterContainerView; }

    GutterBackgroundView& gutterBackgroundView() { return *m_gutterBackgroundView; }

    const std::shared_ptr<View>& lineNumbersContainerView() const { return m_lineNumbersContainerView; }

    const ViewReuseQueue<DocumentLineNodeID, LineNumberView>& views() const {
        return m_lineNumberLabelReuseQueue;
    }

    // A pass tells of the lines on screen, and takes away at its end the numbers of all others. The height is
    // that of the number's line, or of a row if it is wrapped.
    void layoutLine(const DocumentLineNode& line, std::int64_t row, double height);
    void finishPass(double contentHeight);

    // Of a row of the numbers' font, as the last pass began.
    double rowHeight() const { return m_rowHeight; }

    void startPass();

    // The numbers of selected lines are of another colour.
    void showSelection(const SelectedLines& lines);

private:
    using Queue = ViewReuseQueue<DocumentLineNodeID, LineNumberView>;

    void showNumber(LineNumberView& view, std::int64_t row) const;
    void placeContainers(double contentHeight);

    const LayoutContext& m_context;
    const LayoutGeometry& m_geometry;
    const std::shared_ptr<const TextMeasurer> m_textMeasurer;

    const std::shared_ptr<View> m_gutterContainerView = std::make_shared<View>();
    const std::shared_ptr<GutterBackgroundView> m_gutterBackgroundView =
        std::make_shared<GutterBackgroundView>();
    const std::shared_ptr<View> m_lineNumbersContainerView = std::make_shared<View>();
    Queue m_lineNumberLabelReuseQueue;
    Queue::Keys m_placed; // in this pass
    double m_rowHeight = 0;
};

} // namespace tessarine
