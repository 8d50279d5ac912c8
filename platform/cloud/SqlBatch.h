#pragma once

#include <QtCore/QVariant>

#include <vector>

namespace platform {

// Rows that one statement works on together, all at once where the server can: see the word $batch of
// SqlConnection.
struct SqlBatch {
    enum class Kind { Text, Bytes, Flag };

    struct Column {
        QString name;
        Kind kind = Kind::Text;
    };

    std::vector<Column> columns;
    std::vector<QVariantList> rows; // a QString, a QByteArray or a bool for each column, never null
};

} // namespace platform
