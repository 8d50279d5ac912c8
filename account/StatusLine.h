#pragma once

#include "platform/screens/appearance/Palette.h"

#include <QtWidgets/QWidget>

class QLabel;

namespace account {

// A sentence with a coloured dot in front that says how things are; takes no room while it is empty. Main
// thread.
class StatusLine : public QWidget {
    Q_OBJECT

public:
    explicit StatusLine(const QString& accessibleName, QWidget* parent);

    void show(platform::Asset dot, const QString& text);
    void clear();
    QString text() const;

private:
    class Dot;

    Dot* m_dot;
    QLabel* m_text;
};

} // namespace account
