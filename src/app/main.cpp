// Amorra: answers --help and --version, enters the player's folder, then wires the
// real desktop, sound and dice to the game's windows.
#include "core/player_folder.h"
#include "core/random_source.h"
#include "screens/alsa_output.h"
#include "screens/app_controller.h"
#include "screens/app_style.h"
#include "screens/desktop.h"
#include "screens/sound_player.h"
#include "screens/window_system.h"
#include "screens/widget_helpers.h"

#include <QApplication>
#include <QStringList>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

void printUsage(const char *prog, const std::string &folder)
{
    std::printf("Usage: %s [--help | --version]\n\n"
                "Amorra, a little dating game: win her heart before the 30th day.\n\n"
                "The game starts in your own data folder, where it keeps the last player\n"
                "name (last), the quick start guide switch (tuteshow) and the Top 20 table\n"
                "(Scores):\n  %s\n\n"
                "Options:\n"
                "  -h, --help     show this help and exit\n"
                "  --version      show the version and exit\n",
                prog, folder.empty() ? "$XDG_DATA_HOME/amorra (not set, and HOME is not set either)" : folder.c_str());
}

// Without a desktop Qt's platform plugin aborts the program with a page of
// advice; the player gets one line and a plain failure instead. What the
// plugin says on the way is held back until the desktop is known to work.
QtMessageHandler g_passOn = nullptr;
QList<std::pair<QtMsgType, QString>> g_heldBack;

void startUpMessages(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtFatalMsg) {
        std::fputs("Amorra needs a graphical desktop, and none could be reached (is DISPLAY or WAYLAND_DISPLAY "
                   "set?).\n",
                   stderr);
        _exit(1);
    }
    if (QByteArray(context.category ? context.category : "").startsWith("qt.qpa"))
        g_heldBack.append({type, message});
    else if (g_passOn)
        g_passOn(type, context, message);
}

} // namespace

int main(int argc, char *argv[])
{
    const char *self = argc > 0 ? argv[0] : "amorra";
    const char *slash = std::strrchr(self, '/');
    const char *prog = slash ? slash + 1 : self;
    const std::string folder = amorra::playerFolder(std::getenv("XDG_DATA_HOME"), std::getenv("HOME"));

    // The game itself takes no options; these two answer without a display.
    if (argc > 1) {
        if (std::strcmp(argv[1], "-h") == 0 || std::strcmp(argv[1], "--help") == 0) {
            printUsage(prog, folder);
            return 0;
        }
        if (std::strcmp(argv[1], "--version") == 0) {
            std::printf("amorra %s\n", AMORRA_VERSION);
            return 0;
        }
        std::fprintf(stderr, "%s: unknown option '%s'\nTry '%s --help' for more information.\n", prog, argv[1], prog);
        return 2;
    }
    if (folder.empty()) {
        std::fprintf(stderr, "%s: neither XDG_DATA_HOME nor HOME is set, so there is no folder for your files\n", prog);
        return 1;
    }
    const std::string assetDir = amorra::locateAssetDir(amorra::programFolder());
    const amorra::FolderOutcome home = amorra::enterPlayerFolder(folder, assetDir + "/qsguide.rtf");
    for (const std::string &problem : home.problems)
        std::fprintf(stderr, "%s: %s\n", prog, problem.c_str());
    if (!home.entered)
        return 1;

    // Before any thread starts; the browser the help opens does not wear them.
    QStringList soundNames;
    for (const std::string &name : amorra::nameSoundStreams())
        soundNames << QString::fromStdString(name);

#ifdef __GLIBC__
    // Off-screen drawings and decoded pictures are large and short-lived:
    // each goes back to the system when freed, instead of leaving a hole of
    // its size in the heap for the rest of the game (about a megabyte).
    // A fixed threshold also stops glibc from raising it after each one.
    mallopt(M_MMAP_THRESHOLD, 128 * 1024);
#endif
    amorra::chooseWindowSystem();
    // After the last change to the environment, which fontconfig reads.
    amorra::FontConfigAhead fonts;
    g_passOn = qInstallMessageHandler(startUpMessages);
    QApplication app(argc, argv);
    qInstallMessageHandler(g_passOn);
    for (const auto &[type, message] : std::as_const(g_heldBack))
        qt_message_output(type, QMessageLogContext(), message);
    amorra::quietAboutSharedMemoryBuffers();
    // The application owns the style (the analyzer sees the leak one line late).
    // NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)
    QApplication::setStyle(new amorra::AppStyle);
    QApplication::setApplicationName(QStringLiteral("Amorra"));
    // NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)
    QApplication::setOrganizationDomain(QStringLiteral("amorra.github.io"));
    QApplication::setDesktopFileName(QStringLiteral("io.github.amorra.amorra"));
    // The game ends when its main window closes, not when the last window does.
    QApplication::setQuitOnLastWindowClosed(false);

    const QString assets = QString::fromStdString(assetDir);
    amorra::SystemRandom random;
    amorra::AlsaSoundPlayer sound;
    amorra::QtDesktop desktop(soundNames);
    amorra::AppController controller(random, sound, desktop, assets);
    fonts.finish();
    controller.start();
    return app.exec();
}
