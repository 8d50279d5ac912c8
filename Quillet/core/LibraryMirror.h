#pragma once

#include "platform/mirror/MirrorPolicy.h"

namespace quillet {

// The zones of the user's cloud in which the library and the settings lie.
inline const QString libraryZone = QStringLiteral("Library");
inline const QString settingsZone = QStringLiteral("Settings");

// How the library is mirrored: a text that could not be merged is kept as a segment of its snippet, titled
// "Conflict - " with the date at which it was written.
platform::MirrorPolicy libraryMirrorPolicy();

} // namespace quillet
