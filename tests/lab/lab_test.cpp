#include "her_tastes.h"
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

} // namespace
