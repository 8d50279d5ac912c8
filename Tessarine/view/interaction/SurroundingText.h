#pragma once

#include <QtCore/QString>

#include <cstdint>

namespace tessarine {

class TextView;

// The text around the caret as an input method is shown it: some hundred code units to each side, without
// what is marked, which is the input method's own.
struct SurroundingText {
    explicit SurroundingText(TextView& textView);

    // From before to behind the caret; offsets in it are in code units.
    QString before;
    QString after;

    // Of the selection's other end; brought into the text.
    int anchor = 0;

    // In the document, of the first unit, and of the caret.
    std::int64_t start = 0;
    std::int64_t caret = 0;
};

} // namespace tessarine
