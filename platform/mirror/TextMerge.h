#pragma once

#include <QtCore/QString>

namespace platform {

struct MergedText {
    QString text;
    // Some of the earlier text is not in it.
    bool isConflict = false;

    bool operator==(const MergedText&) const = default;
};

// Merges two texts that were both made from `base`, by lines. Changes that do not overlap are both taken,
// equal ones once; where they overlap the later text's stays. Line breaks are kept as they are. Takes time in
// proportion to the texts, and to their differences up to a bound.
MergedText mergeTexts(const QString& base, const QString& earlier, const QString& later);

} // namespace platform
