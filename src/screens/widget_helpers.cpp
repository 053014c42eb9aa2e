#include "widget_helpers.h"

#include <QAbstractButton>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QFont>
#include <QImageReader>
#include <QKeyEvent>
#include <QWidget>

namespace amorra {

namespace {

class EnterClicks : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent *>(event)->key();
            auto *button = qobject_cast<QAbstractButton *>(watched);
            if (button && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
                if (button->isEnabled() && button->isVisible())
                    button->animateClick();
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

void nameControl(QWidget *w, const QString &objectName, const QString &accessibleName, const QString &tooltip)
{
    w->setObjectName(objectName);
    w->setAccessibleName(accessibleName);
    if (!tooltip.isEmpty())
        setTip(w, tooltip);
}

void setTip(QWidget *w, const QString &tooltip)
{
    w->setToolTip(tooltip);
    w->setAccessibleDescription(tooltip);
}

void clickOnEnter(QAbstractButton *button)
{
    button->installEventFilter(new EnterClicks(button));
}

QPixmap loadPicture(const QString &assetDir, const QString &name)
{
    if (assetDir.isEmpty())
        return QPixmap();
    // The format comes from the name (PNG or BMP, both built into Qt), not
    // from guessing: guessing makes Qt load and ask every image plugin.
    QImageReader reader(QDir(assetDir).filePath(name), QFileInfo(name).suffix().toLower().toLatin1());
    reader.setAutoDetectImageFormat(false);
    return QPixmap::fromImage(reader.read());
}

QFont arialFont(double pointSize, bool bold)
{
    QFont font;
    font.setFamilies({QStringLiteral("Arial"), QStringLiteral("Liberation Sans"), QStringLiteral("Nimbus Sans"),
                      QStringLiteral("Helvetica"), QStringLiteral("DejaVu Sans")});
    font.setPointSizeF(pointSize);
    font.setBold(bold);
    return font;
}

QFont sansSerifFont(double pointSize, bool bold)
{
    QFont font;
    font.setFamilies({QStringLiteral("MS Sans Serif"), QStringLiteral("Microsoft Sans Serif"), QStringLiteral("Arial"),
                      QStringLiteral("Liberation Sans"), QStringLiteral("Nimbus Sans"), QStringLiteral("DejaVu Sans")});
    font.setPointSizeF(pointSize);
    font.setBold(bold);
    return font;
}

QString colourSheet(const char *widgetClass, int fr, int fg, int fb, int br, int bg, int bb)
{
    return QStringLiteral("%1 { color: rgb(%2,%3,%4); background-color: rgb(%5,%6,%7); }")
        .arg(QLatin1String(widgetClass))
        .arg(fr)
        .arg(fg)
        .arg(fb)
        .arg(br)
        .arg(bg)
        .arg(bb);
}

} // namespace amorra
