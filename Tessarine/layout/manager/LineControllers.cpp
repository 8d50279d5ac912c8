#include "Tessarine/layout/manager/LineControllers.h"

#include <utility>

namespace tessarine {

LineControllers::LineControllers(const LayoutContext& context, std::shared_ptr<const TextShaper> textShaper,
                                 std::shared_ptr<const TextMeasurer> textMeasurer)
    : m_context(context)
    , m_textShaper(std::move(textShaper))
    , m_textMeasurer(std::move(textMeasurer)) {}

LineController& LineControllers::controllerOf(DocumentLineNode& line, double constrainingWidth) {
    const auto [found, isNew] = m_lineControllers.try_emplace(line.id());
    Entry& entry = found->second;
    if (isNew) entry = {.controller = makeController(line), .highlighterGeneration = m_highlighterGeneration};
    if (std::exchange(entry.settingsGeneration, m_settingsGeneration) != m_settingsGeneration)
        applySettings(*entry.controller);
    if (std::exchange(entry.highlighterGeneration, m_highlighterGeneration) != m_highlighterGeneration)
        entry.controller->invalidateSyntaxHighlighter();
    entry.controller->setConstrainingWidth(constrainingWidth);
    return *entry.controller;
}

std::shared_ptr<LineController> LineControllers::makeController(DocumentLineNode& line) const {
    auto controller = std::make_shared<LineController>(DocumentLineNodeReference(&line),
                                                       m_context.document.stringView, m_textShaper);
    controller->setDelegate(m_delegate);
    return controller;
}

void LineControllers::applySettings(LineController& controller) const {
    controller.setEstimatedLineFragmentHeight(m_textMeasurer->metrics(m_context.theme->font()).lineHeight());
    controller.setLineFragmentHeightMultiplier(m_context.lineHeightMultiplier);
    controller.setLineBreakMode(m_context.lineBreakMode);
    controller.setTabWidth(m_context.tabWidth);
    controller.setKern(m_context.kern);
    controller.setTheme(m_context.theme);
}

LineController* LineControllers::existing(const DocumentLineNodeID& lineID) const {
    const auto found = m_lineControllers.find(lineID);
    return found == m_lineControllers.end() ? nullptr : found->second.controller.get();
}

} // namespace tessarine
