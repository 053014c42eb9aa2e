#include "core/game.h"
#include "core/game_flow.h"
#include "support/scripted_random.h"
#include "view/recording_view.h"

#include <gtest/gtest.h>

using namespace amorra;
using amorra::testing::pick;
using amorra::testing::ScriptedRandom;

namespace {

struct NewGame : ::testing::Test
{
    RecordingView view;
    ScriptedRandom random;
    Game game{view, random};
    GameState &s = game.state();

    void SetUp() override { game.setSetup({"  Tom  ", 60, 45, 45}); }
};

// Her picture, her name and her threshold are drawn in that order.
TEST_F(NewGame, theFirstGameDrawsHerAndStartsFromTheSetup)
{
    struct Row
    {
        int picture, name, need;
        const char *face, *girl;
    };
    const Row table[] = {{7, 2, 1, "girl7.bmp", "Lisa"}, {1, 10, 15, "girl1.bmp", "Naomi"}, {11, 1, 8, "girl11.bmp", "Samantha"}};
    for (const Row &c : table) {
        SCOPED_TRACE(c.girl);
        random.push({pick(c.picture, 11), pick(c.name, 10), pick(c.need, 15)});
        startFirstGame(game);
        EXPECT_EQ(view.facePicture, c.face);
        EXPECT_EQ(view.faceTooltip, "Hi Tom");
        EXPECT_EQ(s.girl.Gname, c.girl);
        EXPECT_EQ(s.girl.askout_need, 20 + c.need);
        EXPECT_FALSE(random.overrun);
        EXPECT_EQ(random.remaining(), 0u);
    }
    EXPECT_EQ(s.player.player_name, "Tom"); // trimmed
    EXPECT_EQ(s.player.looks, 60);
    EXPECT_EQ(s.player.smart, 35); // held 10 below the slider
    EXPECT_EQ(view.looksBar, 60);
    EXPECT_EQ(view.brainsBar, 45);
    EXPECT_EQ(view.luckBar, 45);
    EXPECT_EQ(view.heartLabel, "10");
    EXPECT_EQ(view.heartLit, 2);
    EXPECT_EQ(view.dayLabel, "Day 1");
    EXPECT_EQ(view.moneyLabel, "Bank Balance: $50");
    EXPECT_EQ(view.spentLabel, "$0");
    EXPECT_FALSE(view.takeHerOutEnabled);
}

TEST_F(NewGame, playAgainKeepsHerButStartsTheGameAfresh)
{
    random.push({pick(3, 11), pick(4, 10), pick(5, 15), pick(9, 15)});
    game.Restart(true);
    // Play a little: everything below must be undone, except the two survivors.
    s.heart = 77;
    s.money = 999;
    s.day = 12;
    s.spent_total = s.gift_spent = s.action_count = s.call_questions = s.work_streak = 2;
    s.job_open[3] = s.date_agreed = s.game_over = true;
    s.sound_on = false;
    s.last_visit[4] = 9;
    s.places[4].extra = s.gifts[2].extra = "+";
    s.questions[5].asked = true;
    s.player.looks = 88.25;
    s.result = {true, "Tom", 1234, 5, 60};
    view.takeHerOutEnabled = true;
    view.clearCalls();
    playAgainFromMenu(game);

    EXPECT_EQ(s.girl.Gname, "Kate");
    EXPECT_EQ(view.countCalls("SetFace"), 0); // her picture stays
    EXPECT_EQ(s.girl.askout_need, 29);       // redrawn even for the same girl
    EXPECT_EQ(std::vector<int>({s.heart, s.money, s.day, s.spent_total, s.gift_spent, s.action_count, s.call_questions, s.last_visit[4]}),
              std::vector<int>({10, 50, 1, 0, 0, 0, 0, -3}));
    EXPECT_EQ(s.boring_gap, 3);
    EXPECT_FALSE(s.date_agreed || s.game_over || s.questions[5].asked || s.result.result_pending);
    EXPECT_TRUE(s.sound_on);
    EXPECT_EQ(s.places[4].extra + s.gifts[2].extra, "nn");
    EXPECT_EQ(s.player.looks, 60); // purchases are gone: the sliders are read again
    EXPECT_EQ(s.result.result_name, "");
    EXPECT_EQ(s.result.result_score, 0);
    EXPECT_FALSE(view.takeHerOutEnabled);
    // These two carry over into the next game.
    EXPECT_EQ(s.work_streak, 2);
    EXPECT_TRUE(s.job_open[3]);
}

TEST_F(NewGame, theGameOverDialogLeavesTheEndedGameOrPlaysAgain)
{
    random.push({pick(1, 11), pick(6, 10), pick(1, 15), pick(2, 15)});
    game.Restart(true);
    s.game_over = true;
    s.heart = 0;
    view.clearCalls();
    gameOverOk(game);
    EXPECT_EQ(view.callNames(), (std::vector<std::string>{"EnableMain", "FocusMain"}));
    EXPECT_TRUE(view.mainEnabled);
    EXPECT_TRUE(s.game_over);
    EXPECT_EQ(s.heart, 0);

    view.mainEnabled = false;
    view.clearCalls();
    gameOverPlayAgain(game);
    EXPECT_EQ(view.calls.front().str(), "EnableMain(true)");
    EXPECT_EQ(view.calls.back().str(), "FocusMain()");
    EXPECT_EQ(view.calls.at(view.calls.size() - 2).str(), "SetSpentLabel($0)"); // the bars are redrawn after the new game
    EXPECT_FALSE(s.game_over);
    EXPECT_EQ(s.heart, 10);
    EXPECT_EQ(s.girl.Gname, "Julia");
}

TEST(Sound, theCheckMarkDecidesTheDirection)
{
    GameState s;
    // The last pair is out of step after a new game turned sound back on.
    for (const auto &[on, checked] : {std::pair{true, true}, {false, false}, {true, false}}) {
        s.sound_on = on;
        EXPECT_EQ(toggleSoundItem(s, checked), !checked);
        EXPECT_EQ(s.sound_on, !checked);
    }
}

TEST(Sound, aGamePathIsFoundInTheProgramFolder)
{
    const char *const table[][3] = {{"/opt/amorra", "\\sounds\\car.wav", "/opt/amorra/sounds/car.wav"},
                                    {"/opt/amorra/", "\\sounds\\kiss.wav", "/opt/amorra/sounds/kiss.wav"},
                                    {"/", "\\sounds\\cat.wav", "/sounds/cat.wav"},
                                    {"/g", "sounds\\movie7.wav", "/g/sounds/movie7.wav"}};
    for (const auto &c : table) {
        SCOPED_TRACE(c[0]);
        EXPECT_EQ(soundFilePath(c[0], c[1]), c[2]);
    }
}

} // namespace
