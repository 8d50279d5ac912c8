#pragma once

#include "Tessarine/editing/TextInputView.h"
#include "Tessarine/layout/manager/LayoutManager.h"
#include "Tessarine/textview/CaretMovement.h"
#include "Tessarine/textview/RowMovement.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

namespace tessarine {

// The selection as a keyboard and a pointer move it: an end that stays, the anchor, and one that moves, the
// head. Whoever selects by other means leaves the anchor at the start and the head at the end.
//
// Units: locations in code units. Thread: the main one. Without a selection nothing moves.
class SelectionMovement {
public:
    // Borrows both.
    SelectionMovement(TextInputView& textInputView, LayoutManager& layoutManager);

    void move(CaretMovement movement, SelectionMode mode);

    // To a place that a pointer has chosen.
    void moveTo(std::int64_t location, SelectionMode mode);

    // The head may lie in front of the anchor. Also without a selection.
    void select(std::int64_t anchor, std::int64_t head);

    // The pieces that several clicks take; of a line its break is one. Also without a selection.
    void selectWordAt(std::int64_t location);
    void selectLineAt(std::int64_t location);
    void selectAll();

    // Keeps the piece that was selected last and extends by pieces to where the pointer is.
    void extendByWordsTo(std::int64_t location);
    void extendByLinesTo(std::int64_t location);

    // These pieces.
    TextRange wordRange(std::int64_t location) const;
    TextRange lineRange(std::int64_t location) const;

    std::int64_t anchor() const { return selection().anchor; }

    std::int64_t head() const { return selection().head; }

    // Where the head shows: at the start of a row where it was moved there by rows, not at the end of the
    // one above. Nothing without a selection.
    std::optional<Rect> headRect();

    // The part that is deleted where nothing is selected, or empty. Not for backward.
    TextRange rangeToDelete(TextDeletion deletion) const;

private:
    struct Selection {
        std::int64_t anchor = 0;
        std::int64_t head = 0;

        TextRange range() const;
    };

    Selection selection() const;
    void apply(std::int64_t anchor, std::int64_t head);
    void selectPiece(const TextRange& piece);
    void extendTo(const TextRange& piece);
    std::int64_t destination(CaretMovement movement, std::int64_t location);
    std::int64_t lineStart(std::int64_t location) const;
    std::int64_t lineEnd(std::int64_t location);
    std::int64_t inText(std::int64_t location) const;
    const DocumentLineNode& lineContaining(std::int64_t location) const;

    const StringView& text() const { return *m_textInputView.document().stringView; }

    TextInputView& m_textInputView;
    RowMovement m_rowMovement;

    Selection m_selection; // counts as long as the view's range is the same
    TextRange m_piece;     // what was selected at once, before it was extended
};

} // namespace tessarine
