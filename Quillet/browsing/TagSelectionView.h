#pragma once

#include "Quillet/browsing/NewTagForm.h"
#include "Quillet/browsing/SelectionView.h"
#include "Quillet/browsing/TagSelectionViewModel.h"

namespace quillet {

// Gives a snippet any number of tags. Main thread.
class TagSelectionView : public SelectionView {
    Q_OBJECT

public:
    TagSelectionView(std::shared_ptr<Snippet> snippet, std::span<const TagColor> validColors)
        : SelectionView(tagKind, std::make_unique<TagSelectionViewModel>(), std::move(snippet), validColors) {
    }

protected:
    std::unique_ptr<NewItemForm> makeForm(std::span<const TagColor> validColors) const override {
        return std::make_unique<NewTagForm>(validColors);
    }
};

} // namespace quillet
