// What rows of text cost: to break, to keep, to draw, and to show again when one scrolls.
#include "Tessarine/layout/ScrollView.h"
#include "Tessarine/view/QtDrawContext.h"
#include "Tessarine/view/ViewPainter.h"
#include "Tessarine/view/tests/SampleRows.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <benchmark/benchmark.h>

#include <malloc.h>

using namespace tessarine;

namespace {

constexpr double rowWidth = 800;
constexpr std::int64_t rowUnits = 90;

// Source-like text in which every word is a run, in one of eight colours; or in one run.
std::shared_ptr<AttributedString> line(std::int64_t length, bool hasRuns) {
    std::u16string text;
    while (static_cast<std::int64_t>(text.size()) < length)
        text += u"value = compute(first, 27) + rest; ";
    text.resize(static_cast<std::size_t>(length));
    auto string = sampleString(text);
    const std::int64_t limit = hasRuns ? std::min<std::int64_t>(length, 100'000) - 5 : 0;
    for (std::int64_t at = 0; at < limit; at += 5)
        string->addAttributes(
            {.foregroundColor = Color(RGBAColor::ofHex(static_cast<std::uint32_t>(at % 8 * 0x1F)))}, {at, 5});
    return string;
}

// A row a turn, at places all over the line.
void breakRow(benchmark::State& state) {
    const auto string = line(state.range(0), state.range(1) != 0);
    const auto typesetter = QtTextShaper().createTypesetter(string);
    std::int64_t start = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(typesetter->suggestLineBreak(start, rowWidth));
        start = (start + 7 * rowUnits) % std::min<std::int64_t>(string->length() - 4 * rowUnits, 90'000);
    }
}

void makeRow(benchmark::State& state) {
    const auto string = line(10'000, state.range(0) != 0);
    const auto typesetter = QtTextShaper().createTypesetter(string);
    std::int64_t start = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(typesetter->createLine({start, rowUnits}));
        start = (start + 7 * rowUnits) % 9'000;
    }
}

void keepRow(benchmark::State& state) {
    const auto string = line(100'000, state.range(0) != 0);
    const auto typesetter = QtTextShaper().createTypesetter(string);
    constexpr int count = 20'000;
    std::vector<std::shared_ptr<const TextLine>> rows;
    for (auto _ : state) {
        rows.clear();
        const std::size_t before = mallinfo2().uordblks;
        for (int i = 0; i < count; ++i)
            rows.push_back(typesetter->createLine({i * 4, rowUnits}));
        state.counters["bytes"] = static_cast<double>(mallinfo2().uordblks - before) / count;
    }
}

void drawRow(benchmark::State& state) {
    const auto string = line(1'000, state.range(0) != 0);
    const auto row = QtTextShaper().createTypesetter(string)->createLine({0, rowUnits});
    QImage image(1'000, 30, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    QtDrawContext context(painter, UserInterfaceStyle::Light);
    for (auto _ : state)
        context.drawLine(*row, {0, 20});
}

struct RowView : View {
    void draw(DrawContext& context) override { context.drawLine(*row, {0, 14}); }

    std::shared_ptr<const TextLine> row;
};

// A screen of sixty rows at a scale of 2; drawn anew, or scrolled by a point a turn.
void paintScreen(benchmark::State& state) {
    constexpr int rowCount = 60;
    const auto string = line(10'000, true);
    const auto typesetter = QtTextShaper().createTypesetter(string);
    const auto scrollView = std::make_shared<ScrollView>();
    scrollView->setFrame({0, 0, 900, rowCount * 18});
    for (int i = 0; i < rowCount; ++i) {
        const auto view = std::make_shared<RowView>();
        view->row = typesetter->createLine({i * rowUnits, rowUnits});
        view->setFrame({40, 18.0 * i, rowWidth, 18});
        scrollView->addSubview(view);
    }
    QImage image(1'800, rowCount * 36, QImage::Format_RGB32);
    image.setDevicePixelRatio(2);
    ViewPictures pictures;
    double offset = 0;
    for (auto _ : state) {
        if (state.range(0) != 0) pictures.clear();
        scrollView->setContentOffset({0, offset = offset == 0 ? 1 : 0});
        QPainter painter(&image);
        painter.fillRect(image.rect(), Qt::white);
        ViewPainter(painter, QRegion(0, 0, 900, rowCount * 18), pictures, UserInterfaceStyle::Light)
            .paint(*scrollView);
    }
}

} // namespace

BENCHMARK(breakRow)->ArgNames({"units", "runs"})->ArgsProduct({{10'000, 10'000'000}, {0, 1}});
BENCHMARK(makeRow)->ArgName("runs")->Arg(0)->Arg(1);
BENCHMARK(keepRow)->ArgName("runs")->Arg(0)->Arg(1)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(drawRow)->ArgName("runs")->Arg(0)->Arg(1);
BENCHMARK(paintScreen)->ArgName("anew")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
