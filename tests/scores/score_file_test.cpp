#include "scores/score_table.h"
#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <limits>

using namespace amorra;
using amorra::testing::TempDir;

namespace {

std::string littleEndian(std::uint64_t value, int size)
{
    std::string out;
    for (int i = 0; i < size; ++i)
        out += static_cast<char>((value >> (8 * i)) & 0xFF);
    return out;
}

// One record as the file holds it; `name` is already Windows-1252 bytes.
std::string fileRecord(const std::string &name, double score, int days, std::int64_t spentUnits)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &score, sizeof bits);
    return name + std::string(20 - name.size(), ' ') + littleEndian(bits, 8) +
           littleEndian(static_cast<std::uint16_t>(days), 2) + littleEndian(static_cast<std::uint64_t>(spentUnits), 8);
}

std::string dollarsRecord(const std::string &name, double score, int days, std::int64_t dollars)
{
    return fileRecord(name, score, days, dollars * 10000);
}

const std::string kEmptyRecord = std::string(20, ' ') + std::string(18, '\0');

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

TEST(ScoreRecordLayout, isThirtyEightLittleEndianBytesWithAWindows1252Name)
{
    ScoreTable table;
    table[1] = {"José€              ", 52847, 14, 436};
    const std::string bytes = encodeScoreFile(table);
    ASSERT_EQ(bytes.size(), 798u);
    const std::string expected = std::string("Jos\xE9\x80", 5) + std::string(15, ' ') + // name
                                 std::string("\x00\x00\x00\x00\xE0\xCD\xE9\x40", 8) +    // 52847.0
                                 std::string("\x0E\x00", 2) +                            // 14 days
                                 std::string("\x40\x87\x42\x00\x00\x00\x00\x00", 8);     // $436 x 10,000
    EXPECT_EQ(bytes.substr(0, 38), expected);
    for (int n = 2; n <= 21; ++n)
        EXPECT_EQ(bytes.substr(static_cast<size_t>(n - 1) * 38, 38), kEmptyRecord) << "record " << n;
}

TEST(ScoreRecordLayout, readsNamesBackFromWindows1252)
{
    ScoreTable table;
    overlayScoreFile(dollarsRecord("Ren\xE9\x9F", 10, 2, 30), table);
    EXPECT_EQ(table[1].name, "René\u0178               ");
    EXPECT_EQ(table[1].days, 2);
    EXPECT_EQ(table[1].spent, 30);
}

TEST(HighScores, firstWinWithNoFileCreatesItWithTheResultAsRankOne)
{
    TempDir dir;
    ScoreTable table;
    GameResult result = pendingWin("Tom", 88028, 8, 355);
    const HighScoreScreenData data = openHighScores(result, table, dir.file("Scores"));

    EXPECT_FALSE(data.loadFailed);
    EXPECT_FALSE(data.saveFailed);
    EXPECT_FALSE(result.result_pending);
    EXPECT_EQ(data.headers, (std::array<std::string, 5>{"", "Name", "Total Days  ", "Money Spent ", "Score  "}));
    ASSERT_EQ(data.rows.size(), 20u);
    EXPECT_EQ(data.rows[0].cells, (std::array<std::string, 5>{"1", "Tom                 ", "8 Days", "$355", "88028"}));
    EXPECT_EQ(redRanks(data), std::vector<int>{1});
    for (size_t i = 1; i < 20; ++i)
        EXPECT_EQ(data.rows[i].cells, (std::array<std::string, 5>{})) << "rank " << i + 1;
    EXPECT_EQ(data.champion, "Tom");

    std::string expected = dollarsRecord("Tom", 88028, 8, 355);
    for (int n = 2; n <= 21; ++n)
        expected += kEmptyRecord;
    EXPECT_EQ(dir.read("Scores"), expected);
}

TEST(HighScores, openingFromTheMenuSortsAndRewritesWithoutMarking)
{
    TempDir dir;
    dir.write("Scores", dollarsRecord("Low", 100, 20, 900) + dollarsRecord("High", 5000, 5, 80));
    ScoreTable table;
    GameResult none;
    const HighScoreScreenData data = openHighScores(none, table, dir.file("Scores"));
    EXPECT_EQ(shownNames(data), (std::vector<std::string>{"High", "Low"}));
    EXPECT_TRUE(redRanks(data).empty());
    EXPECT_EQ(dir.read("Scores").size(), 798u);
    EXPECT_EQ(dir.read("Scores").substr(0, 76), dollarsRecord("High", 5000, 5, 80) + dollarsRecord("Low", 100, 20, 900));
}

// Equal scores: the later slot is taken first, so a new result ranks above
// the entries it ties, and stored ties swap at every opening.
TEST(HighScores, tiesGoToTheLaterSlot)
{
    TempDir dir;
    dir.write("Scores", dollarsRecord("Ann", 700, 3, 50) + dollarsRecord("Ben", 700, 4, 60));
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
        full += dollarsRecord("P" + std::to_string(n), 1000 - n, 10, 100);
    dir.write("Scores", full);
    ScoreTable table;
    GameResult win = pendingWin("Tom", 5, 29, 900);
    const HighScoreScreenData data = openHighScores(win, table, dir.file("Scores"));

    EXPECT_EQ(shownNames(data).size(), 20u);
    EXPECT_EQ(data.rows[19].cells[1].substr(0, 3), "P20");
    EXPECT_TRUE(redRanks(data).empty());
    EXPECT_FALSE(win.result_pending);
    EXPECT_EQ(dir.read("Scores").substr(20 * 38), dollarsRecord("Tom", 5, 29, 900));
}

TEST(HighScores, theSameNameAndScoreTwiceMarksBothRows)
{
    TempDir dir;
    dir.write("Scores", dollarsRecord("Tom", 4000, 6, 120) + dollarsRecord("Tom", 3000, 6, 120));
    ScoreTable table;
    GameResult win = pendingWin("Tom", 4000, 7, 100);
    EXPECT_EQ(redRanks(openHighScores(win, table, dir.file("Scores"))), (std::vector<int>{1, 2}));
}

TEST(HighScores, championIsTrimmedWhileTheGridKeepsThePadding)
{
    TempDir dir;
    dir.write("Scores", dollarsRecord("  Mr Big", 1e20, 1, 5));
    ScoreTable table;
    GameResult none;
    const HighScoreScreenData data = openHighScores(none, table, dir.file("Scores"));
    EXPECT_EQ(data.champion, "Mr Big");
    EXPECT_EQ(data.rows[0].cells[1], "  Mr Big            ");
    EXPECT_EQ(data.rows[0].cells[4], "100000000000000000000"); // no exponent, no separators
}

TEST(HighScores, loadingCreatesAMissingFileEmpty)
{
    TempDir dir;
    ScoreTable table;
    EXPECT_TRUE(LoadScores(dir.file("Scores"), table));
    EXPECT_TRUE(std::filesystem::exists(dir.file("Scores")));
    EXPECT_EQ(dir.read("Scores"), "");
    EXPECT_FALSE(table[1].occupied());
}

// A name the file cannot spell is saved with '?' but still marked in red
// in the window that took it in.
TEST(HighScores, aNameOutsideWindows1252IsMarkedAndSavedWithQuestionMarks)
{
    TempDir dir;
    ScoreTable table;
    GameResult win = pendingWin("Łukasz", 300, 4, 60);
    const HighScoreScreenData data = openHighScores(win, table, dir.file("Scores"));
    EXPECT_EQ(data.rows[0].cells[1], "Łukasz              ");
    EXPECT_EQ(redRanks(data), std::vector<int>{1});
    EXPECT_EQ(dir.read("Scores").substr(0, 38), dollarsRecord("?ukasz", 300, 4, 60));
}

struct BadFileCase
{
    const char *name;
    std::string bytes;
    std::vector<std::string> shown;
};

void PrintTo(const BadFileCase &c, std::ostream *os)
{
    *os << c.name;
}

class DamagedScoresFile : public ::testing::TestWithParam<BadFileCase>
{
};

// Whatever the file holds, the table shows what it can and the next save
// writes a whole, well-formed file.
TEST_P(DamagedScoresFile, showsTheGoodRecordsAndIsRewrittenWhole)
{
    const BadFileCase c = GetParam();
    TempDir dir;
    dir.write("Scores", c.bytes);
    ScoreTable table;
    GameResult none;
    const HighScoreScreenData data = openHighScores(none, table, dir.file("Scores"));
    EXPECT_FALSE(data.loadFailed);
    EXPECT_FALSE(data.saveFailed);
    EXPECT_EQ(shownNames(data), c.shown);
    EXPECT_EQ(dir.read("Scores").size(), 798u);
}

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

INSTANTIATE_TEST_SUITE_P(
    Files, DamagedScoresFile,
    ::testing::Values(
        BadFileCase{"empty", "", {}},
        BadFileCase{"one_and_a_half_records", dollarsRecord("Ann", 50, 3, 20) + dollarsRecord("Ben", 60, 3, 20).substr(0, 19), {"Ann"}},
        BadFileCase{"zero_score_is_an_empty_slot", dollarsRecord("Ann", 0, 3, 20) + dollarsRecord("Ben", 60, 3, 20), {"Ben"}},
        BadFileCase{"negative_score_is_ignored", dollarsRecord("Ann", -40, 3, 20), {}},
        BadFileCase{"not_a_number_is_ignored", dollarsRecord("Ann", kNaN, 3, 20) + dollarsRecord("Ben", 60, 3, 20), {"Ben"}},
        BadFileCase{"infinite_score_is_ignored", dollarsRecord("Ann", kInf, 3, 20), {}},
        BadFileCase{"all_zero_bytes", std::string(798, '\0'), {}},
        BadFileCase{"longer_than_21_records", std::string(21 * 38, '\0') + dollarsRecord("Extra", 90, 1, 1), {}},
        BadFileCase{"control_bytes_in_a_name", dollarsRecord(std::string("A\x01\x00z", 4), 10, 1, 1), {"A?"}}),
    [](const auto &info) { return std::string(info.param.name); });

TEST(HighScores, anUnreadableFileShowsTheTableFromMemory)
{
    TempDir dir;
    dir.write("Scores", dollarsRecord("Ann", 50, 3, 20));
    ScoreTable table;
    GameResult none;
    openHighScores(none, table, dir.file("Scores"));

    std::filesystem::remove(dir.file("Scores"));
    std::filesystem::create_directory(dir.file("Scores")); // cannot be opened as a file
    GameResult win = pendingWin("Tom", 80, 9, 100);
    const HighScoreScreenData data = openHighScores(win, table, dir.file("Scores"));
    EXPECT_TRUE(data.loadFailed);
    EXPECT_TRUE(data.saveFailed);
    EXPECT_EQ(shownNames(data), (std::vector<std::string>{"Tom", "Ann"}));
    EXPECT_EQ(redRanks(data), std::vector<int>{1});
    EXPECT_TRUE(std::filesystem::is_directory(dir.file("Scores"))); // whatever stands there is left alone
}

TEST(HighScores, aFailedSaveLeavesTheOldFileAsItWas)
{
    TempDir dir;
    const std::string old = dollarsRecord("Ann", 50, 3, 20);
    dir.write("Scores", old);
    // The save goes through a temporary file beside it; make that impossible.
    std::filesystem::create_directory(dir.file("Scores.saving"));
    ScoreTable table;
    GameResult win = pendingWin("Tom", 80, 9, 100);
    const HighScoreScreenData data = openHighScores(win, table, dir.file("Scores"));
    EXPECT_FALSE(data.loadFailed);
    EXPECT_TRUE(data.saveFailed);
    EXPECT_EQ(shownNames(data), (std::vector<std::string>{"Tom", "Ann"}));
    EXPECT_EQ(dir.read("Scores"), old);
    EXPECT_FALSE(win.result_pending);
}

TEST(HighScores, theTableInMemoryOutlivesTheFile)
{
    TempDir dir;
    dir.write("Scores", dollarsRecord("Ann", 50, 3, 20));
    ScoreTable table;
    GameResult none;
    openHighScores(none, table, dir.file("Scores"));
    std::filesystem::remove(dir.file("Scores"));
    // A file deleted during the run does not empty the table: loading only overlays.
    const HighScoreScreenData data = openHighScores(none, table, dir.file("Scores"));
    EXPECT_EQ(shownNames(data), std::vector<std::string>{"Ann"});
    EXPECT_EQ(dir.read("Scores").substr(0, 38), dollarsRecord("Ann", 50, 3, 20));
}

} // namespace
