#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

using Dispatch = PlayFixture;

struct Mode { Button press; int draws; const char *title, *caption, *tip; size_t rows; const char *firstRow, *talk, *sound; }; // draws: its chance draws
const Mode kModes[] = {
    {onBuyGift, 1, "Things to Get", "BUY", "Available gifts you can buy her", 11, "Flowers        \t$40", "", nullptr},
    {onCallHer, 0, "Things to ask her", "ASK", "Topics you can talk about", 24, "So do you like living here?",
     "Lisa:  Hello?\r\nTom: Hi Lisa this is Tom\r\nLisa: Ohh .... How are you???", "\\sounds\\phonet.wav"},
    {onTakeHerOut, 2, "Places to Go", "GO", "Places you can take her", 11, "High class restaurant\t\t\t$120", "Lisa: I'm coming...", "\\sounds\\doorbell.wav"},
    {onGoToWork, 8, "Job Noticeboard", "WORK", "List of jobs", 6, "Pizza Delivery\t$20\tavailable", "", "\\sounds\\car.wav"},
    {onGoShopping, 2, "Things to Buy", "BUY", "Items you can buy for your self", 11, " Latest Sunglasses\t\t$150", "", nullptr},
};

TEST_F(Dispatch, modeButtonsRefillTheirListAndCountEveryPress)
{
    for (const Mode &c : kModes) {
        SCOPED_TRACE(c.title);
        newGame();
        for (int count = 1; count <= 2; ++count) {
            // What the last action left on screen, which every mode button clears.
            view.talk = "Lisa: stale words";
            view.okShown = view.askOutShown = true;
            calm(c.draws);
            c.press(game);
            EXPECT_EQ(Strings({view.listTitle, view.okCaption, view.listTip, view.talk}), Strings({c.title, c.caption, c.tip, c.talk}));
            ASSERT_EQ(view.rows.size(), c.rows); // refilled, not appended
            EXPECT_EQ(view.rows.front(), c.firstRow);
            EXPECT_FALSE(view.okShown); // waits for a row to be picked
            EXPECT_EQ(view.askOutShown, c.press == onCallHer);
            EXPECT_EQ(state().action_count, count);
        }
        EXPECT_EQ(sounds(), c.sound ? Strings(2, c.sound) : Strings{});
        expectDrawsUsedUp();
        onListClick(game); // picking a row empties the talk and shows the action button
        EXPECT_EQ(view.talk, "");
        EXPECT_TRUE(view.okShown);
    }
}

// Only the count may change: the action button before any mode, with no
// row picked (a new game empties the list but leaves the mode) or a row past
// the end; and a mode button once the game is over.
TEST_F(Dispatch, pressesWithNothingToDoChangeNothingButTheCount)
{
    const Strings closingOnly = {"ShowOk", "SetStatBars", "SetSpentLabel"};
    newGame();
    onActionButton(game);
    EXPECT_EQ(view.callNames(), closingOnly);
    for (const Mode &c : kModes) {
        newGame();
        calm(c.draws);
        c.press(game);
        SCOPED_TRACE(view.listTitle);
        const Strings rows = view.rows;
        for (const int row : {-1, static_cast<int>(rows.size())}) {
            onListClick(game);
            view.selectedRow = row;
            const GameState before = state();
            view.clearCalls();
            onActionButton(game);
            EXPECT_EQ(view.callNames(), closingOnly) << "row " << row;
            EXPECT_EQ(std::vector<int>({state().action_count - 1, state().money, state().heart, state().day}),
                      std::vector<int>({before.action_count, before.money, before.heart, before.day}));
        }
        state().game_over = true;
        view.talk = "Lisa: still here";
        view.clearCalls();
        c.press(game);
        EXPECT_EQ(calls(), c.press == onCallHer ? Strings({"ShowOk(false)", "EnableMain(false)", "ShowGameOver()"}) // the ask-out button stays
                                              : Strings({"ShowOk(false)", "ShowAskOut(false)", "EnableMain(false)", "ShowGameOver()"}));
        EXPECT_EQ(state().action_count, 3);
        EXPECT_EQ(view.rows, rows);
        EXPECT_EQ(view.talk, "Lisa: still here");
        expectDrawsUsedUp(); // no events drawn
    }
}

TEST(ActionMode, isKnownByTheExactTitleOnly)
{
    const std::pair<const char *, ActionMode> table[] = {
        {"Things to Get", ActionMode::Gift},   {"Things to ask her", ActionMode::Phone}, {"Places to Go", ActionMode::Date},
        {"Job Noticeboard", ActionMode::Work}, {"Things to Buy", ActionMode::Shop},     {"", ActionMode::None},
        {"places to go", ActionMode::None}};
    for (const auto &[title, mode] : table)
        EXPECT_EQ(modeFromTitle(title), mode) << title;
}

// Everything he pays for: exactly the balance buys it and leaves $0, a
// dollar short is refused with a notice and costs nothing. Every draw is calm.
TEST_F(Dispatch, exactlyTheBalanceBuysAndADollarShortIsRefused)
{
    struct Row { Button open; int row, price; bool onHer; const char *refusal; }; // row -1: the mode button charges
    const Row table[] = {
        {onTakeHerOut, 0, 120, true, "Hey...BUDDY are you expecting her to pay for this !!!!"},
        {onBuyGift, 0, 40, true, "You ain't got the dough Bro!"},
        {onGoShopping, 10, 70, false, "Are you expecting your mother to pay for this!!"},
        {onGoShopping, 5, 250, false, "Are you expecting your mother to pay for this!!"},
        {onCallHer, -1, 5, true, "Were you thinking of calling REVERSE charge!!"},
    };
    for (const Row &c : table) {
        for (const int balance : {c.price, c.price - 1}) {
            SCOPED_TRACE("$" + std::to_string(c.price) + " with $" + std::to_string(balance));
            newGame(10, balance).work_streak = 2;
            c.open(game);
            if (c.row >= 0)
                choose(c.row);
            const bool paid = balance == c.price;
            EXPECT_EQ(state().money, paid ? 0 : balance);
            EXPECT_EQ(state().spent_total, paid && c.onHer ? c.price : 0);
            EXPECT_EQ(state().work_streak, c.onHer ? 0 : 2); // seeing her ends his run of working days, paid or not
            EXPECT_EQ(calls({"ShowNotice"}), paid ? Strings{} : Strings{std::string("ShowNotice(TextNotice|") + c.refusal + ")"});
            EXPECT_EQ(view.mainEnabled, paid);
            EXPECT_EQ(view.rows.empty(), c.row >= 0 || !paid); // the next try needs the mode button again
        }
    }
}

} // namespace
