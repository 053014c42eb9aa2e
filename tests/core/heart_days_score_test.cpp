#include "core/game.h"
#include "support/scripted_random.h"
#include "view/recording_view.h"

#include <gtest/gtest.h>

using namespace amorra;
using amorra::testing::ScriptedRandom;

namespace {

struct Fixture
{
    RecordingView view;
    ScriptedRandom random;
    Game game{view, random};

    // A game in progress without going through Restart's draws.
    Fixture()
    {
        auto &s = game.state();
        s.heart = 10;
        s.money = 50;
        s.day = 1;
        s.player.player_name = "Tom";
        s.girl.Gname = "Lisa";
        s.sound_on = true;
    }
};

struct HeartCase
{
    const char *name;
    int heart;
    int lit;
    const char *label;
    const char *endScreen; // "", "Win" or "Lose"
};

void PrintTo(const HeartCase &c, std::ostream *os)
{
    *os << c.name;
}

class HeartMeter : public ::testing::TestWithParam<HeartCase>
{
};

TEST_P(HeartMeter, showsSegmentsLabelAndEndScreenForTheValue)
{
    const HeartCase c = GetParam();
    Fixture f;
    auto &s = f.game.state();
    s.action_count = 4;
    s.spent_total = 100;
    s.heart = static_cast<i16>(c.heart);
    f.game.display_heart(s.heart);

    EXPECT_EQ(f.view.heartLit, c.lit);
    EXPECT_EQ(f.view.heartLabel, c.label);
    const std::string end = c.endScreen;
    EXPECT_EQ(f.view.countCalls("ShowWin"), end == "Win" ? 1 : 0);
    EXPECT_EQ(f.view.countCalls("ShowLose"), end == "Lose" ? 1 : 0);
    EXPECT_EQ(s.game_over, !end.empty());
    EXPECT_EQ(f.view.mainEnabled, end.empty());
}

INSTANTIATE_TEST_SUITE_P(Values, HeartMeter,
                         ::testing::Values(HeartCase{"seven_rounds_down", 7, 1, "7", ""},
                                           HeartCase{"eight_rounds_up", 8, 2, "8", ""},
                                           HeartCase{"ten_is_two_segments", 10, 2, "10", ""},
                                           HeartCase{"half_segment_goes_to_even", 50, 10, "50", ""},
                                           HeartCase{"twelve_and_a_half_percent_rounds_even", 2, 0, "2", ""},
                                           HeartCase{"ninety_nine_is_twenty", 99, 20, "99", ""},
                                           HeartCase{"hundred_wins", 100, 20, "100", "Win"},
                                           HeartCase{"past_the_top_shows_100_and_wins", 105, 20, "100", "Win"},
                                           HeartCase{"one_is_still_alive", 1, 0, "1", ""},
                                           HeartCase{"zero_loses", 0, 0, "0", "Lose"},
                                           HeartCase{"below_zero_shows_0_and_loses", -3, 0, "0", "Lose"}),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(HeartMeter, lossShowsTheStandingTextAfterDisablingTheMain)
{
    Fixture f;
    f.game.set_heart(-3);
    const std::vector<std::string> expected = {"SetHeartBar", "SetHeartLabel", "EnableMain", "ShowLose"};
    EXPECT_EQ(f.view.callNames(), expected);
    EXPECT_EQ(f.view.calls.back().args.at(0), ""); // empty: the screen keeps "Sorry Buddy ..."
}

TEST(HeartMeter, winFillsTheResultAndShowsTheThreeTexts)
{
    Fixture f;
    auto &s = f.game.state();
    s.day = 8;
    s.action_count = 40;
    s.spent_total = 355;
    f.game.set_heart(104);

    EXPECT_TRUE(s.game_over);
    EXPECT_EQ(s.result.result_score, 88028);
    EXPECT_EQ(s.result.result_name, "Tom");
    EXPECT_EQ(s.result.result_days, 8);
    EXPECT_EQ(s.result.result_spent, 355);
    EXPECT_FALSE(s.result.result_pending); // set only by the win screen's OK
    ASSERT_EQ(f.view.countCalls("ShowWin"), 1);
    const auto win = f.view.callsNamed("ShowWin").front();
    EXPECT_EQ(win.args, (std::vector<std::string>{"Total Money Spent $355", "Total Days 8", "Your Score : 88028"}));
    EXPECT_EQ(f.view.calls.at(f.view.calls.size() - 2).str(), "EnableMain(false)");
}

TEST(HeartMeter, endScreensFireOnlyOncePerGame)
{
    Fixture f;
    auto &s = f.game.state();
    s.action_count = 1;
    s.spent_total = 5;
    f.game.set_heart(100);
    f.game.set_heart(120);
    f.game.set_heart(-5); // a later penalty must not add a lose screen to a won game
    f.game.advance_days(40);
    EXPECT_EQ(f.view.countCalls("ShowWin"), 1);
    EXPECT_EQ(f.view.countCalls("ShowLose"), 0);
    EXPECT_EQ(f.view.heartLabel, "0"); // the meter still follows the heart
    EXPECT_EQ(f.view.dayLabel, "Day 41");
}

TEST(HeartMeter, theChecksLookAtTheStoredHeartNotTheArgument)
{
    Fixture f;
    f.game.state().heart = 50;
    f.game.display_heart(0); // a redraw with another number does not end the game
    EXPECT_EQ(f.view.heartLabel, "0");
    EXPECT_FALSE(f.game.state().game_over);
}

struct ScoreCase
{
    const char *name;
    int day, presses, spent;
    double score;
};

void PrintTo(const ScoreCase &c, std::ostream *os)
{
    *os << c.name;
}

class Score : public ::testing::TestWithParam<ScoreCase>
{
};

TEST_P(Score, isTenBillionOverDaysPressesAndSpendingTruncated)
{
    const ScoreCase c = GetParam();
    EXPECT_EQ(computeScore(static_cast<i16>(c.day), static_cast<i16>(c.presses), static_cast<i16>(c.spent)), c.score);
}

INSTANTIATE_TEST_SUITE_P(Examples, Score,
                         ::testing::Values(ScoreCase{"day8_40presses_355dollars", 8, 40, 355, 88028},
                                           ScoreCase{"seven_hundred_spent_needs_a_wide_product", 10, 50, 700, 28571},
                                           ScoreCase{"big_spender_over_a_month", 29, 300, 9000, 127},
                                           ScoreCase{"fastest_thinkable_win", 1, 1, 5, 2000000000},
                                           ScoreCase{"spending_past_16_bits_times_50", 3, 20, 32000, 5208}),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(Days, theThirtiethDayEndsTheGameWithTheMonthText)
{
    Fixture f;
    f.game.state().day = 28;
    f.game.advance_days(1);
    EXPECT_EQ(f.view.dayLabel, "Day 29");
    EXPECT_FALSE(f.game.state().game_over); // day 29 is still played

    f.view.clearCalls();
    f.game.advance_days(1);
    const std::vector<std::string> expected = {
        "SetDayLabel(Day 30)",
        "ShowLose( Hey Pal! you've been at it for a month. I think you should give up!!!)",
        "EnableMain(false)",
    };
    std::vector<std::string> got;
    for (const auto &c : f.view.calls)
        got.push_back(c.str());
    EXPECT_EQ(got, expected);
    EXPECT_TRUE(f.game.state().game_over);
}

struct MoneyCase
{
    const char *name;
    int before;
    int amount;
    int after;
    const char *label;
};

void PrintTo(const MoneyCase &c, std::ostream *os)
{
    *os << c.name;
}

class Money : public ::testing::TestWithParam<MoneyCase>
{
};

TEST_P(Money, changesTheBalanceAndItsLabel)
{
    const MoneyCase c = GetParam();
    Fixture f;
    f.game.state().money = static_cast<i16>(c.before);
    f.game.add_money(c.amount);
    EXPECT_EQ(f.game.state().money, c.after);
    EXPECT_EQ(f.view.moneyLabel, c.label);
}

INSTANTIATE_TEST_SUITE_P(Amounts, Money,
                         ::testing::Values(MoneyCase{"pay", 50, -5, 45, "Bank Balance: $45"},
                                           MoneyCase{"overdraw_keeps_the_minus_after_the_dollar", 3, -5, -2, "Bank Balance: $-2"},
                                           MoneyCase{"earn", 45, 300, 345, "Bank Balance: $345"},
                                           MoneyCase{"saturates_at_the_top_instead_of_wrapping", 32700, 300, 32767, "Bank Balance: $32767"},
                                           MoneyCase{"saturates_at_the_bottom", -32700, -300, -32768, "Bank Balance: $-32768"}),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(Stats, barsShowRoundedRatingsWithSmartPlusTenAndTheSpentLabel)
{
    Fixture f;
    auto &p = f.game.state().player;
    p.looks = 54.5;  // half to even: 54
    p.smart = 71.5;  // 81.5 -> 82
    p.luck = 52;
    f.game.state().spent_total = 135;
    f.game.updatestats();
    EXPECT_EQ(f.view.calls.at(0).str(), "SetStatBars(54|82|52)");
    EXPECT_EQ(f.view.calls.at(1).str(), "SetSpentLabel($135)");
}

} // namespace
