#pragma once

#include "Tessarine/layout/LineFragmentRenderer.h"
#include "Tessarine/layout/ReusableView.h"
#include "Tessarine/layout/View.h"

#include <memory>

namespace tessarine {

// The place of a row on the screen. It shows one row after the other, as its renderer is changed.
class LineFragmentView final : public View, public ReusableView {
public:
    // Null if it shows nothing.
    const std::shared_ptr<LineFragmentRenderer>& renderer() const { return m_renderer; }

    void setRenderer(std::shared_ptr<LineFragmentRenderer> renderer);

    // Whether it shows what another renderer has drawn.
    bool isRenderInvalid() const { return m_isRenderInvalid; }

    void prepareForReuse() override { setRenderer(nullptr); }

    void draw(DrawContext& context) override;
    void didDisplay() override;

private:
    std::shared_ptr<LineFragmentRenderer> m_renderer;
    bool m_isRenderInvalid = false;
};

} // namespace tessarine
