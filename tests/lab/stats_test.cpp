#include "stats.h"

#include <gtest/gtest.h>

using namespace amorra::lab;

namespace {

// Score quantiles are taken over won games only: counting a loss as 0 would
// drag the median of "a" down to 200. Quantiles interpolate between ranks.
TEST(Summaries, countEndingsAndTakeScoresOverWinsOnly)
{
    std::vector<GameRow> rows;
    const std::tuple<const char *, Outcome, double, int> games[] = {
        {"a", Outcome::Won, 400, 10}, {"a", Outcome::Won, 100, 20},       {"a", Outcome::LostMonth, 0, 30}, {"a", Outcome::Won, 300, 12},
        {"a", Outcome::Won, 200, 18}, {"b", Outcome::LostHeart, 0, 5},    {"b", Outcome::LostMonth, 0, 30}};
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
    EXPECT_EQ(std::vector<int>({s[1].games, s[1].wins, s[1].lostMonth, s[1].lostHeart}), std::vector<int>({2, 0, 1, 1}));
    EXPECT_EQ(std::vector<double>({s[0].medianScore, s[0].p90Score, s[0].meanDays, s[1].meanDays}), std::vector<double>({250, 370, 18, 17.5}));
    EXPECT_DOUBLE_EQ(quantile({10, 9, 8, 7, 6, 5, 4, 3, 2, 1}, 0.9), 9.1);
    EXPECT_DOUBLE_EQ(quantile({}, 0.5), 0);
}

} // namespace
