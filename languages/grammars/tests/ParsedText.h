#pragma once

#include <memory>
#include <string>
#include <tree_sitter/api.h>

namespace tessarine::languages {

// A text with its tree, which each edit brings up to date. Locations and lengths are in code units.
class ParsedText {
public:
    ParsedText(const TSLanguage* language, std::u16string text);

    void replace(std::size_t at, std::size_t length, std::u16string_view by);

    const std::u16string& text() const { return m_text; }

    TSNode root() const { return ts_tree_root_node(m_tree.get()); }

    std::string expression() const;

private:
    using Tree = std::unique_ptr<TSTree, decltype(&ts_tree_delete)>;

    Tree parsed(const TSTree* old) const;
    TSPoint pointAt(std::size_t location) const;

    std::unique_ptr<TSParser, decltype(&ts_parser_delete)> m_parser;
    std::u16string m_text;
    Tree m_tree;
};

} // namespace tessarine::languages
