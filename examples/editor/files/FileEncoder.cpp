#include "examples/editor/files/FileEncoder.h"

#include "Tessarine/document/TextEncoder.h"
#include "examples/editor/files/Utf32.h"
#include "examples/editor/files/Windows1252.h"

#include <QtCore/QChar>

#include <algorithm>
#include <vector>

namespace tessarine::editor {

namespace {

using Sink = std::function<void(std::span<const std::byte>)>;

std::optional<std::int64_t> firstOutsideWindows1252(const TextSnapshot& text) {
    for (const TextRun& run : text.runs())
        for (std::int64_t at = run.location(); at < run.limit(); ++at)
            if (!toWindows1252(run.at(at))) return at;
    return std::nullopt;
}

std::optional<std::int64_t> firstLoneSurrogate(const TextSnapshot& text) {
    bool isBehindLead = false;
    for (const TextRun& run : text.runs()) {
        if (!run.isWide() && !isBehindLead) continue;
        for (std::int64_t at = run.location(); at < run.limit(); ++at) {
            const char16_t unit = run.at(at);
            if (isBehindLead && !QChar::isLowSurrogate(unit)) return at - 1;
            if (!isBehindLead && QChar::isLowSurrogate(unit)) return at;
            isBehindLead = QChar::isHighSurrogate(unit);
        }
    }
    return isBehindLead ? std::optional(text.length() - 1) : std::nullopt;
}

void encodeWindows1252(const TextSnapshot& text, const Sink& sink) {
    std::vector<std::byte> bytes;
    for (const TextRun& run : text.runs()) {
        bytes.clear();
        for (std::int64_t at = run.location(); at < run.limit(); ++at)
            bytes.push_back(static_cast<std::byte>(*toWindows1252(run.at(at))));
        sink(bytes);
    }
}

TextEncoding engineEncoding(FileEncoding encoding) {
    if (encoding == FileEncoding::utf16LittleEndian) return TextEncoding::utf16LittleEndian;
    if (encoding == FileEncoding::utf16BigEndian) return TextEncoding::utf16BigEndian;
    return TextEncoding::utf8;
}

} // namespace

std::optional<std::int64_t> firstUnencodable(const TextSnapshot& text, FileEncoding encoding) {
    switch (encoding) {
    case FileEncoding::windows1252:
        return firstOutsideWindows1252(text);
    case FileEncoding::utf16LittleEndian:
    case FileEncoding::utf16BigEndian:
        return std::nullopt;
    case FileEncoding::utf8:
    case FileEncoding::utf32LittleEndian:
    case FileEncoding::utf32BigEndian:
        break;
    }
    return firstLoneSurrogate(text);
}

FileFormat formatThatHolds(const TextSnapshot& text) {
    if (firstLoneSurrogate(text)) return {FileEncoding::utf16LittleEndian, true};
    return {FileEncoding::utf8, false};
}

void encodeFile(const TextSnapshot& text, const FileFormat& format, const Sink& sink) {
    if (format.hasByteOrderMark) sink(std::as_bytes(byteOrderMark(format.encoding)));
    if (format.encoding == FileEncoding::windows1252)
        encodeWindows1252(text, sink);
    else if (isUtf32(format.encoding))
        encodeUtf32(text, format.encoding, sink);
    else // UTF-8 and UTF-16 have no error
        static_cast<void>(encodeText(text, {engineEncoding(format.encoding), false}, sink));
}

} // namespace tessarine::editor
