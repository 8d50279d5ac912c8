#include "platform/screens/style/Style.h"

#include "platform/screens/appearance/DesktopSettings.h"
#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/appearance/InputKind.h"
#include "platform/screens/appearance/Motion.h"
#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/style/Buttons.h"
#include "platform/screens/style/Fields.h"
#include "platform/screens/style/Menus.h"
#include "platform/screens/style/Metrics.h"
#include "platform/screens/style/ScrollBars.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFocusFrame>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QTextEdit>
#include <QtWidgets/QToolButton>

#include <memory>

namespace platform {

namespace {

constexpr int symbolSize = 20;
constexpr int barSymbolSize = 22;

// An option of the type that the element always comes with.
template <typename Option>
const Option& as(const QStyleOption* option) {
    return *static_cast<const Option*>(option);
}

// A field of several lines, not the bare text of a screen.
bool isField(const QWidget* widget) {
    const auto* frame = qobject_cast<const QFrame*>(widget);
    const bool isText = qobject_cast<const QPlainTextEdit*>(widget) || qobject_cast<const QTextEdit*>(widget);
    return isText && frame->frameShape() == QFrame::StyledPanel;
}

bool floats(const QWidget* widget) {
    return qobject_cast<const QMenu*>(widget) || widget->inherits("QTipLabel");
}

// Without a compositor what is transparent would be black, and there a mask cuts the corners off.
bool isMasked() {
    return QGuiApplication::platformName() == QStringLiteral("xcb");
}

bool takesFocusFrame(const QWidget& widget) {
    return qobject_cast<const QPushButton*>(&widget) || qobject_cast<const QCheckBox*>(&widget) ||
           qobject_cast<const QRadioButton*>(&widget) || qobject_cast<const QToolButton*>(&widget);
}

// The ring lies around the switch and not around the words beside it.
QRect outlineOf(const QFocusFrame& frame) {
    constexpr int margin = focusRingWidth + focusRingGap;
    const QRect whole = frame.rect().adjusted(margin, margin, -margin, -margin);
    const auto* box = qobject_cast<const QCheckBox*>(frame.widget());
    if (!box) return whole;
    QStyleOptionButton option;
    option.initFrom(box);
    return frame.style()
        ->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box)
        .translated(margin, margin);
}

void drawFocusFrame(QPainter& painter, const QFocusFrame& frame) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect outline = outlineOf(frame);
    const bool isSwitch = qobject_cast<const QCheckBox*>(frame.widget());
    drawFocusRing(painter, outline, isSwitch ? outline.height() / 2.0 : cornerRadius);
    painter.restore();
}

} // namespace

Style::Style()
    : QProxyStyle(QStringLiteral("fusion"))
    , m_inputChanges(input().observeChanges([this](InputKind) { moveFocusFrame(); })) {
    connect(qApp, &QApplication::focusChanged, this, &Style::moveFocusFrame);
}

Style::~Style() = default;

void Style::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (floats(widget) && !isMasked()) widget->setAttribute(Qt::WA_TranslucentBackground);
    if (qobject_cast<QScrollBar*>(widget)) widget->setAttribute(Qt::WA_OpaquePaintEvent, false);
    if (isField(widget)) static_cast<QAbstractScrollArea*>(widget)->viewport()->setAutoFillBackground(false);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
    switch (element) {
    case PE_PanelLineEdit:
        if (as<QStyleOptionFrame>(option).lineWidth > 0) style::drawField(*option, *painter);
        return;
    case PE_PanelButtonTool:
        return style::drawToolButton(*option, *painter);
    case PE_PanelMenu:
    case PE_PanelTipLabel:
        return style::drawFloatingPanel(option->rect, *painter);
    case PE_FrameMenu:
        return; // the panel has its edge
    case PE_FrameFocusRect:
        if (!widget || !takesFocusFrame(*widget)) break;
        return; // the focus frame is around it
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
    switch (element) {
    case CE_PushButtonBevel:
        return style::drawPushButton(as<QStyleOptionButton>(option), *painter, widget);
    case CE_PushButtonLabel:
        return style::drawPushButtonLabel(as<QStyleOptionButton>(option), *painter, widget);
    case CE_CheckBox:
        return style::drawCheckBox(as<QStyleOptionButton>(option), *painter);
    case CE_MenuItem:
        return style::drawMenuItem(as<QStyleOptionMenuItem>(option), *painter);
    case CE_MenuEmptyArea:
        return;
    case CE_Splitter:
        return painter->fillRect(option->rect, color(Asset::Separator));
    case CE_ShapedFrame:
        if (!isField(widget)) break;
        return style::drawField(*option, *painter);
    case CE_FocusFrame:
        if (const auto* frame = qobject_cast<const QFocusFrame*>(widget)) drawFocusFrame(*painter, *frame);
        return;
    default:
        break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const {
    switch (control) {
    case CC_ScrollBar:
        return style::drawScrollBar(as<QStyleOptionSlider>(option), *painter);
    case CC_ComboBox:
        return style::drawComboBox(as<QStyleOptionComboBox>(option), *painter);
    default:
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

QRect Style::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
    switch (element) {
    case SE_CheckBoxIndicator:
        return style::switchRect(*option);
    case SE_CheckBoxContents:
    case SE_CheckBoxFocusRect:
        return style::switchTextRect(*option);
    case SE_CheckBoxClickRect:
        return option->rect;
    case SE_LineEditContents:
        if (as<QStyleOptionFrame>(option).lineWidth <= 0) break;
        return option->rect.adjusted(8, 2, -8, -2);
    case SE_ShapedFrameContents:
        if (!isField(widget)) break;
        return style::fieldContents(option->rect);
    default:
        break;
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                            const QWidget* widget) const {
    switch (control) {
    case CC_ScrollBar:
        return style::scrollBarPart(as<QStyleOptionSlider>(option), part);
    case CC_ComboBox:
        return style::comboBoxPart(*option, part);
    default:
        return QProxyStyle::subControlRect(control, option, part, widget);
    }
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                              const QWidget* widget) const {
    switch (type) {
    case CT_PushButton:
        return style::pushButtonSize(as<QStyleOptionButton>(option), contents, widget);
    case CT_CheckBox:
        return style::switchSize(as<QStyleOptionButton>(option));
    case CT_LineEdit:
        if (as<QStyleOptionFrame>(option).lineWidth <= 0) break;
        return style::fieldSize(*option, contents);
    case CT_ComboBox:
        return style::comboBoxSize(*option, contents);
    case CT_MenuItem:
        return style::menuItemSize(as<QStyleOptionMenuItem>(option), contents);
    default:
        break;
    }
    return QProxyStyle::sizeFromContents(type, option, contents, widget);
}

QIcon Style::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
    if (icon == SP_LineEditClearButton)
        return symbolIcon(QStringLiteral("xmark.circle.fill"), Asset::SystemGray);
    return QProxyStyle::standardIcon(icon, option, widget);
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_ScrollBarExtent:
        return style::scrollBarExtent;
    case PM_ScrollView_ScrollBarOverlap:
    case PM_MenuPanelWidth:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return style::menuMargin;
    case PM_ToolTipLabelFrameWidth:
        return 8;
    case PM_SplitterWidth:
        return 1; // the toolkit makes the room around it draggable
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
        return symbolSize;
    case PM_ToolBarIconSize:
        return barSymbolSize;
    case PM_FocusFrameHMargin:
    case PM_FocusFrameVMargin:
        return focusRingWidth + focusRingGap;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* result) const {
    switch (hint) {
    case SH_FocusFrame_AboveWidget:
        return 1;
    case SH_FocusFrame_Mask: // the ring of a switch lies inside of the frame
    case SH_ScrollBar_ContextMenu:
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_EtchDisabledText:
        return 0;
    case SH_Widget_Animation_Duration:
        if (reducesMotion()) return 0;
        break;
    case SH_Menu_Mask:
    case SH_ToolTip_Mask:
        if (!isMasked()) return 0;
        if (auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(result)) {
            QPainterPath path;
            path.addRoundedRect(option->rect, cornerRadius, cornerRadius);
            mask->region = QRegion(path.toFillPolygon().toPolygon());
        }
        return 1;
    default:
        break;
    }
    return QProxyStyle::styleHint(hint, option, widget, result);
}

void Style::moveFocusFrame() {
    QWidget* widget = QApplication::focusWidget();
    const bool isShown = widget && takesFocusFrame(*widget) && !widget->isWindow() && showsFocusRing(*widget);
    if (!isShown) {
        if (m_focusFrame) m_focusFrame->setWidget(nullptr);
        return;
    }
    if (!m_focusFrame) m_focusFrame = new QFocusFrame(widget->parentWidget());
    m_focusFrame->setWidget(widget);
}

void applyStyle() {
    static Subscription changes;
    QApplication::setStyle(std::make_unique<Style>().release()); // the application owns it
    applyPalette();
    changes = DesktopSettings::shared().appearanceChanges().observeChanges([](Appearance) {
        applyPalette();
        for (auto* widget : QApplication::allWidgets())
            widget->update();
    });
}

} // namespace platform
