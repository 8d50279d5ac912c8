#pragma once

#include <QtWidgets/QWidget>

namespace quillet {

// The ground below a row's end button, over what scrolls there: chips fade out in front of it while more of
// them follow. Main thread.
class RowEnd : public QWidget {
    Q_OBJECT

public:
    explicit RowEnd(QWidget* parent = nullptr);

    // What it needs beside the button's room, points.
    static constexpr int fadeWidth = 16;

    enum class Follow { None, More };

    void setFollowing(Follow follow);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Follow m_follow = Follow::None;
};

} // namespace quillet
