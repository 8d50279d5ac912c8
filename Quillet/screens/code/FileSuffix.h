#pragma once

#include <QtCore/QString>

namespace quillet {

// How files of a language usually end, such as "py" for "python"; the language's own name where that is so,
// or where nothing better is known.
QString fileSuffixOf(const QString& language);

} // namespace quillet
