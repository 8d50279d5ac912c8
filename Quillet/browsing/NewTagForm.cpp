#include "Quillet/browsing/NewTagForm.h"

#include "Quillet/browsing/ColorPicker.h"
#include "Quillet/core/Tag.h"
#include "platform/screens/list/GroupedForm.h"

#include <QtWidgets/QVBoxLayout>

namespace quillet {

NewTagForm::NewTagForm(std::span<const TagColor> validColors)
    : NewItemForm(tagKind)
    , m_validColors(validColors) {}

void NewTagForm::addSections(platform::GroupedForm& form) {
    m_picker = new ColorPicker(m_validColors);
    form.addSection(QStringLiteral("Color")).addWidget(m_picker);
}

std::shared_ptr<SelectionViewModel::Item> NewTagForm::create(const QString& title) {
    return Tag::create(title, static_cast<qint16>(m_picker->colorIndex()), QDateTime::currentDateTimeUtc());
}

} // namespace quillet
