#include "Tessarine/layout/manager/GutterLayout.h"

#include <string>
#include <utility>

namespace tessarine {

GutterLayout::GutterLayout(const LayoutContext& context, const LayoutGeometry& geometry,
                           std::shared_ptr<const TextMeasurer> textMeasurer,
                           const std::shared_ptr<View>& selectionBackgroundView)
    : m_context(context)
    , m_geometry(geometry)
    , m_textMeasurer(std::move(textMeasurer)) {
    m_gutterContainerView->addSubview(m_gutterBackgroundView);
    m_gutterContainerView->addSubview(selectionBackgroundView);
    m_gutterContainerView->addSubview(m_lineNumbersContainerView);
}

void GutterLayout::startPass() {
    m_rowHeight = m_textMeasurer->metrics(m_context.theme->lineNumberFont()).lineHeight();
}

void GutterLayout::layoutLine(const DocumentLineNode& line, std::int64_t row, double height) {
    if (!m_context.showLineNumbers) return;
    const auto& view = m_lineNumberLabelReuseQueue.dequeueView(line.id());
    if (!view->superview()) m_lineNumbersContainerView->addSubview(view);
    showNumber(*view, row);
    view->setFrame({.x = m_geometry.safeInset().left + m_context.gutterLeadingPadding,
                    .y = m_geometry.topOf(line) + (height - m_rowHeight) * 0.5,
                    .width = m_geometry.lineNumberWidth(),
                    .height = m_rowHeight});
    m_placed.insert(line.id());
}

void GutterLayout::showNumber(LineNumberView& view, std::int64_t row) const {
    const std::string number = std::to_string(row + 1);
    std::u16string title(number.begin(), number.end());
    const Font font = m_context.theme->lineNumberFont();
    Label& label = view.titleLabel();
    view.setRow(row);
    if (label.text() == title && label.font() == font) return;
    view.setTitleWidth(m_textMeasurer->width(title, font));
    label.setText(std::move(title));
    label.setFont(font);
}

void GutterLayout::finishPass(double contentHeight) {
    m_lineNumberLabelReuseQueue.enqueueViewsExcept(m_placed);
    m_placed.clear();
    placeContainers(contentHeight);
}

// The background shows also where the user scrolls beyond the content.
void GutterLayout::placeContainers(double contentHeight) {
    const double width = m_geometry.safeInset().left + m_geometry.gutterWidth();
    const Rect& viewport = m_context.viewport;
    m_gutterContainerView->setHidden(!m_context.showLineNumbers);
    m_gutterContainerView->setFrame({.x = viewport.x, .width = width, .height = contentHeight});
    m_lineNumbersContainerView->setFrame({.width = width, .height = contentHeight});
    m_gutterBackgroundView->setFrame({.y = viewport.y, .width = width, .height = viewport.height});
    m_gutterBackgroundView->setBackgroundColor(m_context.theme->gutterBackgroundColor());
    m_gutterBackgroundView->hairlineView().setBackgroundColor(m_context.theme->gutterHairlineColor());
}

void GutterLayout::showSelection(const SelectedLines& lines) {
    const Color normal = m_context.theme->lineNumberColor();
    const Color selected = m_context.theme->selectedLinesLineNumberColor();
    for (const auto& [lineID, view] : m_lineNumberLabelReuseQueue.visibleViews())
        view->titleLabel().setTextColor(lines.contains(view->row()) ? selected : normal);
}

} // namespace tessarine
