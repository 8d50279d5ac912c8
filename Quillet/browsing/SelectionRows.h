#pragma once

#include "Quillet/browsing/ItemKind.h"
#include "Quillet/browsing/SelectionViewModel.h"
#include "Quillet/browsing/TagColors.h"
#include "platform/store/ManagedObjectContext.h"

#include <QtCore/QAbstractListModel>

#include <span>

namespace quillet {

// The rows of a sheet of tags or folders: the way to the form, a heading, and the existing ones, those
// checked that the snippet has. Follows the library. Main thread.
class SelectionRows : public QAbstractListModel {
    Q_OBJECT

public:
    // Without a snippet nothing is checked. `kind` and `validColors` outlive this.
    SelectionRows(const ItemKind& kind, std::shared_ptr<SelectionViewModel> viewModel,
                  std::shared_ptr<Snippet> snippet, std::span<const TagColor> validColors,
                  QObject* parent = nullptr);

    // Null for the rows above the existing ones.
    std::shared_ptr<SelectionViewModel::Item> itemAt(const QModelIndex& index) const;

    static bool isNewRow(const QModelIndex& index) { return index.row() == newRow; }

    // Shows what the snippet has now.
    void refreshMarks();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    static constexpr int newRow = 0;
    static constexpr int headingRow = 1;
    static constexpr int firstItemRow = 2;

    QVariant newRowData(int role) const;
    QVariant headingData(int role) const;
    QVariant itemData(SelectionViewModel::Item& item, int role) const;
    QVariant tintOf(const SelectionViewModel::Item& item) const;
    void takeChanges(const platform::ContextChanges& changes);

    const ItemKind* m_kind;
    std::shared_ptr<SelectionViewModel> m_viewModel;
    std::shared_ptr<Snippet> m_snippet;
    std::span<const TagColor> m_validColors;
    SelectionViewModel::Items m_items; // those of the view model as of the last reset
    std::vector<platform::Subscription> m_subscriptions;
};

} // namespace quillet
