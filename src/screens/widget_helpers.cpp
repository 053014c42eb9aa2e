#include "widget_helpers.h"

#include "core/data_files.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QCheckBox>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QIcon>
#include <QImageReader>
#include <QKeyEvent>
#include <QLabel>
#include <QPalette>
#include <QVariant>
#include <QWidget>
#include <QtEndian>

#include <algorithm>
#include <cmath>

namespace amorra {

namespace {

constexpr double kSmallestPoints = 4;

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

// Undoes a window manager's maximise or fullscreen of a fixed-size window.
class KeepNormalState : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::WindowStateChange) {
            auto *window = static_cast<QWidget *>(watched);
            const Qt::WindowStates state = window->windowState();
            if (state & (Qt::WindowMaximized | Qt::WindowFullScreen))
                window->setWindowState(state & ~(Qt::WindowMaximized | Qt::WindowFullScreen));
        }
        return QObject::eventFilter(watched, event);
    }
};

QAccessibleInterface *windowRoles(const QString &className, QObject *object)
{
    if (!object || !object->isWidgetType())
        return nullptr;
    if (className == QLatin1String("amorra::OkWindow"))
        return new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::Dialog);
    if (className == QLatin1String("amorra::SetupScreen") || className == QLatin1String("amorra::MainScreen"))
        return new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::Window);
    return nullptr;
}

} // namespace

void announceWindowRoles()
{
    static const bool installed = (QAccessible::installFactory(windowRoles), true);
    Q_UNUSED(installed);
}

void keepWindowSize(QWidget *window)
{
    Qt::WindowFlags flags = window->windowType() | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                            Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    // The main screens can be minimised; their dialogs go with them.
    if (window->windowType() != Qt::Dialog)
        flags |= Qt::WindowMinimizeButtonHint;
    window->setWindowFlags(flags);
    window->installEventFilter(new KeepNormalState(window));
}

namespace {

// Whether `text` surely fits without shaping it, which costs far more: the
// sum of its characters' own widths, with room for what kerning may add.
// Beyond Latin (joining, marks, pairs of surrogates) only shaping can tell.
bool surelyFits(const QFont &font, const QString &text, int width)
{
    const QFontMetricsF metrics(font);
    qreal sum = 0;
    for (const QChar ch : text) {
        if (ch.unicode() >= 0x0300)
            return false;
        sum += metrics.horizontalAdvance(ch);
    }
    return sum * 1.02 + 2 <= width;
}

} // namespace

double fittingPoints(double points, int widthNow, int room, double smallest,
                     const std::function<int(double points)> &widthAt)
{
    // Text widens nearly in step with its font: one guess at the size, then
    // a quarter point at a time, down while too wide, and up again while the
    // next still fits, as the guess errs small by the font's rounding. Each
    // size tried costs a font of its own, kept for the whole run, so the
    // guess comes first.
    double tooLarge = 0;
    while (widthNow > room && points > smallest) {
        tooLarge = points;
        points = std::clamp(std::floor(tooLarge * room / widthNow * 4) / 4, smallest, tooLarge - 0.25);
        widthNow = widthAt(points);
    }
    while (tooLarge > 0 && points + 0.25 < tooLarge && widthAt(points + 0.25) <= room)
        points += 0.25;
    return points;
}

QFont fittedFont(const QFont &font, const QString &text, int width)
{
    if (surelyFits(font, text, width))
        return font;
    QFont fitted = font;
    const auto widthAt = [&fitted, &text](double points) {
        fitted.setPointSizeF(points);
        return QFontMetrics(fitted).horizontalAdvance(text);
    };
    fitted.setPointSizeF(fittingPoints(font.pointSizeF(), QFontMetrics(font).horizontalAdvance(text), width,
                                       kSmallestPoints, widthAt));
    return fitted;
}

void fitTexts(QWidget *window)
{
    for (QLabel *label : window->findChildren<QLabel *>())
        if (!label->wordWrap() && !label->text().isEmpty())
            label->setFont(fittedFont(label->font(), label->text(), label->contentsRect().width()));
    for (QAbstractButton *button : window->findChildren<QAbstractButton *>()) {
        QString text = button->text();
        text.remove(QLatin1Char('&'));
        // A check box also holds its box, a push or tool button its margins.
        const int room = qobject_cast<QCheckBox *>(button)
                             ? button->width() - button->sizeHint().width() + button->fontMetrics().horizontalAdvance(text)
                             : button->width() - 8;
        if (!text.isEmpty())
            button->setFont(fittedFont(button->font(), text, room));
    }
}

void setFittedText(QLabel *label, const QString &text)
{
    QVariant design = label->property("designFont");
    if (!design.isValid()) {
        design = label->font();
        label->setProperty("designFont", design);
    }
    label->setText(text);
    label->setFont(fittedFont(design.value<QFont>(), text, label->contentsRect().width()));
}

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

QImage readPixels(const QString &path)
{
    constexpr quint32 kLargest = 1024;
    QFile file;
    const int fd = openPlayerFile(QFile::encodeName(path).toStdString());
    if (fd < 0 || !file.open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return QImage();
    QImage image;
    const QByteArray header = file.read(12);
    if (header.size() == 12 && header.startsWith("ARGB")) {
        const quint32 width = qFromLittleEndian<quint32>(header.constData() + 4);
        const quint32 height = qFromLittleEndian<quint32>(header.constData() + 8);
        if (width > 0 && height > 0 && width <= kLargest && height <= kLargest) {
            // Rows of 32-bit pixels need no padding: the file's rows are the image's.
            image = QImage(int(width), int(height), QImage::Format_ARGB32_Premultiplied);
            char more = 0;
            if (image.isNull() || file.read(reinterpret_cast<char *>(image.bits()), image.sizeInBytes()) != image.sizeInBytes()
                || file.read(&more, 1) != 0)
                image = QImage();
        }
    }
    if constexpr (QSysInfo::ByteOrder == QSysInfo::BigEndian)
        if (!image.isNull())
            qFromLittleEndian<quint32>(image.bits(), image.sizeInBytes() / 4, image.bits());
    return image;
}

QPixmap loadPicture(const QString &assetDir, const QString &name)
{
    if (assetDir.isEmpty())
        return QPixmap();
    // The format comes from the name (PNG or BMP, both built into Qt, or our
    // own pixels), not from guessing: guessing makes Qt load and ask every
    // image plugin.
    auto read = [&assetDir](const QString &file) {
        const QString suffix = QFileInfo(file).suffix().toLower();
        if (suffix == QLatin1String("argb"))
            return readPixels(QDir(assetDir).filePath(file));
        QImageReader reader(QDir(assetDir).filePath(file), suffix.toLatin1());
        reader.setAutoDetectImageFormat(false);
        return reader.read();
    };
    // At 200% and more, the picture drawn twice as large, so that it stays sharp.
    // PNG, whatever the picture is (her portraits are BMP), unless it is stored as its pixels.
    const QFileInfo named(name);
    const QString twice = QStringLiteral("pictures/%1@2x.%2")
                              .arg(named.completeBaseName(),
                                   named.suffix() == QLatin1String("argb") ? named.suffix() : QStringLiteral("png"));
    if (qGuiApp && qGuiApp->devicePixelRatio() > 1.5 && QFileInfo::exists(QDir(assetDir).filePath(twice))) {
        QImage sharp = read(twice);
        if (!sharp.isNull()) {
            sharp.setDevicePixelRatio(2);
            return QPixmap::fromImage(sharp);
        }
    }
    return QPixmap::fromImage(read(name));
}

QIcon gameIcon(const QString &assetDir)
{
    QIcon icon;
    for (const int size : {16, 32, 48, 64})
        icon.addPixmap(loadPicture(assetDir, QStringLiteral("icons/amorra-%1.png").arg(size)));
    return icon;
}

QFont designFont(const QStringList &families, double pointSize, bool bold)
{
    // Only the first of the families the desktop has: Qt then finds it at
    // once, where for each missing family it would ask fontconfig for
    // stand-ins (a millisecond or so per font at start-up).
    static const QStringList installed = QFontDatabase::families();
    QFont font;
    const auto have = std::find_if(families.begin(), families.end(),
                                   [](const QString &f) { return installed.contains(f, Qt::CaseInsensitive); });
    font.setFamilies(have == families.end() ? families : QStringList{*have});
    font.setPointSizeF(pointSize);
    font.setBold(bold);
    return font;
}

QFont arialFont(double pointSize, bool bold)
{
    return designFont({QStringLiteral("Arial"), QStringLiteral("Liberation Sans"), QStringLiteral("Nimbus Sans"),
                       QStringLiteral("Helvetica"), QStringLiteral("DejaVu Sans")},
                      pointSize, bold);
}

QFont sansSerifFont(double pointSize, bool bold)
{
    return designFont({QStringLiteral("MS Sans Serif"), QStringLiteral("Microsoft Sans Serif"), QStringLiteral("Arial"),
                       QStringLiteral("Liberation Sans"), QStringLiteral("Nimbus Sans"), QStringLiteral("DejaVu Sans")},
                      pointSize, bold);
}

void setColours(QWidget *w, const QColor &text, const QColor &background)
{
    QPalette colours = w->palette();
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colours.setColor(role, text);
    colours.setColor(QPalette::Window, background);
    colours.setColor(QPalette::Base, background);
    w->setPalette(colours);
    w->setAutoFillBackground(true);
}

} // namespace amorra
