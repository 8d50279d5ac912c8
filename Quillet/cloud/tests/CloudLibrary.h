#pragma once

#include "Quillet/cloud/CoreDataMigrator.h"
#include "Quillet/core/SnippetKeys.h"
#include "Quillet/core/tests/TemporaryLibrary.h"
#include "platform/cloud/RecordPayload.h"
#include "platform/cloud/tests/FakeCloud.h"

#include <future>
#include <optional>

namespace quillet {

// A library in a temporary directory with a cloud in memory, and the lines that are logged.
class CloudLibrary : public TemporaryLibrary {
protected:
    static inline const QString zone = QStringLiteral("QuilletZone");
    static inline const QString markerType = QStringLiteral("MigrationRecord");

    void SetUp() override {
        context(); // its lines are no part of what is told here
        ::testing::internal::CaptureStdout();
    }

    void TearDown() override {
        container.reset();
        if (isCapturing) ::testing::internal::GetCapturedStdout();
    }

    // Waits until the queue has done all that follows from what was asked, the main loop's share included.
    void settle() {
        // The longest road takes six turns of both; a turn too many is none.
        for (int turns = 0; turns < 10; ++turns) {
            std::promise<void> reached;
            container->accountStatus([&reached](auto, const auto&) { reached.set_value(); });
            reached.get_future().wait();
            turn();
        }
    }

    QStringList log() {
        isCapturing = false;
        return QString::fromStdString(::testing::internal::GetCapturedStdout())
            .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    void addRecord(const QString& type, const QString& name, platform::CKRecord::Fields fields) const {
        cloud->add(zone, {name, type, 0, false, platform::encodePayload(fields), {}});
    }

    void addLegacySnippet(const QString& title) const {
        addRecord(QStringLiteral("Snippet"), QStringLiteral("Snippet.") + title,
                  {{rawValue(SnippetKeys::title), title},
                   {rawValue(SnippetKeys::code), QStringLiteral("code")},
                   {rawValue(SnippetKeys::language), QStringLiteral("swift")}});
    }

    void addMarker(const QString& name, bool isRevision) const {
        addRecord(
            markerType, name,
            {{rawValue(SnippetKeys::id), QByteArray("an archive")},
             {rawValue(SnippetKeys::lastUpdate), QDateTime::fromMSecsSinceEpoch(1'700'000'000'000, Qt::UTC)},
             {rawValue(SnippetKeys::isRevision), isRevision}});
    }

    std::vector<platform::CKRecord> markers() const {
        std::vector<platform::CKRecord> found;
        for (const auto& row : cloud->records(zone, markerType))
            found.emplace_back(row.type, platform::CKRecordID{row.name, {zone}},
                               platform::decodePayload(row.payload).value());
        return found;
    }

    CloudKitService& service() {
        if (!m_service) m_service.emplace(*container, KeyStore::shared());
        return *m_service;
    }

    CoreDataMigrator& migrator() {
        if (!m_migrator) m_migrator.emplace(service(), CoreDataStack::shared(), UserSettings::shared());
        return *m_migrator;
    }

    std::shared_ptr<platform::FakeCloud> cloud = platform::FakeCloud::create();
    std::optional<platform::CKContainer> container{std::in_place, platform::FakeCloud::signedIn(),
                                                   cloud->opener()};

private:
    bool isCapturing = true;
    std::optional<CloudKitService> m_service;
    std::optional<CoreDataMigrator> m_migrator;
};

} // namespace quillet
