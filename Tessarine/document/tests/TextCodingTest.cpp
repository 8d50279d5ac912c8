#include "Tessarine/document/TextDecoder.h"
#include "Tessarine/document/TextEncoder.h"
#include "Tessarine/document/tests/RandomText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <unicode/unistr.h>

using namespace tessarine;
using namespace std::string_literals;

namespace {

constexpr TextStoreLimits small{16, 4};

DecodedText decoded(std::string_view bytes, std::optional<TextEncoding> encoding = std::nullopt,
                    TextStoreLimits limits = small) {
    DecodedText text = decodeText(std::as_bytes(std::span(bytes)), encoding, limits);
    text.text.check();
    return text;
}

std::u16string unitsOf(const DecodedText& decoded) {
    return decoded.text.text().substring(0, decoded.text.length());
}

struct Encoded {
    std::string bytes;
    std::expected<EncodedText, UnencodableText> result;
};

Encoded encoded(const TextSnapshot& text, TextFormat format) {
    Encoded encoded;
    encoded.result = encodeText(text, format, [&encoded](std::span<const std::byte> bytes) {
        encoded.bytes.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    });
    return encoded;
}

Encoded encoded(std::u16string_view text, TextEncoding encoding) {
    return encoded(TextStore(text, small).text(), TextFormat{encoding});
}

std::string utf8ByIcu(const std::u16string& text) {
    std::string bytes;
    return icu::UnicodeString(text.data(), static_cast<std::int32_t>(text.size())).toUTF8String(bytes);
}

TEST(TextDecoder, TellsTheEncodingByTheMarkAndKeepsItOutOfTheText) {
    struct Case {
        std::string bytes;
        TextFormat format;
    };

    const Case cases[] = {{"a\xC3\xA9"s, {TextEncoding::utf8, false}},
                          {"\xEF\xBB\xBF"
                           "a\xC3\xA9"s,
                           {TextEncoding::utf8, true}},
                          {"\xFF\xFE"
                           "a\0\xE9\0"s,
                           {TextEncoding::utf16LittleEndian, true}},
                          {"\xFE\xFF\0a\0\xE9"s, {TextEncoding::utf16BigEndian, true}}};
    for (const auto& [bytes, format] : cases) {
        const DecodedText text = decoded(bytes);
        EXPECT_EQ(unitsOf(text), u"a\u00E9");
        EXPECT_EQ(text.format, format);
        EXPECT_FALSE(text.hasReplacements);
        EXPECT_EQ(encoded(text.text.text(), format).bytes, bytes);
    }
}

TEST(TextDecoder, AGivenEncodingTakesOnlyItsOwnMarkAndOnlyOnce) {
    EXPECT_EQ(unitsOf(decoded("\xEF\xBB\xBFx"s, TextEncoding::latin1)), u"\u00EF\u00BB\u00BFx");
    EXPECT_EQ(unitsOf(decoded("\xFF\xFEx\0"s, TextEncoding::utf16BigEndian)), u"\uFFFE\u7800");
    EXPECT_EQ(unitsOf(decoded("x\0"s, TextEncoding::utf16LittleEndian)), u"x");
    EXPECT_FALSE(decoded("x\0"s, TextEncoding::utf16LittleEndian).format.hasByteOrderMark);
    EXPECT_EQ(unitsOf(decoded("\xEF\xBB\xBF\xEF\xBB\xBFx"s)), u"\uFEFFx");
    EXPECT_EQ(unitsOf(decoded("\xEF\xBB"s)), u"\uFFFD");
    EXPECT_EQ(decoded("").text.length(), 0);
}

// The sequences and their results stand in the Unicode standard, chapter 3, on U+FFFD substitution.
TEST(TextDecoder, EachMaximalPartOfMalformedUtf8BecomesOneReplacement) {
    struct Case {
        std::string bytes;
        std::u16string text;
    };

    const Case cases[] = {
        {"\xC0\xAF\xE0\x80\xBF\xF0\x81\x82\x41"s, u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA"},
        {"\xED\xA0\x80\xED\xBF\xBF\xED\xAF\x41"s, u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA"},
        {"\xF4\x91\x92\x93\xFF\x41\x80\xBF\x42"s, u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA\uFFFD\uFFFDB"},
        {"\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41"s, u"\uFFFD\uFFFD\uFFFD\uFFFDA"},
        {"x\xC3"s, u"x\uFFFD"},
        {"x\xE2\x82"s, u"x\uFFFD"},
        {"x\xF0\x9F\x98"s, u"x\uFFFD"},
        {"\xF0\x9F\x98\xE2\x82\xAC"s, u"\uFFFD\u20AC"},
        {"\xC1\xBF"s, u"\uFFFD\uFFFD"},
        {"\xF5\x80"s, u"\uFFFD\uFFFD"}};
    for (const auto& [bytes, text] : cases) {
        // Alone, and where the quick way over ASCII ends and begins.
        for (const std::size_t padding : {0, 15, 40, 2000}) {
            const std::string before(padding, '-');
            const std::u16string wideBefore(padding, u'-');
            const DecodedText result = decoded(std::string(before).append(bytes).append(before));
            EXPECT_EQ(unitsOf(result), std::u16string(wideBefore).append(text).append(wideBefore));
            EXPECT_TRUE(result.hasReplacements);
        }
    }
}

TEST(TextDecoder, TheEndsOfEveryLengthOfUtf8AreWellFormed) {
    const DecodedText text = decoded("\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"
                                     "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"s);
    EXPECT_EQ(unitsOf(text), u"\u007F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF");
    EXPECT_FALSE(text.hasReplacements);
}

TEST(TextDecoder, HalfAUnitOfUtf16IsReplacedAndLoneSurrogatesStay) {
    const DecodedText text = decoded("\0\xD8x\0\0\xDCy"s, TextEncoding::utf16LittleEndian);
    EXPECT_EQ(unitsOf(text), u"\xD800x\xDC00\uFFFD");
    EXPECT_TRUE(text.hasReplacements);
    EXPECT_FALSE(decoded("\0\xD8"s, TextEncoding::utf16LittleEndian).hasReplacements);
}

TEST(TextEncoder, UnitsThatTheEncodingDoesNotHave) {
    const Encoded loneSurrogates = encoded(u"a\xD800\xD83D\xDE00\xDC00z\xD800", TextEncoding::utf8);
    EXPECT_EQ(loneSurrogates.bytes, "a\xEF\xBF\xBD\xF0\x9F\x98\x80\xEF\xBF\xBDz\xEF\xBF\xBD");
    EXPECT_TRUE(loneSurrogates.result->hasReplacements);
    EXPECT_EQ(encoded(u"\xD800", TextEncoding::utf16BigEndian).bytes, "\xD8\0"s);

    const std::u16string latin(100, u'\u00FF');
    EXPECT_EQ(encoded(latin, TextEncoding::latin1).bytes, std::string(100, '\xFF'));
    const Encoded beyond = encoded(latin + u"a\u0100\u0100", TextEncoding::latin1);
    EXPECT_EQ(beyond.result.error().location, 101);
    EXPECT_EQ(beyond.bytes, "");
}

// What is saved loads again as it was, over the borders of chunks of every kind.
TEST(TextCoding, RandomTextsRoundTrip) {
    for (std::uint32_t seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE(seed);
        RandomText random(seed);
        const std::u16string text = random.units(random.upTo(5000));
        const TextStoreLimits limits = seed % 2 ? small : TextStoreLimits();
        const TextStore store(text, limits);
        for (const TextEncoding encoding : {TextEncoding::utf16LittleEndian, TextEncoding::utf16BigEndian}) {
            const TextFormat format{encoding, true};
            const DecodedText again = decoded(encoded(store.text(), format).bytes, std::nullopt, limits);
            EXPECT_EQ(unitsOf(again), text);
            EXPECT_EQ(again.format, format);
        }
        const Encoded utf8 = encoded(store.text(), {TextEncoding::utf8});
        EXPECT_EQ(utf8.bytes, utf8ByIcu(text));
        const DecodedText again = decoded(utf8.bytes, std::nullopt, limits);
        EXPECT_FALSE(again.hasReplacements);
        EXPECT_EQ(encoded(again.text.text(), {TextEncoding::utf8}).bytes, utf8.bytes);
        EXPECT_EQ(unitsOf(again) == text, !utf8.result->hasReplacements);
    }
}

} // namespace
