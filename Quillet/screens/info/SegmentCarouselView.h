#pragma once

#include "Quillet/core/Snippet.h"
#include "Quillet/screens/info/SnippetInfoCallbacks.h"

#include <QtWidgets/QWidget>

#include <vector>

namespace quillet {

class ChipRow;
class FakeSegmentView;
class InternalSegmentView;
class SegmentChip;

// A snippet's segments in order: by date, equal dates by title, what has no date last. One of them, or the
// snippet's own code, is active. Main thread.
class SegmentCarouselView : public QWidget {
    Q_OBJECT

public:
    explicit SegmentCarouselView(SnippetInfoCallbacks callbacks, QWidget* parent = nullptr);

    void setSnippet(std::shared_ptr<Snippet> snippet);

    // Takes on the snippet's segments of now; scroll position and focus stay.
    void refresh();

    // Absent for the snippet's own code. A segment that is deleted stays the active one, though no chip shows
    // it.
    const std::shared_ptr<Segment>& activeSegment() const { return m_activeSegment; }

    void setActiveSegment(std::shared_ptr<Segment> segment);

private:
    void choose(std::shared_ptr<Segment> segment);
    void add();
    InternalSegmentView* chipOf(const std::shared_ptr<Segment>& segment);
    void showActive();
    void setTabStop(SegmentChip& stop);

    SnippetInfoCallbacks m_callbacks;
    std::shared_ptr<Snippet> m_snippet;
    std::shared_ptr<Segment> m_activeSegment;
    FakeSegmentView* m_code;
    std::vector<InternalSegmentView*> m_chips;
    ChipRow* m_row;
};

} // namespace quillet
