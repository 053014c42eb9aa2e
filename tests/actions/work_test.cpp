#include "play_fixture.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

using Work = PlayFixture;

// Each job has a draw of its own and is offered when (luck + 11) x r
// reaches 10; the rows below give each job one of two draws.
TEST_F(Work, jobsAreOfferedByLuckOneDrawEach)
{
    struct Row
    {
        int luck;
        double below, above; // the draws either side of 10 / (luck + 11)
    };
    const Row table[] = {{0, 0.909, 0.91}, {50, 0.1639, 0.164}, {100, 0.09, 0.0901}, {-1, 0.999, 0.999}};
    for (const Row &c : table) {
        SCOPED_TRACE(c.luck);
        newGame();
        state().player.luck = static_cast<i16>(c.luck);
        random.push({c.below, c.above, c.below, c.above, c.above, c.below, kCalm, kCalm});
        onGoToWork(game);
        const bool any = c.luck >= 0; // at luck -1 the span is 10 and never reaches past it
        const bool open[] = {false, false, any, false, any, any, false};
        for (int i = 1; i <= 6; ++i)
            EXPECT_EQ(state().job_open[i], open[i]) << "job " << i;
        EXPECT_EQ(view.rows[1], std::string("Parking Attendant\t$50\t") + (any ? "available" : "NOT available today"));
        EXPECT_EQ(view.rows[2], "Sales Assistant\t$75\tNOT available today");
        EXPECT_EQ(state().day, 2); // opening the noticeboard is the working day
        expectDrawsUsedUp();
    }
}

// Every job but the first needs a smart rating strictly above its bar.
TEST_F(Work, aJobPaysWhenOfferedAndHeIsSmartEnough)
{
    struct Row
    {
        const char *name;
        int job;
        double smart;
        bool offered;
        int pay; // 0: refused
    };
    const Row table[] = {
        {"pizza needs no brains", 1, -10, true, 20},          {"parking at exactly 25 is refused", 2, 25, true, 0},
        {"parking just above 25", 2, 25.01, true, 50},        {"sales needs above 45", 3, 45, true, 0},
        {"sales at 45 and a half", 3, 45.5, true, 75},        {"tutor needs above 65", 4, 65, true, 0},
        {"tutor at 66", 4, 66, true, 100},                    {"teller needs above 75", 5, 75, true, 0},
        {"teller at 76", 5, 76, true, 200},                   {"broker needs above 85", 6, 85, true, 0},
        {"broker after five encyclopaedias", 6, 85.76171875, true, 300},
        {"not offered is said before smartness", 6, 0, false, 0}, {"pizza not offered", 1, 90, false, 0},
    };
    for (const Row &c : table) {
        SCOPED_TRACE(c.name);
        newGame();
        state().player.smart = c.smart;
        for (int i = 0; i < 6; ++i)
            random.push(c.offered ? kCalm : 0.0);
        calm(2);
        onGoToWork(game);
        view.clearCalls();
        choose(c.job - 1);

        EXPECT_EQ(state().money, 50 + c.pay);
        const char *notice = !c.offered ? "Can't you see that this job is NOT available today!!" : c.pay ? nullptr : "I think my grandma's more qualified!!!";
        EXPECT_EQ(calls({"ShowNotice"}), notice ? std::vector<std::string>{std::string("ShowNotice(TextNotice|") + notice + ")"} : std::vector<std::string>{});
        EXPECT_EQ(sounds(), !c.offered ? std::vector<std::string>{}
                                       : std::vector<std::string>{c.pay ? "\\sounds\\money.wav" : "\\sounds\\laff.wav"});
        EXPECT_EQ(view.rows.size(), c.pay ? 0u : 6u); // one pay per opening; after a refusal another row may be tried
        EXPECT_EQ(state().spent_total, 0);             // pay is not money spent on her
    }
}

// The fourth opening in a row without seeing her raises her complaint,
// then every third; a call starts the count again. Its cost comes with the OK.
TEST_F(Work, workingDayAfterDayWithoutACallMakesHerFeelIgnored)
{
    newGame();
    std::string got;
    for (const char step : std::string("WWWCWWWWWWW")) {
        if (step == 'C') {
            onCallHer(game);
            continue;
        }
        const int before = view.countCalls("ShowNotice");
        calm(8);
        onGoToWork(game);
        got += std::to_string(state().work_streak) + (view.countCalls("ShowNotice") > before ? "!" : "");
    }
    EXPECT_EQ(got, "1231231!231!");
    EXPECT_EQ(view.callsNamed("ShowNotice").at(0).str(), "ShowNotice(Ignoring|Lisa: You are IGNORING me!! You only care about work work work...)");
    EXPECT_EQ(state().heart, 10);
}

} // namespace
