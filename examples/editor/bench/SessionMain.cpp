// The editor in its session, with settings of its own, or its text view as a window of its own.
// Usage: editor_session [--view] FILE

#include "Tessarine/textview/TextView.h"
#include "examples/editor/bench/EditorSession.h"
#include "examples/editor/window/EditorPage.h"
#include "examples/editor/window/EditorWindow.h"
#include "examples/editor/window/OpenDocument.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <cstdlib>

using namespace tessarine;

namespace {

constexpr int patience = 120'000; // milliseconds
constexpr QSize windowSize(1'200, 900);

class TextViewSession : public SessionEditor {
public:
    QWidget& keyReceiver() override { return view(); }

    QWidget& wheelReceiver() override { return *view().viewport(); }

    qint64 lineCount() override { return lines().lineCount(); }

    void placeCaret(qint64 line) override { textView().goToLine(line, GoToLineSelection::end); }

    void placeCaretInLine() override {
        textView().setSelectedRange(TextRange{length() / 2, 0});
        textView().scrollRangeToVisible({length() / 2, 0});
    }

    void scrollTo(qint64 line) override {
        textView().setContentOffset({.y = lines().lineAtRow(line).data().yPosition()});
    }

    qint64 length() override { return textView().document().stringView->length(); }

protected:
    virtual QtTextView& view() const = 0;

    TextView& textView() const { return view().textView(); }

private:
    LineManager& lines() const { return *textView().document().lineManager; }
};

class Editor final : public TextViewSession {
public:
    Editor() { m_window.resize(windowSize); }

    QWidget& window() override { return m_window; }

    void open(const QString& path) override {
        m_window.show();
        m_window.openFile(path);
        // Files are read beside the main thread. Until then the page is empty.
        if (!QTest::qWaitFor([this] { return length() > 0; }, patience)) std::exit(EXIT_FAILURE);
    }

private:
    QtTextView& view() const override { return m_window.currentPage()->view(); }

    editor::EditorServices m_services;
    editor::EditorWindow m_window{m_services};
};

class ViewAlone final : public TextViewSession {
public:
    ViewAlone() { m_view->resize(windowSize); }

    QWidget& window() override { return *m_view; }

    void open(const QString& path) override {
        const auto look = editor::editorLook({}, 0);
        const auto opened =
            editor::openDocument({path, look.theme, m_services.measurer, m_services.mainExecutor});
        if (!opened) std::exit(EXIT_FAILURE);
        TextView& text = textView();
        text.setState(*opened->state);
        if (!opened->isParsed && opened->language)
            text.setLanguageMode(editor::languageMode(*opened->language));
        m_view->setUserInterfaceStyle(look.style);
        text.scrollView()->setBackgroundColor(look.backgroundColor);
        text.setShowLineNumbers(true);
        text.setLineSelectionDisplayType(LineSelectionDisplayType::line);
        text.setLineWrappingEnabled(false);
        m_view->show();
        m_view->setFocus();
    }

private:
    QtTextView& view() const override { return *m_view; }

    editor::EditorServices m_services;
    const std::unique_ptr<QtTextView> m_view = std::make_unique<QtTextView>();
};

std::unique_ptr<SessionEditor> wantedEditor(const QStringList& arguments) {
    if (arguments.contains(QStringLiteral("--view"))) return std::make_unique<ViewAlone>();
    return std::make_unique<Editor>();
}

} // namespace

int main(int argc, char** argv) {
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("editor_session"));
    const QStringList arguments = QApplication::arguments();
    return runEditorSession(wantedEditor(arguments), arguments.last());
}
