#pragma once

#include <QtWidgets/QLabel>

namespace quillet {

// Notes of any length on a few lines. What does not fit is told by the tool tip. Main thread.
class NotesLabel : public QLabel {
    Q_OBJECT

public:
    explicit NotesLabel(QWidget* parent = nullptr);

    void setText(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fit();

    QString m_notes;
};

} // namespace quillet
