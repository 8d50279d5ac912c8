#include "Quillet/core/Repository.h"
#include "Quillet/core/Segment.h"
#include "Quillet/core/Snippet.h"
#include "Quillet/core/SnippetService.h"
#include "Quillet/core/Tag.h"
#include "Quillet/core/UserSettings.h"
#include "platform/cloud/RemoteNotifications.h"
#include "platform/cloud/tests/CloudFixture.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtTest/QTest>
#include <gtest/gtest.h>

#include <atomic>

using namespace quillet;
using platform::testing::Cloud;

namespace {

constexpr int patience = 60'000; // milliseconds; of a machine that does much else

// A program's library and settings, with a mirror of their own.
struct Program {
    explicit Program(const QString& directory)
        : settings(QDir(directory).filePath(QStringLiteral("Settings.json")))
        , stack(directory) {}

    ~Program() { stack.stopMirroring(); }

    void start(const platform::CloudAccount& account) {
        stack.startMirroring([account] { return platform::AccountResult(account); },
                             [this](const platform::CloudAccount& at)
                                 -> platform::CloudResult<std::unique_ptr<platform::CloudStore>> {
                                 ++opened;
                                 return platform::openCloudStore(at, std::chrono::seconds(10));
                             },
                             settings);
    }

    std::shared_ptr<Snippet> make(const QString& title, const QString& code) {
        const auto snippet = std::make_shared<Snippet>();
        snippet->setTitle(title);
        snippet->setCode(code);
        stack.viewContext().insert(snippet);
        stack.saveContext();
        return snippet;
    }

    template <typename T>
    std::vector<std::shared_ptr<T>> all() {
        std::vector<std::shared_ptr<T>> found;
        for (const auto& object : stack.viewContext().fetch({T().entity().name, {}, {}, {}}))
            found.push_back(std::static_pointer_cast<T>(object));
        return found;
    }

    std::shared_ptr<Snippet> snippet(const QString& title) {
        for (const auto& each : all<Snippet>())
            if (each->title() == title) return each;
        return nullptr;
    }

    bool isUpToDate() {
        return stack.cloudKitContainer().mirrorStatus().value().state ==
               platform::MirrorStatus::State::UpToDate;
    }

    platform::UbiquitousKeyValueStore settings;
    CoreDataStack stack;
    std::atomic<int> opened = 0;
};

class CloudSync : public ::testing::TestWithParam<Cloud::Kind> {
protected:
    CloudSync() { platform::registerForRemoteNotifications(); }

    static bool waitFor(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, patience);
    }

    QString folder(const char* name) const { return root.filePath(QString::fromLatin1(name)); }

    QTemporaryDir root;
    Cloud cloud{GetParam()};
};

TEST_P(CloudSync, WhatOneProgramSavesTheOtherShows) {
    Program first(folder("first"));
    Program second(folder("second"));
    // From before there was an account.
    const auto snippet = first.make(QStringLiteral("Shared"), QStringLiteral("a\nb\nc\n"));
    const auto tag = std::make_shared<Tag>();
    tag->setValue(Tag::Title, QStringLiteral("tag"));
    tag->setValue(Tag::ColorIndex, 3);
    first.stack.viewContext().insert(tag);
    snippet->addToMany(Snippet::Tags, *tag);
    first.stack.saveContext();
    first.start(cloud.account());
    second.start(cloud.account());
    const auto isThere = [&] { return second.snippet(QStringLiteral("Shared")) != nullptr; };
    ASSERT_TRUE(waitFor(isThere));
    const auto theirs = second.snippet(QStringLiteral("Shared"));
    EXPECT_EQ(theirs->code(), snippet->code());
    ASSERT_EQ(theirs->toMany(Snippet::Tags).size(), 1);

    // Edits of the same text on both sides, at once.
    snippet->setCode(QStringLiteral("A\nb\nc\n"));
    theirs->setCode(QStringLiteral("a\nb\nC\n"));
    first.stack.saveContext();
    second.stack.saveContext();
    EXPECT_TRUE(waitFor(
        [&] { return snippet->code() == QStringLiteral("A\nb\nC\n") && theirs->code() == snippet->code(); }));

    first.settings.setString(QStringLiteral("codeTheme"), QStringLiteral("dark"));
    EXPECT_TRUE(waitFor(
        [&] { return second.settings.string(QStringLiteral("codeTheme")) == QStringLiteral("dark"); }));
    second.stack.viewContext().deleteObject(*theirs);
    second.stack.saveContext();
    EXPECT_TRUE(waitFor([&] { return first.all<Snippet>().empty(); }));
    EXPECT_EQ(first.all<Tag>().size(), 1U);
}

TEST_P(CloudSync, TwoTextsThatAreInEachOthersWayAreBothKept) {
    {
        Program first(folder("first"));
        first.make(QStringLiteral("Shared"), QStringLiteral("base"));
        first.start(cloud.account());
        ASSERT_TRUE(waitFor([&] { return first.isUpToDate(); }));
        Program second(folder("second"));
        second.start(cloud.account());
        ASSERT_TRUE(waitFor([&] { return second.snippet(QStringLiteral("Shared")) != nullptr; }));
    }
    // Neither is connected now.
    Program first(folder("first"));
    Program second(folder("second"));
    first.snippet(QStringLiteral("Shared"))->setCode(QStringLiteral("first"));
    first.stack.saveContext();
    second.snippet(QStringLiteral("Shared"))->setCode(QStringLiteral("second"));
    second.stack.saveContext();
    first.start(cloud.account());
    second.start(cloud.account());
    for (auto* program : {&first, &second}) {
        ASSERT_TRUE(waitFor([&] { return program->all<Segment>().size() == 1; }));
        const auto segment = program->all<Segment>().front();
        EXPECT_TRUE(segment->title().startsWith(QStringLiteral("Conflict - ")));
        const auto snippet = program->snippet(QStringLiteral("Shared"));
        // Which of the two was later may be within a millisecond.
        const QStringList both{QStringLiteral("first"), QStringLiteral("second")};
        EXPECT_TRUE(waitFor([&] {
            QStringList kept{snippet->code(), segment->code()};
            kept.sort();
            return kept == both;
        }));
        EXPECT_EQ(segment->toOne(Segment::OfSnippet), snippet.get());
    }
}

INSTANTIATE_TEST_SUITE_P(Clouds, CloudSync, ::testing::Values(Cloud::Kind::File, Cloud::Kind::Server),
                         ::testing::PrintToStringParamName());

class CloudSyncWithServer : public CloudSync {};

TEST_P(CloudSyncWithServer, AServerThatGoesAndComesBackIsCaughtUpWithAndNotHurried) {
    Program first(folder("first"));
    first.start(cloud.account());
    ASSERT_TRUE(waitFor([&] { return first.isUpToDate(); }));
    cloud.server()->kill();
    const int opened = first.opened;
    for (int i = 0; i < 50; ++i)
        first.make(QStringLiteral("Offline %1").arg(i), QStringLiteral("code"));
    ASSERT_TRUE(
        waitFor([&] { return first.stack.cloudKitContainer().mirrorStatus().value().error.has_value(); }));
    for (int i = 0; i < 50; ++i)
        first.make(QStringLiteral("Later %1").arg(i), QStringLiteral("code"));
    EXPECT_LE(first.opened - opened, 10) << "local changes do not hurry the tries";
    cloud.server()->start();
    first.stack.cloudKitContainer().noteForeground();
    Program second(folder("second"));
    second.start(cloud.account());
    EXPECT_TRUE(waitFor([&] { return second.all<Snippet>().size() == 100; }));
}

TEST_P(CloudSyncWithServer, ASilentServerDoesNotHoldUpTheEnd) {
    auto first = std::make_unique<Program>(folder("first"));
    first->start(cloud.account());
    ASSERT_TRUE(waitFor([&] { return first->isUpToDate(); }));
    cloud.server()->freeze();
    first->make(QStringLiteral("Kept"), QStringLiteral("code"));
    first.reset();
    cloud.server()->thaw();
    Program again(folder("first"));
    EXPECT_EQ(again.all<Snippet>().size(), 1U);
    again.start(cloud.account());
    Program second(folder("second"));
    second.start(cloud.account());
    EXPECT_TRUE(waitFor([&] { return second.all<Snippet>().size() == 1; }));
}

INSTANTIATE_TEST_SUITE_P(Clouds, CloudSyncWithServer, ::testing::Values(Cloud::Kind::Server),
                         ::testing::PrintToStringParamName());

TEST(CloudSyncWithoutAccount, EverythingLocalWorksAndNothingIsTriedAgainAndAgain) {
    QTemporaryDir root;
    Program program(root.path());
    std::atomic<int> asked = 0;
    program.stack.startMirroring(
        [&asked] {
            ++asked;
            return platform::AccountResult(std::nullopt);
        },
        [](const platform::CloudAccount&) -> platform::CloudResult<std::unique_ptr<platform::CloudStore>> {
            ADD_FAILURE() << "there is no account to open";
            return std::unexpected(platform::CKError{});
        },
        program.settings);
    for (int i = 0; i < 20; ++i)
        program.make(QStringLiteral("Local"), QStringLiteral("code"));
    const auto& status = program.stack.cloudKitContainer().mirrorStatus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return status.value().error.has_value(); }, patience));
    const auto* error = std::get_if<platform::CKError>(&*status.value().error);
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->code, platform::CKError::Code::NotAuthenticated);
    program.stack.stopMirroring();
    EXPECT_LE(asked, 8);
    EXPECT_EQ(program.all<Snippet>().size(), 20U);
}

} // namespace
