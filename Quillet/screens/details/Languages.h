#pragma once

#include <QtCore/QStringList>

namespace quillet {

// The languages that a snippet can have, in the highlighter's order, but for one that is kept out by its
// name.
const QStringList& languages();

} // namespace quillet
