// The queries of every language of the catalogue, and what they find in its sample.
#include "Tessarine/theme/CaptureName.h"
#include "Tessarine/theme/DefaultTheme.h"
#include "languages/catalogue/Catalogue.h"
#include "languages/catalogue/tests/ParsedSample.h"
#include "languages/catalogue/tests/PatternUse.h"
#include "languages/catalogue/tests/UnmatchedPatterns.h"
#include "themes/common/HighlightName.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace tessarine::languages {

namespace {

// A query file of an entry with its source and what became of it.
struct QueryOfEntry {
    std::string name;
    std::string source;
    std::shared_ptr<const TreeSitterQuery> query;
};

std::vector<QueryOfEntry> queriesOf(const std::string& name,
                                    const std::shared_ptr<const TreeSitterLanguage>& language) {
    std::vector<QueryOfEntry> queries;
    const auto add = [&](const char* kind, const auto& source, const auto& compiled) {
        if (source) queries.push_back({name + " " + kind, source->string().value_or(""), compiled});
    };
    add("highlights", language->highlightsQuery(), language->internalLanguage()->highlightsQuery);
    add("injections", language->injectionsQuery(), language->internalLanguage()->injectionsQuery);
    return queries;
}

std::vector<QueryOfEntry> queriesOf(const CatalogueEntry& entry) {
    auto queries = queriesOf(std::string(entry.name), treeSitterLanguage(entry.language));
    if (entry.language != Language::Markdown) return queries;
    for (QueryOfEntry& query : queriesOf("MarkdownInline", markdownInlineLanguage()))
        queries.push_back(std::move(query));
    return queries;
}

std::uint32_t patternCount(const QueryOfEntry& query) {
    return ts_query_pattern_count(query.query->pointer());
}

std::string whereItStops(const QueryOfEntry& query, const TSLanguage* language) {
    std::uint32_t offset = 0;
    TSQueryError type{};
    ts_query_delete(ts_query_new(language, query.source.data(),
                                 static_cast<std::uint32_t>(query.source.size()), &offset, &type));
    return "error " + std::to_string(type) + " at: " + query.source.substr(offset, 80);
}

// The first node that is an error, or misses something.
TSNode firstError(TSNode node) {
    for (std::uint32_t i = 0; i < ts_node_child_count(node); ++i)
        if (const TSNode child = ts_node_child(node, i); ts_node_has_error(child)) return firstError(child);
    return node;
}

bool isKnownToThemes(std::string_view name) {
    return themes::highlightName(name) || DefaultTheme().textColor(name);
}

class CatalogueTest : public testing::TestWithParam<CatalogueEntry> {
protected:
    const std::vector<QueryOfEntry> queries = queriesOf(GetParam());
};

INSTANTIATE_TEST_SUITE_P(All, CatalogueTest,
                         testing::ValuesIn(catalogueEntries().begin(), catalogueEntries().end()),
                         [](const auto& entry) { return std::string(entry.param.name); });

TEST_P(CatalogueTest, HasQueriesThatCompileWhole) {
    for (const QueryOfEntry& query : queries) {
        const TSLanguage* language = query.query ? query.query->language()
                                                 : treeSitterLanguage(GetParam().language)->languagePointer();
        ASSERT_TRUE(query.query) << query.name << " " << whereItStops(query, language);
        EXPECT_TRUE(
            std::ranges::all_of(query.source, [](char c) { return c == '\n' || (c >= ' ' && c <= '~'); }))
            << query.name << " is not plain ASCII: its end would be cut off";
        EXPECT_GT(patternCount(query), 0U) << query.name;
    }
}

TEST_P(CatalogueTest, HasAtMostOnePredicateAPattern) {
    for (const QueryOfEntry& query : queries)
        for (std::uint32_t pattern = 0; pattern < patternCount(query); ++pattern)
            EXPECT_LE(query.query->predicates(pattern).size(), 1U)
                << query.name << ": " << patternSource(*query.query, query.source, pattern);
}

TEST_P(CatalogueTest, NamesNothingThatNoThemeKnows) {
    const auto& highlights = *queries.front().query;
    for (std::uint32_t capture = 0; capture < ts_query_capture_count(highlights.pointer()); ++capture)
        EXPECT_TRUE(isKnownToThemes(highlights.captureName(capture))) << highlights.captureName(capture);
}

TEST_P(CatalogueTest, HasASampleWithoutErrors) {
    ParsedSample sample(GetParam());
    const TSNode root = sample.layers().rootTree()->rootNode().rawValue();
    const TSPoint place = ts_node_start_point(firstError(root));
    EXPECT_FALSE(ts_node_has_error(root)) << "in line " << place.row + 1 << " at byte " << place.column;
}

TEST_P(CatalogueTest, FindsWhatItsListSays) {
    const std::string expected = contentsOf(folderOf(GetParam()) / "captures.golden");
    EXPECT_EQ(ParsedSample(GetParam()).captureList(), expected)
        << "If this is better, have the list written anew: language_captures " << GetParam().name;
}

// A pattern that several languages have counts as one.
TEST(Catalogue, HasNoPatternThatMatchesNothing) {
    std::map<std::string, bool> isMatched;
    PatternUse use;
    for (const CatalogueEntry& entry : catalogueEntries()) {
        ParsedSample sample(entry);
        use.add(*sample.layers().root(), sample.text());
    }
    for (const CatalogueEntry& entry : catalogueEntries())
        for (const QueryOfEntry& query : queriesOf(entry))
            for (std::uint32_t pattern = 0; pattern < patternCount(query); ++pattern)
                isMatched[patternSource(*query.query, query.source, pattern)] |=
                    use.has(*query.query, pattern);
    for (const auto& [source, matched] : isMatched)
        EXPECT_NE(matched, isListedAsUnmatched(source)) << source;
}

} // namespace
} // namespace tessarine::languages
