#include "Quillet/core/KeyStore.h"

#include "Quillet/core/tests/TemporarySettings.h"

using namespace quillet;
using Keys = KeyStore::Keys;

namespace {

using Preferences = std::map<Language, bool>;

class KeyStoreTest : public TemporarySettings {};

const Preferences allTrue{{Language::swift, true},
                          {Language::objectiveC, true},
                          {Language::python, true},
                          {Language::javascript, true}};

TEST_F(KeyStoreTest, SynchronisesWhenItIsMade) {
    store().setString(Keys::versionSeen, QStringLiteral("1"));
    EXPECT_TRUE(onDisk(Keys::versionSeen).isNull());
    KeyStore::shared();
    EXPECT_EQ(onDisk(Keys::versionSeen), QStringLiteral("1"));
}

TEST_F(KeyStoreTest, TheFirstReadOfThePreferencesMakesThemInMemory) {
    EXPECT_EQ(KeyStore::shared().languagePreferences(), allTrue);
    EXPECT_EQ(store().dictionary(QStringLiteral("languagePreferences")),
              (QVariantMap{{QStringLiteral("swift"), true},
                           {QStringLiteral("objectiveC"), true},
                           {QStringLiteral("python"), true},
                           {QStringLiteral("javascript"), true}}));
    EXPECT_TRUE(onDisk(Keys::languagePreferences).isNull());
    store().setString(Keys::languagePreferences, QStringLiteral("no dictionary"));
    EXPECT_EQ(KeyStore::shared().languagePreferences(), allTrue);
    EXPECT_EQ(store().dictionary(Keys::languagePreferences)->size(), 4);
}

TEST_F(KeyStoreTest, MissingAndWrongPreferencesReadAsTrueAndStay) {
    const QVariantMap stored{{QStringLiteral("swift"), false},
                             {QStringLiteral("Python"), false},
                             {QStringLiteral("objectiveC"), 0},
                             {QStringLiteral("javascript"), QVariant::fromValue(nullptr)}};
    store().setObject(Keys::languagePreferences, stored);
    auto expected = allTrue;
    expected[Language::swift] = false;
    EXPECT_EQ(KeyStore::shared().languagePreferences(), expected);
    EXPECT_EQ(store().dictionary(Keys::languagePreferences)->keys(), stored.keys());
}

TEST_F(KeyStoreTest, WritingPreferencesReplacesThemWholeAndDoesNotSynchronise) {
    auto& keys = KeyStore::shared();
    keys.setLanguagePreferences({{Language::python, false}, {Language::swift, false}});
    keys.setLanguagePreferences({{Language::python, false}});
    EXPECT_EQ(store().dictionary(Keys::languagePreferences),
              (QVariantMap{{QStringLiteral("python"), false}}));
    EXPECT_TRUE(onDisk(Keys::languagePreferences).isNull());
    EXPECT_EQ(keys.enabledLanguages(),
              (std::vector{Language::javascript, Language::objectiveC, Language::swift}));
}

TEST_F(KeyStoreTest, TheCustomZoneIsOnDiskWithWhatWasThereBefore) {
    auto& keys = KeyStore::shared();
    keys.setVersionSeen(QStringLiteral("2"));
    EXPECT_TRUE(onDisk(Keys::versionSeen).isNull());
    keys.setCreatedCustomZone();
    EXPECT_EQ(onDisk(QStringLiteral("CreatedCustomZone")).typeId(), QMetaType::Bool);
    EXPECT_EQ(onDisk(QStringLiteral("versionSeen")), QStringLiteral("2"));
}

TEST_F(KeyStoreTest, VersionAndThemeHaveDefaultsAndOnlyTheThemeSynchronises) {
    auto& keys = KeyStore::shared();
    EXPECT_EQ(keys.versionSeen(), QStringLiteral("0"));
    EXPECT_EQ(keys.codeTheme(), QStringLiteral("xcode"));
    store().setObject(Keys::versionSeen, 3);
    store().setObject(Keys::codeTheme, true);
    EXPECT_EQ(keys.versionSeen(), QStringLiteral("0"));
    EXPECT_EQ(keys.codeTheme(), QStringLiteral("xcode"));
    keys.setCodeTheme(QStringLiteral("monokai"));
    EXPECT_EQ(onDisk(QStringLiteral("codeTheme")), QStringLiteral("monokai"));
    keys.setVersionSeen(QStringLiteral("3.1.8"));
    EXPECT_EQ(keys.versionSeen(), QStringLiteral("3.1.8"));
    EXPECT_NE(onDisk(Keys::versionSeen), QStringLiteral("3.1.8"));
}

} // namespace
