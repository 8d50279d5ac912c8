// Every grammar of the table is one that the parser loads.
#include "languages/grammars/Grammars.h"

#include <gtest/gtest.h>

#include <memory>
#include <tree_sitter/api.h>

namespace tessarine::languages {
namespace {

TEST(Grammars, AreLoadedByTheParser) {
    const std::unique_ptr<TSParser, decltype(&ts_parser_delete)> parser{ts_parser_new(), ts_parser_delete};
    for (const Grammar& grammar : grammars())
        EXPECT_TRUE(ts_parser_set_language(parser.get(), grammar.language())) << grammar.name;
}

TEST(Grammars, AreFoundByTheirName) {
    for (const Grammar& grammar : grammars())
        EXPECT_EQ(grammarNamed(grammar.name), grammar.language()) << grammar.name;
    EXPECT_EQ(grammarNamed("c"), nullptr);
    EXPECT_EQ(grammarNamed(""), nullptr);
}

} // namespace
} // namespace tessarine::languages
