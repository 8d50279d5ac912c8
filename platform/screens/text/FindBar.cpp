#include "platform/screens/text/FindBar.h"

#include "platform/screens/appearance/Palette.h"
#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/controls/SymbolButton.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QTextBlock>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <limits>
#include <ranges>

namespace platform {

namespace {

using namespace std::chrono_literals;

constexpr auto rest = 200ms;
constexpr qsizetype mostTaken = 200; // of a selection, code units
constexpr std::size_t mostMarked = 1000;
constexpr int markAlpha = 90;    // the code stays readable on any theme
constexpr int leastLetters = 12; // that the field has room for beside the rest

bool isReturnKey(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool goesOn(const QKeyEvent& event) {
    const auto modifiers = event.modifiers() & ~Qt::ShiftModifier;
    return (event.key() == Qt::Key_F3 && modifiers == Qt::NoModifier) ||
           (event.key() == Qt::Key_G && modifiers == Qt::ControlModifier);
}

} // namespace

FindBar::FindBar(TextView& view, QWidget* parent)
    : QWidget(parent)
    , m_view(&view)
    , m_field(new QLineEdit(this))
    , m_tail(new QWidget(this))
    , m_count(new QLabel(m_tail))
    , m_matchCase(
          new SymbolButton(QStringLiteral("textformat"), QStringLiteral("Match Case"), Asset::Accent, m_tail))
    , m_origin(view.textCursor())
    , m_idle(Timer::Kind::OneShot, rest, [this] { search(); }) {
    m_field->setPlaceholderText(QStringLiteral("Find"));
    m_field->setAccessibleName(QStringLiteral("Find"));
    m_field->addAction(symbolIcon(QStringLiteral("search"), Asset::TextSecondary),
                       QLineEdit::LeadingPosition);
    m_count->setTextFormat(Qt::PlainText);
    m_count->setForegroundRole(QPalette::PlaceholderText);
    m_matchCase->setCheckable(true);
    auto* tail = new QHBoxLayout(m_tail);
    tail->setContentsMargins(0, 0, 0, 0);
    tail->setSpacing(0);
    tail->addWidget(m_count, 1);
    makeButtons(*tail);
    auto* row = new QBoxLayout(QBoxLayout::LeftToRight, this);
    row->setContentsMargins(16, 4, 16, 4);
    row->setSpacing(8);
    row->addWidget(m_field, 1);
    row->addWidget(m_tail);
    connect(m_field, &QLineEdit::textChanged, this, &FindBar::queryChanged);
    connect(m_matchCase, &QAbstractButton::toggled, this, &FindBar::queryChanged);
    watchView();
    hide();
}

void FindBar::makeButtons(QBoxLayout& row) {
    const auto add = [&](const QString& symbol, const QString& name, auto action) {
        auto* button = new SymbolButton(symbol, name, Asset::Accent, m_tail);
        connect(button, &QAbstractButton::clicked, this, action);
        row.addWidget(button);
    };
    row.addWidget(m_matchCase);
    add(QStringLiteral("chevron.up"), QStringLiteral("Previous Match"), [this] { findNext(Way::Backward); });
    add(QStringLiteral("chevron.down"), QStringLiteral("Next Match"), [this] { findNext(Way::Forward); });
    add(QStringLiteral("xmark"), QStringLiteral("Close Find"), [this] { close(); });
}

void FindBar::watchView() {
    connect(m_view->document(), &QTextDocument::contentsChange, this, &FindBar::textEdited);
    connect(m_view, &QPlainTextEdit::selectionChanged, this, [this] {
        m_wrap = Wrap::None;
        showCount();
    });
    for (auto* bar : {m_view->verticalScrollBar(), m_view->horizontalScrollBar()}) {
        connect(bar, &QScrollBar::valueChanged, this, &FindBar::markVisible);
        connect(bar, &QScrollBar::rangeChanged, this, &FindBar::markVisible); // as after a zoom
    }
    m_view->installEventFilter(this);
    m_view->viewport()->installEventFilter(this);
}

void FindBar::open() {
    const QString selected = m_view->textCursor().selectedText();
    m_origin.setPosition(m_view->textCursor().selectionStart());
    m_wrap = Wrap::None;
    const bool isOneLine = !selected.contains(QChar::ParagraphSeparator) && selected.size() <= mostTaken;
    if (!selected.isEmpty() && isOneLine) m_field->setText(selected);
    show();
    arrange();
    m_field->setFocus(Qt::ShortcutFocusReason);
    m_field->selectAll();
    search();
}

void FindBar::close() {
    hide();
    m_idle.stop();
    m_matches = {};
    m_view->setExtraSelections({});
    m_view->setFocus(Qt::OtherFocusReason);
}

TextMatches::Query FindBar::query() const {
    return {.text = m_field->text(),
            .caseSensitivity = m_matchCase->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive};
}

void FindBar::queryChanged() {
    if (!isVisible()) return;
    m_wrap = Wrap::None;
    search();
    if (const auto found = find(Way::Forward, m_origin.position())) select(*found);
}

void FindBar::textEdited(int position, int removed, int added) {
    if (!isVisible()) return;
    m_matches.edit(position, removed, added);
    m_idle.start();
}

void FindBar::search() {
    m_idle.stop();
    const TextMatches::Query query = this->query();
    m_matches = query.text.isEmpty() ? TextMatches() : TextMatches(m_view->displayText(), query);
    showCount();
    markVisible();
}

void FindBar::findNext(Way way) {
    if (m_idle.isActive()) search();
    const QTextCursor cursor = m_view->textCursor();
    const auto found = find(way, way == Way::Forward ? cursor.selectionEnd() : cursor.selectionStart());
    if (!found) return;
    select(*found);
    m_origin.setPosition(found->start);
}

std::optional<FindBar::Found> FindBar::find(Way way, int from) const {
    if (m_matches.isCapped()) return findUncounted(way, from);
    if (m_matches.isEmpty()) return std::nullopt;
    constexpr int end = std::numeric_limits<int>::max();
    if (way == Way::Forward) {
        if (const auto at = m_matches.firstFrom(from)) return Found{*at};
        return Found{*m_matches.firstFrom(0), Wrap::End};
    }
    if (const auto at = m_matches.lastBefore(from)) return Found{*at};
    return Found{*m_matches.lastBefore(end), Wrap::Start};
}

// Among more matches than are known.
std::optional<FindBar::Found> FindBar::findUncounted(Way way, int from) const {
    const auto [text, sensitivity] = query();
    const QString where = m_view->displayText();
    const bool isForward = way == Way::Forward;
    const qsizetype before = from - text.size(); // where one that ends there starts
    const qsizetype at = isForward     ? where.indexOf(text, from, sensitivity)
                         : before >= 0 ? where.lastIndexOf(text, before, sensitivity)
                                       : -1;
    if (at >= 0) return Found{static_cast<int>(at)};
    const qsizetype around =
        isForward ? where.indexOf(text, 0, sensitivity) : where.lastIndexOf(text, -1, sensitivity);
    if (around < 0) return std::nullopt;
    return Found{static_cast<int>(around), isForward ? Wrap::End : Wrap::Start};
}

void FindBar::select(const Found& found) {
    QTextCursor cursor = m_view->textCursor();
    cursor.setPosition(found.start);
    cursor.setPosition(found.start + static_cast<int>(m_field->text().size()), QTextCursor::KeepAnchor);
    m_view->setTextCursor(cursor);
    m_wrap = found.wrap;
    showCount();
    markVisible();
}

QString FindBar::countText() const {
    if (m_field->text().isEmpty()) return {};
    const QTextCursor cursor = m_view->textCursor();
    return m_matches.countText({cursor.selectionStart(), cursor.selectionEnd()});
}

void FindBar::showCount() {
    if (!isVisible()) return;
    const QString count = countText();
    m_count->setText(count);
    m_count->setAccessibleName(m_wrap == Wrap::End     ? count + QStringLiteral(", continued from the start")
                               : m_wrap == Wrap::Start ? count + QStringLiteral(", continued from the end")
                                                       : count);
    arrange();
}

// [start, limit) of the text in view: whole lines, but of a single one only what is between the sides.
std::pair<int, int> FindBar::rangeInView() const {
    const QRect seen = m_view->viewport()->rect();
    const QTextCursor first = m_view->cursorForPosition(seen.topLeft());
    const QTextBlock last = m_view->cursorForPosition(seen.bottomRight()).block();
    if (first.block() != last || m_view->lineWrapMode() != QPlainTextEdit::NoWrap)
        return {first.block().position(), last.position() + last.length()};
    const int middle = m_view->cursorRect(first).center().y();
    const int left = m_view->cursorForPosition({seen.left(), middle}).position();
    const int right = m_view->cursorForPosition({seen.right(), middle}).position();
    return std::minmax({left, right});
}

// At most as many as are marked. Behind those that are counted only this part of the text is searched.
std::vector<int> FindBar::matchesIn(int start, int limit) const {
    std::vector<int> starts;
    const auto take = [&](std::span<const int> found, int offset) {
        for (const int at : found | std::views::take(mostMarked))
            starts.push_back(at + offset);
    };
    if (m_matches.reaches(limit)) {
        take(m_matches.touching(start, limit), 0);
        return starts;
    }
    QTextCursor part(m_view->document());
    part.setPosition(start);
    part.setPosition(std::min(limit, m_view->document()->characterCount() - 1), QTextCursor::KeepAnchor);
    const QString text = part.selectedText().replace(QChar::ParagraphSeparator, QChar::LineFeed);
    take(TextMatches(text, query()).touching(0, static_cast<int>(text.size())), start);
    return starts;
}

void FindBar::markVisible() {
    if (!isVisible()) return;
    const auto [start, limit] = rangeInView();
    QTextEdit::ExtraSelection mark;
    QColor color = platform::color(Asset::SystemYellow);
    color.setAlpha(markAlpha);
    mark.format.setBackground(color);
    mark.cursor = QTextCursor(m_view->document());
    QList<QTextEdit::ExtraSelection> marks;
    for (const int at : matchesIn(start, limit)) {
        mark.cursor.setPosition(at);
        mark.cursor.setPosition(at + static_cast<int>(m_field->text().size()), QTextCursor::KeepAnchor);
        marks.append(mark);
    }
    m_view->setExtraSelections(marks);
}

// The keys of the text view, and the size of its viewport.
bool FindBar::eventFilter(QObject* watched, QEvent* event) {
    if (!isVisible()) return false;
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        return FindBar::event(event);
    case QEvent::KeyPress:
        return obey(static_cast<QKeyEvent&>(*event));
    case QEvent::Resize:
        if (watched == m_view->viewport()) markVisible();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

// The keys are the bar's before they are anybody's around it.
bool FindBar::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = static_cast<QKeyEvent&>(*event);
        event->setAccepted(key.key() == Qt::Key_Escape || goesOn(key));
        return event->isAccepted();
    }
    return QWidget::event(event);
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    event->setAccepted(obey(*event));
}

bool FindBar::obey(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Escape) {
        close();
    } else if (goesOn(event) || (isReturnKey(event) && m_field->hasFocus())) {
        const bool isBackward = event.modifiers().testFlag(Qt::ShiftModifier);
        findNext(isBackward ? Way::Backward : Way::Forward);
    } else {
        return false;
    }
    return true;
}

void FindBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

void FindBar::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) markVisible();
    if (event->type() == QEvent::FontChange) arrange();
}

// On two rows where the field would have no room beside the rest.
void FindBar::arrange() {
    auto& row = static_cast<QBoxLayout&>(*layout());
    const int field = fontMetrics().averageCharWidth() * leastLetters;
    const int needed = field + row.spacing() + m_tail->sizeHint().width();
    const QMargins margins = row.contentsMargins();
    const bool isRoomy = needed <= width() - margins.left() - margins.right();
    row.setDirection(isRoomy ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

void FindBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), color(Asset::BackgroundGrey));
}

} // namespace platform
