#pragma once

#include <string>

namespace amorra {

enum class NoticeKind { Cat, FoundMoney, SpeedingFine, Ignoring, Boring, TextNotice };

enum class SoundMode { Async, Wait };

// Everything the game logic may change on the screen. Texts arrive complete;
// the view shows them unchanged. The main screen implements this over its
// widgets; tests and the balance lab use plain C++ implementations.
class GameView
{
public:
    virtual ~GameView() = default;

    virtual void SetTalk(const std::string &text) = 0;
    virtual std::string GetTalk() const = 0;
    virtual void SetListTitle(const std::string &text) = 0;
    virtual std::string GetListTitle() const = 0;
    virtual void ClearList() = 0;
    virtual void AddListRow(const std::string &text) = 0;
    virtual int GetListIndex() const = 0; // -1 when no row is selected
    virtual void SetListTip(const std::string &text) = 0;
    virtual void SetOkCaption(const std::string &text) = 0;
    virtual void ShowOk(bool shown) = 0;
    virtual void ShowAskOut(bool shown) = 0;
    virtual void EnableTakeHerOut(bool enabled) = 0;
    virtual void SetMoneyLabel(const std::string &text) = 0;
    virtual void SetDayLabel(const std::string &text) = 0;
    virtual void SetSpentLabel(const std::string &text) = 0;
    virtual void SetStatBars(int looks, int brains, int luck) = 0;
    virtual void SetHeartBar(int lit) = 0;
    virtual void SetHeartLabel(const std::string &text) = 0;
    // `picture` is a file name inside the game's picture folder, e.g. "girl7.bmp".
    virtual void SetFace(const std::string &picture, const std::string &tooltip) = 0;
    virtual void EnableMain(bool enabled) = 0;
    virtual void FocusMain() = 0;
    virtual int LoadedScreenCount() const = 0;
    virtual void ShowNotice(NoticeKind kind, const std::string &text) = 0;
    virtual void ShowGameOver() = 0;
    virtual void ShowWin(const std::string &moneyText, const std::string &daysText, const std::string &scoreText) = 0;
    virtual void ShowLose(const std::string &text) = 0;
    virtual void ShowHighScores() = 0;
    virtual void ShowSetup() = 0;
    virtual void ShowTutorial() = 0;
    virtual void ShowAbout() = 0;
    virtual void ShowMessage(const std::string &text, const std::string &title, bool exclamation) = 0;
    // `path` is relative to the game's folder and starts with a backslash,
    // e.g. "\\sounds\\car.wav"; soundFilePath() turns it into a real path.
    virtual void PlaySound(const std::string &path, SoundMode mode) = 0;
};

const char *noticeKindName(NoticeKind kind);

} // namespace amorra
