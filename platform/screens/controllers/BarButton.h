#pragma once

#include "platform/screens/appearance/Palette.h"
#include "platform/screens/appearance/TypeScale.h"

#include <QtWidgets/QAbstractButton>

namespace platform {

class ActivityIndicator;

// A button of a bar: a symbol, a text, or a symbol with a text behind it. At least 44 by 44 points; a text
// that is too long for the button is cut short. Main thread.
class BarButton : public QAbstractButton {
    Q_OBJECT

public:
    struct Content {
        QString symbol; // may be empty
        QString text;   // may be empty
        TextStyle style = TextStyle::Body;
        Asset tint = Asset::Accent;
    };

    BarButton(Content content, const QString& accessibleName, QWidget* parent);

    // A spinner stands in place of what it shows otherwise.
    void setBusy(bool isBusy);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override; // Return presses, as Space does

private:
    int symbolSize() const;

    Content m_content;
    ActivityIndicator* m_spinner = nullptr; // while it is busy
};

} // namespace platform
