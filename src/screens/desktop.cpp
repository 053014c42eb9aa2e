#include "desktop.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>
#include <QUrl>
#include <QWidget>

namespace amorra {

QSize QtDesktop::screenSize() const
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->size() : QSize();
}

void QtDesktop::showMessage(QWidget *parent, const QString &text, const QString &title, bool exclamation)
{
    // A box parented to a disabled window would be disabled with it.
    if (parent && !parent->window()->isEnabled())
        parent = nullptr;
    QMessageBox box(exclamation ? QMessageBox::Warning : QMessageBox::NoIcon, title, text, QMessageBox::Ok, parent);
    box.exec();
}

bool QtDesktop::openUrl(const QUrl &url)
{
    return QDesktopServices::openUrl(url);
}

void QtDesktop::quit()
{
    // Queued, so that it also works before the event loop has started.
    QMetaObject::invokeMethod(QCoreApplication::instance(), "quit", Qt::QueuedConnection);
}

bool desktopLargeEnough(QSize size)
{
    return size.width() >= 800 && size.height() >= 600;
}

} // namespace amorra
