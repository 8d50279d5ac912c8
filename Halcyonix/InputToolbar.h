#pragma once

#include "Halcyonix/DoneButton.h"

#include <QtWidgets/QWidget>

class QHBoxLayout;
class QLabel;

namespace halcyonix {

// The bar above an on-screen keyboard: at its trailing end the button that puts the keyboard away, at its
// leading end, where wanted, what is being written. 44 points high.
class InputToolbar : public QWidget {
    Q_OBJECT

public:
    explicit InputToolbar(platform::Asset tint, QWidget* parent = nullptr);

    DoneButton& doneButton() { return *m_doneButton; }

    // Made at the first call.
    QLabel& placeHolderButton();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QHBoxLayout* m_row;
    DoneButton* m_doneButton;
    QLabel* m_placeHolderButton = nullptr;
};

// The width in which a line of text reads well, at most, and what a narrower area leaves of it.
int readableWidth(int available);

} // namespace halcyonix
