#include "app_style.h"

#include <QGroupBox>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QSlider>
#include <QStyleOption>
#include <QVariant>

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
        const QRectF frame = QRectF(option->rect.adjusted(1, top + 1, 0, 0));
        const QColor window = option->palette.color(QPalette::Window);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(window.darker(111));
        painter->drawRoundedRect(frame, 2, 2);
        painter->setBrush(window.darker(103));
        painter->drawRoundedRect(frame.adjusted(1, 1, -1, -1), 1.5, 1.5);
        painter->setBrush(window.darker(101));
        painter->drawRoundedRect(frame.adjusted(2, 2, -2, -2), 1, 1);
        painter->restore();
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
    // Fusion's slider, flat: a rounded groove filled up to the handle in the
    // highlight colour, a light rounded handle, ticks below.
    const QPalette &pal = slider->palette;
    const QColor outline = pal.color(QPalette::Window).darker(140);
    const QColor fill = pal.color(QPalette::Highlight);
    const QRect groove = subControlRect(CC_Slider, slider, SC_SliderGroove, widget);
    const QRect handle = subControlRect(CC_Slider, slider, SC_SliderHandle, widget);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QRectF bar(groove.left() + 0.5, groove.center().y() - 1.5, groove.width() - 1.0, 4.0);
    painter->setPen(outline);
    painter->setBrush(pal.color(QPalette::Button).darker(105));
    painter->drawRoundedRect(bar, 2, 2);
    const bool filled = slider->sliderPosition > slider->minimum;
    if (filled) {
        painter->setPen(fill.darker(130));
        painter->setBrush(fill);
        painter->drawRoundedRect(QRectF(bar.left(), bar.top(), handle.center().x() - bar.left(), bar.height()), 2, 2);
    }
    if (slider->tickPosition & QSlider::TicksBelow && slider->tickInterval > 0) {
        painter->setRenderHint(QPainter::Antialiasing, false);
        painter->setPen(fill.darker(130));
        const int length = handle.width();
        for (int v = slider->minimum; v <= slider->maximum; v += slider->tickInterval) {
            const int x = groove.left() + length / 2
                          + sliderPositionFromValue(slider->minimum, slider->maximum, v, groove.width() - length);
            painter->drawLine(x, slider->rect.bottom() - 3, x, slider->rect.bottom() - 1);
        }
        painter->setRenderHint(QPainter::Antialiasing);
    }
    const bool focused = slider->state & State_HasFocus;
    painter->setPen(focused ? fill.darker(110) : outline);
    painter->setBrush(pal.color(QPalette::Button).lighter(108));
    painter->drawRoundedRect(QRectF(handle).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    painter->restore();
}

QIcon AppStyle::standardIcon(StandardPixmap icon, const QStyleOption *option, const QWidget *widget) const
{
    if (icon == SP_ToolBarHorizontalExtensionButton || icon == SP_ToolBarVerticalExtensionButton) {
        const QPalette palette = option ? option->palette : standardPalette();
        return QIcon(new ExtensionArrow(icon == SP_ToolBarVerticalExtensionButton, palette.color(QPalette::ButtonText)));
    }
    return QProxyStyle::standardIcon(icon, option, widget);
}

int AppStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                        QStyleHintReturn *returnData) const
{
    if (hint == SH_Table_GridLineColor && widget) {
        const QVariant colour = widget->property("gridLineColor");
        if (colour.canConvert<QColor>())
            return int(colour.value<QColor>().rgba());
    }
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

} // namespace amorra
