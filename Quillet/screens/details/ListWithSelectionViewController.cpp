#include "Quillet/screens/details/ListWithSelectionViewController.h"

#include "platform/screens/controllers/NavigationController.h"
#include "platform/screens/list/ListView.h"

#include <QtWidgets/QVBoxLayout>

namespace quillet {

namespace {

constexpr int debounceMilliseconds = 100;
constexpr QSize preferredSize(420, 510); // points

} // namespace

ListWithSelectionViewController::ListWithSelectionViewController(const QString& title,
                                                                 const QStringList& options,
                                                                 const std::optional<QString>& selectedOption,
                                                                 QWidget* parent)
    : ViewController(parent)
    , m_options(options, selectedOption)
    , m_searchBar(new SearchBar(this))
    , m_list(new platform::ListView(this)) {
    setTitle(title);
    setPreferredContentSize(preferredSize);
    setFocusProxy(m_searchBar);

    m_filtered.setSourceModel(&m_options);
    m_list->setModel(&m_filtered);
    m_list->setAccessibleName(title);
    connect(m_list, &platform::ListView::rowActivated, this, &ListWithSelectionViewController::choose);
    m_searchBar->steer(*m_list);
    connect(m_searchBar, &SearchBar::returnPressed, this, [this] {
        m_debounce.stop();
        applyFilter();
        choose(m_list->currentIndex());
    });
    if (selectedOption) {
        const auto at = m_filtered.index(static_cast<int>(options.indexOf(*selectedOption)), 0);
        m_list->setCurrentIndex(at);
        QTimer::singleShot(0, m_list, [this, at = QPersistentModelIndex(at)] { m_list->scrollTo(at); });
    }

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 10, 0, 0);
    column->setSpacing(0);
    auto* searchRow = new QVBoxLayout;
    searchRow->setContentsMargins(16, 0, 16, 0); // flush with the list's card
    searchRow->addWidget(m_searchBar);
    column->addLayout(searchRow);
    column->addWidget(m_list);

    m_debounce.setSingleShot(true);
    m_debounce.setInterval(debounceMilliseconds);
    connect(m_searchBar, &QLineEdit::textChanged, &m_debounce, qOverload<>(&QTimer::start));
    connect(&m_debounce, &QTimer::timeout, this, &ListWithSelectionViewController::applyFilter);
}

void ListWithSelectionViewController::viewDidLoad() {
    ViewController::viewDidLoad();
    if (isPushed()) return;
    navigationItem().addLeading(std::make_unique<platform::BarButtonItem>(
        platform::BarButtonItem::Look{{}, QStringLiteral("Close")}, [this] { close(); }));
}

// Whether another screen lies below it.
bool ListWithSelectionViewController::isPushed() const {
    const auto* navigation = navigationController();
    return navigation && navigation->viewControllers().front() != this;
}

void ListWithSelectionViewController::close() {
    if (isPushed())
        navigationController()->popViewController();
    else
        dismiss();
}

void ListWithSelectionViewController::applyFilter() {
    m_filtered.setFilterRegularExpression(m_searchBar->prefixPattern());
    m_list->setCurrentIndex(m_filtered.index(0, 0)); // Return takes the best match
}

void ListWithSelectionViewController::choose(const QModelIndex& index) {
    if (!index.isValid()) return;
    const QString option = index.data().toString();
    m_options.setSelectedOption(option);
    if (delegate) delegate->didSelectOption(option);
    close();
}

} // namespace quillet
