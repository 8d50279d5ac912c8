#include "Quillet/browsing/NewItemForm.h"

#include "Quillet/browsing/ColorPicker.h"
#include "Quillet/controls/QuilletTextField.h"
#include "platform/screens/controllers/AlertController.h"
#include "platform/screens/controls/SymbolButton.h"
#include "platform/screens/list/GroupedForm.h"

#include <QtWidgets/QVBoxLayout>

namespace quillet {

NewItemForm::NewItemForm(const ItemKind& kind, std::span<const TagColor> validColors)
    : m_kind(&kind)
    , m_validColors(validColors) {
    setTitle(kind.newTitle());
}

void NewItemForm::viewDidLoad() {
    auto* form = new platform::GroupedForm(this);
    const QString name = QStringLiteral("Name");
    m_nameField = new QuilletTextField(name, name);
    form->addSection(m_kind->detailsTitle()).addWidget(m_nameField);
    m_picker = new ColorPicker(m_validColors);
    form->addSection(QStringLiteral("Color")).addWidget(m_picker);
    auto saveButton =
        std::make_unique<platform::SymbolButton>(QStringLiteral("plus.app.fill"), QStringLiteral("Save"));
    connect(saveButton.get(), &QAbstractButton::clicked, this, &NewItemForm::save);
    connect(m_nameField, &QuilletTextField::returnPressed, this, &NewItemForm::save);
    saveButton->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed); // the whole row is the target
    form->addSection({}).addWidget(saveButton.release());                  // the form is its parent now
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(form);
}

void NewItemForm::save() {
    const QString title = m_nameField->text();
    if (title.isEmpty()) {
        platform::showAlert(*this, QStringLiteral("Oops!"), QStringLiteral("You need a name to save a tag."),
                            QStringLiteral("Dismiss"));
        return;
    }
    const auto item = create(title, m_picker->colorIndex());
    CoreDataStack::shared().save(m_kind->added);
    if (onSave) onSave(item);
}

} // namespace quillet
