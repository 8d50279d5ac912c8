#include "Tessarine/view/FaceMetrics.h"

#include <QtGui/QFontInfo>
#include <QtGui/QFontMetricsF>
#include <QtGui/QTextLayout>

#include <utility>
#include <vector>

namespace tessarine {

namespace {

// All characters, and what fonts for code like to join.
QString sampleText() {
    QString text;
    for (char16_t unit = u' '; unit <= u'~'; ++unit)
        text += QChar(unit);
    return text +
           QStringLiteral(
               "fi fl ff ffi AV To www -> => --> ==> != !== == === <= >= <- :: && || // /* */ ++ .. ...");
}

std::optional<double> evenAdvanceOf(const QFont& face) {
    if (!QFontInfo(face).fixedPitch()) return std::nullopt;
    static const QString text = sampleText();
    QTextLayout layout(text, face);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    const double advance = line.cursorToX(1);
    for (int at = 1; at <= text.size(); ++at)
        if (line.cursorToX(at) != at * advance) return std::nullopt;
    return advance > 0 ? std::optional(advance) : std::nullopt;
}

FaceMetrics measure(const QFont& face) {
    const QFontMetricsF metrics(face);
    return {.ascent = metrics.ascent(),
            .descent = metrics.descent(),
            .leading = metrics.leading(),
            .unitAdvance = evenAdvanceOf(face)};
}

// A document has a handful of faces; zooming may come by many.
constexpr std::size_t cachedFaces = 64;

} // namespace

FaceMetrics FaceMetrics::of(const QFont& face) {
    thread_local std::vector<std::pair<QFont, FaceMetrics>> cache;
    for (const auto& [known, metrics] : cache)
        if (known == face) return metrics;
    if (cache.size() == cachedFaces) cache.clear();
    return cache.emplace_back(face, measure(face)).second;
}

} // namespace tessarine
