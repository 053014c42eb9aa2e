// Whatever goes wrong with the disk, the player never loses his Top 20: a
// file that could not be read is never written over, a save that fails
// leaves the old file byte for byte, and two games saving at once both
// keep their rows in a file that is whole at every moment.
#include "core/data_files.h"
#include "scores/score_table.h"
#include "support/score_bytes.h"
#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace amorra;
using namespace amorra::testing;
namespace fs = std::filesystem;

namespace {

// The real system calls, except that the one named fails with `error`:
// "open" (for reading), "create" (the temporary file), "read", "fsync",
// "close", "rename", or "write", which first fills the disk but for a byte.
class FaultyFiles final : public FileSystem
{
public:
    FaultyFiles(std::string call, int error) : m_call(std::move(call)), m_error(error) {}
    int open(const char *path, int flags, mode_t mode) override
    {
        return fails((flags & O_CREAT) ? "create" : "open") ? -1 : FileSystem::open(path, flags, mode);
    }
    ssize_t read(int fd, void *to, size_t n) override { return fails("read") ? -1 : FileSystem::read(fd, to, n); }
    ssize_t write(int fd, const void *from, size_t n) override
    {
        return m_call == "write" && n > 1 ? FileSystem::write(fd, from, n - 1)
                                          : fails("write") ? -1 : FileSystem::write(fd, from, n);
    }
    int fsync(int fd) override { return fails("fsync") ? -1 : FileSystem::fsync(fd); }
    int close(int fd) override { return FileSystem::close(fd) != 0 || fails("close") ? -1 : 0; }
    int rename(const char *from, const char *to) override { return fails("rename") ? -1 : FileSystem::rename(from, to); }

private:
    bool fails(const char *call)
    {
        errno = m_error;
        return m_call == call;
    }
    std::string m_call;
    int m_error;
};

// A slow disk: each read hands out at most 1,000 bytes, and the furthest
// byte ever asked for is kept. It never hands out more than `room`, so a
// reader that asks for too much fails the test instead of the heap.
class ShortReads final : public FileSystem
{
public:
    explicit ShortReads(size_t room) : m_room(room) {}
    ssize_t read(int fd, void *to, size_t n) override
    {
        furthest = std::max(furthest, given + n);
        const ssize_t got = FileSystem::read(fd, to, std::min({n, size_t{1000}, m_room - given}));
        given += got > 0 ? static_cast<size_t>(got) : 0;
        return got;
    }
    size_t given = 0;
    size_t furthest = 0;

private:
    size_t m_room;
};

GameResult pendingWin(const std::string &name, double score)
{
    GameResult r;
    r.result_pending = true;
    r.result_name = name;
    r.result_score = score;
    r.result_days = 5;
    r.result_spent = 200;
    return r;
}

// What stands at a path: its kind, mode, owner, link target and bytes.
std::string describe(const std::string &path)
{
    struct stat st{};
    if (::lstat(path.c_str(), &st) != 0)
        return "nothing";
    std::error_code ec;
    std::ifstream in(S_ISREG(st.st_mode) ? path : "", std::ios::binary);
    return std::to_string(st.st_mode) + " " + std::to_string(st.st_uid) + " " + fs::read_symlink(path, ec).string() +
           " " + std::string(std::istreambuf_iterator<char>(in), {});
}

size_t entries(const std::string &folder)
{
    return static_cast<size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST(UnreadableScores, areShownFromMemoryAndNeverWrittenOver)
{
    const struct { const char *name; const char *call; int error; const char *standing; } rows[] = {
        {"permission_denied", "open", EACCES, ""}, {"io_error_on_open", "open", EIO, ""},
        {"too_many_open_files", "open", EMFILE, ""}, {"read_error", "read", EIO, ""},
        {"a_fifo", "", 0, "fifo"},                   {"a_link_to_dev_zero", "", 0, "zero"},
        {"a_folder", "", 0, "folder"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        TempDir dir;
        const std::string path = dir.file("Scores");
        dir.write("Scores", dollarRecord("Ann", 50, 3, 20));
        ScoreTable table;
        GameResult none;
        openHighScores(none, table, path);
        ::chmod(path.c_str(), 0604);
        const std::string kind = row.standing;
        if (!kind.empty())
            fs::remove(path);
        if (kind == "fifo") {
            ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
        }
        if (kind == "zero")
            fs::create_symlink("/dev/zero", path);
        if (kind == "folder")
            fs::create_directory(path);
        const std::string standing = describe(path);

        FaultyFiles files(row.call, row.error);
        GameResult win = pendingWin("Tom", 80);
        const HighScoreScreenData data = openHighScores(win, table, path, files);
        EXPECT_TRUE(data.loadFailed);
        EXPECT_FALSE(data.saveFailed);
        EXPECT_EQ(data.rows[0].cells[1].substr(0, 3), "Tom");
        EXPECT_TRUE(data.rows[0].red);
        EXPECT_EQ(data.rows[1].cells[1].substr(0, 3), "Ann");
        EXPECT_EQ(describe(path), standing);
        EXPECT_EQ(entries(dir.path()), 1u); // no temporary file left
    }
}

TEST(FailedSave, leavesTheOldFileByteForByte)
{
    const struct { const char *call; int error; } rows[] = {{"create", EACCES}, {"write", ENOSPC}, {"fsync", EIO}, {"close", EIO}, {"rename", EXDEV}};
    for (const auto &row : rows) {
        SCOPED_TRACE(row.call);
        TempDir dir;
        const std::string old = dollarRecord("Ann", 50, 3, 20);
        dir.write("Scores", old);
        FaultyFiles files(row.call, row.error);
        ScoreTable table;
        GameResult win = pendingWin("Tom", 80);
        const HighScoreScreenData data = openHighScores(win, table, dir.file("Scores"), files);
        EXPECT_FALSE(data.loadFailed);
        EXPECT_TRUE(data.saveFailed);
        EXPECT_EQ(data.rows[0].cells[1].substr(0, 3), "Tom");
        EXPECT_EQ(dir.read("Scores"), old);
        EXPECT_EQ(entries(dir.path()), 1u);
    }
}

// A linked Scores stays a link and its target gets the table; the mode the
// player gave the file stays.
TEST(Saving, keepsALinkALinkAndTheFilesMode)
{
    TempDir dir;
    fs::create_directory(dir.file("kept"));
    dir.write("kept/table", dollarRecord("Ann", 50, 3, 20));
    ::chmod(dir.file("kept/table").c_str(), 0444);
    fs::create_symlink("kept/table", dir.file("Scores"));
    ScoreTable table;
    GameResult win = pendingWin("Tom", 80);
    EXPECT_FALSE(openHighScores(win, table, dir.file("Scores")).saveFailed);
    EXPECT_TRUE(fs::is_symlink(dir.file("Scores")));
    EXPECT_EQ(dir.read("kept/table").substr(0, 76), dollarRecord("Tom", 80, 5, 200) + dollarRecord("Ann", 50, 3, 20));
    EXPECT_EQ(fs::status(dir.file("kept/table")).permissions(), fs::perms(0444));
}

TEST(PlayerFiles, areReadUpToTheirLimitAndNeverBlock)
{
    TempDir dir;
    dir.write("last", "  Tom" + std::string(15, ' ') + "EXTRA");
    EXPECT_EQ(readLastName(dir.file("last")), "  Tom"); // only the padding goes
    const FileRead read = readPlayerFile(dir.file("last"), 20);
    EXPECT_EQ(read.bytes.size(), 20u);
    EXPECT_TRUE(read.longer);
    ASSERT_EQ(::mkfifo(dir.file("tuteshow").c_str(), 0600), 0); // nobody ever writes into it
    EXPECT_EQ(readTuteShow(dir.file("tuteshow")), 0);
    EXPECT_EQ(readPlayerFile(dir.file("tuteshow"), 2).outcome, ReadOutcome::Failed);
    EXPECT_EQ(readPlayerFile(dir.file("missing"), 2).outcome, ReadOutcome::Missing);

    std::string long_file(3000, 'x');
    long_file[1499] = 'y';
    dir.write("qsguide.rtf", long_file);
    ShortReads disk(1501);
    const FileRead guide = readPlayerFile(dir.file("qsguide.rtf"), 1500, disk);
    EXPECT_EQ(guide.bytes, long_file.substr(0, 1500));
    EXPECT_TRUE(guide.longer);
    EXPECT_LE(disk.furthest, 1501u); // the limit and one byte to tell it is longer
}

// Some launchers start a game with standard input closed: its own files
// then get descriptor 0, which has to be closed (and unlocked) like any other.
TEST(PlayerFiles, leaveNoDescriptorOpenWhenStandardInputIsClosed)
{
    TempDir dir;
    const int input = ::dup(0);
    ::close(0);
    for (int round = 1; round <= 2; ++round) {
        SCOPED_TRACE(round);
        EXPECT_TRUE(FolderLock(dir.file("Scores")).held());
        EXPECT_TRUE(replaceFileContents(dir.file("Scores"), "table"));
    }
    const int next = ::open("/dev/null", O_RDONLY);
    ::dup2(input, 0);
    ::close(input);
    EXPECT_EQ(next, 0);
    if (next > 0)
        ::close(next);
}

// Two games ending at once, many times over, some killed half way: the file
// is a whole table at every moment, and both rows are in it whenever both
// games finished.
TEST(TwoGames, savingAtOnceKeepsBothRowsInAWholeFile)
{
    TempDir dir;
    const std::string path = dir.file("Scores");
    std::mt19937 dice(7);
    const auto saver = [&](const std::string &name, double score) {
        const pid_t child = fork();
        if (child == 0) {
            ScoreTable table;
            GameResult win = pendingWin(name, score);
            const HighScoreScreenData data = openHighScores(win, table, path);
            _exit(data.loadFailed || data.saveFailed ? 1 : 0);
        }
        return child;
    };
    for (int round = 1; round <= 60; ++round) {
        SCOPED_TRACE(round);
        dir.write("Scores", dollarRecord("Old", 1, 1, 1) + std::string(20 * 38, '\0'));
        const pid_t games[] = {saver("Ann", 1000 + round), saver("Bob", 2000 + round)};
        const bool killing = dice() % 2;
        if (killing) {
            ::usleep(dice() % 3000);
            ::kill(games[dice() % 2], SIGKILL);
        }
        int finished = 0;
        for (const pid_t game : games) {
            int status = 0;
            while (::waitpid(game, &status, WNOHANG) == 0)
                ASSERT_EQ(readPlayerFile(path, 1000).bytes.size(), 798u);
            finished += WIFEXITED(status) && WEXITSTATUS(status) == 0;
        }
        const std::string file = dir.read("Scores");
        ASSERT_EQ(file.size(), 798u);
        ScoreTable table;
        overlayScoreFile(file, table);
        std::string names;
        for (const ScoreRecord &r : table)
            names += r.occupied() ? r.name.substr(0, 3) : "";
        EXPECT_NE(names.find("Old"), std::string::npos);
        ASSERT_TRUE(killing || finished == 2); // neither gives up waiting for the other
        if (finished == 2) {
            ASSERT_EQ(names, "BobAnnOld");
        }
    }
    // What a killed game left half written is cleared by the next save.
    ScoreTable table;
    GameResult none;
    openHighScores(none, table, path);
    EXPECT_EQ(entries(dir.path()), 1u);
}

} // namespace
