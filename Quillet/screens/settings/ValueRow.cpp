#include "Quillet/screens/settings/ValueRow.h"

#include "platform/screens/controls/TextLabel.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

namespace quillet {

ValueRow::ValueRow(const QString& label, QWidget* parent)
    : QWidget(parent)
    , m_label(platform::makeLabel(label, platform::TextStyle::Body, this, QPalette::PlaceholderText))
    , m_value(platform::makeLabel({}, platform::TextStyle::Body, this)) {
    m_value->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    m_value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 4, 0, 4);
    row->addWidget(m_label, 1);
    row->addWidget(m_value);
    setAccessibleName(label);
}

QString ValueRow::value() const {
    return m_value->text();
}

void ValueRow::setValue(const QString& value) {
    m_value->setText(value);
    setAccessibleDescription(value);
}

} // namespace quillet
