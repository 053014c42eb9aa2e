#include "stats.h"

#include <gtest/gtest.h>

using namespace amorra::lab;

namespace {

TEST(Quantiles, interpolateBetweenTheNearestRanks)
{
    struct Row
    {
        const char *name;
        std::vector<double> values;
        double q, expected;
    };
    const Row table[] = {{"median of an odd count", {7, 1, 5}, 0.5, 5},
                         {"median of an even count", {4, 1, 3, 2}, 0.5, 2.5},
                         {"p90 of one to ten", {10, 9, 8, 7, 6, 5, 4, 3, 2, 1}, 0.9, 9.1},
                         {"nothing at all", {}, 0.5, 0}};
    for (const Row &c : table) {
        SCOPED_TRACE(c.name);
        EXPECT_DOUBLE_EQ(quantile(c.values, c.q), c.expected);
    }
}

// A lost game has no score: counting it as 0 would drag the median of "a" down to 200.
TEST(Summaries, countEndingsAndTakeScoresOverWinsOnly)
{
    std::vector<GameRow> rows;
    const std::tuple<const char *, Outcome, double, int> games[] = {
        {"a", Outcome::Won, 400, 10},       {"a", Outcome::Won, 100, 20},      {"a", Outcome::LostMonth, 0, 30},
        {"a", Outcome::Won, 300, 12},       {"a", Outcome::Won, 200, 18},      {"b", Outcome::LostHeart, 0, 5},
        {"b", Outcome::LostMonth, 0, 30}};
    for (const auto &[strategy, outcome, score, days] : games) {
        rows.emplace_back();
        rows.back().strategy = strategy;
        rows.back().outcome = outcome;
        rows.back().score = score;
        rows.back().days = days;
    }
    const auto s = summarise(rows);
    ASSERT_EQ(s.size(), 2u);
    EXPECT_EQ(s[0].strategy, "a");
    EXPECT_EQ(std::vector<int>({s[0].games, s[0].wins, s[0].lostMonth, s[0].lostHeart}), std::vector<int>({5, 4, 1, 0}));
    EXPECT_DOUBLE_EQ(s[0].medianScore, 250);
    EXPECT_DOUBLE_EQ(s[0].p90Score, 370);
    EXPECT_DOUBLE_EQ(s[0].meanDays, 18);
    EXPECT_EQ(std::vector<int>({s[1].games, s[1].wins, s[1].lostMonth, s[1].lostHeart}), std::vector<int>({2, 0, 1, 1}));
    EXPECT_DOUBLE_EQ(s[1].meanDays, 17.5);
}

} // namespace
