#pragma once

#include "Tessarine/document/LineManager.h"
#include "Tessarine/document/StringView.h"
#include "Tessarine/textview/LineMovementControllerDelegate.h"

#include <cstdint>
#include <memory>
#include <utility>

namespace tessarine {

// Where a caret lands after steps by composed characters or by rows. Steps by rows keep the column in code
// units, each from where it starts: for carets that keep their place on screen see SelectionMovement.
//
// Units: locations in code units. A delegate that has gone stops the program. Thread: the main one.
// Cost: O(log n) a step; rows of the lines that are passed get set.
class LineMovementController {
public:
    LineMovementController(std::shared_ptr<const StringView> stringView,
                           std::shared_ptr<const LineManager> lineManager)
        : m_stringView(std::move(stringView))
        , m_lineManager(std::move(lineManager)) {}

    void setDelegate(std::weak_ptr<LineMovementControllerDelegate> delegate) {
        m_delegate = std::move(delegate);
    }

    void setDocument(std::shared_ptr<const StringView> stringView,
                     std::shared_ptr<const LineManager> lineManager);

    // The same location where the step would leave the text.
    std::int64_t locationByHorizontalOffset(std::int64_t location, std::int64_t offset) const;

    // By rows, up if the offset is negative. Above the first lies the start of the text, below the last its
    // end.
    std::int64_t locationByLineOffset(std::int64_t location, std::int64_t offset) const;

private:
    // A place to go on from: a row, and how far in it the step keeps.
    struct Place {
        DocumentLineNode* line; // never null
        std::int64_t fragmentIndex;
        std::int64_t column;
    };

    LineMovementControllerDelegate& delegate() const;
    std::int64_t locationIn(const Place& place) const;
    std::int64_t moveUp(std::int64_t offset, Place place) const;
    std::int64_t moveDown(std::int64_t offset, Place place) const;

    std::weak_ptr<LineMovementControllerDelegate> m_delegate;
    std::shared_ptr<const StringView> m_stringView;
    std::shared_ptr<const LineManager> m_lineManager;
};

} // namespace tessarine
