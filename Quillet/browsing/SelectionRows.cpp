#include "Quillet/browsing/SelectionRows.h"

#include "platform/screens/list/ListView.h"

#include <algorithm>

namespace quillet {

using platform::ListView;

SelectionRows::SelectionRows(const ItemKind& kind, std::shared_ptr<SelectionViewModel> viewModel,
                             std::shared_ptr<Snippet> snippet, std::span<const TagColor> validColors,
                             QObject* parent)
    : QAbstractListModel(parent)
    , m_kind(&kind)
    , m_viewModel(std::move(viewModel))
    , m_snippet(std::move(snippet))
    , m_validColors(validColors)
    , m_items(m_viewModel->items().value()) {
    m_subscriptions.push_back(m_viewModel->items().observeChanges([this](const auto& items) {
        beginResetModel();
        m_items = items;
        endResetModel();
    }));
    m_subscriptions.push_back(CoreDataStack::shared().viewContext().onChange(
        [this](const auto& changes) { takeChanges(changes); }));
}

void SelectionRows::takeChanges(const platform::ContextChanges& changes) {
    if (std::ranges::find(changes.updated, m_snippet) != changes.updated.end()) refreshMarks();
}

void SelectionRows::refreshMarks() {
    if (!m_items.empty()) Q_EMIT dataChanged(index(firstItemRow), index(rowCount() - 1));
}

std::shared_ptr<SelectionViewModel::Item> SelectionRows::itemAt(const QModelIndex& index) const {
    const int at = index.row() - firstItemRow;
    return index.isValid() && at >= 0 ? m_items.at(static_cast<std::size_t>(at)) : nullptr;
}

int SelectionRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : firstItemRow + static_cast<int>(m_items.size());
}

QVariant SelectionRows::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    if (index.row() == newRow) return newRowData(role);
    if (index.row() == headingRow) return headingData(role);
    return itemData(*itemAt(index), role);
}

QVariant SelectionRows::newRowData(int role) const {
    switch (role) {
    case Qt::DisplayRole:
    case ListView::KeyRole:
        return m_kind->newTitle();
    case ListView::SymbolRole:
        return m_kind->symbol;
    case ListView::AccessoryRole:
        return static_cast<int>(ListView::Accessory::Chevron);
    default:
        return {};
    }
}

QVariant SelectionRows::headingData(int role) const {
    switch (role) {
    case Qt::DisplayRole:
    case ListView::KeyRole:
        return m_kind->existingTitle();
    case ListView::StyleRole:
        return static_cast<int>(ListView::RowStyle::SectionHeader);
    default:
        return {};
    }
}

QVariant SelectionRows::itemData(SelectionViewModel::Item& item, int role) const {
    switch (role) {
    case Qt::DisplayRole:
        return m_viewModel->titleOf(item);
    case ListView::KeyRole:
        return item.objectID().toString();
    case ListView::SymbolRole:
        return m_kind->symbol;
    case ListView::TintRole:
        return tintOf(item);
    case ListView::AccessoryRole:
        if (!m_snippet) return {};
        return static_cast<int>(m_viewModel->isAssigned(*m_snippet, item) ? ListView::Accessory::Checkmark
                                                                          : ListView::Accessory::Unchecked);
    default:
        return {};
    }
}

QVariant SelectionRows::tintOf(const SelectionViewModel::Item& item) const {
    const auto colorIndex = m_viewModel->colorIndexOf(item);
    if (!colorIndex) return static_cast<int>(platform::Asset::Accent);
    // An index that the colours do not reach has none.
    const bool isValid = *colorIndex >= 0 && static_cast<std::size_t>(*colorIndex) < m_validColors.size();
    return static_cast<int>(isValid ? m_validColors[static_cast<std::size_t>(*colorIndex)].asset
                                    : platform::Asset::TextSecondary);
}

} // namespace quillet
