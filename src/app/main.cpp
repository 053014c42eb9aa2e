// Amorra: wires the real desktop, sound and dice to the game's windows.
#include "core/random_source.h"
#include "screens/app_controller.h"
#include "screens/asset_locator.h"
#include "screens/desktop.h"
#include "screens/sound_player.h"

#include <QApplication>
#include <QDir>
#include <QIcon>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Amorra"));
    QApplication::setOrganizationDomain(QStringLiteral("amorra.github.io"));
    QApplication::setDesktopFileName(QStringLiteral("io.github.amorra.Amorra"));
    // The game ends when its main window closes, not when the last window does.
    QApplication::setQuitOnLastWindowClosed(false);

    const QString assetDir = amorra::locateAssetDir(QApplication::applicationDirPath());
    QIcon icon = QIcon::fromTheme(QStringLiteral("amorra"));
    if (icon.isNull())
        icon = QIcon(QDir(assetDir).filePath(QStringLiteral("icons/amorra.svg")));
    QApplication::setWindowIcon(icon);

    amorra::SystemRandom random;
    amorra::QtSoundPlayer sound;
    amorra::QtDesktop desktop;
    amorra::AppController controller(random, sound, desktop, assetDir);
    controller.start();
    return app.exec();
}
