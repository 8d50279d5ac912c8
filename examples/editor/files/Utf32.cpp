#include "examples/editor/files/Utf32.h"

#include "Tessarine/document/TextStoreBuilder.h"

#include <QtCore/QChar>
#include <QtCore/QtEndian>

#include <string>
#include <vector>

namespace tessarine::editor {

namespace {

constexpr std::size_t width = 4;
constexpr std::size_t pieceUnits = 4096;
constexpr char32_t replacement = 0xFFFD;

char32_t read(const std::uint8_t* bytes, FileEncoding encoding) {
    return encoding == FileEncoding::utf32BigEndian ? qFromBigEndian<char32_t>(bytes)
                                                    : qFromLittleEndian<char32_t>(bytes);
}

void append(std::vector<std::byte>& bytes, char32_t character, FileEncoding encoding) {
    bytes.resize(bytes.size() + width);
    std::byte* const destination = &bytes[bytes.size() - width];
    if (encoding == FileEncoding::utf32BigEndian)
        qToBigEndian(character, destination);
    else
        qToLittleEndian(character, destination);
}

bool isCharacter(char32_t value) {
    return value <= QChar::LastValidCodePoint && !QChar::isSurrogate(value);
}

void append(std::u16string& units, char32_t character) {
    for (const char16_t unit : QChar::fromUcs4(character))
        units += unit;
}

// Puts surrogates together, whose halves may lie in two runs.
class CharacterWriter {
public:
    CharacterWriter(FileEncoding encoding, const std::function<void(std::span<const std::byte>)>& sink)
        : m_encoding(encoding)
        , m_sink(sink) {}

    void write(char16_t unit) {
        if (QChar::isHighSurrogate(unit)) {
            m_lead = unit;
            return;
        }
        append(m_bytes, QChar::isLowSurrogate(unit) ? QChar::surrogateToUcs4(m_lead, unit) : unit,
               m_encoding);
        if (m_bytes.size() >= width * pieceUnits) flush();
    }

    void flush() {
        m_sink(m_bytes);
        m_bytes.clear();
    }

private:
    const FileEncoding m_encoding;
    const std::function<void(std::span<const std::byte>)>& m_sink;
    std::vector<std::byte> m_bytes;
    char16_t m_lead = 0;
};

} // namespace

bool isUtf32(FileEncoding encoding) {
    return encoding == FileEncoding::utf32LittleEndian || encoding == FileEncoding::utf32BigEndian;
}

DecodedUtf32 decodeUtf32(std::span<const std::uint8_t> bytes, FileEncoding encoding) {
    TextStoreBuilder builder;
    std::u16string units;
    bool isMalformed = bytes.size() % width != 0;
    for (std::size_t at = 0; at + width <= bytes.size(); at += width) {
        const char32_t character = read(&bytes[at], encoding);
        isMalformed = isMalformed || !isCharacter(character);
        append(units, isCharacter(character) ? character : replacement);
        if (units.size() < pieceUnits) continue;
        builder.append(units);
        units.clear();
    }
    if (bytes.size() % width != 0) append(units, replacement);
    builder.append(units);
    return {builder.take(), isMalformed};
}

void encodeUtf32(const TextSnapshot& text, FileEncoding encoding,
                 const std::function<void(std::span<const std::byte>)>& sink) {
    CharacterWriter writer(encoding, sink);
    for (const TextRun& run : text.runs())
        for (std::int64_t at = run.location(); at < run.limit(); ++at)
            writer.write(run.at(at));
    writer.flush();
}

} // namespace tessarine::editor
