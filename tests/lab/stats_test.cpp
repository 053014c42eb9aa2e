#include "stats.h"
#include "svg_plot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

using namespace amorra::lab;

namespace {

struct QuantileCase
{
    const char *name;
    std::vector<double> values;
    double q;
    double expected;
};

void PrintTo(const QuantileCase &c, std::ostream *os)
{
    *os << c.name;
}

class Quantiles : public ::testing::TestWithParam<QuantileCase>
{
};

TEST_P(Quantiles, matchTheUsualDefinition)
{
    const QuantileCase &c = GetParam();
    EXPECT_DOUBLE_EQ(quantile(c.values, c.q), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, Quantiles,
    ::testing::Values(QuantileCase{"medianOfOddCountIsTheMiddle", {7, 1, 5}, 0.5, 5},
                      QuantileCase{"medianOfEvenCountIsMeanOfMiddleTwo", {4, 1, 3, 2}, 0.5, 2.5},
                      QuantileCase{"p90OfOneToTenInterpolates", {10, 9, 8, 7, 6, 5, 4, 3, 2, 1}, 0.9, 9.1},
                      QuantileCase{"p90OfElevenValuesIsTheTenth", {0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100}, 0.9, 90},
                      QuantileCase{"singleValueIsEveryQuantile", {42}, 0.9, 42},
                      QuantileCase{"emptyListGivesZero", {}, 0.5, 0},
                      QuantileCase{"topQuantileIsTheMaximum", {3, 9, 1}, 1.0, 9}),
    [](const ::testing::TestParamInfo<QuantileCase> &info) { return std::string(info.param.name); });

GameRow row(const char *strategy, Outcome outcome, double score, int days, int presses, int spent)
{
    GameRow r;
    r.strategy = strategy;
    r.outcome = outcome;
    r.score = score;
    r.days = days;
    r.presses = presses;
    r.spent = spent;
    return r;
}

// A known table: "a" wins four of five with scores 100..400, "b" never wins.
std::vector<GameRow> knownTable()
{
    return {row("a", Outcome::Won, 400, 10, 40, 100), row("a", Outcome::Won, 100, 20, 60, 300),
            row("a", Outcome::LostMonth, 0, 30, 80, 500), row("a", Outcome::Won, 300, 12, 44, 150),
            row("a", Outcome::Won, 200, 18, 56, 250), row("b", Outcome::LostHeart, 0, 5, 10, 20),
            row("b", Outcome::LostMonth, 0, 30, 90, 40)};
}

TEST(Summaries, countEndingsAndTakeScoreQuantilesOverWinsOnly)
{
    const auto s = summarise(knownTable());
    ASSERT_EQ(s.size(), 2u);
    EXPECT_EQ(s[0].strategy, "a");
    EXPECT_EQ(s[0].games, 5);
    EXPECT_EQ(s[0].wins, 4);
    EXPECT_EQ(s[0].lostMonth, 1);
    EXPECT_EQ(s[0].lostHeart, 0);
    // A lost game has no score; counting it as 0 would drag the median down to 200.
    EXPECT_DOUBLE_EQ(s[0].medianScore, 250);
    EXPECT_DOUBLE_EQ(s[0].p90Score, 370);
    EXPECT_DOUBLE_EQ(s[0].meanDays, 18);
    EXPECT_DOUBLE_EQ(s[0].meanPresses, 56);
    EXPECT_DOUBLE_EQ(s[0].meanSpent, 260);

    EXPECT_EQ(s[1].wins, 0);
    EXPECT_EQ(s[1].lostHeart, 1);
    EXPECT_EQ(s[1].lostMonth, 1);
    EXPECT_DOUBLE_EQ(s[1].meanDays, 17.5);
}

TEST(Summaries, printAsAnAlignedTableWithADashForNoWins)
{
    const std::string table = formatTable(summarise(knownTable()));
    std::istringstream lines(table);
    std::vector<std::string> all;
    for (std::string line; std::getline(lines, line);)
        all.push_back(line);
    ASSERT_EQ(all.size(), 4u); // header, rule, a, b
    for (const auto &line : all)
        EXPECT_EQ(line.size(), all[0].size()) << line;
    EXPECT_NE(all[2].find("250"), std::string::npos);
    EXPECT_NE(all[2].find("370"), std::string::npos);
    EXPECT_NE(all[3].find(" - "), std::string::npos);
}

TEST(Csv, writesAHeaderAndOneLinePerGame)
{
    std::vector<GameRow> rows = knownTable();
    rows[0].seed = 12345678901234ull;
    rows[0].clicks = 77;
    const std::string csv = formatCsv(rows);
    EXPECT_EQ(csv.substr(0, csv.find('\n')), "strategy,game,seed,outcome,score,days,presses,spent,clicks");
    EXPECT_NE(csv.find("\na,0,12345678901234,won,400,10,40,100,77\n"), std::string::npos);
    EXPECT_NE(csv.find("\nb,0,0,lost-heart,0,5,10,20,0\n"), std::string::npos);
    EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 8);
}

TEST(ScorePlot, drawsOnePanelPerStrategyWithEscapedNames)
{
    const std::string svg = scorePlotSvg({{"best", {1000, 20000, 30000}, 4}, {"R&D", {}, 3}});
    EXPECT_EQ(svg.rfind("<svg ", 0), 0u);
    EXPECT_EQ(svg.substr(svg.size() - 7), "</svg>\n");
    EXPECT_NE(svg.find("best: 3 of 4 won"), std::string::npos);
    EXPECT_NE(svg.find("R&amp;D: 0 of 3 won"), std::string::npos);
    EXPECT_EQ(svg.find("R&D"), std::string::npos);
    EXPECT_NE(svg.find("median 20000"), std::string::npos);
}

} // namespace
