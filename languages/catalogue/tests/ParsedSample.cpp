#include "languages/catalogue/tests/ParsedSample.h"

#include "Tessarine/syntax/PreferredUtf16Encoding.h"
#include "Tessarine/syntax/TextSubstring.h"
#include "Tessarine/syntax/TreeSitterLayerParser.h"
#include "Tessarine/syntax/highlighting/HighlightCaptures.h"
#include "languages/catalogue/Catalogue.h"
#include "languages/catalogue/CatalogueLanguageProvider.h"

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <unicode/unistr.h>

namespace tessarine::languages {

namespace {

std::filesystem::path sampleFile(const CatalogueEntry& entry) {
    for (const auto& file : std::filesystem::directory_iterator(folderOf(entry)))
        if (file.path().stem() == "sample") return file.path();
    throw std::runtime_error("no sample of " + std::string(entry.name));
}

std::u16string utf16(const std::string& utf8) {
    const auto text = icu::UnicodeString::fromUTF8(utf8);
    return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

std::string utf8(const std::u16string& utf16) {
    std::string text;
    return icu::UnicodeString(utf16.data(), static_cast<std::int32_t>(utf16.size())).toUTF8String(text);
}

TreeSitterLanguageLayer::Reference parsed(const CatalogueEntry& entry, const TextSnapshot& text) {
    static const CatalogueLanguageProvider provider;
    TreeSitterParser parser(preferredUTF16Encoding);
    const ParseLimit unlimited;
    return TreeSitterLayerParser(parser, text, &provider, unlimited)
        .parse(treeSitterLanguage(entry.language)->internalLanguage());
}

std::string firstLine(const std::u16string& text) {
    return utf8(text.substr(0, text.find_first_of(u"\r\n")));
}

} // namespace

std::filesystem::path folderOf(const CatalogueEntry& entry) {
    return std::filesystem::path(CATALOGUE) / entry.name;
}

std::string contentsOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) throw std::runtime_error("cannot read " + file.string());
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::u16string sampleOf(const CatalogueEntry& entry) {
    return utf16(contentsOf(sampleFile(entry)));
}

ParsedSample::ParsedSample(const CatalogueEntry& entry)
    : ParsedSample(entry, sampleOf(entry)) {}

ParsedSample::ParsedSample(const CatalogueEntry& entry, std::u16string_view text)
    : m_stringView(std::make_shared<StringView>(text))
    , m_lineManager(m_stringView)
    , m_text(m_stringView->snapshot())
    , m_layers(parsed(entry, m_text)) {
    m_lineManager.rebuild(text);
}

std::string ParsedSample::captureList() {
    std::string list;
    for (const auto& [byteRange, name] : highlightCaptures(m_layers, wholeRange(), m_text, {})) {
        const TextRange range = unitsOf(m_text, byteRange).value();
        list += pointText(range.location) + "-" + pointText(range.location + range.length) + " " + name +
                " " + firstLine(m_text.substring(range.location, range.length)) + "\n";
    }
    return list;
}

std::string ParsedSample::pointText(std::int64_t location) const {
    const auto [row, column] = m_lineManager.linePosition(location).value();
    return std::to_string(row) + ":" + std::to_string(column);
}

} // namespace tessarine::languages
