#include "platform/screens/appearance/TypeScale.h"

#include "platform/foundation/Observable.h"

#include <QtCore/QEvent>
#include <QtGui/QFontInfo>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <functional>

namespace platform {

namespace {

constexpr double usualSize = 40 / 3.0; // points of the design: ten typographic ones

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

// Only the application and its windows are told that the system's font has changed.
class SystemFontWatch : public QObject {
public:
    SystemFontWatch()
        : QObject(qApp) {
        qApp->installEventFilter(this);
    }

    Signal<QFont>& changes() { return m_changes; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == qApp && event->type() == QEvent::ApplicationFontChange)
            m_changes.emit(QApplication::font());
        return false;
    }

private:
    Signal<QFont> m_changes;
};

Signal<QFont>& systemFontChanges() {
    static auto* const watch = new SystemFontWatch; // the application's child
    return watch->changes();
}

// A child of the widget that it gives a font made from the system's, for as long as that lives.
class FontFollower : public QObject {
    Q_OBJECT

public:
    explicit FontFollower(QWidget& widget)
        : QObject(&widget)
        , m_widget(widget)
        , m_subscription(systemFontChanges().observe([this](const QFont&) { apply(); })) {}

    void follow(std::function<QFont()> makeFont) {
        m_makeFont = std::move(makeFont);
        apply();
    }

private:
    void apply() { m_widget.setFont(m_makeFont()); }

    QWidget& m_widget;
    std::function<QFont()> m_makeFont;
    Subscription m_subscription;
};

FontFollower& followerOf(QWidget& widget) {
    auto* follower = widget.findChild<FontFollower*>(QString(), Qt::FindDirectChildrenOnly);
    return follower ? *follower : *new FontFollower(widget);
}

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
    followerOf(widget).follow([style] { return font(style); });
}

QFont systemFont(double size) {
    QFont font = QApplication::font();
    const double growth = std::max(1.0, QFontInfo(font).pixelSize() / usualSize);
    font.setPixelSize(qRound(size * growth));
    return font;
}

void setSystemFont(QWidget& widget, double size) {
    followerOf(widget).follow([size] { return systemFont(size); });
}

} // namespace platform

#include "TypeScale.moc"
