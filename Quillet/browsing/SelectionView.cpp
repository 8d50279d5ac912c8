#include "Quillet/browsing/SelectionView.h"

#include "platform/screens/controllers/NavigationController.h"

#include <QtWidgets/QVBoxLayout>

namespace quillet {

namespace {

const QString deleteTitle = QStringLiteral("Delete");
const QString deleteSymbol = QStringLiteral("trash");

} // namespace

SelectionView::SelectionView(const ItemKind& kind, std::shared_ptr<SelectionViewModel> viewModel,
                             std::shared_ptr<Snippet> snippet, std::span<const TagColor> validColors)
    : m_kind(&kind)
    , m_viewModel(std::move(viewModel))
    , m_snippet(std::move(snippet))
    , m_validColors(validColors)
    , m_list(new platform::ListView(this))
    , m_rows(new SelectionRows(kind, m_viewModel, m_snippet, validColors, m_list)) {
    setTitle(kind.plural);
    navigationItem().addTrailing(std::make_unique<platform::BarButtonItem>(
        platform::BarButtonItem::Look{QStringLiteral("xmark.circle.fill"), QStringLiteral("Close")}, [this] {
            if (onDismiss) onDismiss();
        }));
}

void SelectionView::viewDidLoad() {
    m_list->setAccessibleName(m_kind->plural);
    m_list->setModel(m_rows);
    m_list->contextMenu = [this](const QModelIndex& index) -> std::optional<platform::Menu> {
        const auto item = m_rows->itemAt(index);
        if (!item) return std::nullopt;
        return platform::Menu{{},
                              {platform::MenuAction{deleteTitle, deleteSymbol, [this, item] { remove(item); },
                                                    platform::MenuAction::Role::Destructive}}};
    };
    m_list->swipeActions = [this](const QModelIndex& index) -> std::vector<platform::SwipeAction> {
        const auto item = m_rows->itemAt(index);
        if (!item) return {};
        return {{deleteTitle, deleteSymbol, platform::SwipeAction::Role::Destructive,
                 [this, item] { remove(item); }}};
    };
    connect(m_list, &platform::ListView::rowActivated, this, &SelectionView::activate);
    connect(m_list, &platform::ListView::deleteRequested, this, [this](const QModelIndex& index) {
        if (const auto item = m_rows->itemAt(index)) remove(item);
    });
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_list);
}

void SelectionView::activate(const QModelIndex& index) {
    if (SelectionRows::isNewRow(index))
        pushForm();
    else if (const auto item = m_rows->itemAt(index))
        toggle(*item);
    m_list->clearSelection(); // what a row says here is its check mark
}

void SelectionView::pushForm() {
    auto form = makeForm(m_validColors);
    form->onSave = [this](const auto& item) {
        navigationController()->popViewController();
        if (!isThere(item->context())) return;
        m_viewModel->assign(*m_snippet, *item);
        m_rows->refreshMarks();
    };
    navigationController()->pushViewController(std::move(form));
}

// Another device may delete the snippet, or the item, while the sheet is open.
bool SelectionView::isThere(const platform::ManagedObjectContext* itemContext) const {
    return m_snippet && m_snippet->context() && m_snippet->context() == itemContext;
}

void SelectionView::toggle(SelectionViewModel::Item& item) {
    if (!isThere(item.context())) return;
    m_viewModel->toggle(*m_snippet, item);
    m_rows->refreshMarks();
}

void SelectionView::remove(const std::shared_ptr<SelectionViewModel::Item>& item) {
    m_viewModel->remove(*item);
}

} // namespace quillet
