#include "languages/grammars/tests/ParsedText.h"

#include <algorithm>
#include <cstdlib>

namespace tessarine::languages {

namespace {

std::uint32_t bytes(std::size_t units) {
    return static_cast<std::uint32_t>(units * sizeof(char16_t));
}

} // namespace

ParsedText::ParsedText(const TSLanguage* language, std::u16string text)
    : m_parser(ts_parser_new(), ts_parser_delete)
    , m_text(std::move(text))
    , m_tree(nullptr, ts_tree_delete) {
    ts_parser_set_language(m_parser.get(), language);
    m_tree = parsed(nullptr);
}

void ParsedText::replace(std::size_t at, std::size_t length, std::u16string_view by) {
    TSInputEdit edit{bytes(at),   bytes(at + length),   bytes(at + by.size()),
                     pointAt(at), pointAt(at + length), {}};
    m_text.replace(at, length, by);
    edit.new_end_point = pointAt(at + by.size());
    ts_tree_edit(m_tree.get(), &edit);
    m_tree = parsed(m_tree.get());
}

std::string ParsedText::expression() const {
    const std::unique_ptr<char, decltype(&std::free)> text(ts_node_string(root()), std::free);
    return text.get();
}

ParsedText::Tree ParsedText::parsed(const TSTree* old) const {
    const auto* const unencoded = reinterpret_cast<const char*>(m_text.data());
    return {ts_parser_parse_string_encoding(m_parser.get(), old, unencoded, bytes(m_text.size()),
                                            TSInputEncodingUTF16LE),
            ts_tree_delete};
}

TSPoint ParsedText::pointAt(std::size_t location) const {
    const std::u16string_view before = std::u16string_view(m_text).substr(0, location);
    const std::size_t lineStart = before.rfind(u'\n') + 1; // npos + 1 is 0
    const auto row = std::ranges::count(before, u'\n');
    return {static_cast<std::uint32_t>(row), bytes(location - lineStart)};
}

} // namespace tessarine::languages
