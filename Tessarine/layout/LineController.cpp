#include "Tessarine/layout/LineController.h"

#include <algorithm>
#include <utility>

namespace tessarine {

namespace {

constexpr double defaultEstimatedHeight = 15;

// Rows that are not on screen are as cheap to show again as they are many in a long line.
constexpr std::size_t mostControllersOffScreen = 1'000;

std::optional<TextRange> intersection(const std::optional<TextRange>& a, const TextRange& b) {
    if (!a) return std::nullopt;
    const std::int64_t start = std::max(a->location, b.location);
    const std::int64_t limit = std::min(a->limit(), b.limit());
    if (limit <= start) return std::nullopt;
    return TextRange{.location = start, .length = limit - start};
}

} // namespace

LineController::LineController(DocumentLineNodeReference line, std::shared_ptr<const StringView> stringView,
                               std::shared_ptr<const TextShaper> textShaper)
    : m_line(std::move(line))
    , m_stringView(std::move(stringView))
    , m_typesetter(std::move(textShaper))
    , m_textInputProxy(m_typesetter.lineFragments()) {
    m_textInputProxy.setEstimatedLineFragmentHeight(defaultEstimatedHeight);
}

void LineController::setTheme(std::shared_ptr<const Theme> theme) {
    if (theme == m_theme) return;
    m_theme = std::move(theme);
    if (m_cachedSyntaxHighlighter) m_cachedSyntaxHighlighter->setTheme(m_theme);
    for (const auto& [id, controller] : m_lineFragmentControllers)
        controller->setMarkedTextBackground(m_theme->markedTextBackgroundColor(),
                                            m_theme->markedTextBackgroundCornerRadius());
    settingsDidChange();
}

void LineController::setTabWidth(double width) {
    if (std::exchange(m_tabWidth, width) != width) settingsDidChange();
}

void LineController::setKern(double kern) {
    if (std::exchange(m_kern, kern) == kern) return;
    if (m_cachedSyntaxHighlighter) m_cachedSyntaxHighlighter->setKern(kern);
    settingsDidChange();
}

void LineController::setLineFragmentHeightMultiplier(double multiplier) {
    if (multiplier == lineFragmentHeightMultiplier()) return;
    m_typesetter.setLineFragmentHeightMultiplier(multiplier);
    m_textInputProxy.setLineFragmentHeightMultiplier(multiplier);
    settingsDidChange();
}

void LineController::setLineBreakMode(LineBreakMode mode) {
    if (mode == lineBreakMode()) return;
    m_typesetter.setLineBreakMode(mode);
    settingsDidChange();
}

void LineController::setEstimatedLineFragmentHeight(double height) {
    m_textInputProxy.setEstimatedLineFragmentHeight(height);
    m_lineHeight.reset();
}

void LineController::setConstrainingWidth(double width) {
    if (width == constrainingWidth()) return;
    m_typesetter.setConstrainingWidth(width);
    m_isTypesetterInvalid = true;
}

void LineController::settingsDidChange() {
    cancelSyntaxHighlighting();
    m_isDefaultAttributesInvalid = true;
    m_isSyntaxHighlightingInvalid = true;
    m_isTypesetterInvalid = true;
    m_lineHeight.reset();
}

void LineController::invalidateString() {
    cancelSyntaxHighlighting();
    m_isStringInvalid = true;
    m_isLineFragmentCacheInvalid = true;
    m_lineHeight.reset();
}

void LineController::invalidateSyntaxHighlighting() {
    cancelSyntaxHighlighting();
    m_isSyntaxHighlightingInvalid = true;
}

void LineController::invalidateSyntaxHighlighter() {
    cancelSyntaxHighlighting();
    m_cachedSyntaxHighlighter = nullptr;
    m_isDefaultAttributesInvalid = true;
}

double LineController::lineHeight() {
    if (!m_lineHeight) {
        const auto made = m_typesetter.lineFragmentIndex();
        const auto expected = made > 0 ? m_typesetter.bestGuessNumberOfLineFragments() : 1;
        m_lineHeight = m_typesetter.nextYPosition() + estimatedLineFragmentHeight() *
                                                          lineFragmentHeightMultiplier() *
                                                          static_cast<double>(expected - made);
    }
    return *m_lineHeight;
}

std::vector<std::shared_ptr<LineFragmentController>>
LineController::lineFragmentControllers(const Rect& rect) {
    forgetLineFragmentControllersOffScreen();
    const double lineY = m_line->data().yPosition();
    std::vector<std::shared_ptr<LineFragmentController>> controllers;
    for (const LineFragmentReference& fragment :
         m_lineFragmentTree.lineFragmentsInFrame(rect.minY() - lineY, rect.maxY() - lineY))
        controllers.push_back(lineFragmentController(fragment));
    return controllers;
}

std::shared_ptr<LineFragmentController>
LineController::lineFragmentController(const LineFragmentReference& fragment) {
    const auto [entry, isNew] = m_lineFragmentControllers.try_emplace(fragment->id);
    if (isNew) {
        entry->second = LineFragmentController::create(fragment, weak_from_this());
        entry->second->setMarkedTextBackground(m_theme->markedTextBackgroundColor(),
                                               m_theme->markedTextBackgroundCornerRadius());
    }
    show(fragment, *entry->second);
    return entry->second;
}

void LineController::forgetLineFragmentControllersOffScreen() {
    if (m_lineFragmentControllers.size() <= mostControllersOffScreen) return;
    std::erase_if(m_lineFragmentControllers, [](const auto& entry) { return !entry.second->isShown(); });
}

void LineController::show(const LineFragmentReference& fragment, LineFragmentController& controller) const {
    controller.setLineFragment(fragment);
    controller.setMarkedRange(intersection(m_markedRange, fragment->range));
}

void LineController::updateLineFragmentControllers() {
    const LineFragmentsMap map = m_typesetter.lineFragmentsMap();
    for (const auto& [id, controller] : m_lineFragmentControllers)
        if (const auto index = map.find(id))
            show(lineFragments()[static_cast<std::size_t>(*index)], *controller);
}

void LineController::setMarkedTextOnLineFragments(const std::optional<TextRange>& range) {
    m_markedRange = range;
    for (const auto& [id, controller] : m_lineFragmentControllers)
        controller->setMarkedRange(intersection(range, controller->lineFragment()->range));
}

Rect LineController::caretRect(std::int64_t index) {
    prepareToDisplayString(ToLocation{index}, false);
    return m_textInputProxy.caretRect(index);
}

Rect LineController::firstRect(const TextRange& range) {
    prepareToDisplayString(ToLocation{range.location}, false);
    return m_textInputProxy.firstRect(range);
}

std::int64_t LineController::closestIndex(const Point& point) {
    prepareToDisplayString(InRect{{.y = std::max(point.y, 0.0), .height = 1}}, false);
    return m_textInputProxy.closestIndex(point);
}

std::vector<Rect> LineController::selectionRects(const TextRange& range) {
    prepareToDisplayString(ToLocation{range.limit()}, false);
    return m_textInputProxy.selectionRects(range);
}

std::optional<std::u16string> LineController::string(const LineFragmentController& controller) {
    const TextRange range = controller.lineFragment()->range;
    const std::int64_t location = m_line->location() + range.location;
    if (range.length == 0 || location > m_stringView->length() - range.length) return std::nullopt;
    return m_stringView->substring(location, range.length);
}

} // namespace tessarine
