#pragma once

#include <QtWidgets/QWidget>

#include <vector>

class QHBoxLayout;
class QKeyEvent;
class QScrollArea;

namespace quillet {

class RowEnd;

// Chips side by side that scroll sideways, without scroll bars, and a button over the row's end. By finger,
// by a wheel of either axis and by the keyboard: arrows, Home and End move among chips that take the focus,
// or scroll a row of others. A chip that gets the focus or becomes checked is brought into view. Main thread.
class ChipRow : public QWidget {
    Q_OBJECT

public:
    // Takes the button, which has a room of 60 points behind the last chip.
    ChipRow(const QString& name, QWidget* endButton, QWidget* parent = nullptr);

    // Shows these in this order, and owns them. One that was shown before and is not named now is deleted; if
    // it had the focus its neighbour gets it.
    void setChips(const std::vector<QWidget*>& chips);

    void scrollToStart();
    void bringIntoView(const QWidget& chip);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void makeArea();
    void adopt(QWidget& chip);
    void moveFocus(const std::vector<QWidget*>& chips);
    bool keyPressed(QWidget& chip, const QKeyEvent& event);
    void placeEnd();
    void rangeChanged();

    QScrollArea* m_area;
    RowEnd* m_end;        // over the area, and no part of it
    QWidget* m_endButton; // over that
    QHBoxLayout* m_row;
    std::vector<QWidget*> m_chips;
};

} // namespace quillet
