#pragma once

#include <QtWidgets/QLabel>

namespace quillet {

// Notes of any length on a few lines, fewer of them in a large font, cut short where they go on. The tool tip
// has it all. Main thread.
class NotesLabel : public QLabel {
    Q_OBJECT

public:
    explicit NotesLabel(QWidget* parent = nullptr);

    void setNotes(const QString& notes);

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QStringList linesIn(int width) const;
};

} // namespace quillet
