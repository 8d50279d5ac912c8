#include "Quillet/core/Language.h"

#include <QtCore/QStringList>
#include <gtest/gtest.h>

using namespace quillet;

namespace {

TEST(Language, StandsInTheSettingsByTheNameOfItsCase) {
    QStringList names;
    for (const Language language : allLanguages) {
        names << rawValue(language);
        EXPECT_EQ(languageFromRawValue(rawValue(language)), language);
    }
    EXPECT_EQ(names.join(u' '), QStringLiteral("swift objectiveC python javascript"));
    for (const auto& other :
         {QStringLiteral("objectivec"), QStringLiteral("Swift"), QStringLiteral("rust"), QStringLiteral("")})
        EXPECT_EQ(languageFromRawValue(other), std::nullopt);
}

} // namespace
