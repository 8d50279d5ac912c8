#pragma once

#include <QtCore/QString>

#include <functional>

namespace platform {

// Lets the user choose a program for the file, by the desktop portal; where there is none the file's own
// program opens it. Returns at once. `failed` is called where no program could be found. Main thread.
void openWith(const QString& path, std::function<void()> failed);

} // namespace platform
