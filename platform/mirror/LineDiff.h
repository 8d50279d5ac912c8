#pragma once

#include <QtCore/QStringView>

#include <vector>

namespace platform {

using Lines = std::vector<QStringView>;

// Each line with its own break (LF, CR LF or CR); the last one may have none. Views into `text`.
Lines splitLines(QStringView text);

// The lines [baseStart, baseLimit) of a base became the lines [start, limit) of another text.
struct Hunk {
    qsizetype baseStart = 0;
    qsizetype baseLimit = 0;
    qsizetype start = 0;
    qsizetype limit = 0;

    bool operator==(const Hunk&) const = default;
};

// What turns `base` into `other`, in order; between two hunks there is an equal line at least. The fewest
// lines are touched, unless the texts are so different that looking for that would take long: then one hunk
// has all that differs.
std::vector<Hunk> diffLines(const Lines& base, const Lines& other);

} // namespace platform
