#include "Quillet/core/FontDescriptor.h"

#include "platform/foundation/GeneralizedUtf8.h"
#include "platform/store/PropertyList.h"

#include <QtGui/QFontDatabase>

#include <algorithm>

namespace quillet {

namespace {

using platform::exactly;

constexpr qsizetype longestFamily = 256; // in code units; the system's matching is slow on long texts

bool isFamily(const QString& name) {
    return !name.isEmpty() && name.size() <= longestFamily && platform::isPlainText(name);
}

} // namespace

QFont monospacedSystemFont(qint64 points) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setStyleHint(QFont::Monospace);
    font.setWeight(QFont::Normal);
    font.setItalic(false);
    font.setPointSize(static_cast<int>(std::clamp<qint64>(points, 1, 512)));
    return font;
}

QFont fontFromDescriptor(const QVariantMap& attributes, qint64 points) {
    QFont font = monospacedSystemFont(points);
    if (const auto family = exactly<QString>(attributes.value(fontAttribute::family));
        family && isFamily(*family))
        font.setFamilies({*family});
    if (const auto weight = exactly<qint64>(attributes.value(fontAttribute::weight));
        weight && *weight >= 1 && *weight <= 1000)
        font.setWeight(static_cast<QFont::Weight>(*weight));
    font.setItalic(exactly<bool>(attributes.value(fontAttribute::italic)).value_or(false));
    return font;
}

QVariantMap descriptorFromFont(const QFont& font) {
    return {{fontAttribute::family, font.family()},
            {fontAttribute::weight, static_cast<qint64>(font.weight())},
            {fontAttribute::italic, font.italic()}};
}

} // namespace quillet
