// QScintilla and QPlainTextEdit in the session of an editor. Usage: editor_peers (qscintilla|qplaintextedit)
// FILE

#include "examples/editor/bench/EditorSession.h"

#include <Qsci/qscilexercpp.h>
#include <Qsci/qsciscintilla.h>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtGui/QSyntaxHighlighter>
#include <QtGui/QTextBlock>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollBar>

using namespace tessarine;

namespace {

constexpr QSize windowSize(1'200, 900);

QString textOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QFont editorFont() {
    return QFont(QStringLiteral("monospace"), 10);
}

class ScintillaEditor final : public SessionEditor {
public:
    ScintillaEditor() {
        m_editor.resize(windowSize);
        m_lexer.setDefaultFont(editorFont());
        m_editor.setLexer(&m_lexer);
        m_editor.setUtf8(true);
        m_editor.setMarginType(0, QsciScintilla::NumberMargin);
        m_editor.setMarginWidth(0, QStringLiteral("0000000"));
        m_editor.setCaretLineVisible(true);
    }

    QWidget& window() override { return m_editor; }

    QWidget& keyReceiver() override { return m_editor; }

    QWidget& wheelReceiver() override { return *m_editor.viewport(); }

    void open(const QString& path) override {
        m_editor.setText(textOf(path));
        m_editor.show();
        m_editor.setFocus();
    }

    qint64 lineCount() override { return m_editor.lines(); }

    void placeCaret(qint64 line) override {
        const int row = static_cast<int>(line);
        m_editor.setCursorPosition(row, m_editor.lineLength(row) - 1);
        m_editor.ensureLineVisible(row);
    }

    void placeCaretInLine() override {
        m_editor.SendScintilla(QsciScintilla::SCI_GOTOPOS, static_cast<unsigned long>(length() / 2));
    }

    void scrollTo(qint64 line) override { m_editor.setFirstVisibleLine(static_cast<int>(line)); }

    qint64 length() override { return m_editor.SendScintilla(QsciScintilla::SCI_GETLENGTH); }

private:
    QsciScintilla m_editor;
    QsciLexerCPP m_lexer;
};

// Keywords, numbers, strings and comments on one line.
class SimpleHighlighter final : public QSyntaxHighlighter {
public:
    explicit SimpleHighlighter(QTextDocument* document)
        : QSyntaxHighlighter(document) {
        add(QStringLiteral(R"(\b(?:if|else|for|while|return|static|const|int|char|void|struct|size_t)\b)"),
            Qt::blue);
        add(QStringLiteral(R"(\b(?:0x[0-9a-fA-F]+|\d+)\b)"), Qt::darkMagenta);
        add(QStringLiteral(R"("(?:[^"\\]|\\.)*")"), Qt::darkRed);
        add(QStringLiteral(R"(//.*|/\*.*\*/)"), Qt::darkGreen);
    }

protected:
    void highlightBlock(const QString& text) override {
        for (const auto& [expression, format] : m_rules)
            for (auto matches = expression.globalMatch(text); matches.hasNext();) {
                const auto match = matches.next();
                setFormat(static_cast<int>(match.capturedStart()), static_cast<int>(match.capturedLength()),
                          format);
            }
    }

private:
    void add(const QString& pattern, Qt::GlobalColor color) {
        QTextCharFormat format;
        format.setForeground(color);
        m_rules.emplace_back(QRegularExpression(pattern), format);
    }

    std::vector<std::pair<QRegularExpression, QTextCharFormat>> m_rules;
};

class PlainTextEditor final : public SessionEditor {
public:
    PlainTextEditor() {
        m_editor.resize(windowSize);
        m_editor.setFont(editorFont());
        m_editor.setLineWrapMode(QPlainTextEdit::NoWrap);
    }

    QWidget& window() override { return m_editor; }

    QWidget& keyReceiver() override { return m_editor; }

    QWidget& wheelReceiver() override { return *m_editor.viewport(); }

    void open(const QString& path) override {
        m_editor.setPlainText(textOf(path));
        m_editor.show();
        m_editor.setFocus();
    }

    qint64 lineCount() override { return m_editor.blockCount(); }

    void placeCaret(qint64 line) override {
        QTextCursor cursor(m_editor.document()->findBlockByNumber(static_cast<int>(line)));
        cursor.movePosition(QTextCursor::EndOfBlock);
        m_editor.setTextCursor(cursor);
        m_editor.centerCursor();
    }

    void placeCaretInLine() override {
        QTextCursor cursor(m_editor.document());
        cursor.setPosition(static_cast<int>(length() / 2));
        m_editor.setTextCursor(cursor);
    }

    void scrollTo(qint64 line) override { m_editor.verticalScrollBar()->setValue(static_cast<int>(line)); }

    qint64 length() override { return m_editor.document()->characterCount(); }

private:
    QPlainTextEdit m_editor;
    SimpleHighlighter m_highlighter{m_editor.document()};
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    std::unique_ptr<SessionEditor> editor;
    if (arguments.value(1) == QLatin1String("qscintilla"))
        editor = std::make_unique<ScintillaEditor>();
    else
        editor = std::make_unique<PlainTextEditor>();
    return runEditorSession(std::move(editor), arguments.value(2));
}
