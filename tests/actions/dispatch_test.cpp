#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

using Dispatch = PlayFixture;

TEST_F(Dispatch, modeButtonsRefillTheirListAndCountEveryPress)
{
    struct Row
    {
        const char *name;
        Button press;
        int draws; // chance draws the button makes
        const char *title, *caption, *tip;
        size_t rows;
        const char *firstRow, *talk, *sound;
        bool askOut; // the ask-out button is up afterwards
    };
    const Row table[] = {
        {"buy a gift", onBuyGift, 1, "Things to Get", "BUY", "Available gifts you can buy her", 11, "Flowers        \t$40", "", nullptr, false},
        {"call her", onCallHer, 0, "Things to ask her", "ASK", "Topics you can talk about", 24, "So do you like living here?",
         "Lisa:  Hello?\r\nTom: Hi Lisa this is Tom\r\nLisa: Ohh .... How are you???", "\\sounds\\phonet.wav", true},
        {"take her out", onTakeHerOut, 2, "Places to Go", "GO", "Places you can take her", 11, "High class restaurant\t\t\t$120",
         "Lisa: I'm coming...", "\\sounds\\doorbell.wav", false},
        {"go to work", onGoToWork, 8, "Job Noticeboard", "WORK", "List of jobs", 6, "Pizza Delivery\t$20\tavailable", "",
         "\\sounds\\car.wav", false},
        {"go shopping", onGoShopping, 2, "Things to Buy", "BUY", "Items you can buy for your self", 11, " Latest Sunglasses\t\t$150", "",
         nullptr, false},
    };
    for (const Row &c : table) {
        SCOPED_TRACE(c.name);
        newGame();
        for (int press = 1; press <= 2; ++press) {
            // What the last action left on screen, which every mode button clears.
            view.talk = "Lisa: stale words";
            view.okShown = view.askOutShown = true;
            calm(c.draws);
            c.press(game);
            EXPECT_EQ(view.listTitle, c.title);
            EXPECT_EQ(view.okCaption, c.caption);
            EXPECT_EQ(view.listTip, c.tip);
            ASSERT_EQ(view.rows.size(), c.rows); // refilled, not appended
            EXPECT_EQ(view.rows.front(), c.firstRow);
            EXPECT_EQ(view.talk, c.talk);
            EXPECT_FALSE(view.okShown); // waits for a row to be picked
            EXPECT_EQ(view.askOutShown, c.askOut);
            EXPECT_EQ(state().action_count, press);
        }
        EXPECT_EQ(sounds(), c.sound ? std::vector<std::string>(2, c.sound) : std::vector<std::string>{});
        expectDrawsUsedUp();
        onListClick(game); // picking a row empties the talk and shows the action button
        EXPECT_EQ(view.talk, "");
        EXPECT_TRUE(view.okShown);
    }
}

// Only the count may change: the action button with no row picked (a new
// game empties the list but leaves the mode), with a row past the end, or
// before any mode; and a mode button once the game is over.
TEST_F(Dispatch, pressesWithNothingToDoChangeNothingButTheCount)
{
    const std::vector<std::string> closingOnly = {"ShowOk", "SetStatBars", "SetSpentLabel"};
    newGame();
    onActionButton(game);
    EXPECT_EQ(view.callNames(), closingOnly);
    const std::pair<Button, int> buttons[] = {{onBuyGift, 1}, {onCallHer, 0}, {onTakeHerOut, 2}, {onGoToWork, 8}, {onGoShopping, 2}};
    for (const auto &[press, draws] : buttons) {
        newGame();
        calm(draws);
        press(game);
        SCOPED_TRACE(view.listTitle);
        const auto rows = view.rows;
        for (int row : {-1, static_cast<int>(rows.size())}) {
            onListClick(game);
            view.selectedRow = row;
            const GameState before = state();
            view.clearCalls();
            onActionButton(game);
            EXPECT_EQ(view.callNames(), closingOnly) << "row " << row;
            EXPECT_EQ(state().action_count, before.action_count + 1);
            EXPECT_EQ(state().money, before.money);
            EXPECT_EQ(state().heart, before.heart);
            EXPECT_EQ(state().day, before.day);
        }

        state().game_over = true;
        const int count = state().action_count;
        view.talk = "Lisa: still here";
        view.clearCalls();
        press(game);
        std::vector<std::string> expected = {"ShowOk(false)", "ShowAskOut(false)", "EnableMain(false)", "ShowGameOver()"};
        if (press == onCallHer)
            expected.erase(expected.begin() + 1); // the call leaves the ask-out button alone
        EXPECT_EQ(calls(), expected);
        EXPECT_EQ(state().action_count, count);
        EXPECT_EQ(view.rows, rows);
        EXPECT_EQ(view.talk, "Lisa: still here");
        expectDrawsUsedUp(); // no events drawn
    }
}

TEST(ActionMode, isKnownByTheExactTitleOnly)
{
    const std::pair<const char *, ActionMode> table[] = {
        {"Things to Get", ActionMode::Gift}, {"Things to ask her", ActionMode::Phone}, {"Places to Go", ActionMode::Date},
        {"Job Noticeboard", ActionMode::Work}, {"Things to Buy", ActionMode::Shop},   {"", ActionMode::None},
        {"places to go", ActionMode::None}};
    for (const auto &[title, mode] : table) {
        SCOPED_TRACE(title);
        EXPECT_EQ(modeFromTitle(title), mode);
    }
}

} // namespace
