#include "Quillet/screens/settings/HelpMail.h"

#include "Quillet/screens/settings/DeploymentValues.h"

namespace quillet {

namespace {

QString textOf(bool value) {
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

} // namespace

platform::MailMessage helpMail(const HelpMailFacts& facts) {
    // Both lines on the migration say the same.
    const QString migration = textOf(facts.foundMigrationRecord);
    const QString body =
        QStringLiteral("I need some help with Quillet.\n\n\n\n\n\n==========\n"
                       "Migration Started: %1\nMigration Complete: %1\nLegacy Record Count: %2\n\n"
                       "Snippets: %3\nTags: %4\nFolders: %5\nBuild: %6")
            .arg(migration, QString::number(facts.legacyRecordCount), QString::number(facts.snippets),
                 QString::number(facts.tags), QString::number(facts.folders), facts.versionLine);
    return {.recipient = deployment::supportAddress, .subject = QStringLiteral("Quillet Help"), .body = body};
}

} // namespace quillet
