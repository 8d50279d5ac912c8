#include "Quillet/controls/PaddedUITextField.h"

#include <algorithm>

namespace quillet {

namespace {

constexpr int leastHeight = 44; // points

QSize grown(QSize size, int fontHeight) {
    return {size.width(), std::max({size.height(), leastHeight, fontHeight + 16})};
}

} // namespace

PaddedUITextField::PaddedUITextField(QMargins insets, QWidget* parent)
    : QLineEdit(parent)
    , m_insets(insets) {
    setTextMargins(m_insets);
}

QSize PaddedUITextField::sizeHint() const {
    return grown(QLineEdit::sizeHint(), fontMetrics().height());
}

QSize PaddedUITextField::minimumSizeHint() const {
    return grown(QLineEdit::minimumSizeHint(), fontMetrics().height());
}

} // namespace quillet
