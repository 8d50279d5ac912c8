#pragma once

#include "Quillet/browsing/NewItemForm.h"
#include "Quillet/core/Folder.h"

namespace quillet {

// The name of a new folder. Main thread.
class NewFolderForm : public NewItemForm {
    Q_OBJECT

public:
    NewFolderForm()
        : NewItemForm(folderKind) {}

protected:
    std::shared_ptr<SelectionViewModel::Item> create(const QString& title) override {
        return Folder::create(title, QDateTime::currentDateTimeUtc());
    }
};

} // namespace quillet
