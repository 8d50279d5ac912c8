#include "account/TryConnection.h"

#include "account/tests/AccountFiles.h"

using namespace account;
using platform::CKError;
using platform::FileAccount;

namespace {

class TryConnectionTest : public AccountFiles {
protected:
    TryConnection tryConnection{passwordPath};
};

TEST_F(TryConnectionTest, AFileIsMadeWhereItsFolderIsThere) {
    EXPECT_TRUE(tryConnection(FileAccount{directory.filePath(QStringLiteral("cloud"))}, QString()));
    const auto missing = tryConnection(FileAccount{QStringLiteral("/nonexistent/cloud")}, QString());
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error().code, CKError::Code::NetworkUnavailable);
}

TEST_F(TryConnectionTest, AServerThatIsNotThereIsUnreachableAndThePasswordLeavesNoTrace) {
    server.host = directory.path(); // a folder without a socket
    const auto refused = tryConnection(server, QStringLiteral("secret"));
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().code, CKError::Code::NetworkUnavailable);
    EXPECT_FALSE(refused.error().message.contains(QStringLiteral("secret")));
    EXPECT_FALSE(QFile::exists(passwordPath));
    EXPECT_FALSE(QFile::exists(QFile::decodeName(qgetenv("PGPASSFILE"))));
}

} // namespace
