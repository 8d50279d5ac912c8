// From the start of the process to the first list on screen, with 10,000 snippets in the store. Every sample
// is a process of its own; an empty library, measured in turn with the full one, is the floor.

#include "Quillet/browsing/SnippetList.h"
#include "Quillet/core/bench/BenchLibrary.h"
#include "app/AppDelegate.h"
#include "platform/foundation/bench/Samples.h"
#include "tools/bench/Record.h"

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>

#include <cstdio>
#include <unistd.h>

using namespace quillet;

namespace {

constexpr int snippetCount = 10'000;
constexpr int samples = 30;
const QString childFlag = QStringLiteral("--child");
const QString fillFlag = QStringLiteral("--fill");

// Ends the process at the first painting of the list.
class FirstPaint : public QObject {
protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            watched->removeEventFilter(this);
            QMetaObject::invokeMethod(qApp, [] { _exit(0); }, Qt::QueuedConnection);
        }
        return false;
    }
};

int startAndExit() {
    AppDelegate delegate;
    delegate.didFinishLaunching();
    FirstPaint firstPaint;
    delegate.window().findChild<SnippetList*>()->viewport()->installEventFilter(&firstPaint);
    return QApplication::exec();
}

bool runSelf(const QString& flag, const QString& dataHome) {
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), dataHome);
    environment.insert(QStringLiteral("XDG_STATE_HOME"), dataHome); // the window's place is no part of it
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {flag});
    return process.waitForFinished(120'000) && process.exitCode() == 0;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.contains(childFlag)) return startAndExit();
    if (arguments.contains(fillFlag)) return fillBenchLibrary(snippetCount) ? 0 : 1;

    const QTemporaryDir full;
    const QTemporaryDir empty;
    if (!runSelf(fillFlag, full.path())) return 1;
    platform::Samples fullTimes;
    platform::Samples emptyTimes;
    bool worked = true;
    for (int i = 0; i < samples; ++i)
        for (auto* each : {&fullTimes, &emptyTimes})
            each->add(platform::millisecondsOf(
                [&] { worked = runSelf(childFlag, (each == &fullTimes ? full : empty).path()) && worked; }));
    if (!worked) return 1;
    std::printf("start to first shown list, %d samples    median ms     p99 ms\n", samples);
    std::printf("%6d snippets of 2 KB               %9.1f  %9.1f\n", snippetCount, fullTimes.median(),
                fullTimes.p99());
    std::printf("     0 snippets (floor)               %9.1f  %9.1f\n", emptyTimes.median(),
                emptyTimes.p99());
    bench::keep({"start to the first painted list, 10,000 snippets", "Quillet", fullTimes.median(),
                 fullTimes.p99(), "ms"});
    bench::keep({"start to the first painted list, 10,000 snippets", "empty library", emptyTimes.median(),
                 emptyTimes.p99(), "ms"});
    std::printf("ratio of the medians                  %9.2f\n", fullTimes.median() / emptyTimes.median());
    return 0;
}
