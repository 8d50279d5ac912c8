// What the text under the user's hands costs: opening, typing and switching, at three sizes and with the
// whole text in one line. Beside every row stands its floor, a bare QPlainTextEdit that never colours
// anything.
//
// A keystroke counts from the moment at which it was due, so whatever keeps the main thread busy then is in
// its time, until everything that it caused is painted.

#include "Quillet/screens/code/CodeAttributedString.h"
#include "platform/foundation/bench/Samples.h"
#include "tools/bench/Record.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QKeyEvent>
#include <QtGui/QTextBlock>
#include <QtGui/QTextLayout>
#include <QtWidgets/QApplication>

#include <cstdio>
#include <random>
#include <unistd.h>

using platform::measure;
using platform::millisecondsOf;
using platform::Samples;

namespace {

constexpr QSize windowSize(1000, 900); // points
constexpr int keystrokes = 300;
constexpr int rounds = 9;
const QString language = QStringLiteral("c");

// Every seed gives another text, so that nothing has been highlighted before.
QString sourceOf(qsizetype size, unsigned seed, QChar lineBreak = u'\n') {
    QString text;
    for (unsigned i = seed * 100'000; text.size() < size; ++i)
        text +=
            QStringLiteral("/* Adds up the %1th row. */\nstatic int sum_%1(const int *row, size_t count) {\n"
                           "    int total = %1;\n    for (size_t i = 0; i < count; ++i) {\n"
                           "        if (row[i] > 0x%1) total += row[i] * 2; // twice\n    }\n"
                           "    printf(\"%d of %zu\\n\", total, count);\n    return total;\n}\n\n")
                .arg(i);
    return text.left(size).replace(u'\n', lineBreak);
}

void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
}

template <typename Condition>
void settleUntil(Condition&& condition) {
    for (settle(); !condition(); settle())
        usleep(100);
}

QFont codeFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(10.5);
    return font;
}

class Coloured {
public:
    Coloured()
        : m_storage(m_view) {
        m_storage.setCodeFont(codeFont());
        m_storage.themeChanged();
        m_view.resize(windowSize);
        m_view.show();
    }

    void open(const QString& text) {
        m_view.setText(text);
        m_storage.setLanguage(language);
    }

    // Or is never going to have any.
    bool hasColours() const {
        return !m_view.document()->firstBlock().layout()->formats().isEmpty() || !m_storage.isHighlighting();
    }

    void rest() const {
        settleUntil([this] { return !m_storage.isHighlighting(); });
    }

    QPlainTextEdit& view() { return m_view; }

private:
    platform::TextView m_view;
    quillet::CodeAttributedString m_storage;
};

class Bare {
public:
    Bare() {
        m_view.setLineWrapMode(QPlainTextEdit::NoWrap);
        m_view.setFont(codeFont());
        m_view.resize(windowSize);
        m_view.show();
    }

    void open(const QString& text) { m_view.setPlainText(text); }

    static bool hasColours() { return true; }

    static void rest() {}

    QPlainTextEdit& view() { return m_view; }

private:
    QPlainTextEdit m_view;
};

struct Figures {
    Samples open;
    Samples colours;    // of what is in view
    Samples allColours; // of the last line, too
    Samples keys;
};

void press(QPlainTextEdit& view, int key, const QString& text) {
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&view, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&view, &up);
}

// Bursts of five keys at one place, at the pace of a quick typist, with a pause behind some of them.
Samples typeInto(QPlainTextEdit& view, int count) {
    std::mt19937 random(7);
    Samples samples;
    QElapsedTimer clock;
    clock.start();
    qint64 due = 0; // ns
    for (int i = 0; i < count; ++i) {
        if (i % 5 == 0) {
            QTextCursor cursor = view.textCursor();
            cursor.setPosition(
                static_cast<int>(random() % static_cast<unsigned>(view.document()->characterCount())));
            view.setTextCursor(cursor);
            view.centerCursor();
            settle();
        }
        const auto pause = i % 20 == 19 ? 400 + random() % 800 : 30 + random() % 70;
        due = clock.nsecsElapsed() + static_cast<qint64>(pause) * 1'000'000;
        settleUntil([&] { return clock.nsecsElapsed() >= due; });
        switch (random() % 8) {
        case 0:
            press(view, Qt::Key_Return, QStringLiteral("\r"));
            break;
        case 1:
            press(view, Qt::Key_Backspace, {});
            break;
        default:
            press(view, Qt::Key_X, QStringLiteral("x"));
        }
        settle();
        samples.add(static_cast<double>(clock.nsecsElapsed() - due) / 1e6);
    }
    return samples;
}

template <typename View>
void openAll(View& view, qsizetype size, QChar lineBreak, Figures& figures) {
    for (unsigned round = 0; round < rounds; ++round) {
        const QString text = sourceOf(size, round, lineBreak);
        view.open({});
        view.rest();
        QElapsedTimer clock;
        clock.start();
        view.open(text);
        settle();
        figures.open.add(static_cast<double>(clock.nsecsElapsed()) / 1e6);
        settleUntil([&] { return view.hasColours(); });
        figures.colours.add(static_cast<double>(clock.nsecsElapsed()) / 1e6);
        view.rest();
        figures.allColours.add(static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
}

template <typename View>
Figures figuresOf(qsizetype size, QChar lineBreak = u'\n', int count = keystrokes) {
    View view;
    settle();
    Figures figures;
    openAll(view, size, lineBreak, figures);
    figures.keys = typeInto(view.view(), count);
    view.rest();
    return figures;
}

template <typename View>
Figures switching() {
    View view;
    const QString texts[] = {sourceOf(20 * 1024, 100), sourceOf(20 * 1024, 101)};
    Figures figures;
    for (int i = 0; i < 40; ++i) {
        view.rest();
        QElapsedTimer clock;
        clock.start();
        view.open(texts[i % 2]);
        settle();
        figures.open.add(static_cast<double>(clock.nsecsElapsed()) / 1e6);
        settleUntil([&] { return view.hasColours(); });
        figures.colours.add(static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
    return figures;
}

void row(const char* size, const char* what, const Samples& ours, const Samples& floor) {
    std::printf("%-14s %-34s %9.2f %9.2f %9.2f %9.2f %7.1f\n", size, what, ours.median(), ours.p99(),
                floor.median(), floor.p99(), ours.median() / floor.median());
    const std::string name = std::string(size) + ": " + what;
    bench::keep({name, "Quillet", ours.median(), ours.p99(), "ms"});
    bench::keep({name, "QPlainTextEdit", floor.median(), floor.p99(), "ms"});
    std::fflush(stdout);
}

void measureSize(const char* name, qsizetype size, QChar lineBreak = u'\n', int count = keystrokes) {
    const Figures ours = figuresOf<Coloured>(size, lineBreak, count);
    const Figures floor = figuresOf<Bare>(size, lineBreak, count);
    row(name, "open to first text", ours.open, floor.open);
    row(name, "open to colours", ours.colours, floor.open);
    row(name, "open to the colours of all of it", ours.allColours, floor.open);
    row(name, "keystroke to painted frame", ours.keys, floor.keys);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    std::printf("%-14s %-34s %9s %9s %9s %9s %7s\n", "size", "ms", "median", "p99", "floor", "its p99",
                "ratio");
    measureSize("1 KB", 1024);
    measureSize("100 KB", 100 * 1024);
    measureSize("1 MB", 1024 * 1024);
    const Figures ours = switching<Coloured>();
    const Figures floor = switching<Bare>();
    row("20 KB", "switch to first text", ours.open, floor.open);
    row("20 KB", "switch to colours", ours.colours, floor.open);
    measureSize("1 MB, one line", 1024 * 1024, u' ', 20);
    return 0;
}
