// The editor in its session, with settings of its own. Usage: editor_session FILE

#include "Tessarine/textview/TextView.h"
#include "examples/editor/bench/EditorSession.h"
#include "examples/editor/window/EditorPage.h"
#include "examples/editor/window/EditorWindow.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <cstdlib>

using namespace tessarine;

namespace {

constexpr int patience = 120'000; // milliseconds

class Editor final : public SessionEditor {
public:
    Editor() { m_window.resize(1'200, 900); }

    QWidget& window() override { return m_window; }

    QWidget& keyReceiver() override { return page().view(); }

    QWidget& wheelReceiver() override { return *page().view().viewport(); }

    void open(const QString& path) override {
        m_window.show();
        m_window.openFile(path);
        // Files are read beside the main thread. Until then the page is empty.
        if (!QTest::qWaitFor([this] { return length() > 0; }, patience)) std::exit(EXIT_FAILURE);
    }

    qint64 lineCount() override { return lines().lineCount(); }

    void placeCaret(qint64 line) override { page().textView().goToLine(line, GoToLineSelection::end); }

    void placeCaretInLine() override {
        page().textView().setSelectedRange(TextRange{length() / 2, 0});
        page().textView().scrollRangeToVisible({length() / 2, 0});
    }

    void scrollTo(qint64 line) override {
        page().textView().setContentOffset({.y = lines().lineAtRow(line).data().yPosition()});
    }

    qint64 length() override { return page().textView().document().stringView->length(); }

private:
    editor::EditorPage& page() const { return *m_window.currentPage(); }

    LineManager& lines() const { return *page().textView().document().lineManager; }

    editor::EditorServices m_services;
    editor::EditorWindow m_window{m_services};
};

} // namespace

int main(int argc, char** argv) {
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("editor_session"));
    return runEditorSession(std::make_unique<Editor>(), QApplication::arguments().value(1));
}
