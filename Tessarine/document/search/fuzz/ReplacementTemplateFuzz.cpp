// Reads bytes as a replacement template and compares what the parser makes of it with what looking ahead for
// whole placeholders makes of it.

#include "Tessarine/document/TextStore.h"
#include "Tessarine/document/search/ReplacementStringParser.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <span>
#include <unicode/brkiter.h>
#include <unicode/unistr.h>

using namespace tessarine;

namespace {

using Components = std::vector<ParsedReplacementString::Component>;

std::u16string templateOf(std::span<const std::uint8_t> bytes) {
    static constexpr std::u16string_view alphabet(u"$$$\\\\\\uUlL0019ab\r\n\u0301\uFF11\u00DF\xD83D\xDE00\0",
                                                  24);
    std::u16string text;
    for (const std::uint8_t byte : bytes)
        text += alphabet[byte % alphabet.size()];
    return text;
}

std::vector<std::u16string> clustersOf(const std::u16string& text) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> iterator(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    const icu::UnicodeString all(text.data(), static_cast<std::int32_t>(text.size()));
    iterator->setText(all);
    std::vector<std::u16string> clusters;
    std::int32_t start = 0;
    for (std::int32_t limit = iterator->next(); limit != icu::BreakIterator::DONE; limit = iterator->next()) {
        clusters.push_back(
            text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(limit - start)));
        start = limit;
    }
    return clusters;
}

class Reference {
public:
    explicit Reference(const std::u16string& text)
        : m_clusters(clustersOf(text)) {}

    // Whether some placeholder may not fit an index, which is a fault.
    bool hasLongNumber() const {
        std::size_t digits = 0;
        return std::ranges::any_of(m_clusters, [&](const auto& cluster) {
            digits = isOneOf(cluster, u"0123456789") ? digits + 1 : 0;
            return digits > 18;
        });
    }

    Components parse() {
        while (m_at < m_clusters.size())
            step();
        flush();
        return m_components;
    }

private:
    static bool isOneOf(const std::u16string& cluster, std::u16string_view characters) {
        return cluster.size() == 1 && characters.find(cluster.front()) != characters.npos;
    }

    bool isAt(std::size_t index, std::u16string_view characters) const {
        return index < m_clusters.size() && isOneOf(m_clusters[index], characters);
    }

    bool isEnd(std::size_t index) const {
        return index == m_clusters.size() || (index + 1 == m_clusters.size() && isAt(index, u"\\"));
    }

    void step() {
        std::size_t behindModifiers = m_at;
        while (isAt(behindModifiers, u"\\") && isAt(behindModifiers + 1, u"uUlL"))
            behindModifiers += 2;
        if (isAt(behindModifiers, u"$") && isAt(behindModifiers + 1, u"0123456789"))
            return takePlaceholder(behindModifiers);
        if (behindModifiers > m_at && isEnd(behindModifiers)) {
            m_at = behindModifiers;
            return;
        }
        const bool isEscape = isAt(m_at, u"\\");
        if (isEscape && isAt(m_at + 1, u"$"))
            ++m_at;
        else if (isEscape && m_at + 1 < m_clusters.size())
            take();
        take();
    }

    void take() { m_text += m_clusters[m_at++]; }

    void takePlaceholder(std::size_t dollar) {
        flush();
        PlaceholderParameters placeholder;
        for (; m_at < dollar; m_at += 2)
            placeholder.modifiers.push_back(static_cast<StringModifier>(m_clusters[m_at + 1].front()));
        for (++m_at; isAt(m_at, u"0123456789"); ++m_at)
            placeholder.index = placeholder.index * 10 + (m_clusters[m_at].front() - u'0');
        m_components.emplace_back(placeholder);
    }

    void flush() {
        if (!m_text.empty()) m_components.emplace_back(TextParameters{m_text});
        m_text.clear();
    }

    std::vector<std::u16string> m_clusters;
    std::size_t m_at = 0;
    std::u16string m_text;
    Components m_components;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string text = templateOf(std::span(data, size));
    Reference reference(text);
    if (reference.hasLongNumber()) return 0;
    const Components components = ReplacementStringParser(text).parse();
    if (components != reference.parse()) {
        std::fprintf(stderr, "The template is taken apart wrongly.\n");
        std::abort();
    }
    // Groups of all kinds: one that took no part, and a text that case mappings make longer.
    const TextStore store(u"\u00DFe\u0301\U00010428a");
    const SearchMatch match{{0, 6}, {TextRange{0, 3}, std::nullopt, TextRange{1, 5}}};
    (void)ParsedReplacementString{components}.string(match, store.text());
    return 0;
}
