#include "examples/editor/files/SaveFile.h"

#include "Tessarine/document/TextStore.h"
#include "examples/editor/tests/TestFolder.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QScopeGuard>

#include <csignal>
#include <cstdlib>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessarine::editor {
namespace {

class SaveFileTest : public ::testing::Test {
protected:
    SaveRequest request(const QString& name, const std::u16string& text) const {
        return {m_folder.path(name), TextStore(text).snapshot(), {}, fileIdentity(m_folder.path(name))};
    }

    // No half-written file may stay beside it.
    QStringList names() const {
        return QDir(m_folder.root()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    TestFolder m_folder;
    const QString m_name = QStringLiteral("a.txt");
};

TEST_F(SaveFileTest, AFileIsReplacedAndKnownAfterwards) {
    m_folder.write(m_name, "old");
    const auto saved = saveFile(request(m_name, u"new\n"));
    ASSERT_TRUE(saved) << saved.error().message.toStdString();
    EXPECT_EQ(*saved, fileIdentity(m_folder.path(m_name)));
    EXPECT_EQ(m_folder.read(m_name), "new\n");
    EXPECT_EQ(names(), QStringList(m_name));
    EXPECT_TRUE(saveFile(request(QStringLiteral("b.txt"), u"")));
    EXPECT_EQ(m_folder.read(QStringLiteral("b.txt")), "");
}

TEST_F(SaveFileTest, PermissionsAreKept) {
    QFile::setPermissions(m_folder.write(m_name, "#!/bin/sh"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup);
    const auto before = QFileInfo(m_folder.path(m_name)).permissions();
    ASSERT_TRUE(saveFile(request(m_name, u"#!/bin/bash")));
    EXPECT_EQ(QFileInfo(m_folder.path(m_name)).permissions(), before);
}

TEST_F(SaveFileTest, LinksAreFollowed) {
    m_folder.write(m_name, "old");
    QDir(m_folder.root()).mkdir(QStringLiteral("sub"));
    ASSERT_TRUE(QFile::link(QStringLiteral("../a.txt"), m_folder.path(QStringLiteral("sub/link"))));
    ASSERT_TRUE(saveFile(request(QStringLiteral("sub/link"), u"new")));
    EXPECT_TRUE(QFileInfo(m_folder.path(QStringLiteral("sub/link"))).isSymLink());
    EXPECT_EQ(m_folder.read(m_name), "new");
}

TEST_F(SaveFileTest, AFileThatAnotherChangedIsLeftAlone) {
    m_folder.write(m_name, "old");
    SaveRequest mine = request(m_name, u"mine");
    m_folder.write(m_name, "theirs");
    EXPECT_EQ(saveFile(mine).error().kind, SaveError::Kind::changedOnDisk);
    EXPECT_EQ(m_folder.read(m_name), "theirs");
    mine.overwrite = SaveRequest::Overwrite::anything;
    EXPECT_TRUE(saveFile(mine));
    EXPECT_EQ(m_folder.read(m_name), "mine");
}

TEST_F(SaveFileTest, AFileThatCameSinceIsLeftAloneAndOneThatWentIsMadeAnew) {
    const SaveRequest mine = request(m_name, u"mine");
    m_folder.write(m_name, "theirs");
    EXPECT_EQ(saveFile(mine).error().kind, SaveError::Kind::changedOnDisk);
    const SaveRequest later = request(m_name, u"mine");
    QFile::remove(m_folder.path(m_name));
    EXPECT_TRUE(saveFile(later));
    EXPECT_EQ(m_folder.read(m_name), "mine");
}

TEST_F(SaveFileTest, ATextThatTheFormatLacksIsRefusedWithOneThatHasIt) {
    m_folder.write(m_name, "\xE9");
    SaveRequest mine = request(m_name, u"é → €");
    mine.format = {FileEncoding::windows1252, false};
    const auto saved = saveFile(mine);
    EXPECT_EQ(saved.error().kind, SaveError::Kind::unencodable);
    EXPECT_EQ(saved.error().alternative, (FileFormat{FileEncoding::utf8, false}));
    EXPECT_EQ(m_folder.read(m_name), "\xE9");
}

TEST_F(SaveFileTest, AFullDiskLeavesTheOldFile) {
    m_folder.write(m_name, "old");
    const SaveRequest large = request(m_name, std::u16string(1'000'000, u'x'));
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{50'000, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const auto restore = qScopeGuard([&] {
        ::setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    });
    const auto saved = saveFile(large);
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().kind, SaveError::Kind::failed);
    EXPECT_EQ(m_folder.read(m_name), "old");
    EXPECT_EQ(names(), QStringList(m_name));
}

TEST_F(SaveFileTest, AFolderThatIsNotThereIsTold) {
    const auto saved = saveFile(request(QStringLiteral("none/a.txt"), u"text"));
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().kind, SaveError::Kind::failed);
}

// The superuser may write everything, so another process goes on as somebody else.
[[noreturn]] void exitWithKindOfError(const SaveRequest& request) {
    constexpr uid_t nobody = 65534;
    if (::geteuid() == 0 && (::setgid(nobody) != 0 || ::setuid(nobody) != 0)) std::_Exit(100);
    const auto saved = saveFile(request);
    std::_Exit(saved ? 101 : static_cast<int>(saved.error().kind));
}

TEST_F(SaveFileTest, ProtectedFilesAndFoldersAreTold) {
    const QByteArray folder = QFile::encodeName(m_folder.root());
    const QByteArray file = QFile::encodeName(m_folder.write(m_name, "old"));
    const auto refused = ::testing::ExitedWithCode(static_cast<int>(SaveError::Kind::failed));
    ::chmod(folder.constData(), 0777);
    ::chmod(file.constData(), 0444);
    EXPECT_EXIT(exitWithKindOfError(request(m_name, u"new")), refused, "");
    ::chmod(folder.constData(), 0555);
    ::chmod(file.constData(), 0666);
    EXPECT_EXIT(exitWithKindOfError(request(m_name, u"new")), refused, "");
    EXPECT_EXIT(exitWithKindOfError(request(QStringLiteral("b.txt"), u"new")), refused, "");
    ::chmod(folder.constData(), 0777);
    EXPECT_EQ(m_folder.read(m_name), "old");
    EXPECT_EXIT(exitWithKindOfError(request(m_name, u"new")), ::testing::ExitedWithCode(101), "");
}

} // namespace
} // namespace tessarine::editor
