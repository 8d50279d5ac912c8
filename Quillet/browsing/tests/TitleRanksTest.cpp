#include "Quillet/browsing/TitleRanks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace quillet;

namespace {

TEST(TitleRanksTest, OrderAsPlainComparisonDoes) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        // Few letters and shared beginnings, some longer than what is compared in chunks; U+0000 is one too.
        const QString letters = QStringLiteral("ab") + QChar(0) + QChar(0xFFFF);
        std::vector<QString> texts(random() % 80);
        for (auto& text : texts) {
            text = QString(random() % 2 ? 0 : static_cast<qsizetype>(random() % 3) * 95, u'a');
            for (auto length = random() % 6; length > 0; --length)
                text += letters[static_cast<qsizetype>(random() % 4)];
        }
        const auto ranks = ranksOf(texts);
        ASSERT_EQ(ranks.size(), texts.size());
        for (std::size_t i = 0; i < texts.size(); ++i)
            for (std::size_t j = 0; j < texts.size(); ++j) {
                ASSERT_EQ(ranks[i] < ranks[j], texts[i] < texts[j]);
                ASSERT_EQ(ranks[i] == ranks[j], texts[i] == texts[j]);
            }
    }
}

} // namespace
