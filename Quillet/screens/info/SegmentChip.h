#pragma once

#include <QtWidgets/QAbstractButton>

namespace quillet {

// A chip of the segments: white on the active colour while its code is on screen, on a dark one otherwise.
// One of a row, or none, is active: who has the row says which, a press changes nothing by itself. Main
// thread.
class SegmentChip : public QAbstractButton {
    Q_OBJECT

public:
    explicit SegmentChip(QWidget* parent = nullptr);

    const QString& title() const { return m_title; }

    void setTitle(const QString& title);
    void setActive(bool isActive);

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent* event) override; // Return presses, as Space does

    void nextCheckState() override {}

    void paintEvent(QPaintEvent* event) override;

private:
    bool m_isBeingSet = false;
    QString m_title; // the toolkit's own text would make a shortcut of "R&D"
};

} // namespace quillet
