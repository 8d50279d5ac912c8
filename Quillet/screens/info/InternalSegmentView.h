#pragma once

#include "Quillet/core/Segment.h"
#include "Quillet/screens/info/SegmentChip.h"

#include <functional>
#include <memory>

namespace quillet {

// The chip of a segment, with its title and a menu. Main thread.
class InternalSegmentView : public SegmentChip {
    Q_OBJECT

public:
    using Action = std::function<void(const std::shared_ptr<Segment>&)>;

    InternalSegmentView(std::shared_ptr<Segment> segment, Action onDeleteSegment, Action onRenameSegment,
                        QWidget* parent = nullptr);

    const std::shared_ptr<Segment>& segment() const { return m_segment; }

    // Takes on the segment's title of now.
    void refresh();

private:
    std::shared_ptr<Segment> m_segment;
};

} // namespace quillet
