#pragma once

class QWidget;

namespace platform {

// Whether the focus can be given to `widget` by the Tab key.
bool takesTabFocus(const QWidget& widget);

// Gives the focus to what had it last inside `scope`, else to its focus proxy, else to the first inside that
// proxy, or inside the scope, that takes it; else to the scope itself.
void focusInto(QWidget& scope);

// Moves the focus by one inside `scope`, around its ends.
enum class FocusStep { Next, Previous };
void stepFocus(QWidget& scope, FocusStep step);

} // namespace platform
