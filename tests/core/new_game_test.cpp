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

    void SetUp() override { game.setSetup({"  Tom  ", 60, 45, 45}); }

    std::vector<std::string> calls() const
    {
        std::vector<std::string> out;
        for (const auto &c : view.calls)
            out.push_back(c.str());
        return out;
    }
};

TEST_F(NewGame, restartWithANewGirlDrawsPictureNameAndThresholdInThatOrder)
{
    random.push({pick(7, 11), pick(2, 10), pick(1, 15)});
    startFirstGame(game);

    const auto &s = game.state();
    EXPECT_EQ(s.girl.Gname, "Lisa");
    EXPECT_EQ(s.girl.askout_need, 21);
    EXPECT_EQ(s.player.player_name, "Tom"); // trimmed
    EXPECT_EQ(s.player.looks, 60);
    EXPECT_EQ(s.player.smart, 35); // held 10 below the slider
    EXPECT_EQ(s.player.luck, 45);
    EXPECT_FALSE(random.overrun);
    EXPECT_EQ(random.remaining(), 0u);

    const std::vector<std::string> expected = {
        "EnableTakeHerOut(false)",
        "SetFace(girl7.bmp|Hi Tom)",
        "SetTalk()",
        "SetHeartBar(2)",
        "SetHeartLabel(10)",
        "SetDayLabel(Day 1)",
        "SetMoneyLabel(Bank Balance: $50)",
        "ClearList()",
        "SetListTip()",
        "SetStatBars(60|45|45)",
        "SetSpentLabel($0)",
    };
    EXPECT_EQ(calls(), expected);
}

TEST_F(NewGame, thresholdCoversTwentyOneToThirtyFive)
{
    random.push({pick(1, 11), pick(10, 10), pick(15, 15)});
    game.Restart(true);
    EXPECT_EQ(game.state().girl.Gname, "Naomi");
    EXPECT_EQ(game.state().girl.askout_need, 35);
}

TEST_F(NewGame, playAgainKeepsHerButResetsTheGame)
{
    random.push({pick(3, 11), pick(4, 10), pick(5, 15)});
    game.Restart(true);
    auto &s = game.state();
    // Play a little: everything below must be undone, except the two survivors.
    s.heart = 77;
    s.money = 999;
    s.day = 12;
    s.spent_total = 300;
    s.gift_spent = 200;
    s.action_count = 33;
    s.call_questions = 2;
    s.work_streak = 2;
    s.job_open[3] = true;
    s.last_visit[4] = 9;
    s.date_agreed = true;
    s.sound_on = false;
    s.game_over = true;
    s.places[4].extra = "+";
    s.gifts[2].extra = "-";
    s.questions[5].asked = true;
    s.player.looks = 88.25;
    s.result = {true, "Tom", 1234, 5, 60};

    view.clearCalls();
    random.push(pick(9, 15));
    playAgainFromMenu(game);

    EXPECT_EQ(s.girl.Gname, "Kate");
    EXPECT_EQ(view.countCalls("SetFace"), 0); // her picture stays
    EXPECT_EQ(s.girl.askout_need, 29);       // redrawn even for the same girl
    EXPECT_EQ(s.heart, 10);
    EXPECT_EQ(s.money, 50);
    EXPECT_EQ(s.day, 1);
    EXPECT_EQ(s.spent_total, 0);
    EXPECT_EQ(s.gift_spent, 0);
    EXPECT_EQ(s.action_count, 0);
    EXPECT_EQ(s.call_questions, 0);
    EXPECT_EQ(s.last_visit[4], -3);
    EXPECT_EQ(s.boring_gap, 3);
    EXPECT_FALSE(s.date_agreed);
    EXPECT_TRUE(s.sound_on);
    EXPECT_FALSE(s.game_over);
    EXPECT_EQ(s.places[4].extra, "n");
    EXPECT_EQ(s.gifts[2].extra, "n");
    EXPECT_FALSE(s.questions[5].asked);
    EXPECT_EQ(s.player.looks, 60); // purchases are gone: the sliders are read again
    EXPECT_FALSE(s.result.result_pending);
    EXPECT_EQ(s.result.result_name, "");
    EXPECT_EQ(s.result.result_score, 0);
    // These two carry over into the next game.
    EXPECT_EQ(s.work_streak, 2);
    EXPECT_TRUE(s.job_open[3]);
    // The menu item ends by disabling "Take Her Out" once more.
    EXPECT_EQ(view.calls.back().str(), "EnableTakeHerOut(false)");
}

TEST_F(NewGame, gameOverDialogOkLeavesTheEndedGameOnScreen)
{
    random.push({pick(1, 11), pick(1, 10), pick(1, 15)});
    game.Restart(true);
    game.state().game_over = true;
    game.state().heart = 0;
    view.clearCalls();
    gameOverOk(game);
    EXPECT_EQ(calls(), (std::vector<std::string>{"EnableMain(true)", "FocusMain()"}));
    EXPECT_TRUE(game.state().game_over);
    EXPECT_EQ(game.state().heart, 0);
}

TEST_F(NewGame, gameOverDialogPlayAgainStartsTheSameGirlAfresh)
{
    random.push({pick(1, 11), pick(6, 10), pick(1, 15)});
    game.Restart(true);
    game.state().game_over = true;
    view.clearCalls();
    random.push(pick(2, 15));
    gameOverPlayAgain(game);
    const auto got = calls();
    ASSERT_GE(got.size(), 3u);
    EXPECT_EQ(got.front(), "EnableMain(true)");
    EXPECT_EQ(got.back(), "FocusMain()");
    EXPECT_EQ(got.at(got.size() - 2), "SetSpentLabel($0)"); // updatestats ran after Restart
    EXPECT_FALSE(game.state().game_over);
    EXPECT_EQ(game.state().girl.Gname, "Julia");
}

TEST(Sound, theCheckMarkDecidesTheDirection)
{
    GameState s;
    s.sound_on = true;
    EXPECT_FALSE(toggleSoundItem(s, true));
    EXPECT_FALSE(s.sound_on);
    EXPECT_TRUE(toggleSoundItem(s, false));
    EXPECT_TRUE(s.sound_on);
    // Out of step after a new game turned sound back on: the mark still decides.
    s.sound_on = true;
    EXPECT_TRUE(toggleSoundItem(s, false));
    EXPECT_TRUE(s.sound_on);
}

TEST(Sound, playsOnlyWhileSwitchedOn)
{
    RecordingView view;
    ScriptedRandom random;
    Game game(view, random);
    game.state().sound_on = true;
    game.play_sound("\\sounds\\car.wav");
    game.play_sound("\\sounds\\cat.wav", SoundMode::Wait);
    game.state().sound_on = false;
    game.play_sound("\\sounds\\kiss.wav");
    EXPECT_EQ(view.countCalls("PlaySound"), 2);
    EXPECT_EQ(view.calls.at(1).str(), "PlaySound(\\sounds\\cat.wav|Wait)");
}

struct PathCase
{
    const char *name;
    const char *dir;
    const char *path;
    const char *full;
};

void PrintTo(const PathCase &c, std::ostream *os)
{
    *os << c.name;
}

class SoundPath : public ::testing::TestWithParam<PathCase>
{
};

TEST_P(SoundPath, isTheProgramFolderFollowedByTheGamePath)
{
    const auto c = GetParam();
    EXPECT_EQ(soundFilePath(c.dir, c.path), c.full);
}

INSTANTIATE_TEST_SUITE_P(Folders, SoundPath,
                         ::testing::Values(PathCase{"plain", "/opt/amorra", "\\sounds\\car.wav", "/opt/amorra/sounds/car.wav"},
                                           PathCase{"trailing_separator", "/opt/amorra/", "\\sounds\\kiss.wav", "/opt/amorra/sounds/kiss.wav"},
                                           PathCase{"root_folder_gives_no_double_slash", "/", "\\sounds\\cat.wav", "/sounds/cat.wav"},
                                           PathCase{"movie_number", "/g", "\\sounds\\movie7.wav", "/g/sounds/movie7.wav"}),
                         [](const auto &info) { return std::string(info.param.name); });

} // namespace
