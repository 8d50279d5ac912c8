#pragma once

#include <QtWidgets/QWidget>

class QLabel;

namespace quillet {

// A label and a value side by side. Main thread.
class ValueRow : public QWidget {
    Q_OBJECT

public:
    explicit ValueRow(const QString& label, QWidget* parent = nullptr);

    QString value() const;
    void setValue(const QString& value);

private:
    QLabel* m_label;
    QLabel* m_value;
};

} // namespace quillet
