#pragma once

#include <QtCore/QTimer>

#include <functional>

namespace tessarine {

// Lets a caret blink as fast as the desktop has it, or stand still where the desktop has it so.
class CaretBlink {
public:
    explicit CaretBlink(std::function<void(bool isShown)> show);

    void stop();

    // Shown from now on for half a period: to be called again for whatever moves the caret, so that it is
    // seen while one types.
    void start();

private:
    void show(bool isShown);

    const std::function<void(bool)> m_show;
    QTimer m_timer;
    bool m_isShown = false;
};

} // namespace tessarine
