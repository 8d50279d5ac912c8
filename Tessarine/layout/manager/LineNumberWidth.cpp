#include "Tessarine/layout/manager/LineNumberWidth.h"

#include "Tessarine/layout/manager/LayoutContext.h"

#include <cmath>
#include <string>

namespace tessarine {

bool LineNumberWidth::update(const LayoutContext& context) {
    if (!context.showLineNumbers) return false;
    measure(context.document.lineManager->lineCount(), context.theme->lineNumberFont());
    const double width = m_digitsWidth + context.gutterLeadingPadding + context.gutterTrailingPadding;
    return std::exchange(m_lineNumberWidth, width) != width;
}

void LineNumberWidth::measure(std::int64_t lineCount, const Font& font) {
    const std::size_t digits = std::to_string(lineCount).size();
    if (m_measuredDigits == digits && m_measuredFont == font) return;
    m_measuredDigits = digits;
    m_measuredFont = font;
    m_digitsWidth = std::trunc(m_textMeasurer->width(std::u16string(digits, u'8'), font));
}

} // namespace tessarine
