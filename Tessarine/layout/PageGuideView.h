#pragma once

#include "Tessarine/layout/View.h"

#include <memory>

namespace tessarine {

// The area behind a column, with a line on its left side. Touches are for what lies below.
class PageGuideView final : public View {
public:
    PageGuideView();

    // In points; one device pixel.
    double hairlineWidth() const { return m_hairlineWidth; }

    // Device pixels a point.
    void setScreenScale(double scale);

    View& hairlineView() const { return *m_hairlineView; }

protected:
    void layoutSubviews() override;

private:
    double m_hairlineWidth = 1;
    const std::shared_ptr<View> m_hairlineView = std::make_shared<View>();
};

} // namespace tessarine
