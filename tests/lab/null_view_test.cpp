#include "null_view.h"
#include "strategies.h"

#include "actions/actions.h"
#include "core/game_flow.h"
#include "view/recording_view.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace amorra;
using namespace amorra::lab;

namespace {

std::vector<std::string> rowsOf(const NullView &v) { return {v.rowText.begin(), v.rowText.begin() + v.rowCount}; }
const std::vector<std::string> &rowsOf(const RecordingView &v) { return v.rows; }

// One game on one screen, started as the lab starts it.
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

    // Everything the game reads back or a player acts on.
    std::string screen() const
    {
        const GameState &s = game.state();
        std::ostringstream out;
        out << s.money << '|' << s.heart << '|' << s.day << '|' << s.action_count << '|' << view.GetTalk() << '|' << view.GetListTitle()
            << '|' << view.GetListIndex() << '|' << view.LoadedScreenCount() << '|' << view.mainEnabled << view.okShown << view.askOutShown
            << view.takeHerOutEnabled;
        for (const std::string &row : rowsOf(view))
            out << '|' << row;
        return out.str();
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

// The same clicks on the lab's null view and on the recording view the tests
// trust: the game must not tell them apart.
TEST(NullView, answersTheGameLikeTheRecordingViewClickAfterClick)
{
    const char *const names[] = {"Cat", "FoundMoney", "SpeedingFine", "Ignoring", "Boring", "TextNotice", "GameOver", "Win", "Lose", "HighScores"};
    void (*const buttons[])(Game &) = {onBuyGift, onCallHer, onTakeHerOut, onGoToWork, onGoShopping, onActionButton, onAskOut};
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
                confirm(fast.game, top); // its OK may open the next window: a penalty that ends the game
                confirm(slow.game, top);
                fast.view.closeScreen(top);
                slow.view.closeScreen(names[static_cast<int>(top)]);
            } else if (what < 7) {
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
            }
        }
    }
}

} // namespace
