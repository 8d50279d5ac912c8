#include "Quillet/core/LibraryModel.h"
#include "Quillet/core/tests/LibraryScript.h"
#include "Quillet/core/tests/TemporaryLibrary.h"

#include <QtCore/QFileInfo>
#include <QtCore/QProcess>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>

using namespace quillet;

namespace {

constexpr quint32 seed = 5;
constexpr int steps = 1'000;
constexpr int mostKills = 60;
constexpr int fewestKills = 50;
constexpr quint32 mostSavesARun = 20;
constexpr quint32 longestSpin = 2'000'000; // turns of a loop, about as long as a save

// What the process said before it ended: the last step of which a save began, and the last one of which it
// returned; 0 for none.
struct Report {
    int saving = 0;
    int saved = 0;
};

Report reportIn(const QByteArray& output) {
    Report report;
    for (const QByteArray& line : output.split('\n')) {
        if (line.startsWith("saving ")) report.saving = line.mid(7).toInt();
        if (line.startsWith("saved ")) report.saved = line.mid(6).toInt();
    }
    return report;
}

// A killed process leaves what it has given to the system, on a disk or not: memory does, and is quick.
QString memoryFolder() {
    const QFileInfo folder(QStringLiteral("/dev/shm"));
    return folder.isDir() && folder.isWritable() ? folder.filePath() : QDir::tempPath();
}

class Kill : public TemporaryLibrary {
protected:
    Kill()
        : TemporaryLibrary(memoryFolder()) {}

    void start(QProcess& process) {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_DATA_HOME"), root.path());
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(SCRIPT_RUNNER), {QString::number(steps)});
    }

    // Runs the script for some saves, and kills it at a random moment of the one after them.
    Report runAndKill() {
        QProcess process;
        start(process);
        QByteArray output;
        const int saves = 1 + static_cast<int>(random.bounded(mostSavesARun));
        while (output.count("saving ") < saves && process.waitForReadyRead(10'000))
            output += process.readAllStandardOutput();
        volatile int spin = static_cast<int>(random.bounded(longestSpin));
        while (spin > 0)
            spin = spin - 1;
        ::kill(static_cast<pid_t>(process.processId()), SIGKILL);
        process.waitForFinished();
        return reportIn(output + process.readAllStandardOutput());
    }

    void checkFile() {
        const auto connection =
            platform::SqliteConnection::open(storePath, platform::SqliteConnection::Access::ReadWrite)
                .value();
        ASSERT_EQ(connection->scalar(QStringLiteral("PRAGMA integrity_check")), QStringLiteral("ok"));
        const auto broken = connection->scalar(QStringLiteral("PRAGMA foreign_key_check"));
        ASSERT_TRUE(broken);
        ASSERT_TRUE(broken->isNull()) << broken->toString().toStdString();
    }

    // Compares the store with the library that was never killed, and sets `step` to what the store holds.
    void checkLibrary() {
        ::testing::internal::CaptureStdout();
        CoreDataStack stack(directory);
        const LibraryScript script(stack.viewContext());
        ::testing::internal::GetCapturedStdout();
        ASSERT_FALSE(stack.health().value().loadError);
        for (const int reached = script.lastStep(); step < reached;)
            neverKilledScript.make(++step);
        ASSERT_EQ(script.lastStep(), step);
        ASSERT_EQ(script.dump(), neverKilledScript.dump()) << "step " << step;
    }

    QRandomGenerator random{seed};
    platform::ManagedObjectContext neverKilled{libraryModel()}; // without a store, in memory
    LibraryScript neverKilledScript{neverKilled};
    int step = 0;
};

TEST_F(Kill, AThousandSavesAndManyKillsLoseNoSaveThatReturned) {
    int kills = 0;
    int inASave = 0;
    for (; kills < mostKills && step < steps; ++kills) {
        SCOPED_TRACE(::testing::Message() << "seed " << seed << ", kill " << kills << ", step " << step);
        const Report report = runAndKill();
        const int returned = std::max(step, report.saved);
        if (report.saving > report.saved) ++inASave;
        checkFile();
        checkLibrary();
        ASSERT_FALSE(HasFatalFailure());
        ASSERT_GE(step, returned);
        ASSERT_LE(step, returned + 1);
    }
    EXPECT_GE(kills, fewestKills);
    // Where in a save a kill falls is luck; the store's own tests break off saves at every write.
    EXPECT_GT(inASave, 0);

    QProcess process;
    start(process);
    ASSERT_TRUE(process.waitForFinished(60'000));
    EXPECT_EQ(process.exitCode(), 0);
    checkFile();
    checkLibrary();
    EXPECT_EQ(step, steps);
}

} // namespace
