#include "Tessarine/textview/KeyboardObserver.h"

#include <algorithm>

namespace tessarine {

void KeyboardObserver::setKeyboardHeight(double height) {
    const double oldHeight = std::exchange(m_keyboardHeight, std::max(0.0, height));
    const auto delegate = m_delegate.lock();
    if (!delegate || m_keyboardHeight == oldHeight) return;
    if (m_keyboardHeight == 0)
        delegate->keyboardWillHide();
    else if (oldHeight == 0)
        delegate->keyboardWillShow(m_keyboardHeight);
    else
        delegate->keyboardDidChangeHeight(m_keyboardHeight);
}

} // namespace tessarine
