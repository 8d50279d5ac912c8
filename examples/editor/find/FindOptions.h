#pragma once

#include <QtCore/QString>

namespace tessarine::editor {

// What a person looks for.
struct FindOptions {
    QString text;
    bool isCaseSensitive = false;
    bool isWholeWord = false;
    bool isRegularExpression = false;

    friend bool operator==(const FindOptions&, const FindOptions&) = default;
};

} // namespace tessarine::editor
