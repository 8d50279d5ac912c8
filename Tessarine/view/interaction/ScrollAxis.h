#pragma once

class QScrollBar;

namespace tessarine {

// One direction of scrolling, on a scroll bar. The bar counts in `int`: points as long as these are enough,
// larger steps for contents beyond. An offset keeps its fraction until the bar is moved. In points.
class ScrollAxis {
public:
    // The bar outlives it.
    explicit ScrollAxis(QScrollBar& bar)
        : m_bar(bar) {}

    struct State {
        double minimum = 0; // offset
        double maximum = 0; // offset
        double page = 0;    // what shows at once
        double line = 0;    // what a click on an arrow moves
        double offset = 0;
    };

    void show(const State& state);

    // Of the bar as it stands.
    double offset() const;

private:
    int units(double points) const;

    QScrollBar& m_bar;
    State m_state;
    double m_unit = 1; // points of one step of the bar
    int m_value = 0;   // that stands for the offset of the state
};

} // namespace tessarine
