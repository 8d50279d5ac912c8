#pragma once

#include "Tessarine/base/Font.h"
#include "Tessarine/base/TextMeasurer.h"
#include "Tessarine/layout/PageGuideView.h"
#include "Tessarine/theme/Theme.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace tessarine {

// Where the page guide stands and how it looks. Main thread.
class PageGuideController {
public:
    // Never null.
    explicit PageGuideController(std::shared_ptr<const TextMeasurer> measurer)
        : m_measurer(std::move(measurer)) {}

    const std::shared_ptr<PageGuideView>& guideView() const { return m_guideView; }

    const Font& font() const { return m_font; }

    void setFont(Font font) { change(m_font, std::move(font)); }

    // In points, behind each character.
    double kern() const { return m_kern; }

    void setKern(double kern) { change(m_kern, kern); }

    // The number of characters in front of the guide.
    std::int64_t column() const { return m_column; }

    void setColumn(std::int64_t column) { change(m_column, column); }

    // In points from where rows start: as many spaces. Measured once.
    double columnOffset() const;

    void setTheme(const Theme& theme);

private:
    template <class Value>
    void change(Value& current, Value value) {
        current = std::move(value);
        m_columnOffset.reset();
    }

    const std::shared_ptr<const TextMeasurer> m_measurer;
    const std::shared_ptr<PageGuideView> m_guideView = std::make_shared<PageGuideView>();
    Font m_font = Font::system(14);
    double m_kern = 0;
    std::int64_t m_column = 120;
    mutable std::optional<double> m_columnOffset;
};

} // namespace tessarine
