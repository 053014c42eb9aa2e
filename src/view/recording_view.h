#pragma once

#include "game_view.h"

#include <string>
#include <vector>

namespace amorra {

struct ViewCall
{
    std::string name;
    std::vector<std::string> args;
    std::string str() const; // "Name(arg1|arg2)"
};

// A GameView without a window system. It remembers every call in order and
// keeps just enough screen state to answer the getters the logic asks:
// the talk box, the list title, the selected row and the loaded screens.
// Not linked into the game itself; tests and the balance lab use it.
class RecordingView : public GameView
{
public:
    // Set false for speed (balance lab): state is kept, calls are not logged.
    bool recording = true;

    std::vector<ViewCall> calls;

    // Screen state as the logic left it.
    std::string talk, listTitle, listTip, okCaption, moneyLabel, dayLabel, spentLabel, heartLabel;
    std::string facePicture, faceTooltip;
    std::vector<std::string> rows;
    int selectedRow = -1;
    bool okShown = false, askOutShown = false, takeHerOutEnabled = false, mainEnabled = true;
    int heartLit = 0, looksBar = 0, brainsBar = 0, luckBar = 0;
    // Screens open besides the main and the (hidden) setup screen, by name:
    // "Cat", "FoundMoney", ... for notices, then "GameOver", "Win", "Lose",
    // "HighScores", "Setup", "Tutorial", "About".
    std::vector<std::string> openScreens;
    int permanentScreens = 2;

    // What a player does: select a row (as the list would) and close screens.
    void selectRow(int row);
    // Closes the most recently opened screen of that name; false when none is open.
    bool closeScreen(const std::string &name);

    std::vector<std::string> callNames() const;
    int countCalls(const std::string &name) const;
    std::vector<ViewCall> callsNamed(const std::string &name) const;
    void clearCalls() { calls.clear(); }

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

private:
    void record(const char *name, std::vector<std::string> args = {});
};

} // namespace amorra
