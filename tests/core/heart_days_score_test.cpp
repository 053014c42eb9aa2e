#include "core/game.h"
#include "support/scripted_random.h"
#include "view/recording_view.h"

#include <gtest/gtest.h>

using namespace amorra;
using amorra::testing::ScriptedRandom;

namespace {

// A game in progress without going through Restart's draws.
struct Core : ::testing::Test
{
    RecordingView view;
    ScriptedRandom random;
    Game game{view, random};
    GameState &s = game.state();

    void SetUp() override
    {
        s.heart = 10;
        s.money = 50;
        s.day = 1;
        s.player.player_name = "Tom";
        s.sound_on = true;
    }
};

// h/5 segments rounded, the number kept within 0..100; 100 or more wins, 0 or less loses.
TEST_F(Core, theHeartMeterShowsSegmentsNumberAndEndScreen)
{
    struct Row
    {
        int heart, lit;
        const char *label, *end;
    };
    const Row table[] = {{7, 1, "7", ""},        {8, 2, "8", ""},          {1, 0, "1", ""},
                         {99, 20, "99", ""},     {100, 20, "100", "Win"},  {105, 20, "100", "Win"},
                         {0, 0, "0", "Lose"},    {-3, 0, "0", "Lose"}};
    for (const Row &c : table) {
        SCOPED_TRACE(c.heart);
        view = RecordingView();
        s.game_over = false;
        s.action_count = 4;
        s.spent_total = 100;
        game.set_heart(c.heart);
        EXPECT_EQ(view.heartLit, c.lit);
        EXPECT_EQ(view.heartLabel, c.label);
        EXPECT_EQ(view.callNames().back(), *c.end ? std::string("Show") + c.end : "SetHeartLabel");
        EXPECT_EQ(s.game_over, *c.end != '\0');
        EXPECT_EQ(view.mainEnabled, *c.end == '\0');
    }
}

TEST_F(Core, aWinFillsTheResultAndShowsItsThreeTexts)
{
    s.day = 8;
    s.action_count = 40;
    s.spent_total = 355;
    game.set_heart(104);
    EXPECT_EQ(s.result.result_score, 88028);
    EXPECT_EQ(s.result.result_name, "Tom");
    EXPECT_EQ(s.result.result_days, 8);
    EXPECT_EQ(s.result.result_spent, 355);
    EXPECT_FALSE(s.result.result_pending); // set only by the win screen's OK
    EXPECT_EQ(view.calls.back().str(), "ShowWin(Total Money Spent $355|Total Days 8|Your Score : 88028)");
}

TEST_F(Core, theGameEndsOnceThoughTheMeterAndTheDayGoOn)
{
    s.action_count = 1;
    s.spent_total = 5;
    game.set_heart(100);
    game.set_heart(120);
    game.set_heart(-5); // a later penalty must not add a lose screen to a won game
    game.advance_days(40);
    EXPECT_EQ(view.countCalls("ShowWin"), 1);
    EXPECT_EQ(view.countCalls("ShowLose"), 0);
    EXPECT_EQ(view.heartLabel, "0");
    EXPECT_EQ(view.dayLabel, "Day 41");
}

TEST_F(Core, theThirtiethDayEndsTheGame)
{
    s.day = 28;
    game.advance_days(1);
    EXPECT_EQ(view.dayLabel, "Day 29");
    EXPECT_FALSE(s.game_over); // day 29 is still played
    game.advance_days(1);
    EXPECT_EQ(view.dayLabel, "Day 30");
    EXPECT_TRUE(s.game_over);
    EXPECT_FALSE(view.mainEnabled);
    EXPECT_EQ(view.callsNamed("ShowLose").at(0).args.at(0), " Hey Pal! you've been at it for a month. I think you should give up!!!");
}

TEST(Score, isTenBillionOverDaysPressesAndSpendingTruncated)
{
    struct Row
    {
        int day, presses, spent;
        double score;
    };
    const Row table[] = {{8, 40, 355, 88028},
                         {10, 50, 700, 28571}, // 700 x 50 needs more than 16 bits
                         {29, 300, 9000, 127},
                         {1, 1, 5, 2000000000},
                         {3, 20, 32000, 5208}};
    for (const Row &c : table) {
        SCOPED_TRACE(c.score);
        EXPECT_EQ(computeScore(static_cast<i16>(c.day), static_cast<i16>(c.presses), static_cast<i16>(c.spent)), c.score);
    }
}

// The balance keeps its minus sign after the dollar and stops at the ends of 16 bits.
TEST_F(Core, moneyChangesTheBalanceAndItsLabel)
{
    const int table[][3] = {{3, -5, -2}, {45, 300, 345}, {32700, 300, 32767}, {-32700, -300, -32768}};
    for (const auto &c : table) {
        SCOPED_TRACE(c[0]);
        s.money = static_cast<i16>(c[0]);
        game.add_money(c[1]);
        EXPECT_EQ(s.money, c[2]);
        EXPECT_EQ(view.moneyLabel, "Bank Balance: $" + std::to_string(c[2]));
    }
}

TEST_F(Core, barsShowRoundedRatingsWithSmartPlusTenAndTheSpentLabel)
{
    s.player.looks = 54.5; // half to even: 54
    s.player.smart = 71.5; // 81.5 -> 82
    s.player.luck = 52;
    s.spent_total = 135;
    game.updatestats();
    EXPECT_EQ(view.callNames().size(), 2u);
    EXPECT_EQ(view.calls.at(0).str(), "SetStatBars(54|82|52)");
    EXPECT_EQ(view.calls.at(1).str(), "SetSpentLabel($135)");
}

} // namespace
