#pragma once

#include "Quillet/browsing/FolderSelectionViewModel.h"
#include "Quillet/browsing/NewFolderForm.h"
#include "Quillet/browsing/SelectionView.h"

namespace quillet {

// Puts a snippet into one folder, or into none. Main thread.
class FolderSelectionView : public SelectionView {
    Q_OBJECT

public:
    FolderSelectionView(std::shared_ptr<Snippet> snippet, std::span<const TagColor> validColors)
        : SelectionView(folderKind, std::make_unique<FolderSelectionViewModel>(), std::move(snippet),
                        validColors) {}

protected:
    std::unique_ptr<NewItemForm> makeForm(std::span<const TagColor> validColors) const override {
        return std::make_unique<NewFolderForm>(validColors);
    }
};

} // namespace quillet
