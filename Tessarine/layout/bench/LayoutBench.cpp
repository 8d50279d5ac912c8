// What a layout pass costs: opening, scrolling, jumping, one endless line, a change of theme. Rows are set by
// a shaper that only adds up widths, so this is the engine's share; the host's text system comes on top.

#include "Tessarine/document/bench/BenchRow.h"
#include "Tessarine/document/bench/SourceText.h"
#include "Tessarine/document/bench/Workload.h"
#include "Tessarine/layout/manager/LayoutManager.h"
#include "Tessarine/layout/manager/tests/ReckonedMeasurer.h"
#include "Tessarine/layout/tests/FixedAdvanceShaper.h"
#include "Tessarine/syntax/PlainTextInternalLanguageMode.h"

#include <algorithm>
#include <malloc.h>
#include <string>

using namespace tessarine;

namespace {

constexpr double rowHeight = 11;
constexpr double screenHeight = 60 * rowHeight;
constexpr double screenWidth = 1'200;

std::u16string sourceLines(int count) {
    const std::string text = sourceText(count);
    return {text.begin(), text.end()};
}

EditedDocument documentOf(std::u16string_view text) {
    EditedDocument document;
    document.stringView = std::make_shared<StringView>(text);
    document.lineManager = std::make_shared<LineManager>(document.stringView);
    document.lineManager->setEstimatedLineHeight(rowHeight);
    document.lineManager->rebuild();
    document.languageMode = std::make_shared<PlainTextInternalLanguageMode>();
    return document;
}

// A window onto a document.
class Screen {
public:
    explicit Screen(const EditedDocument& document, bool isWrapping = true) {
        m_manager->setViews(m_scrollView, *m_textView);
        m_scrollView->setFrame({.width = screenWidth, .height = screenHeight});
        m_manager->setShowLineNumbers(true);
        m_manager->setLineWrappingEnabled(isWrapping);
        m_manager->setScrollViewWidth(screenWidth);
        m_manager->setDocument(document);
    }

    LayoutManager& manager() { return *m_manager; }

    void show(double y) {
        m_scrollView->setContentOffset({.y = y});
        m_manager->setViewport(m_scrollView->bounds());
        m_manager->layoutIfNeeded();
    }

    double top() const { return m_scrollView->contentOffset().y; }

    double lowest() const { return m_manager->contentSize().height - screenHeight; }

private:
    const std::shared_ptr<ScrollView> m_scrollView = std::make_shared<ScrollView>();
    const std::shared_ptr<View> m_textView = std::make_shared<View>();
    const std::shared_ptr<LayoutManager> m_manager =
        LayoutManager::create(std::make_shared<FixedAdvanceShaper>(), std::make_shared<ReckonedMeasurer>());
};

Samples timeOpening(const EditedDocument& document) {
    Samples samples;
    for (int i = 0; i < 200; ++i)
        samples.measure([&] { Screen(document).show(0); });
    return samples;
}

Samples timeScrolling(Screen& screen, double step, int count) {
    Samples samples;
    for (int i = 0; i < count; ++i) {
        const double y = screen.top() + step > screen.lowest() ? 0 : screen.top() + step;
        samples.measure([&] { screen.show(y); });
    }
    return samples;
}

Samples timeJumps(Screen& screen, int count) {
    WorkloadRandom random;
    Samples samples;
    for (int i = 0; i < count; ++i) {
        const auto y = static_cast<double>(random(static_cast<std::int64_t>(screen.lowest()) + 1));
        samples.measure([&] { screen.show(y); });
    }
    return samples;
}

void benchLines(int lines) {
    const EditedDocument document = documentOf(sourceLines(lines));
    Samples opening = timeOpening(document);
    printGrowingRow("first viewport of 60 rows", lines, opening, microseconds, "us");
    Screen screen(document);
    screen.show(0);
    Samples rows = timeScrolling(screen, rowHeight, 5'000);
    printGrowingRow("scroll by a row", lines, rows, microseconds, "us");
    Samples pages = timeScrolling(screen, screenHeight, 2'000);
    printGrowingRow("page down", lines, pages, microseconds, "us");
    Samples jumps = timeJumps(screen, 2'000);
    printGrowingRow("jump to a random place", lines, jumps, microseconds, "us");
}

// Resident memory does not tell here: what the text was made from has left room enough.
double heapBytes() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

// What is kept of lines that have been on screen, and what a new theme costs with many of them.
void benchVisitedLines() {
    const EditedDocument document = documentOf(sourceLines(1'000'000));
    Screen screen(document);
    screen.show(0);
    const double before = heapBytes();
    while (screen.manager().lineControllerCount() < 10'000)
        screen.show(screen.top() + screenHeight);
    const double kept = (heapBytes() - before) / static_cast<double>(screen.manager().lineControllerCount());
    std::printf("%-58s %10.0f %10s  bytes\n", "kept for each of 10,000 visited lines", kept, "");
    bench::keep({"kept for each of 10,000 visited lines", "Tessarine", kept, kept, "bytes"});
    Samples themes;
    for (int i = 0; i < 200; ++i)
        themes.measure([&] {
            screen.manager().setTheme(std::make_shared<DefaultTheme>());
            screen.manager().layoutIfNeeded();
        });
    printRow("another theme, 10,000 visited lines", themes, microseconds, "us");
    Samples back;
    for (int i = 0; i < 100; ++i)
        back.measure([&] { screen.show(i * screenHeight); });
    printRow("page through visited lines after it", back, microseconds, "us");
}

void benchPlace(const EditedDocument& document, bool isWrapping, double part, const char* place) {
    const std::string name =
        std::string("10 MB in one line, wrapping ") + (isWrapping ? "on, " : "off, ") + place;
    Samples arriving;
    Samples scrolling;
    for (int i = 0; i < 3; ++i) {
        Screen screen(document, isWrapping);
        if (part > 0) screen.show(0);
        arriving.measure([&] { screen.show(part * std::max(0.0, screen.lowest())); });
        for (int step = 0; step < 100; ++step)
            scrolling.measure([&] { screen.show(screen.top() + (part < 1 ? rowHeight : -rowHeight)); });
    }
    printRow(name + ", arriving", arriving, milliseconds, "ms");
    printRow(name + ", a row on", scrolling, microseconds, "us");
}

void benchOneLine() {
    std::u16string text;
    while (text.size() < 10'000'000)
        text += u"{\"name\": \"value\", \"list\": [1, 2, 3, 4]}, ";
    for (const bool isWrapping : {true, false}) {
        const EditedDocument document = documentOf(text);
        benchPlace(document, isWrapping, 0, "start");
        benchPlace(document, isWrapping, 0.5, "middle");
        benchPlace(document, isWrapping, 1, "end");
    }
}

} // namespace

int main() {
    std::printf("%-58s %10s %10s\n", "", "median", "p99");
    for (const int lines : {1'000, 10'000, 100'000, 1'000'000, 10'000'000})
        benchLines(lines);
    benchVisitedLines();
    benchOneLine();
}
