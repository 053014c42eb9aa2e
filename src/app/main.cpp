// Amorra: wires the real desktop, sound and dice to the game's windows.
#include "core/random_source.h"
#include "screens/app_controller.h"
#include "screens/app_style.h"
#include "screens/asset_locator.h"
#include "screens/desktop.h"
#include "screens/sound_player.h"
#include "screens/widget_helpers.h"

#include <QApplication>
#include <QIcon>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setStyle(new amorra::AppStyle); // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the application owns it
    QApplication::setApplicationName(QStringLiteral("Amorra"));
    QApplication::setOrganizationDomain(QStringLiteral("amorra.github.io"));
    QApplication::setDesktopFileName(QStringLiteral("io.github.amorra.Amorra"));
    // The game ends when its main window closes, not when the last window does.
    QApplication::setQuitOnLastWindowClosed(false);

    const QString assetDir = amorra::locateAssetDir(QApplication::applicationDirPath());
    // Our own pictures rather than the icon theme's SVG: reading SVG would
    // load the SVG module and the image plugins before the first window.
    QIcon icon;
    for (const int size : {16, 32, 48, 64})
        icon.addPixmap(amorra::loadPicture(assetDir, QStringLiteral("icons/amorra-%1.png").arg(size)));
    QApplication::setWindowIcon(icon);

    amorra::SystemRandom random;
    amorra::AlsaSoundPlayer sound;
    amorra::QtDesktop desktop;
    amorra::AppController controller(random, sound, desktop, assetDir);
    controller.start();
    return app.exec();
}
