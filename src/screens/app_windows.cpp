// Opening the windows the game asks for, and what their buttons do.
#include "app_controller.h"

#include "about_box.h"
#include "desktop.h"
#include "game_over_dialog.h"
#include "high_score_window.h"
#include "lose_screen.h"
#include "notice_window.h"
#include "setup_screen.h"
#include "sound_player.h"
#include "text_notice.h"
#include "tutorial_window.h"
#include "win_screen.h"

#include "core/data_files.h"
#include "core/game_flow.h"

#include <QGuiApplication>
#include <QScreen>

namespace amorra {

namespace {

const char kScoresFile[] = "Scores";
const char kLastFile[] = "last";
const char kTuteShowFile[] = "tuteshow";
const char kGuideFile[] = "qsguide.rtf";
constexpr int kCascade = 24;

QString qt(const std::string &s)
{
    return QString::fromStdString(s);
}

} // namespace

void centreOnScreen(QWidget *window)
{
    if (const QScreen *screen = QGuiApplication::primaryScreen()) {
        const QRect area = screen->availableGeometry();
        window->move(area.center() - QPoint(window->width() / 2, window->height() / 2));
    }
}

void AppController::present(OkWindow *window)
{
    const int alreadyOpen = int(openWindows().size());
    m_windows.removeAll(QPointer<OkWindow>());
    m_windows << window;

    // Over the main screen, each further window a little lower and to the
    // right, so that several notices open at once can all be seen.
    QRect area;
    if (m_main && m_main->isVisible())
        area = m_main->geometry();
    else if (const QScreen *screen = QGuiApplication::primaryScreen())
        area = screen->availableGeometry();
    if (area.isValid()) {
        const QPoint offset(kCascade * alreadyOpen, kCascade * alreadyOpen);
        QPoint topLeft = area.center() - QPoint(window->width() / 2, window->height() / 2) + offset;
        // A window wider than the main screen must still land wholly on the desktop.
        if (const QScreen *screen = QGuiApplication::primaryScreen()) {
            const QRect desk = screen->availableGeometry();
            topLeft.setX(qBound(desk.left(), topLeft.x(), qMax(desk.left(), desk.right() + 1 - window->width())));
            topLeft.setY(qBound(desk.top(), topLeft.y(), qMax(desk.top(), desk.bottom() + 1 - window->height())));
        }
        window->move(topLeft);
    }
    window->show();
    window->raise();
    window->activateWindow();
    // While the main screen waits for several windows, the keyboard goes
    // from each one closed to the newest still open.
    connect(window, &OkWindow::closed, this, [this] {
        const QList<QWidget *> open = openWindows();
        if (!open.isEmpty() && !mainScreen().isEnabled()) {
            open.back()->raise();
            open.back()->activateWindow();
        }
    });
}

void AppController::giveMainBack()
{
    mainScreen().EnableMain(true);
    mainScreen().FocusMain();
}

void AppController::showNotice(NoticeKind kind, const std::string &text)
{
    OkWindow *window = nullptr;
    if (kind == NoticeKind::TextNotice)
        window = new TextNotice(qt(text));
    else
        window = new NoticeWindow(kind, qt(game().state().girl.Gname), m_assetDir);
    connect(window, &OkWindow::finished, this, [this, kind] { OnNoticeOk(game(), kind); });
    present(window);
}

void AppController::showGameOver()
{
    auto *dialog = new GameOverDialog(m_assetDir);
    connect(dialog, &OkWindow::finished, this, [this](int choice) {
        if (choice == OkWindow::PlayAgain) {
            gameOverPlayAgain(game());
            syncSoundItem();
        } else {
            gameOverOk(game());
        }
    });
    present(dialog);
}

void AppController::showWin(const std::string &moneyText, const std::string &daysText, const std::string &scoreText)
{
    auto *win = new WinScreen(qt(game().state().player.player_name), qt(moneyText), qt(daysText), qt(scoreText),
                              m_assetDir);
    connect(win, &OkWindow::finished, this, [this] { onWinOk(game()); });
    win->installEventFilter(this); // once up, the Top 20 window's pictures are read ahead
    present(win);
    game().play_sound("\\sounds\\kiss.wav", SoundMode::Async);
}

void AppController::showLose(const std::string &text)
{
    auto *lose = new LoseScreen(qt(text));
    connect(lose, &OkWindow::finished, this, [this] { onLoseOk(game()); });
    present(lose);
    game().play_sound("\\sounds\\sigh_m.wav", SoundMode::Async);
}

void AppController::showHighScores()
{
    const HighScoreScreenData data = openHighScores(game().state().result, m_scores, kScoresFile);
    auto *table = new HighScoreWindow(data, m_assetDir);
    m_framesAhead.clear(); // its pictures hold them now
    connect(table, &OkWindow::finished, this, &AppController::giveMainBack);
    present(table);
    if ((data.loadFailed || data.saveFailed) && !m_scoreTroubleTold) {
        m_scoreTroubleTold = true;
        // A table that could not be read is not saved either: saving would
        // write this session's scores over the ones the file still holds.
        const QString text = data.loadFailed
                                 ? QStringLiteral("The Top 20 table could not be read, so it was not saved: the file "
                                                  "is left as it was. The scores of this session are shown instead.")
                                 : QStringLiteral("The Top 20 table could not be saved. Your scores are kept for this "
                                                  "session.");
        m_desktop.showMessage(table, text, QStringLiteral("Amorra"), true);
    }
}

void AppController::showSetup()
{
    if (!desktopFits())
        return;
    m_setup = new SetupScreen(qt(readLastName(kLastFile)), m_assetDir);
    connect(m_setup, &SetupScreen::startPressed, this, &AppController::startPressed);
    connect(m_setup, &SetupScreen::closedByPlayer, this, &AppController::endProgram);
    centreOnScreen(m_setup);
    m_setup->installEventFilter(this); // its first paint starts the work ahead
    m_setup->show();
    m_setup->focusName();
}

void AppController::showTutorial()
{
    openTutorial();
}

TutorialWindow *AppController::openTutorial()
{
    for (const QPointer<OkWindow> &w : std::as_const(m_windows)) {
        if (auto *open = qobject_cast<TutorialWindow *>(w.data()); open && open->isOpen()) {
            open->raise();
            open->activateWindow();
            return open;
        }
    }
    TutorialWindow *guide = m_guideAhead ? m_guideAhead.data() : makeGuide();
    m_guideAhead = nullptr;
    connect(guide, &OkWindow::finished, this, [this, guide] {
        if (guide->dontShowAgain() && !writeTuteShow(kTuteShowFile, 0))
            m_desktop.showMessage(guide,
                                  QStringLiteral("Amorra could not save \"Don't show this again\": the file "
                                                 "\"tuteshow\" cannot be written here."),
                                  QStringLiteral("Amorra"), true);
        giveMainBack();
    });
    present(guide);
    return guide;
}

TutorialWindow *AppController::makeGuide()
{
    return new TutorialWindow(QString::fromLatin1(kGuideFile));
}

void AppController::showAbout()
{
    auto *box = new AboutBox(m_assetDir);
    connect(box, &AboutBox::homePageRequested, this, [this] { openWebPage(QStringLiteral("help/about.html")); });
    connect(box, &OkWindow::finished, this, &AppController::giveMainBack);
    present(box);
}

void AppController::showMessage(const std::string &text, const std::string &title, bool exclamation)
{
    m_desktop.showMessage(&mainScreen(), qt(text), qt(title), exclamation);
}

void AppController::playSound(const std::string &path, SoundMode mode)
{
    m_sound.play(qt(soundFilePath(m_assetDir.toStdString(), path)), mode);
}

} // namespace amorra
