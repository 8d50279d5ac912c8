#pragma once

#include <QtWidgets/QScrollArea>

#include <vector>

class QHBoxLayout;

namespace quillet {

// Chips side by side that scroll sideways, without scroll bars, and a button over the row's end. By finger,
// wheel and keyboard; a chip that gets the focus or becomes checked is brought into view. Main thread.
class ChipRow : public QScrollArea {
    Q_OBJECT

public:
    // Takes the button, which has a room of 60 points behind the last chip.
    explicit ChipRow(QWidget* endButton, QWidget* parent = nullptr);

    // Shows these in this order, and owns them. One that was shown before and is not named now is deleted.
    void setChips(const std::vector<QWidget*>& chips);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void bringIntoView(const QWidget& chip);
    void placeEndButton();

    QWidget* m_endButton;
    QHBoxLayout* m_row;
    std::vector<QWidget*> m_chips;
};

} // namespace quillet
