#include "Tessarine/document/UnicodeText.h"

#include "Tessarine/document/TextStore.h"
#include "Tessarine/document/tests/RandomText.h"

#include <gtest/gtest.h>

#include <memory>
#include <unicode/brkiter.h>
#include <unicode/regex.h>
#include <utility>
#include <vector>

using namespace tessarine;

namespace {

constexpr TextStoreLimits small{8, 4};

// A text over many windows, in which every other window would begin inside of a pair, behind lone surrogates.
std::u16string pairsAcrossWindows() {
    std::u16string text = u"\xDE00\xD83D-";
    for (int i = 0; i < 600; ++i)
        text += u"\U0001F600";
    return text + u"ab\xD83D" + text + u"\xD83D";
}

std::vector<std::u16string> sampleTexts() {
    std::vector<std::u16string> texts{u"", u"x", u"\U0001F600", std::u16string(512, u'a'),
                                      pairsAcrossWindows()};
    for (std::uint32_t seed = 1; seed <= 6; ++seed)
        texts.push_back(RandomText(seed).units(2500));
    return texts;
}

// ICU's own text over a flat string, to compare with.
class FlatText {
public:
    explicit FlatText(const std::u16string& text) {
        UErrorCode status = U_ZERO_ERROR;
        utext_openUChars(&m_text, text.data(), static_cast<std::int64_t>(text.size()), &status);
    }

    FlatText(const FlatText&) = delete;

    ~FlatText() { utext_close(&m_text); }

    UText* get() { return &m_text; }

private:
    UText m_text = UTEXT_INITIALIZER;
};

using Position = std::pair<UChar32, std::int64_t>;

Position next(UText* text) {
    const UChar32 character = utext_next32(text);
    return {character, utext_getNativeIndex(text)};
}

Position previous(UText* text) {
    const UChar32 character = utext_previous32(text);
    return {character, utext_getNativeIndex(text)};
}

TEST(UnicodeText, IteratesAsAFlatText) {
    for (const std::u16string& text : sampleTexts()) {
        const TextStore store(text, small);
        UnicodeText ours(store.text());
        FlatText flat(text);
        EXPECT_EQ(utext_nativeLength(ours.get()), static_cast<std::int64_t>(text.size()));
        for (Position at{0, 0}; at.first != U_SENTINEL;) {
            at = next(flat.get());
            ASSERT_EQ(next(ours.get()), at);
        }
        for (Position at{0, 0}; at.first != U_SENTINEL;) {
            at = previous(flat.get());
            ASSERT_EQ(previous(ours.get()), at);
        }
        RandomText random(9);
        for (int i = 0; i < 2000; ++i) {
            const std::int64_t index = random.upTo(std::ssize(text) + 4) - 2;
            utext_setNativeIndex(ours.get(), index);
            utext_setNativeIndex(flat.get(), index);
            ASSERT_EQ(utext_getNativeIndex(ours.get()), utext_getNativeIndex(flat.get())) << index;
            ASSERT_EQ(utext_current32(ours.get()), utext_current32(flat.get())) << index;
            ASSERT_EQ(i % 2 ? next(ours.get()) : previous(ours.get()),
                      i % 2 ? next(flat.get()) : previous(flat.get()))
                << index;
        }
    }
}

TEST(UnicodeText, ExtractsAsAFlatText) {
    const auto extract = [](UText* text, std::int64_t start, std::int64_t limit, std::int32_t capacity) {
        std::u16string buffer(static_cast<std::size_t>(capacity) + 1, u'?');
        UErrorCode status = U_ZERO_ERROR;
        const std::int32_t length = utext_extract(text, start, limit, buffer.data(), capacity, &status);
        return std::tuple(buffer, length, status, utext_getNativeIndex(text));
    };
    const std::u16string text = pairsAcrossWindows();
    const TextStore store(text, small);
    UnicodeText ours(store.text());
    FlatText flat(text);
    RandomText random(10);
    for (int i = 0; i < 1000; ++i) {
        const std::int64_t start = random.upTo(std::ssize(text));
        const std::int64_t limit = start + random.upTo(700) - 2;
        const std::int32_t capacity = static_cast<std::int32_t>(std::max<std::int64_t>(limit - start, 0) + 5);
        const auto extracted = extract(ours.get(), start, limit, capacity);
        ASSERT_EQ(extracted, extract(flat.get(), start, limit, capacity)) << start << " to " << limit;
        if (std::get<1>(extracted) == 0) continue;
        const auto measured = extract(ours.get(), start, limit, 0);
        ASSERT_EQ(std::get<1>(measured), std::get<1>(extracted));
        ASSERT_EQ(std::get<2>(measured), U_BUFFER_OVERFLOW_ERROR);
    }
}

std::vector<std::int64_t> matches(const char16_t* pattern, UText* text) {
    UErrorCode status = U_ZERO_ERROR;
    icu::RegexMatcher matcher(icu::UnicodeString(pattern), 0, status);
    matcher.reset(text);
    std::vector<std::int64_t> found;
    while (matcher.find(status))
        found.insert(found.end(), {matcher.start64(status), matcher.end64(status)});
    EXPECT_TRUE(U_SUCCESS(status)) << u_errorName(status);
    return found;
}

TEST(UnicodeText, RegularExpressionsMatchAsInAFlatText) {
    for (const std::u16string& text : sampleTexts()) {
        const TextStore store(text, small);
        UnicodeText ours(store.text());
        FlatText flat(text);
        for (const char16_t* pattern : {u".", u"[^\\x00-\\x7F]+", u"(?m)^.*$", u"\\R", u"\\X", u"\\b\\w+",
                                        u"(?<=[a-z]).", u"(?i)[k-t]{2}", u"\\U0001F600{3}", u"\\z"})
            EXPECT_EQ(matches(pattern, ours.get()), matches(pattern, flat.get()));
    }
}

TEST(UnicodeText, BreakIteratorsStopAsInAFlatText) {
    UErrorCode status = U_ZERO_ERROR;
    const auto& root = icu::Locale::getRoot();
    using Maker = icu::BreakIterator* (*)(const icu::Locale&, UErrorCode&);
    for (const Maker make : {Maker(icu::BreakIterator::createCharacterInstance),
                             Maker(icu::BreakIterator::createWordInstance)}) {
        for (const std::u16string& text : sampleTexts()) {
            const std::unique_ptr<icu::BreakIterator> ours(make(root, status));
            const std::unique_ptr<icu::BreakIterator> flat(make(root, status));
            const TextStore store(text, small);
            UnicodeText unicodeText(store.text());
            FlatText flatText(text);
            ours->setText(unicodeText.get(), status);
            flat->setText(flatText.get(), status);
            for (std::int32_t at = 0; at != icu::BreakIterator::DONE;) {
                at = flat->next();
                ASSERT_EQ(ours->next(), at);
            }
            for (std::int32_t at = 0; at != icu::BreakIterator::DONE;) {
                at = flat->previous();
                ASSERT_EQ(ours->previous(), at);
            }
            for (std::size_t i = 0; i <= text.size(); i += 7)
                ASSERT_EQ(ours->following(static_cast<std::int32_t>(i)),
                          flat->following(static_cast<std::int32_t>(i)));
        }
    }
    EXPECT_TRUE(U_SUCCESS(status));
}

TEST(UnicodeText, AClonedTextGoesOnByItselfAndOutlivesItsOrigin) {
    TextStore store(u"one two", small);
    auto origin = std::make_unique<UnicodeText>(store.text());
    utext_setNativeIndex(origin->get(), 4);
    UErrorCode status = U_ZERO_ERROR;
    UText* clone = utext_clone(nullptr, origin->get(), true, true, &status);
    EXPECT_EQ(next(origin->get()), Position(u't', 5));
    origin.reset();
    store.replace(0, 7, u"other");
    EXPECT_EQ(next(clone), Position(u't', 5));
    EXPECT_FALSE(utext_isWritable(clone));
    utext_close(clone);
}

} // namespace
