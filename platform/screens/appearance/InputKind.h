#pragma once

#include "platform/foundation/Observable.h"

namespace platform {

// What the user works with at the moment: the keyboard from the first key that moves the focus on, a pointer
// from its first press on. Decides whether focus rings are shown and how large the rows of menus are.
enum class InputKind { Keyboard, Mouse, Touch };

// Watched from the first call on; at first it is the mouse. Main thread.
Observable<InputKind>& input();

inline InputKind currentInput() {
    return input().value();
}

} // namespace platform
