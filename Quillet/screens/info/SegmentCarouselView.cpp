#include "Quillet/screens/info/SegmentCarouselView.h"

#include "Quillet/core/Segment.h"
#include "Quillet/screens/info/ChipRow.h"
#include "Quillet/screens/info/FakeSegmentView.h"
#include "Quillet/screens/info/InternalSegmentView.h"
#include "Quillet/screens/info/RowButton.h"

#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace quillet {

namespace {

std::vector<std::shared_ptr<Segment>> inOrder(const Snippet& snippet) {
    auto segments = snippet.sortedSegments();
    std::ranges::stable_sort(segments, {}, &Segment::title);
    const QDateTime now = QDateTime::currentDateTime();
    std::ranges::stable_sort(segments, {},
                             [&](const auto& segment) { return segment->creationDate().value_or(now); });
    return segments;
}

} // namespace

SegmentCarouselView::SegmentCarouselView(SnippetInfoCallbacks callbacks, QWidget* parent)
    : QWidget(parent)
    , m_callbacks(std::move(callbacks))
    , m_code(new FakeSegmentView(this)) {
    auto* button = new RowButton(QStringLiteral("plus"), QStringLiteral("Add Segment"), this);
    connect(button, &QAbstractButton::clicked, this, &SegmentCarouselView::add);
    connect(m_code, &QAbstractButton::clicked, this, [this] { choose(nullptr); });
    m_row = new ChipRow(QStringLiteral("Segments"), button, this);
    auto* edges = new QVBoxLayout(this);
    edges->setContentsMargins(0, 0, 0, 0);
    edges->addWidget(m_row);
    refresh();
}

void SegmentCarouselView::setSnippet(std::shared_ptr<Snippet> snippet) {
    const bool isOther = snippet != m_snippet;
    m_snippet = std::move(snippet);
    m_activeSegment.reset();
    refresh();
    if (isOther) m_row->scrollToStart();
}

void SegmentCarouselView::refresh() {
    std::vector<InternalSegmentView*> chips;
    if (m_snippet)
        for (const auto& segment : inOrder(*m_snippet))
            chips.push_back(chipOf(segment));
    m_chips = std::move(chips);
    std::vector<QWidget*> row{m_code};
    row.insert(row.end(), m_chips.begin(), m_chips.end());
    m_row->setChips(row);
    showActive();
}

// The one that is there keeps its focus and its place.
InternalSegmentView* SegmentCarouselView::chipOf(const std::shared_ptr<Segment>& segment) {
    const auto known = std::ranges::find(m_chips, segment, &InternalSegmentView::segment);
    if (known != m_chips.end()) {
        (*known)->refresh();
        return *known;
    }
    auto* chip =
        new InternalSegmentView(segment, m_callbacks.onDeleteSegment, m_callbacks.onRenameSegment, this);
    connect(chip, &QAbstractButton::clicked, this, [this, segment] { choose(segment); });
    return chip;
}

void SegmentCarouselView::setActiveSegment(std::shared_ptr<Segment> segment) {
    m_activeSegment = std::move(segment);
    showActive();
}

void SegmentCarouselView::choose(std::shared_ptr<Segment> segment) {
    setActiveSegment(segment);
    m_callbacks.onSelectSegment(segment);
}

void SegmentCarouselView::add() {
    setActiveSegment(m_callbacks.onAddSegment());
}

void SegmentCarouselView::showActive() {
    SegmentChip* tabStop = m_code;
    m_code->setActive(!m_activeSegment);
    for (auto* chip : m_chips) {
        const bool isActive = chip->segment() == m_activeSegment;
        chip->setActive(isActive);
        if (isActive) tabStop = chip;
    }
    setTabStop(*tabStop);
}

// From then on the toolkit makes the chip that had the focus last the only stop.
void SegmentCarouselView::setTabStop(SegmentChip& stop) {
    m_code->setFocusPolicy(Qt::ClickFocus);
    for (auto* chip : m_chips)
        chip->setFocusPolicy(Qt::ClickFocus);
    stop.setFocusPolicy(Qt::StrongFocus);
}

} // namespace quillet
