#pragma once

#include <QtWidgets/QAbstractButton>

namespace platform {

// A button that looks like a field and leads on to where its text is chosen, with a chevron at its end. Main
// thread.
class DisclosureRow : public QAbstractButton {
    Q_OBJECT

public:
    explicit DisclosureRow(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override; // Return presses, as Space does
    void paintEvent(QPaintEvent* event) override;
};

} // namespace platform
