#pragma once

#include "Tessarine/base/Font.h"
#include "Tessarine/base/TextMeasurer.h"
#include "Tessarine/base/TextRange.h"
#include "Tessarine/document/IndentStrategy.h"
#include "Tessarine/document/LineEnding.h"
#include "Tessarine/editing/EditedDocument.h"
#include "Tessarine/editing/IndentControllerDelegate.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

namespace tessarine {

// The text work of indentation: what a return puts in, lines shifted to either side, what a backspace takes.
// How deep a line goes is the language mode's to say. Thread: the main one. Ranges must lie in the text.
class IndentController {
public:
    IndentController(EditedDocument document, std::shared_ptr<const TextMeasurer> measurer, Font indentFont);

    // Without one nothing is edited.
    void setDelegate(std::weak_ptr<IndentControllerDelegate> delegate) { m_delegate = std::move(delegate); }

    void setDocument(EditedDocument document) { m_document = std::move(document); }

    const Font& indentFont() const { return m_indentFont; }

    void setIndentFont(Font font);

    const IndentStrategy& indentStrategy() const { return m_indentStrategy; }

    // Lengths below 1 count as 1.
    void setIndentStrategy(const IndentStrategy& strategy);

    // In whole points; measured once for each font and strategy.
    double tabWidth() const;

    void insertLineBreak(TextRange range, LineEnding lineEndings);

    // All lines of the range, which is selected again afterwards with the text that it held. Right puts a
    // unit behind the blanks that a line begins with, left takes it from those that begin with exactly a
    // unit.
    void shiftLeft(TextRange range);
    void shiftRight(TextRange range);

    // The unit in front of a location that a backspace takes at once: where whole units of blanks stand
    // between the line's start and the location, inside of the line's indent.
    std::optional<TextRange> indentRangeInFrontOfLocation(std::int64_t location) const;

    // Behind the spaces and tabs that the line begins with.
    std::int64_t startOfLineContent(const DocumentLineNode& line) const;

private:
    template <class Work>
    void forEachLine(TextRange range, Work work);
    std::int64_t indent(const DocumentLineNode& line);
    std::int64_t unindent(const DocumentLineNode& line);
    bool hasBlanksOnly(TextRange range) const;
    void replaceText(TextRange range, std::u16string_view text) const;
    void select(TextRange range) const;

    std::weak_ptr<IndentControllerDelegate> m_delegate;
    EditedDocument m_document;
    const std::shared_ptr<const TextMeasurer> m_measurer;

    Font m_indentFont;
    IndentStrategy m_indentStrategy = IndentStrategy::tab(2);
    mutable std::optional<double> m_tabWidth; // of these two
};

} // namespace tessarine
