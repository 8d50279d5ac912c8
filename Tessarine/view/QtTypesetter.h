#pragma once

#include "Tessarine/layout/Typesetter.h"
#include "Tessarine/view/RowLayouts.h"

#include <optional>

namespace tessarine {

// Sets rows as the toolkit shapes them. A row breaks behind the last character that fits: words are the
// business of whoever asks. What it reads and shapes for a row is twice to four times the row, and never more
// than 16,384 units, where the row ends if it is all of no width. Rows run to the side to which the string's
// first letter runs.
class QtTypesetter final : public Typesetter {
public:
    QtTypesetter(std::shared_ptr<const AttributedString> string, std::shared_ptr<RowStyles> styles,
                 std::shared_ptr<RowLayouts> layouts);

    std::int64_t suggestLineBreak(std::int64_t start, double width) override;
    std::shared_ptr<const TextLine> createLine(const TextRange& range) override;

private:
    RowText rowOf(const TextRange& range);
    void remember(std::int64_t start, RowText row);
    double guessedUnits(std::int64_t start, double width) const;
    bool isRightToLeft();

    const std::shared_ptr<const AttributedString> m_string;
    const std::shared_ptr<RowStyles> m_styles;
    const std::shared_ptr<RowLayouts> m_layouts;
    std::optional<bool> m_isRightToLeft; // once it has been asked for

    // An even stretch that a row was looked for in: the row is a part of it.
    std::int64_t m_measuredStart = 0;
    std::optional<RowText> m_measured;
};

} // namespace tessarine
