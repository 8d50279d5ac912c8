#include "Quillet/core/Snippet.h"
#include "Quillet/core/tests/TemporaryLibrary.h"

#include <QtCore/QProcess>
#include <QtCore/QRandomGenerator>

#include <algorithm>
#include <csignal>
#include <set>

using namespace quillet;

namespace {

constexpr int kills = 50;

// Reads the saver's report until one more save has returned, so that it is in full swing, and then for a
// random number of lines more; the kill falls anywhere in a save.
QByteArray runAndKill(const QString& dataHome, QRandomGenerator& random) {
    QProcess saver;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), dataHome);
    saver.setProcessEnvironment(environment);
    saver.start(QStringLiteral(ENDLESS_SAVER), QStringList());
    QByteArray output;
    while (!output.contains("returned") && saver.waitForReadyRead(10'000))
        output += saver.readAllStandardOutput();
    for (int more = random.bounded(8); more > 0 && saver.waitForReadyRead(1000); --more)
        output += saver.readAllStandardOutput();
    volatile int spin = random.bounded(3'000'000);
    while (spin > 0)
        spin = spin - 1;
    ::kill(static_cast<pid_t>(saver.processId()), SIGKILL);
    saver.waitForFinished();
    return output + saver.readAllStandardOutput();
}

TEST_F(TemporaryLibrary, AKilledProcessHasLostNoSaveThatReturned) {
    QRandomGenerator random(5);
    std::set<int> returned;
    for (int round = 0; round < kills; ++round) {
        const QByteArray output = runAndKill(root.path(), random);
        const auto before = returned.size();
        for (const QByteArray& line : output.split('\n'))
            if (line.startsWith("returned ")) returned.insert(line.mid(9).toInt());
        ASSERT_GT(returned.size(), before) << output.constData();

        ::testing::internal::CaptureStdout();
        CoreDataStack stack(directory);
        const auto snippets = stack.viewContext().fetch({QStringLiteral("Snippet"), {}, {}, {}});
        ::testing::internal::GetCapturedStdout();
        ASSERT_FALSE(stack.health().value().loadError) << "round " << round;
        std::set<int> found;
        for (const auto& object : snippets) {
            const auto& snippet = static_cast<const Snippet&>(*object);
            const int number = snippet.title().toInt();
            found.insert(number);
            ASSERT_EQ(snippet.code(), snippet.title().repeated(500));
            if (!returned.contains(number)) continue; // its kill fell between its two saves
            ASSERT_EQ(snippet.notes(), QStringLiteral("edited ") + snippet.title());
        }
        ASSERT_TRUE(std::ranges::includes(found, returned)) << "round " << round;
    }
}

} // namespace
