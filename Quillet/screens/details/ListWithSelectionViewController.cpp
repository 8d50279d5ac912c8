#include "Quillet/screens/details/ListWithSelectionViewController.h"

#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/controllers/NavigationController.h"
#include "platform/screens/list/ListView.h"

#include <QtCore/QRegularExpression>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QLineEdit>
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
    , m_searchBar(new QLineEdit(this))
    , m_list(new platform::ListView(this)) {
    setTitle(title);
    setPreferredContentSize(preferredSize);
    m_searchBar->setPlaceholderText(QStringLiteral("Search"));
    m_searchBar->setAccessibleName(QStringLiteral("Search"));
    m_searchBar->setClearButtonEnabled(true);
    m_searchBar->setMinimumHeight(44);
    m_searchBar->addAction(platform::symbolIcon(QStringLiteral("search"), platform::Asset::TextSecondary),
                           QLineEdit::LeadingPosition);
    m_searchBar->installEventFilter(this);
    setFocusProxy(m_searchBar);

    m_filtered.setSourceModel(&m_options);
    m_list->setModel(&m_filtered);
    m_list->setAccessibleName(title);
    connect(m_list, &platform::ListView::rowActivated, this, &ListWithSelectionViewController::choose);
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

// Only the query is lowercased, so an option with a capital is found by its lower-case start alone.
void ListWithSelectionViewController::applyFilter() {
    const QString query = QRegularExpression::escape(m_searchBar->text().toLower());
    m_filtered.setFilterRegularExpression(QRegularExpression(QStringLiteral("^") + query));
    m_list->setCurrentIndex(m_filtered.index(0, 0)); // Return takes the best match
}

void ListWithSelectionViewController::choose(const QModelIndex& index) {
    if (!index.isValid()) return;
    if (onSelect) onSelect(index.data().toString());
    close();
}

// The arrows and Return work on the list while the search bar keeps the focus.
bool ListWithSelectionViewController::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_searchBar || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const int row = m_list->currentIndex().row();
    switch (key.key()) {
    case Qt::Key_Down:
        m_list->setCurrentIndex(m_filtered.index(std::min(row + 1, m_filtered.rowCount() - 1), 0));
        return true;
    case Qt::Key_Up:
        m_list->setCurrentIndex(m_filtered.index(std::max(row - 1, 0), 0));
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (key.isAutoRepeat()) return true; // held since the screen before
        m_debounce.stop();
        applyFilter();
        choose(m_list->currentIndex());
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

} // namespace quillet
