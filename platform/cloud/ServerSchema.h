#pragma once

#include <QtCore/QString>

namespace platform {

// The schema that this program expects of a server.
constexpr int serverSchemaVersion = 1;

// The text of schema.sql.
QString serverSchema();

} // namespace platform
