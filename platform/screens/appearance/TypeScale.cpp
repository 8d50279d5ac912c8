#include "platform/screens/appearance/TypeScale.h"

#include <QtCore/QEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace platform {

namespace {

struct Scale {
    qreal factor;
    bool isBold;
};

Scale scaleOf(TextStyle style) {
    switch (style) {
    case TextStyle::LargeTitle:
        return {1.9, true};
    case TextStyle::Title:
        return {1.35, true};
    case TextStyle::Headline:
        return {1, true};
    case TextStyle::Body:
        return {1, false};
    case TextStyle::Subheadline:
        return {0.92, false};
    case TextStyle::Footnote:
        return {0.85, false};
    }
    return {1, false};
}

// Gives its parent the font again when the system's changes.
class TextStyleFollower : public QObject {
    Q_OBJECT

public:
    explicit TextStyleFollower(QWidget& widget)
        : QObject(&widget)
        , m_widget(widget) {
        widget.installEventFilter(this);
    }

    void follow(TextStyle style) {
        m_style = style;
        m_widget.setFont(font(m_style));
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &m_widget && event->type() == QEvent::ApplicationFontChange)
            m_widget.setFont(font(m_style));
        return false;
    }

private:
    QWidget& m_widget;
    TextStyle m_style = TextStyle::Body;
};

} // namespace

// Size and weight are set also where they are the system's, so that a parent's font does not come in between.
QFont font(TextStyle style) {
    const auto [factor, isBold] = scaleOf(style);
    QFont font = QApplication::font();
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * factor);
    else
        font.setPixelSize(qRound(font.pixelSize() * factor));
    font.setBold(isBold);
    return font;
}

void setTextStyle(QWidget& widget, TextStyle style) {
    auto* follower = widget.findChild<TextStyleFollower*>(QString(), Qt::FindDirectChildrenOnly);
    if (!follower) follower = new TextStyleFollower(widget);
    follower->follow(style);
}

} // namespace platform

#include "TypeScale.moc"
