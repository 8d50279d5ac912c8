#pragma once

#include <QtGui/QFont>

#include <optional>

namespace tessarine {

// How high a face is, and how wide its letters are if they all are alike. In points.
struct FaceMetrics {
    double ascent = 0;
    double descent = 0;
    double leading = 0;

    // Of each of the printable ASCII characters, whichever stand beside it; nothing if they differ.
    std::optional<double> unitAdvance;

    // Measured once for each face and thread.
    static FaceMetrics of(const QFont& face);
};

} // namespace tessarine
