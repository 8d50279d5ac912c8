#pragma once

namespace platform {

// What the user works with at the moment: the keyboard from the first key that moves the focus on, a pointer
// from its first press on. Decides whether focus rings are shown and how large the rows of menus are.
enum class InputKind { Keyboard, Mouse, Touch };

// Main thread. Watches from its first call on; before that and at first it is the mouse.
InputKind currentInput();

} // namespace platform
