// What the library costs at 10,000 and at 100,000 snippets, on the disk and, as a floor without its syncs, in
// memory (/dev/shm). Every size and place is measured in a process of its own; beside each figure stands the
// same at the other size, which tells how it grows, or what plain SQLite takes for the same rows.

#include "Quillet/browsing/SnippetListModel.h"
#include "Quillet/core/TagService.h"
#include "Quillet/core/bench/BenchLibrary.h"
#include "platform/foundation/bench/Samples.h"
#include "tools/bench/Record.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

#include <array>
#include <cstdio>
#include <map>

using namespace quillet;
using platform::measure;
using platform::millisecondsOf;
using platform::Samples;

namespace {

constexpr std::array sizes{10'000, 100'000};
constexpr int tagMembers = 5'000;
const QString fillFlag = QStringLiteral("--fill");
const QString measureFlag = QStringLiteral("--measure");

// Resident memory of this process, in KiB.
qint64 residentKibibytes() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmRSS:")) return line.mid(6).simplified().split(' ').first().toLongLong();
    return 0;
}

// A figure on its way from the measuring process to the one that prints.
void report(const char* name, double median, double p99) {
    std::fprintf(stderr, "figure|%s|%.3f|%.3f\n", name, median, p99);
}

void report(const char* name, const Samples& samples) {
    report(name, samples.median(), samples.p99());
}

QString storePath() {
    return qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/Quillet/Quillet.sqlite");
}

std::unique_ptr<platform::SqliteConnection> plainConnection() {
    auto connection =
        platform::SqliteConnection::open(storePath(), platform::SqliteConnection::Access::Existing);
    (*connection)->setPragma(QStringLiteral("synchronous"), 3).value();
    return std::move(*connection);
}

void measureLoading() {
    const qint64 before = residentKibibytes();
    CoreDataStack::shared().viewContext();
    const auto memory = static_cast<double>(residentKibibytes() - before) / 1024;
    report("memory of the library, MB", memory, memory);
    report("load all", measure(9, [] {
               CoreDataStack stack(QFileInfo(storePath()).absolutePath());
               stack.viewContext();
           }));
    const auto plain = plainConnection();
    report("  plain: quick_check",
           measure(9, [&] { (void)plain->scalar(QStringLiteral("PRAGMA quick_check")); }));
    report("  plain: read the same columns", measure(9, [&] {
               (void)plain->query(
                   QStringLiteral("SELECT _id, id, name, lastUpdate, title, notes, language, folder "
                                  "FROM Snippet ORDER BY rowid"),
                   {}, [](const QSqlQuery& row) {
                       for (int i = 0; i < 8; ++i)
                           row.value(i);
                   });
           }));
}

void measureSaving() {
    auto& context = CoreDataStack::shared().viewContext();
    const auto snippets = context.fetch({QStringLiteral("Snippet"), {}, {}, {}});
    int number = 0;
    const auto next = [&] {
        const auto at = static_cast<std::size_t>(++number) * 7919 % snippets.size();
        return std::static_pointer_cast<Snippet>(snippets[at]);
    };
    report("save one property", measure(200, [&] {
               next()->setTitle(QStringLiteral("Renamed %1").arg(number));
               (void)context.save();
           }));
    const auto plain = plainConnection();
    report("  plain: update one column", measure(200, [&] {
               (void)plain->run(QStringLiteral("UPDATE Snippet SET title = ? WHERE _id = ?"),
                                {QStringLiteral("Renamed %1").arg(number), next()->objectID().toRfc4122()});
           }));
    Samples inserts;
    for (int round = 0; round < 9; ++round) {
        std::vector<std::shared_ptr<Snippet>> fresh;
        for (int i = 0; i < 1000; ++i)
            fresh.push_back(Snippet::create(QStringLiteral("Fresh %1").arg(i), {}, QString(2000, u'x'),
                                            QStringLiteral("swift")));
        inserts.add(millisecondsOf([&] { (void)context.save(); }));
        for (const auto& snippet : fresh)
            context.deleteObject(*snippet);
        (void)context.save();
    }
    report("insert 1,000 in one save", inserts);
}

void measureTagDeletion() {
    auto& context = CoreDataStack::shared().viewContext();
    const auto snippets = context.fetch({QStringLiteral("Snippet"), {}, {}, tagMembers});
    Samples deletions;
    for (int round = 0; round < 5; ++round) {
        const auto tag = Tag::create(QStringLiteral("Short-lived"), 0, {});
        for (const auto& snippet : snippets)
            tag->addToMany(Tag::Snippets, *snippet);
        (void)context.save();
        deletions.add(millisecondsOf([&] { TagService::shared().remove(*tag, TagService::Snippets::Keep); }));
    }
    report("delete a tag of 5,000 snippets", deletions);
}

void measureRebuild() {
    SnippetListModel model;
    const auto rebuild = [&] { model.rebuild(model.snippets(), model.folders(), model.tags()); };
    report("rebuild the list model", measure(25, rebuild));
}

int measureAll() {
    measureLoading();
    measureRebuild();
    measureSaving();
    measureTagDeletion();
    return 0;
}

using Figures = std::vector<std::pair<QString, std::pair<double, double>>>;

// What a run of this program in another data directory reports.
Figures figuresOf(const QString& dataHome, const QString& flag, int size) {
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), dataHome);
    process.setProcessEnvironment(environment);
    process.setStandardOutputFile(QProcess::nullDevice());
    process.start(QCoreApplication::applicationFilePath(), {flag, QString::number(size)});
    if (!process.waitForFinished(600'000) || process.exitCode() != 0) qFatal("a measuring process failed");
    Figures figures;
    for (const QByteArray& line : process.readAllStandardError().split('\n')) {
        const auto parts = line.split('|');
        if (parts.size() == 4 && parts[0] == "figure")
            figures.push_back({QString::fromUtf8(parts[1]), {parts[2].toDouble(), parts[3].toDouble()}});
    }
    return figures;
}

void keepFigures(const QString& place, const std::array<Figures, sizes.size()>& columns, std::size_t row) {
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        const auto& [name, figure] = columns[i][row];
        bench::keep({(name + QStringLiteral(", ") + place).toStdString(), "Quillet", figure.first,
                     figure.second, "ms", static_cast<double>(sizes[i])});
    }
}

void printTable(const QString& place, const QString& folder) {
    std::array<Figures, sizes.size()> columns;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        const QTemporaryDir dataHome(folder + QStringLiteral("/quillet-bench-XXXXXX"));
        figuresOf(dataHome.path(), fillFlag, sizes[i]);
        columns[i] = figuresOf(dataHome.path(), measureFlag, sizes[i]);
    }
    std::printf("%-34s %21s %21s %8s\n", qUtf8Printable(place), "10,000: median, p99", "100,000: median, p99",
                "growth");
    for (std::size_t row = 0; row < columns[0].size(); ++row) {
        const auto& [name, small] = columns[0][row];
        const auto& large = columns[1][row].second;
        std::printf("%-34s %10.2f %10.2f %10.2f %10.2f %8.1f\n", qUtf8Printable(name), small.first,
                    small.second, large.first, large.second, large.first / small.first);
        keepFigures(place, columns, row);
    }
    std::printf("\n");
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.contains(fillFlag)) return fillBenchLibrary(arguments.last().toInt()) ? 0 : 1;
    if (arguments.contains(measureFlag)) return measureAll();
    std::printf("milliseconds\n");
    printTable(QStringLiteral("on the disk"), QDir::tempPath());
    printTable(QStringLiteral("in memory (no syncs)"), QStringLiteral("/dev/shm"));
    return 0;
}
