#include "platform/foundation/CodePointOrder.h"

#include <algorithm>

namespace platform {

QString codePointOrderKey(const QString& text) {
    if (std::ranges::all_of(text, [](QChar unit) { return unit.unicode() < 0x80; })) return text;
    QString key = text.normalized(QString::NormalizationForm_D);
    // Surrogates stand for code points above all others, but lie below U+E000 to U+FFFF: the two change
    // places.
    for (QChar& unit : key) {
        if (unit.unicode() >= 0xE000)
            unit = QChar(static_cast<char16_t>(unit.unicode() - 0x800));
        else if (unit.unicode() >= 0xD800)
            unit = QChar(static_cast<char16_t>(unit.unicode() + 0x2000));
    }
    return key;
}

} // namespace platform
