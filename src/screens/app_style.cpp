#include "app_style.h"

#include <QGroupBox>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QSlider>
#include <QStyleOption>
#include <QVariant>

#include <algorithm>
#include <cmath>
#include <functional>

namespace amorra {

namespace {

// Chevrons pointing right (or down), as the menu bar's "more" button shows.
// Drawn only when the button does show: the menu bar asks for its icon
// as it is made, and stroking would bring in code the game needs nowhere else.
class ExtensionArrow : public QIconEngine
{
public:
    ExtensionArrow(bool down, const QColor &colour)
        : m_down(down)
        , m_colour(colour)
    {
    }

    void paint(QPainter *p, const QRect &rect, QIcon::Mode, QIcon::State) override
    {
        p->save();
        p->setRenderHint(QPainter::Antialiasing);
        p->translate(rect.topLeft());
        p->scale(rect.width() / 16.0, rect.height() / 16.0);
        p->setPen(QPen(m_colour, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        for (const qreal at : {4.0, 9.0}) {
            QPainterPath chevron;
            if (m_down) {
                chevron.moveTo(4, at);
                chevron.lineTo(8, at + 3);
                chevron.lineTo(12, at);
            } else {
                chevron.moveTo(at, 4);
                chevron.lineTo(at + 3, 8);
                chevron.lineTo(at, 12);
            }
            p->drawPath(chevron);
        }
        p->restore();
    }

    QIconEngine *clone() const override { return new ExtensionArrow(*this); }

private:
    bool m_down;
    QColor m_colour;
};

// Screen pixels to one of the painter's pixels (2 at 200%).
qreal pixelRatio(const QPainter *painter)
{
    return painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
}

qreal screenPixel(const QPainter *painter)
{
    return 1 / pixelRatio(painter);
}

// A rectangle whose corners are cut `cut` deep in steps of one screen pixel
// (two a pixel at 200%), in plain fills. Round corners drawn antialiased cost
// a path each through the rasterizer, most of the time the setup screen
// takes to draw; at two or three pixels the steps look the same.
void fillCutRect(QPainter *painter, const QRect &rect, int cut, const QColor &colour)
{
    cut = std::max(0, std::min({cut, rect.width() / 2, rect.height() / 2}));
    const qreal ratio = pixelRatio(painter);
    const int steps = qRound(cut * ratio);
    const QRectF whole(rect);
    for (int step = 0; step < steps; ++step) {
        const qreal inset = (steps - step) / ratio, row = step / ratio, height = 1 / ratio;
        painter->fillRect(QRectF(whole.left() + inset, whole.top() + row, whole.width() - 2 * inset, height), colour);
        painter->fillRect(QRectF(whole.left() + inset, whole.bottom() - row - height, whole.width() - 2 * inset, height),
                          colour);
    }
    painter->fillRect(rect.adjusted(0, cut, 0, -cut), colour);
}

// A one-pixel outline of a rectangle, its corner pixels left out.
void outlineCutRect(QPainter *painter, const QRect &rect, const QColor &colour)
{
    painter->fillRect(rect.left() + 1, rect.top(), rect.width() - 2, 1, colour);
    painter->fillRect(rect.left() + 1, rect.bottom(), rect.width() - 2, 1, colour);
    painter->fillRect(rect.left(), rect.top() + 1, 1, rect.height() - 2, colour);
    painter->fillRect(rect.right(), rect.top() + 1, 1, rect.height() - 2, colour);
}

// An outlined box with its corners cut `cut` deep: the outline one pixel wide.
void drawCutBox(QPainter *painter, const QRect &rect, int cut, const QColor &edge, const QColor &inside)
{
    fillCutRect(painter, rect, cut, edge);
    fillCutRect(painter, rect.adjusted(1, 1, -1, -1), cut - 1, inside);
}

// Fusion's colour of a button's face, a shade lighter than the palette's.
QColor fusionButtonColour(const QPalette &palette)
{
    QColor colour = palette.color(QPalette::Button);
    colour = colour.lighter(100 + std::max(1, (180 - qGray(colour.rgb())) / 6));
    colour.setHsv(colour.hue(), int(colour.saturation() * 0.75), colour.value());
    return colour;
}

QColor fusionHighlightedOutline(const QPalette &palette)
{
    QColor outline = palette.color(QPalette::Highlight).darker(125);
    if (outline.value() > 160)
        outline.setHsl(outline.hue(), outline.saturation(), 160);
    return outline;
}

// `a` weighted `percent` against `b`, channel by channel.
QColor mixed(const QColor &a, const QColor &b, int percent)
{
    return QColor(a.red() * percent / 100 + b.red() * (100 - percent) / 100,
                  a.green() * percent / 100 + b.green() * (100 - percent) / 100,
                  a.blue() * percent / 100 + b.blue() * (100 - percent) / 100);
}

// The colour `t` of the way down a gradient from `top` to `bottom`.
QColor shadeAt(const QColor &top, const QColor &bottom, qreal t)
{
    t = std::clamp(t, 0.0, 1.0);
    return QColor::fromRgbF(top.redF() + (bottom.redF() - top.redF()) * t,
                            top.greenF() + (bottom.greenF() - top.greenF()) * t,
                            top.blueF() + (bottom.blueF() - top.blueF()) * t);
}

// Fusion's push and tool button face: a light top-down gradient (flat while
// pressed) inside an outline, with a faint inner ring. Fusion renders each
// size and state into a cached picture, a third of a megabyte for the
// game's buttons; here each screen row is one straight fill.
void drawButtonPanel(QPainter *painter, const QStyleOption *option, bool isDefault)
{
    const QRect &rect = option->rect;
    if (rect.width() < 3 || rect.height() < 3)
        return;
    const QPalette &pal = option->palette;
    const bool enabled = option->state & QStyle::State_Enabled;
    const bool down = option->state & (QStyle::State_Sunken | QStyle::State_On);
    const bool focused = option->state & QStyle::State_HasFocus && option->state & QStyle::State_KeyboardFocusChange;
    QColor face = fusionButtonColour(pal);
    const QColor highlighted = fusionHighlightedOutline(pal);
    if (isDefault)
        face = mixed(face, highlighted.lighter(130), 90);
    const QColor base = enabled && option->state & QStyle::State_MouseOver ? face : face.darker(104);
    const QColor top = down ? face.darker(110) : base.lighter(124);
    const QColor bottom = down ? top : base.lighter(102);

    const qreal ratio = pixelRatio(painter);
    const int rows = qRound((rect.height() - 2) * ratio);
    for (int row = 0; row < rows; ++row) {
        // Fusion's gradient runs from half a pixel above the top to half a
        // pixel above the bottom; each row takes its colour at its middle.
        const QColor shade = shadeAt(top, bottom, (1.5 + (row + 0.5) / ratio) / (rect.height() - 1));
        painter->fillRect(QRectF(rect.left() + 1, rect.top() + 1 + row / ratio, rect.width() - 2, 1 / ratio), shade);
    }
    const QColor window = pal.color(QPalette::Window).darker(140);
    const QColor edge = focused || isDefault ? highlighted : window;
    outlineCutRect(painter, rect, enabled ? edge : edge.lighter(115));
    outlineCutRect(painter, rect.adjusted(1, 1, -1, -1), QColor(255, 255, 255, 30));
}

// Fusion's progress bar, flat: a white groove with a shadow under its top
// edge, filled from the left in the highlight colour, lighter at the top,
// with a faint white ring inside and a dark edge where the fill ends.
// Fusion's antialiased lines here woke two helper threads to blend them.
void drawProgressBar(QPainter *painter, const QStyleOptionProgressBar *bar, QStyle::ControlElement part)
{
    const QRect &rect = bar->rect;
    const QPalette &pal = bar->palette;
    const QColor outline = pal.color(QPalette::Window).darker(140);
    if (part == QStyle::CE_ProgressBarGroove) {
        painter->fillRect(rect.adjusted(1, 1, -1, -1), pal.color(QPalette::Base));
        outlineCutRect(painter, rect, outline);
        painter->fillRect(rect.left() + 1, rect.top() + 1, rect.width() - 2, 1, QColor(0, 0, 0, 18));
        return;
    }
    const qint64 steps = std::max<qint64>(1, qint64(bar->maximum) - bar->minimum);
    const int width = int((qint64(std::max(bar->progress, bar->minimum)) - bar->minimum) * rect.width() / steps);
    if (width <= 0 || rect.height() < 3)
        return;
    const bool complete = bar->progress >= bar->maximum;
    const QColor highlight = pal.color(QPalette::Highlight);
    const QColor edge = qGray(outline.rgb()) > qGray(highlight.darker(140).rgb()) ? highlight.darker(140) : outline;
    const int fillRight = complete ? rect.right() : rect.left() + width - 2;
    if (fillRight <= rect.left())
        return;
    const QRect fill(rect.left(), rect.top(), fillRight - rect.left() + 1, rect.height());
    for (int y = fill.top() + 1; y < fill.bottom(); ++y)
        painter->fillRect(fill.left() + 1, y, fill.width() - 1, 1,
                          shadeAt(highlight.lighter(120), highlight, qreal(y - rect.top()) / (rect.height() - 1)));
    painter->fillRect(fill.left() + 1, fill.top(), fill.width() - 1, 1, edge);
    painter->fillRect(fill.left() + 1, fill.bottom(), fill.width() - 1, 1, edge);
    painter->fillRect(fill.left(), fill.top() + 1, 1, fill.height() - 2, edge);
    outlineCutRect(painter, QRect(rect.left() + 1, rect.top() + 1, fill.width() - 1, rect.height() - 2),
                   QColor(255, 255, 255, 50));
    if (complete) {
        painter->fillRect(fill.right(), fill.top() + 1, 1, fill.height() - 2, edge);
    } else {
        // Where the fill ends: a dark edge, and a shadow on the groove.
        painter->fillRect(fill.right() + 1, rect.top() + 1, 1, rect.height() - 2, highlight.darker(140));
        painter->fillRect(fill.right() + 2, rect.top() + 1, 1, rect.height() - 2, QColor(0, 0, 0, 35));
    }
}

// A straight fill in pieces of at most 64 screen rows: Qt shares a fill of
// more than 96 rows (clipped to a window's changed parts, or not solid)
// among helper threads it starts for it, two with their stacks and heaps.
void fillInPieces(QPainter *painter, const QRectF &rect, const QColor &colour)
{
    const qreal most = 64 * screenPixel(painter);
    const int pieces = int(std::ceil(rect.height() / most));
    for (int piece = 0; piece < pieces; ++piece) {
        const qreal top = rect.top() + piece * most;
        painter->fillRect(QRectF(rect.left(), top, rect.width(), std::min(most, rect.bottom() - top)), colour);
    }
}

// The outline a one-pixel pen draws around `rect`, one screen pixel wide.
void outlineInPieces(QPainter *painter, const QRect &rect, const QColor &colour)
{
    const qreal pixel = screenPixel(painter);
    const QRectF r(rect.left(), rect.top(), rect.width(), rect.height());
    painter->fillRect(QRectF(r.left(), r.top(), r.width() + pixel, pixel), colour);
    painter->fillRect(QRectF(r.left(), r.bottom(), r.width() + pixel, pixel), colour);
    fillInPieces(painter, QRectF(r.left(), r.top() + pixel, pixel, r.height() - pixel), colour);
    fillInPieces(painter, QRectF(r.right(), r.top() + pixel, pixel, r.height() - pixel), colour);
}

// Fusion's gradient across a scroll bar's `part` (the bar or its handle):
// here `fill` is painted one screen pixel line along the bar at a time,
// each line the gradient's colour at its middle.
void fillAcross(QPainter *painter, const QRect &fill, const QRect &part, bool horizontal,
                const std::function<QColor(qreal t)> &colourAt)
{
    const qreal pixel = screenPixel(painter);
    const int span = horizontal ? fill.height() : fill.width();
    const int from = horizontal ? fill.top() - part.top() : fill.left() - part.left();
    const int length = std::max(1, (horizontal ? part.height() : part.width()) - 1);
    const int lines = qRound(span / pixel);
    for (int line = 0; line < lines; ++line) {
        const qreal at = line * pixel;
        const QColor colour = colourAt((from + at + pixel / 2) / length);
        fillInPieces(painter,
                     horizontal ? QRectF(fill.left(), fill.top() + at, fill.width(), pixel)
                                : QRectF(fill.left() + at, fill.top(), pixel, fill.height()),
                     colour);
    }
}

} // namespace

void AppStyle::drawScrollBar(const QStyleOptionSlider *bar, QPainter *painter, const QWidget *widget) const
{
    // Fusion fills the groove and the handle with gradients across the bar,
    // which Qt would share among helper threads. Here each screen pixel line
    // along the bar is a straight fill; Fusion draws the arrows. Its lines
    // here are one screen pixel wide at any scale.
    const bool horizontal = bar->orientation == Qt::Horizontal;
    const QRect &rect = bar->rect;
    const QPalette &pal = bar->palette;
    const QColor button = fusionButtonColour(pal);
    const qreal pixel = screenPixel(painter);
    QColor alphaOutline = pal.color(QPalette::Window).darker(140);
    alphaOutline.setAlpha(180);
    if (bar->subControls & SC_ScrollBarGroove) {
        const QColor edge = button.darker(107), inside = button.darker(105);
        fillAcross(painter, rect, rect, horizontal, [&](qreal t) {
            return t < 0.1 ? shadeAt(edge, inside, t / 0.1) : t > 0.9 ? shadeAt(inside, edge, (t - 0.9) / 0.1) : inside;
        });
        fillInPieces(painter,
                     horizontal ? QRectF(rect.left(), rect.top(), rect.width(), pixel)
                                : QRectF(rect.left(), rect.top(), pixel, rect.height()),
                     alphaOutline);
        // A faint edge inside the groove, at its top and its left.
        QColor subtle = alphaOutline;
        subtle.setAlpha(40);
        const QRect groove = subControlRect(CC_ScrollBar, bar, SC_ScrollBarGroove, widget);
        painter->fillRect(QRectF(groove.left() + 1, groove.top(), groove.width() - 2, pixel), subtle);
        fillInPieces(painter, QRectF(groove.left() + 1, groove.top() + pixel, pixel, groove.height() - 3 - pixel), subtle);
    }
    const QRect handle = subControlRect(CC_ScrollBar, bar, SC_ScrollBarSlider, widget);
    if (bar->subControls & SC_ScrollBarSlider && handle.isValid()) {
        const bool active = bar->activeSubControls & SC_ScrollBarSlider;
        const QRect outer = handle.adjusted(horizontal ? -1 : 0, horizontal ? 0 : -1, horizontal ? 0 : 1, horizontal ? 1 : 0);
        const QColor light = button.lighter(118);
        if (bar->state & State_Sunken && active) {
            fillInPieces(painter, outer, mixed(light, button, 40));
        } else {
            const bool hovered = bar->state & State_MouseOver && active;
            const QColor from = hovered ? light.darker(102) : button.lighter(108);
            const QColor to = hovered ? button.lighter(102) : button;
            fillAcross(painter, outer, handle, horizontal, [&](qreal t) { return shadeAt(from, to, t); });
        }
        outlineInPieces(painter, outer, alphaOutline);
        outlineInPieces(painter, handle.adjusted(horizontal ? 0 : 1, horizontal ? 1 : 0, -1, -1), QColor(255, 255, 255, 30));
    }
    QStyleOptionSlider arrows = *bar;
    arrows.subControls &= ~(SC_ScrollBarGroove | SC_ScrollBarSlider);
    QProxyStyle::drawComplexControl(CC_ScrollBar, &arrows, painter, widget);
}

AppStyle::AppStyle()
{
    m_fusion = baseStyle()->name().compare(QLatin1String("fusion"), Qt::CaseInsensitive) == 0;
}

void AppStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                             const QWidget *widget) const
{
    if (element == PE_FrameGroupBox && m_fusion) {
        // Fusion's frame: below the title, a grey outline with a lighter
        // inner ring around a barely shaded inside.
        const auto *box = qobject_cast<const QGroupBox *>(widget);
        const bool bare = box && !box->isCheckable() && box->title().isEmpty();
        const int top = (bare ? 0 : qMax(pixelMetric(PM_ExclusiveIndicatorHeight), option->fontMetrics.height())) + 3;
        const QRect frame = option->rect.adjusted(1, top + 1, 0, 0);
        const QColor window = option->palette.color(QPalette::Window);
        fillCutRect(painter, frame, 1, window.darker(111));
        fillCutRect(painter, frame.adjusted(1, 1, -1, -1), 1, window.darker(103));
        painter->fillRect(frame.adjusted(2, 2, -2, -2), window.darker(101));
        return;
    }
    if (element == PE_FrameLineEdit && m_fusion) {
        // Fusion's frame: an outline, in a darker highlight with a faint
        // ring inside while the field has the keyboard, and a shadow under
        // its top edge.
        QColor focusOutline = option->palette.color(QPalette::Highlight).darker(125);
        if (focusOutline.value() > 160)
            focusOutline.setHsl(focusOutline.hue(), focusOutline.saturation(), 160);
        const bool focused = option->state & State_HasFocus;
        const QRect &r = option->rect;
        outlineCutRect(painter, r, focused ? focusOutline : option->palette.color(QPalette::Window).darker(140));
        if (focused) {
            QColor ring = focusOutline;
            ring.setAlpha(40);
            outlineCutRect(painter, r.adjusted(1, 1, -1, -1), ring);
        }
        painter->fillRect(r.left() + 2, r.top() + 1, r.width() - 4, 1, QColor(0, 0, 0, 18));
        return;
    }
    if (element == PE_PanelButtonCommand && m_fusion) {
        const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
        const bool flat = button && button->features & QStyleOptionButton::Flat;
        if (!flat) {
            drawButtonPanel(painter, option,
                            button && button->features & QStyleOptionButton::DefaultButton && option->state & State_Enabled);
            return;
        }
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void AppStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                           const QWidget *widget) const
{
    const auto *bar = qstyleoption_cast<const QStyleOptionProgressBar *>(option);
    if ((element == CE_ProgressBarGroove || element == CE_ProgressBarContents) && m_fusion && bar
        && bar->state & State_Horizontal && !bar->invertedAppearance && bar->direction == Qt::LeftToRight
        && bar->maximum > bar->minimum) {
        drawProgressBar(painter, bar, element);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void AppStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                                  const QWidget *widget) const
{
    const auto *slider = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control == CC_ScrollBar && m_fusion && slider) {
        drawScrollBar(slider, painter, widget);
        return;
    }
    if (control != CC_Slider || !m_fusion || !slider || slider->orientation != Qt::Horizontal) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    // Fusion's slider, flat: a groove filled up to the handle in the
    // highlight colour, a light handle, ticks below.
    const QPalette &pal = slider->palette;
    const QColor outline = pal.color(QPalette::Window).darker(140);
    const QColor fill = pal.color(QPalette::Highlight);
    const QRect groove = subControlRect(CC_Slider, slider, SC_SliderGroove, widget);
    const QRect handle = subControlRect(CC_Slider, slider, SC_SliderHandle, widget);
    const QRect bar(groove.left(), groove.center().y() - 2, groove.width(), 5);
    drawCutBox(painter, bar, 1, outline, pal.color(QPalette::Button).darker(105));
    if (slider->sliderPosition > slider->minimum)
        drawCutBox(painter, bar.adjusted(0, 0, handle.center().x() - bar.right(), 0), 1, fill.darker(130), fill);
    if (slider->tickPosition & QSlider::TicksBelow && slider->tickInterval > 0) {
        const int length = handle.width();
        for (int v = slider->minimum; v <= slider->maximum; v += slider->tickInterval) {
            const int x = groove.left() + length / 2
                          + sliderPositionFromValue(slider->minimum, slider->maximum, v, groove.width() - length);
            painter->fillRect(x, slider->rect.bottom() - 3, 1, 3, fill.darker(130));
        }
    }
    const bool focused = slider->state & State_HasFocus;
    drawCutBox(painter, handle, 2, focused ? fill.darker(110) : outline, pal.color(QPalette::Button).lighter(108));
}

QIcon AppStyle::standardIcon(StandardPixmap icon, const QStyleOption *option, const QWidget *widget) const
{
    if (icon == SP_ToolBarHorizontalExtensionButton || icon == SP_ToolBarVerticalExtensionButton) {
        const QPalette palette = option ? option->palette : standardPalette();
        return QIcon(new ExtensionArrow(icon == SP_ToolBarVerticalExtensionButton, palette.color(QPalette::ButtonText)));
    }
    return QProxyStyle::standardIcon(icon, option, widget);
}

} // namespace amorra
