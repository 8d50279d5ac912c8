#include "examples/editor/bench/EditorSession.h"

#include "Tessarine/document/bench/Samples.h"
#include "Tessarine/document/bench/Workload.h"

#include <QtCore/QFileInfo>
#include <QtGui/QKeyEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>

#include <cstdio>
#include <string>

namespace tessarine {

namespace {

constexpr int keys = 2'000;
constexpr int lineLength = 66;
constexpr int returns = 200;
constexpr int endKeys = 800; // in one line, several times as long as the window is wide
constexpr int notches = 400;
constexpr int jumps = 200;
constexpr double millisecond = 1e6; // in nanoseconds
constexpr QStringView words = u"total = value + first; ";

class Session {
public:
    Session(std::unique_ptr<SessionEditor> editor, QString path)
        : m_editor(std::move(editor))
        , m_path(std::move(path)) {}

    int run() {
        open();
        const bool isOneLine = m_editor->lineCount() < 10;
        if (isOneLine)
            m_editor->placeCaretInLine();
        else
            m_editor->placeCaret(m_editor->lineCount() / 2);
        paintAll();
        bool hasArrived = type("key", "loopAfterKey", words, keys, isOneLine ? keys + 1 : lineLength);
        if (!isOneLine) {
            hasArrived = type("return", "loopAfterReturn", u"\r", returns, returns + 1) && hasArrived;
            hasArrived = type("endKey", nullptr, words, endKeys, endKeys + 1) && hasArrived;
            scroll();
            jump();
        }
        quit();
        return hasArrived ? 0 : 2;
    }

private:
    // What has changed is painted when this returns, as a program does it.
    static void paintChanges() { QApplication::sendPostedEvents(); }

    void paintAll() {
        paintChanges();
        m_editor->window().repaint();
    }

    // What an event takes until its changes are painted, and until the whole window is after that.
    class Frames {
    public:
        explicit Frames(QWidget& window)
            : m_window(window) {}

        template <class Event>
        void measure(Event event) {
            m_whole.measure([&] {
                m_changes.measure([&] {
                    event();
                    paintChanges();
                });
                m_window.repaint();
            });
        }

        void report(const std::string& key) {
            Session::report(key, m_changes);
            Session::report(key + "Whole", m_whole);
        }

    private:
        QWidget& m_window;
        Samples m_changes;
        Samples m_whole;
    };

    static void report(const std::string& key, Samples& samples) {
        std::printf("%s|%g|%g\n", key.c_str(), samples.median() / millisecond, samples.p99() / millisecond);
        std::fflush(stdout);
    }

    void open() {
        const double before = residentBytes();
        Samples samples;
        samples.measure([this] {
            m_editor->open(m_path);
            paintAll();
        });
        report("open", samples);
        QApplication::processEvents();
        const auto size = static_cast<double>(QFileInfo(m_path).size());
        const double memory = (residentBytes() - before) / size;
        std::printf("memory|%g|%g\n", memory, memory);
    }

    void press(int key, const QString& text) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier, text);
            QApplication::sendEvent(&m_editor->keyReceiver(), &event);
        }
    }

    void press(QChar unit) {
        press(unit == u'\r' ? int(Qt::Key_Return) : unit.toUpper().unicode(), QString(unit));
    }

    // Presses a key for each of the characters, again and again, and begins a line after so many of them. The
    // loop that follows is timed by itself: editors put off to it what the picture does not need. False if
    // characters did not arrive.
    bool type(const char* key, const char* loopKey, QStringView characters, int count, int lineLimit) {
        const qint64 before = m_editor->length();
        Frames frames(m_editor->window());
        Samples loop;
        const TimeLimit limit;
        int typed = 0;
        for (; typed < count && !limit.isOver(); ++typed) {
            if (typed % lineLimit == lineLimit - 1) press(u'\r');
            QApplication::processEvents();
            frames.measure([&] { press(characters[typed % characters.size()]); });
            loop.measure([] { QApplication::processEvents(); });
        }
        frames.report(key);
        if (loopKey) report(loopKey, loop);
        if (m_editor->length() - before >= typed) return true;
        std::fprintf(stderr, "%s: %lld of %d arrived\n", key,
                     static_cast<long long>(m_editor->length() - before), typed);
        return false;
    }

    void scroll() {
        Frames frames(m_editor->window());
        const TimeLimit limit;
        QWidget& receiver = m_editor->wheelReceiver();
        const QPointF middle = QRectF(receiver.rect()).center();
        for (int i = 0; i < notches && !limit.isOver(); ++i) {
            frames.measure([&] {
                QWheelEvent event(middle, receiver.mapToGlobal(middle), {}, QPoint(0, -120), Qt::NoButton,
                                  Qt::NoModifier, Qt::NoScrollPhase, false);
                QApplication::sendEvent(&receiver, &event);
            });
            QApplication::processEvents();
        }
        frames.report("scroll");
    }

    void jump() {
        Frames frames(m_editor->window());
        WorkloadRandom random;
        const TimeLimit limit;
        for (int i = 0; i < jumps && !limit.isOver(); ++i) {
            const qint64 line = random(m_editor->lineCount());
            frames.measure([&] { m_editor->scrollTo(line); });
            QApplication::processEvents();
        }
        frames.report("jump");
    }

    void quit() {
        Samples samples;
        samples.measure([this] { m_editor.reset(); });
        report("quit", samples);
    }

    std::unique_ptr<SessionEditor> m_editor;
    QString m_path;
};

} // namespace

int runEditorSession(std::unique_ptr<SessionEditor> editor, const QString& path) {
    return Session(std::move(editor), path).run();
}

} // namespace tessarine
