#include "examples/editor/files/FileFormat.h"

#include <array>

namespace tessarine::editor {

namespace {

QString encodingName(FileEncoding encoding) {
    switch (encoding) {
    case FileEncoding::utf8:
        return QStringLiteral("UTF-8");
    case FileEncoding::utf16LittleEndian:
        return QStringLiteral("UTF-16 LE");
    case FileEncoding::utf16BigEndian:
        return QStringLiteral("UTF-16 BE");
    case FileEncoding::utf32LittleEndian:
        return QStringLiteral("UTF-32 LE");
    case FileEncoding::utf32BigEndian:
        return QStringLiteral("UTF-32 BE");
    case FileEncoding::windows1252:
        break;
    }
    return QStringLiteral("Windows-1252");
}

} // namespace

QString displayName(const FileFormat& format) {
    const bool isWorthTelling = format.encoding == FileEncoding::utf8 && format.hasByteOrderMark;
    return encodingName(format.encoding) + (isWorthTelling ? QStringLiteral(" with BOM") : QString());
}

std::span<const std::uint8_t> byteOrderMark(FileEncoding encoding) {
    static constexpr std::array<std::uint8_t, 3> utf8{0xEF, 0xBB, 0xBF};
    static constexpr std::array<std::uint8_t, 4> little{0xFF, 0xFE, 0, 0};
    static constexpr std::array<std::uint8_t, 4> big{0, 0, 0xFE, 0xFF};
    switch (encoding) {
    case FileEncoding::utf8:
        return utf8;
    case FileEncoding::utf16LittleEndian:
        return std::span(little).first(2);
    case FileEncoding::utf16BigEndian:
        return std::span(big).last(2);
    case FileEncoding::utf32LittleEndian:
        return little;
    case FileEncoding::utf32BigEndian:
        return big;
    case FileEncoding::windows1252:
        break;
    }
    return {};
}

} // namespace tessarine::editor
