#pragma once

#include "platform/screens/sharing/ShareItem.h"

#include <expected>

namespace platform {

// Writes the item as a whole or not at all: a text as UTF-8 exactly as it is, a picture as PNG. The error is
// for the user.
std::expected<void, QString> writeItem(const ShareItem& item, const QString& path);

// A file of the item for another program, readable by this user alone. It lives until the program ends.
std::expected<QString, QString> temporaryFileOf(const ShareItem& item);

} // namespace platform
