#include "null_view.h"
#include "strategies.h"

#include "actions/actions.h"
#include "core/game.h"
#include "core/game_flow.h"
#include "view/recording_view.h"

#include <gtest/gtest.h>

#include <map>

using namespace amorra;
using namespace amorra::lab;

namespace {

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
};

std::string screenName(Screen s)
{
    static const char *const names[] = {"Cat", "FoundMoney", "SpeedingFine", "Ignoring", "Boring", "TextNotice",
                                        "GameOver", "Win", "Lose", "HighScores", "Tutorial", "About"};
    return names[static_cast<int>(s)];
}

// The newest open window's "OK", as the lab's player presses it.
template <class View>
void confirmTop(Side<View> &side, const std::string &name)
{
    static const std::map<std::string, NoticeKind> notices = {
        {"Cat", NoticeKind::Cat},         {"FoundMoney", NoticeKind::FoundMoney}, {"SpeedingFine", NoticeKind::SpeedingFine},
        {"Ignoring", NoticeKind::Ignoring}, {"Boring", NoticeKind::Boring},     {"TextNotice", NoticeKind::TextNotice}};
    if (auto it = notices.find(name); it != notices.end())
        OnNoticeOk(side.game, it->second);
    else if (name == "Win")
        onWinOk(side.game);
    else if (name == "Lose")
        onLoseOk(side.game);
    else if (name == "GameOver")
        gameOverOk(side.game);
}

class NullViewAgainstRecordingView : public ::testing::TestWithParam<std::uint64_t>
{
};

TEST_P(NullViewAgainstRecordingView, answersTheGameAlikeClickAfterClick)
{
    const std::uint64_t seed = GetParam();
    Side<NullView> fast(seed);
    Side<RecordingView> slow(seed);
    Dice dice(seed);
    for (int click = 0; click < 600; ++click) {
        const int what = dice.below(10);
        if (!fast.view.openScreens.empty()) {
            ASSERT_FALSE(slow.view.openScreens.empty());
            const Screen topScreen = fast.view.openScreens.back();
            const std::string top = screenName(topScreen);
            ASSERT_EQ(top, slow.view.openScreens.back()) << "click " << click;
            // Its OK may open the next window (a penalty that ends the game).
            confirmTop(fast, top);
            confirmTop(slow, top);
            fast.view.closeScreen(topScreen);
            slow.view.closeScreen(top);
        } else if (what < 7) {
            void (*const buttons[])(Game &) = {onBuyGift, onCallHer, onTakeHerOut, onGoToWork, onGoShopping, onActionButton, onAskOut};
            const auto press = buttons[what];
            press(fast.game);
            press(slow.game);
        } else {
            const int row = dice.below(25) - 1; // now and then no row at all
            fast.view.selectRow(row);
            slow.view.selectRow(row);
            onListClick(fast.game);
            onListClick(slow.game);
        }
        const GameState &a = fast.game.state(), &b = slow.game.state();
        ASSERT_EQ(a.money, b.money) << "click " << click;
        ASSERT_EQ(a.heart, b.heart) << "click " << click;
        ASSERT_EQ(a.day, b.day) << "click " << click;
        ASSERT_EQ(a.action_count, b.action_count) << "click " << click;
        ASSERT_EQ(a.game_over, b.game_over) << "click " << click;
        ASSERT_EQ(fast.view.GetTalk(), slow.view.GetTalk()) << "click " << click;
        ASSERT_EQ(fast.view.GetListTitle(), slow.view.GetListTitle()) << "click " << click;
        ASSERT_EQ(fast.view.rowCount, static_cast<int>(slow.view.rows.size())) << "click " << click;
        ASSERT_EQ(fast.view.GetListIndex(), slow.view.GetListIndex()) << "click " << click;
        ASSERT_EQ(fast.view.LoadedScreenCount(), slow.view.LoadedScreenCount()) << "click " << click;
        ASSERT_EQ(fast.view.mainEnabled, slow.view.mainEnabled) << "click " << click;
        ASSERT_EQ(fast.view.okShown, slow.view.okShown) << "click " << click;
        ASSERT_EQ(fast.view.askOutShown, slow.view.askOutShown) << "click " << click;
        ASSERT_EQ(fast.view.takeHerOutEnabled, slow.view.takeHerOutEnabled) << "click " << click;
        for (int r = 0; r < fast.view.rowCount; ++r)
            ASSERT_EQ(fast.view.row(r), slow.view.rows[static_cast<size_t>(r)]) << "click " << click << " row " << r;
        if (a.game_over && fast.view.openScreens.empty()) {
            // A new game on both, as "Play Again" would.
            gameOverPlayAgain(fast.game);
            gameOverPlayAgain(slow.game);
            fast.view.ending = NullView::Ending::None;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, NullViewAgainstRecordingView, ::testing::Values(1u, 2u, 3u, 17u, 99u, 2024u));

TEST(NullView, tellsTheEndingByTheFirstEndScreen)
{
    NullView v;
    v.ShowLose(" Hey Pal! you've been at it for a month. I think you should give up!!!");
    v.ShowLose("");
    EXPECT_EQ(v.ending, NullView::Ending::LostMonth);
    NullView w;
    w.ShowLose("");
    EXPECT_EQ(w.ending, NullView::Ending::LostHeart);
    NullView x;
    x.ShowWin("Total Money Spent $100", "Total Days 9", "Your Score : 1");
    EXPECT_EQ(x.ending, NullView::Ending::Won);
    EXPECT_EQ(x.LoadedScreenCount(), 3);
}

} // namespace
