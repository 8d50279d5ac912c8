// How long a highlight takes, the helper process included, beside what the pipes alone cost.

#include "platform/foundation/bench/Samples.h"
#include "platform/highlightr/Highlightr.h"
#include "tools/bench/Record.h"

#include <QtCore/QCoreApplication>

#include <cstdio>

using namespace platform;

namespace {

QString sourceOf(qsizetype size) {
    QString text;
    for (int i = 0; text.size() < size; ++i)
        text +=
            QStringLiteral("/* Adds up the %1th row. */\nstatic int sum_%1(const int *row, size_t count) {\n"
                           "    int total = %1;\n    for (size_t i = 0; i < count; ++i) {\n"
                           "        if (row[i] > 0x%1) total += row[i] * 2; // twice\n    }\n"
                           "    printf(\"%d of %zu\\n\", total, count);\n    return total;\n}\n\n")
                .arg(i);
    return text.left(size);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    HighlightProcess process(QCoreApplication::applicationDirPath() + QStringLiteral("/quillet-highlighter"),
                             {.start = std::chrono::seconds(30), .request = std::chrono::seconds(60)});
    const Highlightr highlightr(process);
    int asked = 0;
    // Never the same text twice: it would be known already.
    const auto highlight = [&](const QString& code, const std::optional<QString>& language) {
        return highlightr.highlight(code + QString::number(asked++), language, Highlightr::Rendering::Fast);
    };

    const Samples start = measure(20, [] {
        HighlightProcess fresh(QCoreApplication::applicationDirPath() +
                               QStringLiteral("/quillet-highlighter"));
        fresh.highlight(QStringLiteral("x"), QStringLiteral("c"), 1);
    });
    std::printf(
        "start of the helper, with a first highlight of one character: median %.1f ms, p99 %.1f ms\n\n",
        start.median(), start.p99());
    std::printf("%8s  %-14s  %9s  %9s  %12s  %s\n", "size", "language", "median ms", "p99 ms", "pipes alone",
                "median / pipes");
    for (const int kilobytes : {1, 20, 100}) {
        const QString code = sourceOf(kilobytes * 1024);
        // An unknown language takes the same road without any highlighting.
        const Samples floor = measure(200, [&] { highlight(code, QStringLiteral("none")); });
        for (int i = 0; i < 10; ++i)
            highlight(code, QStringLiteral("c")); // the engine warms up
        const auto row = [&](const char* name, const Samples& times) {
            std::printf("%5d KB  %-14s  %9.2f  %9.2f  %9.3f ms  %.0f\n", kilobytes, name, times.median(),
                        times.p99(), floor.median(), times.median() / floor.median());
            const std::string title = std::to_string(kilobytes) + " KB, language " + name;
            bench::keep({title, "Quillet", times.median(), times.p99(), "ms"});
            bench::keep({title, "pipes alone", floor.median(), floor.p99(), "ms"});
        };
        row("c", measure(200, [&] { highlight(code, QStringLiteral("c")); }));
        row("c, known", measure(200, [&] {
                highlightr.highlight(code, QStringLiteral("c"), Highlightr::Rendering::Fast);
            }));
        row("to be detected", measure(100, [&] { highlight(code, std::nullopt); }));
    }
    return 0;
}
