// What it takes to carry a library through the cloud: the first push and the first pull of 10,000 snippets,
// the time from a save on one device to the list of another, and what two idle devices cost. The server runs
// on this machine, so figures include its work; the floor is the same number of records of the same size,
// pushed and read by the bare store without a mirror on either side.

#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/LibraryMirror.h"
#include "Quillet/core/Repository.h"
#include "Quillet/core/Snippet.h"
#include "Quillet/core/UserSettings.h"
#include "Quillet/core/bench/BenchLibrary.h"
#include "platform/cloud/RemoteNotifications.h"
#include "platform/cloud/tests/CloudFixture.h"
#include "platform/foundation/bench/Samples.h"
#include "tools/bench/Record.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>

#include <cstdio>
#include <sys/resource.h>

using namespace quillet;
using platform::Samples;
using platform::testing::Cloud;

namespace {

constexpr int snippets = 10'000;
constexpr int edits = 300;
constexpr int idleSeconds = 30;
constexpr int batch = 400;

// What has gone over the loopback interface, in bytes.
qint64 loopbackBytes() {
    QFile devices(QStringLiteral("/proc/net/dev"));
    if (!devices.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : devices.readAll().split('\n')) {
        const QByteArray trimmed = line.trimmed();
        if (trimmed.startsWith("lo:")) return trimmed.mid(3).simplified().split(' ').first().toLongLong();
    }
    return 0;
}

double cpuMilliseconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto of = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return of(usage.ru_utime) + of(usage.ru_stime);
}

void wait(const std::function<bool()>& condition) {
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

struct Transfer {
    double seconds = 0;
    qint64 bytes = 0;
};

Transfer timed(const std::function<void()>& work) {
    const qint64 before = loopbackBytes();
    QElapsedTimer timer;
    timer.start();
    work();
    return {static_cast<double>(timer.nsecsElapsed()) / 1e9, loopbackBytes() - before};
}

void keep(const std::string& row, const char* who, double value, const char* unit) {
    bench::keep({row, who, value, value, unit});
}

void print(const std::string& name, const Transfer& transfer, const Transfer& floor, int records,
           const char* place) {
    keep(name + ", " + place, "Quillet", transfer.seconds, "s");
    keep(name + ", " + place, "records alone", floor.seconds, "s");
    std::printf("| %s | %.2f | %.0f | %.2f | %.1f |\n", name.c_str(), transfer.seconds,
                static_cast<double>(transfer.bytes) / records, floor.seconds,
                transfer.seconds / floor.seconds);
}

void start(CoreDataStack& stack, platform::UbiquitousKeyValueStore& settings, const Cloud& cloud) {
    const auto account = cloud.account();
    stack.startMirroring([account] { return platform::AccountResult(account); },
                         [](const platform::CloudAccount& at) {
                             return platform::openCloudStore(at, std::chrono::seconds(60));
                         },
                         settings);
}

bool isUpToDate(CoreDataStack& stack) {
    return stack.cloudKitContainer().mirrorStatus().value().state == platform::MirrorStatus::State::UpToDate;
}

std::size_t count(CoreDataStack& stack) {
    return stack.viewContext().fetch({QStringLiteral("Snippet"), {}, {}, {}}).size();
}

// Records of the size that snippets have there, pushed and read without a mirror.
std::pair<Transfer, Transfer> measureFloor(const Cloud& cloud, qsizetype payloadBytes) {
    const QString zone = QStringLiteral("Floor");
    const auto store = platform::testing::openStore(cloud.account());
    platform::testing::Device writer(*store, zone);
    if (!writer.pull()) return {};
    const QByteArray payload(payloadBytes, 'x');
    const Transfer push = timed([&] {
        for (int first = 0; first < snippets; first += batch) {
            std::vector<platform::ZoneRecord> records;
            for (int i = first; i < first + batch; ++i)
                records.push_back(platform::testing::record(QString::number(i), payload));
            (void)writer.push(std::move(records));
        }
    });
    platform::testing::Device reader(*store, zone);
    const Transfer pull = timed([&] { (void)reader.pull(batch); });
    return {push, pull};
}

Samples measurePropagation(CoreDataStack& from, CoreDataStack& to) {
    const auto edited = Repository<Snippet>(from.viewContext()).results().value().front();
    const auto id = edited->objectID();
    std::shared_ptr<platform::ManagedObject> shown;
    for (const auto& object : to.viewContext().fetch({QStringLiteral("Snippet"), {}, {}, {}}))
        if (object->objectID() == id) shown = object;
    Samples samples;
    for (int i = 0; i < edits; ++i) {
        const QString title = QStringLiteral("Title %1").arg(i);
        edited->setTitle(title);
        QElapsedTimer timer;
        timer.start();
        from.saveContext();
        wait([&] { return shown->value(Snippet::Title) == title; });
        samples.add(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    return samples;
}

void measure(Cloud::Kind kind, CoreDataStack& first, CoreDataStack& second,
             platform::UbiquitousKeyValueStore& secondSettings) {
    const Cloud cloud(kind);
    const Transfer push = timed([&] {
        start(first, defaultKeyValueStore(), cloud);
        wait([&] { return isUpToDate(first); });
    });
    const Transfer pull = timed([&] {
        start(second, secondSettings, cloud);
        wait([&] { return isUpToDate(second) && count(second) == snippets; });
    });
    const auto [floorPush, floorPull] = measureFloor(cloud, 2'400);
    const char* place = kind == Cloud::Kind::Server ? "PostgreSQL, over loopback" : "one file";
    std::printf(
        "\n%s\n\n| | seconds | bytes a record | floor, seconds | ratio |\n| --- | --- | --- | --- | --- |\n",
        place);
    print("first push of 10,000", push, floorPush, snippets, place);
    print("first pull of 10,000", pull, floorPull, snippets, place);
    const Samples propagation = measurePropagation(first, second);
    std::printf("\nfrom a save to the other device's list, ms: p50 %.1f, p95 %.1f, p99 %.1f (%d samples)\n",
                propagation.median(), propagation.quantile(0.95), propagation.p99(), edits);
    bench::keep({std::string("from a save to the other device, ") + place, "Quillet", propagation.median(),
                 propagation.p99(), "ms"});
    const double before = cpuMilliseconds();
    QEventLoop idle;
    QTimer::singleShot(idleSeconds * 1'000, &idle, &QEventLoop::quit);
    idle.exec();
    const double idleCost = (cpuMilliseconds() - before) / idleSeconds;
    std::printf("two idle devices: %.2f ms of CPU a second\n", idleCost);
    keep(std::string("a second of two idle devices, ") + place, "Quillet", idleCost, "ms of CPU");
    first.stopMirroring();
    second.stopMirroring();
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QStringList kinds{QStringLiteral("server"), QStringLiteral("file")};
    const QString kind = application.arguments().value(1);
    if (!kinds.contains(kind)) {
        // Each begins with a library that no cloud has seen.
        for (const QString& each : kinds)
            if (QProcess::execute(QCoreApplication::applicationFilePath(), {each}) != 0) return 1;
        return 0;
    }
    QTemporaryDir root;
    qputenv("XDG_DATA_HOME", root.path().toUtf8());
    platform::registerForRemoteNotifications();
    if (!fillBenchLibrary(snippets)) return 1;
    QTemporaryDir other;
    platform::UbiquitousKeyValueStore settings(other.filePath(QStringLiteral("Settings.json")));
    CoreDataStack second(other.path());
    measure(kind == kinds[0] ? Cloud::Kind::Server : Cloud::Kind::File, CoreDataStack::shared(), second,
            settings);
    return 0;
}
