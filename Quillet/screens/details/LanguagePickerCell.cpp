#include "Quillet/screens/details/LanguagePickerCell.h"

#include <QtWidgets/QVBoxLayout>

namespace quillet {

LanguagePickerCell::LanguagePickerCell(const QString& name, QWidget* parent)
    : QWidget(parent)
    , m_toggle(new platform::SwitchRow(name, this)) {
    m_toggle->setChecked(true);
    connect(m_toggle, &QAbstractButton::toggled, this, &LanguagePickerCell::didToggle);
    auto* edges = new QVBoxLayout(this);
    edges->setContentsMargins(0, 0, 0, 0);
    edges->addWidget(m_toggle);
}

void LanguagePickerCell::didToggle() {
    if (delegate) delegate->didToggle(*this);
}

} // namespace quillet
