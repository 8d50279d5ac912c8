#include "platform/foundation/GeneralizedUtf8.h"

#include <algorithm>

namespace platform {

namespace {

void appendSequence(QByteArray& out, char32_t point) {
    const auto tail = [&out, point](int shift) {
        out.append(static_cast<char>(0x80 | ((point >> shift) & 0x3F)));
    };
    if (point < 0x80) {
        out.append(static_cast<char>(point));
    } else if (point < 0x800) {
        out.append(static_cast<char>(0xC0 | (point >> 6)));
        tail(0);
    } else if (point < 0x10000) {
        out.append(static_cast<char>(0xE0 | (point >> 12)));
        tail(6);
        tail(0);
    } else {
        out.append(static_cast<char>(0xF0 | (point >> 18)));
        tail(12);
        tail(6);
        tail(0);
    }
}

// How many bytes a sequence that starts with `lead` has; 0 for a byte that starts none.
int sequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    if (lead >= 0xF0 && lead < 0xF5) return 4;
    return 0;
}

// The code point of the sequence at `start`, or nothing where it is cut, overlong or out of range.
bool decodeAt(const QByteArray& bytes, qsizetype start, int length, char32_t& point) {
    static constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    static constexpr unsigned char leadMask[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    if (length == 0 || start + length > bytes.size()) return false;
    point = static_cast<unsigned char>(bytes[start]) & leadMask[length];
    for (int i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[start + i]);
        if ((byte & 0xC0) != 0x80) return false;
        point = (point << 6) | (byte & 0x3F);
    }
    return point >= smallest[length] && point <= 0x10FFFF;
}

} // namespace

bool isPlainText(const QString& text) {
    const auto isAltered = [](QChar unit) { return unit == u'\0' || unit == u'\uFFFE' || unit == u'\uFFFF'; };
    return !text.startsWith(QChar::ByteOrderMark) && std::ranges::none_of(text, isAltered) &&
           text.isValidUtf16();
}

QByteArray toGeneralizedUtf8(const QString& text) {
    QByteArray out;
    out.reserve(text.size() + text.size() / 8);
    for (qsizetype i = 0; i < text.size(); ++i) {
        char32_t point = text[i].unicode();
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            point = QChar::surrogateToUcs4(text[i], text[i + 1]);
            ++i;
        }
        appendSequence(out, point);
    }
    return out;
}

QString fromGeneralizedUtf8(const QByteArray& bytes) {
    QString out;
    out.reserve(bytes.size());
    for (qsizetype i = 0; i < bytes.size();) {
        const int length = sequenceLength(static_cast<unsigned char>(bytes[i]));
        char32_t point = 0;
        if (!decodeAt(bytes, i, length, point)) {
            out.append(QChar::ReplacementCharacter);
            ++i;
            continue;
        }
        if (point < 0x10000) {
            out.append(QChar(static_cast<char16_t>(point)));
        } else {
            out.append(QChar(QChar::highSurrogate(point)));
            out.append(QChar(QChar::lowSurrogate(point)));
        }
        i += length;
    }
    return out;
}

} // namespace platform
