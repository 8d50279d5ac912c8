#pragma once

#include <QtWidgets/QWidget>

class QLabel;

namespace quillet {

// A text in the middle of a rounded border. Main thread.
class BorderedLabel : public QWidget {
    Q_OBJECT

public:
    explicit BorderedLabel(const QString& text = {}, QWidget* parent = nullptr);

    QString text() const;
    void setText(const QString& text);

    QLabel& label() { return *m_label; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* m_label;
};

} // namespace quillet
