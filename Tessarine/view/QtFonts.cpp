#include "Tessarine/view/QtFonts.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

namespace tessarine {

namespace {

// Behind the last dash of a name.
struct FaceName {
    QString family;
    QString style;

    explicit FaceName(const QString& name)
        : family(name.section(u'-', 0, 0))
        , style(name.section(u'-', 1)) {}

    bool hasStyle(const char* word) const { return style.contains(QLatin1StringView(word)); }

    QFont::Weight weight() const {
        if (hasStyle("Bold")) return QFont::Bold;
        if (hasStyle("Medium")) return QFont::Medium;
        return hasStyle("Light") ? QFont::Light : QFont::Normal;
    }
};

bool isInstalled(const QString& family) {
    return QFontDatabase::hasFamily(family);
}

QFont fixedFont() {
    return QFontDatabase::systemFont(QFontDatabase::FixedFont);
}

// Menlo, and whatever else tells by its name that all of its characters are of one width.
bool isFixedWidthFamily(const QString& family) {
    return family == QLatin1StringView("Menlo") || family.contains(QLatin1StringView("Mono")) ||
           family.contains(QLatin1StringView("Courier"));
}

QFont regular(QFont font) {
    font.setWeight(QFont::Normal);
    font.setItalic(false);
    return font;
}

QFont namedFont(const FaceName& name) {
    QFont font = !isInstalled(name.family) && isFixedWidthFamily(name.family) ? regular(fixedFont())
                                                                              : QFont(name.family);
    font.setWeight(name.weight());
    font.setItalic(name.hasStyle("Italic") || name.hasStyle("Oblique"));
    return font;
}

QFont fontOfName(const std::string& name) {
    if (name == Font::systemName) return regular(QGuiApplication::font());
    if (name == Font::monospacedSystemName) return regular(fixedFont());
    return namedFont(FaceName(QString::fromStdString(name)));
}

// A size may come from a document's settings or a slip in them, and the toolkit makes a picture of each
// glyph.
constexpr double largestSize = 1'000;

// The toolkit rounds to whole pixels even what is set in typographer's points.
QFont makeFont(const Font& font) {
    QFont made = fontOfName(font.name);
    made.setPixelSize(static_cast<int>(std::lround(std::clamp(font.pointSize, 1.0, largestSize))));
    if (font.traits.contains(FontTraits::bold)) made.setBold(true);
    if (font.traits.contains(FontTraits::italic)) made.setItalic(true);
    made.setHintingPreference(QFont::PreferVerticalHinting);
    return made;
}

// A document has a handful of fonts; zooming may come by many.
constexpr std::size_t cachedFonts = 64;

} // namespace

QFont qtFont(const Font& font) {
    thread_local std::vector<std::pair<Font, QFont>> cache;
    for (const auto& [known, made] : cache)
        if (known == font) return made;
    if (cache.size() == cachedFonts) cache.clear();
    return cache.emplace_back(font, makeFont(font)).second;
}

} // namespace tessarine
