#pragma once

#include "Tessarine/base/Font.h"
#include "Tessarine/base/TextMeasurer.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace tessarine {

struct LayoutContext;

// The room for the widest line number, both paddings of the gutter included. In points.
// Cost: a text is measured only where the number of digits or the font has changed.
class LineNumberWidth {
public:
    explicit LineNumberWidth(std::shared_ptr<const TextMeasurer> textMeasurer)
        : m_textMeasurer(std::move(textMeasurer)) {}

    double value() const { return m_lineNumberWidth; }

    // True if the width has changed. Stays as it is while no line numbers are shown.
    bool update(const LayoutContext& context);

private:
    void measure(std::int64_t lineCount, const Font& font);

    const std::shared_ptr<const TextMeasurer> m_textMeasurer;
    std::optional<std::size_t> m_measuredDigits;
    Font m_measuredFont;
    double m_digitsWidth = 0;
    double m_lineNumberWidth = 0;
};

} // namespace tessarine
