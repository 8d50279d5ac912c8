// What a document of one line of 10,000,000 characters costs the display of that line: to show its start, to
// go to its middle and its end, to scroll and to type there. Rows are set by a shaper that only adds up
// widths, so this is the engine's share; the host's text system comes on top.

#include "Tessarine/document/bench/BenchRow.h"
#include "Tessarine/layout/LineController.h"
#include "Tessarine/layout/tests/FixedAdvanceShaper.h"
#include "Tessarine/syntax/PlainTextInternalLanguageMode.h"
#include "Tessarine/syntax/bench/BenchDocument.h"
#include "Tessarine/syntax/bench/SampleTexts.h"

#include <cstdio>
#include <malloc.h>
#include <string>
#include <vector>

using namespace tessarine;

namespace {

constexpr double rowHeight = 11;
constexpr double screenHeight = 60 * rowHeight;
constexpr double screenWidth = 1'200;

double allocated() {
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

// What a parse has given back is sorted by the next large allocations, some thousand pieces by each, which
// are not to be those that are measured.
void tidyHeap() {
    malloc_trim(0);
    static std::vector<char> large;
    for (int i = 0; i < 1'000; ++i)
        large = std::vector<char>(100'000);
}

struct Host final : LineControllerDelegate {
    explicit Host(InternalLanguageMode& languageMode)
        : mode(languageMode) {}

    std::shared_ptr<LineSyntaxHighlighter> lineSyntaxHighlighter(LineController& /*controller*/) override {
        return mode.createLineSyntaxHighlighter();
    }

    void lineControllerDidChangeHeight(LineController& /*controller*/) override {}

    InternalLanguageMode& mode;
};

class Screen {
public:
    Screen(const BenchDocument& document, InternalLanguageMode& mode, double width)
        : m_host(std::make_shared<Host>(mode))
        , m_controller(
              std::make_shared<LineController>(DocumentLineNodeReference(&document.lineManager->lineAtRow(0)),
                                               document.stringView, std::make_shared<FixedAdvanceShaper>())) {
        m_controller->setDelegate(m_host);
        m_controller->setConstrainingWidth(width);
    }

    LineController& controller() { return *m_controller; }

    void show(double y) {
        m_controller->prepareToDisplayString(
            LineController::InRect{{.y = y, .width = screenWidth, .height = screenHeight}}, false);
        m_controller->lineFragmentControllers({.y = y, .height = screenHeight});
    }

    double bottom() { return m_controller->lineHeight(); }

private:
    const std::shared_ptr<Host> m_host;
    const std::shared_ptr<LineController> m_controller;
};

Samples timePages(Screen& screen, double from, double step) {
    Samples samples;
    for (int i = 0; i < 100; ++i)
        samples.measure([&] { screen.show(from + i * step); });
    return samples;
}

// Typed and taken back, without what the text and its syntax cost.
Samples timeKeys(BenchDocument& document, Screen& screen, std::int64_t at, double y) {
    Samples samples;
    for (int i = 0; i < 20; ++i) {
        const auto change = document.changeText(at, i % 2 == 0);
        document.mode->textDidChange(change);
        tidyHeap();
        samples.measure([&] {
            screen.controller().invalidateString();
            screen.show(y);
        });
    }
    return samples;
}

void benchWindow(BenchDocument& document, InternalLanguageMode& mode, const std::string& of, double width) {
    Samples start;
    for (int i = 0; i < 10; ++i)
        start.measure([&] { Screen(document, mode, width).show(0); });
    printRow("its start" + of, start, milliseconds, "ms");
    const double memory = allocated();
    Screen screen(document, mode, width);
    screen.show(0);
    const double middle = screen.bottom() / 2;
    Samples toMiddle;
    toMiddle.measure([&] { screen.show(middle); });
    printRow("  from the start to the middle" + of, toMiddle, milliseconds, "ms");
    Samples pages = timePages(screen, middle, screenHeight);
    printRow("  pages down from there" + of, pages, milliseconds, "ms");
    const auto& rows = screen.controller().lineFragments();
    Samples keys = timeKeys(document, screen, rows[rows.size() - 30]->range.location,
                            rows.back()->maxY() - screenHeight);
    printRow("  keys typed there" + of, keys, milliseconds, "ms");
    Samples toEnd;
    toEnd.measure([&] { screen.controller().caretRect(document.stringView->length()); });
    printRow("  the caret at the end" + of, toEnd, milliseconds, "ms");
    Samples back;
    back.measure([&] { screen.show(1'000); });
    printRow("  back near the start" + of, back, milliseconds, "ms");
    std::printf("  %zu rows, %.0f MB with what the shaper keeps of them\n", rows.size(),
                (allocated() - memory) / 1e6);
}

} // namespace

int main() {
    BenchDocument document(SampleTexts::oneLine(10'000'000), "c", {});
    document.mode->parse(document.stringView->snapshot());
    PlainTextInternalLanguageMode plain;
    std::printf("%-58s %10s %10s\n", "", "median", "p99");
    benchWindow(document, plain, ", plain, rows of 120", 1'200);
    benchWindow(document, plain, ", plain, not wrapped", 10'000);
    benchWindow(document, *document.mode, ", C, rows of 120", 1'200);
    benchWindow(document, *document.mode, ", C, not wrapped", 10'000);
}
