#pragma once

#include <QtWidgets/QAbstractButton>

namespace platform {

// A button that looks like a field and leads on to where its text is chosen, with a chevron at its end. Main
// thread.
class DisclosureRow : public QAbstractButton {
    Q_OBJECT

public:
    explicit DisclosureRow(QWidget* parent = nullptr);

    // Shown while there is no text.
    void setPlaceholderText(const QString& text);

    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override; // Return presses, as Space does
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_placeholderText;
};

} // namespace platform
