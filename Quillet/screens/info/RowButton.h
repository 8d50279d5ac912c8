#pragma once

#include <QtWidgets/QAbstractButton>

namespace quillet {

// The button over the end of a row of chips: a symbol of 44 by 33 points in a frame. Main thread.
class RowButton : public QAbstractButton {
    Q_OBJECT

public:
    RowButton(const QString& symbol, const QString& name, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override; // Return presses, as Space does
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_symbol;
};

} // namespace quillet
