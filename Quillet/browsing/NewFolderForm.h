#pragma once

#include "Quillet/browsing/NewItemForm.h"
#include "Quillet/core/Folder.h"

namespace quillet {

// The name of a new folder. It offers the colours as the form of a tag does; a folder keeps none. Main
// thread.
class NewFolderForm : public NewItemForm {
    Q_OBJECT

public:
    // `validColors` outlives this.
    explicit NewFolderForm(std::span<const TagColor> validColors)
        : NewItemForm(folderKind, validColors) {}

protected:
    std::shared_ptr<SelectionViewModel::Item> create(const QString& title, int /*colorIndex*/) override {
        return Folder::create(title, QDateTime::currentDateTimeUtc());
    }
};

} // namespace quillet
