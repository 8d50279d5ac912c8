#include "platform/screens/list/GroupedForm.h"

#include "platform/screens/appearance/TypeScale.h"
#include "platform/screens/style/Metrics.h"

#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScroller>
#include <QtWidgets/QVBoxLayout>

namespace platform {

namespace {

constexpr int margin = 16;
constexpr int spacing = 10;
constexpr int captionIndent = 14; // as the headings of a list
constexpr int focusMargin = 24;   // of what is scrolled into view with the widget that has the focus

class Card : public QWidget {
public:
    Card(const GroupedForm& form, QWidget* parent)
        : QWidget(parent)
        , m_form(&form) {}

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(color(m_form->cardColor));
        painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
    }

private:
    const GroupedForm* m_form; // around this
};

QLabel* makeCaption(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setContentsMargins(captionIndent, 0, captionIndent, 0);
    setTextStyle(*label, TextStyle::Footnote);
    return label;
}

} // namespace

GroupedForm::GroupedForm(QWidget* parent)
    : QScrollArea(parent) {
    auto* content = new QWidget(this);
    m_column = new QVBoxLayout(content);
    m_column->setContentsMargins(margin, margin, margin, margin);
    m_column->setSpacing(spacing);
    m_column->addStretch();
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QScroller::grabGesture(viewport(), QScroller::TouchGesture);
    connect(qApp, &QApplication::focusChanged, this, &GroupedForm::showFocus);
}

// The focus may leave a row while the rows go.
GroupedForm::~GroupedForm() {
    disconnect(qApp, nullptr, this, nullptr);
}

QVBoxLayout& GroupedForm::addSection(const QString& heading, const QString& footer) {
    auto section = std::make_unique<QWidget>();
    auto* column = new QVBoxLayout(section.get());
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(spacing / 2);
    if (!heading.isEmpty()) column->addWidget(makeCaption(heading, section.get()));
    auto* card = new Card(*this, section.get());
    card->setAccessibleName(heading);
    column->addWidget(card);
    if (!footer.isEmpty()) column->addWidget(makeCaption(footer, section.get()));
    auto* rows = new QVBoxLayout(card);
    rows->setContentsMargins(margin, spacing, margin, spacing);
    rows->setSpacing(spacing);
    addWidget(std::move(section));
    return *rows;
}

// The stretch stays at the end.
void GroupedForm::addWidget(std::unique_ptr<QWidget> widget) {
    m_column->insertWidget(m_column->count() - 1, widget.release());
}

void GroupedForm::showFocus(QWidget* /*before*/, QWidget* now) {
    if (!now || !widget()->isAncestorOf(now)) return;
    // The toolkit's own way shows no more of a field than its caret.
    const QRect place(now->mapTo(widget(), QPoint()), now->size());
    if (place.height() > viewport()->height())
        ensureWidgetVisible(now, 0, focusMargin);
    else
        ensureVisible(place.center().x(), place.center().y(), 0, place.height() / 2 + focusMargin);
}

} // namespace platform
