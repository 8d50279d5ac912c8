#pragma once

#include "Quillet/browsing/SelectionViewModel.h"
#include "Quillet/core/Folder.h"
#include "Quillet/core/FolderService.h"

namespace quillet {

// A snippet lies in one folder at most: another one takes the place of the first. Main thread.
class FolderSelectionViewModel : public RepositorySelectionViewModel<Folder, FolderService> {
public:
    std::optional<int> colorIndexOf(const Item& /*item*/) const override { return std::nullopt; }

    bool isAssigned(const Snippet& snippet, Item& item) const override { return snippet.folder() == &item; }

protected:
    void link(Snippet& snippet, Item& item) override { snippet.setToOne(Snippet::InFolder, &item); }

    void unlink(Snippet& snippet, Item& /*item*/) override { snippet.setToOne(Snippet::InFolder, nullptr); }
};

} // namespace quillet
