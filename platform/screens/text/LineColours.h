#pragma once

#include "platform/foundation/AttributedString.h"

#include <QtCore/QList>
#include <QtGui/QTextLayout>

#include <span>
#include <vector>

namespace platform {

// What an edit did to the lines of a text. Lengths and columns are UTF-16 code units, without line breaks.
struct LineEdit {
    std::size_t line = 0;         // the first that it touched
    std::size_t gone = 0;         // breaks removed
    int column = 0;               // in the first line, where it began
    int tail = 0;                 // in the last line, how much lies behind it
    std::span<const int> lengths; // of the lines that it touched, as they are now
};

// The colours of a text, line by line. They are kept in step with edits until somebody knows better: colours
// move with their text, and what is typed inside a coloured run takes its colour.
//
// An empty one colours nothing and takes no edits. Making one costs a walk over the text and may happen on
// any thread; an edit costs what it touched, and a move of the entries of the lines behind it where lines
// came or went.
class LineColours {
public:
    LineColours() = default;
    // `text` has '\n' between its lines. What the runs have outside of it is left out.
    LineColours(QStringView text, const std::vector<AttributeRun>& runs);

    bool isEmpty() const { return m_lines.empty(); }

    void edit(const LineEdit& edit);

    // None for a line that is too long to be coloured.
    QList<QTextLayout::FormatRange> formats(std::size_t line) const;

private:
    struct Span {
        int start = 0;
        int limit = 0;
        unsigned format = 0;
        // Several words up to the end of the line, as a comment is: what is typed behind it belongs to it.
        bool isOpen = false;
    };

    struct Line {
        std::size_t first = 0; // index into m_spans
        unsigned count = 0;
        int length = 0;
    };

    // What an edit replaced in a line.
    struct Splice {
        int start = 0;
        int oldLimit = 0;
        int newLimit = 0;
    };

    unsigned formatIndex(const TextAttributes& attributes);
    std::span<const Span> spansOf(const Line& line) const;
    Line store(const std::vector<Span>& spans, int length);
    Line spliced(const Line& line, const Splice& splice);
    void editInside(const LineEdit& edit);
    void editAcross(const LineEdit& edit);
    void adjustEach(const LineEdit& edit);

    std::vector<TextAttributes> m_attributes;
    std::vector<QTextCharFormat> m_formats; // of m_attributes, in their order
    std::vector<Span> m_spans; // those of an edited line are put behind, the old ones stay unused
    std::vector<Line> m_lines;
};

} // namespace platform
