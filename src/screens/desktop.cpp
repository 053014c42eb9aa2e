#include "desktop.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QMessageBox>
#include <QProcess>
#include <QScreen>
#include <QStandardPaths>
#include <QUrl>
#include <QWidget>

#include <utility>

namespace amorra {

QtDesktop::QtDesktop(QStringList hidden)
    : m_hidden(std::move(hidden))
{
}

QSize QtDesktop::screenSize() const
{
    // The screen's own pixels: at 200% a 1920 x 1080 screen has room for
    // the game although Qt calls it 960 x 540.
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? (QSizeF(screen->size()) * screen->devicePixelRatio()).toSize() : QSize();
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
    // Qt would start xdg-open with the game's whole environment, and a
    // browser started that way would show up as the game in the volume mixer.
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (m_hidden.isEmpty() || opener.isEmpty())
        return QDesktopServices::openUrl(url);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &name : m_hidden)
        environment.remove(name);
    QProcess process;
    process.setProgram(opener);
    process.setArguments({url.toString(QUrl::FullyEncoded)});
    process.setProcessEnvironment(environment);
    return process.startDetached();
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
