#pragma once

#include "Tessarine/document/AttributedString.h"
#include "Tessarine/view/RowStyles.h"

#include <QtCore/QString>

#include <vector>

namespace tessarine {

// What there is to be seen of a stretch of a string: enough to lay it out at any time, and small.
struct RowText {
    struct Run {
        int length = 0;
        std::shared_ptr<const RowStyle> style;

        friend bool operator==(const Run&, const Run&) = default;
    };

    // Unit for unit that of the string, but for what the toolkit does not show as text.
    QString text;
    std::vector<Run> runs; // cover the text
    double tabInterval = 0;
    bool isRightToLeft = false;  // as a whole
    bool hasRightToLeft = false; // at least a part
    bool hasEvenUnits = false;   // each as wide as its face says; none where the text ends in a line break

    static RowText of(const AttributedString& string, const TextRange& range, RowStyles& styles);

    // Whether places in it can be reckoned: see EvenRow.h.
    bool isEven() const { return hasEvenUnits && !isRightToLeft; }

    RowText part(int start, int length) const;

    RowText prefix(int length) const { return part(0, length); }

    // Without regard to colours: for measuring, as each run is shaped by itself.
    RowText withRunsOfFaces() const;

    // Whether they look the same.
    friend bool operator==(const RowText&, const RowText&) = default;
};

} // namespace tessarine
