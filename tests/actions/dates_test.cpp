#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

struct Dates : PlayFixture
{
    // "Take Her Out" pressed with no event; the date itself is up to the test.
    void atHerDoor(int luck = 50, double looks = 50, int heart = 30, int money = 500)
    {
        newGame();
        auto &s = state();
        s.player.luck = static_cast<i16>(luck);
        s.player.looks = looks;
        s.heart = static_cast<i16>(heart);
        s.money = static_cast<i16>(money);
        random.push({kCalm, kCalm});
        onTakeHerOut(game);
        view.clearCalls();
    }
};

struct DateCase
{
    const char *name;
    int place; // 1..11
    const char *opinion;
    int luck;
    double looks;
    int heart;
    std::vector<double> draws; // after the speeding-fine draw
    int heartAfter;
    const char *question;
    std::string answer;
    std::vector<std::string> sounds;
};

void PrintTo(const DateCase &c, std::ostream *os)
{
    *os << c.name;
}

struct DateOutcomes : Dates, ::testing::WithParamInterface<DateCase>
{
};

TEST_P(DateOutcomes, changeHerHeartAndGiveHerAnswer)
{
    const DateCase c = GetParam();
    atHerDoor(c.luck, c.looks, c.heart);
    state().places[c.place].extra = c.opinion;
    random.push(kCalm);
    for (double d : c.draws)
        random.push(d);

    choose(c.place - 1);

    EXPECT_EQ(state().heart, c.heartAfter);
    EXPECT_EQ(view.talk, std::string("Tom:") + c.question + "\r\nLisa:" + c.answer);
    EXPECT_EQ(sounds(), c.sounds);
    EXPECT_TRUE(view.rows.empty());
    EXPECT_FALSE(view.okShown);
    expectDrawsUsedUp();
}

const std::string kDinner = "\\sounds\\dinner.wav";

INSTANTIATE_TEST_SUITE_P(
    Places, DateOutcomes,
    ::testing::Values(
        // looks 50, heart 10, gain 5: 17.5 is stored as 18, and so is 18.5.
        DateCase{"looks_share_rounds_half_to_even_up", 1, "n", 50, 50, 10, {pick(1, 8)}, 18, " Did you enjoy the dinner?", " Yeah, it was Good....", {kDinner}},
        DateCase{"looks_share_rounds_half_to_even_down", 1, "n", 50, 50, 11, {pick(1, 8)}, 18, " Did you enjoy the dinner?", " Yeah, it was Good....", {kDinner}},
        DateCase{"liked_restaurant_draws_among_the_good_three", 1, "+", 0, 50, 30, {pick(3, 3)}, 48, " Did you enjoy the dinner?", " Yeah, it was Fabulous ....", {kDinner}},
        DateCase{"disliked_restaurant_is_drawn_like_unknown", 1, "-", 50, 50, 30, {pick(8, 8)}, 34, " Did you enjoy the dinner?", " Yeah, it was OK....", {kDinner}},
        DateCase{"luck_100_narrows_the_draw_to_three", 3, "n", 100, 0, 30, {kCalm}, 36, " Did you have fun today?", " Yeah, I never had so much Fun ....", {"\\sounds\\birds.wav"}},
        DateCase{"luck_0_widens_it_to_thirteen", 3, "n", 0, 0, 30, {pick(13, 13)}, 31, " Did you have fun today?", " Yeah, it was OK....", {"\\sounds\\birds.wav"}},
        // luck 55: the spread is Int(4.5) + 3 = 7, not 7.5.
        DateCase{"spread_takes_the_whole_part", 6, "n", 55, 0, 30, {0.42}, 38, " Did you enjoy that?", " Yeah, I never had so much Fun ....", {"\\sounds\\bowling.wav"}},
        DateCase{"pizza_plays_nothing", 5, "n", 50, 0, 20, {pick(3, 8)}, 26, " How was that?", " They had 'the' best PIZZA!!  ....", {}},
        DateCase{"beach_she_likes", 4, "+", 50, 100, 20, {pick(2, 3)}, 28, " Did you have fun today?", " Yeah, it was great fun....", {"\\sounds\\beach.wav"}},
        DateCase{"movie_she_dislikes_always_loses_seven", 2, "-", 100, 100, 30, {pick(4, 7)}, 23, " Did you like the movie?", " No. I told you I don't like these kind of movies!", {"\\sounds\\movie4.wav"}},
        DateCase{"movie_outcome_one_loses_three", 2, "+", 50, 50, 30, {pick(1, 7), pick(1, 4)}, 27, " Did you like the movie?", " I didn't like it too much", {"\\sounds\\movie1.wav"}},
        DateCase{"movie_outcome_two_gains_five", 2, "n", 50, 50, 30, {pick(2, 7), pick(2, 4)}, 38, " Did you like the movie?", " I think it was OK", {"\\sounds\\movie2.wav"}},
        DateCase{"movie_outcome_three_names_him", 2, "n", 50, 50, 30, {pick(7, 7), pick(3, 4)}, 42, " Did you like the movie?", " I loved it!!!! You have good taste Tom.", {"\\sounds\\movie7.wav"}},
        DateCase{"movie_outcome_four_loses_five", 2, "n", 0, 100, 30, {pick(3, 7), pick(4, 4)}, 25, " Did you like the movie?", " That movie was Bad!!! I don't know why you wanted to watch it!", {"\\sounds\\movie3.wav"}},
        DateCase{"concert_she_hates", 7, "-", 50, 50, 30, {}, 22, " Did you like the Concert?", " No. I told you I hate hard rock.", {"\\sounds\\rock.wav"}},
        DateCase{"concert_she_loves", 7, "+", 50, 50, 30, {pick(3, 3)}, 51, " Did you like the Concert?", " Yeah, it was Great, I really enjoyed it  ....", {"\\sounds\\rock.wav"}},
        DateCase{"drama_she_hates", 8, "-", 50, 50, 30, {}, 23, " Did you like the Drama?", " No. I told you I don't like plays!", {"\\sounds\\play.wav"}},
        DateCase{"carnival_she_hates", 9, "-", 50, 50, 30, {}, 22, " Did you have fun?", " No. I told you I don't like going on that stupid Ferris wheel!", {"\\sounds\\carnival.wav"}},
        DateCase{"club_she_hates", 10, "-", 50, 50, 30, {}, 23, " Did you like the Club?", " No. You know I don't like places like this.", {"\\sounds\\club.wav"}},
        DateCase{"club_mad", 10, "n", 50, 0, 30, {pick(3, 8)}, 39, " Did you like the Club?", " Yeah, it was MAD ....", {"\\sounds\\club.wav"}},
        DateCase{"pub_she_hates", 11, "-", 50, 50, 30, {}, 23, " Did you like the Pub?", " No. I told you I don't drink.", {"\\sounds\\pub.wav"}}),
    [](const auto &info) { return std::string(info.param.name); });

TEST_F(Dates, exactlyTheCostIsEnoughAndLeavesNothing)
{
    atHerDoor(50, 50, 30, 120);
    random.push({kCalm, pick(8, 8)});
    choose(0);
    EXPECT_EQ(state().money, 0);
    EXPECT_EQ(state().spent_total, 120);
    EXPECT_EQ(state().day, 2);
    EXPECT_EQ(state().last_visit[1], 2);
    EXPECT_EQ(view.moneyLabel, "Bank Balance: $0");
}

TEST_F(Dates, tooLittleMoneyIsRefusedWithNothingChangedButTheList)
{
    atHerDoor(50, 50, 30, 119);
    state().work_streak = 3;
    random.push(kCalm);
    choose(0);
    EXPECT_EQ(calls({"ShowNotice", "EnableMain", "ClearList"}),
              (std::vector<std::string>{"ShowNotice(TextNotice|Hey...BUDDY are you expecting her to pay for this !!!!)",
                                        "EnableMain(false)", "ClearList()"}));
    EXPECT_EQ(state().money, 119);
    EXPECT_EQ(state().day, 1);
    EXPECT_EQ(state().heart, 30);
    EXPECT_EQ(state().spent_total, 0);
    EXPECT_EQ(state().last_visit[1], -3);
    EXPECT_EQ(state().work_streak, 0); // seeing her counts even without a date
    EXPECT_TRUE(sounds().empty());
    expectDrawsUsedUp();
}

// The fine is drawn before the bill, so it can cost him the date.
TEST_F(Dates, aSpeedingFineOnTheWayCanLeaveTooLittle)
{
    atHerDoor(50, 50, 30, 130);
    random.push(pick(3, 60));
    choose(0);
    EXPECT_EQ(state().money, 70);
    EXPECT_EQ(calls({"ShowNotice"}),
              (std::vector<std::string>{"ShowNotice(SpeedingFine|)",
                                        "ShowNotice(TextNotice|Hey...BUDDY are you expecting her to pay for this !!!!)"}));
    expectDrawsUsedUp();
}

struct RepeatCase
{
    const char *name;
    int place;
    int lastVisit; // the date runs on day 11
    bool boring;
    std::vector<double> draws;
    std::vector<std::string> sounds;
};

void PrintTo(const RepeatCase &c, std::ostream *os)
{
    *os << c.name;
}

struct RepeatedPlaces : Dates, ::testing::WithParamInterface<RepeatCase>
{
};

TEST_P(RepeatedPlaces, boreHerWithinThreeDays)
{
    const RepeatCase c = GetParam();
    atHerDoor(50, 0, 30);
    auto &s = state();
    game.advance_days(9); // day 10; the date makes it 11
    s.last_visit[c.place] = static_cast<i16>(c.lastVisit);
    view.clearCalls();
    random.push(kCalm);
    for (double d : c.draws)
        random.push(d);
    choose(c.place - 1);

    EXPECT_EQ(view.countCalls("ShowNotice"), c.boring ? 1 : 0);
    if (c.boring) {
        EXPECT_EQ(view.callsNamed("ShowNotice").front().args,
                  (std::vector<std::string>{"Boring", "Lisa: You are getting a bit BORING!! we do the samething alot"}));
        EXPECT_FALSE(view.mainEnabled);
    }
    EXPECT_EQ(sounds(), c.sounds);
    EXPECT_EQ(s.last_visit[c.place], 11);
    expectDrawsUsedUp();
}

const std::string kSigh = "\\sounds\\sigh.wav";

INSTANTIATE_TEST_SUITE_P(
    Days, RepeatedPlaces,
    ::testing::Values(RepeatCase{"first_visit_ever", 1, -3, false, {pick(8, 8)}, {kDinner}},
                      RepeatCase{"three_days_apart_is_fine", 1, 8, false, {pick(8, 8)}, {kDinner}},
                      RepeatCase{"two_days_apart_bores_her", 1, 9, true, {pick(8, 8)}, {kDinner, kSigh}},
                      RepeatCase{"next_day_bores_her", 11, 10, true, {pick(8, 8)}, {"\\sounds\\pub.wav", kSigh}},
                      RepeatCase{"movie_plays_after_the_complaint", 2, 10, true, {pick(5, 7), pick(2, 4)}, {kSigh, "\\sounds\\movie5.wav"}},
                      RepeatCase{"pizza_complains_in_silence_but_the_sigh", 5, 10, true, {pick(8, 8)}, {kSigh}}),
    [](const auto &info) { return std::string(info.param.name); });

TEST_F(Dates, aBoringDateStillCountsAndItsNoticeCostsTenOnOk)
{
    atHerDoor(50, 0, 30);
    random.push({kCalm, pick(1, 8)});
    choose(0);
    EXPECT_EQ(state().heart, 35);
    random.push({kCalm, kCalm, kCalm, pick(1, 8)});
    onTakeHerOut(game);
    choose(0);
    EXPECT_EQ(state().heart, 40); // the date's gain is applied at once
    EXPECT_FALSE(view.mainEnabled);
    OnNoticeOk(game, NoticeKind::Boring);
    view.closeScreen("Boring");
    EXPECT_EQ(state().heart, 30);
    EXPECT_TRUE(view.mainEnabled);
    expectDrawsUsedUp();
}

TEST_F(Dates, aDateOnDayTwentyNineEndsTheMonthButStillTalks)
{
    atHerDoor(50, 0, 30);
    game.advance_days(27); // day 28, the date makes it 29
    random.push({kCalm, pick(8, 8), kCalm, kCalm, kCalm, pick(8, 8)});
    choose(2);
    EXPECT_FALSE(state().game_over);
    onTakeHerOut(game);
    choose(3);
    EXPECT_TRUE(state().game_over);
    EXPECT_EQ(view.dayLabel, "Day 30");
    EXPECT_EQ(view.callsNamed("ShowLose").at(0).args.at(0), " Hey Pal! you've been at it for a month. I think you should give up!!!");
    EXPECT_EQ(view.talk, "Tom: Did you have fun today?\r\nLisa: Yeah, it was ok....");
    EXPECT_TRUE(view.rows.empty());
}

} // namespace
