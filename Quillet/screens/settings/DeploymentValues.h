#pragma once

#include <QtCore/QString>

namespace quillet::deployment {

// Where this edition of the program points to.
inline const QString supportAddress = QStringLiteral("support@quillet.example");
inline const QString website = QStringLiteral("https://quillet.example/");
inline const QString otherAppName = QStringLiteral("Ashgrove");
inline const QString otherAppPage = QStringLiteral("https://store.example/ashgrove");
inline const QString otherAppImage = QStringLiteral("ashgrove"); // of the resource :/images

} // namespace quillet::deployment
