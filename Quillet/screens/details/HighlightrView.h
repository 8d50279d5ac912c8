#pragma once

#include "Quillet/screens/code/CodeAttributedString.h"

#include <QtWidgets/QWidget>

namespace quillet {

// A few lines of code in a theme, to be looked at: it takes neither input nor focus. Main thread.
class HighlightrView : public QWidget {
    Q_OBJECT

public:
    explicit HighlightrView(QWidget* parent = nullptr);

    const QString& theme() const { return m_theme; }

    // Its background becomes that of this view and of its parent, too.
    void setTheme(const QString& theme);

    platform::TextView& textView() { return *m_textView; }

private:
    platform::TextView* m_textView;
    CodeAttributedString* m_textStorage;
    QString m_language = QStringLiteral("swift");
    QString m_theme = QStringLiteral("xcode");
};

} // namespace quillet
