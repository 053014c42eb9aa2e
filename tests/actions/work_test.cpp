#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

using Work = PlayFixture;

struct OfferCase
{
    const char *name;
    int luck;
    double r;
    bool offered;
};

void PrintTo(const OfferCase &c, std::ostream *os)
{
    *os << c.name;
}

struct JobOffers : Work, ::testing::WithParamInterface<OfferCase>
{
};

// A job is offered when (luck + 11) x r reaches 10.
TEST_P(JobOffers, dependOnLuck)
{
    const OfferCase c = GetParam();
    newGame();
    state().player.luck = static_cast<i16>(c.luck);
    for (int i = 0; i < 6; ++i)
        random.push(c.r);
    random.push({kCalm, kCalm});
    onGoToWork(game);

    ASSERT_EQ(view.rows.size(), 6u);
    const std::string status = c.offered ? "\tavailable" : "\tNOT available today";
    EXPECT_EQ(view.rows[0], "Pizza Delivery\t$20" + status);
    EXPECT_EQ(view.rows[3], "Tutor          \t$100" + status);
    for (int i = 1; i <= 6; ++i)
        EXPECT_EQ(state().job_open[i], c.offered) << "job " << i;
    EXPECT_FALSE(state().job_open[0]);
    expectDrawsUsedUp();
}

INSTANTIATE_TEST_SUITE_P(Draws, JobOffers,
                         ::testing::Values(OfferCase{"luck0_just_below", 0, 0.909, false}, OfferCase{"luck0_just_above", 0, 0.91, true},
                                           OfferCase{"luck50_just_below", 50, 0.1639, false}, OfferCase{"luck50_just_above", 50, 0.164, true},
                                           OfferCase{"luck100_just_below", 100, 0.09, false}, OfferCase{"luck100_just_above", 100, 0.0901, true},
                                           OfferCase{"negative_luck_never", -1, 0.999, false}),
                         [](const auto &info) { return std::string(info.param.name); });

TEST_F(Work, eachJobHasADrawOfItsOwn)
{
    newGame();
    random.push({0.9, 0.1, 0.9, 0.1, 0.1, 0.9, kCalm, kCalm});
    onGoToWork(game);
    EXPECT_EQ(view.rows, (std::vector<std::string>{
                             "Pizza Delivery\t$20\tavailable",
                             "Parking Attendant\t$50\tNOT available today",
                             "Sales Assistant\t$75\tavailable",
                             "Tutor          \t$100\tNOT available today",
                             "Bank Teller \t$200\tNOT available today",
                             "Stock Broker \t$300\tavailable",
                         }));
    EXPECT_EQ(state().day, 2); // opening the noticeboard is the working day
    EXPECT_EQ(view.calls.back().str(), "SetDayLabel(Day 2)");
}

struct JobCase
{
    const char *name;
    int job;
    double smart;
    bool offered;
    int pay; // 0: refused
    const char *notice;
    std::vector<std::string> sounds;
};

void PrintTo(const JobCase &c, std::ostream *os)
{
    *os << c.name;
}

struct TakingAJob : Work, ::testing::WithParamInterface<JobCase>
{
};

TEST_P(TakingAJob, paysWhenOfferedAndSmartEnough)
{
    const JobCase c = GetParam();
    newGame();
    state().player.smart = c.smart;
    for (int i = 0; i < 6; ++i)
        random.push(c.offered ? kCalm : 0.0);
    random.push({kCalm, kCalm});
    onGoToWork(game);
    view.clearCalls();

    choose(c.job - 1);

    EXPECT_EQ(state().money, 50 + c.pay);
    EXPECT_EQ(sounds(), c.sounds);
    if (c.pay > 0) {
        EXPECT_EQ(view.countCalls("ShowNotice"), 0);
        EXPECT_TRUE(view.rows.empty()); // one pay per opening
    } else {
        EXPECT_EQ(calls({"ShowNotice", "EnableMain"}),
                  (std::vector<std::string>{std::string("ShowNotice(TextNotice|") + c.notice + ")", "EnableMain(false)"}));
        EXPECT_EQ(view.rows.size(), 6u); // another row may be tried
    }
    EXPECT_EQ(state().spent_total, 0); // pay is not money spent on her
}

const char *const kNotToday = "Can't you see that this job is NOT available today!!";
const char *const kGrandma = "I think my grandma's more qualified!!!";
const std::vector<std::string> kPaid = {"\\sounds\\money.wav"};
const std::vector<std::string> kLaugh = {"\\sounds\\laff.wav"};

INSTANTIATE_TEST_SUITE_P(
    Jobs, TakingAJob,
    ::testing::Values(JobCase{"pizza_needs_no_brains", 1, -10, true, 20, "", kPaid},
                      JobCase{"parking_at_exactly_25_is_refused", 2, 25, true, 0, kGrandma, kLaugh},
                      JobCase{"parking_just_above_25", 2, 25.01, true, 50, "", kPaid},
                      JobCase{"sales_needs_above_45", 3, 45, true, 0, kGrandma, kLaugh},
                      JobCase{"sales_at_45_and_a_half", 3, 45.5, true, 75, "", kPaid},
                      JobCase{"tutor_needs_above_65", 4, 65, true, 0, kGrandma, kLaugh},
                      JobCase{"tutor_at_66", 4, 66, true, 100, "", kPaid},
                      JobCase{"teller_needs_above_75", 5, 75, true, 0, kGrandma, kLaugh},
                      JobCase{"teller_at_76", 5, 76, true, 200, "", kPaid},
                      JobCase{"broker_needs_above_85", 6, 85, true, 0, kGrandma, kLaugh},
                      JobCase{"broker_after_five_encyclopaedias", 6, 85.76171875, true, 300, "", kPaid},
                      JobCase{"not_offered_is_said_before_smartness", 6, 0, false, 0, kNotToday, {}},
                      JobCase{"not_offered_pizza", 1, 90, false, 0, kNotToday, {}}),
    [](const auto &info) { return std::string(info.param.name); });

void openNoticeboard(Work &t)
{
    for (int i = 0; i < 8; ++i)
        t.random.push(kCalm);
    onGoToWork(t.game);
}

TEST_F(Work, theFourthAndSeventhOpeningInARowComplainOfBeingIgnored)
{
    newGame();
    std::vector<int> streak, complaints;
    for (int i = 1; i <= 7; ++i) {
        const int before = view.countCalls("ShowNotice");
        openNoticeboard(*this);
        streak.push_back(state().work_streak);
        if (view.countCalls("ShowNotice") > before)
            complaints.push_back(i);
    }
    EXPECT_EQ(streak, (std::vector<int>{1, 2, 3, 1, 2, 3, 1}));
    EXPECT_EQ(complaints, (std::vector<int>{4, 7}));
    EXPECT_EQ(view.callsNamed("ShowNotice").at(0).args,
              (std::vector<std::string>{"Ignoring", "Lisa: You are IGNORING me!! You only care about work work work..."}));
    EXPECT_EQ(state().heart, 10); // the cost comes with the OK
    OnNoticeOk(game, NoticeKind::Ignoring);
    EXPECT_EQ(state().heart, 0);
    EXPECT_TRUE(state().game_over);
}

TEST_F(Work, aCallResetsTheIgnoringCount)
{
    newGame();
    for (int i = 0; i < 3; ++i)
        openNoticeboard(*this);
    onCallHer(game);
    for (int i = 0; i < 3; ++i)
        openNoticeboard(*this);
    EXPECT_EQ(view.countCalls("ShowNotice"), 0);
    EXPECT_EQ(state().work_streak, 3);
}

TEST_F(Work, openingTheNoticeboardOnDayTwentyNineEndsTheGameAndSilencesItsEvents)
{
    newGame();
    game.advance_days(27);
    openNoticeboard(*this);
    EXPECT_EQ(state().day, 29);
    EXPECT_FALSE(state().game_over);

    for (int i = 0; i < 6; ++i)
        random.push(kCalm);
    random.push({pick(9, 60), pick(3, 60)}); // both events would fire
    state().money = 500;
    view.clearCalls();
    onGoToWork(game);

    EXPECT_TRUE(state().game_over);
    EXPECT_EQ(view.dayLabel, "Day 30");
    EXPECT_EQ(view.countCalls("ShowLose"), 1);
    EXPECT_EQ(view.countCalls("ShowNotice"), 0);
    EXPECT_EQ(state().money, 500);
    expectDrawsUsedUp();

    // The ended game answers the next mode button with the game-over dialog.
    onGoToWork(game);
    EXPECT_EQ(view.calls.back().str(), "ShowGameOver()");
    EXPECT_EQ(state().day, 30);
}

} // namespace
