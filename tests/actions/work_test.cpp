#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

using Work = PlayFixture;

// Each job has a draw of its own and is offered when (luck + 11) x r
// reaches 10; the jobs get the draws just below and above that in turn.
TEST_F(Work, jobsAreOfferedByLuckOneDrawEach)
{
    struct Row { int luck; double below, above; };
    const Row table[] = {{0, 0.909, 0.91}, {50, 0.1639, 0.164}, {100, 0.09, 0.0901}, {-1, 0.999, 0.999}};
    for (const Row &c : table) {
        SCOPED_TRACE(c.luck);
        newGame(10, 50, 50, c.luck);
        random.push({c.below, c.above, c.below, c.above, c.above, c.below, kCalm, kCalm});
        onGoToWork(game);
        const bool any = c.luck >= 0; // at luck -1 the span is 10 and no draw gets past it
        std::string open;
        for (int i = 1; i <= 6; ++i)
            open += state().job_open[i] ? '+' : '-';
        EXPECT_EQ(open, any ? "-+-++-" : "------");
        EXPECT_EQ(view.rows[1], std::string("Parking Attendant\t$50\t") + (any ? "available" : "NOT available today"));
        EXPECT_EQ(state().day, 2); // opening the noticeboard is the working day
        expectDrawsUsedUp();
    }
}

// Every job but the first needs a smart rating strictly above its bar.
TEST_F(Work, aJobPaysWhenOfferedAndHeIsSmartEnough)
{
    struct Row { int job; double smart; bool offered; int pay; }; // pay 0: refused
    const Row table[] = {{1, -10, true, 20}, {2, 25, true, 0},  {2, 25.01, true, 50}, {3, 45, true, 0},   {3, 45.5, true, 75},
                         {4, 65, true, 0},   {4, 66, true, 100}, {5, 75, true, 0},     {5, 76, true, 200}, {6, 85, true, 0},
                         {6, 85.76171875, true, 300}, {6, 0, false, 0}, {1, 90, false, 0}};
    for (const Row &c : table) {
        SCOPED_TRACE("job " + std::to_string(c.job) + " at smart " + std::to_string(c.smart) + (c.offered ? "" : ", not offered"));
        newGame();
        state().player.smart = c.smart;
        random.push(c.offered ? kCalm : 0.0, 6);
        calm(2);
        onGoToWork(game);
        view.clearCalls();
        choose(c.job - 1);
        EXPECT_EQ(state().money, 50 + c.pay);
        const char *notice = !c.offered ? "Can't you see that this job is NOT available today!!" : c.pay ? nullptr : "I think my grandma's more qualified!!!";
        EXPECT_EQ(calls({"ShowNotice"}), notice ? Strings{std::string("ShowNotice(TextNotice|") + notice + ")"} : Strings{});
        EXPECT_EQ(sounds(), !c.offered ? Strings{} : Strings{c.pay ? "\\sounds\\money.wav" : "\\sounds\\laff.wav"});
        EXPECT_EQ(view.rows.size(), c.pay ? 0u : 6u); // one pay per opening; after a refusal another row may be tried
        EXPECT_EQ(state().spent_total, 0);
    }
}

// The fourth opening in a row without seeing her raises her complaint, then
// every third; a call starts the count again. Its cost comes with the OK.
TEST_F(Work, workingDayAfterDayWithoutACallMakesHerFeelIgnored)
{
    newGame();
    std::string got;
    for (const char step : std::string("WWWCWWWWWWW")) {
        const int before = view.countCalls("ShowNotice");
        calm(step == 'W' ? 8 : 0);
        (step == 'W' ? onGoToWork : onCallHer)(game);
        got += std::to_string(state().work_streak) + (view.countCalls("ShowNotice") > before ? "!" : "");
    }
    EXPECT_EQ(got, "12301231!231!");
    EXPECT_EQ(view.callsNamed("ShowNotice").at(0).str(), "ShowNotice(Ignoring|Lisa: You are IGNORING me!! You only care about work work work...)");
    EXPECT_EQ(state().heart, 10);
}

} // namespace
