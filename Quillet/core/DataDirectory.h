#pragma once

#include <QtCore/QString>

namespace quillet {

// Where the program keeps all it stores: $XDG_DATA_HOME/Quillet, else ~/.local/share/Quillet. May not exist.
QString dataDirectory();

} // namespace quillet
