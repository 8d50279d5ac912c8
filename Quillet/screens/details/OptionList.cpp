#include "Quillet/screens/details/OptionList.h"

#include "Quillet/screens/details/SearchBar.h"
#include "platform/screens/list/ListView.h"

#include <QtCore/QTimer>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace quillet {

namespace {

// Points. With the list's own margin its rows are 40 narrower than this.
constexpr int sideMargin = 4;
constexpr int searchMargin = 16;
constexpr int topMargin = 10;
constexpr int headSpacing = 6; // above the rows

} // namespace

OptionList::OptionList(const QString& name, const QStringList& options,
                       const std::optional<QString>& selectedOption, std::chrono::milliseconds debounce,
                       QWidget* parent)
    : QWidget(parent)
    , m_options(options, selectedOption)
    , m_searchBar(new SearchBar(this))
    , m_list(new platform::ListView(this))
    , m_head(new QVBoxLayout)
    , m_debounce(platform::Timer::Kind::OneShot, debounce, [this] { applyFilter(); }) {
    setFocusProxy(m_searchBar);
    m_filtered.setSourceModel(&m_options);
    m_list->setModel(&m_filtered);
    m_list->setAccessibleName(name);
    m_list->setCurrentIndex(start());
    connect(m_list, &platform::ListView::rowActivated, this, &OptionList::choose);
    m_searchBar->steer(*m_list);
    connect(m_searchBar, &QLineEdit::textChanged, this, [this] { m_debounce.start(); });
    connect(m_searchBar, &QLineEdit::returnPressed, this, [this] {
        if (m_debounce.isActive()) applyFilter();
        choose(m_list->currentIndex());
    });

    m_head->setContentsMargins(searchMargin, 0, searchMargin, 0);
    m_head->setSpacing(0);
    m_head->addWidget(m_searchBar);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(sideMargin, topMargin, sideMargin, 0);
    column->setSpacing(headSpacing);
    column->addLayout(m_head);
    column->addWidget(m_list);
    // Where the rows stand is known once they have their room.
    QTimer::singleShot(
        0, m_list, [this] { m_list->scrollTo(m_list->currentIndex(), QAbstractItemView::PositionAtCenter); });
}

void OptionList::setHeader(QWidget* header) {
    m_head->addWidget(header);
}

void OptionList::applyFilter() {
    m_debounce.stop();
    m_filtered.setFilterRegularExpression(m_searchBar->prefixPattern());
    m_list->setCurrentIndex(start());
}

void OptionList::choose(const QModelIndex& index) {
    if (!index.isValid()) return;
    const QString option = index.data().toString();
    m_options.setSelectedOption(option);
    Q_EMIT chosen(option);
}

QModelIndex OptionList::start() const {
    const auto at = m_options.stringList().indexOf(selectedOption().value_or(QString()));
    const auto selected = m_filtered.mapFromSource(m_options.index(static_cast<int>(at)));
    return selected.isValid() && m_searchBar->text().isEmpty() ? selected : m_filtered.index(0, 0);
}

} // namespace quillet
