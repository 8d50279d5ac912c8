#pragma once

class QPushButton;

namespace platform {

// How a push button looks. Without one a flat button is Plain, a dialog's default button Prominent, another
// Bordered.
enum class ButtonRole {
    Plain,       // text in the accent
    Bordered,    // a card with an edge
    Prominent,   // filled: the one that a screen is there for
    Destructive, // text in red
    Segment,     // one of a row of checkable buttons in an exclusive group, which share an outline
};

void setButtonRole(QPushButton& button, ButtonRole role);
ButtonRole buttonRole(const QPushButton& button);

} // namespace platform
