#pragma once

#include "platform/screens/controllers/Presentation.h"

namespace platform {

class ViewController;

// Tells view controllers that they come and go, from the toolkit's events and from those who move them.
// Controllers around one that comes up are told before it. Main thread.
class AppearanceTracker {
public:
    enum class State { Gone, Appearing, Up, Disappearing };

    static void shown(ViewController& controller);
    static void hidden(ViewController& controller);

    // Tells a controller, and those inside, that it is about to be hidden.
    static void leave(ViewController& controller);

    // While one is held, "did" waits for a controller and those inside, and "will" says whether they move.
    class Hold {
    public:
        Hold(ViewController& controller, Animated animated);
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        QPointer<ViewController> m_controller;
        int m_animated; // 1 where it moves
    };

private:
    static bool isHeld(const ViewController& controller);
    static Animated animatedOf(const ViewController& controller);
    static void willDisappear(ViewController& controller);
    static void settleLater(ViewController& controller);
    static void settle(ViewController& controller);
};

} // namespace platform
