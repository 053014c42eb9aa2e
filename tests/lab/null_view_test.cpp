#include "null_view.h"
#include "strategies.h"

#include "actions/actions.h"
#include "core/game_flow.h"
#include "view/recording_view.h"

#include <gtest/gtest.h>

using namespace amorra;
using namespace amorra::lab;

namespace {

std::vector<std::string> rowsOf(const NullView &v) { return {v.rowText.begin(), v.rowText.begin() + v.rowCount}; }
const std::vector<std::string> &rowsOf(const RecordingView &v) { return v.rows; }

// The same game on two screens: the lab's null view and the recording view
// the tests trust. Every click goes to both; the game must not tell them apart.
template <class View>
struct Side
{
    View view;
    SystemRandom random;
    Game game{view, random};

    explicit Side(std::uint64_t seed) : random(seed)
    {
        game.setSetup({"Tom", 40, 60, 50});
        startFirstGame(game);
    }

    // Everything on screen that the game reads back or a player acts on.
    std::string screen() const
    {
        const GameState &s = game.state();
        std::string out = std::to_string(s.money) + "|" + std::to_string(s.heart) + "|" + std::to_string(s.day) + "|" +
                          std::to_string(s.action_count) + "|" + view.GetTalk() + "|" + view.GetListTitle() + "|" +
                          std::to_string(view.GetListIndex()) + "|" + std::to_string(view.LoadedScreenCount()) + "|" +
                          std::to_string(view.mainEnabled) + std::to_string(view.okShown) + std::to_string(view.askOutShown) +
                          std::to_string(view.takeHerOutEnabled);
        for (const std::string &row : rowsOf(view))
            out += "|" + row;
        return out;
    }
};

// The "OK" of the window on top, as the lab's player presses it.
void confirm(Game &game, Screen top)
{
    if (top <= Screen::TextNotice)
        OnNoticeOk(game, static_cast<NoticeKind>(top));
    else if (top == Screen::Win)
        onWinOk(game);
    else if (top == Screen::Lose)
        onLoseOk(game);
    else if (top == Screen::GameOver)
        gameOverOk(game);
}

TEST(NullView, answersTheGameLikeTheRecordingViewClickAfterClick)
{
    const char *const names[] = {"Cat", "FoundMoney", "SpeedingFine", "Ignoring", "Boring", "TextNotice",
                                 "GameOver", "Win", "Lose", "HighScores", "Tutorial", "About"};
    for (const std::uint64_t seed : {1u, 17u, 2024u}) {
        Side<NullView> fast(seed);
        Side<RecordingView> slow(seed);
        Dice dice(seed);
        for (int click = 0; click < 600; ++click) {
            SCOPED_TRACE("seed " + std::to_string(seed) + " click " + std::to_string(click));
            const int what = dice.below(10);
            if (!fast.view.openScreens.empty()) {
                const Screen top = fast.view.openScreens.back();
                ASSERT_EQ(slow.view.openScreens.back(), names[static_cast<int>(top)]);
                // Its OK may open the next window (a penalty that ends the game).
                confirm(fast.game, top);
                confirm(slow.game, top);
                fast.view.closeScreen(top);
                slow.view.closeScreen(names[static_cast<int>(top)]);
            } else if (what < 7) {
                void (*const buttons[])(Game &) = {onBuyGift, onCallHer, onTakeHerOut, onGoToWork, onGoShopping, onActionButton, onAskOut};
                buttons[what](fast.game);
                buttons[what](slow.game);
            } else {
                const int row = dice.below(25) - 1; // now and then no row at all
                fast.view.selectRow(row);
                slow.view.selectRow(row);
                onListClick(fast.game);
                onListClick(slow.game);
            }
            ASSERT_EQ(fast.screen(), slow.screen());
            if (fast.game.state().game_over && fast.view.openScreens.empty()) {
                gameOverPlayAgain(fast.game);
                gameOverPlayAgain(slow.game);
                fast.view.ending = NullView::Ending::None;
            }
        }
    }
}

TEST(NullView, tellsTheEndingByTheFirstEndScreen)
{
    NullView month, heart, won;
    month.ShowLose(" Hey Pal! you've been at it for a month. I think you should give up!!!");
    month.ShowLose("");
    heart.ShowLose("");
    won.ShowWin("Total Money Spent $100", "Total Days 9", "Your Score : 1");
    EXPECT_EQ(month.ending, NullView::Ending::LostMonth);
    EXPECT_EQ(heart.ending, NullView::Ending::LostHeart);
    EXPECT_EQ(won.ending, NullView::Ending::Won);
    EXPECT_EQ(won.LoadedScreenCount(), 3);
}

} // namespace
