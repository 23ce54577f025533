#include "hosts/qt/style.h"
#include "hosts/qt/device.h"
#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <QToolButton>

namespace {

// Sizes in device pixels.
constexpr int FrameWidth = 1, DropWidth = 15, ScrollWidth = 14, CheckSize = 14, ListItemHeight = 17, IconSize = 10,
              MenuMargin = 2, LeastThumb = 12, MenuTextLeft = 7, MenuTextRight = 16;

int Px(double devicePixels) {
    return std::max(1, WidgetEdge(devicePixels));
}

void Outline(QPainter *painter, const QRect &box, QRgb colour, int width) {
    painter->fillRect(box.x(), box.y(), box.width(), width, QColor(colour));
    painter->fillRect(box.x(), box.bottom() + 1 - width, box.width(), width, QColor(colour));
    painter->fillRect(box.x(), box.y(), width, box.height(), QColor(colour));
    painter->fillRect(box.right() + 1 - width, box.y(), width, box.height(), QColor(colour));
}

// The ground and frame of a field that is typed into or chosen from; the frame says where the keys go.
void Field(QPainter *painter, const QStyleOption &option) {
    const bool on = option.state & QStyle::State_Enabled;
    painter->fillRect(option.rect, QColor(on ? style::Paper : style::Silver));
    const bool focus = on && (option.state & QStyle::State_HasFocus);
    Outline(painter, option.rect, focus ? style::Focus : style::Line, focus ? Px(1.5) : Px(FrameWidth));
}

// Degrees clockwise from up.
enum Direction { PointsUp = 0, PointsRight = 90, PointsDown = 180, PointsLeft = 270 };

// A triangle in the middle of a box.
void Triangle(QPainter *painter, const QRectF &box, Direction direction, QRgb colour) {
    const double half = host.Scale * 3.5, height = host.Scale * 4;
    const QPointF corners[] = {{-half, height / 2}, {half, height / 2}, {0, -height / 2}};
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(box.center());
    painter->rotate(direction);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(colour));
    painter->drawPolygon(corners, 3);
    painter->restore();
}

void MenuItem(QPainter *painter, const QStyleOptionMenuItem &item) {
    const bool chosen = item.state & QStyle::State_Selected;
    painter->fillRect(item.rect, QColor(chosen ? style::Selection : style::Paper));
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        painter->fillRect(item.rect.x(), item.rect.center().y(), item.rect.width(), Px(FrameWidth),
                          QColor(style::Shadow));
        return;
    }
    const QRgb enabled = chosen ? style::SelectionInk : style::Ink;
    const QRgb ink = item.state & QStyle::State_Enabled ? enabled : style::GreyInk;
    painter->setPen(QColor(ink));
    const QRect text = item.rect.adjusted(Px(MenuTextLeft), 0, -Px(MenuTextLeft), 0);
    const QString shortcut = item.text.section(QLatin1Char('\t'), 1);
    painter->drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextHideMnemonic,
                      item.text.section(QLatin1Char('\t'), 0, 0));
    painter->drawText(text, Qt::AlignRight | Qt::AlignVCenter, shortcut);
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu)
        Triangle(painter, item.rect.adjusted(item.rect.width() - Px(MenuTextRight), 0, 0, 0), PointsRight, ink);
}

void Raised(QPainter *painter, const QRect &box, bool pressed) {
    painter->fillRect(box, QColor(pressed ? style::Pressed : style::Silver));
    Outline(painter, box, style::Shadow, Px(FrameWidth));
}

class DeviceStyle : public QProxyStyle {
public:
    DeviceStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override {
        switch (metric) {
        case PM_DefaultFrameWidth:
        case PM_ComboBoxFrameWidth:
        case PM_SpinBoxFrameWidth:
        case PM_MenuPanelWidth:
            return Px(FrameWidth);
        case PM_ScrollBarExtent:
            return Px(ScrollWidth);
        case PM_ScrollBarSliderMin:
            return Px(LeastThumb);
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
            return Px(CheckSize);
        case PM_SmallIconSize:
        case PM_ButtonIconSize:
        case PM_ToolBarIconSize:
            return Px(IconSize);
        case PM_MenuHMargin:
        case PM_MenuVMargin:
            return Px(MenuMargin);
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *result) const override {
        switch (hint) {
        case SH_ComboBox_Popup: // a list below the box, not a menu over it
        case SH_Menu_Scrollable:
        case SH_ScrollBar_Transient:
        case SH_UnderlineShortcut:
        case SH_EtchDisabledText:
        case SH_DitherDisabledText:
        case SH_Widget_Animate:
        case SH_Widget_Animation_Duration:
        case SH_Menu_FlashTriggeredItem:
            return 0;
        default:
            return QProxyStyle::styleHint(hint, option, widget, result);
        }
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override {
        switch (element) {
        case PE_PanelLineEdit:
            if (const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option); frame && frame->lineWidth > 0)
                Field(painter, *option);
            return;
        case PE_Frame:
            Field(painter, *option);
            return;
        case PE_FrameFocusRect:
            return; // the field's own frame shows it
        case PE_IndicatorArrowDown:
            if (!qobject_cast<const QToolButton *>(widget)) // the calendar's month is seen to be a button without it
                QProxyStyle::drawPrimitive(element, option, painter, widget);
            return;
        case PE_IndicatorCheckBox: {
            Field(painter, *option);
            if (option->state & State_On) {
                const QRectF box(option->rect);
                const double unit = box.width() / CheckSize;
                painter->save();
                painter->setRenderHint(QPainter::Antialiasing);
                painter->setPen(QPen(QColor(style::Ink), 2 * unit, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
                const QPointF tick[] = {box.topLeft() + QPointF(3.2, 7.2) * unit,
                                        box.topLeft() + QPointF(6, 10.2) * unit,
                                        box.topLeft() + QPointF(10.8, 4) * unit};
                painter->drawPolyline(tick, 3);
                painter->restore();
            }
            return;
        }
        default:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
        }
    }

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override {
        switch (element) {
        case CE_MenuItem:
            if (const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option))
                MenuItem(painter, *item);
            return;
        case CE_ProgressBar:
            if (const auto *bar = qstyleoption_cast<const QStyleOptionProgressBar *>(option)) {
                Field(painter, *option);
                const QRect inside = option->rect.adjusted(Px(2), Px(2), -Px(2), -Px(2));
                const int whole = std::max(1, bar->maximum - bar->minimum);
                const int done = std::max(0, bar->progress - bar->minimum); // a bar at rest stands before its start
                const int width = inside.width() * done / whole;
                painter->fillRect(inside.x(), inside.y(), width, inside.height(), QColor(style::Focus));
            }
            return;
        case CE_ScrollBarSubLine:
        case CE_ScrollBarAddLine: {
            Raised(painter, option->rect, option->state & State_Sunken);
            const bool can = option->state & State_Enabled;
            Triangle(painter, option->rect, element == CE_ScrollBarAddLine ? PointsDown : PointsUp,
                     can ? style::Ink : style::Shadow);
            return;
        }
        case CE_ScrollBarSlider:
            Raised(painter, option->rect, option->state & State_Sunken);
            return;
        case CE_ScrollBarSubPage:
        case CE_ScrollBarAddPage:
            painter->fillRect(option->rect, QColor(0xf2, 0xf2, 0xf2));
            return;
        default:
            QProxyStyle::drawControl(element, option, painter, widget);
        }
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override {
        if (control == CC_ComboBox) {
            Field(painter, *option);
            const QRect drop = subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget);
            painter->fillRect(drop, QColor(option->activeSubControls & SC_ComboBoxArrow && option->state & State_Sunken
                                               ? style::Pressed
                                               : style::Silver));
            painter->fillRect(drop.x(), drop.y(), Px(FrameWidth), drop.height(), QColor(style::Line));
            Triangle(painter, drop, PointsDown, option->state & State_Enabled ? style::Ink : style::Shadow);
            return;
        }
        if (control == CC_ScrollBar) {
            QCommonStyle::drawComplexControl(control, option, painter, widget);
            return;
        }
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                         const QWidget *widget) const override {
        if (control == CC_ScrollBar)
            return QCommonStyle::subControlRect(control, option, part, widget);
        if (control != CC_ComboBox)
            return QProxyStyle::subControlRect(control, option, part, widget);
        const int frame = Px(FrameWidth), drop = Px(DropWidth);
        const QRect inside = option->rect.adjusted(frame, frame, -frame, -frame);
        switch (part) {
        case SC_ComboBoxArrow:
            return {inside.right() + 1 - drop, inside.y(), drop, inside.height()};
        case SC_ComboBoxEditField:
            return inside.adjusted(0, 0, -drop, 0);
        default:
            return option->rect;
        }
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override {
        if (type == CT_ItemViewItem)
            return {QProxyStyle::sizeFromContents(type, option, size, widget).width(), Px(ListItemHeight)};
        const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
        if (type != CT_MenuItem || !item)
            return QProxyStyle::sizeFromContents(type, option, size, widget);
        return {Px(MenuTextLeft) + size.width() + Px(MenuTextRight),
                item->menuItemType == QStyleOptionMenuItem::Separator ? Px(3 * FrameWidth) : Px(ListItemHeight)};
    }

    // The calendar's arrows, which would otherwise be small pictures.
    QIcon standardIcon(StandardPixmap icon, const QStyleOption *option, const QWidget *widget) const override {
        if (icon != SP_ArrowLeft && icon != SP_ArrowRight)
            return QProxyStyle::standardIcon(icon, option, widget);
        const double pixels = host.Factor / host.Scale;
        QPixmap arrow(QSize(Px(IconSize), Px(IconSize)) * pixels);
        arrow.setDevicePixelRatio(pixels);
        arrow.fill(Qt::transparent);
        QPainter painter(&arrow);
        Triangle(&painter, QRectF(0, 0, Px(IconSize), Px(IconSize)), icon == SP_ArrowLeft ? PointsLeft : PointsRight,
                 style::SelectionInk);
        return QIcon(arrow);
    }
};

} // namespace

QStyle *MakeDeviceStyle() {
    return new DeviceStyle;
}
