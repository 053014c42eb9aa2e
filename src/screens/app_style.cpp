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

// A rectangle whose corners are cut `cut` deep in steps of one screen pixel
// (two a pixel at 200%), in plain fills. Round corners drawn antialiased cost
// a path each through the rasterizer, most of the time the setup screen
// takes to draw; at two or three pixels the steps look the same.
void fillCutRect(QPainter *painter, const QRect &rect, int cut, const QColor &colour)
{
    cut = std::max(0, std::min({cut, rect.width() / 2, rect.height() / 2}));
    const qreal ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
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

} // namespace

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
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void AppStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                                  const QWidget *widget) const
{
    const auto *slider = qstyleoption_cast<const QStyleOptionSlider *>(option);
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
