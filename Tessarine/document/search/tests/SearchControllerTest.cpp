#include "Tessarine/document/search/SearchController.h"

#include "Tessarine/document/LineManager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

using namespace tessarine;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class Lines final : public SearchControllerDelegate {
public:
    explicit Lines(std::shared_ptr<const StringView> stringView)
        : m_manager(std::move(stringView)) {
        m_manager.rebuild();
    }

    // What lies behind `limit` has no lines.
    std::optional<LinePosition> linePosition(std::int64_t location) const override {
        return location > limit ? std::nullopt : m_manager.linePosition(location);
    }

    std::int64_t limit = INT64_MAX;

private:
    LineManager m_manager;
};

class SearchControllerTest : public testing::Test {
protected:
    SearchControllerTest() { controller.setDelegate(lines); }

    std::shared_ptr<StringView> stringView = std::make_shared<StringView>(u"one two\r\n\u00E9 One\nlast one");
    std::shared_ptr<Lines> lines = std::make_shared<Lines>(stringView);
    SearchController controller{stringView};
};

TEST_F(SearchControllerTest, ResultsTellTheirPlaces) {
    const auto results = controller.search({u"one"});
    ASSERT_THAT(results, SizeIs(3));
    EXPECT_EQ(results[1].range, (TextRange{11, 3}));
    EXPECT_EQ(results[1].startLocation, (TextLocation{1, 2}));
    EXPECT_EQ(results[1].endLocation, (TextLocation{1, 5}));
}

TEST_F(SearchControllerTest, ResultsHaveAnIdentityOfTheirOwn) {
    const auto results = controller.search({u"o"});
    std::set<std::string> ids;
    for (const SearchResult& result : results) {
        EXPECT_THAT(result.id, testing::MatchesRegex("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-"
                                                     "[0-9A-F]{12}"));
        ids.insert(result.id);
    }
    EXPECT_EQ(ids.size(), 4U);
    EXPECT_NE(results[0], controller.search({u"o"})[0]);
}

TEST_F(SearchControllerTest, ReplacementsComeWithTheResults) {
    const auto results = controller.search({u"(o)ne", true}, u"\\U$1");
    ASSERT_THAT(results, SizeIs(3));
    EXPECT_EQ(results[1].replacementText, u"O");
    EXPECT_EQ(results[2].replacementText, u"O");
    EXPECT_EQ(results[2].range, (TextRange{20, 3}));
    EXPECT_EQ(controller.search({u"one"}, u"\\u$0")[0].replacementText, u"\\u$0");
    const ParsedReplacementString itself{{PlaceholderParameters{{}, 0}}};
    EXPECT_EQ(controller.search({u"one"}, itself)[1].replacementText, u"One");
}

TEST_F(SearchControllerTest, WhatHasNoLinesIsLeftOut) {
    lines->limit = 13;
    EXPECT_THAT(controller.search({u"one"}), SizeIs(1));
    lines.reset();
    EXPECT_THAT(controller.search({u"one"}), IsEmpty());
}

TEST_F(SearchControllerTest, AFailureIsALineOnTheConsole) {
    testing::internal::CaptureStdout();
    EXPECT_THAT(controller.search({u"(", true}), IsEmpty());
    EXPECT_THAT(testing::internal::GetCapturedStdout(), HasSubstr("U_REGEX_MISMATCHED_PAREN"));
    stringView->setInternalString(std::u16string(60, u'a'));
    testing::internal::CaptureStdout();
    EXPECT_THAT(controller.search({u"(a+)+b", true}, u"$0"), IsEmpty());
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "⚠️ The regular expression takes too long in this text.\n");
    lines.reset();
    testing::internal::CaptureStdout();
    EXPECT_THAT(controller.search({u"(", true}), IsEmpty());
    EXPECT_THAT(testing::internal::GetCapturedStdout(), HasSubstr("⚠️"));
}

} // namespace
