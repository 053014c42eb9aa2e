#include "core/game.h"
#include "core/game_flow.h"
#include "core/numbers.h"
#include "support/scripted_random.h"
#include "view/recording_view.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

using namespace amorra;
using amorra::testing::pick;
using Strings = std::vector<std::string>;

namespace {

// The game with the setup screen filled in; the heart, day and money rules
// run on it without Restart's draws.
struct Core : ::testing::Test
{
    RecordingView view;
    amorra::testing::ScriptedRandom random;
    Game game{view, random};
    GameState &s = game.state();

    void SetUp() override
    {
        game.setSetup({"  Tom  ", 60, 45, 45});
        s.player.player_name = "Tom";
        s.day = 1;
    }
};

// h/5 segments rounded, the number kept within 0..100; 100 or more wins, 0 or less loses.
TEST_F(Core, theHeartMeterShowsSegmentsNumberAndEndScreen)
{
    struct Row { int heart, lit; const char *label, *end; };
    const Row table[] = {{7, 1, "7", ""},        {8, 2, "8", ""},         {1, 0, "1", ""},           {99, 20, "99", ""},
                         {100, 20, "100", "Win"}, {105, 20, "100", "Win"}, {0, 0, "0", "Lose"}, {-3, 0, "0", "Lose"}};
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

// The score is 10000000000 / (days x presses x spent), truncated; a win
// hands it on with the name, days and money, and shows the three figures.
TEST_F(Core, aWinIsScoredAndFillsTheResult)
{
    // 700 x 50 and 32000 x 50 need more than 16 bits.
    const int table[][4] = {{8, 40, 355, 88028}, {10, 50, 700, 28571}, {29, 300, 9000, 127}, {1, 1, 5, 2000000000}, {3, 20, 32000, 5208}};
    for (const auto &[day, presses, spent, score] : table) {
        SCOPED_TRACE(score);
        s.game_over = false;
        s.day = static_cast<i16>(day);
        s.action_count = static_cast<i16>(presses);
        s.spent_total = static_cast<i16>(spent);
        game.set_heart(104);
        EXPECT_EQ(s.result.result_score, score);
        EXPECT_EQ(s.result.result_days, day);
        EXPECT_EQ(s.result.result_spent, spent);
        EXPECT_EQ(view.calls.back().str(), "ShowWin(Total Money Spent $" + std::to_string(spent) + "|Total Days " + std::to_string(day) +
                                               "|Your Score : " + std::to_string(score) + ")");
    }
    EXPECT_EQ(s.result.result_name, "Tom");
    EXPECT_FALSE(s.result.result_pending); // set only by the win screen's OK
}

// The game ends as the 30th day begins; once over, the meter and the day go
// on but nothing ends it again.
TEST_F(Core, theThirtiethDayEndsTheGameAndNothingEndsItTwice)
{
    s.day = 28;
    game.advance_days(1);
    EXPECT_FALSE(s.game_over); // day 29 is still played
    game.advance_days(1);
    EXPECT_TRUE(s.game_over);
    EXPECT_FALSE(view.mainEnabled);
    EXPECT_EQ(view.callsNamed("ShowLose").at(0).args.at(0), " Hey Pal! you've been at it for a month. I think you should give up!!!");
    s.action_count = s.spent_total = 1;
    for (const int heart : {100, -5})
        game.set_heart(heart);
    game.advance_days(1);
    EXPECT_EQ(view.countCalls("ShowWin") + view.countCalls("ShowLose"), 1);
    EXPECT_EQ(view.heartLabel, "0");
    EXPECT_EQ(view.dayLabel, "Day 31");
}

// The balance keeps its minus sign after the dollar and stops at the ends of 16 bits.
TEST_F(Core, moneyChangesTheBalanceAndItsLabel)
{
    const int table[][3] = {{3, -5, -2}, {45, 300, 345}, {32700, 300, 32767}, {-32700, -300, -32768}};
    for (const auto &c : table) {
        s.money = static_cast<i16>(c[0]);
        game.add_money(c[1]);
        EXPECT_EQ(s.money, c[2]);
        EXPECT_EQ(view.moneyLabel, "Bank Balance: $" + std::to_string(c[2]));
    }
}

// Formulas round halves to even and stop at the ends of 16 bits.
TEST(Numbers, roundingToSixteenBits)
{
    const std::pair<double, int> table[] = {{2.5, 2},         {3.5, 4},           {-2.5, -2},         {0.49, 0},
                                            {32767.4, 32767}, {40000.0, 32767},   {-32768.4, -32768}, {-1e9, -32768},
                                            {std::nan(""), 0}};
    for (const auto &[value, rounded] : table) {
        SCOPED_TRACE(value);
        EXPECT_EQ(roundTo16(value), rounded);
    }
}

TEST_F(Core, theFirstGameDrawsHerAndStartsFromTheSetup)
{
    struct Row { int picture, name, need; const char *face, *girl; };
    const Row table[] = {{7, 2, 1, "girl7.bmp", "Lisa"}, {1, 10, 15, "girl1.bmp", "Naomi"}, {11, 1, 8, "girl11.bmp", "Samantha"}};
    for (const Row &c : table) {
        SCOPED_TRACE(c.girl);
        random.push({pick(c.picture, 11), pick(c.name, 10), pick(c.need, 15)});
        startFirstGame(game);
        EXPECT_EQ(view.facePicture, c.face);
        EXPECT_EQ(s.girl.Gname, c.girl);
        EXPECT_EQ(s.girl.askout_need, 20 + c.need);
        EXPECT_FALSE(random.overrun || random.remaining());
    }
    EXPECT_EQ(view.faceTooltip, "Hi Tom"); // the name trimmed
    EXPECT_EQ(s.player.smart, 35);         // held 10 below the slider
    EXPECT_EQ(std::vector<int>({view.looksBar, view.brainsBar, view.luckBar, view.heartLit}), std::vector<int>({60, 45, 45, 2}));
    EXPECT_EQ(std::vector<std::string>({view.heartLabel, view.dayLabel, view.moneyLabel, view.spentLabel}),
              std::vector<std::string>({"10", "Day 1", "Bank Balance: $50", "$0"}));
    EXPECT_FALSE(view.takeHerOutEnabled);
}

// "Play Again" from the menu or from the game-over dialog keeps her and her
// picture but starts the game afresh from the setup screen.
TEST_F(Core, playingAgainKeepsHerButStartsTheGameAfresh)
{
    const std::pair<void (*)(Game &), Strings> table[] = {{playAgainFromMenu, {"EnableTakeHerOut(false)", "EnableTakeHerOut(false)"}},
                                                          {gameOverPlayAgain, {"EnableMain(true)", "FocusMain()"}}};
    random.push({pick(3, 11), pick(4, 10), pick(5, 15)});
    game.Restart(true);
    for (const auto &[playAgain, bracket] : table) {
        // Play a little: everything below must be undone, except the two survivors.
        s.heart = s.money = s.day = s.spent_total = s.gift_spent = s.action_count = s.call_questions = s.work_streak = s.boring_gap = 2;
        s.job_open[3] = s.date_agreed = s.game_over = s.questions[5].asked = true;
        s.sound_on = false;
        s.last_visit[4] = 9;
        s.places[4].extra = s.gifts[2].extra = "+";
        s.player.looks = 88.25;
        s.result = {true, "Tom", 1234, 5, 60};
        view = RecordingView();
        random.push(pick(9, 15));
        playAgain(game);
        EXPECT_EQ(Strings({view.calls.front().str(), view.calls.back().str()}), bracket);
        EXPECT_EQ(view.spentLabel, "$0"); // the bars are redrawn for the new game
        EXPECT_EQ(s.girl.Gname, "Kate");
        EXPECT_EQ(view.countCalls("SetFace"), 0); // her picture stays
        EXPECT_EQ(s.girl.askout_need, 29);       // redrawn even for the same girl
        EXPECT_EQ(std::vector<int>({s.heart, s.money, s.day, s.spent_total, s.gift_spent, s.action_count, s.call_questions, s.last_visit[4], s.boring_gap}),
                  std::vector<int>({10, 50, 1, 0, 0, 0, 0, -3, 3}));
        EXPECT_FALSE(s.date_agreed || s.game_over || s.questions[5].asked || s.result.result_pending || !s.sound_on);
        EXPECT_EQ(s.places[4].extra + s.gifts[2].extra + s.result.result_name, "nn");
        EXPECT_EQ(s.player.looks, 60); // purchases are gone: the sliders are read again
        EXPECT_EQ(s.result.result_score, 0);
        EXPECT_TRUE(s.work_streak == 2 && s.job_open[3]); // these two carry over
    }
    s.game_over = true;
    view = RecordingView();
    gameOverOk(game); // the dialog's OK gives the main screen back to the ended game
    EXPECT_EQ(view.callNames(), Strings({"EnableMain", "FocusMain"}));
    EXPECT_TRUE(s.game_over);
}

// The menu's check mark decides the direction, also when it is out of step
// after a new game turned sound back on; a game sound is found in the
// program's folder.
TEST(Sound, followsTheCheckMarkAndIsFoundInTheProgramFolder)
{
    GameState s;
    for (const auto &[on, checked] : {std::pair{true, true}, {false, false}, {true, false}}) {
        s.sound_on = on;
        EXPECT_EQ(toggleSoundItem(s, checked), !checked);
        EXPECT_EQ(s.sound_on, !checked);
    }
    const char *const table[][3] = {{"/opt/amorra", "\\sounds\\car.wav", "/opt/amorra/sounds/car.wav"},
                                    {"/opt/amorra/", "\\sounds\\kiss.wav", "/opt/amorra/sounds/kiss.wav"},
                                    {"/", "\\sounds\\cat.wav", "/sounds/cat.wav"},
                                    {"/g", "sounds\\movie7.wav", "/g/sounds/movie7.wav"}};
    for (const auto &c : table)
        EXPECT_EQ(soundFilePath(c[0], c[1]), c[2]) << c[0];
}

} // namespace
