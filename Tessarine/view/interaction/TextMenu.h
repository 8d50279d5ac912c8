#pragma once

#include <memory>

class QMenu;
class QWidget;

namespace tessarine {

class TextClipboard;
class TextView;

// The menu of a right click, for what can be done now. It borrows both.
std::unique_ptr<QMenu> textMenu(TextView& textView, TextClipboard& clipboard, QWidget* parent);

} // namespace tessarine
