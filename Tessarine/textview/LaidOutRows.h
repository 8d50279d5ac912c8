#pragma once

#include "Tessarine/layout/manager/LayoutManager.h"
#include "Tessarine/textview/LineMovementControllerDelegate.h"

#include <cstdint>

namespace tessarine {

// The rows of lines as the layout sets them, on screen or not.
class LaidOutRows final : public LineMovementControllerDelegate {
public:
    // Borrows it.
    explicit LaidOutRows(LayoutManager& layoutManager)
        : m_layoutManager(layoutManager) {}

    std::int64_t numberOfLineFragments(DocumentLineNode& line) override;
    LineFragmentReference lineFragmentAtIndex(std::int64_t index, DocumentLineNode& line) override;
    LineFragmentReference lineFragmentContaining(std::int64_t locationInLine,
                                                 DocumentLineNode& line) override;

private:
    const LineFragments& allRows(DocumentLineNode& line);

    LayoutManager& m_layoutManager;
};

} // namespace tessarine
