#pragma once

#include "platform/foundation/Observable.h"

#include <QtCore/QPointer>
#include <QtWidgets/QProxyStyle>

class QFocusFrame;

namespace platform {

// The toolkit's own widgets in the program's look, drawn from the assets at the moment of painting. Puts a
// ring around whatever button or box has the focus while the user works with the keyboard; fields show theirs
// always. Main thread.
class Style : public QProxyStyle {
    Q_OBJECT

public:
    Style();
    ~Style() override;

    void polish(QWidget* widget) override;
    using QProxyStyle::polish;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;

private:
    void moveFocusFrame();

    Subscription m_inputChanges;

    QPointer<QFocusFrame> m_focusFrame; // a child of whatever holds the widget with the focus
};

// Gives the program its style and its palette, now and whenever the desktop's appearance changes: then
// everything is painted again. Once, when there is an application object.
void applyStyle();

} // namespace platform
