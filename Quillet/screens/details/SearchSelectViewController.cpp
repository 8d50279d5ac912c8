#include "Quillet/screens/details/SearchSelectViewController.h"

#include "Quillet/screens/details/HighlightrView.h"
#include "platform/screens/controls/TextLabel.h"
#include "platform/screens/list/ListView.h"

#include <QtCore/QTimer>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto debounce = 500ms;
constexpr QSize preferredSize(420, 620); // points
constexpr int headerHeight = 30;
constexpr int headerInset = 10;
const QString defaultTheme = QStringLiteral("xcode");

} // namespace

SearchSelectViewController::SearchSelectViewController(const QStringList& options,
                                                       const std::optional<QString>& selectedOption,
                                                       QWidget* parent)
    : ViewController(parent)
    , m_options(options, selectedOption)
    , m_searchBar(new SearchBar(this))
    , m_list(new platform::ListView(this))
    , m_debounce(platform::Timer::Kind::OneShot, debounce, [this] { applyFilter(); }) {
    setTitle(QStringLiteral("Theme"));
    setPreferredContentSize(preferredSize);
    navigationItem().addLeading(std::make_unique<platform::BarButtonItem>(
        platform::BarButtonItem::Look{{}, QStringLiteral("Close")}, [this] { didClose(); }));
    setFocusProxy(m_searchBar);

    auto* surroundings = new QWidget(this);
    m_highlighterView = new HighlightrView(surroundings);
    m_highlighterView->setTheme(selectedOption.value_or(defaultTheme));
    auto* inset = new QVBoxLayout(surroundings);
    inset->setContentsMargins(0, 0, 0, 0);
    inset->addWidget(m_highlighterView);
    surroundings->setFixedHeight(codePreviewHeight);

    m_filtered.setSourceModel(&m_options);
    m_list->setModel(&m_filtered);
    m_list->setAccessibleName(QStringLiteral("Themes"));
    connect(m_list, &platform::ListView::rowActivated, this, &SearchSelectViewController::choose);
    m_searchBar->steer(*m_list);
    connect(m_searchBar, &QLineEdit::textChanged, this, [this] { m_debounce.start(); });
    connect(m_searchBar, &QLineEdit::returnPressed, this, [this] {
        m_debounce.stop();
        applyFilter();
        choose(m_list->currentIndex());
    });
    if (selectedOption) {
        const auto at = m_filtered.index(static_cast<int>(options.indexOf(*selectedOption)), 0);
        m_list->setCurrentIndex(at);
        QTimer::singleShot(0, m_list, [this, at = QPersistentModelIndex(at)] { m_list->scrollTo(at); });
    }

    auto* header = platform::makeLabel(QStringLiteral("THEMES"), platform::TextStyle::Footnote, this,
                                       QPalette::PlaceholderText);
    header->setContentsMargins(headerInset, 0, headerInset, 0);
    header->setMinimumHeight(headerHeight);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(surroundings);
    auto* searchRow = new QVBoxLayout;
    searchRow->setContentsMargins(16, 10, 16, 0); // flush with the list's card
    searchRow->addWidget(m_searchBar);
    searchRow->addWidget(header);
    column->addLayout(searchRow);
    column->addWidget(m_list, 1);
}

void SearchSelectViewController::applyFilter() {
    const QModelIndex current = m_list->currentIndex();
    m_filtered.setFilterRegularExpression(m_searchBar->prefixPattern());
    if (!current.isValid() || !m_list->currentIndex().isValid())
        m_list->setCurrentIndex(m_filtered.index(0, 0)); // Return takes the best match
}

void SearchSelectViewController::choose(const QModelIndex& index) {
    if (!index.isValid()) return;
    m_options.setSelectedOption(index.data().toString());
    const QString theme = m_options.selectedOption().value_or(defaultTheme);
    m_highlighterView->setTheme(theme);
    if (delegate) delegate->didSelectTheme(theme);
}

} // namespace quillet
