#include "Halcyonix/UIDoneTextView.h"

#include "Halcyonix/Environment.h"

#include <QtWidgets/QLabel>

namespace halcyonix {

UIDoneTextView::UIDoneTextView(QWidget* parent)
    : QTextEdit(parent)
    , m_accessory(new KeyboardAccessory(*this, Environment::shared().primaryColor)) {}

void UIDoneTextView::setCustomPlaceholderText(const QString& text) {
    m_accessory->setPlaceholderText(text);
}

} // namespace halcyonix
