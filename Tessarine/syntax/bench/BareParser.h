#pragma once

#include "Tessarine/syntax/LanguageModeTextChange.h"
#include "Tessarine/syntax/PreferredUtf16Encoding.h"
#include "Tessarine/syntax/TreeSitterTextPoint.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <tree_sitter/api.h>

namespace tessarine {

// An edit as the library takes it.
inline TSInputEdit rawEdit(const LanguageModeTextChange& change) {
    const auto byte = [](ByteCount count) { return static_cast<std::uint32_t>(count.value()); };
    const auto point = [](const LinePosition& position) { return TreeSitterTextPoint(position).rawValue(); };
    const ByteCount start = change.byteRange.location;
    return {byte(start),
            byte(start + change.byteRange.length),
            byte(start + change.newByteCount),
            point(change.startLinePosition),
            point(change.oldEndLinePosition),
            point(change.newEndLinePosition)};
}

// The library by itself, on a text in one piece.
class BareParser {
public:
    BareParser(std::u16string text, const TSLanguage* language)
        : m_text(std::move(text))
        , m_parser(ts_parser_new()) {
        ts_parser_set_language(m_parser, language);
    }

    BareParser(const BareParser&) = delete;
    BareParser& operator=(const BareParser&) = delete;

    ~BareParser() {
        ts_tree_delete(m_tree);
        ts_parser_delete(m_parser);
    }

    void parse() {
        ts_tree_delete(m_tree);
        m_tree = ts_parser_parse_string_encoding(
            m_parser, nullptr, reinterpret_cast<const char*>(m_text.data()),
            static_cast<std::uint32_t>(2 * m_text.size()), preferredUTF16Encoding);
    }

    void forget() {
        ts_tree_delete(m_tree);
        m_tree = nullptr;
    }

    // What the edit of the text costs is left to the caller to measure or not.
    void changeText(std::size_t at, bool isInsertion) {
        if (isInsertion)
            m_text.insert(at, 1, u'x');
        else
            m_text.erase(at, 1);
    }

    void reparse(const TSInputEdit& edit) {
        ts_tree_edit(m_tree, &edit);
        TSTree* tree = ts_parser_parse_string_encoding(
            m_parser, m_tree, reinterpret_cast<const char*>(m_text.data()),
            static_cast<std::uint32_t>(2 * m_text.size()), preferredUTF16Encoding);
        std::uint32_t count = 0;
        std::free(ts_tree_get_changed_ranges(m_tree, tree, &count)); // NOLINT: the library allocated it
        ts_tree_delete(m_tree);
        m_tree = tree;
    }

    const TSTree* tree() const { return m_tree; }

private:
    std::u16string m_text;
    TSParser* m_parser;
    TSTree* m_tree = nullptr;
};

} // namespace tessarine
