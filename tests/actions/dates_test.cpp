#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

using Dates = PlayFixture;

const char *const kDinner = "\\sounds\\dinner.wav";

TEST_F(Dates, herOpinionAndHisLuckDrawTheOutcomeAndHisLooksAddToEveryGain)
{
    struct Row
    {
        const char *name;
        int place; // 1..11
        const char *opinion;
        int luck, heart;
        double looks;
        std::vector<double> draws; // after the speeding-fine draw
        int heartAfter;
        std::string talk;
        std::vector<std::string> sounds;
    };
    const Row table[] = {
        // 10 + 5 + 50 x 0.05 = 17.5 is stored as 18, and so is 18.5.
        {"looks share rounds half to even, up", 1, "n", 50, 10, 50, {pick(1, 8)}, 18, " Did you enjoy the dinner?\r\nLisa: Yeah, it was Good....", {kDinner}},
        {"looks share rounds half to even, down", 1, "n", 50, 11, 50, {pick(1, 8)}, 18, " Did you enjoy the dinner?\r\nLisa: Yeah, it was Good....", {kDinner}},
        {"a place she likes draws among the good three", 1, "+", 0, 30, 50, {pick(3, 3)}, 48, " Did you enjoy the dinner?\r\nLisa: Yeah, it was Fabulous ....", {kDinner}},
        {"luck 100 narrows the draw to three", 3, "n", 100, 30, 0, {kCalm}, 36, " Did you have fun today?\r\nLisa: Yeah, I never had so much Fun ....", {"\\sounds\\birds.wav"}},
        {"luck 0 widens it to thirteen", 3, "n", 0, 30, 0, {pick(13, 13)}, 31, " Did you have fun today?\r\nLisa: Yeah, it was OK....", {"\\sounds\\birds.wav"}},
        // luck 51: Int(4.9) + 3 = 7 outcomes, so 0.42 draws r = 3 (with 8 it would be 4).
        {"the spread takes the whole part", 6, "n", 51, 30, 0, {0.42}, 38, " Did you enjoy that?\r\nLisa: Yeah, I never had so much Fun ....", {"\\sounds\\bowling.wav"}},
        {"pizza plays nothing", 5, "n", 50, 20, 0, {pick(2, 8)}, 24, " How was that?\r\nLisa: Yeah, it was really Good....", {}},
        {"a concert she hates loses eight whatever his luck", 7, "-", 100, 30, 100, {}, 22, " Did you like the Concert?\r\nLisa: No. I told you I hate hard rock.", {"\\sounds\\rock.wav"}},
        {"a concert she loves", 7, "+", 50, 30, 50, {pick(3, 3)}, 51, " Did you like the Concert?\r\nLisa: Yeah, it was Great, I really enjoyed it  ....", {"\\sounds\\rock.wav"}},
        {"a movie she dislikes always loses seven", 2, "-", 100, 30, 100, {pick(4, 7)}, 23, " Did you like the movie?\r\nLisa: No. I told you I don't like these kind of movies!", {"\\sounds\\movie4.wav"}},
        {"movie outcome three names him", 2, "n", 50, 30, 50, {pick(7, 7), pick(3, 4)}, 42, " Did you like the movie?\r\nLisa: I loved it!!!! You have good taste Tom.", {"\\sounds\\movie7.wav"}},
        {"movie outcome four loses five", 2, "+", 0, 30, 100, {pick(1, 7), pick(4, 4)}, 25, " Did you like the movie?\r\nLisa: That movie was Bad!!! I don't know why you wanted to watch it!", {"\\sounds\\movie1.wav"}},
    };
    for (const Row &c : table) {
        SCOPED_TRACE(c.name);
        newGame();
        state().player.luck = static_cast<i16>(c.luck);
        state().player.looks = c.looks;
        state().heart = static_cast<i16>(c.heart);
        state().money = 500;
        state().places[c.place].extra = c.opinion;
        calm(3);
        onTakeHerOut(game);
        for (double d : c.draws)
            random.push(d);
        view.clearCalls();
        choose(c.place - 1);

        EXPECT_EQ(state().heart, c.heartAfter);
        EXPECT_EQ(view.heartLabel, std::to_string(c.heartAfter));
        EXPECT_EQ(view.talk, "Tom:" + c.talk);
        EXPECT_EQ(sounds(), c.sounds);
        EXPECT_TRUE(view.rows.empty());
        expectDrawsUsedUp();
    }
}

// Fewer than three days between two dates at one place bore her; the
// sigh comes after the place's own sound and before the movie's.
TEST_F(Dates, aPlaceRepeatedWithinThreeDaysBoresHer)
{
    struct Row
    {
        const char *name;
        int place, lastVisit; // the date makes it day 11
        bool boring;
        std::vector<std::string> sounds;
        int heartAfter; // the date's gain comes at once, the penalty with the OK
    };
    const char *const sigh = "\\sounds\\sigh.wav";
    const Row table[] = {
        {"first visit ever", 1, -3, false, {kDinner}, 14},
        {"three days apart is fine", 1, 8, false, {kDinner}, 14},
        {"two days apart bores her", 1, 9, true, {kDinner, sigh}, 14},
        {"the movie plays after the complaint", 2, 10, true, {sigh, "\\sounds\\movie5.wav"}, 7},
    };
    for (const Row &c : table) {
        SCOPED_TRACE(c.name);
        newGame();
        state().money = 500;
        game.advance_days(9);
        state().last_visit[c.place] = static_cast<i16>(c.lastVisit);
        calm(2);
        onTakeHerOut(game);
        random.push({kCalm, pick(5, 7), pick(1, 4)}); // the dinner takes two of these
        view.clearCalls();
        choose(c.place - 1);

        EXPECT_EQ(calls({"ShowNotice"}), c.boring ? std::vector<std::string>{"ShowNotice(Boring|Lisa: You are getting a bit BORING!! we do the samething alot)"}
                                                  : std::vector<std::string>{});
        EXPECT_EQ(view.mainEnabled, !c.boring);
        EXPECT_EQ(sounds(), c.sounds);
        EXPECT_EQ(state().last_visit[c.place], 11);
        EXPECT_EQ(state().heart, c.heartAfter);
    }
}

} // namespace
