#include "examples/editor/bench/EditorSession.h"

#include "Tessarine/document/bench/Samples.h"
#include "Tessarine/document/bench/Workload.h"

#include <QtCore/QFileInfo>
#include <QtGui/QKeyEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>

#include <cstdio>

namespace tessarine {

namespace {

constexpr int keys = 2'000;
constexpr int returns = 200;
constexpr int notches = 400;
constexpr int jumps = 200;
constexpr double millisecond = 1e6; // in nanoseconds

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
        paint();
        bool hasArrived = type("key", "loopAfterKey", u"total = value + first; ", keys);
        if (!isOneLine) {
            hasArrived = type("return", "loopAfterReturn", u"\r", returns) && hasArrived;
            scroll();
            jump();
        }
        quit();
        return hasArrived ? 0 : 2;
    }

private:
    // All that is to be seen, done when this returns.
    void paint() {
        QApplication::sendPostedEvents();
        m_editor->window().repaint();
    }

    static void report(const char* key, Samples& samples) {
        std::printf("%s|%g|%g\n", key, samples.median() / millisecond, samples.p99() / millisecond);
        std::fflush(stdout);
    }

    void open() {
        const double before = residentBytes();
        Samples samples;
        samples.measure([this] {
            m_editor->open(m_path);
            paint();
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

    // Presses a key for each of the characters, again and again. The loop that follows is timed by itself:
    // editors put off to it what the picture does not need. False if characters did not arrive.
    bool type(const char* key, const char* loopKey, QStringView characters, int count) {
        const qint64 before = m_editor->length();
        Samples samples;
        Samples loop;
        const TimeLimit limit;
        int typed = 0;
        for (; typed < count && !limit.isOver(); ++typed) {
            const QChar unit = characters[typed % characters.size()];
            samples.measure([&] {
                press(unit == u'\r' ? int(Qt::Key_Return) : unit.toUpper().unicode(), QString(unit));
                paint();
            });
            loop.measure([] { QApplication::processEvents(); });
        }
        report(key, samples);
        report(loopKey, loop);
        if (m_editor->length() - before >= typed) return true;
        std::fprintf(stderr, "%s: %lld of %d arrived\n", key,
                     static_cast<long long>(m_editor->length() - before), typed);
        return false;
    }

    void scroll() {
        Samples samples;
        const TimeLimit limit;
        QWidget& receiver = m_editor->wheelReceiver();
        const QPointF middle = QRectF(receiver.rect()).center();
        for (int i = 0; i < notches && !limit.isOver(); ++i) {
            samples.measure([&] {
                QWheelEvent event(middle, receiver.mapToGlobal(middle), {}, QPoint(0, -120), Qt::NoButton,
                                  Qt::NoModifier, Qt::NoScrollPhase, false);
                QApplication::sendEvent(&receiver, &event);
                paint();
            });
            QApplication::processEvents();
        }
        report("scroll", samples);
    }

    void jump() {
        Samples samples;
        WorkloadRandom random;
        const TimeLimit limit;
        for (int i = 0; i < jumps && !limit.isOver(); ++i) {
            const qint64 line = random(m_editor->lineCount());
            samples.measure([&] {
                m_editor->scrollTo(line);
                paint();
            });
            QApplication::processEvents();
        }
        report("jump", samples);
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
