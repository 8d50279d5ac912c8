#pragma once

#include "Quillet/browsing/NewItemForm.h"
#include "Quillet/core/Tag.h"

namespace quillet {

// The name and the colour of a new tag. Main thread.
class NewTagForm : public NewItemForm {
    Q_OBJECT

public:
    // `validColors` outlives this.
    explicit NewTagForm(std::span<const TagColor> validColors)
        : NewItemForm(tagKind, validColors) {}

protected:
    std::shared_ptr<SelectionViewModel::Item> create(const QString& title, int colorIndex) override {
        return Tag::create(title, static_cast<qint16>(colorIndex), QDateTime::currentDateTimeUtc());
    }
};

} // namespace quillet
