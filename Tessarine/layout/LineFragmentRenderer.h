#pragma once

#include "Tessarine/base/Color.h"
#include "Tessarine/base/TextRange.h"
#include "Tessarine/layout/DrawContext.h"
#include "Tessarine/layout/InvisibleCharacterConfiguration.h"
#include "Tessarine/layout/LineFragment.h"
#include "Tessarine/layout/LineFragmentRendererDelegate.h"

#include <memory>
#include <optional>

namespace tessarine {

// Draws one row: what is marked of it, the signs for what nobody sees, and its text on top. In points; the
// row fills its view. Whoever sets something draws it anew. Main thread.
class LineFragmentRenderer {
public:
    explicit LineFragmentRenderer(LineFragmentReference lineFragment)
        : m_lineFragment(std::move(lineFragment)) {}

    void setDelegate(std::weak_ptr<LineFragmentRendererDelegate> delegate) {
        m_delegate = std::move(delegate);
    }

    const LineFragmentReference& lineFragment() const { return m_lineFragment; }

    void setLineFragment(LineFragmentReference lineFragment) { m_lineFragment = std::move(lineFragment); }

    // Without one nothing is marked.
    const std::shared_ptr<const InvisibleCharacterConfiguration>& invisibleCharacterConfiguration() const {
        return m_invisibleCharacterConfiguration;
    }

    void
    setInvisibleCharacterConfiguration(std::shared_ptr<const InvisibleCharacterConfiguration> configuration) {
        m_invisibleCharacterConfiguration = std::move(configuration);
    }

    // What an input method has not settled yet: a part of the row, in code units from the line's start.
    const std::optional<TextRange>& markedRange() const { return m_markedRange; }

    void setMarkedRange(std::optional<TextRange> range) { m_markedRange = range; }

    const Color& markedTextBackgroundColor() const { return m_markedTextBackgroundColor; }

    void setMarkedTextBackgroundColor(const Color& color) { m_markedTextBackgroundColor = color; }

    double markedTextBackgroundCornerRadius() const { return m_markedTextBackgroundCornerRadius; }

    void setMarkedTextBackgroundCornerRadius(double radius) { m_markedTextBackgroundCornerRadius = radius; }

    void draw(DrawContext& context) const;

private:
    void drawMarkedText(DrawContext& context) const;
    void drawInvisibles(DrawContext& context) const;
    void drawSymbol(const InvisibleCharacterConfiguration::Mark& mark, const TextRange& character,
                    DrawContext& context) const;
    void drawText(DrawContext& context) const;
    std::optional<std::u16string> text() const;

    std::weak_ptr<LineFragmentRendererDelegate> m_delegate;
    LineFragmentReference m_lineFragment;
    std::shared_ptr<const InvisibleCharacterConfiguration> m_invisibleCharacterConfiguration;
    std::optional<TextRange> m_markedRange;
    Color m_markedTextBackgroundColor = semanticColors::systemFill;
    double m_markedTextBackgroundCornerRadius = 0;
};

} // namespace tessarine
