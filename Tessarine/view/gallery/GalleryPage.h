#pragma once

#include "Tessarine/editing/TextInputView.h"
#include "Tessarine/layout/PageGuideController.h"
#include "Tessarine/layout/manager/LayoutManager.h"
#include "Tessarine/view/gallery/GallerySamples.h"
#include "themes/common/EditorTheme.h"

#include <memory>

namespace tessarine {

// A sample in a scroll view, laid out by the engine with all that it can show.
class GalleryPage final : public LayoutManagerDelegate, public std::enable_shared_from_this<GalleryPage> {
public:
    static std::shared_ptr<GalleryPage> create(const GallerySample& sample,
                                               std::shared_ptr<const Theme> theme, Size size);

    const std::shared_ptr<ScrollView>& view() const { return m_scrollView; }

    void layoutManagerDidChangeContentSize(const Size& size) override { m_scrollView->setContentSize(size); }

    void layoutManagerDidChangeGutterWidth() override {}

    void layoutManagerNeedsLayout() override {}

private:
    explicit GalleryPage(std::shared_ptr<const Theme> theme);

    void addViews(Size size);
    void setSettings();
    void showDocument(const GallerySample& sample);
    void showRanges(const GallerySample& sample);
    void placePageGuide();
    void showSelection(const TextRange& range);
    std::shared_ptr<InvisibleCharacterConfiguration> invisibles(bool showsSpaces) const;
    TextRange rangeOf(std::u16string_view part) const;

    const std::shared_ptr<const Theme> m_theme;
    const std::shared_ptr<const TextMeasurer> m_measurer;
    const std::shared_ptr<ScrollView> m_scrollView = std::make_shared<ScrollView>();
    const std::shared_ptr<View> m_textView = std::make_shared<View>();
    const std::shared_ptr<LayoutManager> m_layout;
    const std::shared_ptr<TextInputView> m_input;
    PageGuideController m_pageGuide;
};

} // namespace tessarine
