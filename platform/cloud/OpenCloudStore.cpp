#include "platform/cloud/OpenCloudStore.h"

#include "platform/cloud/PostgresDialect.h"
#include "platform/cloud/SqlCloudStore.h"
#include "platform/cloud/SqliteDialect.h"

namespace platform {

namespace {

std::unique_ptr<SqlDialect> dialectOf(const ServerAccount& account, Deadline deadline, MissingFile) {
    return std::make_unique<PostgresDialect>(account, deadline);
}

std::unique_ptr<SqlDialect> dialectOf(const FileAccount& account, Deadline deadline,
                                      MissingFile missingFile) {
    return std::make_unique<SqliteDialect>(account.path, deadline, missingFile);
}

} // namespace

CloudResult<std::unique_ptr<CloudStore>> openCloudStore(const CloudAccount& account, Deadline deadline,
                                                        MissingFile missingFile) {
    auto dialect =
        std::visit([=](const auto& kind) { return dialectOf(kind, deadline, missingFile); }, account);
    return SqlCloudStore::open(std::move(dialect), deadline);
}

} // namespace platform
