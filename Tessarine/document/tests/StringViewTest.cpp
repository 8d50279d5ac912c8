#include "Tessarine/document/StringView.h"

#include <gtest/gtest.h>

#include <cstring>

using namespace tessarine;

namespace {

std::u16string textOf(const StringViewBytesResult& result) {
    std::u16string text(static_cast<std::size_t>(result.length.value() / 2), u'\0');
    std::memcpy(text.data(), result.bytes.get(), static_cast<std::size_t>(result.length.value()));
    return text;
}

std::u16string textAt(const StringView& view, std::int64_t byteIndex) {
    const auto piece = view.bytesAt(byteIndex);
    return piece ? textOf(*piece) : u"nothing";
}

// 10,000 units that tell where they stand, wide ones among narrow ones.
std::u16string numberedText() {
    std::u16string text;
    for (int i = 0; i < 10'000; ++i)
        text += static_cast<char16_t>(i / 3000 % 2 == 0 ? i % 251 : i);
    return text;
}

TEST(StringView, AnEqualTextKeepsTheConvertedStringAndAReplacementDropsIt) {
    StringView view(u"text");
    const char16_t* converted = view.string().data();
    view.setInternalString(u"text");
    EXPECT_EQ(view.string().data(), converted);

    view.replaceCharacters(0, 2, u"te");
    const std::u16string sameText = view.string();
    EXPECT_EQ(sameText, u"text");
    view.setInternalString(u"texts");
    EXPECT_EQ(view.string(), u"texts");
    EXPECT_EQ(view.length(), 5);
}

TEST(StringView, TakesAViewOfItsOwnConvertedString) {
    StringView view(u"abc");
    view.replaceCharacters(1, 1, view.string());
    EXPECT_EQ(view.string(), u"aabcc");
    view.setInternalString(std::u16string_view(view.string()).substr(2));
    EXPECT_EQ(view.string(), u"bcc");
}

TEST(StringView, ReadsBesideTheLastReadSeeEveryChange) {
    const std::u16string model = numberedText();
    StringView view(model);
    for (std::size_t i = 0; i < model.size(); ++i)
        ASSERT_EQ(view.characterAt(i), model[i]);
    view.replaceCharacters(9999, 1, u"\u0416");
    EXPECT_EQ(view.characterAt(9999), u'\u0416');
    EXPECT_EQ(view.characterAt(1), model[1]);
    view.setInternalString(u"xy");
    EXPECT_EQ(view.characterAt(1), u'y');
}

TEST(StringView, SnapshotKeepsTheTextOfItsMoment) {
    StringView view(u"before");
    const TextSnapshot snapshot = view.snapshot();
    view.replaceCharacters(0, 6, u"after");
    EXPECT_TRUE(snapshot == u"before");
    EXPECT_EQ(view.substring(0, 5), u"after");
}

TEST(StringViewBytes, ComeInPiecesOf4096AndWholeUnits) {
    const std::u16string model = numberedText();
    const StringView view(model);
    std::u16string read;
    while (const auto piece = view.bytesAt(ByteCount::of(read))) {
        ASSERT_GT(piece->length, 0);
        ASSERT_LE(piece->length, 4096);
        read += textOf(*piece);
    }
    EXPECT_EQ(read, model);
    for (const std::int64_t at : {0, 1, 2, 4095, 4097, 11'999, 15'904, 15'905, 19'998})
        EXPECT_EQ(textAt(view, at), model.substr(at / 2, 2048)) << at;
}

TEST(StringViewBytes, EndAtTheEndAndRoundTheLastByteDown) {
    const StringView view(u"ab\u0416");
    EXPECT_EQ(textAt(view, 5), u"\u0416");
    EXPECT_EQ(textAt(view, 3), u"b\u0416");
    EXPECT_FALSE(view.bytesAt(6));
    EXPECT_FALSE(view.bytesAt(7));
    EXPECT_FALSE(view.bytesAt(-1));
    EXPECT_FALSE(StringView().bytesAt(0));
}

} // namespace
