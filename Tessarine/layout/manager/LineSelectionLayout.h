#pragma once

#include "Tessarine/layout/View.h"
#include "Tessarine/layout/manager/LayoutGeometry.h"
#include "Tessarine/layout/manager/SelectedLines.h"

#include <memory>

namespace tessarine {

// What stands out behind the selected lines: behind their text, and in the gutter.
class LineSelectionLayout {
public:
    LineSelectionLayout(const LayoutContext& context, const LayoutGeometry& geometry)
        : m_context(context)
        , m_geometry(geometry) {}

    const std::shared_ptr<View>& lineSelectionBackgroundView() const { return m_lineSelectionBackgroundView; }

    const std::shared_ptr<View>& gutterSelectionBackgroundView() const {
        return m_gutterSelectionBackgroundView;
    }

    void layout(const SelectedLines& lines, double contentWidth);

private:
    const LayoutContext& m_context;
    const LayoutGeometry& m_geometry;
    const std::shared_ptr<View> m_lineSelectionBackgroundView = std::make_shared<View>();
    const std::shared_ptr<View> m_gutterSelectionBackgroundView = std::make_shared<View>();
};

} // namespace tessarine
