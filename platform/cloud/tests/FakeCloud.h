#pragma once

#include "platform/cloud/CloudConnection.h"

#include <QtCore/QStringList>

#include <condition_variable>
#include <future>
#include <map>
#include <memory>
#include <mutex>

namespace platform {

// A database in memory that several stores may have open, and what a test wants to know of it or to have go
// wrong. Any thread.
class FakeCloud : public std::enable_shared_from_this<FakeCloud> {
public:
    static std::shared_ptr<FakeCloud> create() { return std::make_shared<FakeCloud>(); }

    CloudResult<std::unique_ptr<CloudStore>> open();

    // An account like any other, and the opener of this database.
    static AccountReader signedIn();
    StoreOpener opener();

    // From now on the calls of that name fail: "open", "hasZone", "saveZone", "records", "saveRecord".
    void fail(const QString& call, CKError::Code code);
    void mend(const QString& call);
    // The next call of that name lasts until its store is interrupted; the future is ready once it is there.
    std::future<void> hold(const QString& call);
    // The names of all calls so far, failed ones included.
    QStringList calls() const;

    void addZone(const QString& zone);
    void add(const QString& zone, const ZoneRecord& record);
    std::vector<ZoneRecord> records(const QString& zone, const QString& type) const;

private:
    friend class FakeCloudStore;

    CloudResult<void> enter(const QString& call);
    void interrupt();

    mutable std::mutex m_mutex; // guards these
    std::map<QString, std::map<QString, ZoneRecord>> m_zones;
    std::map<QString, CKError::Code> m_failures;
    QStringList m_calls;
    QString m_held;
    std::promise<void> m_isHeld;
    bool m_isInterrupted = false;
    std::condition_variable m_interruption;
};

} // namespace platform
