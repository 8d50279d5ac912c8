#include "platform/screens/sharing/ShareItem.h"

#include <algorithm>

namespace platform {

namespace {

constexpr qsizetype mostBytes = 120; // of a name; file systems take 255 with the suffix
constexpr qsizetype mostOfASuffix = 16;

// What some file system refuses, what is not seen, and what turns the direction of the text around it.
bool isUnsafe(QChar unit) {
    const auto code = unit.unicode();
    return unit.category() == QChar::Other_Control || unit.isSurrogate() ||
           (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069) ||
           QStringView(u"/\\:*?\"<>|").contains(unit);
}

QString withoutUnsafe(const QString& name) {
    QString safe;
    for (qsizetype i = 0; i < name.size(); ++i) {
        const bool isPair = name[i].isHighSurrogate() && i + 1 < name.size() && name[i + 1].isLowSurrogate();
        if (isPair)
            safe += name.sliced(i++, 2);
        else
            safe += isUnsafe(name[i]) ? QChar(u'-') : name[i];
    }
    return safe;
}

QString stemOf(const QString& name) {
    QString stem = withoutUnsafe(name);
    const auto isShown = [](QChar unit) { return unit != u'.' && !unit.isSpace(); };
    stem.remove(0, std::ranges::find_if(stem, isShown) - stem.begin());
    stem.truncate(mostBytes);
    while (stem.toUtf8().size() > mostBytes || (!stem.isEmpty() && stem.back().isHighSurrogate()))
        stem.chop(stem.back().isLowSurrogate() ? 2 : 1);
    stem = stem.trimmed();
    return stem.isEmpty() ? QStringLiteral("Snippet") : stem;
}

QString suffixOf(const QString& wanted) {
    const bool isSafe =
        !wanted.isEmpty() && wanted.size() <= mostOfASuffix && std::ranges::all_of(wanted, [](QChar unit) {
            return unit.isLetterOrNumber() || QStringView(u"+-#_").contains(unit);
        });
    return isSafe ? wanted : QStringLiteral("txt");
}

} // namespace

QString ShareItem::fileName() const {
    return stemOf(name) + u'.' + (image() ? QStringLiteral("png") : suffixOf(suffix));
}

} // namespace platform
