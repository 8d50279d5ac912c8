#pragma once

#include "Quillet/browsing/ItemKind.h"
#include "Quillet/browsing/SelectionViewModel.h"
#include "platform/screens/controllers/ViewController.h"

#include <functional>

namespace platform {
class GroupedForm;
}

namespace quillet {

class QuilletTextField;

// A form for a new tag or folder. Only a truly empty name is refused, with the same words for both. Main
// thread.
class NewItemForm : public platform::ViewController {
    Q_OBJECT

public:
    // Called with what was created, once it is saved.
    std::function<void(const std::shared_ptr<SelectionViewModel::Item>&)> onSave;

protected:
    // `kind` outlives this.
    explicit NewItemForm(const ItemKind& kind);

    void viewDidLoad() override;

    // Sections between the name and the button.
    virtual void addSections(platform::GroupedForm& /*form*/) {}

    // In the view context; the form saves.
    virtual std::shared_ptr<SelectionViewModel::Item> create(const QString& title) = 0;

private:
    void save();

    const ItemKind* m_kind;
    QuilletTextField* m_nameField = nullptr; // once the view is loaded
};

} // namespace quillet
