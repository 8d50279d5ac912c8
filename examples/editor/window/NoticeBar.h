#pragma once

#include <QtWidgets/QFrame>

#include <functional>
#include <vector>

class QHBoxLayout;
class QLabel;

namespace tessarine::editor {

// Says something above the text that wants no answer at once.
class NoticeBar : public QFrame {
public:
    struct Choice {
        QString label;
        std::function<void()> action;
    };

    explicit NoticeBar(QWidget* parent);

    // In place of what it said before. Each choice hides the bar.
    void show(const QString& text, std::vector<Choice> choices);

private:
    QLabel* m_text;
    QWidget* m_buttons = nullptr;
};

} // namespace tessarine::editor
