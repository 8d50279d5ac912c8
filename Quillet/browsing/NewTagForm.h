#pragma once

#include "Quillet/browsing/NewItemForm.h"
#include "Quillet/browsing/TagColors.h"

#include <span>

namespace quillet {

class ColorPicker;

// The name and the colour of a new tag. Main thread.
class NewTagForm : public NewItemForm {
    Q_OBJECT

public:
    // `validColors` outlives this.
    explicit NewTagForm(std::span<const TagColor> validColors);

protected:
    void addSections(platform::GroupedForm& form) override;
    std::shared_ptr<SelectionViewModel::Item> create(const QString& title) override;

private:
    std::span<const TagColor> m_validColors;
    ColorPicker* m_picker = nullptr; // once the view is loaded
};

} // namespace quillet
