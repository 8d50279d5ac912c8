#pragma once

#include "Tessarine/layout/LineFragmentControllerDelegate.h"
#include "Tessarine/layout/LineFragmentRenderer.h"
#include "Tessarine/layout/LineFragmentView.h"

#include <memory>
#include <optional>

namespace tessarine {

// Shows a row, as it is set at the moment, in whatever view is given to it. Main thread.
class LineFragmentController final : public LineFragmentRendererDelegate,
                                     public std::enable_shared_from_this<LineFragmentController> {
public:
    static std::shared_ptr<LineFragmentController>
    create(LineFragmentReference lineFragment, std::weak_ptr<LineFragmentControllerDelegate> delegate);

    const LineFragmentReference& lineFragment() const { return m_renderer->lineFragment(); }

    // The same row, set anew.
    void setLineFragment(const LineFragmentReference& lineFragment);

    // Null if it has gone.
    std::shared_ptr<LineFragmentView> lineFragmentView() const { return m_lineFragmentView.lock(); }

    // The view shows the row from now on, and nothing else.
    void setLineFragmentView(const std::shared_ptr<LineFragmentView>& view);

    // Whether its view still shows this row, and not another one meanwhile.
    bool isShown() const;

    const std::optional<TextRange>& markedRange() const { return m_renderer->markedRange(); }

    // A part of the row, in code units from the line's start.
    void setMarkedRange(const std::optional<TextRange>& range);

    void setMarkedTextBackground(const Color& color, double cornerRadius);

    // Never null.
    LineFragmentRenderer& renderer() const { return *m_renderer; }

    void setNeedsDisplay() const;

    std::optional<std::u16string> string(const LineFragmentRenderer& renderer) override;

private:
    LineFragmentController(LineFragmentReference lineFragment,
                           std::weak_ptr<LineFragmentControllerDelegate> delegate)
        : m_delegate(std::move(delegate))
        , m_renderer(std::make_shared<LineFragmentRenderer>(std::move(lineFragment))) {}

    const std::weak_ptr<LineFragmentControllerDelegate> m_delegate;
    const std::shared_ptr<LineFragmentRenderer> m_renderer;
    std::weak_ptr<LineFragmentView> m_lineFragmentView;
};

} // namespace tessarine
