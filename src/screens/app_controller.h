#pragma once

#include "main_screen.h"
#include "ok_window.h"
#include "screen_host.h"
#include "setup_screen.h"

#include "core/game.h"
#include "scores/score_table.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <memory>
#include <vector>

namespace amorra {

// Puts a window in the middle of the desktop.
void centreOnScreen(QWidget *window);

class Desktop;
struct LoopFrames;
class SoundPlayer;
class TutorialWindow;

// Runs the program: the setup screen, the main screen and the one game of
// the run, and every other window as the game asks for it. The data files
// ("last", "tuteshow", "Scores", "qsguide.rtf") are used by their bare names
// in the current directory; pictures and sounds come from `assetDir`.
class AppController : public QObject, private ScreenHost
{
    Q_OBJECT

public:
    AppController(RandomSource &random, SoundPlayer &sound, Desktop &desktop, const QString &assetDir,
                  QObject *parent = nullptr);
    ~AppController() override;

    // Opens the setup screen; false when the desktop is too small, in which
    // case the player has been told and the program is ending.
    bool start();

    // The main screen and its game are built at the first "START >", so
    // that the setup screen shows sooner; asking for them builds them.
    Game &game();
    MainScreen &mainScreen();
    SetupScreen *setupScreen() const { return m_setup; }
    // The windows besides main and setup that are open now, oldest first.
    QList<QWidget *> openWindows() const;
    int loadedScreenCount() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // ScreenHost: opening the other windows.
    void showNotice(NoticeKind kind, const std::string &text) override;
    void showGameOver() override;
    void showWin(const std::string &moneyText, const std::string &daysText, const std::string &scoreText) override;
    void showLose(const std::string &text) override;
    void showHighScores() override;
    void showSetup() override;
    void showTutorial() override;
    void showAbout() override;
    void showMessage(const std::string &text, const std::string &title, bool exclamation) override;
    void playSound(const std::string &path, SoundMode mode) override;

    // The player's doings on the setup and main screens.
    void startPressed();
    void modeClicked(ActionMode mode);
    void newGame();
    void playAgain();
    void top20();
    void soundItemClicked(bool wasChecked);
    void quickStart();
    void onlineHelp();
    void about();
    void startUpCheck();
    void endProgram();

    bool desktopFits();
    void buildMain();
    void openMain();
    void closeSetup();
    void syncSoundItem();
    void openWebPage(const QString &file);
    TutorialWindow *openTutorial();
    TutorialWindow *makeGuide();
    // While the player types his name: build what "START >" will show.
    void prepareAhead();
    void rememberName(bool tellTrouble);
    // Places a new window, counts it as loaded until it closes, and shows it.
    void present(OkWindow *window);
    void giveMainBack();

    SoundPlayer &m_sound;
    Desktop &m_desktop;
    QString m_assetDir;
    RandomSource &m_random;
    std::unique_ptr<MainScreen> m_main;
    std::unique_ptr<Game> m_game; // after m_main: it shows itself there
    ScoreTable m_scores{};
    QPointer<SetupScreen> m_setup;
    bool m_setupHeld = false; // hidden behind the main screen: loaded, but let go
    QList<QPointer<OkWindow>> m_windows;
    QPointer<TutorialWindow> m_guideAhead; // built ahead for the first activation
    std::vector<std::shared_ptr<LoopFrames>> m_framesAhead; // the Top 20 window's, read during the win screen
    QTimer m_framesTimer; // reads them once the win screen is up
    QTimer m_prepareTimer; // builds ahead once the setup screen is on screen
    // Once the main screen is up, the work START should not wait for: the
    // name goes to disk (the write waits for the disk), and the win screen's
    // texts are drawn ahead.
    QTimer m_afterStartTimer;
    QString m_nameToRemember;
    bool m_mainLoaded = false;
    bool m_tuteChecked = false;
    bool m_scoreTroubleTold = false;
    bool m_ending = false;
};

} // namespace amorra
