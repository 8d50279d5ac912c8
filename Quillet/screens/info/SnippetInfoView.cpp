#include "Quillet/screens/info/SnippetInfoView.h"

#include "Quillet/core/CoreDataStack.h"
#include "Quillet/screens/info/DisclosureToggle.h"
#include "Quillet/screens/info/Drawer.h"
#include "Quillet/screens/info/NotesLabel.h"
#include "Quillet/screens/info/SegmentCarouselView.h"
#include "Quillet/screens/info/TagCarouselView.h"
#include "platform/foundation/Log.h"
#include "platform/screens/appearance/TypeScale.h"
#include "platform/screens/controllers/BarTitle.h"
#include "platform/screens/controls/PlainToolTip.h"

#include <QtGui/QPainter>
#include <QtWidgets/QBoxLayout>

namespace quillet {

namespace {

// Points.
constexpr int margin = 16;
constexpr int spacing = 2;

} // namespace

SnippetInfoView::SnippetInfoView(std::shared_ptr<SnippetInfoViewModel> viewModel,
                                 SnippetInfoCallbacks callbacks, QWidget* parent)
    : QWidget(parent)
    , m_viewModel(std::move(viewModel))
    , m_callbacks(std::move(callbacks))
    , m_title(new platform::BarTitle(platform::Asset::TextSecondary, this))
    , m_notes(new NotesLabel(this))
    , m_toggle(new DisclosureToggle(this))
    , m_tags(new TagCarouselView(m_callbacks.onEditTags, this))
    , m_segments(new SegmentCarouselView(m_callbacks, this))
    , m_rows(new Drawer(makeRows(), this)) {
    m_title->setAttribute(Qt::WA_TransparentForMouseEvents, false); // it has a tool tip
    m_title->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    platform::setTextStyle(*m_title, platform::TextStyle::Headline);
    m_toggle->setChecked(true);
    connect(m_toggle, &QAbstractButton::toggled, this, [this](bool isOpen) {
        m_showTagsAndSegments = isOpen;
        m_rows->setOpen(isOpen);
    });

    auto* head = new QHBoxLayout;
    head->setContentsMargins(margin, 0, margin, 0);
    head->addWidget(m_title, 1);
    head->addWidget(m_toggle);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 4, 0, 4);
    column->setSpacing(spacing);
    column->addLayout(head);
    column->addWidget(m_notes);
    column->addWidget(m_rows);
    m_notes->setContentsMargins(margin, 0, margin, 4);

    m_snippets = m_viewModel->snippet.observe([this](const auto& snippet) { take(snippet); });
    m_changes = CoreDataStack::shared().viewContext().onChange([this](const auto&) { follow(); });
}

const std::shared_ptr<Segment>& SnippetInfoView::activeSegment() const {
    return m_segments->activeSegment();
}

void SnippetInfoView::take(const std::shared_ptr<Snippet>& snippet) {
    platform::logLine(QStringLiteral("⚠️ New snippet, clearing data"));
    m_tags->setSnippet(snippet);
    m_segments->setSnippet(snippet);
    m_rows->setVisible(snippet != nullptr);
    showTexts();
}

void SnippetInfoView::follow() {
    m_tags->refresh();
    m_segments->refresh();
    showTexts();
}

void SnippetInfoView::showTexts() {
    const auto& snippet = m_viewModel->snippet.value();
    const QString title = snippet ? snippet->title() : QString();
    m_title->setText(title);
    platform::setPlainToolTip(*m_title, title);
    const QString notes = snippet ? snippet->notes() : QString();
    m_notes->setNotes(notes);
    m_notes->setVisible(!notes.isEmpty());
}

std::unique_ptr<QWidget> SnippetInfoView::makeRows() {
    auto rows = std::make_unique<QWidget>();
    auto* column = new QVBoxLayout(rows.get());
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(spacing);
    column->addWidget(m_tags);
    column->addWidget(m_segments);
    return rows;
}

void SnippetInfoView::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), platform::color(platform::Asset::BackgroundGrey));
}

} // namespace quillet
