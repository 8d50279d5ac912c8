#include "Tessarine/view/gallery/GalleryPage.h"

#include "Tessarine/editing/TextViewState.h"
#include "Tessarine/view/QtMainExecutor.h"
#include "Tessarine/view/QtTextMeasurer.h"
#include "Tessarine/view/QtTextShaper.h"
#include "Tessarine/view/QtTimerScheduler.h"
#include "languages/catalogue/CatalogueLanguageProvider.h"

#include <utility>

namespace tessarine {

namespace {

constexpr double screenScale = 2;
constexpr std::int64_t tabLength = 4;
constexpr EdgeInsets textInset{.top = 6, .left = 4, .bottom = 6, .right = 12};

constexpr Color selectionColor(RGBAColor::ofHex(0x2F6FDE, 0.25F));
constexpr Color highlightColor(RGBAColor::ofHex(0xF2C230, 0.45F), RGBAColor::ofHex(0xB98A10, 0.45F));
constexpr double highlightRadius = 5;

TextViewState stateOf(const GallerySample& sample, const std::shared_ptr<const Theme>& theme,
                      const TextMeasurer& measurer) {
    TextStore text(sample.text);
    if (sample.language.empty()) return {std::move(text), theme, measurer};
    const auto provider = std::make_shared<const languages::CatalogueLanguageProvider>();
    const TreeSitterLanguageMode mode(provider->treeSitterLanguage(sample.language), provider);
    return {std::move(text), theme, measurer, mode, std::make_shared<QtMainExecutor>()};
}

} // namespace

std::shared_ptr<GalleryPage> GalleryPage::create(const GallerySample& sample,
                                                 std::shared_ptr<const Theme> theme, Size size) {
    const std::shared_ptr<GalleryPage> page(new GalleryPage(std::move(theme)));
    page->m_layout->setDelegate(page);
    page->addViews(size);
    page->setSettings();
    page->showDocument(sample);
    page->showRanges(sample);
    return page;
}

GalleryPage::GalleryPage(std::shared_ptr<const Theme> theme)
    : m_theme(std::move(theme))
    , m_measurer(std::make_shared<QtTextMeasurer>())
    , m_layout(LayoutManager::create(std::make_shared<QtTextShaper>(), m_measurer))
    , m_input(TextInputView::create(m_layout, std::make_shared<QtTimerScheduler>(), m_measurer))
    , m_pageGuide(m_measurer) {}

// The page guide lies behind all that the layout places.
void GalleryPage::addViews(Size size) {
    const auto* const editorTheme = dynamic_cast<const themes::EditorTheme*>(m_theme.get());
    m_scrollView->setBackgroundColor(editorTheme ? editorTheme->backgroundColor()
                                                 : semanticColors::systemBackground);
    m_scrollView->setFrame({.width = size.width, .height = size.height});
    m_scrollView->addSubview(m_textView);
    m_textView->addSubview(m_pageGuide.guideView());
    m_layout->setViews(m_scrollView, *m_textView);
}

void GalleryPage::setSettings() {
    const Font font = m_theme->font();
    m_layout->setTheme(m_theme);
    m_layout->setShowLineNumbers(true);
    m_layout->setLineHeightMultiplier(1.2);
    m_layout->setTextContainerInset(textInset);
    m_input->setIndentFont(font);
    m_input->setIndentStrategy(IndentStrategy::tab(tabLength));
    m_layout->setLineSelectionDisplayType(LineSelectionDisplayType::line);
    m_layout->setEditing(true);
    m_layout->setScrollViewWidth(m_scrollView->frame().width);
    m_layout->setViewport(m_scrollView->bounds());
    m_pageGuide.setFont(font);
    m_pageGuide.setTheme(*m_theme);
    m_pageGuide.guideView()->setScreenScale(screenScale);
}

std::shared_ptr<InvisibleCharacterConfiguration> GalleryPage::invisibles(bool showsSpaces) const {
    auto configuration = std::make_shared<InvisibleCharacterConfiguration>(m_measurer);
    configuration->setFont(m_theme->font());
    configuration->setTextColor(m_theme->invisibleCharactersColor());
    configuration->setShowTabs(true);
    configuration->setShowSpaces(showsSpaces);
    configuration->setShowNonBreakingSpaces(true);
    configuration->setShowLineBreaks(true);
    configuration->setShowSoftLineBreaks(true);
    return configuration;
}

void GalleryPage::showDocument(const GallerySample& sample) {
    m_layout->setInvisibleCharacterConfiguration(invisibles(sample.showsSpaces));
    m_input->setState(stateOf(sample, m_theme, *m_measurer));
}

void GalleryPage::showRanges(const GallerySample& sample) {
    HighlightedRangeIndex::Ranges highlights;
    for (const std::u16string_view part : sample.highlighted)
        highlights.push_back(std::make_shared<const HighlightedRange>(HighlightedRange{
            .range = rangeOf(part), .color = highlightColor, .cornerRadius = highlightRadius}));
    m_layout->setHighlightedRanges(highlights);
    if (!sample.marked.empty()) m_layout->setMarkedRange(rangeOf(sample.marked));
    if (!sample.selected.empty()) m_layout->setSelectedRange(rangeOf(sample.selected));
    m_layout->layoutIfNeeded();
    m_pageGuide.setColumn(sample.guideColumn);
    placePageGuide();
    if (!sample.selected.empty()) showSelection(rangeOf(sample.selected));
}

void GalleryPage::placePageGuide() {
    const double x = m_layout->geometry().leadingLineSpacing() + m_pageGuide.columnOffset();
    const Size size = m_scrollView->frame().size();
    m_pageGuide.guideView()->setFrame({.x = x, .width = size.width - x, .height = size.height});
}

void GalleryPage::showSelection(const TextRange& range) {
    for (const TextSelectionRect& part : m_layout->selectionRects(range)) {
        const auto view = std::make_shared<View>();
        view->setFrame(part.rect);
        view->setBackgroundColor(selectionColor);
        m_textView->addSubview(view);
    }
}

TextRange GalleryPage::rangeOf(std::u16string_view part) const {
    const std::u16string text = m_input->document().stringView->string();
    return {.location = static_cast<std::int64_t>(text.find(part)),
            .length = static_cast<std::int64_t>(part.size())};
}

} // namespace tessarine
