#include "platform/screens/sharing/ShareItem.h"

namespace platform {

namespace {

constexpr qsizetype mostBytes = 120; // of a name; file systems take 255 with the suffix

} // namespace

QString ShareItem::fileName() const {
    QString safe;
    for (const QChar unit : name) {
        const bool isUnsafe =
            unit.unicode() < 0x20 || unit.unicode() == 0x7F || QStringLiteral("/\\:*?\"<>|").contains(unit);
        safe += isUnsafe ? u'-' : unit;
    }
    safe = safe.trimmed();
    while (safe.startsWith(u'.'))
        safe.remove(0, 1);
    while (safe.toUtf8().size() > mostBytes)
        safe.chop(safe.back().isLowSurrogate() ? 2 : 1);
    if (safe.isEmpty()) safe = QStringLiteral("Snippet");
    const QString end = isImage() ? QStringLiteral("png") : suffix.isEmpty() ? QStringLiteral("txt") : suffix;
    return safe + u'.' + end;
}

} // namespace platform
