// QTextDocument and QScintilla under the work of the search benchmark. Prints "key|median|p99" in
// milliseconds. Usage: search_peers (qtextdocument|qscintilla) FILE

#include "Tessarine/document/search/bench/SearchWorkload.h"
#include "tools/peers/PeerMain.h"
#include "tools/peers/ScintillaText.h"

#include <QtCore/QRegularExpression>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>

#include <cstdio>
#include <cstring>
#include <optional>

using namespace tessarine;

namespace {

constexpr int rounds = 5;

class TextDocumentPeer {
public:
    explicit TextDocumentPeer(const QByteArray& bytes) { m_document.setPlainText(QString::fromUtf8(bytes)); }

    std::optional<int> matches(const SearchTask& task) const {
        const QString pattern = QString::fromLatin1(task.pattern);
        if (!task.isRegularExpression)
            return matches(pattern, task.isCaseSensitive ? QTextDocument::FindCaseSensitively
                                                         : QTextDocument::FindFlags());
        // An expression brings its case along.
        return matches(QRegularExpression(pattern, task.isCaseSensitive
                                                       ? QRegularExpression::NoPatternOption
                                                       : QRegularExpression::CaseInsensitiveOption),
                       {});
    }

private:
    template <class Pattern>
    int matches(const Pattern& pattern, QTextDocument::FindFlags flags) const {
        int count = 0;
        for (QTextCursor cursor = m_document.find(pattern, 0, flags); !cursor.isNull();
             cursor = m_document.find(pattern, cursor, flags))
            ++count;
        return count;
    }

    QTextDocument m_document;
};

class ScintillaPeer {
public:
    explicit ScintillaPeer(const QByteArray& bytes)
        : m_text(bytes) {}

    // Its expressions know no "\b".
    std::optional<int> matches(const SearchTask& task) const {
        if (std::strstr(task.pattern, "\\b")) return std::nullopt;
        m_text.send(QsciScintillaBase::SCI_SETSEARCHFLAGS,
                    (task.isRegularExpression ? QsciScintillaBase::SCFIND_REGEXP : 0) |
                        (task.isCaseSensitive ? QsciScintillaBase::SCFIND_MATCHCASE : 0));
        int count = 0;
        for (qint64 place = 0; find(task.pattern, place); ++count)
            place = m_text.send(QsciScintillaBase::SCI_GETTARGETEND);
        return count;
    }

private:
    bool find(const char* pattern, qint64 place) const {
        m_text.send(QsciScintillaBase::SCI_SETTARGETSTART, static_cast<unsigned long>(place));
        m_text.send(QsciScintillaBase::SCI_SETTARGETEND, static_cast<unsigned long>(m_text.length()));
        return m_text.send(QsciScintillaBase::SCI_SEARCHINTARGET, std::strlen(pattern), pattern) >= 0;
    }

    ScintillaText m_text;
};

template <class Peer>
void run(const QByteArray& bytes) {
    const Peer peer(bytes);
    const Figures figures =
        measureSearches(rounds, [&](const SearchTask& task) { return peer.matches(task); });
    for (const auto& [key, figure] : figures)
        std::printf("%s|%g|%g\n", key.c_str(), figure.median, figure.p99);
}

} // namespace

int main(int argc, char** argv) {
    return runPeer(argc, argv, run<ScintillaPeer>, run<TextDocumentPeer>);
}
