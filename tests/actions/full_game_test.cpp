#include "play_fixture.h"
#include "scores/score_table.h"
#include "support/score_bytes.h"
#include "support/temp_dir.h"

using namespace amorra;
using namespace amorra::testing;

namespace {

struct FullGame : PlayFixture
{
    // Days at the noticeboard, every job offered and no event, taking the Parking Attendant's $50.
    void workDays(int days)
    {
        for (int i = 0; i < days; ++i) {
            calm(8);
            onGoToWork(game);
            choose(1);
        }
    }

    // "Take Her Out" with no event, then place `row` with outcome r of the
    // spread `of` (8 at luck 50, 3 for a place she likes).
    void dateAt(int row, int r, int of)
    {
        random.push({kCalm, kCalm, kCalm, pick(r, of)});
        onTakeHerOut(game);
        choose(row);
    }
};

TEST_F(FullGame, fromTheSetupValuesToAMarkedRowInTheScoresFile)
{
    auto &s = newGame();
    // A call: she refuses the first invitation, answers three questions, hangs up.
    onCallHer(game);
    random.push({pick(5, 6), pick(3, 10), pick(3, 10), pick(1, 10)});
    onAskOut(game);
    choose(10); // gourmet food: she loves restaurants
    choose(11); // chocolate: she loves it
    choose(0);
    EXPECT_EQ(s.places[1].extra + s.gifts[2].extra, "++");
    random.push(kCalm);
    onBuyGift(game);
    choose(1); // the chocolates she said she loves: 16 + 12 + 50/25
    onCallHer(game); // with his last $5; now she says yes
    onAskOut(game);
    workDays(3);
    dateAt(0, 3, 3); // the restaurant she likes: 30 + 12 + 50 x 0.12 = 48
    dateAt(7, 2, 8); // the drama: 48 + 5 + 2.5 = 55.5, half to even
    EXPECT_EQ(std::vector<int>({s.heart, s.money}), std::vector<int>({56, 2}));
    workDays(3);
    random.push({pick(9, 60), kCalm, kCalm, pick(3, 3)}); // a hundred dollar bill on the way to her door
    onTakeHerOut(game);
    OnNoticeOk(game, NoticeKind::FoundMoney);
    view.closeScreen("FoundMoney");
    choose(0); // five days after the last dinner: not boring
    dateAt(7, 3, 8);
    dateAt(5, 3, 8);
    EXPECT_FALSE(s.game_over);
    dateAt(10, 3, 8); // the pub: 98 + 6 + 3 wins
    expectDrawsUsedUp();
    EXPECT_EQ(view.countCalls("ShowNotice"), 1);
    EXPECT_EQ(std::vector<int>({s.heart, s.day, s.action_count, s.spent_total, s.money}), std::vector<int>({107, 14, 31, 436, 14}));
    EXPECT_EQ(calls({"ShowWin"}), Strings{"ShowWin(Total Money Spent $436|Total Days 14|Your Score : 52847)"});

    // The win screen's OK hands the result to the Top 20 table, which
    // already holds a champion, an equal score and a small one.
    onWinOk(game);
    TempDir dir;
    const std::string zed = dollarRecord("Zed", 90000, 3, 100), bob = dollarRecord("Bob", 52847, 20, 200), al = dollarRecord("Al", 100, 29, 60);
    dir.write("Scores", zed + bob + al);
    ScoreTable table;
    const HighScoreScreenData shown = openHighScores(s.result, table, dir.file("Scores"));
    EXPECT_FALSE(s.result.result_pending || shown.loadFailed || shown.saveFailed);
    ASSERT_EQ(shown.rows.size(), 20u);
    EXPECT_EQ(shown.rows[1].cells, (std::array<std::string, 5>{"2", "Tom                 ", "14 Days", "$436", "52847"})); // above the equal score
    EXPECT_TRUE(shown.rows[1].red && !shown.rows[2].red);
    std::string after = zed + dollarRecord("Tom", 52847, 14, 436) + bob + al;
    for (int i = 0; i < 17; ++i)
        after += emptyScoreRecord();
    EXPECT_EQ(dir.read("Scores"), after);
}

} // namespace
