#pragma once

#include <QtCore/QString>
#include <QtCore/QVariantMap>
#include <QtGui/QFont>

namespace quillet {

// The attributes of a font descriptor in the settings. Each may be missing, and there may be others.
namespace fontAttribute {

inline const QString family = QStringLiteral("family"); // string
inline const QString weight = QStringLiteral("weight"); // integer, 1 to 1000; 400 is regular, 700 bold
inline const QString italic = QStringLiteral("italic"); // boolean

} // namespace fontAttribute

// The system's monospaced font in the regular weight. `points` are brought between 1 and 512.
QFont monospacedSystemFont(qint64 points);

// The font of these attributes; the monospaced system font in all that they do not tell or tell in a wrong
// type or range. A family that is not installed gives what the system puts in its place.
QFont fontFromDescriptor(const QVariantMap& attributes, qint64 points);

// All attributes of the font; its size is none of them.
QVariantMap descriptorFromFont(const QFont& font);

} // namespace quillet
