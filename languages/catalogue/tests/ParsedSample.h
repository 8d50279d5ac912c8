#pragma once

#include "Tessarine/document/ByteRange.h"
#include "Tessarine/document/LineManager.h"
#include "Tessarine/document/StringView.h"
#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/syntax/TreeSitterLanguageLayers.h"
#include "languages/catalogue/CatalogueEntry.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>

namespace tessarine::languages {

// In the names of tests.
inline void PrintTo(const CatalogueEntry& entry, std::ostream* out) {
    *out << entry.name;
}

// The folder of a language's queries, sample and list of captures.
std::filesystem::path folderOf(const CatalogueEntry& entry);

// A whole file, as UTF-8. Throws where it cannot be read.
std::string contentsOf(const std::filesystem::path& file);

std::u16string sampleOf(const CatalogueEntry& entry);

// The sample of a language with all layers, parsed as an editor does.
class ParsedSample {
public:
    explicit ParsedSample(const CatalogueEntry& entry);

    ParsedSample(const CatalogueEntry& entry, std::u16string_view text);

    const TextSnapshot& text() const { return m_text; }

    ByteRange wholeRange() const { return {0, ByteCount::ofCodeUnits(m_text.length())}; }

    TreeSitterLanguageLayers& layers() { return m_layers; }

    // A line for each capture in the order in which they take effect: "row:column-row:column name text",
    // where the text is its first line.
    std::string captureList();

private:
    std::string pointText(std::int64_t location) const;

    std::shared_ptr<StringView> m_stringView;
    LineManager m_lineManager;
    TextSnapshot m_text;
    TreeSitterLanguageLayers m_layers;
};

} // namespace tessarine::languages
