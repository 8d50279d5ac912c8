#include "Quillet/controls/QuilletTextField.h"

#include "Quillet/controls/ToolbarTextField.h"
#include "platform/screens/controls/TextLabel.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace quillet {

namespace {

constexpr int spacing = 6; // points, between title and field

} // namespace

QuilletTextField::QuilletTextField(const QString& title, const QString& placeholder, QWidget* parent)
    : QWidget(parent)
    , m_field(new ToolbarTextField(this)) {
    auto* label =
        platform::makeLabel(title, platform::TextStyle::Subheadline, this, QPalette::PlaceholderText);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(spacing);
    column->addWidget(label);
    column->addWidget(m_field);
    label->setBuddy(m_field);
    m_field->setAccessibleName(title);
    m_field->setPlaceholderText(placeholder);
    setFocusProxy(m_field);
    connect(m_field, &QLineEdit::textChanged, this, &QuilletTextField::textChanged);
    connect(m_field, &QLineEdit::returnPressed, this, &QuilletTextField::returnPressed);
}

QString QuilletTextField::text() const {
    return m_field->text();
}

void QuilletTextField::setText(const QString& text) {
    m_field->setText(text);
}

} // namespace quillet
