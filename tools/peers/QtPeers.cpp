// QTextDocument and QScintilla under the work of the document benchmark. Prints "key|median|p99" in the units
// that DocumentBench.cpp names. Usage: document_peers (qtextdocument|qscintilla) FILE

#include "Tessarine/document/bench/Samples.h"
#include "Tessarine/document/bench/Workload.h"
#include "tools/peers/PeerMain.h"
#include "tools/peers/ScintillaText.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>

#include <cstdio>
#include <memory>

using namespace tessarine;

namespace {

void report(const char* key, Samples& samples, double divisor) {
    std::printf("%s|%g|%g\n", key, samples.median() / divisor, samples.p99() / divisor);
    std::fflush(stdout);
}

class TextDocumentPeer {
public:
    explicit TextDocumentPeer(const QByteArray& bytes) { m_document.setPlainText(QString::fromUtf8(bytes)); }

    qint64 length() const { return m_document.characterCount() - 1; }

    qint64 lineCount() const { return m_document.blockCount(); }

    qint64 lineOf(qint64 location) const {
        return m_document.findBlock(static_cast<int>(location)).blockNumber();
    }

    qint64 locationOf(qint64 line) const {
        return m_document.findBlockByNumber(static_cast<int>(line)).position();
    }

    void insert(qint64 location, char character) {
        m_cursor.setPosition(static_cast<int>(location));
        m_cursor.insertText(QString(QLatin1Char(character)));
    }

    void remove(qint64 location) {
        m_cursor.setPosition(static_cast<int>(location));
        m_cursor.deleteChar();
    }

private:
    QTextDocument m_document;
    QTextCursor m_cursor{&m_document};
};

class ScintillaPeer {
public:
    explicit ScintillaPeer(const QByteArray& bytes)
        : m_text(bytes) {}

    qint64 length() const { return m_text.length(); }

    qint64 lineCount() const { return m_text.send(QsciScintillaBase::SCI_GETLINECOUNT); }

    qint64 lineOf(qint64 location) const {
        return m_text.send(QsciScintillaBase::SCI_LINEFROMPOSITION, static_cast<unsigned long>(location));
    }

    qint64 locationOf(qint64 line) const {
        return m_text.send(QsciScintillaBase::SCI_POSITIONFROMLINE, static_cast<unsigned long>(line));
    }

    void insert(qint64 location, char character) {
        const char text[] = {character, 0};
        m_text.send(QsciScintillaBase::SCI_INSERTTEXT, static_cast<unsigned long>(location), text);
    }

    void remove(qint64 location) {
        m_text.send(QsciScintillaBase::SCI_DELETERANGE, static_cast<unsigned long>(location), 1);
    }

private:
    ScintillaText m_text;
};

template <class Peer>
void run(const QByteArray& bytes, int loads, int edits) {
    std::unique_ptr<Peer> peer;
    Samples loadTimes;
    const double before = residentBytes();
    for (int i = 0; i < loads; ++i) {
        peer.reset();
        loadTimes.measure([&] { peer = std::make_unique<Peer>(bytes); });
        if (i == 0)
            std::printf("memory|%g|0\n", (residentBytes() - before) / static_cast<double>(peer->length()));
    }
    report("load", loadTimes, 1e6);
    workThrough(*peer, edits, report);
}

} // namespace

int main(int argc, char** argv) {
    // Fewer rounds for the slow ones: what they measure is milliseconds apart from ours all the same.
    return runPeer(
        argc, argv, [](const QByteArray& bytes) { run<ScintillaPeer>(bytes, 5, 2'000); },
        [](const QByteArray& bytes) { run<TextDocumentPeer>(bytes, 2, 10'000); });
}
