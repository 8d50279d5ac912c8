#pragma once

#include <QtGui/QTextDocument>
#include <QtWidgets/QWidget>

namespace platform {

// A tool tip with a text of the user's, whatever it looks like: "<b>" is shown as it stands. Long ones wrap.
// Empty for none.
inline void setPlainToolTip(QWidget& widget, const QString& text) {
    widget.setToolTip(text.isEmpty() ? QString() : Qt::convertFromPlainText(text));
    widget.setAccessibleDescription(text); // which would be the markup else
}

} // namespace platform
