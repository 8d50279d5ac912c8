#pragma once

#include "examples/editor/find/FindOptions.h"

#include <QtWidgets/QFrame>

class QGridLayout;
class QLabel;
class QLineEdit;
class QToolButton;

namespace tessarine::editor {

// What to look for and what to put in its place, below the text. It knows nothing of the text: it tells what
// was asked for and shows what it is told.
class FindBar : public QFrame {
    Q_OBJECT

public:
    enum class Mood { neutral, warning };

    explicit FindBar(QWidget* parent);

    FindOptions options() const;

    QString replacement() const;

    // With the text to look for, unless it is empty. The keyboard goes to it.
    void open(const QString& text, bool withReplacing);

    // What the search has come to.
    void showResult(const QString& text, Mood mood);

    bool isReplacing() const;

Q_SIGNALS:
    void optionsChanged();
    void nextRequested();
    void previousRequested();
    void replaceRequested();
    void replaceAllRequested();
    void closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void makeFindRow(QGridLayout& grid);
    void makeReplaceRow(QGridLayout& grid);
    QToolButton* makeToggle(const QString& text, const QString& name, const QString& tip);
    QToolButton* makeButton(const QString& text, const QString& name, const QString& tip);
    void enter(Qt::KeyboardModifiers modifiers);

    QLineEdit* m_text;
    QLineEdit* m_replacement;
    QToolButton* m_caseSensitive;
    QToolButton* m_wholeWord;
    QToolButton* m_regularExpression;
    QLabel* m_result;
    QWidget* m_replaceButtons;
};

} // namespace tessarine::editor
