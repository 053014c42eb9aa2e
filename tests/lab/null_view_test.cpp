#include "her_tastes.h"
#include "null_view.h"
#include "strategies.h"

#include "actions/actions.h"
#include "core/game_flow.h"
#include "view/recording_view.h"

#include <gtest/gtest.h>

using namespace amorra;
using namespace amorra::lab;

namespace {

// What the game reads back from its screen, and the state behind it.
std::string screen(const Game &g, const GameView &v, const std::vector<std::string> &rows, std::vector<bool> shown)
{
    const GameState &s = g.state();
    std::string out = v.GetTalk() + "|" + v.GetListTitle();
    for (const int n : {v.GetListIndex(), v.LoadedScreenCount(), int(s.money), int(s.heart), int(s.day), int(s.action_count)})
        out += "|" + std::to_string(n);
    for (const bool b : shown)
        out += b ? "+" : "-";
    for (const std::string &row : rows)
        out += "|" + row;
    return out;
}

// The same clicks on the lab's null view and on the recording view the tests
// trust: the game must not tell them apart. And what the lab's players learn
// from her answers must be what the game wrote down.
TEST(Lab, seesTheGameAsTheGameIsClickAfterClick)
{
    const auto opinion = [](const std::string &mark) { return mark == "+" ? 1 : mark == "-" ? -1 : 0; };
    const char *const names[] = {"Cat", "FoundMoney", "SpeedingFine", "Ignoring", "Boring", "TextNotice", "GameOver", "Win", "Lose", "HighScores"};
    void (*const buttons[])(Game &) = {onBuyGift, onCallHer, onTakeHerOut, onGoToWork, onGoShopping, onActionButton, onAskOut};
    for (const std::uint64_t seed : {1u, 17u, 2024u}) {
        NullView fastView;
        RecordingView slowView;
        SystemRandom fastDice(seed), slowDice(seed);
        Game fast(fastView, fastDice), slow(slowView, slowDice);
        for (Game *g : {&fast, &slow}) {
            g->setSetup({"Tom", 40, 60, 50});
            startFirstGame(*g);
        }
        Dice dice(seed);
        HerTastes tastes;
        for (int click = 0; click < 600; ++click) {
            SCOPED_TRACE("seed " + std::to_string(seed) + " click " + std::to_string(click));
            const int what = dice.below(10);
            if (!fastView.openScreens.empty()) {
                const Screen top = fastView.openScreens.back();
                ASSERT_EQ(slowView.openScreens.back(), names[static_cast<int>(top)]);
                for (Game *g : {&fast, &slow}) { // its OK may open the next window: a penalty that ends the game
                    if (top <= Screen::TextNotice)
                        OnNoticeOk(*g, static_cast<NoticeKind>(top));
                    else if (top == Screen::Win || top == Screen::Lose || top == Screen::GameOver)
                        (top == Screen::Win ? onWinOk : top == Screen::Lose ? onLoseOk : gameOverOk)(*g);
                }
                fastView.closeScreen(top);
                slowView.closeScreen(names[static_cast<int>(top)]);
            } else if (what < 7) {
                const int question = fastView.listTitle == "Things to ask her" && fastView.okShown ? fastView.selectedRow : -1;
                buttons[what](fast);
                buttons[what](slow);
                if (what == 5 && question >= 0)
                    tastes.learn(question, fastView.talk);
            } else {
                const int row = dice.below(25) - 1; // now and then no row at all
                fastView.selectRow(row);
                slowView.selectRow(row);
                onListClick(fast);
                onListClick(slow);
            }
            ASSERT_EQ(screen(fast, fastView, {fastView.rowText.begin(), fastView.rowText.begin() + fastView.rowCount}, {fastView.mainEnabled, fastView.okShown, fastView.askOutShown, fastView.takeHerOutEnabled}),
                      screen(slow, slowView, slowView.rows, {slowView.mainEnabled, slowView.okShown, slowView.askOutShown, slowView.takeHerOutEnabled}));
            for (size_t i = 1; i <= 11; ++i) {
                ASSERT_EQ(tastes.gift[i], opinion(fast.state().gifts[i].extra)) << "gift " << i;
                ASSERT_EQ(tastes.place[i], opinion(fast.state().places[i].extra)) << "place " << i;
            }
            if (fast.state().game_over && fastView.openScreens.empty()) {
                gameOverPlayAgain(fast);
                gameOverPlayAgain(slow);
                tastes = HerTastes();
            }
        }
    }
}

} // namespace
