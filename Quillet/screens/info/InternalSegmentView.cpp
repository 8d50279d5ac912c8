#include "Quillet/screens/info/InternalSegmentView.h"

#include "platform/screens/menus/ContextMenuInteraction.h"

namespace quillet {

using platform::MenuAction;

InternalSegmentView::InternalSegmentView(std::shared_ptr<Segment> segment, Action onDeleteSegment,
                                         Action onRenameSegment, QWidget* parent)
    : SegmentChip(parent)
    , m_segment(std::move(segment)) {
    refresh();
    const QString bin = QStringLiteral("bin.fill"); // on both
    const platform::Menu menu{
        {},
        {MenuAction{.title = QStringLiteral("Delete Segment"),
                    .symbol = bin,
                    .handler = [segment = m_segment, onDeleteSegment] { onDeleteSegment(segment); }},
         MenuAction{.title = QStringLiteral("Rename Segment"),
                    .symbol = bin,
                    .handler = [segment = m_segment, onRenameSegment] { onRenameSegment(segment); }}}};
    platform::ContextMenuInteraction::attach(*this, [menu](QPoint /*at*/) { return menu; });
}

void InternalSegmentView::refresh() {
    setTitle(m_segment->isAbsent(Segment::Title) ? QStringLiteral("Code") : m_segment->title());
}

} // namespace quillet
