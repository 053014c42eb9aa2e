#include "app_controller.h"

#include "desktop.h"
#include "high_score_window.h"
#include "ok_window.h"
#include "setup_screen.h"
#include "sound_player.h"
#include "tutorial_window.h"
#include "win_screen.h"
#include "widget_helpers.h"

#include "core/data_files.h"
#include "core/game_flow.h"

#include <QApplication>
#include <QBackingStore>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QTimer>
#include <QUrl>
#include <QWindow>

#include <utility>

namespace amorra {

namespace {
const char kLastFile[] = "last";
const char kTuteShowFile[] = "tuteshow";
// Work that can wait starts this long after a window has first been painted.
constexpr int kAfterFirstPaintMs = 100;
// Work for the window after an end screen: the player reads for a second or
// more, so it may start as soon as the screen is surely up.
constexpr int kSoonAfterPaintMs = 20;

// A hidden window made ready to show: its native window, its drawing
// buffer, and everything its first paint needs.
void readyAhead(QWidget *window)
{
    window->winId();
    if (QBackingStore *store = window->backingStore())
        store->resize(window->size());
    window->grab();
    // The pointer shapes its widgets wear, such as the text boxes' I-beam:
    // the desktop's cursor theme is read from disk at each shape's first
    // use, which for a window opening under the pointer falls inside the
    // click that opened it. Worn once now by the hidden window, each is kept.
    QWindow *handle = window->windowHandle();
    if (!handle)
        return;
    QList<Qt::CursorShape> shapes;
    for (const QWidget *widget : window->findChildren<QWidget *>())
        if (widget->testAttribute(Qt::WA_SetCursor) && !shapes.contains(widget->cursor().shape()))
            shapes.append(widget->cursor().shape());
    for (const Qt::CursorShape shape : std::as_const(shapes))
        handle->setCursor(shape);
    if (!shapes.isEmpty())
        handle->unsetCursor();
}
} // namespace

AppController::AppController(RandomSource &random, SoundPlayer &sound, Desktop &desktop, const QString &assetDir,
                             QObject *parent)
    : QObject(parent)
    , m_sound(sound)
    , m_desktop(desktop)
    , m_assetDir(assetDir)
    , m_random(random)
{
    m_prepareTimer.setSingleShot(true);
    m_prepareTimer.setInterval(kAfterFirstPaintMs);
    connect(&m_prepareTimer, &QTimer::timeout, this, [this] {
        // The window manager takes the icon whenever it comes: its four
        // pictures need not hold up the first window.
        if (QApplication::windowIcon().isNull())
            QApplication::setWindowIcon(gameIcon(m_assetDir));
        prepareAhead();
    });
    m_framesTimer.setSingleShot(true);
    m_framesTimer.setInterval(kSoonAfterPaintMs);
    connect(&m_framesTimer, &QTimer::timeout, this,
            [this] { m_framesAhead = HighScoreWindow::readAnimationsAhead(m_assetDir); });
    m_afterStartTimer.setSingleShot(true);
    m_afterStartTimer.setInterval(kAfterFirstPaintMs);
    connect(&m_afterStartTimer, &QTimer::timeout, this, [this] {
        rememberName(true);
        WinScreen::drawTextsAhead(QString::fromStdString(game().state().player.player_name));
    });
}

MainScreen &AppController::mainScreen()
{
    if (!m_main)
        buildMain();
    return *m_main;
}

Game &AppController::game()
{
    mainScreen(); // the game comes with its screen
    return *m_game;
}

void AppController::buildMain()
{
    ScreenHost &host = *this;
    m_main = std::make_unique<MainScreen>(host, m_assetDir);
    m_game = std::make_unique<Game>(*m_main, m_random);
    MainScreen *main = m_main.get();
    connect(main, &MainScreen::modeClicked, this, &AppController::modeClicked);
    connect(main, &MainScreen::listRowChosen, this, [this] { onListClick(*m_game); });
    connect(main, &MainScreen::actionClicked, this, [this] { onActionButton(*m_game); });
    connect(main, &MainScreen::askOutClicked, this, [this] { onAskOut(*m_game); });
    connect(main, &MainScreen::newGameChosen, this, &AppController::newGame);
    connect(main, &MainScreen::playAgainChosen, this, &AppController::playAgain);
    connect(main, &MainScreen::exitChosen, this, &AppController::endProgram);
    connect(main, &MainScreen::top20Chosen, this, &AppController::top20);
    connect(main, &MainScreen::soundItemClicked, this, &AppController::soundItemClicked);
    connect(main, &MainScreen::quickStartChosen, this, &AppController::quickStart);
    connect(main, &MainScreen::onlineHelpChosen, this, &AppController::onlineHelp);
    connect(main, &MainScreen::aboutChosen, this, &AppController::about);
    connect(main, &MainScreen::resized, this, [this] { desktopFits(); });
    connect(main, &MainScreen::closedByPlayer, this, &AppController::endProgram);
}

AppController::~AppController()
{
    // Without their reactions: the program is over.
    for (const QPointer<OkWindow> &w : std::as_const(m_windows))
        delete w.data();
    delete m_setup.data();
    delete m_guideAhead.data();
}

bool AppController::start()
{
    showSetup();
    return m_setup != nullptr;
}

int AppController::loadedScreenCount() const
{
    int count = (m_mainLoaded ? 1 : 0) + (m_setup || m_setupHeld ? 1 : 0);
    for (const QPointer<OkWindow> &w : m_windows)
        if (w && w->isOpen())
            ++count;
    return count;
}

QList<QWidget *> AppController::openWindows() const
{
    QList<QWidget *> open;
    for (const QPointer<OkWindow> &w : m_windows)
        if (w && w->isOpen())
            open << w.data();
    return open;
}

bool AppController::desktopFits()
{
    if (m_ending)
        return false;
    if (desktopLargeEnough(m_desktop.screenSize()))
        return true;
    m_ending = true;
    m_desktop.showMessage(nullptr, QStringLiteral("The desktop size has to be at least 800x600 for Amorra to work properly"),
                          QStringLiteral("Amorra"), false);
    endProgram();
    return false;
}

void AppController::startPressed()
{
    if (!m_setup)
        return;
    const QString name = m_setup->nameText();
    if (name.isEmpty()) { // a name of spaces is a name
        m_desktop.showMessage(m_setup, QStringLiteral("Please Enter Your Name !!"), QStringLiteral("Amorra"), false);
        m_setup->focusName();
        return;
    }
    game().setSetup(m_setup->values());
    // The setup screen stays loaded behind the main screen until the game
    // is left, but it never shows again (New Game builds a fresh one), so
    // its window and pixels are let go now.
    closeSetup();
    m_setupHeld = true;
    openMain();
    m_nameToRemember = name;
    m_afterStartTimer.start();
}

void AppController::rememberName(bool tellTrouble)
{
    m_afterStartTimer.stop();
    if (m_nameToRemember.isNull())
        return;
    const std::string name = std::exchange(m_nameToRemember, QString()).toStdString();
    if (!writeLastName(kLastFile, name) && tellTrouble)
        m_desktop.showMessage(&mainScreen(),
                              QStringLiteral("Amorra could not remember your name for next time: the file \"last\" "
                                             "cannot be written here. The game goes on."),
                              QStringLiteral("Amorra"), true);
}

void AppController::openMain()
{
    mainScreen().resetToDesignState();
    m_mainLoaded = true;
    startFirstGame(game());
    syncSoundItem();
    centreOnScreen(&mainScreen());
    mainScreen().show();
    if (!desktopFits())
        return;
    mainScreen().FocusMain();
    startUpCheck();
}

void AppController::modeClicked(ActionMode mode)
{
    switch (mode) {
    case ActionMode::Gift:
        onBuyGift(game());
        break;
    case ActionMode::Phone:
        onCallHer(game());
        break;
    case ActionMode::Date:
        onTakeHerOut(game());
        break;
    case ActionMode::Work:
        onGoToWork(game());
        break;
    case ActionMode::Shop:
        onGoShopping(game());
        break;
    case ActionMode::None:
        break;
    }
}

void AppController::newGame()
{
    // Closing the main screen closes the hidden setup screen with it; both
    // load afresh, and the game starts again at START.
    mainScreen().hide();
    m_mainLoaded = false;
    closeSetup();
    showSetup();
}

void AppController::closeSetup()
{
    // Later, as this may run inside the setup screen's own close.
    m_setupHeld = false;
    if (m_setup) {
        m_setup->hide();
        m_setup->deleteLater();
        m_setup = nullptr;
    }
}

void AppController::playAgain()
{
    playAgainFromMenu(game());
    syncSoundItem();
}

void AppController::syncSoundItem()
{
    // A new game turns sound on; the check mark must not say otherwise.
    mainScreen().setSoundChecked(game().state().sound_on);
}

void AppController::soundItemClicked(bool wasChecked)
{
    const bool on = toggleSoundItem(game().state(), wasChecked);
    mainScreen().setSoundChecked(on);
    if (on)
        m_sound.soundSwitchedOn();
}

void AppController::top20()
{
    mainScreen().EnableMain(false);
    mainScreen().ShowHighScores();
}

void AppController::about()
{
    mainScreen().EnableMain(false);
    mainScreen().ShowAbout();
}

void AppController::quickStart()
{
    if (TutorialWindow *guide = openTutorial())
        guide->hideDontShow();
}

void AppController::onlineHelp()
{
    openWebPage(QStringLiteral("help/index.html"));
}

void AppController::startUpCheck()
{
    // Once per run, as the main screen first shows: that is its first
    // activation wherever the desktop activates a new window, and a desktop
    // that does not (Wayland without an activation token) still gets its
    // guide. Run before the first paint, the main screen is drawn disabled
    // once rather than enabled and then again disabled.
    if (m_tuteChecked || !m_mainLoaded)
        return;
    m_tuteChecked = true;
    if (readTuteShow(kTuteShowFile) == 1) {
        mainScreen().EnableMain(false);
        mainScreen().ShowTutorial();
    }
    delete m_guideAhead.data(); // not wanted after all
}

bool AppController::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Paint && watched == m_setup.data()) {
        m_setup->removeEventFilter(this);
        // Once this paint has reached the screen: the window system gets it
        // only when the event loop next waits.
        m_prepareTimer.start();
    } else if (event->type() == QEvent::Paint && qobject_cast<WinScreen *>(watched)) {
        watched->removeEventFilter(this);
        m_framesTimer.start();
    }
    return QObject::eventFilter(watched, event);
}

void AppController::prepareAhead()
{
    // The player is reading the setup screen: the main screen, and the
    // guide when it is going to open by itself, are built now rather than
    // inside the "START >" click.
    if (m_ending || !m_setup)
        return;
    // Its window and drawing buffer are made now, hidden, and drawing it once
    // off screen lays it out and fills the caches of its glyphs, pictures and
    // styles, so the first real paint is quick.
    readyAhead(&mainScreen());
    QFile tuteShow(QString::fromLatin1(kTuteShowFile));
    const bool guideDue = !m_tuteChecked && !m_guideAhead && tuteShow.open(QIODevice::ReadOnly)
                          && tuteShowFromBytes(tuteShow.read(2).toStdString()) == 1;
    if (guideDue) {
        m_guideAhead = makeGuide();
        // Later, so that a key the player presses meanwhile is not kept waiting.
        QTimer::singleShot(0, this, [this] {
            if (!m_guideAhead)
                return;
            readyAhead(m_guideAhead);
            // The guide disables the main screen as it opens: its disabled
            // look is drawn once now too, so START finds it in the caches.
            mainScreen().setEnabled(false);
            mainScreen().grab();
            mainScreen().setEnabled(true);
        });
    }
}

void AppController::endProgram()
{
    rememberName(false); // a game left at once still leaves its name
    m_ending = true;
    m_mainLoaded = false;
    if (m_main)
        m_main->hide();
    closeSetup();
    m_desktop.quit();
}

void AppController::openWebPage(const QString &file)
{
    QWidget *parent = openWindows().isEmpty() ? static_cast<QWidget *>(&mainScreen()) : openWindows().back();
    const QString path = QDir(m_assetDir).filePath(file);
    if (!QFileInfo(path).isFile()) {
        m_desktop.showMessage(parent, QStringLiteral("Could not your Browser"), QStringLiteral("Browser Not Found"),
                              true);
        return;
    }
    if (!m_desktop.openUrl(QUrl::fromLocalFile(path)))
        m_desktop.showMessage(parent, QStringLiteral("Web Page not Opened"), QStringLiteral("URL Failed"), true);
}

} // namespace amorra
