#pragma once

#include "Tessarine/textview/KeyboardObserverDelegate.h"

#include <memory>
#include <utility>

namespace tessarine {

// Knows of the keyboard on the screen what the host tells. Main thread.
class KeyboardObserver {
public:
    void setDelegate(std::weak_ptr<KeyboardObserverDelegate> delegate) { m_delegate = std::move(delegate); }

    // What it covers of the text view, in points; 0 while it is hidden.
    double keyboardHeight() const { return m_keyboardHeight; }

    bool isKeyboardVisible() const { return m_keyboardHeight > 0; }

    // Told by the host. A height that is not above 0 hides it.
    void setKeyboardHeight(double height);

private:
    std::weak_ptr<KeyboardObserverDelegate> m_delegate;
    double m_keyboardHeight = 0;
};

} // namespace tessarine
