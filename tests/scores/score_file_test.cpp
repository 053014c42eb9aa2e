#include "scores/score_table.h"
#include "support/score_bytes.h"
#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

using namespace amorra;
using namespace amorra::testing;

namespace {

GameResult pendingWin(const std::string &name, double score, int days, std::int64_t spent)
{
    GameResult r;
    r.result_pending = true;
    r.result_name = name;
    r.result_score = score;
    r.result_days = static_cast<i16>(days);
    r.result_spent = spent;
    return r;
}

std::string emptyRecords(int n)
{
    std::string out;
    for (int i = 0; i < n; ++i)
        out += emptyScoreRecord();
    return out;
}

std::vector<std::string> shownNames(const HighScoreScreenData &data)
{
    std::vector<std::string> names;
    for (const auto &row : data.rows)
        if (!row.cells[1].empty())
            names.push_back(row.cells[1].substr(0, row.cells[1].find(' ')));
    return names;
}

std::vector<int> redRanks(const HighScoreScreenData &data)
{
    std::vector<int> ranks;
    for (size_t i = 0; i < data.rows.size(); ++i)
        if (data.rows[i].red)
            ranks.push_back(static_cast<int>(i) + 1);
    return ranks;
}

TEST(HighScores, firstWinCreatesTheFileWithTheResultAsRankOneInWindows1252)
{
    TempDir dir;
    ScoreTable table;
    GameResult result = pendingWin("José€", 88028, 8, 355);
    const HighScoreScreenData data = openHighScores(result, table, dir.file("Scores"));

    EXPECT_FALSE(data.loadFailed);
    EXPECT_FALSE(data.saveFailed);
    EXPECT_FALSE(result.result_pending);
    EXPECT_EQ(data.headers, (std::array<std::string, 5>{"", "Name", "Total Days  ", "Money Spent ", "Score  "}));
    ASSERT_EQ(data.rows.size(), 20u);
    EXPECT_EQ(data.rows[0].cells, (std::array<std::string, 5>{"1", "José€               ", "8 Days", "$355", "88028"}));
    EXPECT_EQ(redRanks(data), std::vector<int>{1});
    EXPECT_EQ(data.rows[1].cells, (std::array<std::string, 5>{}));
    EXPECT_EQ(data.champion, "José€");
    EXPECT_EQ(dir.read("Scores"), dollarRecord("Jos\xE9\x80", 88028, 8, 355) + emptyRecords(20));
}

// A record the game only reads and sorts goes back to the file exactly as
// it came, whatever its name bytes and money hold; the grid shows it safely.
TEST(HighScores, storedRecordsAreShownSafelyAndWrittenBackByteForByte)
{
    const struct { const char *name; std::string stored; double score; std::int64_t spentUnits; std::string shownName, shownMoney, shownScore; } rows[] = {
        {"leading_spaces_huge_score", "  Mr Big", 1e20, 50000, "  Mr Big            ", "$5", "100000000000000000000"},
        {"accented", "Ren\xE9\x9F", 5000, 300000, "René\u0178               ", "$30", "5000"},
        {"fractional_dollars", "Cent", 4999, 1234567, "Cent                ", "$123", "4999"},
        {"control_bytes_and_nul", std::string("A\x01\x00z\x7F", 5), 4998, 10000, "A? z?               ", "$1", "4998"},
    };
    TempDir dir;
    std::string file;
    for (const auto &r : rows)
        file += scoreRecord(r.stored, r.score, 3, r.spentUnits);
    dir.write("Scores", file);
    ScoreTable table;
    GameResult none;
    const HighScoreScreenData data = openHighScores(none, table, dir.file("Scores"));
    for (size_t i = 0; i < std::size(rows); ++i) {
        SCOPED_TRACE(rows[i].name);
        EXPECT_EQ(data.rows[i].cells, (std::array<std::string, 5>{std::to_string(i + 1), rows[i].shownName, "3 Days",
                                                                   rows[i].shownMoney, rows[i].shownScore}));
    }
    EXPECT_TRUE(redRanks(data).empty());
    EXPECT_EQ(data.champion, "Mr Big");
    EXPECT_EQ(dir.read("Scores"), file + emptyRecords(21 - static_cast<int>(std::size(rows))));
}

// Equal scores: the later slot is taken first, so a new result ranks above
// the entries it ties, and stored ties swap at every opening.
TEST(HighScores, tiesGoToTheLaterSlot)
{
    TempDir dir;
    dir.write("Scores", dollarRecord("Ann", 700, 3, 50) + dollarRecord("Ben", 700, 4, 60));
    ScoreTable table;
    GameResult none;
    EXPECT_EQ(shownNames(openHighScores(none, table, dir.file("Scores"))), (std::vector<std::string>{"Ben", "Ann"}));
    EXPECT_EQ(shownNames(openHighScores(none, table, dir.file("Scores"))), (std::vector<std::string>{"Ann", "Ben"}));

    GameResult win = pendingWin("Cy", 700, 2, 40);
    const HighScoreScreenData data = openHighScores(win, table, dir.file("Scores"));
    EXPECT_EQ(shownNames(data).front(), "Cy");
    EXPECT_EQ(redRanks(data), std::vector<int>{1});
}

TEST(HighScores, aResultBelowTwentyEntriesIsSavedInTheIntakeSlotButNotShown)
{
    TempDir dir;
    std::string full;
    for (int n = 1; n <= 20; ++n)
        full += dollarRecord("P" + std::to_string(n), 1000 - n, 10, 100);
    dir.write("Scores", full);
    ScoreTable table;
    GameResult win = pendingWin("Tom", 5, 29, 900);
    const HighScoreScreenData data = openHighScores(win, table, dir.file("Scores"));

    EXPECT_EQ(shownNames(data).size(), 20u);
    EXPECT_EQ(data.rows[19].cells[1].substr(0, 3), "P20");
    EXPECT_TRUE(redRanks(data).empty());
    EXPECT_FALSE(win.result_pending);
    EXPECT_EQ(dir.read("Scores"), full + dollarRecord("Tom", 5, 29, 900));
}

TEST(HighScores, theSameNameAndScoreTwiceMarksBothRows)
{
    TempDir dir;
    dir.write("Scores", dollarRecord("Tom", 4000, 6, 120) + dollarRecord("Tom", 3000, 6, 120) +
                            dollarRecord("Jom", 4000, 6, 120));
    ScoreTable table;
    GameResult win = pendingWin("Tom", 4000, 7, 100);
    // Ranks: the new Tom, Jom (the later of the stored equal scores), the stored Tom.
    EXPECT_EQ(redRanks(openHighScores(win, table, dir.file("Scores"))), (std::vector<int>{1, 3}));
}

// Whatever the file holds, the table shows what it can and the next save
// writes a whole, well-formed file.
TEST(HighScores, damagedFilesShowTheGoodRecordsAndAreRewrittenWhole)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    const struct { const char *name; std::string bytes; std::vector<std::string> shown; } rows[] = {
        {"empty", "", {}},
        {"one_and_a_half_records", dollarRecord("Ann", 50, 3, 20) + dollarRecord("Ben", 60, 3, 20).substr(0, 37), {"Ann"}},
        {"zero_score_is_an_empty_slot", dollarRecord("Ann", 0, 3, 20) + dollarRecord("Ben", 60, 3, 20), {"Ben"}},
        {"negative_score", dollarRecord("Ann", -40, 3, 20), {}},
        {"not_a_number", dollarRecord("Ann", nan, 3, 20) + dollarRecord("Ben", 60, 3, 20), {"Ben"}},
        {"infinite_score", dollarRecord("Ann", inf, 3, 20), {}},
        {"longer_than_21_records", std::string(21 * 38, '\0') + dollarRecord("Extra", 90, 1, 1), {}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        TempDir dir;
        dir.write("Scores", row.bytes);
        ScoreTable table;
        GameResult none;
        const HighScoreScreenData data = openHighScores(none, table, dir.file("Scores"));
        EXPECT_FALSE(data.loadFailed);
        EXPECT_FALSE(data.saveFailed);
        EXPECT_EQ(shownNames(data), row.shown);
        EXPECT_EQ(dir.read("Scores").size(), 798u);
    }
}

// Loading only overlays: a file deleted during the run does not empty the
// table, and the next save writes it again.
TEST(HighScores, theTableInMemoryOutlivesTheFile)
{
    TempDir dir;
    dir.write("Scores", dollarRecord("Ann", 50, 3, 20));
    ScoreTable table;
    GameResult none;
    openHighScores(none, table, dir.file("Scores"));
    std::filesystem::remove(dir.file("Scores"));
    const HighScoreScreenData data = openHighScores(none, table, dir.file("Scores"));
    EXPECT_EQ(shownNames(data), std::vector<std::string>{"Ann"});
    EXPECT_EQ(dir.read("Scores"), dollarRecord("Ann", 50, 3, 20) + emptyRecords(20));
}

} // namespace
