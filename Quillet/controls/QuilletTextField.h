#pragma once

#include <QtWidgets/QWidget>

class QLineEdit;

namespace quillet {

// A titled field for one line of text, at least 44 points high. Its title is its accessible name. Main
// thread.
class QuilletTextField : public QWidget {
    Q_OBJECT

public:
    QuilletTextField(const QString& title, const QString& placeholder, QWidget* parent = nullptr);

    QString text() const;
    void setText(const QString& text);

Q_SIGNALS:
    void textChanged(const QString& text);
    void returnPressed();

private:
    QLineEdit* m_field;
};

} // namespace quillet
