#pragma once

#include "actions/actions.h"
#include "view/game_view.h"

#include <QWidget>
#include <QPixmap>
#include <QPointer>

#include <array>
#include <string>

class QAction;
class QGroupBox;
class QLabel;
class QMenuBar;
class QTextEdit;
class QProgressBar;
class QPushButton;
class QToolButton;

namespace amorra {

class ActionList;
class HeartMeter;
class ScreenHost;

// The game's one permanent window (Form1). It shows what the game logic
// tells it through GameView and reports the player's clicks as signals; the
// other windows, sounds and messages it hands on to its ScreenHost.
class MainScreen final : public QWidget, public GameView
{
    Q_OBJECT

public:
    MainScreen(ScreenHost &host, const QString &assetDir, QWidget *parent = nullptr);

    // Back to the look of a freshly loaded screen, before a game is set up.
    void resetToDesignState();
    void setSoundChecked(bool checked);
    bool soundChecked() const;
    QMenuBar *menuBar() const { return m_menuBar; }

    void SetTalk(const std::string &text) override;
    std::string GetTalk() const override;
    void SetListTitle(const std::string &text) override;
    std::string GetListTitle() const override;
    void ClearList() override;
    void AddListRow(const std::string &text) override;
    int GetListIndex() const override;
    void SetListTip(const std::string &text) override;
    void SetOkCaption(const std::string &text) override;
    void ShowOk(bool shown) override;
    void ShowAskOut(bool shown) override;
    void EnableTakeHerOut(bool enabled) override;
    void SetMoneyLabel(const std::string &text) override;
    void SetDayLabel(const std::string &text) override;
    void SetSpentLabel(const std::string &text) override;
    void SetStatBars(int looks, int brains, int luck) override;
    void SetHeartBar(int lit) override;
    void SetHeartLabel(const std::string &text) override;
    void SetFace(const std::string &picture, const std::string &tooltip) override;
    void EnableMain(bool enabled) override;
    void FocusMain() override;
    int LoadedScreenCount() const override;
    void ShowNotice(NoticeKind kind, const std::string &text) override;
    void ShowGameOver() override;
    void ShowWin(const std::string &moneyText, const std::string &daysText, const std::string &scoreText) override;
    void ShowLose(const std::string &text) override;
    void ShowHighScores() override;
    void ShowSetup() override;
    void ShowTutorial() override;
    void ShowAbout() override;
    void ShowMessage(const std::string &text, const std::string &title, bool exclamation) override;
    void PlaySound(const std::string &path, SoundMode mode) override;

Q_SIGNALS:
    void modeClicked(amorra::ActionMode mode);
    void listRowChosen();
    void actionClicked();
    void askOutClicked();
    void newGameChosen();
    void playAgainChosen();
    void exitChosen();
    void top20Chosen();
    // The check mark decides the direction, so it is passed as it was.
    void soundItemClicked(bool wasChecked);
    void quickStartChosen();
    void onlineHelpChosen();
    void aboutChosen();
    void resized();
    void closedByPlayer();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void buildScreen();
    void buildMenus();
    // Where the keyboard goes when its widget went away: the list while it
    // has rows, else the mode button last pressed.
    QWidget *keyboardHome() const;
    QToolButton *addModeButton(QWidget *parent, ActionMode mode, const QString &caption, const QString &name,
                               const QString &picture, const QRect &geometry, const QString &tip);
    QPixmap defaultFace() const;

    ScreenHost &m_host;
    QString m_assetDir;
    std::string m_talkText;
    std::string m_listTitle;
    QPointer<QWidget> m_lastFocus;

    QMenuBar *m_menuBar = nullptr;
    std::array<QToolButton *, 5> m_modeButtons{}; // Call Her, Buy A Gift, Take Her Out, Go to Work, Go Shopping
    QToolButton *m_takeHerOut = nullptr;
    QToolButton *m_lastMode = nullptr;
    QLabel *m_day = nullptr;
    QLabel *m_money = nullptr;
    QLabel *m_face = nullptr;
    HeartMeter *m_heart = nullptr;
    QTextEdit *m_talk = nullptr;
    QGroupBox *m_listFrame = nullptr;
    ActionList *m_list = nullptr;
    QPushButton *m_ok = nullptr;
    QPushButton *m_askOut = nullptr;
    QLabel *m_spent = nullptr;
    QProgressBar *m_looks = nullptr;
    QProgressBar *m_brains = nullptr;
    QProgressBar *m_luck = nullptr;
    QAction *m_soundItem = nullptr;
};

} // namespace amorra
