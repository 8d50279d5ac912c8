#include "Quillet/screens/info/SnippetInfoView.h"

#include "Quillet/core/CoreDataStack.h"
#include "Quillet/screens/info/DisclosureToggle.h"
#include "Quillet/screens/info/NotesLabel.h"
#include "Quillet/screens/info/SegmentCarouselView.h"
#include "Quillet/screens/info/TagCarouselView.h"
#include "platform/foundation/Log.h"
#include "platform/screens/appearance/TypeScale.h"

#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QLabel>

namespace quillet {

namespace {

constexpr int margin = 16; // points

} // namespace

SnippetInfoView::SnippetInfoView(std::shared_ptr<SnippetInfoViewModel> viewModel,
                                 SnippetInfoCallbacks callbacks, QWidget* parent)
    : QWidget(parent)
    , m_viewModel(std::move(viewModel))
    , m_callbacks(std::move(callbacks))
    , m_title(new QLabel(this))
    , m_notes(new NotesLabel(this))
    , m_toggle(new DisclosureToggle(this))
    , m_tags(new TagCarouselView(m_callbacks.onEditTags, this))
    , m_segments(new SegmentCarouselView(m_callbacks, this)) {
    m_title->setTextFormat(Qt::PlainText);
    m_title->setForegroundRole(QPalette::PlaceholderText);
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    platform::setTextStyle(*m_title, platform::TextStyle::Headline);
    m_toggle->setChecked(true);
    connect(m_toggle, &QAbstractButton::toggled, this, [this](bool isOpen) {
        m_showTagsAndSegments = isOpen;
        showRows();
    });

    auto* head = new QHBoxLayout;
    head->setContentsMargins(margin, 0, margin - 8, 0);
    head->addWidget(m_title, 1);
    head->addWidget(m_toggle);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 4);
    column->setSpacing(2);
    column->addLayout(head);
    column->addWidget(m_notes);
    column->addWidget(m_tags);
    column->addWidget(m_segments);
    m_notes->setContentsMargins(margin, 0, margin, 4);

    m_snippets = m_viewModel->snippet.observe([this](const auto& snippet) { take(snippet); });
    m_changes = CoreDataStack::shared().viewContext().onChange([this](const auto&) { refresh(); });
}

const std::shared_ptr<Segment>& SnippetInfoView::activeSegment() const {
    return m_segments->activeSegment();
}

void SnippetInfoView::take(const std::shared_ptr<Snippet>& snippet) {
    platform::logLine(QStringLiteral("⚠️ New snippet, clearing data"));
    m_tags->setSnippet(snippet);
    m_segments->setSnippet(snippet);
    refresh();
}

void SnippetInfoView::refresh() {
    const auto& snippet = m_viewModel->snippet.value();
    const QString title = snippet ? snippet->title() : QString();
    m_title->setText(
        m_title->fontMetrics().elidedText(title, Qt::ElideRight, std::max(m_title->width(), 60)));
    m_title->setAccessibleName(title);
    m_title->setToolTip(title);
    m_notes->setText(snippet ? snippet->notes() : QString());
    m_notes->setVisible(snippet && !snippet->notes().isEmpty());
    m_tags->refresh();
    m_segments->refresh();
    showRows();
}

void SnippetInfoView::showRows() {
    const bool areShown = m_showTagsAndSegments && m_viewModel->snippet.value();
    m_tags->setVisible(areShown);
    m_segments->setVisible(areShown);
}

void SnippetInfoView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    m_horizontalSizeClass.reset();
    tellSizeClass();
}

void SnippetInfoView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    refresh();
    tellSizeClass();
}

void SnippetInfoView::tellSizeClass() {
    const auto sizeClass = platform::horizontalSizeClass(*this);
    if (sizeClass == m_horizontalSizeClass) return;
    m_horizontalSizeClass = sizeClass;
    if (onSizeClass) onSizeClass(sizeClass);
}

} // namespace quillet
