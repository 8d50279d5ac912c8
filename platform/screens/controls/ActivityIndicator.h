#pragma once

#include "platform/screens/appearance/Palette.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtWidgets/QWidget>

namespace platform {

// A spinner for work that is under way. It keeps its place and shows itself only once the work has taken a
// while, so that short work does not flicker. Where the user wants little motion it does not turn. Main
// thread.
class ActivityIndicator : public QWidget {
    Q_OBJECT

public:
    explicit ActivityIndicator(QWidget* parent = nullptr);

    void setTint(Asset tint);

    void startAnimating();
    void stopAnimating();

    // From start to stop, whether it shows already or not.
    bool isAnimating() const { return m_timer.isActive(); }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Asset m_tint = Asset::Accent;
    QTimer m_timer;
    QElapsedTimer m_sinceStart;
};

} // namespace platform
