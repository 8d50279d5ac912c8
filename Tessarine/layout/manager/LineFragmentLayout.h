#pragma once

#include "Tessarine/layout/LineFragmentController.h"
#include "Tessarine/layout/LineFragmentView.h"
#include "Tessarine/layout/manager/LayoutGeometry.h"
#include "Tessarine/layout/manager/ViewReuseQueue.h"

#include <memory>
#include <vector>

namespace tessarine {

// Places the views of the rows on screen.
class LineFragmentLayout {
public:
    LineFragmentLayout(const LayoutContext& context, const LayoutGeometry& geometry)
        : m_context(context)
        , m_geometry(geometry) {}

    const std::shared_ptr<View>& linesContainerView() const { return m_linesContainerView; }

    const ViewReuseQueue<LineFragmentID, LineFragmentView>& views() const {
        return m_lineFragmentViewReuseQueue;
    }

    // A pass tells of the rows that show, line by line, and takes away at its end what it has not come
    // across.
    void layoutLine(const DocumentLineNode& line,
                    const std::vector<std::shared_ptr<LineFragmentController>>& rows);
    void finishPass(const Rect& containerFrame);

private:
    void layoutRow(LineFragmentController& controller, double lineTop);

    const LayoutContext& m_context;
    const LayoutGeometry& m_geometry;
    const std::shared_ptr<View> m_linesContainerView = std::make_shared<View>();
    ViewReuseQueue<LineFragmentID, LineFragmentView> m_lineFragmentViewReuseQueue;
    ViewReuseQueue<LineFragmentID, LineFragmentView>::Keys m_placed; // in this pass
};

} // namespace tessarine
