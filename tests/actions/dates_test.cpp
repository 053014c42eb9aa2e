#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

using Dates = PlayFixture;

// Her stated opinion and his luck draw the outcome, his looks add their share
// to every gain. A place visited again while its last visit is more than
// day - 3 bores her: the sigh comes after the place's own sound and before
// the movie's, and her penalty only with the notice's OK.
TEST_F(Dates, herOpinionHisLuckAndHisLooksDecideTheDate)
{
    struct Row { const char *name; int place; const char *opinion; int luck, heart, lastVisit; double looks; std::vector<double> draws; int heartAfter; const char *talk; Strings sounds; };
    const char *const dinner = "\\sounds\\dinner.wav", *const sigh = "\\sounds\\sigh.wav";
    const Row table[] = {
        // 10 + 5 + 50 x 0.05 = 17.5 is stored as 18, and so is 18.5.
        {"looks share rounds half to even, up", 1, "n", 50, 10, -3, 50, {pick(1, 8)}, 18, " Did you enjoy the dinner?\r\nLisa: Yeah, it was Good....", {dinner}},
        {"looks share rounds half to even, down", 1, "n", 50, 11, -3, 50, {pick(1, 8)}, 18, " Did you enjoy the dinner?\r\nLisa: Yeah, it was Good....", {dinner}},
        {"a place she likes draws among the good three", 1, "+", 0, 30, -3, 50, {pick(3, 3)}, 48, " Did you enjoy the dinner?\r\nLisa: Yeah, it was Fabulous ....", {dinner}},
        {"luck 100 narrows the draw to three", 3, "n", 100, 30, -3, 0, {kCalm}, 36, " Did you have fun today?\r\nLisa: Yeah, I never had so much Fun ....", {"\\sounds\\birds.wav"}},
        {"luck 0 widens it to thirteen", 3, "n", 0, 30, -3, 0, {pick(13, 13)}, 31, " Did you have fun today?\r\nLisa: Yeah, it was OK....", {"\\sounds\\birds.wav"}},
        // luck 51: Int(4.9) + 3 = 7 outcomes, so 0.42 draws r = 3 (with 8 it would be 4).
        {"the spread takes the whole part", 6, "n", 51, 30, -3, 0, {0.42}, 38, " Did you enjoy that?\r\nLisa: Yeah, I never had so much Fun ....", {"\\sounds\\bowling.wav"}},
        {"pizza plays nothing", 5, "n", 50, 20, -3, 0, {pick(2, 8)}, 24, " How was that?\r\nLisa: Yeah, it was really Good....", {}},
        {"a concert she hates loses eight whatever his luck", 7, "-", 100, 30, -3, 100, {}, 22, " Did you like the Concert?\r\nLisa: No. I told you I hate hard rock.", {"\\sounds\\rock.wav"}},
        {"a concert she loves", 7, "+", 50, 30, -3, 50, {pick(3, 3)}, 51, " Did you like the Concert?\r\nLisa: Yeah, it was Great, I really enjoyed it  ....", {"\\sounds\\rock.wav"}},
        {"a movie she dislikes always loses seven", 2, "-", 100, 30, -3, 100, {pick(4, 7)}, 23, " Did you like the movie?\r\nLisa: No. I told you I don't like these kind of movies!", {"\\sounds\\movie4.wav"}},
        {"movie outcome three names him", 2, "n", 50, 30, -3, 50, {pick(7, 7), pick(3, 4)}, 42, " Did you like the movie?\r\nLisa: I loved it!!!! You have good taste Tom.", {"\\sounds\\movie7.wav"}},
        {"movie outcome four loses five", 2, "+", 0, 30, 0, 100, {pick(1, 7), pick(4, 4)}, 25, " Did you like the movie?\r\nLisa: That movie was Bad!!! I don't know why you wanted to watch it!", {sigh, "\\sounds\\movie1.wav"}},
        {"three days after the last visit is fine", 1, "n", 50, 30, -1, 0, {pick(8, 8)}, 33, " Did you enjoy the dinner?\r\nLisa: Yeah, it was OK....", {dinner}},
        {"two days after it bores her", 1, "n", 50, 30, 0, 0, {pick(8, 8)}, 33, " Did you enjoy the dinner?\r\nLisa: Yeah, it was OK....", {dinner, sigh}},
    };
    for (const Row &c : table) {
        SCOPED_TRACE(c.name);
        auto &s = newGame(c.heart, 500, c.looks, c.luck);
        s.places[c.place].extra = c.opinion;
        s.last_visit[c.place] = static_cast<i16>(c.lastVisit);
        calm(3);
        onTakeHerOut(game);
        for (const double d : c.draws)
            random.push(d);
        view.clearCalls();
        choose(c.place - 1); // on day 1, which the date makes day 2

        const bool boring = c.lastVisit > -1;
        EXPECT_EQ(s.heart, c.heartAfter);
        EXPECT_EQ(view.heartLabel, std::to_string(c.heartAfter));
        EXPECT_EQ(view.talk, std::string("Tom:") + c.talk);
        EXPECT_EQ(sounds(), c.sounds);
        EXPECT_EQ(calls({"ShowNotice"}), boring ? Strings{"ShowNotice(Boring|Lisa: You are getting a bit BORING!! we do the samething alot)"} : Strings{});
        EXPECT_EQ(view.mainEnabled, !boring);
        EXPECT_EQ(s.last_visit[c.place], 2);
        EXPECT_TRUE(view.rows.empty());
        expectDrawsUsedUp();
    }
}

} // namespace
