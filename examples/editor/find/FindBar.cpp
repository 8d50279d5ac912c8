#include "examples/editor/find/FindBar.h"

#include <QtCore/QSignalBlocker>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolButton>

namespace tessarine::editor {

namespace {

QWidget* inARow(std::initializer_list<QWidget*> widgets) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    for (QWidget* const widget : widgets)
        layout->addWidget(widget);
    return row;
}

QLineEdit* makeField(const QString& name, const QString& placeholder) {
    auto* field = new QLineEdit;
    field->setObjectName(name);
    field->setPlaceholderText(placeholder);
    field->setAccessibleName(placeholder);
    field->setClearButtonEnabled(true);
    return field;
}

} // namespace

FindBar::FindBar(QWidget* parent)
    : QFrame(parent)
    , m_text(makeField(QStringLiteral("find"), tr("Find")))
    , m_replacement(makeField(QStringLiteral("replacement"), tr("Replace with")))
    , m_caseSensitive(makeToggle(QStringLiteral("Aa"), QStringLiteral("case"), tr("Match case")))
    , m_wholeWord(makeToggle(QStringLiteral("W"), QStringLiteral("word"), tr("Whole words")))
    , m_regularExpression(makeToggle(QStringLiteral(".*"), QStringLiteral("regex"), tr("Regular expression")))
    , m_result(new QLabel)
    , m_replaceButtons(nullptr) {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(8, 6, 8, 6);
    grid->setSpacing(6);
    grid->setColumnStretch(0, 1);
    makeFindRow(*grid);
    makeReplaceRow(*grid);
    connect(m_text, &QLineEdit::textChanged, this, &FindBar::optionsChanged);
    hide();
}

void FindBar::makeFindRow(QGridLayout& grid) {
    auto* previous = makeButton(QStringLiteral("↑"), QStringLiteral("previous"), tr("Previous match"));
    auto* next = makeButton(QStringLiteral("↓"), QStringLiteral("next"), tr("Next match"));
    auto* close = makeButton(QStringLiteral("✕"), QStringLiteral("close"), tr("Close"));
    m_result->setObjectName(QStringLiteral("result"));
    m_result->setMinimumWidth(m_result->fontMetrics().horizontalAdvance(QStringLiteral("100000 of 100000")));
    grid.addWidget(m_text, 0, 0);
    grid.addWidget(inARow({m_caseSensitive, m_wholeWord, m_regularExpression, previous, next}), 0, 1);
    grid.addWidget(m_result, 0, 2);
    grid.addWidget(close, 0, 3);
    connect(previous, &QToolButton::clicked, this, &FindBar::previousRequested);
    connect(next, &QToolButton::clicked, this, &FindBar::nextRequested);
    connect(close, &QToolButton::clicked, this, &FindBar::closed);
}

void FindBar::makeReplaceRow(QGridLayout& grid) {
    auto* replace = makeButton(tr("Replace"), QStringLiteral("replace"), tr("Replace this match"));
    auto* all = makeButton(tr("Replace All"), QStringLiteral("replaceAll"), tr("Replace all matches"));
    m_replaceButtons = inARow({replace, all});
    grid.addWidget(m_replacement, 1, 0);
    grid.addWidget(m_replaceButtons, 1, 1, 1, 2, Qt::AlignLeft);
    connect(replace, &QToolButton::clicked, this, &FindBar::replaceRequested);
    connect(all, &QToolButton::clicked, this, &FindBar::replaceAllRequested);
}

QToolButton* FindBar::makeToggle(const QString& text, const QString& name, const QString& tip) {
    QToolButton* const button = makeButton(text, name, tip);
    button->setCheckable(true);
    connect(button, &QToolButton::toggled, this, &FindBar::optionsChanged);
    return button;
}

QToolButton* FindBar::makeButton(const QString& text, const QString& name, const QString& tip) {
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setText(text);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setAutoRaise(true);
    return button;
}

FindOptions FindBar::options() const {
    return {m_text->text(), m_caseSensitive->isChecked(), m_wholeWord->isChecked(),
            m_regularExpression->isChecked()};
}

QString FindBar::replacement() const {
    return m_replacement->text();
}

bool FindBar::isReplacing() const {
    return !m_replacement->isHidden();
}

void FindBar::open(const QString& text, bool withReplacing) {
    m_replacement->setVisible(withReplacing);
    m_replaceButtons->setVisible(withReplacing);
    if (!text.isEmpty()) {
        const QSignalBlocker blocker(m_text); // told once below
        m_text->setText(text);
    }
    show();
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
    Q_EMIT optionsChanged();
}

void FindBar::showResult(const QString& text, Mood mood) {
    m_result->setText(text);
    QPalette colors = palette();
    if (mood == Mood::warning)
        colors.setColor(QPalette::WindowText, colors.color(QPalette::Window).lightness() < 128
                                                  ? QColor(0xFF8F8A)
                                                  : QColor(0xB3232B));
    m_result->setPalette(colors);
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        Q_EMIT closed();
    else if (isEnter)
        enter(event->modifiers());
    else
        QFrame::keyPressEvent(event);
}

void FindBar::enter(Qt::KeyboardModifiers modifiers) {
    if (m_replacement->hasFocus())
        Q_EMIT replaceRequested();
    else if (modifiers & Qt::ShiftModifier)
        Q_EMIT previousRequested();
    else
        Q_EMIT nextRequested();
}

} // namespace tessarine::editor
