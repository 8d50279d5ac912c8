// Every language while its sample is edited, with all that it injects.
#include "Tessarine/document/tests/RandomText.h"
#include "Tessarine/syntax/tests/SampleDocument.h"
#include "languages/catalogue/Catalogue.h"
#include "languages/catalogue/CatalogueLanguageProvider.h"
#include "languages/catalogue/tests/ParsedSample.h"

#include <gtest/gtest.h>

#include <vector>

namespace tessarine::languages {

namespace {

class CatalogueEditingTest : public testing::TestWithParam<CatalogueEntry> {
protected:
    SampleDocument document{sampleOf(GetParam()), treeSitterLanguage(GetParam().language),
                            std::make_shared<const CatalogueLanguageProvider>()};

    std::string captures() {
        std::string list;
        const ByteRange all{0, ByteCount::ofCodeUnits(document.stringView->length())};
        for (const TreeSitterCapture& capture : document.mode->captures(all))
            list += std::string(capture.name()) + " " + capture.byteRange().description() + "\n";
        return list;
    }
};

INSTANTIATE_TEST_SUITE_P(All, CatalogueEditingTest,
                         testing::ValuesIn(catalogueEntries().begin(), catalogueEntries().end()),
                         [](const auto& entry) { return std::string(entry.param.name); });

TEST_P(CatalogueEditingTest, HasTheSameCapturesAfterEditsThereAndBack) {
    document.parse();
    const std::string expected = captures();
    RandomText random(7);
    for (int round = 0; round < 6; ++round) {
        const auto length = document.stringView->length();
        const auto at = random.upTo(length - 10);
        const std::u16string was = document.stringView->snapshot().substring(at, 10);
        const std::u16string by = random.units(random.upTo(8));
        document.replace(at, 10, by);
        (void)captures();
        document.replace(at, static_cast<std::int64_t>(by.size()), was);
        EXPECT_EQ(captures(), expected) << "after an edit at " << at;
    }
}

} // namespace
} // namespace tessarine::languages
