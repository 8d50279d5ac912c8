#pragma once

#include <QtWidgets/QLineEdit>

namespace quillet {

// A field for one line of text with room around the text, at least 44 points high. The insets are given once.
class PaddedUITextField : public QLineEdit {
    Q_OBJECT

public:
    static constexpr QMargins defaultInsets{4, 0, 4, 0}; // points, beside what the style leaves

    explicit PaddedUITextField(QMargins insets = defaultInsets, QWidget* parent = nullptr);

    int topInset() const { return m_insets.top(); }

    int leftInset() const { return m_insets.left(); }

    int bottomInset() const { return m_insets.bottom(); }

    int rightInset() const { return m_insets.right(); }

    QMargins insets() const { return m_insets; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    const QMargins m_insets;
};

} // namespace quillet
