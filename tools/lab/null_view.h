#pragma once

#include "view/game_view.h"

#include <string>
#include <vector>

namespace amorra::lab {

// The screens a player can have open besides the main and setup screens.
enum class Screen { Cat, FoundMoney, SpeedingFine, Ignoring, Boring, TextNotice, GameOver, Win, Lose, HighScores, Tutorial, About };

// The lab's screen: keeps only what a player could read off the main
// screen and what the logic reads back, and logs nothing, so thousands of
// games fit in a second.
class NullView final : public GameView
{
public:
    // What is on the screen.
    std::string talk, listTitle, heartLabel, loseText, okCaption;
    // Rows keep their storage between fills; only the first rowCount count.
    std::vector<std::string> rowText;
    int rowCount = 0;
    int selectedRow = -1;
    bool okShown = false, askOutShown = false, takeHerOutEnabled = false, mainEnabled = true;
    std::vector<Screen> openScreens;
    // How the game ended, as the first end screen told it.
    enum class Ending { None, Won, LostHeart, LostMonth } ending = Ending::None;

    void reset();
    void selectRow(int row) { selectedRow = (row >= 0 && row < rowCount) ? row : -1; }
    // Closes the most recently opened screen of that kind; false when none is open.
    bool closeScreen(Screen screen);
    bool isOpen(Screen screen) const;
    const std::string &row(int i) const { return rowText[static_cast<size_t>(i)]; }

    void SetTalk(const std::string &text) override { talk = text; }
    std::string GetTalk() const override { return talk; }
    void SetListTitle(const std::string &text) override { listTitle = text; }
    std::string GetListTitle() const override { return listTitle; }
    void ClearList() override
    {
        rowCount = 0;
        selectedRow = -1;
    }
    void AddListRow(const std::string &text) override;
    int GetListIndex() const override { return selectedRow; }
    void SetListTip(const std::string &) override {}
    void SetOkCaption(const std::string &text) override { okCaption = text; }
    void ShowOk(bool shown) override { okShown = shown; }
    void ShowAskOut(bool shown) override { askOutShown = shown; }
    void EnableTakeHerOut(bool enabled) override { takeHerOutEnabled = enabled; }
    void SetMoneyLabel(const std::string &) override {}
    void SetDayLabel(const std::string &) override {}
    void SetSpentLabel(const std::string &) override {}
    void SetStatBars(int, int, int) override {}
    void SetHeartBar(int) override {}
    void SetHeartLabel(const std::string &text) override { heartLabel = text; }
    void SetFace(const std::string &, const std::string &) override {}
    void EnableMain(bool enabled) override { mainEnabled = enabled; }
    void FocusMain() override {}
    int LoadedScreenCount() const override { return 2 + static_cast<int>(openScreens.size()); }
    void ShowNotice(NoticeKind kind, const std::string &text) override;
    void ShowGameOver() override { openScreens.push_back(Screen::GameOver); }
    void ShowWin(const std::string &, const std::string &, const std::string &) override;
    void ShowLose(const std::string &text) override;
    void ShowHighScores() override { openScreens.push_back(Screen::HighScores); }
    void ShowSetup() override {}
    void ShowTutorial() override { openScreens.push_back(Screen::Tutorial); }
    void ShowAbout() override { openScreens.push_back(Screen::About); }
    void ShowMessage(const std::string &, const std::string &, bool) override {}
    void PlaySound(const std::string &, SoundMode) override {}
};

} // namespace amorra::lab
