#pragma once

#include <QtWidgets/QAbstractButton>

namespace platform {

// One answer of an alert: a row with its text in the middle and a line toward what comes before. Main thread.
class AlertButton : public QAbstractButton {
    Q_OBJECT

public:
    enum class Kind { Normal, Preferred, Destructive };

    AlertButton(const QString& title, Kind kind, QWidget* parent);

    // Whether the answer before it lies beside it instead of above.
    void setHasNeighbour(bool hasNeighbour);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override; // Return presses, as Space does

private:
    Kind m_kind;
    bool m_hasNeighbour = false;
};

} // namespace platform
