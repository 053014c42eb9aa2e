#include "stats.h"

#include <gtest/gtest.h>

using namespace amorra::lab;

namespace {

// Score quantiles are taken over won games only (counting the loss as 0
// would drag the median down to 200) and interpolate between ranks.
TEST(Summaries, countEndingsAndTakeScoresOverWinsOnly)
{
    std::vector<GameRow> rows(6);
    const double scores[] = {400, 100, 0, 300, 200, 0};
    for (size_t i = 0; i < rows.size(); ++i) {
        rows[i].strategy = i < 5 ? "a" : "b";
        rows[i].outcome = scores[i] > 0 ? Outcome::Won : i < 5 ? Outcome::LostMonth : Outcome::LostHeart;
        rows[i].score = scores[i];
        rows[i].days = 10 * static_cast<int>(i);
    }
    const auto s = summarise(rows);
    ASSERT_EQ(s.size(), 2u);
    EXPECT_EQ(std::vector<int>({s[0].games, s[0].wins, s[0].lostMonth, s[0].lostHeart, s[1].games, s[1].lostHeart}), std::vector<int>({5, 4, 1, 0, 1, 1}));
    EXPECT_EQ(std::vector<double>({s[0].medianScore, s[0].p90Score, s[0].meanDays}), std::vector<double>({250, 370, 20}));
    EXPECT_DOUBLE_EQ(quantile({}, 0.5), 0);
}

} // namespace
