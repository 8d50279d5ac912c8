#include "Tessarine/layout/manager/LayoutManager.h"

#include "Tessarine/layout/manager/ScrollAnchor.h"

#include <algorithm>
#include <utility>

namespace tessarine {

std::shared_ptr<LayoutManager>
LayoutManager::create(std::shared_ptr<const TextShaper> textShaper,
                      const std::shared_ptr<const TextMeasurer>& textMeasurer) {
    const std::shared_ptr<LayoutManager> manager(new LayoutManager(std::move(textShaper), textMeasurer));
    manager->m_lineControllers.setDelegate(manager);
    return manager;
}

LayoutManager::LayoutManager(std::shared_ptr<const TextShaper> textShaper,
                             const std::shared_ptr<const TextMeasurer>& textMeasurer)
    : m_lineNumberWidth(textMeasurer)
    , m_lineControllers(m_context, std::move(textShaper), textMeasurer)
    , m_gutter(m_context, m_geometry, textMeasurer, m_lineSelection.gutterSelectionBackgroundView()) {
    m_context.invisibleCharacterConfiguration =
        std::make_shared<InvisibleCharacterConfiguration>(textMeasurer);
}

// From the back to the front.
void LayoutManager::setViews(const std::shared_ptr<ScrollView>& scrollView, View& textInputView) {
    m_context.scrollView = scrollView;
    textInputView.addSubview(m_lineSelection.lineSelectionBackgroundView());
    textInputView.addSubview(m_highlights.highlightsContainerBackgroundView());
    textInputView.addSubview(m_rows.linesContainerView());
    textInputView.addSubview(m_gutter.gutterContainerView());
}

std::shared_ptr<LineSyntaxHighlighter> LayoutManager::lineSyntaxHighlighter(LineController& /*controller*/) {
    auto highlighter = m_context.document.languageMode->createLineSyntaxHighlighter();
    highlighter->setTheme(m_context.theme);
    highlighter->setKern(m_context.kern);
    return highlighter;
}

void LayoutManager::lineControllerDidChangeHeight(LineController& /*controller*/) {
    setNeedsLayout(Cause::Scrolling);
}

void LayoutManager::invalidateLines(const LineChangeSet& changes) {
    for (const auto& line : changes.removedLines())
        removeLine(line->id());
    typesetLines(changes.editedLines());
}

void LayoutManager::removeLine(const DocumentLineNodeID& lineID) {
    m_lineControllers.remove(lineID);
    m_contentSize.removeLine(lineID);
}

void LayoutManager::removeAllLines() {
    m_lineControllers.removeAll();
    m_contentSize.removeAllLines();
    updateGutterWidth();
}

void LayoutManager::typesetLines(const LineSet& lines) {
    for (const auto& line : lines) {
        LineController* const controller = m_lineControllers.existing(line->id());
        if (!controller) continue;
        controller->invalidateString();
        controller->invalidateSyntaxHighlighting();
    }
}

void LayoutManager::setNeedsLayout(Cause cause) {
    if (cause == Cause::Change || !m_needsLayout) m_cause = cause;
    if (std::exchange(m_needsLayout, true)) return;
    if (const auto delegate = m_delegate.lock()) delegate->layoutManagerNeedsLayout();
}

void LayoutManager::setNeedsLayoutLineSelection() {
    if (std::exchange(m_needsLayoutLineSelection, true)) return;
    if (const auto delegate = m_delegate.lock()) delegate->layoutManagerNeedsLayout();
}

void LayoutManager::layoutIfNeeded() {
    if (m_needsLayout) layoutLines();
    if (std::exchange(m_needsLayoutLineSelection, false)) layoutLineSelection();
}

void LayoutManager::layoutLines() {
    m_contentSize.resetLineWidthsIfNeeded();
    if (m_context.viewport.width <= 0 || m_context.viewport.height <= 0) return;
    m_needsLayout = false;
    m_needsLayoutLineSelection = true;
    const double oldTop = m_context.viewport.y;
    const auto formerLines = std::exchange(m_visibleLineIDs, {});
    m_gutter.startPass();
    measureLongestLine();
    if (m_geometry.constrainingLineWidth() > 0) layoutVisibleLines();
    callOffColorsOf(formerLines);
    finishPass();
    m_cause = Cause::Change;
    reportContentSize();
    scrollBy(m_context.viewport.y - oldTop);
}

void LayoutManager::layoutVisibleLines() {
    DocumentLineNode* line = settledFirstLine();
    if (!line) return;
    const DocumentLineNode& lastLine = m_context.document.lineManager->documentLineTree().lastNode();
    for (std::int64_t row = line->index();; ++row) {
        placeLine(*line, row);
        if (line == &lastLine) return;
        line = &line->nextNode();
        if (m_geometry.topOf(*line) >= m_context.viewport.maxY()) return;
        prepareLine(*line, visiblePartOf(m_context.viewport, *line));
    }
}

// Without wrapping the longest line gives a first idea of how far one can scroll sideways.
void LayoutManager::measureLongestLine() {
    if (m_context.isLineWrappingEnabled || m_contentSize.knowsLines()) return;
    DocumentLineNode* const line = m_context.document.lineManager->initialLongestLine();
    if (line) moveViewport(prepareLine(*line, LineController::ToLocation{0}));
}

// The line at the viewport's top, when it and with it the viewport have come to rest. Each turn has typeset
// something of a line, or goes on from one that has shrunk to the next, so there is an end to it.
DocumentLineNode* LayoutManager::settledFirstLine() {
    DocumentLineNode* line = lineAtTop();
    while (line) {
        const double moved = moveViewport(prepareLine(*line, visiblePartOf(m_context.viewport, *line)));
        DocumentLineNode* const next = lineAtTop();
        if (moved == 0 && next == line) break;
        line = next;
    }
    return line;
}

DocumentLineNode* LayoutManager::lineAtTop() const {
    return m_context.document.lineManager->lineContainingYOffset(m_geometry.lineY(m_context.viewport.minY()));
}

LineController::TypesetAmount LayoutManager::visiblePartOf(const Rect& rect,
                                                           const DocumentLineNode& line) const {
    const double top = m_geometry.topOf(line);
    const double minY = std::max(0.0, rect.minY() - top);
    return LineController::InRect{{.x = rect.x - m_geometry.leadingLineSpacing(),
                                   .y = minY,
                                   .width = rect.width,
                                   .height = std::max(0.0, rect.maxY() - top - minY)}};
}

// By how much what shows at the top of the viewport has moved down.
double LayoutManager::prepareLine(DocumentLineNode& line, const LineController::TypesetAmount& amount) {
    const bool isAsynchronous = m_cause == Cause::Scrolling;
    LineController& controller = lineController(line);
    const double hidden = m_context.viewport.minY() - m_geometry.topOf(line);
    std::optional<ScrollAnchor> anchor;
    if (hidden > 0) anchor.emplace(controller.lineFragments(), hidden, line.data().lineHeight());
    controller.prepareToDisplayString(amount, isAsynchronous);
    if (anchor && !anchor->isIn(controller.lineFragments()))
        controller.prepareToDisplayString(LineController::ToLocation{*anchor->location()}, isAsynchronous);
    const double height = controller.lineHeight();
    m_contentSize.lineWasLaidOut(line, controller.maximumLineWidth(), height);
    return anchor ? anchor->shiftIn(controller.lineFragments(), height) : 0;
}

void LayoutManager::placeLine(DocumentLineNode& line, std::int64_t row) {
    m_visibleLineIDs.insert(line.id());
    LineController& controller = lineController(line);
    const bool isWrapped = controller.lineFragments().size() > 1;
    m_gutter.layoutLine(line, row,
                        isWrapped ? m_gutter.rowHeight() * m_context.lineHeightMultiplier
                                  : controller.lineHeight());
    showMarkedText(controller, line);
    const auto rows =
        controller.lineFragmentControllers(m_context.viewport.offsetBy(0, -m_context.textContainerInset.top));
    m_rows.layoutLine(line, rows);
    m_highlights.layoutLine(line, rows);
}

void LayoutManager::showMarkedText(LineController& controller, const DocumentLineNode& line) const {
    std::optional<TextRange> inLine = m_context.markedRange;
    if (inLine) inLine->location -= line.location();
    controller.setMarkedTextOnLineFragments(inLine);
}

// Of those that have left the screen: what shows now would have to wait for them.
void LayoutManager::callOffColorsOf(const std::unordered_set<DocumentLineNodeID>& formerLines) {
    for (const DocumentLineNodeID& lineID : formerLines) {
        if (m_visibleLineIDs.contains(lineID)) continue;
        if (LineController* const controller = m_lineControllers.existing(lineID))
            controller->didLeaveScreen();
    }
}

void LayoutManager::finishPass() {
    const Size size = contentSize();
    const Rect content{.width = size.width, .height = size.height};
    m_rows.finishPass(content);
    m_highlights.finishPass(content);
    m_gutter.finishPass(size.height);
}

void LayoutManager::layoutLineSelection() {
    const auto lines = SelectedLines::find(m_context, m_geometry, m_lineControllers);
    m_lineSelection.layout(lines, m_contentSize.contentWidth());
    m_gutter.showSelection(lines);
}

// By so much, but never beyond the top of the content, where nobody could scroll to. Gives what came of it.
double LayoutManager::moveViewport(double shift) {
    const auto scrollView = m_context.scrollView.lock();
    const double highest = scrollView ? -scrollView->adjustedContentInset().top : 0;
    const double oldTop = m_context.viewport.y;
    m_context.viewport.y = std::max(oldTop + shift, std::min(oldTop, highest));
    return m_context.viewport.y - oldTop;
}

bool LayoutManager::hasNewContentSize() {
    const auto scrollView = m_context.scrollView.lock();
    return scrollView && scrollView->contentSize() != contentSize();
}

void LayoutManager::reportContentSize() {
    const auto delegate = m_delegate.lock();
    if (delegate && hasNewContentSize()) delegate->layoutManagerDidChangeContentSize(contentSize());
}

void LayoutManager::scrollBy(double shift) {
    const auto scrollView = m_context.scrollView.lock();
    if (!scrollView || shift == 0) return;
    const Point offset = scrollView->contentOffset();
    scrollView->setContentOffset({.x = offset.x, .y = offset.y + shift});
}

void LayoutManager::redisplayVisibleLines() {
    for (const auto& [rowID, view] : m_rows.views().visibleViews())
        view->setNeedsDisplay();
    setNeedsLayout();
}

void LayoutManager::typesetLines(std::int64_t toLocation) {
    const std::int64_t location = rangeInText({toLocation, 0}, *m_context.document.stringView).location;
    DocumentLineNode& line = m_context.document.lineManager->lineContaining(location);
    const double shift = prepareLine(line, LineController::ToLocation{location - line.location()});
    scrollBy(moveViewport(shift));
    setNeedsLayout(Cause::Scrolling);
}

// Those that the rectangle meets as the heights are now.
void LayoutManager::typesetLines(const Rect& rect) {
    const LineManager& lineManager = *m_context.document.lineManager;
    const DocumentLineNode& lastLine = lineManager.documentLineTree().lastNode();
    DocumentLineNode* line = lineManager.lineContainingYOffset(m_geometry.lineY(rect.minY()));
    double shift = 0;
    for (; line && m_geometry.topOf(*line) < rect.maxY(); line = &line->nextNode()) {
        shift += moveViewport(prepareLine(*line, visiblePartOf(rect, *line)));
        if (line == &lastLine) break;
    }
    scrollBy(shift);
    setNeedsLayout(Cause::Scrolling);
}

LineController& LayoutManager::lineController(DocumentLineNode& line) {
    return m_lineControllers.controllerOf(line, m_geometry.constrainingLineWidth());
}

} // namespace tessarine
