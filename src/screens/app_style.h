#pragma once

#include <QProxyStyle>

class QStyleOptionSlider;

namespace amorra {

// The desktop's own style, less three of Fusion's habits that cost the game
// its quick start: Fusion draws group-box frames from a picture, and every
// menu bar asks for a toolbar arrow icon; reading either picture makes Qt
// load and question every image plugin installed (TIFF, WebP, MNG and more,
// about a dozen libraries) although the game only ever reads PNG and GIF.
// And it renders a slider's first groove and handle from gradients into
// pictures, half a millisecond of the first window, and rounds the corners
// of sliders and line edits with antialiased paths; it caches a picture of
// every button face it draws, and its tall gradient fills (scroll bars) make
// Qt start helper threads to share them. Drawn here in Fusion's colours with
// straight fills, they cost next to nothing.
class AppStyle : public QProxyStyle
{
    Q_OBJECT

public:
    AppStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget = nullptr) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption *option = nullptr,
                       const QWidget *widget = nullptr) const override;

private:
    void drawScrollBar(const QStyleOptionSlider *bar, QPainter *painter, const QWidget *widget) const;

    bool m_fusion = false;
};

} // namespace amorra
