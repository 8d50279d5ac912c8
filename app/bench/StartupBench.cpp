// From the start of the process to the first list on screen, with 10,000 snippets in the store. Every sample
// is a process of its own; an empty library, measured in turn with the full one, is the floor.

#include "Quillet/browsing/SnippetList.h"
#include "Quillet/core/Folder.h"
#include "Quillet/core/Snippet.h"
#include "Quillet/core/Tag.h"
#include "app/AppDelegate.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>

#include <algorithm>
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

int fill() {
    const char* languages[] = {"swift", "c",   "cpp", "python", "rust", "go",
                               "java",  "sql", "css", "xml",    "bash", "ruby"};
    std::vector<std::shared_ptr<Tag>> tags;
    std::vector<std::shared_ptr<Folder>> folders;
    for (int i = 0; i < 20; ++i)
        tags.push_back(Tag::create(QStringLiteral("Tag %1").arg(i), static_cast<qint16>(i % 10), {}));
    for (int i = 0; i < 50; ++i)
        folders.push_back(Folder::create(QStringLiteral("Folder %1").arg(i), {}));
    const QString code =
        QStringLiteral("int f(int x) { return x * 42; } // one of many lines\n").repeated(38);
    for (int i = 0; i < snippetCount; ++i) {
        const auto snippet = Snippet::create(QStringLiteral("Snippet %1").arg(i * 7919 % snippetCount), {},
                                             code, QString::fromLatin1(languages[i % 12]));
        snippet->addToMany(Snippet::Tags, *tags[static_cast<std::size_t>(i) % tags.size()]);
        snippet->setToOne(Snippet::InFolder, folders[static_cast<std::size_t>(i) % folders.size()].get());
    }
    CoreDataStack::shared().save(SaveReason::AddedSnippet);
    return CoreDataStack::shared().health().value().saveError ? 1 : 0;
}

bool runSelf(const QString& flag, const QString& dataHome) {
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), dataHome);
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {flag});
    return process.waitForFinished(120'000) && process.exitCode() == 0;
}

double at(std::vector<double>& times, double quantile) {
    std::ranges::sort(times);
    return times[static_cast<std::size_t>(quantile * static_cast<double>(times.size() - 1) + 0.5)];
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.contains(childFlag)) return startAndExit();
    if (arguments.contains(fillFlag)) return fill();

    const QTemporaryDir full;
    const QTemporaryDir empty;
    if (!runSelf(fillFlag, full.path())) return 1;
    std::vector<double> fullTimes;
    std::vector<double> emptyTimes;
    for (int i = 0; i < samples; ++i) {
        for (auto* each : {&fullTimes, &emptyTimes}) {
            QElapsedTimer timer;
            timer.start();
            if (!runSelf(childFlag, (each == &fullTimes ? full : empty).path())) return 1;
            each->push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
        }
    }
    std::printf("start to first shown list, %d samples    median ms     p99 ms\n", samples);
    std::printf("%6d snippets of 2 KB               %9.1f  %9.1f\n", snippetCount, at(fullTimes, 0.5),
                at(fullTimes, 0.99));
    std::printf("     0 snippets (floor)               %9.1f  %9.1f\n", at(emptyTimes, 0.5),
                at(emptyTimes, 0.99));
    std::printf("ratio of the medians                  %9.2f\n", at(fullTimes, 0.5) / at(emptyTimes, 0.5));
    return 0;
}
