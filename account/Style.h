#pragma once

#include <QtCore/QString>

namespace account {

// Of every control that stands on its own in the window, in points.
constexpr int controlHeight = 40;

// How the window's fields and buttons look, in the desktop's appearance. Buttons have roles, a property:
// "kind" (with the property "side"), "plain", "primary", "destructive".
QString windowStyle();

} // namespace account
