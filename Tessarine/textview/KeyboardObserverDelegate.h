#pragma once

namespace tessarine {

// Who has to keep clear of a keyboard on the screen. Heights in points, of what it covers. Main thread.
class KeyboardObserverDelegate {
public:
    KeyboardObserverDelegate() = default;
    KeyboardObserverDelegate(const KeyboardObserverDelegate&) = delete;
    KeyboardObserverDelegate& operator=(const KeyboardObserverDelegate&) = delete;
    virtual ~KeyboardObserverDelegate() = default;

    virtual void keyboardWillShow(double height) = 0;
    virtual void keyboardWillHide() = 0;
    virtual void keyboardDidChangeHeight(double height) = 0; // while it shows
};

} // namespace tessarine
