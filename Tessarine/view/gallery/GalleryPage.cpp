#include "Tessarine/view/gallery/GalleryPage.h"

#include "Tessarine/layout/LineFragmentView.h"
#include "Tessarine/layout/LineTypesetter.h"
#include "Tessarine/layout/PageGuideController.h"
#include "Tessarine/syntax/highlighting/TreeSitterSyntaxHighlighter.h"
#include "Tessarine/syntax/tests/SampleDocument.h"
#include "Tessarine/view/QtTextMeasurer.h"
#include "Tessarine/view/QtTextShaper.h"
#include "languages/catalogue/CatalogueLanguageProvider.h"

#include <algorithm>
#include <string>
#include <utility>

namespace tessarine {

namespace {

constexpr double gutterWidth = 34;
constexpr double textX = gutterWidth + 6;
constexpr std::int64_t guideColumn = 60;
constexpr std::int64_t selectedRow = 4;
constexpr double tabInterval = 34;
constexpr double heightMultiplier = 1.2;

class NumberView final : public View {
public:
    NumberView(std::u16string text, const Font& font, const Color& color)
        : m_text(std::move(text))
        , m_font(font)
        , m_color(color) {}

    void draw(DrawContext& context) override { context.drawText(m_text, m_font, m_color, bounds()); }

private:
    const std::u16string m_text;
    const Font m_font;
    const Color m_color;
};

std::u16string decimal(std::int64_t number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

std::shared_ptr<AttributedString> lineOf(const SampleDocument& document, LineSyntaxHighlighter& highlighter,
                                         std::int64_t row) {
    const DocumentLineNode& line = document.lineManager->lineAtRow(row);
    const TextRange range{.location = line.location(), .length = line.data().totalLength()};
    auto string = std::make_shared<AttributedString>(document.stringView->snapshot(), range);
    highlighter.setDefaultAttributes(*string);
    string->addAttributes({.defaultTabInterval = tabInterval}, {.location = 0, .length = range.length});
    if (highlighter.canHighlight())
        highlighter.syntaxHighlight({string,
                                     {.location = ByteCount::ofCodeUnits(range.location),
                                      .length = ByteCount::ofCodeUnits(range.length)}});
    return string;
}

} // namespace

// The text of one line's rows.
class LineTexts final : public LineFragmentRendererDelegate {
public:
    explicit LineTexts(std::u16string text)
        : m_text(std::move(text)) {}

    std::optional<std::u16string> string(const LineFragmentRenderer& renderer) override {
        const TextRange& range = renderer.lineFragment()->range;
        return m_text.substr(static_cast<std::size_t>(range.location),
                             static_cast<std::size_t>(range.length));
    }

private:
    const std::u16string m_text;
};

GalleryPage::GalleryPage(const GallerySample& sample, std::shared_ptr<const Theme> theme, Size size)
    : m_theme(std::move(theme))
    , m_measurer(std::make_shared<QtTextMeasurer>())
    , m_shaper(std::make_shared<QtTextShaper>())
    , m_invisibles(std::make_shared<InvisibleCharacterConfiguration>(m_measurer)) {
    m_view->setFrame({.width = size.width, .height = size.height});
    m_invisibles->setFont(m_theme->font());
    m_invisibles->setTextColor(m_theme->invisibleCharactersColor());
    m_invisibles->setShowTabs(true);
    m_invisibles->setShowSpaces(sample.language.empty());
    m_invisibles->setShowNonBreakingSpaces(true);
    m_invisibles->setShowLineBreaks(true);
    addFurniture();
    addLines(sample);
}

GalleryPage::~GalleryPage() = default;

void GalleryPage::addFurniture() {
    const auto* const editorTheme = dynamic_cast<const themes::EditorTheme*>(m_theme.get());
    m_view->setBackgroundColor(editorTheme ? editorTheme->backgroundColor()
                                           : semanticColors::systemBackground);
    PageGuideController guide(m_measurer);
    guide.setFont(m_theme->font());
    guide.setColumn(guideColumn);
    guide.setTheme(*m_theme);
    const double guideX = textX + guide.columnOffset();
    const Size size = m_view->frame().size();
    add(guide.guideView(), {guideX, 0, size.width - guideX, size.height},
        guide.guideView()->backgroundColor());
    add(std::make_shared<View>(), {0, 0, gutterWidth, size.height}, m_theme->gutterBackgroundColor());
    add(std::make_shared<View>(), {gutterWidth, 0, m_theme->gutterHairlineWidth(2), size.height},
        m_theme->gutterHairlineColor());
}

void GalleryPage::addLines(const GallerySample& sample) {
    const auto provider = std::make_shared<const languages::CatalogueLanguageProvider>();
    const bool isPlain = sample.language.empty();
    SampleDocument document(sample.text, provider->treeSitterLanguage(isPlain ? "c" : sample.language),
                            provider);
    const auto highlighter = document.mode->createLineSyntaxHighlighter();
    highlighter->setTheme(m_theme);
    if (!isPlain) document.parse();
    for (std::int64_t row = 0; row < document.lineManager->lineCount(); ++row)
        addLine(row, lineOf(document, *highlighter, row));
}

void GalleryPage::addLine(std::int64_t row, const std::shared_ptr<const AttributedString>& string) {
    LineTypesetter typesetter(m_shaper);
    typesetter.setConstrainingWidth(m_view->frame().width - textX - 20);
    typesetter.setLineFragmentHeightMultiplier(heightMultiplier);
    typesetter.prepareToTypeset(string);
    typesetter.typesetLineFragments(string->length(), 0);
    const double height = std::max(typesetter.nextYPosition(), rowHeight());
    if (row == selectedRow)
        add(std::make_shared<View>(), {gutterWidth, m_y, m_view->frame().width - gutterWidth, height},
            m_theme->selectedLineBackgroundColor());
    addNumber(row);
    m_texts.push_back(
        std::make_shared<LineTexts>(string->substring({.location = 0, .length = string->length()})));
    for (const LineFragmentReference& fragment : typesetter.lineFragments())
        addRow(fragment, m_texts.back());
    m_y += height;
}

void GalleryPage::addNumber(std::int64_t row) {
    const std::u16string number = decimal(row + 1);
    const Font font = m_theme->lineNumberFont();
    const double width = m_measurer->width(number, font);
    const double height = m_measurer->metrics(font).lineHeight();
    const Color color =
        row == selectedRow ? m_theme->selectedLinesLineNumberColor() : m_theme->lineNumberColor();
    add(std::make_shared<NumberView>(number, font, color),
        {gutterWidth - 6 - width, m_y + (rowHeight() - height) / 2, width, height});
}

void GalleryPage::addRow(const LineFragmentReference& fragment, const std::shared_ptr<LineTexts>& texts) {
    auto renderer = std::make_shared<LineFragmentRenderer>(fragment);
    renderer->setDelegate(texts);
    renderer->setInvisibleCharacterConfiguration(m_invisibles);
    renderer->setMarkedTextBackgroundColor(m_theme->markedTextBackgroundColor());
    renderer->setMarkedTextBackgroundCornerRadius(m_theme->markedTextBackgroundCornerRadius());
    if (fragment->range.location == 0 && m_texts.size() == 2 && fragment->range.length > 8)
        renderer->setMarkedRange(TextRange{.location = 2, .length = 6});
    auto view = std::make_shared<LineFragmentView>();
    view->setRenderer(std::move(renderer));
    add(std::move(view), {textX, m_y + fragment->yPosition,
                          fragment->scaledSize.width + m_invisibles->maximumLineBreakSymbolWidth(),
                          fragment->scaledSize.height});
}

double GalleryPage::rowHeight() const {
    return m_measurer->metrics(m_theme->font()).lineHeight() * heightMultiplier;
}

void GalleryPage::add(std::shared_ptr<View> view, const Rect& frame, std::optional<Color> background) {
    view->setFrame(frame);
    view->setBackgroundColor(background);
    m_view->addSubview(std::move(view));
}

} // namespace tessarine
