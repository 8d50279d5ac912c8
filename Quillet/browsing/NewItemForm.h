#pragma once

#include "Quillet/browsing/ItemKind.h"
#include "Quillet/browsing/SelectionViewModel.h"
#include "Quillet/browsing/TagColors.h"
#include "platform/screens/controllers/ViewController.h"

#include <functional>
#include <span>

namespace quillet {

class ColorPicker;
class QuilletTextField;

// A form for a new tag or folder. Only a truly empty name is refused, with the same words for both. Main
// thread.
class NewItemForm : public platform::ViewController {
    Q_OBJECT

public:
    // Called with what was created, once it is saved.
    std::function<void(const std::shared_ptr<SelectionViewModel::Item>&)> onSave;

protected:
    // `kind` and `validColors` outlive this.
    NewItemForm(const ItemKind& kind, std::span<const TagColor> validColors);

    void viewDidLoad() override;

    // In the view context; the form saves.
    virtual std::shared_ptr<SelectionViewModel::Item> create(const QString& title, int colorIndex) = 0;

private:
    void save();

    const ItemKind* m_kind;
    std::span<const TagColor> m_validColors;
    // Once the view is loaded.
    QuilletTextField* m_nameField = nullptr;
    ColorPicker* m_picker = nullptr;
};

} // namespace quillet
