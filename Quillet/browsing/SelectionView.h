#pragma once

#include "Quillet/browsing/NewItemForm.h"
#include "Quillet/browsing/SelectionRows.h"
#include "platform/screens/list/ListView.h"

namespace quillet {

// A sheet with all tags or all folders: creates and deletes them, and gives them to a snippet if it has one.
// What it assigns it does not save. Main thread.
class SelectionView : public platform::ViewController {
    Q_OBJECT

public:
    // The user is done: whoever presented this takes it away. Called however the sheet is left.
    std::function<void()> onDismiss;

protected:
    // `snippet` may be null. `kind` and `validColors` outlive this.
    SelectionView(const ItemKind& kind, std::shared_ptr<SelectionViewModel> viewModel,
                  std::shared_ptr<Snippet> snippet, std::span<const TagColor> validColors);

    void viewDidLoad() override;

    virtual std::unique_ptr<NewItemForm> makeForm(std::span<const TagColor> validColors) const = 0;

private:
    void activate(const QModelIndex& index);
    void pushForm();
    bool isThere(const platform::ManagedObjectContext* itemContext) const;
    void toggle(SelectionViewModel::Item& item);
    void remove(const std::shared_ptr<SelectionViewModel::Item>& item);

    const ItemKind* m_kind;
    std::shared_ptr<SelectionViewModel> m_viewModel;
    std::shared_ptr<Snippet> m_snippet;
    std::span<const TagColor> m_validColors;
    platform::ListView* m_list;
    SelectionRows* m_rows;
};

} // namespace quillet
