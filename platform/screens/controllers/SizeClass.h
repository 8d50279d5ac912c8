#pragma once

class QWidget;

namespace platform {

// How much room a window has from side to side. Below 720 points there is room for one column only.
enum class SizeClass { Compact, Regular };

// Of the window of `widget`.
SizeClass horizontalSizeClass(const QWidget& widget);
SizeClass horizontalSizeClass(int width);

} // namespace platform
