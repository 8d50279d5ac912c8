#include "examples/editor/files/FileDecoder.h"
#include "examples/editor/files/FileEncoder.h"

#include <QtCore/QByteArray>
#include <gtest/gtest.h>

#include <string>

namespace tessarine::editor {
namespace {

std::span<const std::byte> bytesOf(const QByteArray& bytes) {
    return std::as_bytes(std::span(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

QByteArray encoded(const TextSnapshot& text, const FileFormat& format) {
    QByteArray result;
    encodeFile(text, format, [&result](std::span<const std::byte> bytes) {
        result.append(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
    });
    return result;
}

struct FormatCase {
    FileFormat format;
    QByteArray bytes;
    std::u16string text;
};

// Each with line breaks of every kind.
std::vector<FormatCase> formatCases() {
    using enum FileEncoding;
    return {
        {{utf8, false}, QByteArray("a\r\n\xC3\xA9\n\xF0\x9F\x98\x80\r"), u"a\r\né\n😀\r"},
        {{utf8, true}, QByteArray("\xEF\xBB\xBF\xC3\xA9\n"), u"é\n"},
        {{utf8, false}, QByteArray(), u""},
        {{utf8, true}, QByteArray("\xEF\xBB\xBF"), u""},
        {{utf16LittleEndian, true}, QByteArray("\xFF\xFE\xE9\0\n\0\x3D\xD8\0\xDE", 10), u"é\n😀"},
        {{utf16BigEndian, true}, QByteArray("\xFE\xFF\0\xE9\0\r\xD8\x3D\xDE\0", 10), u"é\r😀"},
        {{utf32LittleEndian, true}, QByteArray("\xFF\xFE\0\0\0\xF6\1\0\n\0\0\0", 12), u"😀\n"},
        {{utf32BigEndian, true}, QByteArray("\0\0\xFE\xFF\0\1\xF6\0\0\0\0\r", 12), u"😀\r"},
        {{windows1252, false}, QByteArray("\x80 \x81 \xE9\r\n"), u"€ \u0081 é\r\n"},
    };
}

TEST(FileFormatTest, EveryFormatComesBackByteForByte) {
    for (const FormatCase& each : formatCases()) {
        const auto decoded = decodeFile(bytesOf(each.bytes));
        ASSERT_TRUE(decoded) << each.bytes.toHex().toStdString();
        EXPECT_EQ(decoded->format, each.format) << each.bytes.toHex().toStdString();
        EXPECT_EQ(decoded->text.text().substring(0, decoded->text.length()), each.text);
        EXPECT_FALSE(decoded->isMalformed);
        EXPECT_EQ(firstUnencodable(decoded->text.text(), each.format.encoding), std::nullopt);
        EXPECT_EQ(encoded(decoded->text.text(), decoded->format), each.bytes);
    }
}

TEST(FileFormatTest, EveryByteOfWindows1252ComesBack) {
    QByteArray bytes;
    for (int byte = 1; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    bytes = bytes.repeated(100); // over the pieces of the decoder
    const auto decoded = decodeFile(bytesOf(bytes));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->format.encoding, FileEncoding::windows1252);
    EXPECT_EQ(encoded(decoded->text.text(), decoded->format), bytes);
}

TEST(FileFormatTest, LongTextsGoThroughTheirPieces) {
    std::u16string text;
    while (text.size() < 20'000)
        text += u"x😀é\n";
    for (const FileEncoding encoding :
         {FileEncoding::utf8, FileEncoding::utf16BigEndian, FileEncoding::utf32LittleEndian}) {
        const QByteArray bytes = encoded(TextStore(text).text(), {encoding, true});
        const auto decoded = decodeFile(bytesOf(bytes));
        ASSERT_TRUE(decoded);
        EXPECT_TRUE(decoded->text.text() == text);
    }
}

TEST(FileFormatTest, MalformedBytesBehindAMarkAreTold) {
    for (const QByteArray& bytes :
         {QByteArray("\xEF\xBB\xBF\xFF"), QByteArray("\xFF\xFE\x41\0\x42", 5),
          QByteArray("\xFF\xFE\0\0\0\xD8\0\0", 8), QByteArray("\0\0\xFE\xFF\0\x11\0\0", 8),
          QByteArray("\0\0\xFE\xFF\0\0\0\x41\0", 9)}) {
        const auto decoded = decodeFile(bytesOf(bytes));
        ASSERT_TRUE(decoded) << bytes.toHex().toStdString();
        EXPECT_TRUE(decoded->isMalformed) << bytes.toHex().toStdString();
    }
}

TEST(FileFormatTest, WhatHoldsNulIsNoText) {
    for (const QByteArray& bytes : {QByteArray("\0", 1), QByteArray("text\0text", 9),
                                    QByteArray("\xFF\xFE\x41\0\0\0", 6), QByteArray("t\0e\0", 4)})
        EXPECT_EQ(decodeFile(bytesOf(bytes)).error(), DecodingError::notText) << bytes.toHex().toStdString();
}

TEST(FileFormatTest, WhatAnEncodingLacksIsFound) {
    const std::u16string lone{u'a', u'é', 0xD83D, u'b'};
    const std::u16string trailing{u'a', 0xDE00};
    const std::u16string open{u'a', u'b', 0xD83D};
    EXPECT_EQ(firstUnencodable(TextStore(lone).text(), FileEncoding::utf8), 2);
    EXPECT_EQ(firstUnencodable(TextStore(trailing).text(), FileEncoding::utf32BigEndian), 1);
    EXPECT_EQ(firstUnencodable(TextStore(open).text(), FileEncoding::utf8), 2);
    EXPECT_EQ(firstUnencodable(TextStore(lone).text(), FileEncoding::utf16LittleEndian), std::nullopt);
    EXPECT_EQ(firstUnencodable(TextStore(u"naïve €").text(), FileEncoding::windows1252), std::nullopt);
    EXPECT_EQ(firstUnencodable(TextStore(u"né → ").text(), FileEncoding::windows1252), 3);
    EXPECT_EQ(formatThatHolds(TextStore(u"→😀").text()), (FileFormat{FileEncoding::utf8, false}));
    EXPECT_EQ(formatThatHolds(TextStore(lone).text()), (FileFormat{FileEncoding::utf16LittleEndian, true}));
}

// Chunks of four units put the halves of pairs into different runs.
TEST(FileFormatTest, PairsOverTwoRunsAreNotLone) {
    const std::u16string text = u"abc😀d😀efé";
    const TextStore store(text, {4, 4});
    EXPECT_EQ(firstUnencodable(store.text(), FileEncoding::utf8), std::nullopt);
    EXPECT_EQ(encoded(store.text(), {FileEncoding::utf32BigEndian, false}),
              encoded(TextStore(text).text(), {FileEncoding::utf32BigEndian, false}));
}

} // namespace
} // namespace tessarine::editor
