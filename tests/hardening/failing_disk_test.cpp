// A full disk or an unusable folder must never cost the player his Top 20:
// the old file stays byte for byte and the table still shows from memory.
#include "core/data_files.h"
#include "scores/score_table.h"
#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <filesystem>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace amorra;
using amorra::testing::TempDir;

namespace {

ScoreTable tableWith(const std::string &name, double score)
{
    ScoreTable t{};
    t[1].name = name + std::string(20 - name.size(), ' ');
    t[1].score = score;
    t[1].days = 8;
    t[1].spent = 355;
    return t;
}

// Runs `write` in a child whose files may not grow past `limit` bytes, the
// way a full disk behaves; returns what the write reported.
bool writeOnAFullDisk(rlim_t limit, const std::function<bool()> &write)
{
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN); // report EFBIG instead of dying
        rlimit r{limit, limit};
        setrlimit(RLIMIT_FSIZE, &r);
        _exit(write() ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

struct FullDiskCase
{
    const char *name;
    rlim_t room; // bytes a file may grow to
};

void PrintTo(const FullDiskCase &c, std::ostream *os)
{
    *os << c.name;
}

class FullDisk : public ::testing::TestWithParam<FullDiskCase>
{
};

TEST_P(FullDisk, leavesTheOldScoresFileByteForByte)
{
    TempDir dir;
    const std::string path = dir.file("Scores");
    ASSERT_TRUE(SaveScores(path, tableWith("Tom", 88028)));
    const std::string before = dir.read("Scores");

    const bool saved = writeOnAFullDisk(GetParam().room, [&] { return SaveScores(path, tableWith("Ann", 99999)); });

    EXPECT_FALSE(saved);
    EXPECT_EQ(dir.read("Scores"), before);
    // No half-written temporary file is left beside it.
    int files = 0;
    for (const auto &entry : std::filesystem::directory_iterator(dir.path()))
        files += entry.is_regular_file() ? 1 : 0;
    EXPECT_EQ(files, 1);
}

INSTANTIATE_TEST_SUITE_P(Room, FullDisk,
                         ::testing::Values(FullDiskCase{"nothing_fits", 0}, FullDiskCase{"one_record_fits", 38},
                                           FullDiskCase{"all_but_the_last_byte_fits", 797}),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(FullDisk, leavesTheRememberedNameAlone)
{
    TempDir dir;
    ASSERT_TRUE(writeLastName(dir.file("last"), "Tom"));
    EXPECT_FALSE(writeOnAFullDisk(5, [&] { return writeLastName(dir.file("last"), "Annabel"); }));
    EXPECT_EQ(readLastName(dir.file("last")), "Tom");
}

TEST(UnusableFolder, showsTheTableFromMemoryAndSaysTheSaveFailed)
{
    ScoreTable table = tableWith("Tom", 88028);
    GameResult result;
    result.result_pending = true;
    result.result_name = "Ann";
    result.result_score = 99999;
    result.result_days = 5;
    result.result_spent = 200;

    const auto data = openHighScores(result, table, "/nonexistent-amorra-folder/Scores");
    EXPECT_TRUE(data.loadFailed);
    EXPECT_TRUE(data.saveFailed);
    ASSERT_EQ(data.rows.size(), 20u);
    EXPECT_EQ(data.rows[0].cells[1].substr(0, 3), "Ann");
    EXPECT_TRUE(data.rows[0].red);
    EXPECT_EQ(data.rows[1].cells[4], "88028");
    EXPECT_EQ(data.champion, "Ann");
}

} // namespace
