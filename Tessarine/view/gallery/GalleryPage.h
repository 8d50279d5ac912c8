#pragma once

#include "Tessarine/base/TextMeasurer.h"
#include "Tessarine/layout/InvisibleCharacterConfiguration.h"
#include "Tessarine/layout/LineFragment.h"
#include "Tessarine/layout/TextShaper.h"
#include "Tessarine/layout/View.h"
#include "Tessarine/view/gallery/GallerySamples.h"
#include "themes/common/EditorTheme.h"

#include <memory>
#include <vector>

namespace tessarine {

class LineTexts;

// A sample as an editor shows it: gutter, selected line, page guide, invisible characters, marked text.
class GalleryPage {
public:
    GalleryPage(const GallerySample& sample, std::shared_ptr<const Theme> theme, Size size);
    ~GalleryPage();

    const std::shared_ptr<View>& view() const { return m_view; }

    // Of all rows, whether or not the page has room for them.
    double contentHeight() const { return m_y; }

private:
    void addFurniture();
    void addLines(const GallerySample& sample);
    void addLine(std::int64_t row, const std::shared_ptr<const AttributedString>& string);
    void addNumber(std::int64_t row);
    void addRow(const LineFragmentReference& fragment, const std::shared_ptr<LineTexts>& texts);
    double rowHeight() const;
    void add(std::shared_ptr<View> view, const Rect& frame, std::optional<Color> background = std::nullopt);

    const std::shared_ptr<const Theme> m_theme;
    const std::shared_ptr<const TextMeasurer> m_measurer;
    const std::shared_ptr<const TextShaper> m_shaper;
    const std::shared_ptr<InvisibleCharacterConfiguration> m_invisibles;
    const std::shared_ptr<View> m_view = std::make_shared<View>();
    std::vector<std::shared_ptr<LineTexts>> m_texts;
    double m_y = 6; // of the next line's top
};

} // namespace tessarine
