#pragma once

#include "Tessarine/layout/View.h"

#include <memory>

namespace tessarine {

// What lies behind the line numbers, with a thin line on its trailing side.
class GutterBackgroundView final : public View {
public:
    View& hairlineView() { return *m_hairlineView; }

    // In points.
    double hairlineWidth() const { return m_hairlineWidth; }

    void setHairlineWidth(double width);

protected:
    void layoutSubviews() override;

private:
    const std::shared_ptr<View> m_hairlineView = std::make_shared<View>();
    double m_hairlineWidth = 1;
};

} // namespace tessarine
