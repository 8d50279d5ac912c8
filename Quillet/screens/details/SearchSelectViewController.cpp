#include "Quillet/screens/details/SearchSelectViewController.h"

#include "Quillet/screens/details/HighlightrView.h"
#include "Quillet/screens/details/OptionList.h"
#include "platform/screens/controls/TextLabel.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto debounce = 500ms;

// Points.
constexpr QSize preferredSize(420, 620);
constexpr int headerHeight = 30;
constexpr int headerInset = 10;
constexpr int headerPadding = 6;

const QString defaultTheme = QStringLiteral("xcode");

} // namespace

SearchSelectViewController::SearchSelectViewController(const QStringList& options,
                                                       const std::optional<QString>& selectedOption,
                                                       QWidget* parent)
    : ViewController(parent)
    , m_options(new OptionList(QStringLiteral("Themes"), options, selectedOption, debounce, this)) {
    setTitle(QStringLiteral("Theme"));
    setPreferredContentSize(preferredSize);
    navigationItem().addLeading(std::make_unique<platform::BarButtonItem>(
        platform::BarButtonItem::Look{{}, QStringLiteral("Close")}, [this] { didClose(); }));
    setFocusProxy(m_options);
    connect(m_options, &OptionList::chosen, this, &SearchSelectViewController::choose);
    m_options->setHeader(makeHeader());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(makePreview(selectedOption.value_or(defaultTheme)));
    column->addWidget(m_options, 1);
}

// In a view of its own, which takes on the theme's background.
QWidget* SearchSelectViewController::makePreview(const QString& theme) {
    auto* surroundings = new QWidget(this);
    m_highlighterView = new HighlightrView(surroundings);
    m_highlighterView->setTheme(theme);
    auto* edges = new QVBoxLayout(surroundings);
    edges->setContentsMargins(0, 0, 0, 0);
    edges->addWidget(m_highlighterView);
    surroundings->setFixedHeight(codePreviewHeight);
    return surroundings;
}

QWidget* SearchSelectViewController::makeHeader() {
    auto* header = platform::makeLabel(QStringLiteral("THEMES"), platform::TextStyle::Footnote, this,
                                       QPalette::PlaceholderText);
    header->setContentsMargins(headerInset, headerPadding, headerInset, 0);
    header->setMinimumHeight(headerHeight);
    return header;
}

void SearchSelectViewController::choose(const QString& theme) {
    m_highlighterView->setTheme(theme);
    if (delegate) delegate->didSelectTheme(theme);
}

} // namespace quillet
