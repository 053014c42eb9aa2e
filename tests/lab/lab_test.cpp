#include "her_tastes.h"
#include "lab.h"

#include <gtest/gtest.h>

using namespace amorra;
using namespace amorra::lab;

namespace {

LabRun play(std::uint64_t seed, int games, std::vector<std::string> strategies = strategyNames())
{
    LabConfig c;
    c.seed = seed;
    c.games = games;
    c.strategies = std::move(strategies);
    return runLab(c);
}

// A player who leaves a notice unanswered, or a strategy that stops
// clicking, would leave games hanging at the click limit.
TEST(LabRun, everyGameEndsOnAnEndScreenAndTheSeedDecidesTheGames)
{
    const LabRun run = play(42, 200);
    ASSERT_EQ(run.rows.size(), 4u * 200u);
    for (const GameRow &r : run.rows) {
        ASSERT_NE(r.outcome, Outcome::Stuck) << r.strategy << " game " << r.game;
        EXPECT_TRUE(r.outcome != Outcome::LostMonth || r.days == 30) << r.strategy << " game " << r.game;
        EXPECT_EQ(r.outcome == Outcome::Won, r.score > 0) << r.strategy << " game " << r.game;
    }
    EXPECT_EQ(formatCsv(run.rows), formatCsv(play(42, 200).rows));
    EXPECT_NE(formatCsv(run.rows), formatCsv(play(43, 200).rows));
}

TEST(LabRun, theBestStrategyWinsMoreAndScoresHigherThanTheSweetTalker)
{
    const auto s = summarise(play(3, 400, {"sweet-talker", "best"}).rows);
    ASSERT_EQ(s.size(), 2u);
    EXPECT_GT(s[1].wins, s[0].wins);
    EXPECT_GT(s[1].medianScore, s[0].medianScore);
}

// What the lab's players believe she said must be what the game wrote down.
TEST(HerTastes, matchTheOpinionsTheGameRecordsAfterEveryQuestion)
{
    const auto opinion = [](const std::string &mark) { return mark == "+" ? 1 : mark == "-" ? -1 : 0; };
    for (std::uint64_t seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        Player p;
        p.startGame(seed, Ratings{});
        HerTastes t;
        for (int q = 0; q < kQuestionCount; ++q) {
            p.confirmWindows();
            ASSERT_TRUE((p.listTitle() == "Things to ask her" && p.rowCount() > 0) || p.press(Button::CallHer));
            p.confirmWindows();
            ASSERT_TRUE(p.pickRow(q) && p.press(Button::Action));
            ASSERT_NE(HerTastes::answerShown(q, p.talk()), 0) << "question " << q;
            t.learn(q, p.talk());
        }
        const GameState &s = p.game().state();
        for (size_t i = 1; i <= 11; ++i) {
            EXPECT_EQ(t.gift[i], opinion(s.gifts[i].extra)) << "gift " << i;
            EXPECT_EQ(t.place[i], opinion(s.places[i].extra)) << "place " << i;
        }
    }
}

TEST(RowPrice, readsTheAmountAfterTheDollar)
{
    EXPECT_EQ(rowPrice("Bank Teller \t$200\tNOT available today"), 200);
    EXPECT_EQ(rowPrice("Do you smoke?"), -1);
}

} // namespace
