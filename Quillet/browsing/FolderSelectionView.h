#pragma once

#include "Quillet/browsing/FolderSelectionViewModel.h"
#include "Quillet/browsing/NewFolderForm.h"
#include "Quillet/browsing/SelectionView.h"

namespace quillet {

// Puts a snippet into one folder, or into none. Main thread.
class FolderSelectionView : public SelectionView {
    Q_OBJECT

public:
    explicit FolderSelectionView(std::shared_ptr<Snippet> snippet)
        : SelectionView(folderKind, std::make_unique<FolderSelectionViewModel>(), std::move(snippet), {}) {}

protected:
    std::unique_ptr<NewItemForm> makeForm() const override { return std::make_unique<NewFolderForm>(); }
};

} // namespace quillet
