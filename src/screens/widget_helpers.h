#pragma once

#include <QImage>
#include <QPixmap>
#include <QRect>
#include <QString>
#include <QStringList>

#include <functional>

class QAbstractButton;
class QColor;
class QFont;
class QIcon;
class QLabel;
class QWidget;

namespace amorra {

// The game's layouts are measured in twips, 15 to a pixel at 96 dpi;
// Qt's high-DPI scaling takes care of larger screens.
constexpr int twips(int t)
{
    return (t + 7) / 15;
}
inline QRect twipsRect(int left, int top, int width, int height)
{
    return QRect(twips(left), twips(top), twips(width), twips(height));
}

// Names a control for the accessibility tree and for our GUI tests: the
// object name, the accessible name and, from the tooltip, its description.
void nameControl(QWidget *w, const QString &objectName, const QString &accessibleName,
                 const QString &tooltip = QString());

// Sets a tooltip and keeps the accessible description in step with it.
void setTip(QWidget *w, const QString &tooltip);

// Lets screen readers know the setup and main screens as windows and every window
// that ends with OK as a dialog, by their titles, rather than as panels.
void announceWindowRoles();

// Enter and Return press the button, as Space does, also outside dialogs.
void clickOnEnter(QAbstractButton *button);

// A picture from the game's folder; a null pixmap when it is missing or
// unreadable, so the box that shows it simply stays empty. On screens of two
// device pixels to a pixel, its twice as large pictures/NAME@2x.png if any
// (NAME@2x.argb for a picture stored as its pixels).
QPixmap loadPicture(const QString &assetDir, const QString &name);

// A picture stored as its pixels (NAME.argb, made by
// tools/assets/raw_picture.py): "ARGB", width and height, then the rows of
// premultiplied 0xAARRGGBB words, every number 32 bits little-endian. It is
// copied as it is into the form Qt draws from, where a PNG costs two
// checksums and two conversions a pixel. A null image for anything else,
// a file of other length or larger than 1024 pixels a side included.
QImage readPixels(const QString &path);

// The game's icon in the sizes window managers use, from our own pictures
// rather than the icon theme's SVG: reading SVG would load Qt's SVG module.
QIcon gameIcon(const QString &assetDir);

// Fonts of the original design with sensible stand-ins on other systems:
// the first of `families` that is installed.
QFont designFont(const QStringList &families, double pointSize, bool bold = false);
QFont arialFont(double pointSize, bool bold = false);
QFont sansSerifFont(double pointSize, bool bold = false);

// The caption of every window of the game.
inline QString gameTitle()
{
    return QStringLiteral("Amorra");
}

// For a window of fixed size: no maximise button, and a window manager's
// maximise or fullscreen is undone, since the game's windows are drawn to
// their design's size. Call before the window is shown.
void keepWindowSize(QWidget *window);

// The largest quarter-point size, at most `points` (where the text is
// `widthNow` wide) and never below `smallest`, at which `widthAt` gives at
// most `room` pixels.
double fittingPoints(double points, int widthNow, int room, double smallest,
                     const std::function<int(double points)> &widthAt);

// The largest point size, at most the font's own, at which `text` fits
// `width` pixels on one line (never below 4 pt).
QFont fittedFont(const QFont &font, const QString &text, int width);

// Shrinks the font of every one-line label and every button under
// `window` whose text would not fit its box, as happens where the design's
// font is missing and a wider one stands in.
void fitTexts(QWidget *window);

// Sets a label's text in its first font, or smaller when the text needs it.
void setFittedText(QLabel *label, const QString &text);

// The game's own text colour on its own background, whatever the desktop's
// palette: for labels and frames (window colours) and text boxes (base colours).
void setColours(QWidget *w, const QColor &text, const QColor &background);

} // namespace amorra
