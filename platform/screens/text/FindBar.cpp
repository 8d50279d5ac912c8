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

namespace platform {

namespace {

using namespace std::chrono_literals;

constexpr auto rest = 200ms;
constexpr std::size_t mostCounted = 10'000;
constexpr std::size_t mostMarked = 400;
constexpr int markAlpha = 90; // the code stays readable on any theme

} // namespace

FindBar::FindBar(TextView& view, QWidget* parent)
    : QWidget(parent)
    , m_view(&view)
    , m_field(new QLineEdit(this))
    , m_count(new QLabel(this))
    , m_matchCase(
          new SymbolButton(QStringLiteral("textformat"), QStringLiteral("Match Case"), Asset::Accent, this))
    , m_idle(Timer::Kind::OneShot, rest, [this] { search(); }) {
    m_field->setPlaceholderText(QStringLiteral("Find"));
    m_field->setAccessibleName(QStringLiteral("Find"));
    m_field->addAction(symbolIcon(QStringLiteral("search"), Asset::TextSecondary),
                       QLineEdit::LeadingPosition);
    m_field->installEventFilter(this);
    m_count->setForegroundRole(QPalette::PlaceholderText);
    m_matchCase->setCheckable(true);
    auto* previous =
        new SymbolButton(QStringLiteral("chevron.up"), QStringLiteral("Previous Match"), Asset::Accent, this);
    auto* next =
        new SymbolButton(QStringLiteral("chevron.down"), QStringLiteral("Next Match"), Asset::Accent, this);
    auto* done = new SymbolButton(QStringLiteral("xmark"), QStringLiteral("Close Find"), Asset::Accent, this);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(16, 6, 8, 6);
    row->setSpacing(2);
    row->addWidget(m_field, 1);
    row->addSpacing(8);
    row->addWidget(m_count);
    for (auto* button : {m_matchCase, previous, next, done})
        row->addWidget(button);
    connect(m_field, &QLineEdit::textChanged, this, &FindBar::queryChanged);
    connect(m_matchCase, &QAbstractButton::toggled, this, &FindBar::queryChanged);
    connect(previous, &QAbstractButton::clicked, this, [this] { findNext(Way::Backward); });
    connect(next, &QAbstractButton::clicked, this, [this] { findNext(Way::Forward); });
    connect(done, &QAbstractButton::clicked, this, &FindBar::close);
    connect(m_view, &QPlainTextEdit::textChanged, this, [this] {
        if (isVisible()) m_idle.start();
    });
    connect(m_view, &QPlainTextEdit::selectionChanged, this, &FindBar::showCount);
    connect(m_view->verticalScrollBar(), &QScrollBar::valueChanged, this, &FindBar::markVisible);
    m_view->installEventFilter(this);
    hide();
}

void FindBar::open() {
    const QString selected = m_view->textCursor().selectedText();
    m_anchor = m_view->textCursor().selectionStart();
    show();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator)) m_field->setText(selected);
    m_field->setFocus(Qt::ShortcutFocusReason);
    m_field->selectAll();
    queryChanged();
}

void FindBar::close() {
    hide();
    m_idle.stop();
    m_matches.clear();
    m_view->setExtraSelections({});
    m_view->setFocus(Qt::OtherFocusReason);
}

Qt::CaseSensitivity FindBar::caseSensitivity() const {
    return m_matchCase->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive;
}

void FindBar::queryChanged() {
    if (!isVisible()) return;
    search();
    if (!m_field->text().isEmpty()) find(Way::Forward, m_anchor);
}

void FindBar::search() {
    m_matches.clear();
    const QString query = m_field->text();
    if (!query.isEmpty()) {
        const QString text = m_view->displayText();
        for (qsizetype at = text.indexOf(query, 0, caseSensitivity());
             at >= 0 && m_matches.size() < mostCounted;
             at = text.indexOf(query, at + query.size(), caseSensitivity()))
            m_matches.push_back(static_cast<int>(at));
    }
    showCount();
    markVisible();
}

// What lies past those that are counted is found all the same.
void FindBar::find(Way way, int from) {
    const QString query = m_field->text();
    if (query.isEmpty()) return;
    const QString text = m_view->displayText();
    qsizetype at = -1;
    if (way == Way::Forward) {
        at = text.indexOf(query, from, caseSensitivity());
        if (at < 0) at = text.indexOf(query, 0, caseSensitivity());
    } else {
        if (from > 0) at = text.lastIndexOf(query, from - 1, caseSensitivity());
        if (at < 0) at = text.lastIndexOf(query, -1, caseSensitivity());
    }
    if (at < 0) return;
    QTextCursor cursor = m_view->textCursor();
    cursor.setPosition(static_cast<int>(at));
    cursor.setPosition(static_cast<int>(at + query.size()), QTextCursor::KeepAnchor);
    m_view->setTextCursor(cursor);
    showCount();
    markVisible();
}

void FindBar::findNext(Way way) {
    const QTextCursor cursor = m_view->textCursor();
    find(way, way == Way::Forward ? cursor.selectionEnd() : cursor.selectionStart());
    m_anchor = m_view->textCursor().selectionStart();
}

QString FindBar::countText() const {
    if (m_field->text().isEmpty()) return {};
    if (m_matches.empty()) return QStringLiteral("No results");
    const QString count = m_matches.size() < mostCounted ? QString::number(m_matches.size())
                                                         : QString::number(mostCounted) + u'+';
    const QTextCursor cursor = m_view->textCursor();
    const auto current = std::ranges::lower_bound(m_matches, cursor.selectionStart());
    const bool isOnMatch = current != m_matches.end() && *current == cursor.selectionStart() &&
                           cursor.selectionEnd() - *current == m_field->text().size();
    if (!isOnMatch) return count;
    return QStringLiteral("%1 of %2").arg(QString::number(current - m_matches.begin() + 1), count);
}

void FindBar::showCount() {
    if (!isVisible()) return;
    m_count->setText(countText());
    m_count->setAccessibleName(countText());
}

void FindBar::markVisible() {
    if (!isVisible()) return;
    const int first = m_view->cursorForPosition({0, 0}).block().position();
    const auto bottom = m_view->cursorForPosition(m_view->viewport()->rect().bottomRight()).block();
    const int last = bottom.position() + bottom.length();
    QColor mark = color(Asset::SystemYellow);
    mark.setAlpha(markAlpha);
    QList<QTextEdit::ExtraSelection> marks;
    for (auto at = std::ranges::lower_bound(m_matches, first);
         at != m_matches.end() && *at < last && static_cast<std::size_t>(marks.size()) < mostMarked; ++at) {
        QTextEdit::ExtraSelection each;
        each.cursor = QTextCursor(m_view->document());
        each.cursor.setPosition(*at);
        each.cursor.setPosition(std::min(*at + static_cast<int>(m_field->text().size()),
                                         m_view->document()->characterCount() - 1),
                                QTextCursor::KeepAnchor);
        each.format.setBackground(mark);
        marks.append(each);
    }
    m_view->setExtraSelections(marks);
}

bool FindBar::eventFilter(QObject* watched, QEvent* event) {
    const bool isInField = watched == m_field;
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress: {
        if (!isVisible()) break;
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (event->type() == QEvent::KeyPress) return keyPressed(key, isInField);
        if (key.key() == Qt::Key_Escape) event->accept(); // what is around this is not left
        break;
    }
    case QEvent::Resize:
        if (!isInField) markVisible();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

bool FindBar::keyPressed(const QKeyEvent& event, bool isInField) {
    const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const bool isNext = event.key() == Qt::Key_F3 ||
                        (event.key() == Qt::Key_G && event.modifiers().testFlag(Qt::ControlModifier));
    if (event.key() == Qt::Key_Escape) {
        close();
    } else if (isNext || (isReturn && isInField)) {
        const bool isBackward = event.modifiers().testFlag(Qt::ShiftModifier);
        findNext(isBackward ? Way::Backward : Way::Forward);
    } else {
        return false;
    }
    return true;
}

void FindBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), color(Asset::BackgroundGrey));
}

} // namespace platform
