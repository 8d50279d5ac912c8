#include "Quillet/core/UserSettings.h"

#include "Quillet/core/FontDescriptor.h"
#include "Quillet/core/tests/TemporarySettings.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QFontMetricsF>

#include <limits>

using namespace quillet;

namespace {

class UserSettingsTest : public TemporarySettings {
protected:
    UserSettings& settings = UserSettings::shared();
};

TEST_F(UserSettingsTest, AFreshStoreGivesTheDefaults) {
    EXPECT_EQ(settings.lastLanguage.value(), std::nullopt);
    EXPECT_FALSE(settings.snippetsMigrated.value());
    EXPECT_EQ(settings.sortIndex.value(), 1);
    EXPECT_EQ(settings.fontSize.value(), 14);
    EXPECT_EQ(settings.fontDescriptor.value(), std::nullopt);
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(UserSettingsTest, AWriteIsSeenAtOnceAndIsOnTheDisk) {
    settings.lastLanguage.set(QStringLiteral("swift"));
    settings.snippetsMigrated.set(true);
    settings.sortIndex.set(0);
    settings.fontSize.set(20);
    settings.fontDescriptor.set(QVariantMap{{fontAttribute::italic, true}});
    platform::UbiquitousKeyValueStore reopened(path());
    for (const UserSettings& read : {settings, UserSettings(reopened)}) {
        EXPECT_EQ(read.lastLanguage.value(), QStringLiteral("swift"));
        EXPECT_TRUE(read.snippetsMigrated.value());
        EXPECT_EQ(read.sortIndex.value(), 0);
        EXPECT_EQ(read.fontSize.value(), 20);
        EXPECT_EQ(read.fontDescriptor.value(), (QVariantMap{{QStringLiteral("italic"), true}}));
    }
    EXPECT_EQ(reopened.string(QStringLiteral("LastUsedLanguage")), QStringLiteral("swift"));
    EXPECT_EQ(reopened.boolean(QStringLiteral("SnippetsMigrated")), true);
    EXPECT_EQ(reopened.integer(QStringLiteral("SnippetSort")), 0);
    EXPECT_EQ(reopened.integer(QStringLiteral("EditorFontSize")), 20);
    EXPECT_TRUE(reopened.dictionary(QStringLiteral("Font")));
}

TEST_F(UserSettingsTest, AnAbsentValueIsStoredAsNull) {
    settings.lastLanguage.set(QStringLiteral("swift"));
    settings.lastLanguage.set(std::nullopt);
    EXPECT_EQ(onDisk(QStringLiteral("LastUsedLanguage")).typeId(), QMetaType::Nullptr);
    EXPECT_EQ(settings.lastLanguage.value(), std::nullopt);
}

TEST_F(UserSettingsTest, AValueOfAnotherTypeGivesTheDefaultAndStays) {
    const QString sort = QStringLiteral("SnippetSort");
    for (const QVariant& value :
         {QVariant(QStringLiteral("0")), QVariant(0.0), QVariant(false), QVariant()}) {
        store().setObject(sort, value);
        EXPECT_EQ(settings.sortIndex.value(), 1) << value.typeName();
    }
    store().setObject(sort, QStringLiteral("0"));
    EXPECT_EQ(settings.sortIndex.value(), 1);
    EXPECT_EQ(store().string(sort), QStringLiteral("0"));
    store().setObject(QStringLiteral("SnippetsMigrated"), 1);
    EXPECT_FALSE(settings.snippetsMigrated.value());
    store().setObject(QStringLiteral("LastUsedLanguage"), 1);
    EXPECT_EQ(settings.lastLanguage.value(), std::nullopt);
    store().setObject(QStringLiteral("Font"), QVariantList());
    EXPECT_EQ(settings.fontDescriptor.value(), std::nullopt);
}

TEST_F(UserSettingsTest, TheFontIsTheMonospacedOneWithoutADescriptor) {
    const QFont font = settings.font();
    EXPECT_EQ(font.families(), QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
    EXPECT_EQ(font.pointSize(), 14);
    EXPECT_EQ(font.weight(), QFont::Normal);
    settings.fontSize.set(30);
    EXPECT_EQ(settings.font().pointSize(), 30);
}

TEST_F(UserSettingsTest, TheFontFollowsItsDescriptor) {
    settings.fontDescriptor.set(QVariantMap{{QStringLiteral("family"), QStringLiteral("Some, Family")},
                                            {QStringLiteral("weight"), 700},
                                            {QStringLiteral("italic"), true},
                                            {QStringLiteral("unknown"), QVariantList{1}}});
    const QFont font = settings.font();
    EXPECT_EQ(font.families(), QStringList{QStringLiteral("Some, Family")});
    EXPECT_EQ(font.weight(), QFont::Bold);
    EXPECT_TRUE(font.italic());
    EXPECT_EQ(font.pointSize(), 14);
}

TEST_F(UserSettingsTest, HostileFontSettingsGiveAFontThatCanBeUsed) {
    const QFont plain = settings.font();
    const QList<QVariantMap> descriptors{{{fontAttribute::family, QString(1 << 20, u'x')}},
                                         {{fontAttribute::family, QString(QChar(0xD800))}},
                                         {{fontAttribute::family, QStringLiteral("")}},
                                         {{fontAttribute::family, 7}},
                                         {{fontAttribute::weight, 0}},
                                         {{fontAttribute::weight, std::numeric_limits<qlonglong>::max()}},
                                         {{fontAttribute::weight, QStringLiteral("700")}},
                                         {{fontAttribute::italic, 1}}};
    for (const QVariantMap& descriptor : descriptors) {
        settings.fontDescriptor.set(descriptor);
        EXPECT_EQ(settings.font(), plain) << descriptor.firstKey().toStdString();
    }
    for (const qint64 points : {std::numeric_limits<qint64>::min(), qint64(0), qint64(1) << 32,
                                std::numeric_limits<qint64>::max()}) {
        settings.fontSize.set(points);
        const qreal height = QFontMetricsF(settings.font()).height();
        EXPECT_TRUE(height > 0 && height < 2000) << points << ' ' << height;
    }
}

} // namespace
