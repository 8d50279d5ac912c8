#pragma once

#include "Quillet/browsing/SelectionViewModel.h"
#include "Quillet/core/Tag.h"
#include "Quillet/core/TagService.h"

namespace quillet {

// A snippet has any number of tags. Main thread.
class TagSelectionViewModel : public RepositorySelectionViewModel<Tag, TagService> {
public:
    std::optional<int> colorIndexOf(const Item& item) const override {
        return static_cast<const Tag&>(item).colorIndex();
    }

    bool isAssigned(const Snippet& snippet, Item& item) const override {
        return snippet.toMany(Snippet::Tags).contains(&item);
    }

protected:
    void link(Snippet& snippet, Item& item) override { snippet.addToMany(Snippet::Tags, item); }

    void unlink(Snippet& snippet, Item& item) override { snippet.removeFromMany(Snippet::Tags, item); }
};

} // namespace quillet
