#include "lab.h"

#include <gtest/gtest.h>

using namespace amorra;
using namespace amorra::lab;

namespace {

LabRun play(std::uint64_t seed)
{
    LabConfig c;
    c.games = 200;
    c.seed = seed;
    return runLab(c);
}

// A player who leaves a notice unanswered, or a strategy that stops
// clicking, would leave games hanging at the click limit.
TEST(LabRun, everyGameEndsTheSeedDecidesAndTheBestStrategyWinsMost)
{
    const LabRun run = play(42);
    ASSERT_EQ(run.rows.size(), 4u * 200u);
    for (const GameRow &r : run.rows) {
        ASSERT_NE(r.outcome, Outcome::Stuck) << r.strategy << " game " << r.game;
        EXPECT_TRUE(r.outcome != Outcome::LostMonth || r.days == 30) << r.strategy << " game " << r.game;
        EXPECT_EQ(r.outcome == Outcome::Won, r.score > 0) << r.strategy << " game " << r.game;
    }
    EXPECT_EQ(formatCsv(run.rows), formatCsv(play(42).rows));
    EXPECT_NE(formatCsv(run.rows), formatCsv(play(43).rows));
    const auto s = summarise(run.rows); // random, worker, sweet-talker, best
    ASSERT_EQ(s.size(), 4u);
    EXPECT_GT(s[3].wins, s[2].wins);
    EXPECT_GT(s[3].medianScore, s[2].medianScore);
}

} // namespace
