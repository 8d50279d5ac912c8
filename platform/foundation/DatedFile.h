#pragma once

#include <QtCore/QString>

namespace platform {

// A path beside `path` for what a file was until now: its name and the present moment. No such file exists.
QString datedBeside(const QString& path);

} // namespace platform
