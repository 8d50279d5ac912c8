#include "examples/editor/window/Indentation.h"

#include <array>

namespace tessarine::editor {

namespace {

constexpr std::int64_t usualLength = 4;

} // namespace

std::span<const IndentStrategy> indentStrategies() {
    static const std::array all{IndentStrategy::space(2), IndentStrategy::space(4), IndentStrategy::space(8),
                                IndentStrategy::tab(2),   IndentStrategy::tab(4),   IndentStrategy::tab(8)};
    return all;
}

QString displayName(const IndentStrategy& strategy) {
    if (const auto* const spaces = std::get_if<IndentStrategy::Space>(&strategy.kind()))
        return QStringLiteral("Spaces: %1").arg(spaces->length);
    return QStringLiteral("Tabs: %1").arg(std::get<IndentStrategy::Tab>(strategy.kind()).length);
}

IndentStrategy indentStrategy(const DetectedIndentStrategy& detected) {
    if (const auto* const spaces = std::get_if<DetectedIndentStrategy::Space>(&detected.kind()))
        return IndentStrategy::space(spaces->length);
    if (std::holds_alternative<DetectedIndentStrategy::Tab>(detected.kind()))
        return IndentStrategy::tab(usualLength);
    return IndentStrategy::space(usualLength);
}

} // namespace tessarine::editor
